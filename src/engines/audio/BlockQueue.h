#pragma once
// Decoded audio on its way from a channel's decode thread to the output thread.
//
// Single producer, single consumer, fixed capacity, no locks and no allocation
// after construction. The producer fills the block beginWrite() hands out and
// publishes it with commitWrite(); the consumer reads front() and releases it
// with pop(). Each side may call only its own three functions.

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace yarvo::audio {

struct AudioBlock {
  // Source frame index of the first frame in `samples`.
  std::uint64_t firstFrame = 0;
  std::size_t frames = 0;
  // Seek generation the block was decoded for; the consumer drops blocks of
  // an older generation.
  std::uint32_t generation = 0;
  // Set on the empty block that follows the last frame of the file.
  bool endOfStream = false;
  // Interleaved, room for the queue's frames per block.
  std::vector<float> samples;
};

class BlockQueue {
 public:
  BlockQueue(std::size_t blocks, std::size_t framesPerBlock, int channels);

  [[nodiscard]] std::size_t framesPerBlock() const noexcept { return framesPerBlock_; }

  // Producer. nullptr when the queue is full.
  [[nodiscard]] AudioBlock* beginWrite() noexcept;
  void commitWrite() noexcept;

  // Consumer. nullptr when the queue is empty.
  [[nodiscard]] AudioBlock* front() noexcept;
  void pop() noexcept;

  // Either side; a snapshot that may be stale by the time it is used.
  [[nodiscard]] bool empty() const noexcept;
  [[nodiscard]] bool full() const noexcept;
  [[nodiscard]] std::size_t size() const noexcept;
  [[nodiscard]] std::size_t capacity() const noexcept { return slots_.size(); }

 private:
  std::vector<AudioBlock> slots_;
  std::size_t framesPerBlock_;
  // Counters that only grow; the slot is the counter modulo the capacity.
  std::atomic<std::size_t> read_{0};
  std::atomic<std::size_t> write_{0};
};

}  // namespace yarvo::audio
