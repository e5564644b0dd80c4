// CPU time of a minute of MIDI playing through the media service (our reader
// and sequencer, FluidSynth rendering, the audio library's output to the
// sound server, and the status query of the player's half-second timer),
// beside `fluidsynth -i -a pulseaudio <sound font> <file>` playing the same
// file to the same server (FluidSynth 2.3 names its PulseAudio driver
// "pulseaudio" and refuses "pulse"). Both run in real time into a private
// PulseAudio null sink; the server's own CPU counts for neither. The file is
// a band of five General MIDI parts (drums, bass, chords, a melody, strings),
// so that a few dozen voices sound at once.
//
// Usage: midi_bench [rounds, default 1]; each figure is the least of the
// rounds.

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "MidiWriter.h"
#include "engines/media/MCore.h"
#include "engines/media/MciSendString.h"
#include "engines/media/SoundFont.h"
#include "support/SoundServer.h"

extern char** environ;

namespace {

using namespace yarvo;
using test::MidiTrack;

constexpr int kBars = 30;  // of four beats at 120 a minute: one minute
constexpr std::uint32_t kBeat = 480;

// Seconds in the program's own code and in the kernel on its behalf.
struct Cpu {
  double user = 0;
  double system = 0;
  double total() const { return user + system; }
};

double seconds(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
}

Cpu cpuOf(const rusage& usage) { return {seconds(usage.ru_utime), seconds(usage.ru_stime)}; }

Cpu selfCpu() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return cpuOf(usage);
}

// CPU time of one child process, its chatter thrown away; nothing when it
// could not run.
std::optional<Cpu> childCpu(std::vector<std::string> argv) {
  std::vector<char*> args;
  for (auto& a : argv) args.push_back(a.data());
  args.push_back(nullptr);
  posix_spawn_file_actions_t quiet;
  posix_spawn_file_actions_init(&quiet);
  posix_spawn_file_actions_addopen(&quiet, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
  posix_spawn_file_actions_addopen(&quiet, STDERR_FILENO, "/dev/null", O_WRONLY, 0);

  pid_t pid = 0;
  const int spawned = posix_spawnp(&pid, args[0], &quiet, nullptr, args.data(), environ);
  posix_spawn_file_actions_destroy(&quiet);
  if (spawned != 0) return std::nullopt;
  int status = 0;
  rusage usage{};
  if (wait4(pid, &status, 0, &usage) != pid || !WIFEXITED(status) || WEXITSTATUS(status) != 0)
    return std::nullopt;
  return cpuOf(usage);
}

std::string band() {
  MidiTrack tempo;
  tempo.tempo(0, 500000).end(kBars * 4 * kBeat);
  MidiTrack drums;
  MidiTrack bass;
  MidiTrack chords;
  MidiTrack melody;
  MidiTrack strings;
  bass.program(0, 1, 33);
  chords.program(0, 2, 0);
  melody.program(0, 3, 73);
  strings.program(0, 4, 48);
  constexpr int kRoots[] = {45, 41, 43, 40};  // A, F, G, E
  for (std::uint32_t bar = 0; bar < kBars; ++bar) {
    const std::uint32_t at = bar * 4 * kBeat;
    const int root = kRoots[bar % 4];
    for (std::uint32_t beat = 0; beat < 4; ++beat) {
      const std::uint32_t t = at + beat * kBeat;
      drums.note(t, kBeat / 4, 9, beat % 2 == 0 ? 36 : 38);
      drums.note(t, kBeat / 4, 9, 42).note(t + kBeat / 2, kBeat / 4, 9, 42);
      bass.note(t, kBeat - 20, 1, root);
      for (const int step : {0, 4, 7}) chords.note(t, kBeat - 10, 2, root + 24 + step);
      for (std::uint32_t half = 0; half < 2; ++half) {
        const int key = root + 36 + static_cast<int>((beat * 2 + half) % 5) * 2;
        melody.note(t + half * kBeat / 2, kBeat / 2 - 10, 3, key);
      }
    }
    for (const int step : {0, 7, 12}) strings.note(at, 4 * kBeat - 10, 4, root + 12 + step);
  }
  return test::midiFile(1, kBeat, {tempo, drums, bass, chords, melody, strings});
}

// CPU seconds of the whole file played through the service, polled as the
// player's timer does.
std::optional<Cpu> serviceCpu(const std::string& file) {
  const Cpu before = selfCpu();
  if (MciOpen(0, "movie", file, "MPEGVideo") != "Success" ||
      MciPlay("movie", "", "") != "Success") {
    return std::nullopt;
  }
  while (MciStatusMode("movie") == "playing") {
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    MciPosition("movie");
  }
  MciCloseAll();
  const Cpu after = selfCpu();
  return Cpu{after.user - before.user, after.system - before.system};
}

}  // namespace

int main(int argc, char** argv) {
  const int rounds = argc > 1 ? std::max(1, std::atoi(argv[1])) : 1;
  const auto soundFont = findGeneralMidiSoundFont();
  if (!soundFont) {
    std::fprintf(stderr, "midi_bench: no General MIDI sound font in %s\n", kSoundFontFolder);
    return 2;
  }
  test::SoundServer server;
  if (!server.Ready()) {
    std::fprintf(stderr, "midi_bench: no private PulseAudio server\n");
    return 2;
  }
  const std::string file = (server.Folder() / "band.mid").string();
  std::ofstream(file, std::ios::binary) << band();
  MciServiceOptions options;
  options.drawPictures = false;
  configureMciService(options);

  std::optional<Cpu> ours;
  std::optional<Cpu> theirs;
  const auto least = [](std::optional<Cpu>& best, const Cpu& round) {
    if (!best || round.total() < best->total()) best = round;
  };
  for (int round = 0; round < rounds; ++round) {
    const auto service = serviceCpu(file);
    const auto fluidsynth =
        childCpu({"fluidsynth", "-i", "-a", "pulseaudio", soundFont->string(), file});
    if (!service || !fluidsynth) {
      std::fprintf(stderr, "midi_bench: %s failed\n", service ? "fluidsynth" : "the service");
      return 1;
    }
    least(ours, *service);
    least(theirs, *fluidsynth);
  }
  const double length = kBars * 4 * 0.5;
  std::printf("%.0f s of MIDI (%s), least of %d round(s), CPU seconds (user + system):\n", length,
              soundFont->filename().c_str(), rounds);
  for (const auto& [name, cpu] : {std::pair{"media service", *ours}, {"fluidsynth -i", *theirs}}) {
    std::printf("  %-14s %6.2f (%5.2f + %5.2f)  %5.1f %% of one core\n", name, cpu.total(),
                cpu.user, cpu.system, 100.0 * cpu.total() / length);
  }
  std::printf("  service / fluidsynth: %.2f\n", ours->total() / theirs->total());
  return 0;
}
