// The hand-over between the decode thread and the output thread.

#include "engines/audio/BlockQueue.h"

#include <gtest/gtest.h>

#include <thread>

namespace yarvo::audio {
namespace {

// A queue of four, passed through 5000 times: a write into a full queue or a
// read from an empty one shows as a block out of order.
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
