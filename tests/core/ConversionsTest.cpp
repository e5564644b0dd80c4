#include <gtest/gtest.h>

#include <utility>

#include "core/Conversions.h"
#include "core/TimeText.h"
#include "core/form/RuntimeError.h"

namespace yarvo {
namespace {

TEST(Conversions, NumbersReadFromStoreText) {
  EXPECT_DOUBLE_EQ(CDbl(" -1 "), -1);
  EXPECT_DOUBLE_EQ(CDbl("+2.5e1"), 25);
  for (const char* bad : {"", " ", "1,5", "12abc", "True", "0x10"}) {
    EXPECT_THROW(CDbl(bad), RuntimeError) << bad;
  }
}

TEST(Conversions, WholeNumbersRoundHalfToEvenAndOverflow) {
  EXPECT_EQ(CInt(2.5), 2);
  EXPECT_EQ(CInt(3.5), 4);
  EXPECT_EQ(CInt("32767"), 32767);
  EXPECT_THROW(CInt("32768"), RuntimeError);
  EXPECT_THROW(CInt(-32769.0), RuntimeError);
  EXPECT_EQ(CLng("100000"), 100000);
  EXPECT_THROW(CLng(3e9), RuntimeError);
}

TEST(Conversions, NumbersWrittenInShortestForm) {
  EXPECT_EQ(Str(4320), "4320");
  EXPECT_EQ(Str(0.5), "0.5");
  EXPECT_EQ(Str(-0.0), "0");
  EXPECT_DOUBLE_EQ(CDbl(Str(1.0 / 3.0)), 1.0 / 3.0);
}

TEST(TimeText, TheAudioClockHasNoLeadingZeroAndRunsPastAnHour) {
  for (auto [seconds, text] : {std::pair{9L, "0:09"}, {3600L, "60:00"}, {-3L, "0:00"}}) {
    EXPECT_EQ(OneDigitMinutes(seconds), text) << seconds;
  }
}

}  // namespace
}  // namespace yarvo
