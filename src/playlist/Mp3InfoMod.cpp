#include "playlist/Mp3InfoMod.h"

#include "playlist/ByteFile.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace yarvo {
namespace {

// The first 4096 bytes of the file; bytes the file doesn't have read as 0,
// and so do positions past the window, which the Xing test may reach for a
// header near its end.
class HeadWindow {
 public:
  explicit HeadWindow(std::span<const std::uint8_t> head) noexcept {
    const std::size_t kept = std::min(head.size(), bytes_.size());
    std::copy_n(head.begin(), kept, bytes_.begin());
  }

  // position counts from 1.
  std::uint8_t at(std::size_t position) const noexcept {
    return position >= 1 && position <= bytes_.size() ? bytes_[position - 1] : 0;
  }

 private:
  std::array<std::uint8_t, kMp3ReadBytes> bytes_{};
};

bool isMpeg2Sync(std::uint8_t b1) noexcept { return b1 >= 242 && b1 <= 247; }
bool isMpeg1Sync(std::uint8_t b1) noexcept { return b1 >= 250; }

// The 1-based position of the first 255 followed by a sync byte of MPEG 1.0
// or 2.0; 248..249 and 240..241 (the reserved layer) don't count.
std::optional<std::size_t> findSync(const HeadWindow& w) noexcept {
  for (std::size_t i = 1; i <= kMp3LastSyncPosition; ++i) {
    const std::uint8_t b1 = w.at(i + 1);
    if (w.at(i) == 255 && (isMpeg1Sync(b1) || isMpeg2Sync(b1))) return i;
  }
  return std::nullopt;
}

std::string_view layerText(std::uint8_t b1) noexcept {
  switch (b1) {
    case 250:
    case 251:
    case 242:
    case 243:
      return "layer 3";
    case 252:
    case 253:
    case 244:
    case 245:
      return "layer 2";
    default:
      return "layer 1";
  }
}

std::uint32_t sampleRate(std::uint8_t b2, bool mpeg2) noexcept {
  const std::uint32_t code = b2 & 0x0Fu;  // sample rate bits, padding, private bit
  const std::uint32_t base = code < 4 ? 22050 : code < 8 ? 24000 : 16000;
  return mpeg2 ? base : base * 2;
}

// The layer 3 column of the standards' bit rate tables, for every layer.
std::uint32_t bitRate(std::uint8_t b2, bool mpeg2) noexcept {
  const std::uint32_t x = b2 >> 4;
  if (mpeg2) return x < 8 ? x * 8 : (x - 8) * 16 + 64;
  if (x <= 5) return (x + 3) * 8;
  if (x <= 9) return (x - 5) * 16 + 64;
  if (x <= 13) return (x - 9) * 32 + 128;
  return 320;
}

// The frame count of a Xing header at i + 36, only its three low bytes; nullopt without one.
std::optional<std::uint32_t> xingFrameCount(const HeadWindow& w, std::size_t i) noexcept {
  constexpr std::string_view kXing = "Xing";
  for (std::size_t k = 0; k < kXing.size(); ++k) {
    if (w.at(i + 36 + k) != static_cast<std::uint8_t>(kXing[k])) return std::nullopt;
  }
  return (std::uint32_t{w.at(i + 45)} << 16) | (std::uint32_t{w.at(i + 46)} << 8) | w.at(i + 47);
}

void fillFromLastHeaderByte(std::uint8_t b3, Mp3Info& info) {
  static constexpr std::array<std::string_view, 4> kEmphasis = {" None", " 50/15 microsec",
                                                                " invalid", " CITT j. 17"};
  static constexpr std::array<std::string_view, 4> kMode = {" Stereo", " Joint Stereo",
                                                            " 2 Channel", " Mono"};
  info.Copyright = (b3 & 0x08) ? " Yes" : " No";
  info.Original = (b3 & 0x04) ? " Yes" : " No";
  info.Emphasis = kEmphasis[b3 & 0x03u];
  info.Mode = kMode[b3 >> 6];
}

}  // namespace

std::uint32_t mp3XingSeconds(std::uint32_t frameCount) noexcept {
  constexpr std::uint32_t kSkipped = 57;
  constexpr std::uint32_t kPerThreeSeconds = 38 + 38 + 39;
  if (frameCount <= kSkipped) return 0;
  // Whole groups of three seconds first, leaving 1..115 frames, then at
  // most three single seconds: the same result as counting one by one.
  const std::uint32_t remaining = frameCount - kSkipped;
  const std::uint32_t groups = (remaining - 1) / kPerThreeSeconds;
  std::int64_t left = remaining - groups * kPerThreeSeconds;
  std::uint32_t seconds = groups * 3;
  for (std::int64_t cost : {38, 38, 39}) {
    if (left <= 0) break;
    ++seconds;
    left -= cost;
  }
  return seconds;
}

void readMp3InfoBytes(std::span<const std::uint8_t> head, std::uint64_t fileSize, Mp3Info& Info) {
  const HeadWindow w(head);
  const std::optional<std::size_t> sync = findSync(w);
  if (!sync) {
    Info.FileSize = std::to_string(fileSize);
    return;
  }
  const std::size_t i = *sync;
  const std::uint8_t b1 = w.at(i + 1);
  const std::uint8_t b2 = w.at(i + 2);
  const std::uint8_t b3 = w.at(i + 3);
  const bool mpeg2 = isMpeg2Sync(b1);

  Info.Crc = (b1 & 1u) ? "No" : "Yes";
  Info.Version = mpeg2 ? "MPEG 2.0" : "MPEG 1.0";
  Info.Layer = layerText(b1);
  Info.Frequency = std::to_string(sampleRate(b2, mpeg2)) + " Hz";
  const std::uint32_t kbps = bitRate(b2, mpeg2);
  Info.BitRate = std::to_string(kbps);
  if (kbps == 0) return;  // free format: no length, nothing after it
  // kbps / 8 is bytes a millisecond, exact: every rate of the table is a multiple of 8.
  Info.Length = std::to_string(fileSize / (kbps / 8) / 1000);

  if (const std::optional<std::uint32_t> frames = xingFrameCount(w, i)) {
    const std::uint32_t seconds = mp3XingSeconds(*frames);
    Info.Length = std::to_string(seconds);
    if (seconds == 0) return;  // no average bit rate to give, nothing after it
    // size * 8 / (seconds * 1000), cut, is size / (seconds * 125): no overflow.
    Info.BitRate = std::to_string(fileSize / (std::uint64_t{seconds} * 125));
  }

  fillFromLastHeaderByte(b3, Info);
  Info.FileSize = std::to_string(fileSize);
}

void ReadMp3Info(const std::string& FileName, Mp3Info& Info) {
  std::optional<ByteFile> file = ByteFile::open(FileName, ByteFile::Access::Read);
  if (!file) return;
  std::array<std::uint8_t, kMp3ReadBytes> head{};
  const std::size_t got = file->readAt(0, head);
  const std::uint64_t size = file->size();
  file.reset();  // closed before any work, as the reader always has
  readMp3InfoBytes(std::span(head).first(got), size, Info);
}

}  // namespace yarvo
