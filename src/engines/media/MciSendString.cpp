#include "engines/media/MciSendString.h"

#include <algorithm>
#include <string>
#include <utility>

#include "engines/media/MciError.h"
#include "engines/media/MciService.h"

namespace yarvo {
namespace {

MciService& service() {
  static MciService instance;
  return instance;
}

MciCommandHook& hook() {
  static MciCommandHook instance;
  return instance;
}

// Copies `text` and a NUL into `buffer`; false when it had to be cut.
bool copyWithNul(std::string_view text, std::span<char> buffer) {
  if (buffer.empty()) {
    return text.empty();
  }
  const std::size_t count = std::min(text.size(), buffer.size() - 1);
  std::copy_n(text.begin(), count, buffer.begin());
  buffer[count] = '\0';
  return count == text.size();
}

}  // namespace

std::uint32_t mciSendString(std::string_view command, std::span<char> reply) {
  command = command.substr(0, command.find('\0'));
  if (!reply.empty()) {
    reply[0] = '\0';
  }
  MciError error = MciError::EngineFailed;
  std::string answer;
  try {
    if (hook()) {
      if (const auto code = hook()(command, reply)) {
        return *code;
      }
    }
    error = service().run(command, answer);
  } catch (...) {
    // Nothing from the engine or the library crosses this call.
  }
  if (error == MciError::None && !reply.empty() && !copyWithNul(answer, reply)) {
    reply[0] = '\0';
    error = MciError::ReplyTooLong;
  }
  return static_cast<std::uint32_t>(error);
}

bool mciGetErrorString(std::uint32_t code, std::span<char> text) {
  const auto known = mciErrorText(code);
  copyWithNul(known.empty() ? std::string_view("Unknown media service error.") : known, text);
  return !known.empty();
}

void configureMciService(MciServiceOptions options) { service().setOptions(std::move(options)); }

void setMciCommandHook(MciCommandHook newHook) { hook() = std::move(newHook); }

}  // namespace yarvo
