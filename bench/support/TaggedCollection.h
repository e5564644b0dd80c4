#pragma once
// A collection of small tagged files in a temporary folder, and the floor any
// reader of their tags is measured against: open, seek to 128 bytes before
// the end, read, close.

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "playlist/Id3Tag.h"

namespace yarvo::bench {

class TaggedCollection {
 public:
  // `count` files of 4 KiB audio-like bytes and a tag by `tagOf(k)`.
  template <typename TagOf>
  TaggedCollection(int count, TagOf tagOf) {
    std::string pattern =
        (std::filesystem::temp_directory_path() / "yarvo-collection-XXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr) std::abort();
    folder_ = pattern;
    std::vector<char> bytes(kAudioBytes + kId3TagSize, '\x55');
    for (int k = 0; k < count; ++k) {
      const Id3TagBytes tag = id3TagBytes(tagOf(k));
      std::copy(tag.begin(), tag.end(), bytes.end() - kId3TagSize);
      paths_.push_back((folder_ / ("track " + std::to_string(k) + ".mp3")).string());
      std::ofstream(paths_.back(), std::ios::binary)
          .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    }
    // Reads measured while the kernel still writes the files back would
    // compete with that writing for the same cores.
    ::sync();
  }
  TaggedCollection(const TaggedCollection&) = delete;
  TaggedCollection& operator=(const TaggedCollection&) = delete;
  ~TaggedCollection() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
  }

  const std::vector<std::string>& paths() const { return paths_; }

 private:
  static constexpr std::size_t kAudioBytes = 4096;

  std::filesystem::path folder_;
  std::vector<std::string> paths_;
};

// The floor: the last 128 bytes of each file with plain calls; returns the
// number of files read whole.
inline int readLast128Bytes(const std::vector<std::string>& paths) {
  int read = 0;
  std::array<char, kId3TagSize> buffer{};
  for (const auto& path : paths) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0) continue;
    if (::lseek(fd, -static_cast<off_t>(kId3TagSize), SEEK_END) >= 0 &&
        ::read(fd, buffer.data(), buffer.size()) == static_cast<ssize_t>(buffer.size()))
      ++read;
    ::close(fd);
  }
  return read;
}

}  // namespace yarvo::bench
