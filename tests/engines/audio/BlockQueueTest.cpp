// The hand-over between the decode thread and the output thread.

#include "engines/audio/BlockQueue.h"

#include <gtest/gtest.h>

#include <thread>

namespace yarvo::audio {
namespace {

TEST(BlockQueueTest, FillsToCapacityAndWrapsAround) {
  BlockQueue queue(3, 4, 2);
  EXPECT_TRUE(queue.empty());
  for (std::uint64_t round = 0; round < 5; ++round) {
    SCOPED_TRACE(round);
    for (std::uint64_t i = 0; i < 3; ++i) {
      AudioBlock* block = queue.beginWrite();
      ASSERT_NE(block, nullptr);
      EXPECT_EQ(block->samples.size(), 8u);
      block->firstFrame = round * 10 + i;
      queue.commitWrite();
      EXPECT_EQ(queue.size(), i + 1);
    }
    EXPECT_TRUE(queue.full());
    EXPECT_EQ(queue.beginWrite(), nullptr);
    for (std::uint64_t i = 0; i < 3; ++i) {
      AudioBlock* block = queue.front();
      ASSERT_NE(block, nullptr);
      EXPECT_EQ(block->firstFrame, round * 10 + i);
      queue.pop();
      EXPECT_EQ(queue.size(), 2 - i);
    }
    EXPECT_EQ(queue.front(), nullptr);
  }
}

TEST(BlockQueueTest, DeliversEveryBlockInOrderAcrossThreads) {
  BlockQueue queue(4, 1, 1);
  constexpr std::uint64_t kBlocks = 20000;
  std::jthread producer([&] {
    for (std::uint64_t i = 0; i < kBlocks;) {
      if (AudioBlock* block = queue.beginWrite()) {
        block->firstFrame = i;
        block->samples[0] = static_cast<float>(i % 1000);
        queue.commitWrite();
        ++i;
      } else {
        std::this_thread::yield();
      }
    }
  });
  for (std::uint64_t expected = 0; expected < kBlocks;) {
    if (AudioBlock* block = queue.front()) {
      ASSERT_EQ(block->firstFrame, expected);
      ASSERT_EQ(block->samples[0], static_cast<float>(expected % 1000));
      queue.pop();
      ++expected;
    } else {
      std::this_thread::yield();
    }
  }
}

}  // namespace
}  // namespace yarvo::audio
