// Controls, control arrays, option groups and the run-time error guard.

#include <gtest/gtest.h>

#include "core/form/CheckBox.h"
#include "core/form/ControlArray.h"
#include "core/form/Form.h"
#include "core/form/Label.h"
#include "core/form/OptionButton.h"
#include "core/form/PictureBox.h"
#include "core/form/RuntimeError.h"
#include "core/form/TextBox.h"

namespace yarvo {
namespace {

struct ProbeForm : Form {
  ProbeForm() : Form("Probe") {}
  ControlArray<Label> Lb{this, "Lb", 1, std::string("first")};
  Label Caption1{this, "Caption1", "x"};
  TextBox Box{this, "Box"};
  CheckBox Check{this, "Check", "c", 0};
  OptionGroup Group;
  OptionButton A{this, "A", "a", Group, true};
  OptionButton B{this, "B", "b", Group, false};
  OptionButton C{this, "C", "c", Group, false};
  PictureBox Surface{this, "Surface"};
};

TEST(FormModel, ChangeHandlersRunOnlyWhenTheValueChanges) {
  ProbeForm form;
  int changes = 0;
  form.Caption1.Change = [&] { ++changes; };
  form.Caption1.Caption = "x";
  form.Caption1.Caption = "y";
  form.Caption1.Caption = "y";
  EXPECT_EQ(changes, 1);

  int clicks = 0;
  form.Check.Click = [&] { ++clicks; };
  form.Check.Value = 1;
  form.Check.Value = 1;
  form.Check.Value = 0;
  EXPECT_EQ(clicks, 2);
}

// A frame drawn on a box is told apart from the box's own changes, so that
// the host can show the frame without repainting the box; a new picture
// takes the drawing away, and both are told.
TEST(FormModel, ANewDrawingIsToldApartFromTheBoxsOtherChanges) {
  ProbeForm form;
  form.TakeChanges();
  form.Surface.Drawing = std::make_shared<IndexedImage>();
  form.Surface.Drawing = std::make_shared<IndexedImage>();
  EXPECT_TRUE(form.Changed());
  Form::Changes changes = form.TakeChanges();
  EXPECT_EQ(changes.drawings, std::vector<PictureBox*>{&form.Surface});
  EXPECT_TRUE(changes.controls.empty());
  EXPECT_FALSE(form.Changed());

  form.Surface.Picture = Picture(std::make_shared<Image>(), "idle.bmp");
  changes = form.TakeChanges();
  EXPECT_EQ(form.Surface.Drawing.get(), nullptr);
  EXPECT_EQ(changes.drawings, std::vector<PictureBox*>{&form.Surface});
  EXPECT_EQ(changes.controls, std::vector<Control*>{&form.Surface});
}

TEST(FormModel, SettingAnOptionTurnsItsGroupOffAndClicksOnlyItself) {
  ProbeForm form;
  std::string clicked;
  form.A.Click = [&] { clicked += "A"; };
  form.B.Click = [&] { clicked += "B"; };
  form.C.Click = [&] { clicked += "C"; };
  form.C.Value = true;
  EXPECT_FALSE(form.A.Value);
  EXPECT_TRUE(form.C.Value);
  form.B.Value = true;
  EXPECT_FALSE(form.C.Value);
  EXPECT_EQ(clicked, "CB");
}

TEST(FormModel, TextBoxEndsItsTextAtTheFirstZeroByte) {
  ProbeForm form;
  form.Box.SetText(std::string("Artist\0\0padding", 15));
  EXPECT_EQ(form.Box.Text.get(), "Artist");
}

TEST(FormModel, ControlArrayHasOnlyItsElementsAndResumeNextSkipsAFailedStatement) {
  ProbeForm form;
  EXPECT_EQ(form.Lb(0).Caption.get(), "first");
  EXPECT_THROW(form.Lb(1), RuntimeError);
  EXPECT_THROW(form.Lb(-1), RuntimeError);
  EXPECT_EQ(form.FindControl("Lb", 0), &form.Lb(0));
  EXPECT_EQ(form.FindControl("Caption1"), &form.Caption1);
  int reached = 0;
  ResumeNext([&] {
    form.Lb(2).Caption = "never";
    ++reached;
  });
  ResumeNext([&] { ++reached; });
  EXPECT_EQ(reached, 1);
  EXPECT_THROW(ResumeNext([] { throw ProcessEnd{3}; }), ProcessEnd)
      << "but not the end of the program";
}

}  // namespace
}  // namespace yarvo
