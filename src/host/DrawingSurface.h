#pragma once
// A child window that shows what the program draws on a picture box many
// times a second: the visualisation's 40 frames. Each frame goes to the X
// server as one image request. Through the window's backing store the same
// frame would be painted, composed and copied again, and that costs more than
// drawing it in the first place.
//
// The window covers the drawing only; the box's own picture and back colour
// around it are painted with the rest of the form. It takes no input: the
// pointer's presses and moves go to the form beneath.

#include <xcb/xcb.h>
#include <QWidget>

#include <cstdint>
#include <memory>
#include <vector>

#include "core/form/Picture.h"

namespace yarvo {

class DrawingSurface final : public QWidget {
 public:
  // A surface over `parent`, or null where the windows are not X windows of
  // 32-bit red, green, blue pixels: the backing store draws there instead.
  static std::unique_ptr<DrawingSurface> Make(QWidget* parent);
  ~DrawingSurface() override;

  void Show(std::shared_ptr<const IndexedImage> image, const QPoint& offset);

  QPaintEngine* paintEngine() const override { return nullptr; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  DrawingSurface(QWidget* parent, xcb_connection_t* connection);
  void Put();

  xcb_connection_t* connection_;
  xcb_gcontext_t gc_ = 0;
  std::uint8_t depth_ = 0;
  std::shared_ptr<const IndexedImage> image_;
  // Where the drawing's top left corner lies in the window: a container
  // that cuts the box at the left or top moves it out.
  QPoint offset_;
  std::vector<std::uint32_t> words_;
};

}  // namespace yarvo
