#include "engines/audio/SndfileDecoder.h"

#include "engines/audio/Bass.h"

#include <fcntl.h>
#include <sndfile.h>

#include "platform/Files.h"

namespace yarvo::audio {
namespace {

std::uint32_t contentTypeOf(int format) noexcept {
  const int major = format & SF_FORMAT_TYPEMASK;
  const int minor = format & SF_FORMAT_SUBMASK;
  switch (major) {
    case SF_FORMAT_WAV:
    case SF_FORMAT_WAVEX:
    case SF_FORMAT_RF64:
      return (minor == SF_FORMAT_FLOAT || minor == SF_FORMAT_DOUBLE) ? BASS_CTYPE_STREAM_WAV_FLOAT
                                                                     : BASS_CTYPE_STREAM_WAV_PCM;
    case SF_FORMAT_OGG:
      return BASS_CTYPE_STREAM_OGG;
    case SF_FORMAT_AIFF:
      return BASS_CTYPE_STREAM_AIFF;
    default:
      return BASS_CTYPE_STREAM;
  }
}

class SndfileDecoder final : public Decoder {
 public:
  SndfileDecoder(SNDFILE* file, const SF_INFO& info) : file_(file), info_(info) {}
  ~SndfileDecoder() override { sf_close(file_); }

  int rate() const noexcept override { return info_.samplerate; }
  int channels() const noexcept override { return info_.channels; }
  std::uint64_t lengthFrames() const noexcept override {
    return static_cast<std::uint64_t>(info_.frames);
  }
  std::uint32_t contentType() const noexcept override { return contentTypeOf(info_.format); }

  std::size_t read(float* interleaved, std::size_t frames) noexcept override {
    const sf_count_t got = sf_readf_float(file_, interleaved, static_cast<sf_count_t>(frames));
    return got > 0 ? static_cast<std::size_t>(got) : 0;
  }

  bool seek(std::uint64_t frame) noexcept override {
    return sf_seek(file_, static_cast<sf_count_t>(frame), SEEK_SET) >= 0;
  }

 private:
  SNDFILE* file_;
  SF_INFO info_;
};

}  // namespace

std::unique_ptr<Decoder> openSndfileDecoder(const std::string& path) {
  SF_INFO info{};
  FileDescriptor fd = OpenRegularFile(path, O_RDONLY);
  if (!fd) return nullptr;
  SNDFILE* file = sf_open_fd(fd.Release(), SFM_READ, &info, SF_TRUE);
  if (file == nullptr) return nullptr;
  const bool usable = (info.format & SF_FORMAT_TYPEMASK) != SF_FORMAT_MPEG && info.frames > 0 &&
                      info.channels >= 1 && info.channels <= kMaxChannels && info.samplerate > 0;
  if (!usable) {
    sf_close(file);
    return nullptr;
  }
  // Integer files are read scaled to -1..1 (libsndfile's default); float files
  // pass as they are.
  return std::make_unique<SndfileDecoder>(file, info);
}

}  // namespace yarvo::audio
