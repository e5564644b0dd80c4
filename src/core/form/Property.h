#pragma once
// A value of a form model that tells when it changes.
//
// Controls keep their state in properties so that an assignment from code runs
// the control's change handler, as a user's click does, and so that the Qt host
// can tell what needs repainting: each property knows the control or form it
// belongs to and marks it changed. Single-threaded: models live on the
// interface thread only.

#include <cstdint>
#include <functional>
#include <string>
#include <utility>

namespace yarvo {

// Bumped by every change of any property; the host looks for marked controls
// and forms when it moved.
std::uint64_t& modelRevision();

// What a property belongs to: a control or a form, told of every change.
class PropertyOwner {
 public:
  virtual void PropertyChanged() = 0;

 protected:
  PropertyOwner() = default;
  ~PropertyOwner();
  PropertyOwner(const PropertyOwner&) = delete;
  PropertyOwner& operator=(const PropertyOwner&) = delete;
};

namespace detail {

// What a quiet timer's tick reads (see Timer::Quiet): set while one ticks.
class ReadRecorder {
 public:
  virtual void Read(const void* place) = 0;

 protected:
  ~ReadRecorder() = default;
};
inline thread_local ReadRecorder* readRecorder = nullptr;
inline void Reading(const void* place) {
  if (readRecorder) readRecorder->Read(place);
}
// A property or list at `place` changed: the quiet timers that sleep on it
// wake up.
void Changed(const void* place);

// The owner of the properties being constructed: a property takes as its
// owner the control or form whose construction began last, which for the
// members of a control or form is the object they are members of.
inline thread_local PropertyOwner* constructingOwner = nullptr;
}  // namespace detail

// The first member of a control or form: the properties declared after it,
// in the class and in its subclasses, belong to `owner`.
class OwnsLaterProperties {
 public:
  explicit OwnsLaterProperties(PropertyOwner* owner) { detail::constructingOwner = owner; }
};

template <class T>
class Property {
 public:
  Property() = default;
  explicit Property(T initial) : value_(std::move(initial)) {}
  // A property told to another owner than the object it is a member of.
  explicit Property(PropertyOwner& owner) : owner_(&owner) {}
  // A property is a place, not a value: it is never copied, but assigning one
  // property to another copies the value, as the program's code does.
  Property(const Property&) = delete;
  Property& operator=(const Property& other) {
    set(other.value_);
    return *this;
  }

  Property& operator=(T value) {
    set(std::move(value));
    return *this;
  }

  // Stores the value; runs the change handler only when the value differs.
  void set(T value) {
    if (value == value_) return;
    value_ = std::move(value);
    ++modelRevision();
    detail::Changed(this);
    if (owner_) owner_->PropertyChanged();
    if (onChange_) onChange_();
  }

  const T& get() const {
    detail::Reading(this);
    return value_;
  }
  operator const T&() const { return get(); }  // NOLINT: reads like the field it models

  // The handler runs after the value has changed; one handler per property.
  void onChange(std::function<void()> handler) { onChange_ = std::move(handler); }

 private:
  T value_{};
  PropertyOwner* owner_ = detail::constructingOwner;
  std::function<void()> onChange_;
};

template <class T, class U>
bool operator==(const Property<T>& a, const U& b) {
  return a.get() == b;
}

using StringField = Property<std::string>;

}  // namespace yarvo
