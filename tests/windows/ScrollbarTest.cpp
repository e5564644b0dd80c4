// The slider control's arithmetic and its states, driven through the model
// with the manual clock and a pointer that the test places.

#include <gtest/gtest.h>

#include <memory>

#include "core/form/Twips.h"
#include "director/Program.h"
#include "support/ProgramFixture.h"
#include "windows/Main.h"

namespace yarvo {
namespace {

// A picture of a size, as the skin gives one.
Picture Sized(int width, int height) {
  auto image = std::make_shared<Image>();
  image->width = width;
  image->height = height;
  image->argb.assign(static_cast<std::size_t>(width * height), 0xFF808080u);
  return Picture(std::move(image), "");
}

class Scrollbar : public test::ProgramFixture {
 protected:
  void SetUp() override {
    Start();
    // The seek bar, 209 pixels long: 17-pixel buttons and thumb leave the
    // thumb 158 pixels to travel, one pixel a unit at max 158.
    bar().max = 158;
    bar().value = 0;
    bar().Change = [this] { ++changes; };
    bar().Scroll = [this] { ++scrolls; };
  }

  ctlScrollbar& bar() { return P().Main().SliderMoveMultimedia(0); }

  // The pointer at (x, y) pixels inside a surface of `b`; over the window.
  void PointAt(ctlScrollbar& b, const ScrollbarSurface& s, int x = 2, int y = 2) {
    const Form& form = b.Owner();
    int left = (form.Left + b.FormLeft()) / kTwipsPerPixel + s.Left + x;
    int top = (form.Top + b.FormTop()) / kTwipsPerPixel + s.Top + y;
    if (&s == &b.Picture2) {
      left += b.Picture4.Left;
      top += b.Picture4.Top;
    }
    desktop.cursor = {left, top};
    desktop.formUnderCursor = &form;
  }
  void PointAway() { desktop.formUnderCursor = nullptr; }

  // A mouse event at (x, y) pixels inside a surface of `b`.
  static MouseEvent At(ctlScrollbar& b, const ScrollbarSurface& s, double x, double y = 2,
                       MouseButton button = MouseButton::Left) {
    MouseEvent e;
    e.button = button;
    e.x = (s.Left + x + (&s == &b.Picture2 ? b.Picture4.Left : 0)) * kTwipsPerPixel;
    e.y = (s.Top + y + (&s == &b.Picture2 ? b.Picture4.Top : 0)) * kTwipsPerPixel;
    return e;
  }

  int changes = 0;
  int scrolls = 0;
};

TEST_F(Scrollbar, ValueIsClampedAndMovesInWholeUnitsThroughTheThumb) {
  EXPECT_DOUBLE_EQ(bar().PixelsPerUnit(), 1.0);
  bar().value = 500;
  EXPECT_EQ(bar().value, 158.0) << "above max stores max";
  EXPECT_DOUBLE_EQ(bar().ThumbPos(), 158.0);
  bar().value = 37;
  EXPECT_EQ(bar().value, 37.0) << "a whole number survives the redraw";
  EXPECT_EQ(bar().Picture2.Left.get(), 37);
  bar().value = 37.5;
  EXPECT_EQ(bar().value, 38.0) << "the redraw counts whole units from the thumb";
  EXPECT_EQ(changes + scrolls, 0) << "setting the value tells nobody";
  bar().max = 0;
  EXPECT_EQ(bar().value, 38.0) << "no range: the value keeps what it held";
}

TEST_F(Scrollbar, HoldingTheDownButtonMovesSilentlyAndTellsOnceOnRelease) {
  bar().value = 50;
  PointAt(bar(), bar().Picture3);
  bar().MouseDown(At(bar(), bar().Picture3, 2));
  clock.Advance(300);
  EXPECT_DOUBLE_EQ(bar().ThumbPos(), 53.0) << "a step each 100 ms";
  EXPECT_EQ(changes, 0);
  bar().MouseUp(At(bar(), bar().Picture3, 2));
  EXPECT_DOUBLE_EQ(bar().ThumbPos(), 54.0) << "the release steps once more";
  EXPECT_EQ(changes, 1);
  clock.Advance(300);
  EXPECT_DOUBLE_EQ(bar().ThumbPos(), 54.0) << "let go, the timer stops";

  // The up button tells at every step.
  PointAt(bar(), bar().Picture1);
  bar().MouseDown(At(bar(), bar().Picture1, 2));
  clock.Advance(300);
  EXPECT_DOUBLE_EQ(bar().ThumbPos(), 51.0);
  EXPECT_EQ(changes, 4);
  // Moved off the button with the button held: the flag stays, the steps
  // wait for the pointer to come back.
  PointAway();
  clock.Advance(300);
  EXPECT_DOUBLE_EQ(bar().ThumbPos(), 51.0);
  PointAt(bar(), bar().Picture1);
  clock.Advance(100);
  EXPECT_DOUBLE_EQ(bar().ThumbPos(), 50.0);
  bar().MouseUp(At(bar(), bar().Picture1, 2, 2, MouseButton::Right));
  EXPECT_DOUBLE_EQ(bar().ThumbPos(), 50.0) << "another button's release takes no step";
}

// The thumb jumps to ten pixels before a click in the track; the large step
// only decides whether it may jump or must go to the start.
TEST_F(Scrollbar, AClickInTheTrackPutsTheThumbTenPixelsBeforeIt) {
  double told = 1000;
  bar().Change = [&] { told = bar().ThumbPos(); };
  for (const auto& [largeChange, jumpedTo] : {std::pair{1.0, -7.0}, {60.0, 0.0}}) {
    SCOPED_TRACE(largeChange);
    bar().LargeChange = largeChange;
    bar().value = 50;
    PointAt(bar(), bar().Picture4, 3);
    bar().MouseDown(At(bar(), bar().Picture4, 3));
    bar().MouseUp(At(bar(), bar().Picture4, 3));
    EXPECT_DOUBLE_EQ(told, jumpedTo) << "where the click put the thumb";
    EXPECT_EQ(bar().value, 0.0) << "the release keeps the seek bar in range";
    EXPECT_DOUBLE_EQ(bar().ThumbPos(), 0.0);
  }
}

TEST_F(Scrollbar, ADragMovesTheThumbByPixelsPerUnitTimesThePointersWay) {
  auto& volume = P().Main().Volum;  // 93 pixels: 42 to travel for 100 units
  volume.Scroll = [this] { ++scrolls; };
  volume.value = 50;
  const double start = volume.ThumbPos();
  EXPECT_DOUBLE_EQ(start, 21.0);
  volume.MouseDown(At(volume, volume.Picture2, 5));
  volume.MouseMove(At(volume, volume.Picture2, 15));
  EXPECT_DOUBLE_EQ(volume.ThumbPos(), start + 0.42 * 10) << "closes on the pointer slowly";
  EXPECT_EQ(scrolls, 1);
  volume.MouseMove(At(volume, volume.Picture2, 5));
  EXPECT_EQ(scrolls, 1) << "the pointer where it took the thumb: no Scroll";
  volume.MouseMove(At(volume, volume.Picture2, -200));
  EXPECT_DOUBLE_EQ(volume.ThumbPos(), 0.0) << "the start stops it";
  volume.MouseUp(At(volume, volume.Picture2, -200));
  EXPECT_EQ(volume.value, 0.0);
}

TEST_F(Scrollbar, PicturesSizeTheButtonsAndTheHoverLookLastsWhileThePointerStays) {
  auto& volume = P().Main().Volum;
  volume.UpButtonNormal = Sized(7, 17);
  volume.UpButtonHover = Sized(8, 17);
  volume.DownButtonNormal = Sized(7, 17);
  volume.ThumbButtonNormal = Sized(13, 17);
  volume.value = 0;
  EXPECT_EQ(volume.Picture1.Width.get(), 7);
  EXPECT_EQ(volume.Picture4.Left.get(), 7);
  EXPECT_EQ(volume.Picture3.Left.get(), 93 - 7);
  EXPECT_DOUBLE_EQ(volume.Travel(), 93 - 7 - 7 - 13);
  PointAt(volume, volume.Picture1);
  volume.Redraw();
  EXPECT_EQ(volume.Picture1.Shown.get(), volume.UpButtonHover.get());
  EXPECT_TRUE(volume.Tracking1.Enabled.get()) << "a timer watches the pointer";
  PointAway();
  clock.Advance(5);
  EXPECT_FALSE(volume.Tracking1.Enabled.get());
  EXPECT_EQ(volume.Picture1.Shown.get(), volume.UpButtonNormal.get());
}

}  // namespace
}  // namespace yarvo
