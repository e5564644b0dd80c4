#include "platform/SharedLibrary.h"

#include <gtest/gtest.h>

#include <cstring>

namespace yarvo {
namespace {

TEST(SharedLibrary, BindsWhatTheLibraryHasAndNothingElse) {
  const SharedLibrary c("libc.so.6");
  ASSERT_TRUE(c.loaded());
  decltype(&std::strlen) length = nullptr;
  ASSERT_TRUE(c.Bind(length, "strlen"));
  EXPECT_EQ(length("seven c"), 7u);
  EXPECT_FALSE(c.Bind(length, "no_such_function_here"));
  EXPECT_EQ(length, nullptr);

  const SharedLibrary missing("libyarvo-no-such-library.so.1");
  EXPECT_FALSE(missing.loaded());
  EXPECT_FALSE(missing.Bind(length, "strlen"));
}

}  // namespace
}  // namespace yarvo
