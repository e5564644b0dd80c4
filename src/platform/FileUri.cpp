#include "platform/FileUri.h"

#include <cctype>

namespace yarvo {
namespace {

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

std::optional<std::string> PercentDecoded(std::string_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != '%') {
      bytes += text[i];
      continue;
    }
    if (i + 2 >= text.size()) return std::nullopt;
    const int high = HexDigit(text[i + 1]), low = HexDigit(text[i + 2]);
    if (high < 0 || low < 0) return std::nullopt;
    bytes += static_cast<char>(high * 16 + low);
    i += 2;
  }
  return bytes;
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
  if (text.size() < prefix.size()) return false;
  for (std::size_t i = 0; i < prefix.size(); ++i)
    if (std::tolower(static_cast<unsigned char>(text[i])) != prefix[i]) return false;
  return true;
}

}  // namespace

std::optional<std::string> LocalPathOfUri(std::string_view uri) {
  constexpr std::string_view kScheme = "file://";
  if (!StartsWithNoCase(uri, kScheme)) return std::nullopt;
  uri.remove_prefix(kScheme.size());
  // The host part: empty or "localhost" names this machine.
  const auto slash = uri.find('/');
  if (slash == std::string_view::npos) return std::nullopt;
  const std::string_view host = uri.substr(0, slash);
  if (!host.empty() && !(host.size() == 9 && StartsWithNoCase(host, "localhost")))
    return std::nullopt;
  const auto path = PercentDecoded(uri.substr(slash));
  if (!path || path->find('\0') != std::string::npos) return std::nullopt;
  return path;
}

std::string UriOfLocalPath(std::string_view path) {
  constexpr char kHex[] = "0123456789ABCDEF";
  std::string uri = "file://";
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (std::isalnum(byte) || std::string_view("-._~/").find(c) != std::string_view::npos) {
      uri += c;
    } else {
      uri += '%';
      uri += kHex[byte >> 4];
      uri += kHex[byte & 15];
    }
  }
  return uri;
}

std::optional<std::vector<std::string>> LocalPathsOfUriList(std::string_view list) {
  std::vector<std::string> paths;
  while (!list.empty()) {
    const auto end = list.find('\n');
    std::string_view line = list.substr(0, end);
    list.remove_prefix(end == std::string_view::npos ? list.size() : end + 1);
    if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
    if (line.empty() || line.front() == '#') continue;
    auto path = LocalPathOfUri(line);
    if (!path) return std::nullopt;
    paths.push_back(std::move(*path));
  }
  if (paths.empty()) return std::nullopt;
  return paths;
}

}  // namespace yarvo
