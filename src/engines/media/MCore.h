#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/WindowGeometry.h"

namespace yarvo {

// The media engine: each operation builds one command of the media command
// service, sends it and turns the outcome into text or a number.
//
// Command operations return "Success" or the service's English error text.
// Queries return a number, or -1 when the service refused. Positions and
// lengths are in frames (see MciDevice for what a frame is). Interface
// thread only; the calls block until the service has done the work.

// Opens `file` under `alias`, its picture drawn into `window`. A name that is
// not an existing file reaches the service as an empty name and fails.
std::string MciOpen(NativeWindow window, std::string_view alias, std::string_view file,
                    std::string_view deviceType);
// Plays from `from` to `to`, in frames; "" means the start and the end.
std::string MciPlay(std::string_view alias, std::string_view from, std::string_view to);
std::string MciClose(std::string_view alias);
std::string MciPause(std::string_view alias);
std::string MciStop(std::string_view alias);
std::string MciResume(std::string_view alias);
std::string MciCloseAll();
// Seeks to `position` and plays on; the result is that of the seek.
std::string MciSeekPlay(std::string_view alias, std::int32_t position);
// `volume` 0 to 100, else "out of volume" and nothing is sent. `channel`
// "left" or "right" (any case) sets one side; anything else sets both.
std::string MciSetVolume(std::string_view alias, std::string_view channel, std::int32_t volume);
// Places the picture at x, y with the given size, in pixels of `window`; a
// width or height of 0 takes the size of `window` instead.
std::string MciPutWindow(NativeWindow window, std::string_view alias, std::int32_t x,
                         std::int32_t y, std::int32_t width, std::int32_t height);
// "playing", "paused", "stopped", or "ERROR".
std::string MciStatusMode(std::string_view alias);
// Leaves the time format at frames.
std::int32_t MciLengthFrames(std::string_view alias);
// Length in milliseconds; leaves the time format at frames.
std::int32_t MciLengthMs(std::string_view alias);
std::int32_t MciPosition(std::string_view alias);
// Playing speed in percent: 100 is the media's own pace.
std::int32_t MciSpeed(std::string_view alias);
// Width ("cx") or height ("cy") of the picture in pixels; -1 for anything
// else, and for media without a picture.
std::int32_t MciWhereDestination(std::string_view alias, std::string_view dimension);
// Position as a whole percent of the length.
std::int32_t MciPercent(std::string_view alias);
std::int32_t MciFramesPerSecond(std::string_view alias);
// The media driver named `key` in the driver table, "None" when absent.
std::string MciReadDriver(std::string_view key);
// Writes a driver entry; a refused write is silent.
void MciWriteDriver(std::string_view key, std::string_view value);

// Where MciPutWindow learns a window's size. Not owned; must outlive its use;
// nullptr (the default) leaves a width or height of 0 at 0.
void setMciWindowGeometry(const WindowGeometry* geometry);
// The driver table's file; empty goes back to systemIniPath().
void setMciDriverFile(std::filesystem::path file);

}  // namespace yarvo
