#pragma once

#include <filesystem>

namespace yarvo::test {

// Media made with ffmpeg in a temporary folder, once per test run, removed
// at exit. Generation failures fail the first test that asks.
class MediaFiles {
 public:
  static const MediaFiles& get();

  MediaFiles(const MediaFiles&) = delete;
  MediaFiles& operator=(const MediaFiles&) = delete;
  ~MediaFiles();

  bool ready() const { return ready_; }
  const std::filesystem::path& folder() const { return folder_; }
  // 4 s of 320x240 pictures at 25 fps with a tone; the name has blanks.
  std::filesystem::path video() const { return folder_ / "test clip 320 x 240.avi"; }
  // 3 s of a stereo tone, no picture.
  std::filesystem::path audio() const { return folder_ / "tone.flac"; }
  // 2 s of a tone with a cover picture, as music files carry them.
  std::filesystem::path withCover() const { return folder_ / "tone with cover.flac"; }
  // Text under a media name.
  std::filesystem::path broken() const { return folder_ / "not a movie.avi"; }

 private:
  MediaFiles();

  std::filesystem::path folder_;
  bool ready_ = false;
};

}  // namespace yarvo::test
