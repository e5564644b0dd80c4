#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string_view>

#include "engines/media/MciServiceOptions.h"

namespace yarvo {

// The process's media command service, called the way the platform's
// command-string interface is called. Interface thread only.

// Runs `command` (up to its first NUL) and returns 0 or an error code for
// mciGetErrorString. The answer goes to `reply` with a closing NUL; an empty
// span asks for no answer. An answer that does not fit fails with an error.
std::uint32_t mciSendString(std::string_view command, std::span<char> reply);

// Writes the English text of `code` to `text`, cut to fit, with a closing
// NUL. Returns false, with a text that says so, for a number that is no code.
bool mciGetErrorString(std::uint32_t code, std::span<char> text);

// Sets how media opened from now on play (sound output, pictures, waits).
void configureMciService(MciServiceOptions options);

// Sees every command mciSendString gets, before the service does. It may
// answer the command itself, returning the code and filling `reply` like
// mciSendString, or return nothing to let the service run it. For tests that
// check command texts or need set answers; an empty function removes it.
using MciCommandHook =
    std::function<std::optional<std::uint32_t>(std::string_view command, std::span<char> reply)>;
void setMciCommandHook(MciCommandHook hook);

}  // namespace yarvo
