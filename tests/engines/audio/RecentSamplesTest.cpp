// The record of what was heard, read back across the ring's wrap.

#include "engines/audio/RecentSamples.h"

#include <gtest/gtest.h>

#include <vector>

namespace yarvo::audio {
namespace {

TEST(RecentSamplesTest, GivesTheNewestFramesOldestFirstAcrossTheWrap) {
  RecentSamples recent(8, 2);
  std::vector<float> out(2 * 4, -1.0f);
  recent.newest(out.data(), 4);
  EXPECT_EQ(out, std::vector<float>(8, 0.0f));  // nothing heard yet

  // Frames numbered 1..11, left n and right -n, in pieces that straddle the
  // end of the ring.
  float next = 1.0f;
  for (std::size_t piece : {3u, 5u, 3u}) {
    std::vector<float> frames;
    for (std::size_t i = 0; i < piece; ++i, next += 1.0f) {
      frames.push_back(next);
      frames.push_back(-next);
    }
    recent.append(frames.data(), piece);
  }
  recent.newest(out.data(), 4);
  EXPECT_EQ(out, (std::vector<float>{8, -8, 9, -9, 10, -10, 11, -11}));
  std::vector<float> all(2 * 8);
  recent.newest(all.data(), 8);
  EXPECT_EQ(all.front(), 4.0f);
  EXPECT_EQ(all.back(), -11.0f);
}

TEST(RecentSamplesTest, PadsWithSilenceBeforeTheFirstFrame) {
  RecentSamples recent(16, 1);
  const std::vector<float> two{0.5f, 0.25f};
  recent.append(two.data(), 2);
  std::vector<float> out(4, -1.0f);
  recent.newest(out.data(), 4);
  EXPECT_EQ(out, (std::vector<float>{0.0f, 0.0f, 0.5f, 0.25f}));
}

}  // namespace
}  // namespace yarvo::audio
