#pragma once
// The playback director: everything that starts, pauses, stops or moves to
// another song goes through it, and it loads and saves the program's state.
//
// Any module may hold its own instance: the state is in the store, and an
// instance keeps only its media-command working strings. Every routine goes
// on with the next statement after a run-time error unless it says otherwise.

#include <string>

namespace yarvo {

class ClsMain {
 public:
  // Start and end (start-up and shutdown).
  void LoadYarvo();
  [[noreturn]] void CloseYarvo();  // saves all state and ends the process
  void IncarcaSetari();            // settings.ini and the files read with it
  void SalveazaSetari();
  void IncarcaValoriAsociere();  // the association ticks
  void SalveazaValoriAsociere();

  // Playing: the file comes from the store (ListaCale's cursor when
  // FromPlaylist is "True", else Main.LbFileName(0)).
  void Play();
  void OpenAndPlayFile();
  void Pause();
  void PlayResume();
  void SStop();
  void GetMP3Inf();

  // Which song follows: the queue first, then the order mode.
  void EndOfSong();
  void PlayNext();  // no error handling of its own
  void PlayPrevious();

  // The media engine's clock, seek and volume.
  void TimerMixF();
  void SliderMultimediaChange();
  void ChangeVolume();

  // Window layout and video.
  void SwitchToFullScreen();
  void ResizeTheVideo();
  void SwitchMainMode();
  void ChangeMainMode();

  // Opens (true) or closes the CD tray.
  void SetCDState(bool open);

  std::string mciAlias = "movie";
  std::string mciDevice = "MPEGVideo";
  std::string mciResult;

 private:
  // Each path component as the file system holds it; "" when it does not exist.
  static std::string ExpandLongPath(const std::string& path);
  void LoadPlaylist();
  void LoadTagCodePage();
  void SaveTagCodePage();
  void PlayWithMci();
  void LayOutForMedia();
  void MciFailed();
  void QueueStep();
  void PlayRandomRow();
};

// Shows the result of a media command in Main.LbResult(0), behind its prefix.
void ShowMciResult(const std::string& result);

}  // namespace yarvo
