#pragma once

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

struct mpv_handle;

namespace yarvo {

// How a player shows its picture and plays its sound.
struct MpvPlayerSettings {
  std::string videoOutput;  // mpv video output list; "null" draws nothing, "" lets mpv choose
  std::string audioOutput;  // mpv audio output; "" lets mpv choose, silent without a device
  std::int64_t window = 0;  // native window (X11 id) that the picture fills, 0 for none
};

// What became of a file given to `MpvPlayer::load`.
enum class MpvLoadResult { Loaded, Failed, TimedOut };

// One libmpv player. It starts paused, keeps the file open at its end (so the
// end stays visible as eof-reached) and reads no user configuration.
// All calls come from one thread; mpv's own threads play in the background.
// No exception leaves this class; failures are empty results or false.
class MpvPlayer {
 public:
  // Creates and starts a player. Sets LC_NUMERIC to "C" first, which libmpv
  // requires of the whole process. Returns nullptr when mpv refuses.
  static std::unique_ptr<MpvPlayer> create(const MpvPlayerSettings& settings);

  MpvPlayer(const MpvPlayer&) = delete;
  MpvPlayer& operator=(const MpvPlayer&) = delete;
  ~MpvPlayer();

  // Loads `path` and waits up to `timeout` until it is ready to play or
  // has failed.
  MpvLoadResult load(const std::string& path, std::chrono::milliseconds timeout);

  // Waits up to `timeout` until the first picture has been decoded, so that
  // its display size is known. False when none came.
  bool waitForPicture(std::chrono::milliseconds timeout);

  // Moves to `seconds` from the start, to the exact frame, and waits up to
  // `timeout` until playback has settled there.
  bool seekTo(double seconds, std::chrono::milliseconds timeout);

  // Makes playback stop by itself at `seconds` from the start, as at the end
  // of the file; nothing lets it run to the real end.
  bool setPlaybackEnd(std::optional<double> seconds);

  std::optional<double> doubleProperty(const char* name);
  std::optional<std::int64_t> intProperty(const char* name);
  std::optional<bool> flagProperty(const char* name);
  std::optional<std::string> stringProperty(const char* name);

  bool setFlag(const char* name, bool value);
  bool setDouble(const char* name, double value);
  bool setString(const char* name, const std::string& value);

  // Throws away the events that piled up since the last call, so mpv's
  // queue never fills while nobody waits on it.
  void discardEvents();

 private:
  struct Destroy {
    void operator()(mpv_handle* handle) const;
  };
  // Only `create` makes players.
  struct Key {
    explicit Key() = default;
  };

 public:
  MpvPlayer(Key, mpv_handle* handle);

 private:
  std::unique_ptr<mpv_handle, Destroy> handle_;
};

}  // namespace yarvo
