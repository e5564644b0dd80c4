#include "engines/audio/MpegDecoder.h"

#include "engines/audio/Bass.h"
#include "engines/audio/BufferedFile.h"

#include <mpg123.h>

#include <array>
#include <optional>

namespace yarvo::audio {
namespace {

struct FrameHeader {
  int layer = 0;
  std::size_t bytes = 0;
};

// Bit rates in kbit/s by [MPEG-1 ? 0 : 1][layer - 1][index].
constexpr std::array<std::array<std::array<int, 15>, 3>, 2> kBitRates{{
    {{{0, 32, 64, 96, 128, 160, 192, 224, 256, 288, 320, 352, 384, 416, 448},
      {0, 32, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320, 384},
      {0, 32, 40, 48, 56, 64, 80, 96, 112, 128, 160, 192, 224, 256, 320}}},
    {{{0, 32, 48, 56, 64, 80, 96, 112, 128, 144, 160, 176, 192, 224, 256},
      {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160},
      {0, 8, 16, 24, 32, 40, 48, 56, 64, 80, 96, 112, 128, 144, 160}}},
}};

// Sample rates by [version bits][index]; version bits 1 is reserved.
constexpr std::array<std::array<int, 3>, 4> kSampleRates{
    {{11025, 12000, 8000}, {0, 0, 0}, {22050, 24000, 16000}, {44100, 48000, 32000}}};

// Free-format frames (bit rate index 0) are refused: their length is not in
// the header, and the sniff needs it.
std::optional<FrameHeader> parseHeader(std::span<const std::uint8_t> bytes) noexcept {
  if (bytes.size() < 4 || bytes[0] != 0xFF || (bytes[1] & 0xE0) != 0xE0) return std::nullopt;
  const int version = (bytes[1] >> 3) & 3;
  const int layerBits = (bytes[1] >> 1) & 3;
  const int rateIndex = (bytes[2] >> 4) & 15;
  const int freqIndex = (bytes[2] >> 2) & 3;
  const int padding = (bytes[2] >> 1) & 1;
  if (version == 1 || layerBits == 0 || rateIndex == 0 || rateIndex == 15 || freqIndex == 3)
    return std::nullopt;
  const int layer = 4 - layerBits;
  const bool mpeg1 = version == 3;
  const int kbps = kBitRates[mpeg1 ? 0 : 1][static_cast<std::size_t>(layer - 1)]
                            [static_cast<std::size_t>(rateIndex)];
  const int rate =
      kSampleRates[static_cast<std::size_t>(version)][static_cast<std::size_t>(freqIndex)];
  int length = 0;
  if (layer == 1) {
    length = (12 * kbps * 1000 / rate + padding) * 4;
  } else {
    const int factor = (layer == 3 && !mpeg1) ? 72 : 144;
    length = factor * kbps * 1000 / rate + padding;
  }
  if (length < 4) return std::nullopt;
  return FrameHeader{layer, static_cast<std::size_t>(length)};
}

// How far past the tag a first frame is looked for: encoders sometimes leave a
// little padding, but a real stream does not start kilobytes in.
constexpr std::size_t kSyncSearch = 4096;
constexpr int kChainedFrames = 3;

class MpegDecoder final : public Decoder {
 public:
  MpegDecoder(mpg123_handle* handle, int rate, int channels, std::uint64_t frames, int layer)
      : handle_(handle), rate_(rate), channels_(channels), frames_(frames), layer_(layer) {}
  ~MpegDecoder() override { mpg123_delete(handle_); }

  int rate() const noexcept override { return rate_; }
  int channels() const noexcept override { return channels_; }
  std::uint64_t lengthFrames() const noexcept override { return frames_; }
  std::uint32_t contentType() const noexcept override {
    return layer_ == 1   ? BASS_CTYPE_STREAM_MP1
           : layer_ == 2 ? BASS_CTYPE_STREAM_MP2
                         : BASS_CTYPE_STREAM_MP3;
  }

  std::size_t read(float* interleaved, std::size_t frames) noexcept override {
    const std::size_t frameBytes = sizeof(float) * static_cast<std::size_t>(channels_);
    auto* out = reinterpret_cast<unsigned char*>(interleaved);
    std::size_t total = 0;
    while (total < frames) {
      std::size_t done = 0;
      const int err =
          mpg123_read(handle_, out + total * frameBytes, (frames - total) * frameBytes, &done);
      total += done / frameBytes;
      if (err == MPG123_DONE) break;
      if (err != MPG123_OK && err != MPG123_NEW_FORMAT) break;
      if (done == 0 && err == MPG123_OK) break;
    }
    return total;
  }

  bool seek(std::uint64_t frame) noexcept override {
    return mpg123_seek(handle_, static_cast<off_t>(frame), SEEK_SET) >= 0;
  }

 private:
  mpg123_handle* handle_;
  int rate_;
  int channels_;
  std::uint64_t frames_;
  int layer_;
};

}  // namespace

std::size_t id3v2Size(std::span<const std::uint8_t> head) noexcept {
  if (head.size() < 10 || head[0] != 'I' || head[1] != 'D' || head[2] != '3') return 0;
  std::size_t size = 0;
  for (std::size_t i = 6; i < 10; ++i) {
    if (head[i] & 0x80) return 0;
    size = (size << 7) | head[i];
  }
  const bool footer = (head[5] & 0x10) != 0;
  return 10 + size + (footer ? 10 : 0);
}

int sniffMpegLayer(std::span<const std::uint8_t> head) noexcept {
  const std::size_t start = id3v2Size(head);
  if (start >= head.size()) return 0;
  const std::size_t end = std::min(head.size(), start + kSyncSearch);
  for (std::size_t at = start; at + 4 <= end; ++at) {
    const auto first = parseHeader(head.subspan(at));
    if (!first) continue;
    std::size_t next = at + first->bytes;
    int chained = 1;
    while (chained < kChainedFrames && next + 4 <= head.size()) {
      const auto header = parseHeader(head.subspan(next));
      if (!header || header->layer != first->layer) break;
      next += header->bytes;
      ++chained;
    }
    if (chained == kChainedFrames) return first->layer;
  }
  return 0;
}

namespace {

mpg123_ssize_t readBuffered(void* file, void* to, std::size_t bytes) {
  return static_cast<BufferedFile*>(file)->read(to, bytes);
}

off_t seekBuffered(void* file, off_t offset, int whence) {
  return static_cast<BufferedFile*>(file)->seek(offset, whence);
}

void closeBuffered(void* file) { delete static_cast<BufferedFile*>(file); }

// mpg123 reads the file through a buffer of ours: its own reader makes two
// system calls for every frame, in the scan and again in decoding.
bool openBuffered(mpg123_handle* handle, const std::string& path) {
  if (mpg123_replace_reader_handle(handle, readBuffered, seekBuffered, closeBuffered) !=
      MPG123_OK)
    return false;
  auto file = BufferedFile::open(path);
  if (!file) return false;
  // From here the handle owns the file, and closes it even when opening fails.
  return mpg123_open_handle(handle, file.release()) == MPG123_OK;
}

}  // namespace

std::unique_ptr<Decoder> openMpegDecoder(const std::string& path, int layer) {
  int err = MPG123_OK;
  mpg123_handle* handle = mpg123_new(nullptr, &err);
  if (handle == nullptr) return nullptr;
  // Float output straight from the synthesis; gapless trims the encoder's
  // delay and padding so the length is the music's own.
  mpg123_param(handle, MPG123_ADD_FLAGS, MPG123_QUIET | MPG123_GAPLESS | MPG123_FORCE_FLOAT, 0.0);
  long rate = 0;
  int channels = 0;
  int encoding = 0;
  if (!openBuffered(handle, path) ||
      mpg123_getformat(handle, &rate, &channels, &encoding) != MPG123_OK ||
      encoding != MPG123_ENC_FLOAT_32 || channels < 1 || channels > kMaxChannels || rate <= 0) {
    mpg123_delete(handle);
    return nullptr;
  }
  // Hold the format: a stream whose later frames change rate or channels is
  // converted by mpg123 rather than handed to us as a new format.
  mpg123_format_none(handle);
  mpg123_format(handle, rate, channels, MPG123_ENC_FLOAT_32);
  // The scan reads every frame header: the exact sample count, and an index
  // that makes seeking sample-accurate.
  if (mpg123_scan(handle) != MPG123_OK) {
    mpg123_delete(handle);
    return nullptr;
  }
  const off_t length = mpg123_length(handle);
  if (length <= 0) {
    mpg123_delete(handle);
    return nullptr;
  }
  return std::make_unique<MpegDecoder>(handle, static_cast<int>(rate), channels,
                                       static_cast<std::uint64_t>(length), layer);
}

}  // namespace yarvo::audio
