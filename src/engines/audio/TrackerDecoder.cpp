#include "engines/audio/TrackerDecoder.h"

#include "engines/audio/Bass.h"

#include <fcntl.h>
#include <libopenmpt/libopenmpt.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cmath>
#include <cstring>
#include <iterator>
#include <vector>

#include "platform/Files.h"

namespace yarvo::audio {
namespace {

constexpr std::size_t kMaxModuleBytes = 64u << 20;
// libopenmpt's own scale: 0 is no volume ramping, higher is smoother.
constexpr std::int32_t kRampingStrength = 5;

std::uint32_t contentTypeOf(openmpt_module* module) noexcept {
  const char* type = openmpt_module_get_metadata(module, "type");
  std::uint32_t result = BASS_CTYPE_MUSIC_MOD;
  if (type != nullptr) {
    if (std::strcmp(type, "s3m") == 0)
      result = BASS_CTYPE_MUSIC_S3M;
    else if (std::strcmp(type, "xm") == 0)
      result = BASS_CTYPE_MUSIC_XM;
    else if (std::strcmp(type, "it") == 0)
      result = BASS_CTYPE_MUSIC_IT;
    else if (std::strcmp(type, "mtm") == 0)
      result = BASS_CTYPE_MUSIC_MTM;
    openmpt_free_string(type);
  }
  return result;
}

class TrackerDecoder final : public Decoder {
 public:
  TrackerDecoder(openmpt_module* module, int rate)
      : module_(module), rate_(rate), contentType_(contentTypeOf(module)) {
    const double seconds = openmpt_module_get_duration_seconds(module);
    frames_ = seconds > 0.0 ? static_cast<std::uint64_t>(std::llround(seconds * rate)) : 0;
  }
  ~TrackerDecoder() override { openmpt_module_destroy(module_); }

  int rate() const noexcept override { return rate_; }
  int channels() const noexcept override { return 2; }
  std::uint64_t lengthFrames() const noexcept override { return frames_; }
  std::uint32_t contentType() const noexcept override { return contentType_; }

  std::size_t read(float* interleaved, std::size_t frames) noexcept override {
    return openmpt_module_read_interleaved_float_stereo(module_, rate_, frames, interleaved);
  }

  bool seek(std::uint64_t frame) noexcept override {
    openmpt_module_set_position_seconds(module_, static_cast<double>(frame) / rate_);
    return true;
  }

 private:
  openmpt_module* module_;
  int rate_;
  std::uint32_t contentType_;
  std::uint64_t frames_ = 0;
};

std::vector<char> readWhole(const std::string& path) {
  const FileDescriptor fd = OpenRegularFile(path, O_RDONLY);
  struct stat info {};
  if (!fd || ::fstat(fd.get(), &info) != 0 || info.st_size <= 0 ||
      static_cast<std::uint64_t>(info.st_size) > kMaxModuleBytes)
    return {};
  std::vector<char> bytes(static_cast<std::size_t>(info.st_size));
  std::size_t done = 0;
  while (done < bytes.size()) {
    const ssize_t n = ::read(fd.get(), bytes.data() + done, bytes.size() - done);
    if (n < 0 && errno == EINTR) continue;
    if (n <= 0) return {};
    done += static_cast<std::size_t>(n);
  }
  return bytes;
}

}  // namespace

std::unique_ptr<Decoder> openTrackerDecoder(const std::string& path, int rate, bool ramping) {
  const std::vector<char> bytes = readWhole(path);
  if (bytes.empty()) return nullptr;
  // The C interface reports failure by result, never by exception, and the
  // silent log keeps libopenmpt from writing to stderr.
  int error = 0;
  openmpt_module* module = openmpt_module_create_from_memory2(
      bytes.data(), bytes.size(), openmpt_log_func_silent, nullptr, openmpt_error_func_ignore,
      nullptr, &error, nullptr, nullptr);
  if (module == nullptr) return nullptr;
  openmpt_module_set_render_param(module, OPENMPT_MODULE_RENDER_VOLUMERAMPING_STRENGTH,
                                  ramping ? kRampingStrength : 0);
  auto decoder = std::make_unique<TrackerDecoder>(module, rate);
  if (decoder->lengthFrames() == 0) return nullptr;
  return decoder;
}

}  // namespace yarvo::audio
