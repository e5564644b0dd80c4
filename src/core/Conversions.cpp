#include "core/Conversions.h"

#include <charconv>
#include <cmath>
#include <limits>

#include "core/form/RuntimeError.h"

namespace yarvo {

namespace {

std::string_view TrimBlanks(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

double RoundHalfEven(double value) {
  if (!std::isfinite(value)) throw err::Overflow();
  return std::nearbyint(value);  // the default rounding mode is to nearest even
}

}  // namespace

double CDbl(std::string_view text) {
  std::string_view t = TrimBlanks(text);
  if (!t.empty() && t.front() == '+') t.remove_prefix(1);
  double value = 0;
  const auto [end, ec] = std::from_chars(t.data(), t.data() + t.size(), value);
  if (t.empty() || ec != std::errc() || end != t.data() + t.size()) throw err::TypeMismatch();
  return value;
}

double Val(std::string_view text) {
  const auto first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return 0;
  std::string_view t = text.substr(first);
  if (!t.empty() && t.front() == '+') t.remove_prefix(1);
  double value = 0;
  const auto result = std::from_chars(t.data(), t.data() + t.size(), value);
  return result.ec == std::errc() && std::isfinite(value) ? value : 0;
}

std::int16_t CInt(double value) {
  const double r = RoundHalfEven(value);
  if (r < std::numeric_limits<std::int16_t>::min() || r > std::numeric_limits<std::int16_t>::max())
    throw err::Overflow();
  return static_cast<std::int16_t>(r);
}

std::int16_t CInt(std::string_view text) { return CInt(CDbl(text)); }

std::int32_t CLng(double value) {
  const double r = RoundHalfEven(value);
  if (r < std::numeric_limits<std::int32_t>::min() || r > std::numeric_limits<std::int32_t>::max())
    throw err::Overflow();
  return static_cast<std::int32_t>(r);
}

std::int32_t CLng(std::string_view text) { return CLng(CDbl(text)); }

std::string Str(double value) {
  if (value == 0) return "0";  // also for -0
  char buffer[32];
  const auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value);
  return ec == std::errc() ? std::string(buffer, end) : std::string("0");
}

std::string LCase(std::string_view text) {
  std::string out(text);
  for (char& c : out) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
  }
  return out;
}

std::string UCase(std::string_view text) {
  std::string out(text);
  for (char& c : out) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return out;
}

std::string RTrim(std::string_view text) {
  const auto last = text.find_last_not_of(' ');
  return std::string(last == std::string_view::npos ? std::string_view{}
                                                    : text.substr(0, last + 1));
}

}  // namespace yarvo
