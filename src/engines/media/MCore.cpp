#include "engines/media/MCore.h"

#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <optional>
#include <system_error>
#include <vector>

#include "engines/media/MciSendString.h"
#include "platform/ProfileIni.h"

namespace yarvo {
namespace {

// Fixed-length buffers of the command interface, NUL included.
constexpr std::size_t kOpenBufferLength = 255;  // open command and short path
constexpr std::size_t kBufferLength = 128;      // other commands, replies, error texts

constexpr std::string_view kSuccess = "Success";
constexpr std::string_view kChildWindowStyle = "1073741824";  // WS_CHILD, 0x40000000
constexpr std::string_view kDriverSection = "MCI";
constexpr std::string_view kNoDriver = "None";

struct MCoreState {
  const WindowGeometry* geometry = nullptr;
  std::filesystem::path driverFile;
};

MCoreState& state() {
  static MCoreState instance;
  return instance;
}

// A command longer than its buffer is cut, as a fixed-length string would.
std::string fitBuffer(std::string command, std::size_t length) {
  if (command.size() > length) {
    command.resize(length);
  }
  return command;
}

std::string upToNul(const char* text) { return std::string(text); }

std::string resultText(std::uint32_t code) {
  if (code == 0) {
    return std::string(kSuccess);
  }
  std::array<char, kBufferLength> text{};
  mciGetErrorString(code, text);
  return upToNul(text.data());
}

std::string sendCommand(std::string command, std::size_t length = kBufferLength) {
  return resultText(mciSendString(fitBuffer(std::move(command), length), {}));
}

std::optional<std::string> sendQuery(std::string command) {
  std::array<char, kBufferLength> reply{};
  if (mciSendString(fitBuffer(std::move(command), kBufferLength), reply) != 0) {
    return std::nullopt;
  }
  return upToNul(reply.data());
}

// The whole number at the start of `text`, if it fits 32 bits.
std::int32_t toNumber(std::string_view text) {
  std::int32_t value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  return error == std::errc{} && end != text.data() ? value : -1;
}

std::int32_t queryNumber(std::string command) {
  const auto reply = sendQuery(std::move(command));
  return reply ? toNumber(*reply) : -1;
}

std::int32_t roundToInt32(double value) {
  const double rounded = std::nearbyint(value);  // to nearest, ties to even
  if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
        rounded <= std::numeric_limits<std::int32_t>::max())) {
    return -1;
  }
  return static_cast<std::int32_t>(rounded);
}

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  for (char& c : lower) {
    if (c >= 'A' && c <= 'Z') {
      c = static_cast<char>(c - 'A' + 'a');
    }
  }
  return lower;
}

// There are no short names on Linux: an existing file keeps its name, which
// must fit the 255-character buffer; anything else becomes empty.
std::string shortPathName(std::string_view file) {
  if (file.empty() || file.size() >= kOpenBufferLength) {
    return {};
  }
  std::error_code error;
  const std::filesystem::path path(file);
  if (!std::filesystem::exists(path, error) || std::filesystem::is_directory(path, error)) {
    return {};
  }
  return std::string(file);
}

ProfileIni driverTable() {
  const auto& file = state().driverFile;
  return ProfileIni(file.empty() ? systemIniPath() : file);
}

std::vector<std::string_view> splitBlanks(std::string_view text) {
  std::vector<std::string_view> parts;
  for (std::size_t start = 0;;) {
    const auto blank = text.find(' ', start);
    parts.push_back(text.substr(start, blank - start));
    if (blank == std::string_view::npos) {
      return parts;
    }
    start = blank + 1;
  }
}

}  // namespace

std::string MciOpen(NativeWindow window, std::string_view alias, std::string_view file,
                    std::string_view deviceType) {
  std::string command = "open " + shortPathName(file) + " type " + std::string(deviceType) +
                        " Alias " + std::string(alias) + " parent " + std::to_string(window) +
                        " Style " + std::string(kChildWindowStyle);
  return sendCommand(std::move(command), kOpenBufferLength);
}

std::string MciPlay(std::string_view alias, std::string_view from, std::string_view to) {
  const std::string start = from.empty() ? "0" : std::string(from);
  const std::string end = to.empty() ? std::to_string(MciLengthFrames(alias)) : std::string(to);
  return sendCommand("play " + std::string(alias) + " from " + start + " to " + end);
}

std::string MciClose(std::string_view alias) { return sendCommand("Close " + std::string(alias)); }

std::string MciPause(std::string_view alias) { return sendCommand("Pause " + std::string(alias)); }

std::string MciStop(std::string_view alias) { return sendCommand("Stop " + std::string(alias)); }

std::string MciResume(std::string_view alias) {
  return sendCommand("Resume " + std::string(alias));
}

std::string MciCloseAll() { return sendCommand("Close All"); }

std::string MciSeekPlay(std::string_view alias, std::int32_t position) {
  std::string result =
      sendCommand("seek " + std::string(alias) + " to " + std::to_string(position));
  sendCommand("Play " + std::string(alias));
  return result;
}

std::string MciSetVolume(std::string_view alias, std::string_view channel, std::int32_t volume) {
  constexpr std::int32_t kMaxVolume = 100;
  constexpr std::int32_t kServiceScale = 10;
  if (volume < 0 || volume > kMaxVolume) {
    return "out of volume";
  }
  const std::string side = lowerCase(channel);
  const std::string channelPart =
      side == "left" || side == "right" ? " " + std::string(channel) : std::string();
  return sendCommand("setaudio " + std::string(alias) + channelPart + " Volume to " +
                     std::to_string(volume * kServiceScale));
}

std::string MciPutWindow(NativeWindow window, std::string_view alias, std::int32_t x,
                         std::int32_t y, std::int32_t width, std::int32_t height) {
  if ((width == 0 || height == 0) && state().geometry != nullptr) {
    const WindowRect rect = state().geometry->rectOf(window);
    width = rect.right - rect.left;
    height = rect.bottom - rect.top;
  }
  return sendCommand("put " + std::string(alias) + " window at " + std::to_string(x) + " " +
                     std::to_string(y) + " " + std::to_string(width) + " " +
                     std::to_string(height));
}

std::string MciStatusMode(std::string_view alias) {
  return sendQuery("status " + std::string(alias) + " mode").value_or("ERROR");
}

std::int32_t MciLengthFrames(std::string_view alias) {
  sendCommand("set " + std::string(alias) + " time format frames");
  return queryNumber("status " + std::string(alias) + " length");
}

std::int32_t MciLengthMs(std::string_view alias) {
  sendCommand("set " + std::string(alias) + " time format ms");
  const std::int32_t length = queryNumber("status " + std::string(alias) + " length");
  sendCommand("set " + std::string(alias) + " time format frames");
  return length;
}

std::int32_t MciPosition(std::string_view alias) {
  return queryNumber("status " + std::string(alias) + " position");
}

std::int32_t MciSpeed(std::string_view alias) {
  constexpr double kPerMilleToPercent = 10.0;
  const std::int32_t speed = queryNumber("status " + std::string(alias) + " speed");
  return speed == -1 ? -1 : roundToInt32(speed / kPerMilleToPercent);
}

std::int32_t MciWhereDestination(std::string_view alias, std::string_view dimension) {
  const std::string which = lowerCase(dimension);
  if (which != "cx" && which != "cy") {
    return -1;
  }
  const auto reply = sendQuery("Where " + std::string(alias) + " destination");
  if (!reply) {
    return -1;
  }
  const auto parts = splitBlanks(*reply);
  const std::size_t index = which == "cx" ? 2 : 3;
  return parts.size() > index ? toNumber(parts[index]) : -1;
}

std::int32_t MciPercent(std::string_view alias) {
  const std::int32_t length = MciLengthFrames(alias);
  const std::int32_t position = MciPosition(alias);
  // A length of 0 cannot be divided by; it reads as a failed query.
  if (length == -1 || position == -1 || length == 0) {
    return -1;
  }
  return roundToInt32(static_cast<double>(position) * 100.0 / length);
}

std::int32_t MciFramesPerSecond(std::string_view alias) {
  const std::int32_t ms = MciLengthMs(alias);
  const std::int32_t frames = MciLengthFrames(alias);
  if (ms == -1 || frames == -1 || ms == 0) {
    return -1;
  }
  return roundToInt32(frames / (ms / 1000.0));
}

std::string MciReadDriver(std::string_view key) {
  return driverTable().read(kDriverSection, key, kNoDriver);
}

void MciWriteDriver(std::string_view key, std::string_view value) {
  driverTable().write(kDriverSection, key, value);
}

void setMciWindowGeometry(const WindowGeometry* geometry) { state().geometry = geometry; }

void setMciDriverFile(std::filesystem::path file) { state().driverFile = std::move(file); }

}  // namespace yarvo
