#include "PngFile.h"

#include <zlib.h>

#include <cstdint>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace yarvo::test {

namespace {

void PutBigEndian(std::vector<std::uint8_t>& out, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8)
    out.push_back(static_cast<std::uint8_t>(value >> shift));
}

// A chunk: length, type, data, and the CRC of type and data.
void PutChunk(std::vector<std::uint8_t>& out, const char* type,
              const std::vector<std::uint8_t>& data) {
  PutBigEndian(out, static_cast<std::uint32_t>(data.size()));
  const std::size_t typeAt = out.size();
  out.insert(out.end(), type, type + 4);
  out.insert(out.end(), data.begin(), data.end());
  const uLong crc = crc32(0L, out.data() + typeAt, static_cast<uInt>(out.size() - typeAt));
  PutBigEndian(out, static_cast<std::uint32_t>(crc));
}

// Rows of filter type 0 followed by RGB bytes.
std::vector<std::uint8_t> RawRows(const Image& image, int scale) {
  std::vector<std::uint8_t> raw;
  for (int y = 0; y < image.height * scale; ++y) {
    raw.push_back(0);
    for (int x = 0; x < image.width * scale; ++x) {
      const std::uint32_t argb =
          image.argb[static_cast<std::size_t>((y / scale) * image.width + x / scale)];
      raw.push_back(static_cast<std::uint8_t>(argb >> 16));
      raw.push_back(static_cast<std::uint8_t>(argb >> 8));
      raw.push_back(static_cast<std::uint8_t>(argb));
    }
  }
  return raw;
}

}  // namespace

void WritePng(const std::filesystem::path& path, const Image& image, int scale) {
  std::vector<std::uint8_t> header;
  PutBigEndian(header, static_cast<std::uint32_t>(image.width * scale));
  PutBigEndian(header, static_cast<std::uint32_t>(image.height * scale));
  header.insert(header.end(), {8, 2, 0, 0, 0});  // 8 bits, RGB, deflate, filter 0, no interlace
  const std::vector<std::uint8_t> raw = RawRows(image, scale);
  uLongf packedSize = compressBound(static_cast<uLong>(raw.size()));
  std::vector<std::uint8_t> packed(packedSize);
  if (compress(packed.data(), &packedSize, raw.data(), static_cast<uLong>(raw.size())) != Z_OK) {
    throw std::runtime_error("zlib could not compress " + path.string());
  }
  packed.resize(packedSize);
  std::vector<std::uint8_t> file = {0x89, 'P', 'N', 'G', '\r', '\n', 0x1A, '\n'};
  PutChunk(file, "IHDR", header);
  PutChunk(file, "IDAT", packed);
  PutChunk(file, "IEND", {});
  std::ofstream out(path, std::ios::binary);
  out.write(reinterpret_cast<const char*>(file.data()), static_cast<std::streamsize>(file.size()));
  if (!out) throw std::runtime_error("cannot write " + path.string());
}

}  // namespace yarvo::test
