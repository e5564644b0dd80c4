#pragma once

// Every option, property and command name of libmpv that the media service
// uses, in one place.
namespace yarvo::mpvname {

// Options, set before the player starts.
inline constexpr const char* kVideoOutput = "vo";
inline constexpr const char* kAudioOutput = "ao";
inline constexpr const char* kAudioFallbackToNull = "audio-fallback-to-null";
inline constexpr const char* kWindowId = "wid";
inline constexpr const char* kKeepOpen = "keep-open";
inline constexpr const char* kIdle = "idle";
inline constexpr const char* kInputDefaultBindings = "input-default-bindings";
inline constexpr const char* kInputVoKeyboard = "input-vo-keyboard";
inline constexpr const char* kInputCursor = "input-cursor";
inline constexpr const char* kOsc = "osc";
inline constexpr const char* kTerminal = "terminal";
inline constexpr const char* kConfig = "config";
inline constexpr const char* kResumePlayback = "resume-playback";
inline constexpr const char* kLoadScripts = "load-scripts";
inline constexpr const char* kYtdl = "ytdl";
inline constexpr const char* kLoadStatsOverlay = "load-stats-overlay";
inline constexpr const char* kLoadOsdConsole = "load-osd-console";
inline constexpr const char* kLoadAutoProfiles = "load-auto-profiles";

// Properties.
inline constexpr const char* kDuration = "duration";
inline constexpr const char* kTimePos = "time-pos";
inline constexpr const char* kPause = "pause";
inline constexpr const char* kContainerFps = "container-fps";
inline constexpr const char* kEstimatedVfFps = "estimated-vf-fps";
inline constexpr const char* kDisplayWidth = "dwidth";
inline constexpr const char* kDisplayHeight = "dheight";
inline constexpr const char* kEofReached = "eof-reached";
inline constexpr const char* kVideoTrack = "vid";
inline constexpr const char* kPlaybackEnd = "end";
inline constexpr const char* kVolume = "volume";
inline constexpr const char* kSpeed = "speed";
inline constexpr const char* kAudioFilters = "af";
inline constexpr const char* kTrackCount = "track-list/count";
// Per-track fields, read as "track-list/<index>/<field>".
inline constexpr const char* kTrackList = "track-list";
inline constexpr const char* kTrackType = "type";
inline constexpr const char* kTrackSelected = "selected";
inline constexpr const char* kTrackAlbumArt = "albumart";

// Values.
inline constexpr const char* kYes = "yes";
inline constexpr const char* kNo = "no";
inline constexpr const char* kNullOutput = "null";
// Outputs that draw into a given window: OpenGL first, plain X11 where only a
// software renderer exists (mpv's own choice would then take SDL, which
// opens a window of its own).
inline constexpr const char* kEmbeddedVideoOutputs = "gpu,x11";
inline constexpr const char* kNone = "none";
inline constexpr const char* kVideoTrackType = "video";

// Commands.
inline constexpr const char* kLoadFile = "loadfile";
inline constexpr const char* kSeek = "seek";
inline constexpr const char* kSeekAbsoluteExact = "absolute+exact";

}  // namespace yarvo::mpvname
