#include <gtest/gtest.h>

#include "core/form/Form.h"
#include "core/form/ListBox.h"
#include "core/form/RuntimeError.h"
#include "core/form/StringList.h"

namespace yarvo {
namespace {

TEST(StringList, ReadingARowLeavesTheCursorOnItListingDoesNot) {
  StringList list;
  for (const char* row : {"a", "b", "c"}) list.AddItem(row);
  EXPECT_EQ(list.Text(), "");
  EXPECT_EQ(list.List(-1), "");
  EXPECT_EQ(list.List(3), "");
  EXPECT_EQ(list.ListIndex(), -1) << "List() does not move the cursor";
  for (int i = 0; i < list.ListCount(); ++i) list.Selected(i);
  EXPECT_EQ(list.ListIndex(), 2);
  EXPECT_EQ(list.Text(), "c");
  list.SetListIndex(-1);
  EXPECT_EQ(list.Text(), "");
}

TEST(StringList, CursorOutsideTheRowsIsARuntimeError) {
  StringList list;
  EXPECT_THROW(list.SetListIndex(0), RuntimeError);  // empty list
  for (const char* row : {"a", "b"}) list.AddItem(row);
  list.Selected(1);
  EXPECT_THROW(list.SetListIndex(2), RuntimeError);
  EXPECT_THROW(list.SetListIndex(-2), RuntimeError);
  EXPECT_THROW(list.Selected(-1), RuntimeError);
  EXPECT_THROW(list.Selected(2), RuntimeError);
  EXPECT_THROW(list.RemoveItem(2), RuntimeError);
  EXPECT_THROW(list.AddItem("x", 3), RuntimeError);
  EXPECT_EQ(list.ListIndex(), 1) << "a failed move leaves the cursor where it was";
}

TEST(StringList, InsertAndRemoveKeepTheCursorOnItsRow) {
  StringList list;
  for (const char* row : {"a", "b", "c"}) list.AddItem(row);
  list.Selected(1);
  list.AddItem("x", 0);
  EXPECT_EQ(list.Text(), "b");
  list.AddItem("end", list.ListCount());
  EXPECT_EQ(list.List(list.ListCount() - 1), "end");
  list.RemoveItem(0);
  EXPECT_EQ(list.Text(), "b");
  list.RemoveItem(list.ListIndex());
  EXPECT_EQ(list.ListIndex(), -1) << "removing the selected row leaves no selection";
  list.Selected(0);
  list.Clear();
  EXPECT_EQ(list.ListCount(), 0);
  EXPECT_EQ(list.ListIndex(), -1);
}

struct ListForm : Form {
  ListForm() : Form("ListForm") {}
  ListBox List{this, "List"};
};

TEST(ListBox, WritingTextSelectsTheFirstEqualRowOrNone) {
  ListForm form;
  ListBox& list = form.List;
  for (const char* row : {"one", "two", "one", "three"}) list.AddItem(row);
  list.SetText("one");
  EXPECT_EQ(list.ListIndex(), 0) << "of two equal rows the upper one wins";
  list.SetText("three");
  EXPECT_EQ(list.ListIndex(), 3);
  list.SetText("Three");
  EXPECT_EQ(list.ListIndex(), -1) << "comparison is exact and case-sensitive";
  list.SetText("");
  EXPECT_EQ(list.ListIndex(), -1);
}

}  // namespace
}  // namespace yarvo
