#pragma once
// The five transport buttons around their plate: previous, play, pause, stop
// and next. Five hit areas take the pointer; a button's hover or pressed look
// is a picture moved onto it and moved away again, so nothing is drawn while
// the program runs. The pictures come from the skin, and again within about
// a second after the skin changes. Coordinates are twips inside the control.

#include <string>

#include "core/form/Control.h"
#include "core/form/Timer.h"

namespace yarvo {

// One of the state pictures; hidden while its top lies below the control.
struct ButoaneImage {
  Property<int> Left{0};
  Property<int> Top{1000};
  Property<yarvo::Picture> Picture;
};

struct HitArea {
  int left;
  int top;
  int width;
  int height;
  bool Contains(double x, double y) const {
    return x >= left && y >= top && x < left + width && y < top + height;
  }
};

class Butoane : public Control {
 public:
  Butoane(Form* owner, std::string name);

  Property<yarvo::Picture> Background;
  ButoaneImage PauzaFocus, PauzaPressed, BackFocus, BackPressed, PlayFocus, PlayPressed, NextFocus,
      NextPressed, StopFocus, StopPressed;

  static constexpr HitArea PauzaButon{240, 0, 495, 255};
  static constexpr HitArea BackButon{0, 360, 255, 255};
  static constexpr HitArea PlayButon{240, 240, 495, 375};
  static constexpr HitArea NextButon{720, 360, 255, 255};
  static constexpr HitArea StopButon{240, 720, 495, 255};

  Timer OnlyOnLoad;
  Timer FocusTimer;

  void OnlyOnLoad_Timer();
  void FocusTimer_Timer();

 private:
  enum class Button { None, Pause, Back, Play, Next, Stop };
  struct Look {
    ButoaneImage* hover;
    ButoaneImage* pressed;
    int left;  // where a shown picture goes
    int top;
  };

  Button ButtonAt(double x, double y) const;
  Look LookOf(Button button);
  void Press(Button button);
  void Show(ButoaneImage& image, const Look& look);
  static void Hide(ButoaneImage& image) { image.Top = kHidden; }

  static constexpr int kHidden = 1000;
  Button pressed_ = Button::None;
  // The skin name the timer last saw.
  std::string skinChecked_;
};

}  // namespace yarvo
