#pragma once

#include <cstdint>
#include <string_view>

namespace yarvo {

// Result codes of the media command service. 0 is success; the others keep
// the numbers of the classic MCI error codes they stand for, so that logs of
// either read alike.
enum class MciError : std::uint32_t {
  None = 0,
  UnrecognizedKeyword = 259,
  UnrecognizedCommand = 261,
  InvalidDeviceName = 263,
  EngineFailed = 266,
  MissingCommand = 267,
  ReplyTooLong = 268,
  MissingValue = 269,
  BadInteger = 270,
  UnsupportedFunction = 274,
  FileNotFound = 275,
  OutOfRange = 282,
  DuplicateAlias = 289,
  UnplayableFile = 304,
  NoPicture = 324,
  NoSoundFont = 343,  // the classic "no MIDI device" error
  Timeout = 345,
};

// The English text of a code, or nothing for a number that is no code.
std::string_view mciErrorText(std::uint32_t code);

}  // namespace yarvo
