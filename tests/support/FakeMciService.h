#pragma once

#include <algorithm>
#include <cstdint>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "engines/media/MciSendString.h"

namespace yarvo::test {

// Stands in for the media service through the command hook: records every
// command and answers from a table. A command missing from the table fails
// with "no media open under this name" (263). Removes the hook when it dies.
class FakeMciService {
 public:
  static constexpr std::uint32_t kNotOpen = 263;

  FakeMciService() {
    setMciCommandHook([this](std::string_view command, std::span<char> reply) {
      sent.emplace_back(command);
      const auto it = answers.find(std::string(command));
      const auto& [code, text] = it == answers.end() ? kUnknown : it->second;
      if (!reply.empty()) {
        const std::size_t count = std::min(text.size(), reply.size() - 1);
        std::copy_n(text.begin(), count, reply.begin());
        reply[count] = '\0';
      }
      return std::optional<std::uint32_t>(code);
    });
  }
  FakeMciService(const FakeMciService&) = delete;
  FakeMciService& operator=(const FakeMciService&) = delete;
  ~FakeMciService() { setMciCommandHook({}); }

  void answer(const std::string& command, std::string reply, std::uint32_t code = 0) {
    answers[command] = {code, std::move(reply)};
  }

  std::vector<std::string> sent;
  std::map<std::string, std::pair<std::uint32_t, std::string>> answers;

 private:
  inline static const std::pair<std::uint32_t, std::string> kUnknown{kNotOpen, ""};
};

// Records the commands that reach the real service, and lets them run.
class CommandLog {
 public:
  CommandLog() {
    setMciCommandHook([this](std::string_view command, std::span<char>) {
      sent.emplace_back(command);
      return std::optional<std::uint32_t>();
    });
  }
  CommandLog(const CommandLog&) = delete;
  CommandLog& operator=(const CommandLog&) = delete;
  ~CommandLog() { setMciCommandHook({}); }

  std::vector<std::string> sent;
};

}  // namespace yarvo::test
