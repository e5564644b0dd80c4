#pragma once
// The hidden window that owns one playing channel of the audio library. It
// starts the file, follows it once a second, and finds the end of the song by
// polling. Its fields are the audio engine's state, read and written by the
// director and the seek bar.
//
// Made on first reference, with a fresh BASS_Init; StopBass destroys it (and
// BASS_Free runs), so the library starts clean for every song.

#include <array>

#include "core/form/Form.h"
#include "core/form/Label.h"
#include "core/form/TextBox.h"
#include "core/form/Timer.h"
#include "engines/audio/Bass.h"

namespace yarvo {

class frmBass : public Form {
 public:
  frmBass();
  ~frmBass() override;

  StringField Chan{"0"};        // channel handle, decimal text; "0" for none
  StringField BassON{"False"};  // "True" while this engine owns the current file
  TextBox FileToPlay{this, "FileToPlay"};
  StringField StreamLength{"0"};   // bytes; a change runs StreamLength_Change
  StringField Pozitie{"0"};        // bytes
  StringField Scrolling{"False"};  // "True" while the user holds the seek bar
  StringField SwitchIDTag{"0"};    // tick counter of the tag line
  std::array<HFX, 11> fx{};        // 0-9 the equalizer bands, 10 the reverb
  int totalSeconds = 0;
  int playedSeconds = 0;

  Timer Timer1{this, "Timer1", 1000, false};
  Timer tmrSpectrum{this, "tmrSpectrum", 25, false};

  void PLAYtheBass();
  void Pauza();
  void ResumeBass();
  void StopBass();
  void VolumBass();
  void UpdateFX(int b);
  void MoveScollEq(int b);
  // The visualisation's mode from the option of Options that is on, or the
  // next of the four (turning its option on); both clear the picture.
  void ChangeSpectrumMode();
  void NextSpectrumMode();

  void Timer1_Timer();
  void tmrSpectrum_Timer();
  // Whether the song's channel plays now (not paused, stalled or ended).
  bool ChannelSounds();
  void StreamLength_Change();

 private:
  void Form_Load();
  void Form_Unload();
  void RotateTagLine();
  DWORD Channel() const;
};

}  // namespace yarvo
