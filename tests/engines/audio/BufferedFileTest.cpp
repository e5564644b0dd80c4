#include "engines/audio/BufferedFile.h"

#include "support/TempDir.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <fstream>
#include <random>
#include <vector>

namespace {

using yarvo::audio::BufferedFile;
using yarvo::test::TempDir;

std::vector<unsigned char> writeFile(const std::filesystem::path& path, std::size_t size) {
  std::vector<unsigned char> bytes(size);
  std::uint32_t x = 12345;
  for (auto& b : bytes) {
    x = x * 1664525u + 1013904223u;
    b = static_cast<unsigned char>(x >> 24);
  }
  std::ofstream(path, std::ios::binary)
      .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(size));
  return bytes;
}

// Reads of every size, from a few bytes to more than the buffer, and seeks of
// every kind, against the file's bytes held in memory: every read must bring
// exactly the bytes at the model's offset, and every seek land where lseek
// would.
TEST(BufferedFileTest, ReadsAndSeeksAgreeWithTheFileWhereverTheyCross) {
  const TempDir dir;
  const auto bytes = writeFile(dir / "data", 300'000);
  EXPECT_EQ(BufferedFile::open((dir / "absent").string()), nullptr);
  auto file = BufferedFile::open((dir / "data").string());
  ASSERT_NE(file, nullptr);
  const auto size = static_cast<off_t>(bytes.size());

  std::mt19937 random(7);
  std::uniform_int_distribution<int> action(0, 9);
  std::uniform_int_distribution<std::size_t> smallRead(1, 600);
  std::uniform_int_distribution<std::size_t> largeRead(60'000, 140'000);
  std::uniform_int_distribution<off_t> anywhere(0, size + 100);
  std::uniform_int_distribution<off_t> nearby(-70'000, 70'000);
  off_t model = 0;
  std::vector<unsigned char> got;
  for (int step = 0; step < 3000; ++step) {
    const int a = action(random);
    if (a < 6) {
      const std::size_t want = a < 5 ? smallRead(random) : largeRead(random);
      got.assign(want, 0);
      const ssize_t n = file->read(got.data(), want);
      const auto expected = static_cast<ssize_t>(
          std::min<off_t>(static_cast<off_t>(want), std::max<off_t>(0, size - model)));
      ASSERT_EQ(n, expected) << "step " << step << " at " << model;
      ASSERT_TRUE(std::equal(got.begin(), got.begin() + n, bytes.begin() + model))
          << "step " << step << " at " << model;
      model += n;
    } else if (a < 8) {
      const off_t to = anywhere(random);
      ASSERT_EQ(file->seek(to, SEEK_SET), to);
      model = to;
    } else if (a == 8) {
      const off_t by = nearby(random);
      const off_t expected = model + by < 0 ? -1 : model + by;
      ASSERT_EQ(file->seek(by, SEEK_CUR), expected) << "step " << step;
      if (expected >= 0) model = expected;
    } else {
      const off_t back = -static_cast<off_t>(smallRead(random));
      ASSERT_EQ(file->seek(back, SEEK_END), size + back);
      model = size + back;
    }
  }
  EXPECT_EQ(file->seek(0, SEEK_CUR), model);
}

}  // namespace
