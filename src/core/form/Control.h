#pragma once
// The part every control of a form model has: its name, its place in twips
// (15 to a pixel), visibility, colours and the input events the host forwards.

#include <functional>
#include <string>
#include <vector>

#include "core/form/Picture.h"
#include "core/form/Property.h"

namespace yarvo {

class Form;

enum class MouseButton { None = 0, Left = 1, Right = 2, Middle = 4 };

// A pointer event; x and y are twips relative to the control.
struct MouseEvent {
  MouseButton button = MouseButton::None;
  int shift = 0;  // 1 Shift, 2 Ctrl, 4 Alt
  double x = 0;
  double y = 0;
};

class Control : public PropertyOwner {
  // First: the properties below, and those of subclasses, are this control's.
  OwnsLaterProperties ownership_{this};

 public:
  // Registers the control with its form, which lists it for the host.
  Control(Form* owner, std::string name, int index = -1);
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;
  virtual ~Control() = default;

  const std::string& Name() const { return name_; }
  int Index() const { return index_; }  // -1 when not in a control array
  Form& Owner() const { return *owner_; }

  Property<int> Left{0};
  Property<int> Top{0};
  Property<int> Width{0};
  Property<int> Height{0};
  Property<bool> Visible{true};
  Property<bool> Enabled{true};
  Property<Colour> ForeColor{0x000000};
  Property<Colour> BackColor{0xFFFFFF};
  StringField ToolTipText;
  Property<int> MousePointer{0};
  // The text's font: the desktop's sans-serif face at this size in points.
  Property<int> FontSize{8};
  // A face other than that one. Marlett is the symbol font whose letters are
  // the window system's small pictures; its "o" is the size grip.
  StringField FontName;
  Property<bool> FontBold{false};

  void Move(int left, int top, int width, int height);

  // The frame or picture box the control stands in: its Left and Top count
  // from that container's top left corner, it shows only inside it and only
  // while it shows. nullptr for the form itself.
  Control* Container() const { return container_; }
  void SetContainer(Control* container);
  // Left and Top from the form's top left corner, through the containers.
  int FormLeft() const;
  int FormTop() const;
  // Whether the control shows: it and every container visible.
  bool Shown() const;

  // Marks the control changed for the host (see Form::TakeChanges).
  void PropertyChanged() override;
  // Gives this control the keyboard focus of its form.
  void SetFocus();
  bool Contains(double x, double y) const;

  std::function<void()> Click;
  std::function<void()> DblClick;
  std::function<void(const MouseEvent&)> MouseDown;
  std::function<void(const MouseEvent&)> MouseMove;
  std::function<void(const MouseEvent&)> MouseUp;
  std::function<void(int& keyCode, int shift)> KeyDown;
  std::function<void(int& keyCode, int shift)> KeyUp;
  std::function<void()> GotFocus;
  std::function<void()> LostFocus;

  // Files dropped from the file manager: local paths in the manager's order,
  // y in twips from the control's top. The host offers a drop only to a
  // control that AcceptsFiles, and only a drag of local files.
  bool AcceptsFiles = false;
  std::function<void(const std::vector<std::string>& paths, double y)> FilesDropped;

 private:
  friend class Form;

  Form* owner_;
  std::string name_;
  int index_;
  Control* container_ = nullptr;
  bool changed_ = false;
};

}  // namespace yarvo
