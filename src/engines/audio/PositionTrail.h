#pragma once
// Where a channel's audio went: for each block the output thread mixed from
// the channel, the output frames it filled and the channel's frames it
// played into them. An output that holds audio before it is heard (a sound
// server's buffer) asks the channel for what is heard at its heardFrame();
// the trail answers, and where the channel's recent samples stood then.
//
// One writer, the output thread; readers on the interface thread. A sequence
// lock: a reader copies the trail and tries again if a write came in
// between; the writer never waits.

#include <array>
#include <atomic>
#include <cstdint>

namespace yarvo::audio {

class PositionTrail {
 public:
  struct Mark {
    // Output frames [outputFirst, outputEnd) played channel frames
    // [sourceFirst, sourceEnd); RecentSamples held recentEnd frames after.
    std::uint64_t outputFirst = 0;
    std::uint64_t outputEnd = 0;
    std::uint64_t sourceFirst = 0;
    std::uint64_t sourceEnd = 0;
    std::uint64_t recentEnd = 0;
    // The channel's seek generation the block belongs to.
    std::uint64_t generation = 0;
  };

  struct Heard {
    std::uint64_t position = 0;
    // RecentSamples' count of frames at that position.
    std::uint64_t recent = 0;
  };

  // Marks kept: more output than any device holds (over a second, in the
  // smallest blocks an output asks for).
  static constexpr std::size_t kMarks = 256;

  // Output thread.
  void add(const Mark& mark) noexcept;

  // Interface thread: where the blocks of `generation` stood at output frame
  // `frame`. Before the first of them, where that one started; after the
  // last, where it ended; false when there is none.
  bool at(std::uint64_t frame, std::uint64_t generation, Heard& heard) const noexcept;

 private:
  static constexpr std::size_t kFields = 6;

  std::atomic<std::uint64_t> sequence_{0};
  std::atomic<std::uint64_t> added_{0};
  std::array<std::array<std::atomic<std::uint64_t>, kFields>, kMarks> ring_{};
};

}  // namespace yarvo::audio
