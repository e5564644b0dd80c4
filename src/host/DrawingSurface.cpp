#include "host/DrawingSurface.h"

#include <QGuiApplication>

#include <bit>
#include <cstdlib>

namespace yarvo {

namespace {

template <typename Reply>
using ReplyPtr = std::unique_ptr<Reply, decltype(&std::free)>;

const xcb_visualtype_t* FindVisual(const xcb_setup_t* setup, xcb_visualid_t id) {
  for (auto screen = xcb_setup_roots_iterator(setup); screen.rem; xcb_screen_next(&screen)) {
    for (auto depth = xcb_screen_allowed_depths_iterator(screen.data); depth.rem;
         xcb_depth_next(&depth)) {
      for (auto visual = xcb_depth_visuals_iterator(depth.data); visual.rem;
           xcb_visualtype_next(&visual)) {
        if (visual.data->visual_id == id) return visual.data;
      }
    }
  }
  return nullptr;
}

bool ThirtyTwoBitsAPixel(const xcb_setup_t* setup, std::uint8_t depth) {
  for (auto format = xcb_setup_pixmap_formats_iterator(setup); format.rem;
       xcb_format_next(&format)) {
    if (format.data->depth == depth) return format.data->bits_per_pixel == 32;
  }
  return false;
}

// The window's depth when its pixels are words of 0x00RRGGBB in this
// machine's byte order, else 0.
std::uint8_t WordDepth(xcb_connection_t* connection, xcb_window_t window) {
  const xcb_setup_t* setup = xcb_get_setup(connection);
  const bool sameOrder = (setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST) ==
                         (std::endian::native == std::endian::little);
  ReplyPtr<xcb_get_window_attributes_reply_t> attributes(
      xcb_get_window_attributes_reply(connection, xcb_get_window_attributes(connection, window),
                                      nullptr),
      &std::free);
  ReplyPtr<xcb_get_geometry_reply_t> geometry(
      xcb_get_geometry_reply(connection, xcb_get_geometry(connection, window), nullptr),
      &std::free);
  if (!sameOrder || !attributes || !geometry) return 0;
  const xcb_visualtype_t* visual = FindVisual(setup, attributes->visual);
  const bool rgb = visual && visual->_class == XCB_VISUAL_CLASS_TRUE_COLOR &&
                   visual->red_mask == 0xFF0000 && visual->green_mask == 0xFF00 &&
                   visual->blue_mask == 0xFF;
  return rgb && ThirtyTwoBitsAPixel(setup, geometry->depth) ? geometry->depth : 0;
}

}  // namespace

std::unique_ptr<DrawingSurface> DrawingSurface::Make(QWidget* parent) {
  const auto* x11 = qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
  if (!x11 || !x11->connection()) return nullptr;
  std::unique_ptr<DrawingSurface> surface(new DrawingSurface(parent, x11->connection()));
  const auto window = static_cast<xcb_window_t>(surface->winId());
  surface->depth_ = WordDepth(surface->connection_, window);
  if (surface->depth_ == 0) return nullptr;
  surface->gc_ = xcb_generate_id(surface->connection_);
  const std::uint32_t noExposures = 0;
  xcb_create_gc(surface->connection_, surface->gc_, window, XCB_GC_GRAPHICS_EXPOSURES,
                &noExposures);
  return surface;
}

DrawingSurface::DrawingSurface(QWidget* parent, xcb_connection_t* connection)
    : QWidget(parent), connection_(connection) {
  setAttribute(Qt::WA_NativeWindow);
  setAttribute(Qt::WA_DontCreateNativeAncestors);
  setAttribute(Qt::WA_PaintOnScreen);
  setAttribute(Qt::WA_NoSystemBackground);
  setAttribute(Qt::WA_OpaquePaintEvent);
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

DrawingSurface::~DrawingSurface() {
  if (gc_ != 0) xcb_free_gc(connection_, gc_);
}

void DrawingSurface::Show(std::shared_ptr<const IndexedImage> image, const QPoint& offset) {
  if (image == image_ && offset == offset_) return;
  image_ = std::move(image);
  offset_ = offset;
  Put();
}

// Uncovered again: the server kept nothing of what was there.
void DrawingSurface::paintEvent(QPaintEvent*) { Put(); }

void DrawingSurface::Put() {
  if (!image_ || image_->width <= 0 || image_->height <= 0) return;
  const auto width = static_cast<std::size_t>(image_->width);
  const auto height = static_cast<std::size_t>(image_->height);
  if (image_->pixels.size() < width * height) return;
  const std::size_t bytes = width * height * sizeof(std::uint32_t);
  // One request carries the frame; the server takes so much and no more.
  if (bytes + 24 > std::size_t{xcb_get_maximum_request_length(connection_)} * 4) return;
  words_.resize(width * height);
  // Stored bottom row first; the server takes the top row first.
  for (std::size_t row = 0; row < height; ++row) {
    const std::uint8_t* from = image_->pixels.data() + (height - 1 - row) * width;
    std::uint32_t* to = words_.data() + row * width;
    for (std::size_t x = 0; x < width; ++x) to[x] = 0xFF000000u | image_->palette[from[x]];
  }
  xcb_put_image(connection_, XCB_IMAGE_FORMAT_Z_PIXMAP, static_cast<xcb_window_t>(winId()), gc_,
                static_cast<std::uint16_t>(width), static_cast<std::uint16_t>(height),
                static_cast<std::int16_t>(offset_.x()), static_cast<std::int16_t>(offset_.y()), 0,
                depth_, static_cast<std::uint32_t>(bytes),
                reinterpret_cast<const std::uint8_t*>(words_.data()));
  xcb_flush(connection_);
}

}  // namespace yarvo
