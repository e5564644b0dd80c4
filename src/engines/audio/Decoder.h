#pragma once
// A decoder back end: one open file that yields interleaved float frames.
//
// Facts (rate, channels, length, content type) are fixed when the decoder is
// opened and may be read from any thread. read() and seek() are called from one
// thread at a time, the channel's decode thread. Back ends catch everything
// their library throws; nothing escapes these calls.

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>

namespace yarvo::audio {

// The most channels a file may have; files with more are refused.
inline constexpr int kMaxChannels = 8;

class Decoder {
 public:
  virtual ~Decoder() = default;
  Decoder() = default;
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;

  // Frames per second of the decoded audio.
  [[nodiscard]] virtual int rate() const noexcept = 0;
  // 1..kMaxChannels.
  [[nodiscard]] virtual int channels() const noexcept = 0;
  // Exact number of frames the file decodes to.
  [[nodiscard]] virtual std::uint64_t lengthFrames() const noexcept = 0;
  // One of the BASS_CTYPE_ values.
  [[nodiscard]] virtual std::uint32_t contentType() const noexcept = 0;

  // Writes up to `frames` frames to `interleaved`; returns the frames written,
  // 0 only at the end of the file or on a decoding error that cannot be passed.
  virtual std::size_t read(float* interleaved, std::size_t frames) noexcept = 0;
  // Moves to `frame` (0..lengthFrames()); false leaves the position unknown.
  virtual bool seek(std::uint64_t frame) noexcept = 0;
};

// Opens a stream by its content: MPEG audio through mpg123, anything libsndfile
// reads through it. nullptr when the file is missing, empty, corrupt or not a
// stream (a tracker module is not).
std::unique_ptr<Decoder> openStreamDecoder(const std::string& path);

}  // namespace yarvo::audio
