#include "engines/media/X11Window.h"

#include <xcb/xcb.h>

#include <cstdlib>
#include <limits>
#include <memory>

namespace yarvo {
namespace {

struct Disconnect {
  void operator()(xcb_connection_t* connection) const { xcb_disconnect(connection); }
};

struct FreeReply {
  void operator()(void* reply) const { std::free(reply); }
};

}  // namespace

bool isLiveX11Window(std::uint64_t window) {
  if (window == 0 || window > std::numeric_limits<xcb_window_t>::max()) {
    return false;
  }
  // xcb_connect always returns a connection object; a failed one reports
  // an error and must still be freed.
  std::unique_ptr<xcb_connection_t, Disconnect> connection(xcb_connect(nullptr, nullptr));
  if (xcb_connection_has_error(connection.get()) != 0) {
    return false;
  }
  const auto cookie =
      xcb_get_window_attributes(connection.get(), static_cast<xcb_window_t>(window));
  xcb_generic_error_t* error = nullptr;
  std::unique_ptr<xcb_get_window_attributes_reply_t, FreeReply> reply(
      xcb_get_window_attributes_reply(connection.get(), cookie, &error));
  std::unique_ptr<xcb_generic_error_t, FreeReply> ownedError(error);
  return reply != nullptr && error == nullptr;
}

}  // namespace yarvo
