// Timers on the manual clock: deadline order, re-arming, and forms unloaded
// from inside their own tick.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/form/Events.h"
#include "core/form/Form.h"
#include "core/form/StringList.h"
#include "core/form/Timer.h"
#include "support/ManualClock.h"

namespace yarvo {
namespace {

struct TimedForm : Form {
  TimedForm() : Form("Timed") {}
  Timer Fast{this, "Fast", 100, false};
  Timer Slow{this, "Slow", 250, false};
  StringField Source{"a"};
  StringField Copy;
  StringList Rows;
};

class TimerTest : public ::testing::Test {
 protected:
  test::ManualClock clock;
  TimerScheduler::Use use{clock};
};

TEST_F(TimerTest, DueTicksFireInDeadlineOrder) {
  TimedForm form;
  std::string log;
  form.Fast.Tick = [&] { log += "f"; };
  form.Slow.Tick = [&] { log += "S"; };
  form.Slow.Enabled = true;
  form.Fast.Enabled = true;
  clock.Advance(99);
  EXPECT_EQ(log, "");
  clock.Advance(450);  // to 549: fast at 100..500, slow at 250, 500
  EXPECT_EQ(log, "ffSffSf") << "at 500 the slow timer was armed first";
}

TEST_F(TimerTest, EnablingAgainRestartsTheCountdownAndATickMayStopItsOwnTimer) {
  TimedForm form;
  int ticks = 0;
  form.Fast.Tick = [&] {
    if (++ticks == 2) form.Fast.Enabled = false;
  };
  form.Fast.Enabled = true;
  clock.Advance(90);
  form.Fast.Enabled = false;
  form.Fast.Enabled = true;
  clock.Advance(90);
  EXPECT_EQ(ticks, 0);
  clock.Advance(10);
  EXPECT_EQ(ticks, 1);
  clock.Advance(1000);
  EXPECT_EQ(ticks, 2);
  EXPECT_FALSE(clock.Armed(form.Fast));
}

TEST_F(TimerTest, ARuntimeErrorEndsOnlyThatTick) {
  TimedForm form;
  int ticks = 0;
  form.Fast.Tick = [&] {
    ++ticks;
    throw std::runtime_error("failed statement");
  };
  form.Fast.Enabled = true;
  clock.Advance(300);
  EXPECT_EQ(ticks, 3);
}

TEST_F(TimerTest, AFormUnloadedInItsOwnTickLivesUntilTheTickEnds) {
  auto form = std::make_shared<TimedForm>();
  std::weak_ptr<TimedForm> alive = form;
  bool ranToEnd = false;
  form->Fast.Tick = [&] {
    Retire(std::move(form));  // what unloading an engine form does
    ASSERT_FALSE(alive.expired());
    alive.lock()->Fast.Interval = 500;  // its own state is still there
    ranToEnd = true;
  };
  form->Fast.Enabled = true;
  clock.Advance(100);
  EXPECT_TRUE(ranToEnd);
  EXPECT_TRUE(alive.expired()) << "released when the outermost event returned";
  clock.Advance(1000);  // its timer went with it: nothing left to fire
}

// A quiet timer whose tick changed nothing sleeps until something it read
// changes, then ticks again within its interval; one that reads a list wakes
// for the list too. A timer that is not quiet ticks on.
TEST_F(TimerTest, AQuietTimerSleepsUntilWhatItReadChanges) {
  TimedForm form;
  int ticks = 0;
  form.Fast.Quiet = true;
  form.Fast.Tick = [&] {
    ++ticks;
    form.Copy = form.Source.get() + std::to_string(form.Rows.ListCount());
  };
  form.Fast.Enabled = true;
  clock.Advance(300);
  EXPECT_EQ(ticks, 2) << "the first tick changed the copy, the second nothing";
  EXPECT_FALSE(clock.Armed(form.Fast));
  form.Slow.Tick = [] {};
  form.Slow.Enabled = true;
  form.Copy = "elsewhere";  // not read by the tick: no wake
  clock.Advance(300);
  EXPECT_EQ(ticks, 2);
  form.Source = "b";
  EXPECT_TRUE(clock.Armed(form.Fast));
  clock.Advance(100);
  EXPECT_EQ(form.Copy.get(), "b0");
  clock.Advance(500);
  EXPECT_EQ(ticks, 4);
  form.Rows.AddItem("row");
  clock.Advance(100);
  EXPECT_EQ(form.Copy.get(), "b1");
  form.Fast.Enabled = false;
  form.Source = "c";
  EXPECT_FALSE(clock.Armed(form.Fast)) << "a stopped timer stays stopped";
}

}  // namespace
}  // namespace yarvo
