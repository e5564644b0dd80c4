#include "windows/ctlScrollbar.h"

#include <algorithm>
#include <cmath>

#include "core/Conversions.h"
#include "core/DataForm.h"
#include "core/form/Form.h"
#include "core/form/RuntimeError.h"
#include "core/form/Twips.h"
#include "director/ClsMain.h"
#include "director/Program.h"
#include "engines/BassApi.h"
#include "engines/frmBass.h"
#include "platform/Desktop.h"
#include "windows/Main.h"
#include "windows/MiniForm.h"

namespace yarvo {

namespace {

constexpr int kButtonInterval = 100;
constexpr int kTrackingInterval = 1;
// Bevel mode's buttons and thumb: this long along the bar, as thick as it.
constexpr int kBevelLength = 17;
// A click in the track puts the thumb this many pixels before the click.
constexpr double kTrackJump = 10;
constexpr double kBytesPerSeekStep = 100000;

// The platform's DrawEdge code for a state number; 0 draws no edge.
int EdgeCode(int state) {
  static constexpr int kEdges[] = {5, 10, 9, 6, 1, 2};
  return state >= 0 && state <= 5 ? kEdges[state] : 0;
}

// The program's player window: the mini window while it stands in.
bool InMiniMode() { return program().DataForm().MiniMode == "True"; }

void FocusPlayerVolume() {
  ResumeNext([] {
    if (InMiniMode()) {
      program().MiniForm().Volum.SetFocus();
    } else {
      program().Main().Volum.SetFocus();
    }
  });
}

// The release actions, which belong to the control whatever bar it is: a
// held seek bar of a media file seeks when let go, and one of an audio file
// seeks to its value in bytes (the engine's position while the user holds it).
void SeekMediaToBar() {
  if (program().Main().StartMoveSlider.Caption != "True") return;
  ClsMain().SliderMultimediaChange();
  FocusPlayerVolume();
}

void SeekAudioToBar() {
  auto& p = program();
  auto& engine = p.frmBass();
  if (engine.Scrolling != "True") return;
  const double bytes = p.Main().SliderMoveMultimedia(0).value * kBytesPerSeekStep;
  p.bass().BASS_ChannelSetPosition(static_cast<DWORD>(CLng(engine.Chan.get())),
                                   static_cast<QWORD>(static_cast<std::int32_t>(bytes)),
                                   BASS_POS_BYTE);
  engine.Scrolling = "False";
  FocusPlayerVolume();
}

// Keeps a bar's value in 0..max, through its setter.
void KeepInRange(ctlScrollbar& bar) {
  ResumeNext([&] {
    if (bar.value < 0) bar.value = 0;
  });
  ResumeNext([&] {
    if (bar.value > bar.max) bar.value = bar.max.get();
  });
}

}  // namespace

ctlScrollbar::ctlScrollbar(Form* owner, std::string name, int orientation, double maxValue,
                           double largeStep, int index)
    : Control(owner, name, index),
      // Creation values, as the window's property store restores them.
      Orientation(*this, orientation),
      UsePictureUp(*this, true),
      UsePictureDown(*this, true),
      UsePictureThumb(*this, true),
      max(*this, maxValue),
      LargeChange(*this, largeStep),
      tmUp(owner, name + ".tmUp", kButtonInterval, false, index),
      tmDn(owner, name + ".tmDn", kButtonInterval, false, index),
      tmUp2(owner, name + ".tmUp2", kButtonInterval, false, index),
      tmDn2(owner, name + ".tmDn2", kButtonInterval, false, index),
      Tracking1(owner, name + ".Tracking1", kTrackingInterval, false, index),
      Tracking2(owner, name + ".Tracking2", kTrackingInterval, false, index),
      Tracking3(owner, name + ".Tracking3", kTrackingInterval, false, index) {
  tmUp.Tick = [this] { TickButton(true, false); };
  tmDn.Tick = [this] { TickButton(false, false); };
  tmUp2.Tick = [this] { TickButton(true, true); };
  tmDn2.Tick = [this] { TickButton(false, true); };
  Tracking1.Tick = [this] { TickTracking(Tracking1, Picture1); };
  Tracking2.Tick = [this] { TickTracking(Tracking2, Picture2); };
  Tracking3.Tick = [this] { TickTracking(Tracking3, Picture3); };
  Width.onChange([this] { Resized(); });
  Height.onChange([this] { Resized(); });
  MouseDown = [this](const MouseEvent& e) { OnMouseDown(e); };
  MouseMove = [this](const MouseEvent& e) { OnMouseMove(e); };
  MouseUp = [this](const MouseEvent& e) { OnMouseUp(e); };
  DblClick = [this] { OnDblClick(); };
}

int ctlScrollbar::HimetricToPixels(double units) {
  return static_cast<int>(std::floor(units / (291.0 / 11.0) + 0.5));
}

double ctlScrollbar::Travel() const {
  return Orientation != 0 ? Picture4.Width - Picture2.Width : Picture4.Height - Picture2.Height;
}

void ctlScrollbar::SetValue(double wanted) {
  if (!std::isfinite(wanted)) throw err::InvalidPropertyValue();
  StoreValue(std::clamp(wanted, min.get(), std::max(min.get(), max.get())));
  thumbPos_ = 0;
  thumbPos_ = SmallChange * pixelsPerUnit_ * (value_ - min);
  Redraw();
}

void ctlScrollbar::Resized() {
  const bool horizontal = Orientation != 0;
  const int shortest = (horizontal ? Picture1.Width + Picture2.Width + Picture3.Width
                                   : Picture1.Height + Picture2.Height + Picture3.Height) +
                       10;
  Property<int>& length = horizontal ? Width : Height;
  if (length / kTwipsPerPixel < shortest) {
    length = shortest * kTwipsPerPixel;  // runs this again, long enough now
    return;
  }
  LayoutParts();
  Redraw();
}

void ctlScrollbar::LayoutParts() {
  const int width = Width / kTwipsPerPixel;
  const int height = Height / kTwipsPerPixel;
  const bool horizontal = Orientation != 0;
  for (auto [surface, usePicture] :
       {std::pair{&Picture1, UsePictureUp.get()}, std::pair{&Picture2, UsePictureThumb.get()},
        std::pair{&Picture3, UsePictureDown.get()}}) {
    if (usePicture) continue;
    surface->Width = horizontal ? kBevelLength : width;
    surface->Height = horizontal ? height : kBevelLength;
  }
  Picture1.Left = 0;
  Picture1.Top = 0;
  if (horizontal) {
    Picture3.Left = width - Picture3.Width;
    Picture3.Top = 0;
    Picture4.Left = Picture1.Width.get();
    Picture4.Top = 0;
    Picture4.Width = Picture3.Left - Picture4.Left;
    Picture4.Height = height;
  } else {
    Picture3.Left = 0;
    Picture3.Top = height - Picture3.Height;
    Picture4.Left = 0;
    Picture4.Top = Picture1.Height.get();
    Picture4.Width = width;
    Picture4.Height = Picture3.Top - Picture4.Top;
  }
}

// Each surface is painted whole, so what a paint leaves out is cleared.
void ctlScrollbar::Redraw() {
  ResumeNext([&] { LayoutParts(); });
  ResumeNext([&] {
    PaintSurface(Picture1, UsePictureUp, upHeld_,
                 thumbHeld_ || downHeld_ || trackUpHeld_ || trackDownHeld_, UpButtonNormal,
                 UpButtonHover, UpButtonDown, 1, Tracking1);
  });
  ResumeNext([&] {
    PaintSurface(Picture2, UsePictureThumb, thumbHeld_,
                 upHeld_ || downHeld_ || trackUpHeld_ || trackDownHeld_, ThumbButtonNormal,
                 ThumbButtonHover, ThumbButtonDown, 0, Tracking2);
  });
  ResumeNext([&] {
    PaintSurface(Picture3, UsePictureDown, downHeld_,
                 upHeld_ || thumbHeld_ || trackUpHeld_ || trackDownHeld_, DownButtonNormal,
                 DownButtonHover, DownButtonDown, 2, Tracking3);
  });
  KeepValueOnNewTravel();
  PlaceThumb();
  ResumeNext([&] { UpdateValue(); });
}

// The skin's pictures arrive after the settings gave the bars their values,
// and a window may size a bar: the thumb moves to keep the value where the
// track's travel changed, rather than the value following the thumb.
void ctlScrollbar::KeepValueOnNewTravel() {
  const double travel = Travel();
  if (travel == travel_) return;
  const bool measured = travel_ > 0;
  travel_ = travel;
  if (!measured || max == min) return;
  pixelsPerUnit_ = travel / (max - min);
  thumbPos_ = SmallChange * pixelsPerUnit_ * (value_ - min);
}

// The three looks of a part: held under the pointer, hovered while no other
// part is held, or at rest. A hovered part has its tracking timer watch for
// the pointer to leave.
void ctlScrollbar::PaintSurface(ScrollbarSurface& surface, bool usePicture, bool held, bool blocked,
                                const Picture& normal, const Picture& hover, const Picture& down,
                                int arrow, Timer& tracking) {
  const bool over = IsPointerOver(surface);
  const bool pressed = over && held;
  const bool hovered = over && !held && !blocked;
  if (hovered) tracking.Enabled = true;
  if (usePicture) {
    const Picture& shown = pressed ? down : hovered ? hover : normal;
    if (const Image* pixels = shown.Pixels(); pixels && pixels->width > 0) {
      surface.Width = pixels->width;
      surface.Height = pixels->height;
    }
    surface.Shown = shown;
    surface.Arrow = 0;
    surface.Edge = 0;
    return;
  }
  surface.Shown = Picture();
  surface.Arrow = arrow;
  surface.ArrowPressed = pressed;
  surface.Edge = EdgeCode(pressed ? StateDown : hovered ? StateOver : StateNormal);
}

void ctlScrollbar::PlaceThumb() {
  const int at = static_cast<int>(std::lround(thumbPos_));
  if (Orientation != 0) {
    Picture2.Left = at;
    Picture2.Top = 0;
  } else {
    Picture2.Left = 0;
    Picture2.Top = at;
  }
}

// The value follows the thumb in whole units. With max equal to min, or a
// track with no room to travel, the division fails and both keep what they
// held.
void ctlScrollbar::UpdateValue() {
  if (max == min) throw err::DivisionByZero();
  const double perUnit = Travel() / (max - min);
  pixelsPerUnit_ = perUnit;
  if (perUnit == 0) throw err::DivisionByZero();
  StoreValue(std::floor(thumbPos_ / perUnit + 0.5) + min);
}

void ctlScrollbar::StoreValue(double stored) {
  if (stored == value_) return;
  value_ = stored;
  ++modelRevision();
  detail::Changed(&this->value);
  PropertyChanged();
}

bool ctlScrollbar::IsPointerOver(const ScrollbarSurface& surface) const {
  const Desktop& desktop = program().desktop();
  const ScreenPoint pointer = desktop.CursorPos();
  if (desktop.FormAt(pointer) != &Owner()) return false;
  int left = (Owner().Left + FormLeft()) / kTwipsPerPixel + surface.Left;
  int top = (Owner().Top + FormTop()) / kTwipsPerPixel + surface.Top;
  if (&surface == &Picture2) {
    left += Picture4.Left;
    top += Picture4.Top;
  }
  return pointer.x >= left && pointer.y >= top && pointer.x < left + surface.Width &&
         pointer.y < top + surface.Height;
}

ctlScrollbar::Part ctlScrollbar::PartAt(double x, double y) const {
  const double px = x / kTwipsPerPixel;
  const double py = y / kTwipsPerPixel;
  auto inside = [&](const ScrollbarSurface& s, double dx, double dy) {
    return px >= s.Left + dx && py >= s.Top + dy && px < s.Left + dx + s.Width &&
           py < s.Top + dy + s.Height;
  };
  if (inside(Picture2, Picture4.Left, Picture4.Top)) return Part::Thumb;
  if (inside(Picture1, 0, 0)) return Part::Up;
  if (inside(Picture3, 0, 0)) return Part::Down;
  if (inside(Picture4, 0, 0)) return Part::Track;
  return Part::None;
}

double ctlScrollbar::Along(const MouseEvent& e, const ScrollbarSurface& surface) const {
  const bool horizontal = Orientation != 0;
  double at = (horizontal ? e.x : e.y) / kTwipsPerPixel;
  at -= horizontal ? surface.Left : surface.Top;
  if (&surface == &Picture2) at -= horizontal ? Picture4.Left : Picture4.Top;
  return at;
}

void ctlScrollbar::OnMouseDown(const MouseEvent& e) {
  captured_ = PartAt(e.x, e.y);
  lastPressed_ = captured_;
  switch (captured_) {
    case Part::Up:
    case Part::Down:
      PressButton(captured_);
      break;
    case Part::Thumb:
      if (e.button != MouseButton::Left) break;
      dragOffset_ = Along(e, Picture2);
      thumbHeld_ = true;
      Redraw();
      break;
    case Part::Track:
      if (e.button == MouseButton::Left) PressTrack(e);
      break;
    case Part::None:
      break;
  }
}

// The second press of a double click comes as the double click; its release
// follows as usual.
void ctlScrollbar::OnDblClick() {
  captured_ = lastPressed_;
  PressButton(captured_);
}

void ctlScrollbar::OnMouseMove(const MouseEvent& e) {
  const Part part = e.button == MouseButton::None ? PartAt(e.x, e.y) : captured_;
  switch (part) {
    case Part::Up:
    case Part::Down:
      if (e.button == MouseButton::None) {
        bool& held = part == Part::Up ? upHeld_ : downHeld_;
        held = false;
        (part == Part::Up ? tmUp : tmDn).Enabled = false;
      }
      Redraw();  // so that a hovered button shows it at once
      break;
    case Part::Thumb:
      if (e.button == MouseButton::Left && thumbHeld_) {
        MoveThumb(e);
      } else {
        Redraw();
      }
      break;
    case Part::Track:
      Redraw();
      break;
    case Part::None:
      break;
  }
}

void ctlScrollbar::OnMouseUp(const MouseEvent& e) {
  const Part part = captured_;
  captured_ = Part::None;
  switch (part) {
    case Part::Up:
    case Part::Down:
      ReleaseButton(part, e);
      break;
    case Part::Thumb:
      if (e.button == MouseButton::Left) ReleaseThumb();
      break;
    case Part::Track:
      ReleaseTrack(e);
      break;
    case Part::None:
      break;
  }
}

void ctlScrollbar::PressButton(Part part) {
  if (part == Part::Up) {
    upHeld_ = true;
    tmUp.Enabled = true;
  } else if (part == Part::Down) {
    downHeld_ = true;
    tmDn.Enabled = true;
  } else {
    return;
  }
  Redraw();
}

void ctlScrollbar::Step(double units, bool up) {
  const double step = units * pixelsPerUnit_;
  if (up) {
    const double position = thumbPos_ - step;
    thumbPos_ = position > 0 ? position : 0;
  } else {
    const double position = thumbPos_ + step;
    thumbPos_ = position < Travel() ? position : Travel();
  }
}

void ctlScrollbar::ReleaseButton(Part part, const MouseEvent& e) {
  const bool up = part == Part::Up;
  if (e.button == MouseButton::Left) {
    Step(SmallChange, up);
    if (Change) Change();
  }
  (up ? upHeld_ : downHeld_) = false;
  (up ? tmUp : tmDn).Enabled = false;
  Redraw();
  RunReleaseActions();
}

// A drag moves the thumb by PixelsPerUnit times the pointer's offset from
// where it took the thumb, so that it closes on the pointer over several
// moves, or passes it.
void ctlScrollbar::MoveThumb(const MouseEvent& e) {
  const double d = Along(e, Picture2) - dragOffset_;
  if (d < 0) {
    thumbPos_ = thumbPos_ + d > 0 ? thumbPos_ + pixelsPerUnit_ * d : 0;
    if (Scroll) Scroll();
  } else if (d > 0) {
    thumbPos_ = thumbPos_ + d < Travel() ? thumbPos_ + pixelsPerUnit_ * d : Travel();
    if (Scroll) Scroll();
  }
  Redraw();
}

void ctlScrollbar::ReleaseThumb() {
  thumbHeld_ = false;
  Redraw();
  ResumeNext([] { SeekMediaToBar(); });
  FocusPlayerVolume();
}

void ctlScrollbar::PressTrack(const MouseEvent& e) {
  const double at = Along(e, Picture4);
  const bool horizontal = Orientation != 0;
  const double start = horizontal ? Picture2.Left : Picture2.Top;
  const double end = start + (horizontal ? Picture2.Width : Picture2.Height);
  if (at < start) {
    trackUpHeld_ = true;
    tmUp2.Enabled = true;
  } else if (at > end) {
    trackDownHeld_ = true;
    tmDn2.Enabled = true;
  }
  Redraw();
}

// The thumb jumps to ten pixels before the click; the large step only decides
// whether it may. The value follows before Change is told.
void ctlScrollbar::ReleaseTrack(const MouseEvent& e) {
  if (e.button == MouseButton::Left && IsPointerOver(Picture4)) {
    const double at = Along(e, Picture4);
    const bool horizontal = Orientation != 0;
    const double start = horizontal ? Picture2.Left : Picture2.Top;
    const double end = start + (horizontal ? Picture2.Width : Picture2.Height);
    const double step = pixelsPerUnit_ * LargeChange;
    bool moved = false;
    if (trackUpHeld_ && at < start) {
      thumbPos_ = thumbPos_ - step > 0 ? at - kTrackJump : 0;
      moved = true;
    } else if (trackDownHeld_ && at > end) {
      thumbPos_ = thumbPos_ + step < Travel() ? at - kTrackJump : Travel();
      moved = true;
    }
    if (moved) {
      Redraw();
      if (Change) Change();
    }
  }
  OnAnyTrackRelease();
}

void ctlScrollbar::OnAnyTrackRelease() {
  trackUpHeld_ = false;
  trackDownHeld_ = false;
  thumbHeld_ = false;
  tmDn2.Enabled = false;
  tmUp2.Enabled = false;
  auto& p = program();
  auto& main = p.Main();
  KeepInRange(main.Volum);
  KeepInRange(main.SliderMoveMultimedia(0));
  if (MiniForm* mini = p.LoadedMiniForm()) {
    KeepInRange(mini->Volum);
    KeepInRange(mini->SliderMoveMultimedia(0));
  }
  ResumeNext([&] {
    if (p.frmBass().BassON == "True") {
      p.frmBass().VolumBass();
    } else {
      ClsMain().ChangeVolume();
    }
  });
  ResumeNext([&] {
    MiniForm* mini = p.LoadedMiniForm();
    if (!mini || !mini->Visible) return;
    main.Volum.value = mini->Volum.value;
    main.VolumChange();
  });
  RunReleaseActions();
}

// What makes the seek bar's result take effect once it is let go: a media
// file seeks to the bar, an audio file to the bar's value in bytes.
void ctlScrollbar::RunReleaseActions() {
  ResumeNext([] { SeekMediaToBar(); });
  ResumeNext([] { SeekAudioToBar(); });
}

void ctlScrollbar::TickButton(bool up, bool large) {
  const bool held = large ? (up ? trackUpHeld_ : trackDownHeld_) : (up ? upHeld_ : downHeld_);
  Timer& timer = large ? (up ? tmUp2 : tmDn2) : (up ? tmUp : tmDn);
  if (!held) {
    timer.Enabled = false;
    return;
  }
  const ScrollbarSurface& surface = large ? Picture4 : (up ? Picture1 : Picture3);
  if (IsPointerOver(surface)) {
    Step(large ? LargeChange : SmallChange, up);
    // Holding the down button moves the thumb silently; the release tells.
    if ((up || large) && Change) Change();
  }
  Redraw();
}

void ctlScrollbar::TickTracking(Timer& timer, const ScrollbarSurface& surface) {
  if (IsPointerOver(surface)) return;
  timer.Enabled = false;
  Redraw();
}

void CopyBarPictures(const ctlScrollbar& from, ctlScrollbar& to) {
  to.BackgroundPicture = from.BackgroundPicture.get();
  to.DownButtonNormal = from.DownButtonNormal.get();
  to.DownButtonHover = from.DownButtonHover.get();
  to.DownButtonDown = from.DownButtonDown.get();
  to.UpButtonNormal = from.UpButtonNormal.get();
  to.UpButtonHover = from.UpButtonHover.get();
  to.UpButtonDown = from.UpButtonDown.get();
  to.ThumbButtonNormal = from.ThumbButtonNormal.get();
  to.ThumbButtonHover = from.ThumbButtonHover.get();
  to.ThumbButtonDown = from.ThumbButtonDown.get();
}

}  // namespace yarvo
