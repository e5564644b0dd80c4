#pragma once
// Tells a seek made with the player's own controls (the seek bar) from the
// song running on: a reading of the song's position that lies more than a
// second from where the last reading and the time since put it. The desktop
// keeps its own clock of the song from the position it last read, and only
// hears of such a jump when it is told.

#include <optional>

namespace yarvo {

class SeekWatch {
 public:
  static constexpr double kTolerance = 1.0;  // seconds

  // Starts over from `position`: a new song, or a seek told already.
  // Positions and `now` are seconds, `now` of a steady clock; `running` is
  // whether the song plays on from there.
  void Restart(double position, double now, bool running);
  // Takes a reading; true when the song jumped since the last one.
  bool Jumped(double position, double now, bool running);

 private:
  struct Reading {
    double position;
    double time;
    bool running;
  };
  std::optional<Reading> last_;
};

}  // namespace yarvo
