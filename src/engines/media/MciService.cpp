#include "engines/media/MciService.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "engines/media/CdTray.h"

namespace yarvo {
namespace {

std::string aliasKey(std::string_view alias) {
  std::string key(alias);
  std::transform(key.begin(), key.end(), key.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return key;
}

}  // namespace

MciService::MciService(MciServiceOptions options) : options_(std::move(options)) {}

MciError MciService::run(std::string_view command, std::string& reply) {
  reply.clear();
  const auto parsed = parseMciCommand(command);
  if (parsed.error != MciError::None) {
    return parsed.error;
  }
  return dispatch(parsed.command, reply);
}

MciDevice* MciService::find(const std::string& alias) {
  const auto it = devices_.find(aliasKey(alias));
  return it == devices_.end() ? nullptr : it->second.get();
}

MciError MciService::open(const MciCommand& command) {
  const auto key = aliasKey(command.alias);
  if (key.empty()) {
    return MciError::FileNotFound;
  }
  if (devices_.contains(key)) {
    return MciError::DuplicateAlias;
  }
  std::unique_ptr<MciDevice> device;
  const auto error = MciDevice::open(command.path, command.parent, options_, device);
  if (error == MciError::None) {
    devices_.emplace(key, std::move(device));
  }
  return error;
}

MciError MciService::dispatch(const MciCommand& command, std::string& reply) {
  switch (command.verb) {
    case MciVerb::Open:
      return open(command);
    case MciVerb::CloseAll:
      devices_.clear();
      return MciError::None;
    case MciVerb::SetDoor:
      moveCdTray(command.doorOpen);
      return MciError::None;
    default:
      break;
  }
  MciDevice* device = find(command.alias);
  if (device == nullptr) {
    return MciError::InvalidDeviceName;
  }
  switch (command.verb) {
    case MciVerb::Close:
      devices_.erase(aliasKey(command.alias));
      return MciError::None;
    case MciVerb::Play:
      return device->play(command.from, command.to);
    case MciVerb::Pause:
      return device->pause();
    case MciVerb::Resume:
      return device->resume();
    case MciVerb::Stop:
      return device->stop();
    case MciVerb::Seek:
      return device->seek(command.to.value_or(0));
    case MciVerb::SetAudio:
      return device->setVolume(command.channel, command.volume);
    case MciVerb::Put:
      return device->putWindow(command.rect);
    case MciVerb::Status:
      return device->status(command.item, reply);
    case MciVerb::SetTimeFormat:
      device->setTimeFormat(command.timeFormat);
      return MciError::None;
    case MciVerb::Where:
      return device->whereDestination(reply);
    default:
      return MciError::UnrecognizedCommand;
  }
}

}  // namespace yarvo
