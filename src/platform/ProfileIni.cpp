#include "platform/ProfileIni.h"

#include "platform/Files.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

namespace yarvo {
namespace {

std::string_view trim(std::string_view text) {
  const auto isBlank = [](char c) { return c == ' ' || c == '\t' || c == '\r'; };
  while (!text.empty() && isBlank(text.front())) {
    text.remove_prefix(1);
  }
  while (!text.empty() && isBlank(text.back())) {
    text.remove_suffix(1);
  }
  return text;
}

bool equalNoCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) {
    return std::tolower(static_cast<unsigned char>(x)) ==
           std::tolower(static_cast<unsigned char>(y));
  });
}

// The section name of a "[name]" line, or nothing for any other line.
std::optional<std::string_view> sectionName(std::string_view line) {
  line = trim(line);
  if (line.size() < 2 || line.front() != '[') {
    return std::nullopt;
  }
  const auto close = line.find(']');
  if (close == std::string_view::npos) {
    return std::nullopt;
  }
  return trim(line.substr(1, close - 1));
}

// True when `line` is "key = ..." for this key.
bool isKeyLine(std::string_view line, std::string_view key) {
  const auto equals = line.find('=');
  if (equals == std::string_view::npos || trim(line).starts_with(';')) {
    return false;
  }
  return equalNoCase(trim(line.substr(0, equals)), trim(key));
}

std::string_view valueOf(std::string_view line) {
  auto value = trim(line.substr(line.find('=') + 1));
  if (value.size() >= 2 && value.front() == '"' && value.back() == '"') {
    value = value.substr(1, value.size() - 2);
  }
  return value;
}

// Reads the lines of `file`. An absent file is an empty one; a file that
// exists but cannot be read gives nothing, so that no write replaces it.
std::optional<std::vector<std::string>> readLines(const std::filesystem::path& file) {
  std::vector<std::string> lines;
  std::error_code error;
  if (!std::filesystem::exists(file, error)) {
    return error ? std::nullopt : std::optional(lines);
  }
  const auto bytes = ReadWholeFile(file);
  if (!bytes) {
    return std::nullopt;
  }
  std::string_view rest = *bytes;
  while (!rest.empty()) {
    const auto end = std::min(rest.find('\n'), rest.size());
    std::string_view line = rest.substr(0, end);
    if (!line.empty() && line.back() == '\r') {
      line.remove_suffix(1);
    }
    lines.emplace_back(line);
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return lines;
}

// Index range [first, last) of the body of `section`, or nothing.
std::optional<std::pair<std::size_t, std::size_t>> findSection(
    const std::vector<std::string>& lines, std::string_view section) {
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const auto name = sectionName(lines[i]);
    if (!name || !equalNoCase(*name, trim(section))) {
      continue;
    }
    std::size_t end = i + 1;
    while (end < lines.size() && !sectionName(lines[end])) {
      ++end;
    }
    return std::pair(i + 1, end);
  }
  return std::nullopt;
}

void setKey(std::vector<std::string>& lines, std::string_view section, std::string_view key,
            std::string_view value) {
  std::string entry = std::string(trim(key)) + "=" + std::string(value);
  const auto body = findSection(lines, section);
  if (!body) {
    if (!lines.empty() && !trim(lines.back()).empty()) {
      lines.emplace_back();
    }
    lines.push_back("[" + std::string(trim(section)) + "]");
    lines.push_back(std::move(entry));
    return;
  }
  auto [first, last] = *body;
  for (std::size_t i = first; i < last; ++i) {
    if (isKeyLine(lines[i], key)) {
      lines[i] = std::move(entry);
      return;
    }
  }
  // New keys go after the last line that holds something, before the blank
  // lines that part this section from the next.
  while (last > first && trim(lines[last - 1]).empty()) {
    --last;
  }
  lines.insert(lines.begin() + static_cast<std::ptrdiff_t>(last), std::move(entry));
}

// Saves over the file whole, making its folder first if need be.
bool replaceAtomically(const std::filesystem::path& target, std::string_view content) {
  std::error_code error;
  std::filesystem::create_directories(target.parent_path(), error);
  return !error && WriteFileAtomically(target.string(), content);
}

}  // namespace

ProfileIni::ProfileIni(std::filesystem::path file) : file_(std::move(file)) {}

std::string ProfileIni::read(std::string_view section, std::string_view key,
                             std::string_view fallback) const {
  std::string result(fallback);
  try {
    const auto lines = readLines(file_);
    const auto body = lines ? findSection(*lines, section) : std::nullopt;
    if (body) {
      for (std::size_t i = body->first; i < body->second; ++i) {
        if (isKeyLine((*lines)[i], key)) {
          result = valueOf((*lines)[i]);
          break;
        }
      }
    }
  } catch (const std::exception&) {
    // An unreadable file reads as a missing key.
  }
  if (result.size() > kMaxValueLength) {
    result.resize(kMaxValueLength);
  }
  return result;
}

bool ProfileIni::write(std::string_view section, std::string_view key,
                       std::string_view value) const {
  if (trim(section).empty() || trim(key).empty()) {
    return false;
  }
  try {
    auto lines = readLines(file_);
    if (!lines) {
      return false;
    }
    setKey(*lines, section, key, value);
    std::string content;
    for (const auto& line : *lines) {
      content += line;
      content += '\n';
    }
    return replaceAtomically(file_, content);
  } catch (const std::exception&) {
    return false;
  }
}

std::filesystem::path systemIniPath() {
  std::filesystem::path base;
  // A relative XDG_CONFIG_HOME is invalid and counts as unset.
  if (const char* config = std::getenv("XDG_CONFIG_HOME");
      config != nullptr && std::filesystem::path(config).is_absolute()) {
    base = config;
  } else if (const char* home = std::getenv("HOME"); home != nullptr) {
    base = std::filesystem::path(home) / ".config";
  }
  return base / "yarvo-player" / "system.ini";
}

}  // namespace yarvo
