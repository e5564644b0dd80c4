#pragma once
// A window of the program as a plain object: its controls are members named
// as the program names them, and its handlers are methods. The Qt host draws
// what the model holds (15 twips to a pixel) and forwards input to it.
//
// Forms are made by the Program on their first reference; Load runs then.
// The host calls QueryUnload and Unload when the platform closes the window.

#include <functional>
#include <string>
#include <vector>

#include "core/form/Control.h"
#include "core/form/Picture.h"
#include "core/form/Property.h"
#include "core/form/ScreenRect.h"

namespace yarvo {

enum class WindowState { Normal = 0, Minimized = 1, Maximized = 2 };

// The outline of a window: a rectangle from (0, 0) with rounded corners, in
// pixels; the window shows only inside it. Empty: the whole window shows.
struct WindowRegion {
  int width = 0;
  int height = 0;
  int radius = 0;
  bool operator==(const WindowRegion&) const = default;
};

class PictureBox;

class Form : public PropertyOwner {
  // First: the properties below, and those of subclasses, are this form's.
  OwnsLaterProperties ownership_{this};

 public:
  explicit Form(std::string name);
  Form(const Form&) = delete;
  Form& operator=(const Form&) = delete;
  virtual ~Form();

  const std::string& Name() const { return name_; }
  // Every control of the form, in the order they were made (drawing order:
  // later controls lie on top).
  const std::vector<Control*>& Controls() const { return controls_; }
  Control* FindControl(const std::string& name, int index = -1) const;

  StringField Caption;
  Property<int> Left{0};
  Property<int> Top{0};
  Property<int> Width{0};
  Property<int> Height{0};
  Property<bool> Visible{false};
  Property<bool> Enabled{true};
  Property<yarvo::WindowState> WindowState{yarvo::WindowState::Normal};
  Property<Colour> BackColor{0x8000000F};
  Property<yarvo::Picture> Icon;
  Property<yarvo::Picture> Picture;
  Property<int> MousePointer{0};
  Property<bool> AlwaysOnTop{false};
  Property<WindowRegion> Region;

  // The control that takes the keys; nullptr when the window itself has it.
  Control* ActiveControl() const { return focused_; }
  // Moves the focus: the old control's LostFocus runs, then the new one's
  // GotFocus, as the platform reports them.
  void SetFocus(Control* control);

  void Show() { Visible = true; }
  void Hide() { Visible = false; }
  void Move(int left, int top, int width, int height);

  // What changed since the host last asked: the form's own properties
  // (caption, place, visibility...) and, once each in the order they
  // changed, the controls whose properties changed and the boxes whose
  // Drawing changed. A new drawing alone leaves the rest of its box as it was.
  struct Changes {
    bool window = false;
    std::vector<Control*> controls;
    std::vector<PictureBox*> drawings;
  };
  Changes TakeChanges();
  bool Changed() const {
    return windowChanged_ || !changedControls_.empty() || !changedDrawings_.empty();
  }
  void PropertyChanged() override { windowChanged_ = true; }

  std::function<void()> Load;
  std::function<void()> Activate;
  std::function<void()> Deactivate;
  std::function<void()> Resize;  // runs when Width or Height changes
  // The program's own move or size of the window (see Desktop::DragWindow):
  // EnterSizeMove once as it starts, then Moving or Sizing at each step with
  // the rectangle the pointer asks for, which they may change; the window
  // takes the rectangle as they leave it. `edge` is 8 for the bottom right
  // corner.
  std::function<void()> EnterSizeMove;
  std::function<void(ScreenRect& rect)> Moving;
  std::function<void(ScreenRect& rect, int edge)> Sizing;
  std::function<void()> QueryUnload;
  std::function<void()> Unload;
  std::function<void(int& keyCode, int shift)> KeyDown;
  std::function<void()> DblClick;
  std::function<void(const MouseEvent&)> MouseDown;
  std::function<void(const MouseEvent&)> MouseMove;
  std::function<void(const MouseEvent&)> MouseUp;

 private:
  friend class Control;
  friend class PictureBox;
  void Register(Control* control) { controls_.push_back(control); }

  std::string name_;
  std::vector<Control*> controls_;
  Control* focused_ = nullptr;
  bool windowChanged_ = true;  // a new form is drawn whole
  std::vector<Control*> changedControls_;
  std::vector<PictureBox*> changedDrawings_;
};

}  // namespace yarvo
