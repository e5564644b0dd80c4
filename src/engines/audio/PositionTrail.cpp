#include "engines/audio/PositionTrail.h"

#include <algorithm>

namespace yarvo::audio {
namespace {

using Fields = std::array<std::uint64_t, 6>;

Fields fieldsOf(const PositionTrail::Mark& m) {
  return {m.outputFirst, m.outputEnd, m.sourceFirst, m.sourceEnd, m.recentEnd, m.generation};
}

PositionTrail::Mark markOf(const Fields& f) { return {f[0], f[1], f[2], f[3], f[4], f[5]}; }

}  // namespace

void PositionTrail::add(const Mark& mark) noexcept {
  const std::uint64_t sequence = sequence_.load(std::memory_order_relaxed);
  sequence_.store(sequence + 1, std::memory_order_relaxed);
  std::atomic_thread_fence(std::memory_order_release);
  const std::uint64_t added = added_.load(std::memory_order_relaxed);
  const Fields fields = fieldsOf(mark);
  auto& slot = ring_[added % kMarks];
  for (std::size_t i = 0; i < kFields; ++i) slot[i].store(fields[i], std::memory_order_relaxed);
  added_.store(added + 1, std::memory_order_relaxed);
  sequence_.store(sequence + 2, std::memory_order_release);
}

bool PositionTrail::at(std::uint64_t frame, std::uint64_t generation, Heard& heard) const noexcept {
  std::array<Mark, kMarks> marks;
  std::size_t count = 0;
  for (;;) {
    const std::uint64_t before = sequence_.load(std::memory_order_acquire);
    if ((before & 1) != 0) continue;
    const std::uint64_t added = added_.load(std::memory_order_relaxed);
    count = static_cast<std::size_t>(std::min<std::uint64_t>(added, kMarks));
    // Oldest first.
    for (std::size_t k = 0; k < count; ++k) {
      const auto& slot = ring_[(added - count + k) % kMarks];
      Fields fields;
      for (std::size_t i = 0; i < kFields; ++i) fields[i] = slot[i].load(std::memory_order_relaxed);
      marks[k] = markOf(fields);
    }
    std::atomic_thread_fence(std::memory_order_acquire);
    if (sequence_.load(std::memory_order_relaxed) == before) break;
  }
  const Mark* first = nullptr;
  const Mark* last = nullptr;
  for (std::size_t k = 0; k < count; ++k) {
    const Mark& m = marks[k];
    if (m.generation != generation) continue;
    if (first == nullptr) first = &m;
    if (m.outputFirst > frame) break;
    last = &m;
  }
  if (first == nullptr) return false;
  if (last == nullptr) {
    heard = {first->sourceFirst, first->recentEnd - (first->sourceEnd - first->sourceFirst)};
    return true;
  }
  // Within a block the channel's frames run evenly across the output's.
  std::uint64_t position = last->sourceEnd;
  if (frame < last->outputEnd) {
    const double share =
        double(frame - last->outputFirst) / double(last->outputEnd - last->outputFirst);
    position = last->sourceFirst +
               static_cast<std::uint64_t>(share * double(last->sourceEnd - last->sourceFirst));
  }
  heard = {position, last->recentEnd - (last->sourceEnd - position)};
  return true;
}

}  // namespace yarvo::audio
