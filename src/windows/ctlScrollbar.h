#pragma once
// The one slider of the program: volume, seek, the equalizer's bars and the
// playlist's bar. Four surfaces (the up or left button, the thumb, the down or
// right button, the track) drawn from the skin's pictures, or from bevels,
// and seven timers that repeat a held button and watch the pointer leave a
// part. All lengths here are pixels.
//
// The thumb's offset in the track, ThumbPos, is the truth; `value` follows it
// in whole steps at every Redraw. Setting `value` fires no event; the user's
// moves fire Change, and a drag of the thumb fires Scroll. A release runs the
// control's own actions: the bars of the player windows kept in range, the
// volume pushed to the engine, and the seek of a held seek bar.

#include <functional>

#include "core/form/Control.h"
#include "core/form/Timer.h"

namespace yarvo {

// One of the bar's surfaces. Left and Top count from the bar's corner, but
// the thumb's from the track's.
struct ScrollbarSurface {
  Property<int> Left{0};
  Property<int> Top{0};
  Property<int> Width{17};
  Property<int> Height{17};
  // The picture painted at (0, 0); none after a clear.
  Property<Picture> Shown;
  // A bevel over the whole surface (the edge code of the platform's
  // DrawEdge), 0 for none.
  Property<int> Edge{0};
  // Bevel mode's arrow: 0 none, 1 up or left, 2 down or right; drawn one
  // pixel lower and to the right while pressed.
  Property<int> Arrow{0};
  Property<bool> ArrowPressed{false};
};

class ctlScrollbar : public Control {
 public:
  // A property whose setter stores the value and redraws the bar.
  template <class T>
  class Redrawn {
   public:
    Redrawn(ctlScrollbar& bar, T initial) : bar_(bar), value_(std::move(initial)) {}
    Redrawn(const Redrawn&) = delete;
    Redrawn& operator=(const Redrawn& other) { return *this = other.value_; }
    Redrawn& operator=(T value) {
      if (!(value == value_)) {
        value_ = std::move(value);
        ++modelRevision();
        detail::Changed(this);
        bar_.PropertyChanged();
      }
      bar_.Redraw();
      return *this;
    }
    operator const T&() const { return get(); }  // NOLINT: reads like the field it models
    const T& get() const {
      detail::Reading(this);
      return value_;
    }

   private:
    ctlScrollbar& bar_;
    T value_;
  };

  // `value`: clamped into min..max, then shown as a thumb offset; no event.
  class Value {
   public:
    explicit Value(ctlScrollbar& bar) : bar_(bar) {}
    Value(const Value&) = delete;
    // One bar's value to another, as the program copies them.
    Value& operator=(const Value& other) { return *this = static_cast<double>(other); }
    Value& operator=(double value) {
      bar_.SetValue(value);
      return *this;
    }
    operator double() const {  // NOLINT: reads like the field it models
      detail::Reading(this);
      return bar_.value_;
    }

   private:
    ctlScrollbar& bar_;
  };

  ctlScrollbar(Form* owner, std::string name, int orientation, double maxValue, double largeStep,
               int index = -1);

  Redrawn<int> Orientation{*this, 0};  // 0 vertical, any other value horizontal
  Redrawn<Picture> BackgroundPicture{*this, {}};
  Redrawn<bool> UsePictureUp{*this, false};
  Redrawn<bool> UsePictureDown{*this, false};
  Redrawn<bool> UsePictureThumb{*this, false};
  Redrawn<Picture> UpButtonNormal{*this, {}}, UpButtonHover{*this, {}}, UpButtonDown{*this, {}};
  Redrawn<Picture> DownButtonNormal{*this, {}}, DownButtonHover{*this, {}},
      DownButtonDown{*this, {}};
  Redrawn<Picture> ThumbButtonNormal{*this, {}}, ThumbButtonHover{*this, {}},
      ThumbButtonDown{*this, {}};
  Redrawn<int> StateOver{*this, 0};
  Redrawn<int> StateNormal{*this, 0};
  Redrawn<int> StateDown{*this, 1};
  Value value{*this};
  Redrawn<double> min{*this, 0};
  Redrawn<double> max{*this, 100};
  Redrawn<double> SmallChange{*this, 1};
  Redrawn<double> LargeChange{*this, 10};
  Redrawn<Colour> TrackColor{*this, 0x80000014};

  std::function<void()> Scroll;
  std::function<void()> Change;

  // The up or left button, the thumb, the down or right button, the track.
  ScrollbarSurface Picture1, Picture2, Picture3, Picture4;

  Timer tmUp, tmDn, tmUp2, tmDn2, Tracking1, Tracking2, Tracking3;

  void Redraw();
  // Lays the surfaces out along the bar.
  void LayoutParts();
  // Sizes the bar to its control size, but never shorter than its three
  // parts and ten pixels.
  void Resized();
  // Whether the pointer is over the surface and the bar's window is the one
  // under it.
  bool IsPointerOver(const ScrollbarSurface& surface) const;

  double ThumbPos() const { return thumbPos_; }
  double PixelsPerUnit() const { return pixelsPerUnit_; }
  // The track's length along the bar less the thumb's.
  double Travel() const;

  // Twips to pixels of picture sizes, as the platform measures pictures.
  static int HimetricToPixels(double units);

 private:
  enum class Part { None, Up, Thumb, Down, Track };

  void SetValue(double value);
  // Stores a new value and tells whoever waits on it.
  void StoreValue(double value);
  void PaintSurface(ScrollbarSurface& surface, bool usePicture, bool held, bool blocked,
                    const Picture& normal, const Picture& hover, const Picture& down, int arrow,
                    Timer& tracking);
  void PlaceThumb();
  void KeepValueOnNewTravel();
  void UpdateValue();
  void PaintTrack();

  // Input as the host hands it on: twips from the bar's corner.
  void OnMouseDown(const MouseEvent& e);
  void OnMouseMove(const MouseEvent& e);
  void OnMouseUp(const MouseEvent& e);
  void OnDblClick();
  Part PartAt(double x, double y) const;
  // The pointer's coordinate along the bar inside `surface`.
  double Along(const MouseEvent& e, const ScrollbarSurface& surface) const;

  void PressButton(Part part);
  void ReleaseButton(Part part, const MouseEvent& e);
  void MoveThumb(const MouseEvent& e);
  void ReleaseThumb();
  void PressTrack(const MouseEvent& e);
  void ReleaseTrack(const MouseEvent& e);
  void OnAnyTrackRelease();
  void RunReleaseActions();

  void Step(double units, bool up);
  void TickButton(bool up, bool large);
  void TickTracking(Timer& timer, const ScrollbarSurface& surface);

  double value_ = 0;
  double thumbPos_ = 0;
  double pixelsPerUnit_ = 0;
  double dragOffset_ = 0;
  double travel_ = 0;  // the travel of the last Redraw
  bool upHeld_ = false;
  bool thumbHeld_ = false;
  bool downHeld_ = false;
  bool trackUpHeld_ = false;
  bool trackDownHeld_ = false;
  // The part a held mouse button went down on: it gets the moves and the
  // release, wherever the pointer goes.
  Part captured_ = Part::None;
  Part lastPressed_ = Part::None;
};

// The ten pictures of `from` (background, buttons and thumb in their three
// looks) into `to`, one property after the other.
void CopyBarPictures(const ctlScrollbar& from, ctlScrollbar& to);

}  // namespace yarvo
