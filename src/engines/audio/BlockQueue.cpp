#include "engines/audio/BlockQueue.h"

namespace yarvo::audio {

BlockQueue::BlockQueue(std::size_t blocks, std::size_t framesPerBlock, int channels)
    : slots_(blocks), framesPerBlock_(framesPerBlock) {
  for (AudioBlock& block : slots_)
    block.samples.resize(framesPerBlock * static_cast<std::size_t>(channels));
}

AudioBlock* BlockQueue::beginWrite() noexcept {
  const std::size_t write = write_.load(std::memory_order_relaxed);
  if (write - read_.load(std::memory_order_acquire) >= slots_.size()) return nullptr;
  return &slots_[write % slots_.size()];
}

void BlockQueue::commitWrite() noexcept {
  write_.store(write_.load(std::memory_order_relaxed) + 1, std::memory_order_release);
}

AudioBlock* BlockQueue::front() noexcept {
  const std::size_t read = read_.load(std::memory_order_relaxed);
  if (read == write_.load(std::memory_order_acquire)) return nullptr;
  return &slots_[read % slots_.size()];
}

void BlockQueue::pop() noexcept {
  read_.store(read_.load(std::memory_order_relaxed) + 1, std::memory_order_release);
}

bool BlockQueue::empty() const noexcept {
  return read_.load(std::memory_order_acquire) == write_.load(std::memory_order_acquire);
}

bool BlockQueue::full() const noexcept { return size() >= slots_.size(); }

std::size_t BlockQueue::size() const noexcept {
  // The read counter first: the write counter, read after it, is never behind.
  const std::size_t read = read_.load(std::memory_order_acquire);
  return write_.load(std::memory_order_acquire) - read;
}

}  // namespace yarvo::audio
