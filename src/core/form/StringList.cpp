#include "core/form/StringList.h"

#include "core/form/RuntimeError.h"

namespace yarvo {

namespace {
const std::string kEmpty;
}

void StringList::AddItem(std::string text) {
  items_.push_back(std::move(text));
  Touched();
}

void StringList::AddItem(std::string text, int index) {
  if (index < 0 || index > ListCount()) throw err::InvalidProcedureCall();
  items_.insert(items_.begin() + index, std::move(text));
  if (cursor_ >= index) ++cursor_;  // the selection stays on its row
  Touched();
}

void StringList::RemoveItem(int index) {
  if (!InRange(index)) throw err::InvalidProcedureCall();
  items_.erase(items_.begin() + index);
  if (cursor_ == index) {
    cursor_ = -1;
  } else if (cursor_ > index) {
    --cursor_;
  }
  Touched();
}

void StringList::Clear() {
  items_.clear();
  cursor_ = -1;
  Touched();
}

void StringList::SetListIndex(int index) {
  if (index != -1 && !InRange(index)) throw err::InvalidPropertyValue();
  if (cursor_ == index) return;
  cursor_ = index;
  Touched();
  CursorMoved();
}

void StringList::Selected(int index) {
  if (!InRange(index)) throw err::InvalidPropertyIndex();
  SetListIndex(index);
}

const std::string& StringList::Text() const { return List(cursor_); }

const std::string& StringList::List(int index) const {
  detail::Reading(this);
  return InRange(index) ? items_[static_cast<std::size_t>(index)] : kEmpty;
}

void StringList::SetList(int index, std::string text) {
  if (!InRange(index)) throw err::InvalidPropertyIndex();
  items_[static_cast<std::size_t>(index)] = std::move(text);
  Touched();
}

}  // namespace yarvo
