#pragma once

#include <functional>
#include <utility>

namespace varnholt::controls {

/// Told that something of it changed, so that the drawing side can pick it up at its next turn.
class Changing {
 public:
  virtual ~Changing() = default;
  virtual void markChanged() = 0;
};

/// A property of a control or form: reads as its value, and a write of another value marks the owner changed.
template <class T>
class Property {
 public:
  explicit Property(Changing& owner, T value = {}) : owner_(owner), value_(std::move(value)) {}
  Property(const Property&) = delete;
  Property& operator=(const Property& other) { return *this = other.value_; }
  Property& operator=(T value) {
    if (value_ == value) return *this;
    value_ = std::move(value);
    owner_.markChanged();
    return *this;
  }
  operator const T&() const { return value_; }
  const T& get() const { return value_; }
  const T* operator->() const { return &value_; }
  friend bool operator==(const Property& a, const T& b) { return a.value_ == b; }

  /// A value that the user gave in the drawn control: taken over without asking for a repaint.
  void takeFromUser(T value) { value_ = std::move(value); }

 private:
  Changing& owner_;
  T value_;
};

/// What a handler is hung on. One handler an event, as in the form designers of old; firing without one does nothing.
/// The handler is copied before it runs, so it may replace itself or go away with its form.
template <class... Arguments>
class Event {
 public:
  Event& operator=(std::function<void(Arguments...)> handler) {
    handler_ = std::move(handler);
    return *this;
  }
  void operator()(Arguments... arguments) const {
    if (!handler_) return;
    auto running = handler_;
    running(std::forward<Arguments>(arguments)...);
  }
  explicit operator bool() const { return static_cast<bool>(handler_); }

 private:
  std::function<void(Arguments...)> handler_;
};

}  // namespace varnholt::controls
