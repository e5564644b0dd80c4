// Telling MPEG audio from other content by its first bytes.

#include "engines/audio/MpegDecoder.h"

#include <gtest/gtest.h>

#include <vector>

namespace yarvo::audio {
namespace {

// MPEG-1 layer 3, 128 kbit/s, 44.1 kHz, no padding: 417 bytes a frame.
constexpr std::array<std::uint8_t, 4> kLayer3 = {0xFF, 0xFB, 0x90, 0x00};
// MPEG-1 layer 2, 192 kbit/s, 48 kHz: 576 bytes a frame.
constexpr std::array<std::uint8_t, 4> kLayer2 = {0xFF, 0xFD, 0xA4, 0x00};

std::vector<std::uint8_t> frames(const std::array<std::uint8_t, 4>& header, std::size_t bytes,
                                 int count, std::size_t offset = 0) {
  std::vector<std::uint8_t> data(offset + bytes * static_cast<std::size_t>(count) + 4, 0x55);
  for (int i = 0; i < count; ++i)
    std::copy(
        header.begin(), header.end(),
        data.begin() + static_cast<std::ptrdiff_t>(offset + bytes * static_cast<std::size_t>(i)));
  return data;
}

// An ID3v2.4 tag of `tagBytes` (its size in four 7-bit bytes) before `audio`.
std::vector<std::uint8_t> withId3(const std::vector<std::uint8_t>& audio, std::size_t tagBytes) {
  std::vector<std::uint8_t> data{'I', 'D', '3', 4, 0, 0};
  for (int shift = 21; shift >= 0; shift -= 7)
    data.push_back(static_cast<std::uint8_t>((tagBytes >> shift) & 0x7F));
  data.resize(10 + tagBytes, 0);
  data.insert(data.end(), audio.begin(), audio.end());
  return data;
}

struct SniffCase {
  const char* name;
  std::vector<std::uint8_t> bytes;
  int layer;
};

TEST(MpegSniffTest, FindsTheLayerOnlyWhereThreeFramesFollowEachOther) {
  std::vector<std::uint8_t> badRate = frames(kLayer3, 417, 3);
  badRate[2] = 0xF0;  // bit rate index 15 is forbidden
  std::vector<std::uint8_t> broken = frames(kLayer3, 417, 3);
  broken[417 * 2] = 0x00;  // the third header is gone
  const std::vector<SniffCase> cases{
      {"layer 3", frames(kLayer3, 417, 3), 3},
      {"layer 2", frames(kLayer2, 576, 3), 2},
      {"after junk", frames(kLayer3, 417, 3, 100), 3},
      {"after an ID3v2 tag", withId3(frames(kLayer3, 417, 3), 300), 3},
      {"two frames only", frames(kLayer3, 417, 2), 0},
      {"chain broken", broken, 0},
      {"forbidden bit rate", badRate, 0},
      {"too far in", frames(kLayer3, 417, 3, 5000), 0},
      {"empty", {}, 0},
      {"lone sync", {0xFF, 0xFB}, 0},
  };
  for (const SniffCase& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(sniffMpegLayer(c.bytes), c.layer);
  }
}

}  // namespace
}  // namespace yarvo::audio
