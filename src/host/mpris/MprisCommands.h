#pragma once
// What the desktop's media controls ask of the player, done as the player's
// own buttons, keys and menus do it: through the director (ClsMain), the
// volume bar's handler and the order menu, so the state words, the ranking
// and the settings stay true. Each call is one event of the program: callers
// run it through the event dispatch. Interface thread only.
//
// Where the protocol and the player's own controls part ways:
// - Play does nothing while a song plays (the director's Play would start it
//   again), and Pause nothing unless one plays (the media service's pause
//   would resume a paused file).
// - Play before any song was started starts the playlist as "next" does:
//   the window's Play button opens the file dialog then, which a lock screen
//   cannot answer, and the director's Play would take whatever row the
//   playlist's cursor was left on by its loading.
// - Next and previous play, whatever the state, as the player's own do.

#include <cstdint>
#include <optional>
#include <string>

namespace yarvo {

class MprisModel;

class MprisCommands {
 public:
  explicit MprisCommands(MprisModel& model) : model_(model) {}

  void Play();
  void Pause();
  void PlayPause();
  void Stop();
  void Next();
  void Previous();
  // Moves by `offset` microseconds: before the start is the start, behind
  // the end is the next song. The new position when the song moved.
  std::optional<std::int64_t> Seek(std::int64_t offset);
  // Moves the song named `trackId` to `position` microseconds; nothing when
  // another song plays or the position lies outside the song.
  std::optional<std::int64_t> SetPosition(const std::string& trackId, std::int64_t position);
  // `volume` 0 to 1; outside that, the nearer end.
  void SetVolume(double volume);
  // On: the random order mode; off: in list order.
  void SetShuffle(bool on);
  // Plays a file outside the playlist, as the file menu's "Open" does.
  void OpenFile(const std::string& path);

 private:
  bool Playing() const;
  // Seeks the loaded song; the position it went to, in microseconds.
  std::int64_t SeekTo(std::int64_t position);

  MprisModel& model_;
};

}  // namespace yarvo
