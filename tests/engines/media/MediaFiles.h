#pragma once

#include <filesystem>

#include "support/TempDir.h"

namespace yarvo::test {

// Media made with ffmpeg in a temporary folder, once per test run, removed
// at exit. Generation failures fail the first test that asks.
class MediaFiles {
 public:
  static const MediaFiles& get();

  bool ready() const { return ready_; }
  const std::filesystem::path& folder() const { return folder_.path(); }
  // 4 s of 320x240 pictures at 25 fps with a tone; the name has blanks.
  std::filesystem::path video() const { return folder_.path() / "test clip 320 x 240.avi"; }
  // 3 s of a stereo tone, no picture.
  std::filesystem::path audio() const { return folder_.path() / "tone.flac"; }
  // 2 s of a tone with a cover picture, as music files carry them.
  std::filesystem::path withCover() const { return folder_.path() / "tone with cover.flac"; }
  // Text under a media name.
  std::filesystem::path broken() const { return folder_.path() / "not a movie.avi"; }

 private:
  MediaFiles();

  TempDir folder_;
  bool ready_ = false;
};

}  // namespace yarvo::test
