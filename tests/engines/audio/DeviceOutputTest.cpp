// The real device path: a private PulseAudio server with a null sink, the
// library's default output (libcubeb), and parec recording the sink's monitor.

#include "TestSignals.h"

#include "engines/audio/AudioOutput.h"
#include "engines/audio/Bass.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <thread>

extern char** environ;

namespace yarvo::audio::test {
namespace {

// A child process, ended with SIGTERM and reaped when this goes out of scope.
class Child {
 public:
  // With `logToOutput` the child's stderr goes to `output` too.
  Child(std::vector<std::string> argv, const std::filesystem::path& output,
        bool logToOutput = false) {
    std::vector<char*> args;
    for (auto& a : argv) args.push_back(a.data());
    args.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, output.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0644);
    if (logToOutput)
      posix_spawn_file_actions_adddup2(&actions, STDOUT_FILENO, STDERR_FILENO);
    else
      posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
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
  static constexpr std::array<const char*, 6> kVariables{"HOME",
                                                         "XDG_RUNTIME_DIR",
                                                         "PULSE_RUNTIME_PATH",
                                                         "PULSE_STATE_PATH",
                                                         "PULSE_CONFIG_PATH",
                                                         "PULSE_SERVER"};

  void SetUp() override {
    setOutputFactory({});
    for (const char* name : kVariables) {
      const char* value = std::getenv(name);
      saved_.emplace_back(value != nullptr, value != nullptr ? value : "");
    }
    // Everything the server and its clients keep goes to the temporary
    // folder: running as root, the server would otherwise use root's home.
    for (const char* name : kVariables) setenv(name, dir_.path().c_str(), 1);
    socket_ = dir_.file("native");
    setenv("PULSE_SERVER", ("unix:" + socket_.string()).c_str(), 1);
  }

  void TearDown() override {
    BASS_Free();
    for (std::size_t i = 0; i < kVariables.size(); ++i) {
      if (saved_[i].first)
        setenv(kVariables[i], saved_[i].second.c_str(), 1);
      else
        unsetenv(kVariables[i]);
    }
  }

  std::unique_ptr<Child> startServer() {
    auto server = std::make_unique<Child>(
        std::vector<std::string>{
            "pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--system=false",
            "--disallow-exit", "--use-pid-file=no", "--log-target=stderr", "--log-level=info", "-L",
            "module-null-sink sink_name=yarvo_test rate=44100", "-L",
            "module-native-protocol-unix auth-anonymous=1 socket=" + socket_.string()},
        dir_.file("server.log"), true);
    using namespace std::chrono_literals;
    for (int i = 0; i < 50 && server->running(); ++i) {
      if (std::system("pactl info >/dev/null 2>&1") == 0) return server;
      std::this_thread::sleep_for(100ms);
    }
    return nullptr;
  }

  void playThroughServer();

  std::string serverLog() const {
    std::ifstream in(dir_.file("server.log"));
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }

  TempDir dir_;
  std::filesystem::path socket_;
  std::vector<std::pair<bool, std::string>> saved_;
};

// Plays an 8 s tone through whatever output BASS_Init picks, records the
// sink's monitor meanwhile, and checks pace and sound.
void DeviceOutputTest::playThroughServer() {
  auto server = startServer();
  if (!server) GTEST_SKIP() << "a private PulseAudio server could not be started here";
  const auto recording = dir_.file("recorded.raw");
  Child recorder({"parec", "--device=yarvo_test.monitor", "--format=float32le", "--rate=44100",
                  "--channels=2", "--raw", "--latency-msec=20"},
                 recording);
  ASSERT_TRUE(recorder.started());

  const auto path = dir_.file("tone.wav");
  writeWav(path, sine(1000.0, 0.25, 8.0));
  ASSERT_TRUE(BASS_Init(-1, 44100, 0, nullptr, nullptr));
  const HSTREAM stream = BASS_StreamCreateFile(BASS_FALSE, path.c_str(), 0, 0, BASS_SAMPLE_FX);
  ASSERT_NE(stream, 0u);
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  // A null sink with no client sleeps in long blocks and takes a second or
  // more to notice a new stream; a sound card does not. Wait for the start.
  using Clock = std::chrono::steady_clock;
  auto seconds = [&] {
    return BASS_ChannelBytes2Seconds(stream, BASS_ChannelGetPosition(stream, BASS_POS_BYTE));
  };
  for (int i = 0; i < 50 && seconds() < 0.2; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  const double from = seconds();
  const auto start = Clock::now();
  std::this_thread::sleep_for(std::chrono::milliseconds(2000));
  const double played = seconds() - from;
  const double wall = std::chrono::duration<double>(Clock::now() - start).count();
  BASS_Free();
  recorder.finish();
  server->finish();

  // Played through the server at its pace, not into a null output at once.
  EXPECT_NEAR(played / wall, 1.0, 0.1) << "played " << played << " s in " << wall << " s";
  std::ifstream in(recording, std::ios::binary);
  std::vector<float> samples((std::filesystem::file_size(recording)) / sizeof(float));
  in.read(reinterpret_cast<char*>(samples.data()),
          static_cast<std::streamsize>(samples.size() * sizeof(float)));
  ASSERT_GT(samples.size(), 2u * 44100) << "parec recorded too little; server log:\n"
                                        << serverLog();
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

TEST_F(DeviceOutputTest, ToneReachesTheSoundServer) { playThroughServer(); }

// The server goes away in the middle of a song: the position goes on at
// real-time pace, so the player still finds the end.
TEST_F(DeviceOutputTest, LosingTheServerDoesNotStopTheClock) {
  auto server = startServer();
  if (!server) GTEST_SKIP() << "a private PulseAudio server could not be started here";
  const auto path = dir_.file("tone.wav");
  writeWav(path, sine(1000.0, 0.25, 10.0));
  ASSERT_TRUE(BASS_Init(-1, 44100, 0, nullptr, nullptr));
  const HSTREAM stream = BASS_StreamCreateFile(BASS_FALSE, path.c_str(), 0, 0, BASS_SAMPLE_FX);
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  auto seconds = [&] {
    return BASS_ChannelBytes2Seconds(stream, BASS_ChannelGetPosition(stream, BASS_POS_BYTE));
  };
  for (int i = 0; i < 50 && seconds() < 0.2; ++i)
    std::this_thread::sleep_for(std::chrono::milliseconds(100));
  server->finish();
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  const double from = seconds();
  const auto start = std::chrono::steady_clock::now();
  std::this_thread::sleep_for(std::chrono::milliseconds(1500));
  const double played = seconds() - from;
  const double wall =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  EXPECT_NEAR(played / wall, 1.0, 0.05);
  EXPECT_EQ(BASS_ChannelIsActive(stream), BASS_ACTIVE_PLAYING);
}

// No server at all: the library still plays, at the pace of a sound card,
// through whatever cubeb finds or its own null output.
TEST_F(DeviceOutputTest, WithoutAServerPlaysOnAtRealTimeSpeed) {
  setenv("PULSE_SERVER", ("unix:" + dir_.file("nobody").string()).c_str(), 1);
  const auto path = dir_.file("tone.wav");
  writeWav(path, sine(1000.0, 0.25, 4.0));
  ASSERT_TRUE(BASS_Init(-1, 44100, 0, nullptr, nullptr));
  const HSTREAM stream = BASS_StreamCreateFile(BASS_FALSE, path.c_str(), 0, 0, BASS_SAMPLE_FX);
  ASSERT_TRUE(BASS_ChannelPlay(stream, BASS_FALSE));
  auto seconds = [&] {
    return BASS_ChannelBytes2Seconds(stream, BASS_ChannelGetPosition(stream, BASS_POS_BYTE));
  };
  std::this_thread::sleep_for(std::chrono::milliseconds(300));
  const double from = seconds();
  const auto start = std::chrono::steady_clock::now();
  std::this_thread::sleep_for(std::chrono::milliseconds(1500));
  const double played = seconds() - from;
  const double wall =
      std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  EXPECT_NEAR(played / wall, 1.0, 0.05);
}

}  // namespace
}  // namespace yarvo::audio::test
