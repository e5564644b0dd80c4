// The real device path: a private PulseAudio server with a null sink, the
// library's default output (libcubeb), and parec recording the sink's monitor;
// and the pace kept when there is no server, or no device at all.

#include "BassFixture.h"

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <optional>
#include <thread>

extern char** environ;

namespace yarvo::audio::test {
namespace {

// A child process, ended with SIGTERM and reaped when this goes out of scope.
class Child {
 public:
  Child(std::vector<std::string> argv, const std::filesystem::path& output,
        const std::filesystem::path& errors = "/dev/null") {
    std::vector<char*> args;
    for (auto& a : argv) args.push_back(a.data());
    args.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (const auto& [fd, path] : {std::pair{STDOUT_FILENO, &output}, {STDERR_FILENO, &errors}})
      posix_spawn_file_actions_addopen(&actions, fd, path->c_str(), O_WRONLY | O_CREAT | O_TRUNC,
                                       0644);
    if (posix_spawnp(&pid_, args[0], &actions, nullptr, args.data(), environ) != 0) pid_ = -1;
    posix_spawn_file_actions_destroy(&actions);
  }
  ~Child() { finish(); }
  Child(const Child&) = delete;
  Child& operator=(const Child&) = delete;

  [[nodiscard]] bool started() const { return pid_ > 0; }
  [[nodiscard]] bool running() const { return pid_ > 0 && waitpid(pid_, nullptr, WNOHANG) == 0; }
  void finish() {
    if (pid_ <= 0) return;
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
    pid_ = -1;
  }

 private:
  pid_t pid_ = -1;
};

class DeviceOutputTest : public ::testing::Test {
 protected:
  void SetUp() override {
    setOutputFactory({});
    // Everything the server and its clients keep goes to the temporary
    // folder: running as root, the server would otherwise use root's home.
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "PULSE_RUNTIME_PATH", "PULSE_STATE_PATH",
                             "PULSE_CONFIG_PATH", "PULSE_SERVER"}) {
      const char* value = std::getenv(name);
      saved_.emplace_back(name,
                          value != nullptr ? std::optional<std::string>(value) : std::nullopt);
      setenv(name, dir_.path().c_str(), 1);
    }
    socket_ = dir_ / "native";
    setenv("PULSE_SERVER", ("unix:" + socket_.string()).c_str(), 1);
  }

  void TearDown() override {
    BASS_Free();
    for (const auto& [name, value] : saved_) {
      if (value)
        setenv(name, value->c_str(), 1);
      else
        unsetenv(name);
    }
  }

  std::unique_ptr<Child> startServer() {
    auto server = std::make_unique<Child>(
        std::vector<std::string>{
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--system=false",
            "--disallow-exit", "--use-pid-file=no", "--log-target=stderr", "--log-level=info", "-L",
            "module-null-sink sink_name=yarvo_test rate=44100", "-L",
            "module-native-protocol-unix auth-anonymous=1 socket=" + socket_.string()},
        "/dev/null", dir_ / "server.log");
    using namespace std::chrono_literals;
    for (int i = 0; i < 50 && server->running(); ++i) {
      if (std::system("pactl info >/dev/null 2>&1") == 0) return server;
      std::this_thread::sleep_for(100ms);
    }
    return nullptr;
  }

  // Plays a 1 kHz tone of `seconds` on `device`; 0 when that fails.
  HSTREAM playTone(double seconds, int device = -1) {
    const auto path = dir_ / "tone.wav";
    writeWav(path, sine(1000.0, 0.25, seconds));
    if (!BASS_Init(device, 44100, 0, nullptr, nullptr)) return 0;
    const HSTREAM stream = BASS_StreamCreateFile(BASS_FALSE, path.c_str(), 0, 0, BASS_SAMPLE_FX);
    return BASS_ChannelPlay(stream, BASS_FALSE) ? stream : 0;
  }

  TempDir dir_;
  std::filesystem::path socket_;
  std::vector<std::pair<const char*, std::optional<std::string>>> saved_;
};

// A 10 s tone through whatever output BASS_Init picks, the sink's monitor
// recorded meanwhile: played at the server's pace, and heard at its level.
// Then the server goes away in the middle of the song: the position goes on
// at real-time pace, so the player still finds the end.
TEST_F(DeviceOutputTest, ToneReachesTheSoundServerAndOutlivesIt) {
  auto server = startServer();
  if (!server) GTEST_SKIP() << "a private PulseAudio server could not be started here";
  const auto recording = dir_ / "recorded.raw";
  Child recorder({"parec", "--device=yarvo_test.monitor", "--format=float32le", "--rate=44100",
                  "--channels=2", "--raw", "--latency-msec=20"},
                 recording);
  ASSERT_TRUE(recorder.started());
  const HSTREAM stream = playTone(10.0);
  ASSERT_NE(stream, 0u);
  // A null sink with no client sleeps in long blocks and takes a second or
  // more to notice a new stream; a sound card does not.
  for (int i = 0; i < 50 && BASS_ChannelGetPosition(stream, BASS_POS_BYTE) < 44100 * 2 / 5; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  // Not into a null output at once.
  EXPECT_NEAR(playbackSpeed(stream, std::chrono::milliseconds(2000)), 1.0, 0.1);
  recorder.finish();
  server->finish();
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  EXPECT_NEAR(playbackSpeed(stream, std::chrono::milliseconds(1500)), 1.0, 0.05);
  EXPECT_EQ(BASS_ChannelIsActive(stream), BASS_ACTIVE_PLAYING);

  std::vector<float> samples(std::filesystem::file_size(recording) / sizeof(float));
  std::ifstream(recording, std::ios::binary)
      .read(reinterpret_cast<char*>(samples.data()),
            static_cast<std::streamsize>(samples.size() * sizeof(float)));
  ASSERT_GT(samples.size(), 2u * 44100) << "parec recorded too little; server log:\n"
                                        << std::ifstream(dir_ / "server.log").rdbuf();
  // The loudest second of the recording holds the tone at its level.
  double best = 0.0;
  std::size_t bestFrom = 0;
  for (std::size_t at = 0; at + 44100 <= samples.size() / 2; at += 4410) {
    const double a = toneAmplitude(samples, 0, 1000.0, 44100, at, 44100);
    if (a > best) {
      best = a;
      bestFrom = at;
    }
  }
  EXPECT_NEAR(best, 0.25, 0.05);
  EXPECT_LT(toneAmplitude(samples, 0, 1500.0, 44100, bestFrom, 44100), 0.01);
}

// Device 0 is "no sound", and the default device finds no server: either way
// the library plays on, through whatever cubeb finds or its own null output,
// at the pace of a sound card.
TEST_F(DeviceOutputTest, WithoutASoundServerPlaysOnAtRealTimeSpeed) {
  setenv("PULSE_SERVER", ("unix:" + (dir_ / "nobody").string()).c_str(), 1);
  for (const auto& [device, tolerance] : {std::pair{0, 0.02}, std::pair{-1, 0.05}}) {
    SCOPED_TRACE(device);
    const HSTREAM stream = playTone(4.0, device);
    ASSERT_NE(stream, 0u);
    std::this_thread::sleep_for(std::chrono::milliseconds(300));
    EXPECT_NEAR(playbackSpeed(stream, std::chrono::milliseconds(2000)), 1.0, tolerance);
    BASS_Free();
  }
}

}  // namespace
}  // namespace yarvo::audio::test
