#pragma once
// Reads what the desktop is told of the player out of the form models of
// the running program (program()): the state words of Main and of the audio
// engine's form, the playing file, the volume bar, the order mode, the
// playlist and the queue. Reading makes no form and changes no model.
//
// Interface thread only. A reading may throw the program's run-time errors;
// callers read inside an event.

#include <cstdint>
#include <string>

#include "host/mpris/MprisFacts.h"

namespace yarvo {

class MprisModel {
 public:
  MprisFacts Read();
  // Where the song is, in seconds: the engine's own clock, read now. 0 when
  // nothing is loaded.
  double PositionSeconds() const;

 private:
  // The song of `path`: the same one, with its id, its tag and its length,
  // as long as the path stays.
  const MprisTrack& TrackOf(const std::string& path);

  MprisTrack track_;
  std::uint64_t tracksSeen_ = 0;
};

}  // namespace yarvo
