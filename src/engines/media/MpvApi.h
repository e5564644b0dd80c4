#pragma once
// libmpv's functions, from the library opened at the first media that needs
// it rather than at the player's start.

#include <mpv/client.h>

namespace yarvo {

// clang-format off
#define YARVO_MPV_FUNCTIONS(F) \
  F(mpv_create) \
  F(mpv_initialize) \
  F(mpv_terminate_destroy) \
  F(mpv_command) \
  F(mpv_free) \
  F(mpv_get_property) \
  F(mpv_set_property) \
  F(mpv_set_property_string) \
  F(mpv_set_option) \
  F(mpv_set_option_string) \
  F(mpv_wait_event)
// clang-format on

struct MpvApi {
#define YARVO_POINTER(name) decltype(&::name) name = nullptr;
  YARVO_MPV_FUNCTIONS(YARVO_POINTER)
#undef YARVO_POINTER
};

// The functions, or null when libmpv cannot be opened. The library is
// opened once and stays open.
const MpvApi* Mpv();

}  // namespace yarvo
