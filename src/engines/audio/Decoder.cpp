#include "engines/audio/Decoder.h"

#include "engines/audio/MpegDecoder.h"
#include "engines/audio/SndfileDecoder.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <vector>

namespace yarvo::audio {
namespace {

// Enough for the search window and three frames of the largest kind.
constexpr std::size_t kSniffBytes = 16384;

// The bytes where the audio would start: past an ID3v2 tag, however large.
std::vector<std::uint8_t> audioHead(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  if (!in) return {};
  std::array<std::uint8_t, 10> tag{};
  in.read(reinterpret_cast<char*>(tag.data()), tag.size());
  const std::size_t skip = in.gcount() == 10 ? id3v2Size(tag) : 0;
  in.clear();
  in.seekg(static_cast<std::streamoff>(skip));
  std::vector<std::uint8_t> head(kSniffBytes);
  in.read(reinterpret_cast<char*>(head.data()), static_cast<std::streamsize>(head.size()));
  head.resize(static_cast<std::size_t>(in.gcount()));
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
