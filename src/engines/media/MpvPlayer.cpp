#include "engines/media/MpvPlayer.h"

#include <charconv>
#include <clocale>
#include <initializer_list>
#include <utility>

#include "engines/media/MpvApi.h"
#include "engines/media/MpvNames.h"

namespace yarvo {
namespace {

using Clock = std::chrono::steady_clock;

// Waits for events until `stop` accepts one (true) or `timeout` ends (false).
template <typename Stop>
bool waitForEvent(mpv_handle* handle, std::chrono::milliseconds timeout, Stop&& stop) {
  const auto deadline = Clock::now() + timeout;
  for (;;) {
    const std::chrono::duration<double> left = deadline - Clock::now();
    if (left.count() <= 0) {
      return false;
    }
    const mpv_event* event = Mpv()->mpv_wait_event(handle, left.count());
    if (event->event_id == MPV_EVENT_SHUTDOWN) {
      return false;
    }
    if (event->event_id != MPV_EVENT_NONE && stop(*event)) {
      return true;
    }
  }
}

bool runCommand(mpv_handle* handle, std::initializer_list<const char*> words) {
  constexpr std::size_t kMaxWords = 8;
  const char* args[kMaxWords + 1] = {};
  std::size_t i = 0;
  for (const char* word : words) {
    if (i == kMaxWords) {
      return false;
    }
    args[i++] = word;
  }
  return Mpv()->mpv_command(handle, args) >= 0;
}

// Seconds as mpv reads them in commands and options; "" if they do not fit.
std::string secondsText(double seconds) {
  char text[32] = {};
  const auto written =
      std::to_chars(text, text + sizeof text - 1, seconds, std::chars_format::fixed, 6);
  return written.ec == std::errc{} ? std::string(text) : std::string();
}

bool setOptions(mpv_handle* handle, const MpvPlayerSettings& settings) {
  using namespace mpvname;
  const std::pair<const char*, const char*> fixed[] = {
      {kKeepOpen, kYes},
      {kIdle, kYes},
      {kPause, kYes},
      {kInputDefaultBindings, kNo},
      {kInputVoKeyboard, kNo},
      {kInputCursor, kNo},
      {kOsc, kNo},
      {kTerminal, kNo},
      {kConfig, kNo},
      {kResumePlayback, kNo},
      {kAudioFallbackToNull, kYes},
      // No scripts: the player is driven by commands alone, and a web
      // address must not start a downloader.
      {kLoadScripts, kNo},
      {kYtdl, kNo},
      {kLoadStatsOverlay, kNo},
      {kLoadOsdConsole, kNo},
      {kLoadAutoProfiles, kNo},
  };
  for (const auto& [name, value] : fixed) {
    if (Mpv()->mpv_set_option_string(handle, name, value) < 0) {
      return false;
    }
  }
  if (!settings.videoOutput.empty() &&
      Mpv()->mpv_set_option_string(handle, kVideoOutput, settings.videoOutput.c_str()) < 0) {
    return false;
  }
  if (!settings.audioOutput.empty() &&
      Mpv()->mpv_set_option_string(handle, kAudioOutput, settings.audioOutput.c_str()) < 0) {
    return false;
  }
  std::int64_t window = settings.window;
  return window == 0 || Mpv()->mpv_set_option(handle, kWindowId, MPV_FORMAT_INT64, &window) >= 0;
}

}  // namespace

void MpvPlayer::Destroy::operator()(mpv_handle* handle) const {
  Mpv()->mpv_terminate_destroy(handle);
}

MpvPlayer::MpvPlayer(Key, mpv_handle* handle) : handle_(handle) {}

MpvPlayer::~MpvPlayer() = default;

std::unique_ptr<MpvPlayer> MpvPlayer::create(const MpvPlayerSettings& settings) {
  // libmpv parses and prints numbers with the C library and refuses to
  // start unless LC_NUMERIC is exactly "C" (even "C.UTF-8" is refused). The
  // program has no use for localised numbers, so the process keeps "C"
  // from here on.
  std::setlocale(LC_NUMERIC, "C");
  if (Mpv() == nullptr) {
    return nullptr;
  }
  mpv_handle* raw = Mpv()->mpv_create();
  if (raw == nullptr) {
    return nullptr;
  }
  auto player = std::make_unique<MpvPlayer>(Key{}, raw);
  if (!setOptions(raw, settings) || Mpv()->mpv_initialize(raw) < 0) {
    return nullptr;
  }
  return player;
}

MpvLoadResult MpvPlayer::load(const std::string& path, std::chrono::milliseconds timeout) {
  discardEvents();
  if (!runCommand(handle_.get(), {mpvname::kLoadFile, path.c_str()})) {
    return MpvLoadResult::Failed;
  }
  auto result = MpvLoadResult::TimedOut;
  waitForEvent(handle_.get(), timeout, [&](const mpv_event& event) {
    if (event.event_id == MPV_EVENT_FILE_LOADED) {
      result = MpvLoadResult::Loaded;
      return true;
    }
    if (event.event_id == MPV_EVENT_END_FILE) {
      result = MpvLoadResult::Failed;
      return true;
    }
    return false;
  });
  return result;
}

bool MpvPlayer::waitForPicture(std::chrono::milliseconds timeout) {
  const auto hasSize = [this] { return intProperty(mpvname::kDisplayWidth).value_or(0) > 0; };
  if (hasSize()) {
    return true;
  }
  // A video output that cannot start makes mpv drop the video track; then
  // no picture will come and waiting on is pointless.
  bool dropped = false;
  waitForEvent(handle_.get(), timeout, [&](const mpv_event& event) {
    if (event.event_id != MPV_EVENT_VIDEO_RECONFIG) {
      return false;
    }
    dropped = stringProperty(mpvname::kVideoTrack).value_or(mpvname::kNo) == mpvname::kNo;
    return dropped || hasSize();
  });
  return !dropped && hasSize();
}

bool MpvPlayer::seekTo(double seconds, std::chrono::milliseconds timeout) {
  const std::string target = secondsText(seconds);
  if (target.empty()) {
    return false;
  }
  discardEvents();
  if (!runCommand(handle_.get(), {mpvname::kSeek, target.c_str(), mpvname::kSeekAbsoluteExact})) {
    return false;
  }
  return waitForEvent(handle_.get(), timeout, [](const mpv_event& event) {
    return event.event_id == MPV_EVENT_PLAYBACK_RESTART;
  });
}

bool MpvPlayer::setPlaybackEnd(std::optional<double> seconds) {
  return setString(mpvname::kPlaybackEnd, seconds ? secondsText(*seconds) : mpvname::kNone);
}

std::optional<double> MpvPlayer::doubleProperty(const char* name) {
  double value = 0;
  if (Mpv()->mpv_get_property(handle_.get(), name, MPV_FORMAT_DOUBLE, &value) < 0) {
    return std::nullopt;
  }
  return value;
}

std::optional<std::int64_t> MpvPlayer::intProperty(const char* name) {
  std::int64_t value = 0;
  if (Mpv()->mpv_get_property(handle_.get(), name, MPV_FORMAT_INT64, &value) < 0) {
    return std::nullopt;
  }
  return value;
}

std::optional<bool> MpvPlayer::flagProperty(const char* name) {
  int value = 0;
  if (Mpv()->mpv_get_property(handle_.get(), name, MPV_FORMAT_FLAG, &value) < 0) {
    return std::nullopt;
  }
  return value != 0;
}

std::optional<std::string> MpvPlayer::stringProperty(const char* name) {
  char* value = nullptr;
  if (Mpv()->mpv_get_property(handle_.get(), name, MPV_FORMAT_STRING, &value) < 0 ||
      value == nullptr) {
    return std::nullopt;
  }
  std::string copy(value);
  Mpv()->mpv_free(value);
  return copy;
}

bool MpvPlayer::setFlag(const char* name, bool value) {
  int flag = value ? 1 : 0;
  return Mpv()->mpv_set_property(handle_.get(), name, MPV_FORMAT_FLAG, &flag) >= 0;
}

bool MpvPlayer::setDouble(const char* name, double value) {
  return Mpv()->mpv_set_property(handle_.get(), name, MPV_FORMAT_DOUBLE, &value) >= 0;
}

bool MpvPlayer::setString(const char* name, const std::string& value) {
  return Mpv()->mpv_set_property_string(handle_.get(), name, value.c_str()) >= 0;
}

void MpvPlayer::discardEvents() {
  for (;;) {
    const auto id = Mpv()->mpv_wait_event(handle_.get(), 0)->event_id;
    if (id == MPV_EVENT_NONE || id == MPV_EVENT_SHUTDOWN) {
      return;
    }
  }
}

}  // namespace yarvo
