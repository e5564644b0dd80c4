#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "engines/media/MciError.h"

namespace yarvo {

enum class MciVerb {
  Open,
  Close,
  CloseAll,
  Play,
  Pause,
  Resume,
  Stop,
  Seek,
  SetAudio,
  Put,
  Status,
  SetTimeFormat,
  SetDoor,
  Where,
};

enum class MciStatusItem { Mode, Length, Position, Speed };
enum class MciChannel { Both, Left, Right };
enum class MciTimeFormat { Frames, Milliseconds };

// A rectangle in pixels of the parent window: origin, then size.
struct MciRect {
  std::int32_t x = 0;
  std::int32_t y = 0;
  std::int32_t width = 0;
  std::int32_t height = 0;
};

// One command of the service, taken apart. Which fields count depends on
// the verb; positions are in the device's current time format.
struct MciCommand {
  MciVerb verb = MciVerb::Close;
  std::string alias;  // as written; aliases compare without regard to case

  // open
  std::string path;
  std::string deviceType;
  std::uint64_t parent = 0;  // native window to draw into, 0 for none

  // play (from, to), seek (to)
  std::optional<std::int64_t> from;
  std::optional<std::int64_t> to;

  // setaudio
  MciChannel channel = MciChannel::Both;
  std::int64_t volume = 0;  // 0 to 1000

  MciRect rect;                              // put ... window at
  MciStatusItem item = MciStatusItem::Mode;  // status
  MciTimeFormat timeFormat = MciTimeFormat::Frames;
  bool doorOpen = false;  // set cdaudio door
};

struct MciParseResult {
  MciError error = MciError::None;
  MciCommand command;
};

// Parses one command line. Words are matched without regard to case and
// split by blanks; the path of "open" is taken as written, blanks and all,
// up to the last " type " of the line. Range checks that need an open media
// are left to the caller.
MciParseResult parseMciCommand(std::string_view text);

}  // namespace yarvo
