#include "HearingFixture.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <thread>

#include "TestSignals.h"
#include "core/DataForm.h"
#include "engines/BassApi.h"
#include "engines/audio/AudioOutput.h"
#include "engines/audio/Bass.h"
#include "playlist/ClsPl.h"
#include "playlist/Playlist.h"
#include "settings/KeyShortcut.h"
#include "windows/Main.h"

namespace yarvo::test {

namespace {

// Tones are told apart in windows of 20 ms, which hold whole cycles of any
// multiple of 50 Hz: such tones do not leak into each other's measure.
constexpr std::size_t kWindow = SoundServer::kRate / 50;
constexpr std::size_t kStep = kWindow / 20;
constexpr auto kTimeStep = std::chrono::milliseconds(2);

}  // namespace

HearingFixture::HearingFixture(int recorderLatencyMs)
    : recorderLatencyMs_(recorderLatencyMs), recording_(sound_.Folder() / "heard.raw") {}

HearingFixture::~HearingFixture() {
  program_.reset();
  // The engine form goes without its Unload here: free the library for the
  // next test.
  BASS_Free();
  recorder_.reset();
  std::error_code ignored;
  std::filesystem::current_path(workingFolder_, ignored);
}

void HearingFixture::SetUp() {
  if (!sound_.Ready()) GTEST_SKIP() << "a private PulseAudio server could not be started here";
  WriteBytes(folder / "Data/keyboard.data",
             "74\r\n13\r\n32\r\n83\r\n39\r\n37\r\n77\r\n81\r\n38\r\n40\r\n"
             "J\r\nEnter\r\nSpace\r\nS\r\nRight\r\nLeft\r\nM\r\nQ\r\nUp\r\nDown\r\n");
  audio::setOutputFactory({});
  recorder_ = std::make_unique<ChildProcess>(
      std::vector<std::string>{"parec", "--device=" + std::string(SoundServer::kSink) + ".monitor",
                               "--format=float32le", "--rate=" + std::to_string(kRate),
                               "--channels=2", "--raw",
                               "--latency-msec=" + std::to_string(recorderLatencyMs_)},
      recording_);
  ASSERT_TRUE(recorder_->Started());
  for (int i = 0; i < 300 && Recording().empty(); ++i) std::this_thread::sleep_for(Ms(10));
  ASSERT_FALSE(Recording().empty()) << "parec recorded nothing; server log:\n" << sound_.Log();
  program_ = std::make_unique<Program>(Services{clock, desktop, process, LibraryBass(), random});
  start_ = Clock::now();
  program_->Main();
  P().Main().Volum.value = 100;
  P().DataForm().MiniMode = "False";
}

void HearingFixture::AddSong(const std::string& name, double seconds, double hz, double stepHz) {
  audio::test::Signal song{kRate, 1, std::vector<float>(static_cast<std::size_t>(seconds * kRate))};
  double phase = 0;
  for (std::size_t n = 0; n < song.samples.size(); ++n) {
    song.samples[n] = static_cast<float>(kLevel * std::sin(phase));
    const double now = hz + stepHz * std::floor(double(n) / kRate);
    phase = std::fmod(phase + 2 * std::numbers::pi * now / kRate, 2 * std::numbers::pi);
  }
  const auto path = folder / (name + ".wav");
  audio::test::writeWav(path, song);
  P().DataForm().ListaCale.AddItem(path.string());
  ListNoChar(P().Playlist().PicList, P().DataForm().ListaCale);
}

void HearingFixture::KeepTime() {
  const auto now = Clock::now();
  const auto elapsed = std::chrono::duration_cast<Ms>(now - start_).count();
  if (elapsed > clock.Now()) clock.Advance(elapsed - clock.Now());
  std::error_code error;
  const auto bytes = std::filesystem::file_size(recording_, error);
  if (error) return;
  if (bytes == 0) return;
  const auto recorded = std::chrono::duration_cast<Clock::duration>(
      std::chrono::duration<double>(double(bytes) / (2 * sizeof(float)) / kRate));
  recordingStarts_.push_back(now - recorded);
}

void HearingFixture::Live(Ms span) {
  const auto end = Clock::now() + span;
  while (Clock::now() < end) {
    KeepTime();
    std::this_thread::sleep_for(kTimeStep);
  }
  KeepTime();
}

void HearingFixture::Key(int code) { HandleShortcutKey(code); }

void HearingFixture::DoubleClick(int row) {
  P().Playlist().PicList.SetListIndex(row);
  P().Playlist().Playlist_PicList_DblClick();
}

std::vector<float> HearingFixture::Recording() const { return ReadRecording(recording_); }

// The file trails real time by what parec holds before it writes, and runs
// ahead of it for a moment when the sink renders a block early: the middle
// of the estimates the looks gave stands for the start.
std::size_t HearingFixture::FrameAt(Clock::time_point at) const {
  if (recordingStarts_.empty()) return 0;
  auto starts = recordingStarts_;
  const auto middle = starts.begin() + static_cast<std::ptrdiff_t>(starts.size() / 2);
  std::nth_element(starts.begin(), middle, starts.end());
  const double seconds = std::chrono::duration<double>(at - *middle).count();
  return static_cast<std::size_t>(std::max(0.0, seconds * kRate));
}

double HearingFixture::Level(const std::vector<float>& heard, double hz, std::size_t from,
                             std::size_t count) const {
  if ((from + count) * 2 > heard.size()) return 0;
  return audio::test::toneAmplitude(heard, 0, hz, kRate, from, count);
}

double HearingFixture::Loudness(const std::vector<float>& heard, std::size_t from,
                                std::size_t count) const {
  if ((from + count) * 2 > heard.size()) return 0;
  return audio::test::rms(heard, from, count);
}

// A tone that starts at frame s fills a window from w with (w + kWindow - s)
// of its frames: the window reaches half the level when it starts half a
// window before s. Its end is found the same way.
std::optional<std::size_t> HearingFixture::StartOfTone(const std::vector<float>& heard, double hz,
                                                       std::size_t from) const {
  for (std::size_t w = from; (w + kWindow) * 2 <= heard.size(); w += kStep) {
    if (Level(heard, hz, w, kWindow) >= kLevel / 2) return w + kWindow / 2;
  }
  return std::nullopt;
}

std::optional<std::size_t> HearingFixture::EndOfTone(const std::vector<float>& heard, double hz,
                                                     std::size_t from) const {
  const auto start = StartOfTone(heard, hz, from);
  if (!start) return std::nullopt;
  for (std::size_t w = *start - kWindow / 2; (w + kWindow) * 2 <= heard.size(); w += kStep) {
    if (Level(heard, hz, w, kWindow) < kLevel / 2) return w + kWindow / 2;
  }
  return std::nullopt;
}

}  // namespace yarvo::test
