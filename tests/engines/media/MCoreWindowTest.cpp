// The picture reaches the window named at open. Needs an X display (for
// example under xvfb-run) and is skipped without one.
#include <gtest/gtest.h>

#include <chrono>
#include <memory>
#include <string>
#include <thread>

#include "MediaFiles.h"
#include "X11TestWindow.h"
#include "engines/media/MCore.h"
#include "engines/media/MciSendString.h"
#include "engines/media/X11Window.h"

namespace yarvo {
namespace {

using namespace std::chrono_literals;

class MCoreWindow : public ::testing::Test {
 protected:
  void SetUp() override {
    window_ = test::X11TestWindow::open(400, 300);
    if (!window_) GTEST_SKIP() << "no X display";
    ASSERT_TRUE(test::MediaFiles::get().ready());
    MciServiceOptions options;
    options.audioOutput = "null";
    configureMciService(options);
  }

  void TearDown() override {
    MciCloseAll();
    configureMciService({});
  }

  std::unique_ptr<test::X11TestWindow> window_;
};

TEST_F(MCoreWindow, PictureIsDrawnIntoTheParentWindowAndNeverIntoAStaleOne) {
  const std::string video = test::MediaFiles::get().video().string();
  // Given to a graphics driver, a stale id crashes the process.
  EXPECT_FALSE(isLiveX11Window(0x7fff1234));
  EXPECT_TRUE(isLiveX11Window(window_->id()));
  ASSERT_EQ(MciOpen(0x7fff1234, "stale", video, "MPEGVideo"), "Success");
  EXPECT_EQ(MciWhereDestination("stale", "cx"), 320);
  ASSERT_EQ(MciPlay("stale", "90", ""), "Success");
  EXPECT_EQ(MciStatusMode("stale"), "playing");

  ASSERT_EQ(window_->litPixels(), 0);
  ASSERT_EQ(MciOpen(window_->id(), "movie", video, "MPEGVideo"), "Success");
  ASSERT_EQ(MciPlay("movie", "", ""), "Success");
  // Polls until the first pictures show; the test card is bright almost
  // everywhere, so most grid points light up.
  const auto deadline = std::chrono::steady_clock::now() + 10s;
  int lit = 0;
  while (lit < 100 && std::chrono::steady_clock::now() < deadline) {
    std::this_thread::sleep_for(50ms);
    lit = window_->litPixels();
  }
  EXPECT_GE(lit, 100);
}

}  // namespace
}  // namespace yarvo
