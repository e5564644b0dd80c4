#pragma once

#include <map>
#include <memory>
#include <string>
#include <string_view>

#include "engines/media/MciCommand.h"
#include "engines/media/MciDevice.h"
#include "engines/media/MciError.h"
#include "engines/media/MciServiceOptions.h"

namespace yarvo {

// The media command service: runs text commands against the media open
// under their aliases. Aliases compare without regard to case; each open
// alias has its own player. Interface thread only; no notifications.
class MciService {
 public:
  explicit MciService(MciServiceOptions options = {});

  // Runs one command; on success `reply` holds its answer ("" for commands
  // that answer nothing).
  MciError run(std::string_view command, std::string& reply);

  // Applies to media opened from now on.
  void setOptions(MciServiceOptions options) { options_ = std::move(options); }

  std::size_t openCount() const { return devices_.size(); }

 private:
  MciError dispatch(const MciCommand& command, std::string& reply);
  MciError open(const MciCommand& command);
  MciDevice* find(const std::string& alias);

  MciServiceOptions options_;
  std::map<std::string, std::unique_ptr<MciDevice>> devices_;  // by lower-case alias
};

}  // namespace yarvo
