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

  // Frames numbered from 1, left n and right -n.
  float next = 1.0f;
  auto append = [&](std::size_t count) {
    std::vector<float> frames;
    for (std::size_t i = 0; i < count; ++i, next += 1.0f) {
      frames.push_back(next);
      frames.push_back(-next);
    }
    recent.append(frames.data(), count);
  };
  append(3);
  recent.newest(out.data(), 4);
  EXPECT_EQ(out, (std::vector<float>{0, 0, 1, -1, 2, -2, 3, -3})) << "silence before frame 1";
  // Up to frame 11, in pieces that straddle the end of the ring.
  append(5);
  append(3);
  recent.newest(out.data(), 4);
  EXPECT_EQ(out, (std::vector<float>{8, -8, 9, -9, 10, -10, 11, -11}));
  std::vector<float> all(2 * 8);
  recent.newest(all.data(), 8);
  EXPECT_EQ(all.front(), 4.0f);
  EXPECT_EQ(all.back(), -11.0f);
}

}  // namespace
}  // namespace yarvo::audio
