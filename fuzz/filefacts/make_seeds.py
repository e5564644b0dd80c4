#!/usr/bin/env python3
"""Writes the seed inputs of the filefacts fuzz targets into corpus/<target>/.

The seeds are tiny hand-made files that reach each branch of the readers
once; the fuzzer finds the rest. Run again after changing this script.
"""
import pathlib
import struct

HERE = pathlib.Path(__file__).resolve().parent


def header(b1=0xFB, b2=0x90, b3=0x44):
    return bytes([0xFF, b1, b2, b3])


def xing_frame(frames, b1=0xFB, b2=0x90, b3=0x00):
    frame = bytearray(header(b1, b2, b3) + bytes(32))
    frame += b"Xing" + struct.pack(">II", 0x0F, frames)
    return bytes(frame + bytes(16))


def claimed(size, head):
    """mp3info input: an 8-byte claimed file size, then the file's first bytes."""
    return struct.pack("<Q", size) + head


def tag(title=b"Song", artist=b"Artist", genre=17, pad=b" "):
    def field(text, width):
        return (text + pad * width)[:width]
    return (b"TAG" + field(title, 30) + field(artist, 30) + field(b"Album", 30)
            + field(b"1999", 4) + field(b"Comment", 30) + bytes([genre]))


SEEDS = {
    "fuzz_mp3info": {
        "cbr_header": claimed(1_000_000, header()),
        "xing_3831": claimed(3_000_000, xing_frame(3831)),
        "xing_wraps": claimed(3_000_000, xing_frame(0x01000EF7)),
        "mpeg2_index9": claimed(50_000, header(0xF3, 0x90, 0xC0)),
        "zero_bitrate": claimed(50_000, header(0xF3, 0x00, 0x00)),
        "id3v2_then_frame": claimed(20_000, b"ID3\x04\x00\x00\x00\x00\x00\x23" + bytes(35) + header()),
        "false_syncs": claimed(9_000, b"\xFF\xF8\xFF\xF1\xFF\xE3" + header(0xFD, 0xB4, 0x43)),
        # A Xing frame at 4057: "Xing" ends the 4096-byte window, its count lies behind it.
        "late_xing": claimed(3_000_000, bytes(4056) + xing_frame(3831)),
    },
    "fuzz_id3tag": {
        "tag_only": tag(),
        "audio_and_tag": header() + bytes(60) + tag(b"Abcdefghijk" + b" " * 19, genre=255),
        "zero_padded": bytes(10) + tag(b"Zero", pad=b"\x00"),
        "cp1250_letters": bytes(5) + tag(b"\xE3\xE2\xEE\xBA\xFE \xC3\xC2\xCE\xAA\xDE", b"\xC6\xE6"),
        "no_tag": b"tag" + bytes(140),
        "short": b"TAG" + bytes(20),
    },
    "fuzz_boyermoore": {
        "twice": b"\x00abc\x00abcabc",
        "empty_pattern": b"\x00\x00some text",
        "case_sensitive": b"\x01live\x00-LIVE live",
        "romanian": "\x00ŞERB\x00ionuţ şerban".encode(),
        "cyrillic": "\x00песня\x00-ПЕСНЯ".encode(),
        "overlap": b"\x00aa\x00xaaaa",
    },
}

for target, seeds in SEEDS.items():
    folder = HERE / "corpus" / target
    folder.mkdir(parents=True, exist_ok=True)
    for name, data in seeds.items():
        (folder / name).write_bytes(data)
