#include "engines/audio/Decoder.h"

#include "engines/audio/BufferedFile.h"
#include "engines/audio/MpegDecoder.h"
#include "engines/audio/SndfileDecoder.h"

#include <algorithm>
#include <array>
#include <vector>

namespace yarvo::audio {
namespace {

// Enough for the search window and three frames of the largest kind.
constexpr std::size_t kSniffBytes = 16384;

// The bytes where the audio would start: past an ID3v2 tag, however large.
std::vector<std::uint8_t> audioHead(const std::string& path) {
  const auto file = BufferedFile::open(path);
  if (!file) return {};
  std::array<std::uint8_t, 10> tag{};
  const std::size_t skip = file->read(tag.data(), tag.size()) == 10 ? id3v2Size(tag) : 0;
  if (file->seek(static_cast<off_t>(skip), SEEK_SET) < 0) return {};
  std::vector<std::uint8_t> head(kSniffBytes);
  head.resize(static_cast<std::size_t>(std::max<ssize_t>(0, file->read(head.data(), head.size()))));
  return head;
}

// Containers that say what they are in their first four bytes go straight to
// libsndfile, so no sync pattern inside their samples is taken for MPEG.
bool hasContainerMagic(const std::vector<std::uint8_t>& head) noexcept {
  static constexpr std::array<std::array<char, 4>, 5> kMagic{{{'R', 'I', 'F', 'F'},
                                                              {'O', 'g', 'g', 'S'},
                                                              {'f', 'L', 'a', 'C'},
                                                              {'F', 'O', 'R', 'M'},
                                                              {'R', 'F', '6', '4'}}};
  if (head.size() < 4) return false;
  for (const auto& magic : kMagic) {
    if (std::equal(magic.begin(), magic.end(), head.begin(),
                   [](char m, std::uint8_t b) { return static_cast<std::uint8_t>(m) == b; }))
      return true;
  }
  return false;
}

}  // namespace

std::unique_ptr<Decoder> openStreamDecoder(const std::string& path) {
  const std::vector<std::uint8_t> head = audioHead(path);
  if (head.empty()) return nullptr;
  if (hasContainerMagic(head)) return openSndfileDecoder(path);
  if (const int layer = sniffMpegLayer(head); layer != 0) return openMpegDecoder(path, layer);
  return openSndfileDecoder(path);
}

}  // namespace yarvo::audio
