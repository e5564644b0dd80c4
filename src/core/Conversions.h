#pragma once
// Numbers as the store holds them: decimal text that every reader parses
// itself. The parsers raise the program's run-time errors on bad text, so a
// guarded statement that reads a bad value is skipped.

#include <cstdint>
#include <string>
#include <string_view>

namespace yarvo {

// A decimal number with optional blanks around it, sign, fraction and
// exponent ("." is the decimal point); anything else is TypeMismatch.
double CDbl(std::string_view text);

// Rounds half to even into the 16-bit row range; Overflow outside it.
std::int16_t CInt(double value);
std::int16_t CInt(std::string_view text);
// The same into 32 bits.
std::int32_t CLng(double value);
std::int32_t CLng(std::string_view text);

// The number that the text begins with, after leading blanks, as far as it
// reads as one ("128 Kbps" is 128); 0 when it begins with none. Never fails.
double Val(std::string_view text);

// The shortest decimal text that reads back as `value`: "4320", "0.5", "-1".
std::string Str(double value);

// ASCII case changes; bytes of other characters stay as they are.
std::string LCase(std::string_view text);
std::string UCase(std::string_view text);

// Removes trailing blanks (only ' ').
std::string RTrim(std::string_view text);

}  // namespace yarvo
