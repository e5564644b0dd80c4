#pragma once
// The playback director: everything that starts, pauses, stops or moves to
// another song goes through it, and it loads and saves the program's state.
//
// Any module may hold its own instance: the state is in the store, and an
// instance keeps only its media-command working strings.

#include <string>

namespace yarvo {

class ClsMain {
 public:
  // Loads the settings, the playlist and the shortcuts, and starts a file
  // given on the command line. Every step goes on after an error.
  void LoadYarvo();
  // Saves all state and ends the process; does not return.
  [[noreturn]] void CloseYarvo();

  std::string mciAlias = "movie";
  std::string mciDevice = "MPEGVideo";
  std::string mciResult;

 private:
  void LoadPlaylist();
};

}  // namespace yarvo
