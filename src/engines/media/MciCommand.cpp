#include "engines/media/MciCommand.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <limits>
#include <vector>

namespace yarvo {
namespace {

constexpr std::int64_t kMaxVolume = 1000;

bool isBlank(char c) { return c == ' ' || c == '\t'; }

std::string lowerCase(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return lower;
}

// The words of a command, read front to back.
class Words {
 public:
  explicit Words(std::string_view text) {
    std::size_t i = 0;
    while (i < text.size()) {
      while (i < text.size() && isBlank(text[i])) {
        ++i;
      }
      const std::size_t start = i;
      while (i < text.size() && !isBlank(text[i])) {
        ++i;
      }
      if (i > start) {
        words_.push_back(text.substr(start, i - start));
      }
    }
  }

  bool done() const { return next_ == words_.size(); }

  std::string_view peek() const { return done() ? std::string_view{} : words_[next_]; }

  std::string_view next() { return done() ? std::string_view{} : words_[next_++]; }

  // Consumes the next word when it is `keyword`, in any case.
  bool take(std::string_view keyword) {
    if (done() || lowerCase(words_[next_]) != keyword) {
      return false;
    }
    ++next_;
    return true;
  }

 private:
  std::vector<std::string_view> words_;
  std::size_t next_ = 0;
};

std::optional<std::int64_t> toInteger(std::string_view word) {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
  if (error != std::errc{} || end != word.data() + word.size()) {
    return std::nullopt;
  }
  return value;
}

// Reads the value that follows a keyword into `out`.
MciError readInteger(Words& words, std::int64_t min, std::int64_t max, std::int64_t& out) {
  if (words.done()) {
    return MciError::MissingValue;
  }
  const auto value = toInteger(words.next());
  if (!value || *value < min || *value > max) {
    return MciError::BadInteger;
  }
  out = *value;
  return MciError::None;
}

MciError readInt32(Words& words, std::int32_t& out) {
  std::int64_t value = 0;
  const auto error = readInteger(words, std::numeric_limits<std::int32_t>::min(),
                                 std::numeric_limits<std::int32_t>::max(), value);
  out = static_cast<std::int32_t>(value);
  return error;
}

MciError readPosition(Words& words, std::optional<std::int64_t>& out) {
  std::int64_t value = 0;
  const auto error = readInteger(words, 0, std::numeric_limits<std::int64_t>::max(), value);
  out = value;
  return error;
}

MciError finish(const Words& words) {
  return words.done() ? MciError::None : MciError::UnrecognizedKeyword;
}

// Where the path of an open command ends: at the last " type ", or, without
// one, at the first other keyword.
std::size_t openPathEnd(std::string_view afterVerb) {
  const std::string probe = " " + lowerCase(afterVerb);
  if (const auto type = probe.rfind(" type "); type != std::string::npos) {
    return type == 0 ? 0 : type - 1;
  }
  std::size_t end = afterVerb.size();
  for (const std::string_view keyword : {" alias ", " parent ", " style "}) {
    if (const auto at = probe.find(keyword); at != std::string::npos) {
      end = std::min(end, at == 0 ? 0 : at - 1);
    }
  }
  return end;
}

MciError parseOpen(std::string_view afterVerb, MciCommand& command) {
  if (!afterVerb.empty() && afterVerb.front() == ' ') {
    afterVerb.remove_prefix(1);
  }
  const std::size_t pathEnd = openPathEnd(afterVerb);
  command.path = afterVerb.substr(0, pathEnd);
  Words words(afterVerb.substr(pathEnd));
  while (!words.done()) {
    std::int64_t number = 0;
    MciError error = MciError::None;
    if (words.take("type")) {
      command.deviceType = words.next();
    } else if (words.take("alias")) {
      command.alias = words.next();
    } else if (words.take("parent")) {
      error = readInteger(words, 0, std::numeric_limits<std::int64_t>::max(), number);
      command.parent = static_cast<std::uint64_t>(number);
    } else if (words.take("style")) {
      error = readInteger(words, 0, std::numeric_limits<std::uint32_t>::max(), number);
    } else {
      return MciError::UnrecognizedKeyword;
    }
    if (error != MciError::None) {
      return error;
    }
  }
  if (command.alias.empty()) {
    command.alias = command.path;
  }
  return MciError::None;
}

MciError parsePlay(Words& words, MciCommand& command) {
  while (!words.done()) {
    MciError error = MciError::UnrecognizedKeyword;
    if (words.take("from")) {
      error = readPosition(words, command.from);
    } else if (words.take("to")) {
      error = readPosition(words, command.to);
    }
    if (error != MciError::None) {
      return error;
    }
  }
  return MciError::None;
}

MciError parseSeek(Words& words, MciCommand& command) {
  if (!words.take("to")) {
    return words.done() ? MciError::MissingValue : MciError::UnrecognizedKeyword;
  }
  const auto error = readPosition(words, command.to);
  return error != MciError::None ? error : finish(words);
}

MciError parseSetAudio(Words& words, MciCommand& command) {
  if (words.take("left")) {
    command.channel = MciChannel::Left;
  } else if (words.take("right")) {
    command.channel = MciChannel::Right;
  }
  if (!words.take("volume") || !words.take("to")) {
    return words.done() ? MciError::MissingValue : MciError::UnrecognizedKeyword;
  }
  const auto error = readInteger(words, std::numeric_limits<std::int64_t>::min(),
                                 std::numeric_limits<std::int64_t>::max(), command.volume);
  if (error != MciError::None) {
    return error;
  }
  if (command.volume < 0 || command.volume > kMaxVolume) {
    return MciError::OutOfRange;
  }
  return finish(words);
}

MciError parsePut(Words& words, MciCommand& command) {
  if (!words.take("window") || !words.take("at")) {
    return words.done() ? MciError::MissingValue : MciError::UnrecognizedKeyword;
  }
  for (std::int32_t* field :
       {&command.rect.x, &command.rect.y, &command.rect.width, &command.rect.height}) {
    if (const auto error = readInt32(words, *field); error != MciError::None) {
      return error;
    }
  }
  if (command.rect.width < 0 || command.rect.height < 0) {
    return MciError::OutOfRange;
  }
  return finish(words);
}

MciError parseStatus(Words& words, MciCommand& command) {
  if (words.take("mode")) {
    command.item = MciStatusItem::Mode;
  } else if (words.take("length")) {
    command.item = MciStatusItem::Length;
  } else if (words.take("position")) {
    command.item = MciStatusItem::Position;
  } else if (words.take("speed")) {
    command.item = MciStatusItem::Speed;
  } else {
    return words.done() ? MciError::MissingValue : MciError::UnrecognizedKeyword;
  }
  return finish(words);
}

MciError parseSet(Words& words, MciCommand& command) {
  if (lowerCase(command.alias) == "cdaudio" && words.take("door")) {
    command.verb = MciVerb::SetDoor;
    if (words.take("open")) {
      command.doorOpen = true;
    } else if (!words.take("closed")) {
      return words.done() ? MciError::MissingValue : MciError::UnrecognizedKeyword;
    }
    return finish(words);
  }
  command.verb = MciVerb::SetTimeFormat;
  if (!words.take("time") || !words.take("format")) {
    return words.done() ? MciError::MissingValue : MciError::UnrecognizedKeyword;
  }
  if (words.take("frames")) {
    command.timeFormat = MciTimeFormat::Frames;
  } else if (words.take("ms") || words.take("milliseconds")) {
    command.timeFormat = MciTimeFormat::Milliseconds;
  } else {
    return words.done() ? MciError::MissingValue : MciError::UnrecognizedKeyword;
  }
  return finish(words);
}

MciError parseWhere(Words& words) {
  if (!words.take("destination")) {
    return words.done() ? MciError::MissingValue : MciError::UnrecognizedKeyword;
  }
  return finish(words);
}

struct VerbName {
  std::string_view word;
  MciVerb verb;
};

constexpr VerbName kVerbs[] = {
    {"open", MciVerb::Open},     {"close", MciVerb::Close},       {"play", MciVerb::Play},
    {"pause", MciVerb::Pause},   {"resume", MciVerb::Resume},     {"stop", MciVerb::Stop},
    {"seek", MciVerb::Seek},     {"setaudio", MciVerb::SetAudio}, {"put", MciVerb::Put},
    {"status", MciVerb::Status}, {"set", MciVerb::SetTimeFormat}, {"where", MciVerb::Where},
};

MciError parseAfterAlias(Words& words, MciCommand& command) {
  switch (command.verb) {
    case MciVerb::Play:
      return parsePlay(words, command);
    case MciVerb::Seek:
      return parseSeek(words, command);
    case MciVerb::SetAudio:
      return parseSetAudio(words, command);
    case MciVerb::Put:
      return parsePut(words, command);
    case MciVerb::Status:
      return parseStatus(words, command);
    case MciVerb::SetTimeFormat:
      return parseSet(words, command);
    case MciVerb::Where:
      return parseWhere(words);
    case MciVerb::Close:
      if (lowerCase(command.alias) == "all") {
        command.verb = MciVerb::CloseAll;
      }
      return finish(words);
    default:
      return finish(words);
  }
}

}  // namespace

MciParseResult parseMciCommand(std::string_view text) {
  MciParseResult result;
  while (!text.empty() && isBlank(text.front())) {
    text.remove_prefix(1);
  }
  const std::size_t verbEnd = std::min(text.find_first_of(" \t"), text.size());
  const std::string verb = lowerCase(text.substr(0, verbEnd));
  if (verb.empty()) {
    result.error = MciError::MissingCommand;
    return result;
  }
  const auto* found = std::find_if(std::begin(kVerbs), std::end(kVerbs),
                                   [&](const VerbName& v) { return v.word == verb; });
  if (found == std::end(kVerbs)) {
    result.error = MciError::UnrecognizedCommand;
    return result;
  }
  result.command.verb = found->verb;
  if (found->verb == MciVerb::Open) {
    result.error = parseOpen(text.substr(verbEnd), result.command);
    return result;
  }
  Words words(text.substr(verbEnd));
  if (words.done()) {
    result.error = MciError::InvalidDeviceName;
    return result;
  }
  result.command.alias = words.next();
  result.error = parseAfterAlias(words, result.command);
  return result;
}

}  // namespace yarvo
