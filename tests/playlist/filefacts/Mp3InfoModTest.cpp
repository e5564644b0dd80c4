#include "playlist/Mp3InfoMod.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "FileBytes.h"
#include "support/TempDir.h"

namespace yarvo {
namespace {

// A head of `size` zero bytes with a frame header 255 b1 b2 b3 at the 1-based position.
std::vector<std::uint8_t> headWithHeader(std::size_t size, std::size_t position, std::uint8_t b1,
                                         std::uint8_t b2, std::uint8_t b3) {
  std::vector<std::uint8_t> head(size, 0);
  head.at(position - 1) = 255;
  head.at(position) = b1;
  head.at(position + 1) = b2;
  head.at(position + 2) = b3;
  return head;
}

// A Xing header `offset` bytes behind the frame start, with a big-endian frame count.
void putXing(std::vector<std::uint8_t>& head, std::size_t framePosition, std::size_t offset,
             std::uint32_t frames, const char* magic = "Xing") {
  const std::size_t at = framePosition - 1 + offset;
  std::copy_n(magic, 4, head.begin() + static_cast<std::ptrdiff_t>(at));
  head.at(at + 7) = 0x0F;  // flags: frames, bytes, TOC, quality
  for (int k = 0; k < 4; ++k)
    head.at(at + 8 + static_cast<std::size_t>(k)) =
        static_cast<std::uint8_t>(frames >> (24 - 8 * k));
}

Mp3Info infoOf(const std::vector<std::uint8_t>& head, std::uint64_t fileSize) {
  Mp3Info info;
  readMp3InfoBytes(head, fileSize, info);
  return info;
}

// Every field in the order the reader fills them, so that where it stops shows.
std::string fields(const Mp3Info& i) {
  return i.Crc + "|" + i.Version + "|" + i.Layer + "|" + i.Frequency + "|" + i.BitRate + "|" +
         i.Length + "|" + i.Copyright + "|" + i.Original + "|" + i.Emphasis + "|" + i.Mode + "|" +
         i.FileSize;
}

TEST(ReadMp3Info, SyncAt4092FoundAt4093Not) {
  EXPECT_EQ(infoOf(headWithHeader(4096, 4092, 0xFB, 0x90, 0x44), 1'000'000).Version, "MPEG 1.0");
  EXPECT_EQ(fields(infoOf(headWithHeader(4096, 4093, 0xFB, 0x90, 0x44), 1'000'000)),
            "||||||||||1000000");
}

TEST(ReadMp3Info, OnlyMpeg1And2SyncBytesCount) {
  for (int b = 0; b < 256; ++b) {
    SCOPED_TRACE(b);
    const auto b1 = static_cast<std::uint8_t>(b);
    const Mp3Info info = infoOf(headWithHeader(64, 10, b1, 0x90, 0x00), 5000);
    const bool accepted = (b >= 242 && b <= 247) || b >= 250;
    EXPECT_EQ(info.Version.empty(), !accepted);
  }
}

TEST(ReadMp3Info, HeaderFieldsOf96000Bytes) {
  struct Case {
    std::uint8_t b1, b2, b3;
    const char* fields;
  };
  for (const Case& c : {
           Case{0xFB, 0x90, 0x44,
                "No|MPEG 1.0|layer 3|44100 Hz|128|6| No| Yes| None| Joint Stereo|96000"},
           Case{0xF3, 0x90, 0xC0, "No|MPEG 2.0|layer 3|22050 Hz|80|9| No| No| None| Mono|96000"},
           Case{0xF5, 0xE8, 0x89,
                "No|MPEG 2.0|layer 2|16000 Hz|160|4| Yes| No| 50/15 microsec| 2 Channel|96000"},
           // MPEG 1.0 layers 1 and 2 show the layer 3 rate of their index.
           Case{0xFF, 0x90, 0x0E,
                "No|MPEG 1.0|layer 1|44100 Hz|128|6| Yes| Yes| invalid| Stereo|96000"},
           Case{0xFC, 0xB4, 0x43,
                "Yes|MPEG 1.0|layer 2|48000 Hz|192|4| No| No| CITT j. 17| Joint Stereo|96000"},
       }) {
    EXPECT_EQ(fields(infoOf(headWithHeader(4096, 1, c.b1, c.b2, c.b3), 96000)), c.fields);
  }
}

TEST(ReadMp3Info, BitRateAndSampleRateForEveryCode) {
  // The standards' layer 3 columns; index 0 (free format) and 15 (invalid) as the player has them.
  const std::array<int, 16> mpeg1 = {24,  32,  40,  48,  56,  64,  80,  96,
                                     112, 128, 160, 192, 224, 256, 320, 320};
  const std::array<int, 16> mpeg2 = {0,  8,  16, 24,  32,  40,  48,  56,
                                     64, 80, 96, 112, 128, 144, 160, 176};
  const std::array<int, 4> mpeg1Rates = {44100, 48000, 32000, 32000};  // reserved as 32000
  for (std::uint8_t b1 : {std::uint8_t{0xFB}, std::uint8_t{0xFD}, std::uint8_t{0xFF},
                          std::uint8_t{0xF3}, std::uint8_t{0xF5}, std::uint8_t{0xF7}}) {
    const bool isMpeg2 = b1 < 0xF8;
    for (int code = 0; code < 256; ++code) {
      SCOPED_TRACE(testing::Message() << "b1 " << int{b1} << " b2 " << code);
      const Mp3Info i = infoOf(headWithHeader(64, 1, b1, static_cast<std::uint8_t>(code), 0), 4000);
      const int kbps = (isMpeg2 ? mpeg2 : mpeg1)[static_cast<std::size_t>(code >> 4)];
      EXPECT_EQ(i.BitRate, std::to_string(kbps));
      const int rate = mpeg1Rates[static_cast<std::size_t>((code >> 2) & 3)];
      EXPECT_EQ(i.Frequency, std::to_string(isMpeg2 ? rate / 2 : rate) + " Hz");
    }
  }
}

TEST(ReadMp3Info, ConstantBitRateLengthFromFileSize) {
  // 128 kbit/s is 16 bytes a millisecond: 1,000,000 bytes are 62,500 ms.
  EXPECT_EQ(infoOf(headWithHeader(4096, 1, 0xFB, 0x90, 0x00), 1'000'000).Length, "62");
  EXPECT_EQ(infoOf(headWithHeader(4096, 1, 0xFB, 0x90, 0x00), 15'999).Length, "0");
  // 8 kbit/s of MPEG 2.0, and 24 kbit/s of the MPEG 1.0 free-format index.
  EXPECT_EQ(infoOf(headWithHeader(4096, 1, 0xF3, 0x10, 0x00), 12'345).Length, "12");
  EXPECT_EQ(infoOf(headWithHeader(4096, 1, 0xFB, 0x00, 0x00), 3'000'000).Length, "1000");
  EXPECT_EQ(infoOf(headWithHeader(4096, 1, 0xFB, 0x90, 0x00), std::uint64_t{1} << 62).Length,
            "288230376151711");
}

// A zero bit rate, or a Xing count of 57 frames or fewer, ends the reading:
// the fields behind keep what they held.
TEST(ReadMp3Info, EarlyStopsLeaveTheLaterFieldsAlone) {
  Mp3Info info;
  info.Mode = "from before";
  readMp3InfoBytes(headWithHeader(4096, 1, 0xF3, 0x00, 0xC0), 50000, info);
  EXPECT_EQ(fields(info), "No|MPEG 2.0|layer 3|22050 Hz|0|||||from before|");

  std::vector<std::uint8_t> head = headWithHeader(4096, 1, 0xFB, 0x90, 0x40);
  putXing(head, 1, 36, 57);
  EXPECT_EQ(fields(infoOf(head, 1'000'000)), "No|MPEG 1.0|layer 3|44100 Hz|128|0|||||");
  putXing(head, 1, 36, 58);
  EXPECT_EQ(infoOf(head, 1'000'000).BitRate, "8000") << "one second";
}

TEST(ReadMp3Info, XingFrameCountGivesLengthAndAverageBitRate) {
  std::vector<std::uint8_t> head = headWithHeader(4096, 100, 0xFB, 0x90, 0x40);
  putXing(head, 100, 36, 3831);
  EXPECT_EQ(fields(infoOf(head, 3'000'000)),
            "No|MPEG 1.0|layer 3|44100 Hz|242|99| No| No| None| Joint Stereo|3000000");
  const Mp3Info huge = infoOf(head, std::uint64_t{1} << 62);
  EXPECT_EQ(huge.BitRate, "372661496438576");  // 2^65 bits over 99,000 ms
  EXPECT_EQ(huge.FileSize, "4611686018427387904");

  // Only the count's three low bytes count.
  putXing(head, 100, 36, (1u << 24) + 3831);
  EXPECT_EQ(infoOf(head, 3'000'000).Length, "99");
  putXing(head, 100, 36, 0xFF000000u);
  EXPECT_EQ(infoOf(head, 3'000'000).Length, "0");
}

// Anywhere else, or spelled otherwise, the header is not seen: the constant
// bit rate rule gives 62 s.
TEST(ReadMp3Info, XingOnlyAtOffset36AndExactSpelling) {
  const auto lengthWith = [](std::size_t offset, const char* magic) {
    std::vector<std::uint8_t> head = headWithHeader(4096, 1, 0xFB, 0x90, 0x40);
    putXing(head, 1, offset, 3831, magic);
    return infoOf(head, 1'000'000).Length;
  };
  for (std::size_t offset : {13u, 21u, 35u, 37u})
    EXPECT_EQ(lengthWith(offset, "Xing"), "62") << offset;
  for (const char* magic : {"xing", "Info", "XING"})
    EXPECT_EQ(lengthWith(36, magic), "62") << magic;
}

TEST(ReadMp3Info, XingBytesPastTheWindowReadAsZero) {
  // Frame at 4057: "Xing" fills 4093..4096, the frame count lies behind the window.
  std::vector<std::uint8_t> head = headWithHeader(4200, 4057, 0xFB, 0x90, 0x40);
  putXing(head, 4057, 36, 3831);
  EXPECT_EQ(infoOf(head, 1'000'000).Length, "0");
}

// The rule as the player states it, counted second by second.
std::uint32_t countSeconds(std::uint32_t frames) {
  std::int64_t remaining = std::int64_t{frames} - 57;
  std::uint32_t seconds = 0;
  while (remaining > 0) {
    ++seconds;
    remaining -= 38;
    if (seconds % 3 == 0) remaining -= 1;
  }
  return seconds;
}

TEST(Mp3XingSeconds, AgreesWithCountingSecondBySecond) {
  for (std::uint32_t frames = 0; frames < 100'000; ++frames)
    ASSERT_EQ(mp3XingSeconds(frames), countSeconds(frames)) << frames;
  for (std::uint32_t frames : {0xFFFFFFu, 0xFFFFFEu, 0x7FFFFFu, 1'234'567u})
    EXPECT_EQ(mp3XingSeconds(frames), countSeconds(frames)) << frames;
}

TEST(ReadMp3Info, FromFiles) {
  test::TempDir dir;
  Mp3Info missing;
  ReadMp3Info(dir / "missing.mp3", missing);
  EXPECT_EQ(fields(missing), "||||||||||");

  Mp3Info empty;
  ReadMp3Info(test::writeFile(dir / "empty.mp3", {}), empty);
  EXPECT_EQ(fields(empty), "||||||||||0");

  // Only the first 4096 bytes are read, but the size is the whole file's.
  Mp3Info big;
  ReadMp3Info(test::writeFile(dir / "big.mp3", headWithHeader(200'000, 4092, 0xFB, 0x90, 0x40)),
              big);
  EXPECT_EQ(big.FileSize, "200000");
  EXPECT_EQ(big.Length, "12");

  // Two bytes: the header's missing bytes read as 0.
  Mp3Info tiny;
  ReadMp3Info(test::writeFile(dir / "tiny.mp3", {255, 0xFB}), tiny);
  EXPECT_EQ(fields(tiny), "No|MPEG 1.0|layer 3|44100 Hz|24|0| No| No| None| Stereo|2");
}

}  // namespace
}  // namespace yarvo
