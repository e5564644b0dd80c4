#!/usr/bin/env python3
"""Writes the seed inputs of the MIDI reader's fuzz target into corpus/<target>/.

Small hand-made files that reach each branch of the reader once: both
formats, a tempo map, running status, SMPTE time, system exclusive and meta
events, a RIFF wrapper, and a few kinds of damage. The fuzzer finds the
rest. Run again after changing this script.
"""
import pathlib
import struct

HERE = pathlib.Path(__file__).resolve().parent


def vlq(value):
    out = [value & 0x7F]
    value >>= 7
    while value:
        out.insert(0, 0x80 | (value & 0x7F))
        value >>= 7
    return bytes(out)


def track(events, end=True):
    """events: (delta, bytes) pairs."""
    body = b"".join(vlq(delta) + data for delta, data in events)
    if end:
        body += b"\x00\xFF\x2F\x00"
    return b"MTrk" + struct.pack(">I", len(body)) + body


def header(fmt, tracks, division):
    return b"MThd" + struct.pack(">IHHH", 6, fmt, tracks, division)


TEMPO_120 = b"\xFF\x51\x03\x07\xA1\x20"
TEMPO_60 = b"\xFF\x51\x03\x0F\x42\x40"
NOTES = [(0, b"\xC0\x4F"), (0, b"\x90\x45\x64"), (480, b"\x80\x45\x40"),
         (0, b"\x90\x4C\x64"), (480, b"\x4C\x00")]  # the last one on running status

FORMAT0 = header(0, 1, 480) + track([(0, TEMPO_120)] + NOTES[:3] + [(0, TEMPO_60)] + NOTES[3:])
FORMAT1 = (header(1, 2, 480) + track([(0, TEMPO_120), (960, TEMPO_60)])
           + track(NOTES + [(10, b"\xE0\x00\x40"), (0, b"\xB0\x07\x64"), (0, b"\xD0\x20"),
                            (0, b"\xA0\x45\x10")]))


def rmid(midi):
    info = b"LIST" + struct.pack("<I", 5) + b"INFO!\x00"
    body = b"RMID" + info + b"data" + struct.pack("<I", len(midi)) + midi
    return b"RIFF" + struct.pack("<I", len(body)) + body


SEEDS = {
    "fuzz_midifile": {
        "format0_tempo_change": FORMAT0,
        "format1_two_tracks": FORMAT1,
        "rmid": rmid(FORMAT1),
        "smpte_25": header(0, 1, 0xE728) + track([(500, b"\x90\x45\x64"), (250, b"\x80\x45\x00")]),
        "sysex_and_meta": header(0, 1, 96) + track([
            (0, b"\xF0\x05\x7E\x7F\x09\x01\xF7"), (0, b"\xF7\x02\xF8\xFA"),
            (0, b"\xFF\x03\x04Song"), (0, b"\x90\x3C\x64"), (96, b"\x3C\x00")]),
        "cut_short": FORMAT0[:40],
        "long_header_and_other_chunk": (b"MThd" + struct.pack(">IHHH", 8, 0, 1, 480) + b"!!"
                                        + b"XFIH" + struct.pack(">I", 3) + b"abc"
                                        + track(NOTES)),
        "real_time_byte": header(0, 1, 480) + track([(0, b"\x90\x3C\x64"), (0, b"\xF8")], end=False),
    },
}


def main():
    for target, seeds in SEEDS.items():
        folder = HERE / "corpus" / target
        folder.mkdir(parents=True, exist_ok=True)
        for name, data in seeds.items():
            (folder / name).write_bytes(data)


if __name__ == "__main__":
    main()
