#pragma once
// An ordered list of strings with one cursor: the list kind of every store slot
// and list control.
//
// Rows are zero-based; the cursor is -1 when no row is selected. The program
// reads row i by moving the cursor there and reading Text(), so a walk over the
// list leaves the cursor on the last row read. Out-of-range operations raise
// the program's RuntimeError, which callers guard with ResumeNext.

#include <string>
#include <vector>

#include "core/form/Property.h"

namespace yarvo {

class StringList {
 public:
  StringList() = default;
  StringList(const StringList&) = delete;
  StringList& operator=(const StringList&) = delete;
  virtual ~StringList() = default;

  void AddItem(std::string text);
  // Inserts before `index`; 0 to ListCount() are valid.
  void AddItem(std::string text, int index);
  void RemoveItem(int index);
  void Clear();
  int ListCount() const {
    detail::Reading(this);
    return static_cast<int>(items_.size());
  }

  int ListIndex() const {
    detail::Reading(this);
    return cursor_;
  }
  // -1 clears the selection; any other value outside the rows is an error.
  void SetListIndex(int index);
  // Selects `index` (single selection); the same as SetListIndex, but -1 is
  // no row and so an error.
  void Selected(int index);
  bool IsSelected(int index) const { return index == ListIndex() && index >= 0; }

  // The row under the cursor, "" when there is none.
  const std::string& Text() const;
  // Row `index` without moving the cursor; "" outside the rows.
  const std::string& List(int index) const;
  // Replaces the text of row `index`.
  void SetList(int index, std::string text);

  const std::vector<std::string>& Items() const {
    detail::Reading(this);
    return items_;
  }

 protected:
  // Lets a subclass react to any change (the visible list repaints).
  virtual void Changed() {}
  // Runs when SetListIndex or Selected moves the cursor to another row.
  virtual void CursorMoved() {}

 private:
  bool InRange(int index) const { return index >= 0 && index < static_cast<int>(items_.size()); }
  // Every change: the timers that wait on the list, then the subclass.
  void Touched() {
    ++modelRevision();
    detail::Changed(this);
    Changed();
  }

  std::vector<std::string> items_;
  int cursor_ = -1;
};

}  // namespace yarvo
