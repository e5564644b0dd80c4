#include "engines/media/MciError.h"

#include <array>
#include <utility>

namespace yarvo {

std::string_view mciErrorText(std::uint32_t code) {
  static constexpr std::array<std::pair<MciError, std::string_view>, 17> kTexts{{
      {MciError::None, "The command was carried out."},
      {MciError::UnrecognizedKeyword,
       "The command contains a word that the media service does not know."},
      {MciError::UnrecognizedCommand, "The media service does not know this command."},
      {MciError::InvalidDeviceName, "No media is open under this name."},
      {MciError::EngineFailed, "The media engine could not be started."},
      {MciError::MissingCommand, "The command is empty."},
      {MciError::ReplyTooLong, "The answer is longer than the space given for it."},
      {MciError::MissingValue, "A word of the command needs a value and has none."},
      {MciError::BadInteger, "A value of the command is not a whole number in the allowed range."},
      {MciError::UnsupportedFunction, "This media cannot do what the command asks."},
      {MciError::FileNotFound, "The file does not exist."},
      {MciError::OutOfRange, "The position or value lies outside what this media allows."},
      {MciError::DuplicateAlias, "A media is already open under this name."},
      {MciError::UnplayableFile,
       "The file cannot be played: its format is unknown or it is damaged."},
      {MciError::NoPicture, "This media has no picture."},
      {MciError::NoSoundFont,
       "MIDI files cannot be played: no General MIDI sound font is installed."},
      {MciError::Timeout, "The media engine did not answer in time."},
  }};
  for (const auto& [error, text] : kTexts) {
    if (static_cast<std::uint32_t>(error) == code) {
      return text;
    }
  }
  return {};
}

}  // namespace yarvo
