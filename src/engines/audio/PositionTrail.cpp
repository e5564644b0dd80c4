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

// Marks are read newest first, and only back to the one that covers `frame`:
// a few for an output's latency, one when the output holds nothing.
bool PositionTrail::at(std::uint64_t frame, std::uint64_t generation, Heard& heard) const noexcept {
  Mark found;
  Mark oldest;
  bool covered = false;
  bool any = false;
  for (;;) {
    const std::uint64_t before = sequence_.load(std::memory_order_acquire);
    if ((before & 1) != 0) continue;
    const std::uint64_t added = added_.load(std::memory_order_relaxed);
    const std::size_t count = static_cast<std::size_t>(std::min<std::uint64_t>(added, kMarks));
    covered = any = false;
    for (std::size_t k = 0; k < count; ++k) {
      const auto& slot = ring_[(added - 1 - k) % kMarks];
      Fields fields;
      for (std::size_t i = 0; i < kFields; ++i) fields[i] = slot[i].load(std::memory_order_relaxed);
      const Mark mark = markOf(fields);
      // A seek the reader does not know of yet comes after its blocks; one
      // it knows ended those before it.
      if (mark.generation > generation) continue;
      if (mark.generation < generation) break;
      any = true;
      oldest = mark;
      if (mark.outputFirst <= frame) {
        found = mark;
        covered = true;
        break;
      }
    }
    std::atomic_thread_fence(std::memory_order_acquire);
    if (sequence_.load(std::memory_order_relaxed) == before) break;
  }
  if (!any) return false;
  if (!covered) {
    heard = {oldest.sourceFirst, oldest.recentEnd - (oldest.sourceEnd - oldest.sourceFirst)};
    return true;
  }
  // Within a block the channel's frames run evenly across the output's.
  std::uint64_t position = found.sourceEnd;
  if (frame < found.outputEnd) {
    const double share =
        double(frame - found.outputFirst) / double(found.outputEnd - found.outputFirst);
    position = found.sourceFirst +
               static_cast<std::uint64_t>(share * double(found.sourceEnd - found.sourceFirst));
  }
  heard = {position, found.recentEnd - (found.sourceEnd - position)};
  return true;
}

}  // namespace yarvo::audio
