// Timers on the manual clock: deadline order, re-arming, and forms unloaded
// from inside their own tick.

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "core/form/Events.h"
#include "core/form/Form.h"
#include "core/form/Timer.h"
#include "support/ManualClock.h"

namespace yarvo {
namespace {

struct TimedForm : Form {
  TimedForm() : Form("Timed") {}
  Timer Fast{this, "Fast", 100, false};
  Timer Slow{this, "Slow", 250, false};
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

}  // namespace
}  // namespace yarvo
