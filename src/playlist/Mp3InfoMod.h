#pragma once

// What the first MPEG audio frame header of a file says, as display texts.
//
// The reader looks at the first 4096 bytes only and never walks the frames:
// a constant bit rate length comes from the first header and the file size,
// a variable bit rate length from the frame count of a "Xing" header by an
// approximation of its own (see mp3XingSeconds). Its rules are the player's
// and differ from the MPEG standards on purpose in places: layer 1 and 2
// files of MPEG 1.0 show the layer 3 bit rate of their index, MPEG 2.5 is not
// recognised, and the Xing header is only looked for where a stereo MPEG 1.0
// frame has it.

#include <cstdint>
#include <filesystem>
#include <span>
#include <string>

namespace yarvo {

// Display texts; the leading blank of some values belongs to the value.
struct Mp3Info {
  std::string BitRate;    // kbit/s, decimal: "128"
  std::string Mode;       // " Stereo", " Joint Stereo", " 2 Channel", " Mono"
  std::string Copyright;  // " Yes", " No"
  std::string Crc;        // "Yes" when the frame carries a CRC, else "No"
  std::string Emphasis;   // " None", " 50/15 microsec", " invalid", " CITT j. 17"
  std::string Frequency;  // sample rate: "44100 Hz"
  std::string Layer;      // "layer 1", "layer 2", "layer 3"
  std::string Length;     // whole seconds, decimal
  std::string Version;    // "MPEG 1.0", "MPEG 2.0"
  std::string Original;   // " Yes", " No"
  std::string FileSize;   // bytes, decimal
};

// The reader's window: the bytes it reads, and the last 1-based position at
// which it accepts the first byte of a frame header.
inline constexpr std::size_t kMp3ReadBytes = 4096;
inline constexpr std::size_t kMp3LastSyncPosition = 4092;

// Fills info from the file. Fields the reader doesn't reach keep what they
// held, so pass a fresh Mp3Info:
// - a file that can't be opened (or isn't a regular file) sets nothing;
// - no frame sync in the window sets FileSize only;
// - a bit rate of 0, or a Xing frame count of 57 or below, stops the reader
//   behind BitRate, resp. Length, and leaves the fields after it empty
//   (Copyright, Original, Emphasis, Mode, FileSize).
void ReadMp3Info(const std::string& FileName, Mp3Info& Info);

// The same rules on bytes in memory: head holds the file's first bytes (only
// the first 4096 are looked at; fewer when the file is shorter), fileSize is
// the size of the whole file.
void readMp3InfoBytes(std::span<const std::uint8_t> head, std::uint64_t fileSize, Mp3Info& Info);

// Seconds of a Xing file with frameCount frames: the first 57 frames don't
// count, then each second takes 38 frames and every third second 39, and a
// second that is begun counts whole. Made for 44100 Hz audio.
std::uint32_t mp3XingSeconds(std::uint32_t frameCount) noexcept;

}  // namespace yarvo
