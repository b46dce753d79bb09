#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace varnholt::controls {

/// What a user has typed to find a row: letters that follow each other within a second make one text; the same letter
/// again stays one letter, so that it walks through the names that begin with it.
class TypeAhead {
 public:
  using Time = std::chrono::steady_clock::time_point;

  /// Takes what one key typed and gives the text to look for.
  const std::string& type(std::string_view typed, Time now) {
    if (now - last_ > Memory) text_.clear();
    last_ = now;
    if (text_ != typed) text_ += typed;
    return text_;
  }
  /// Whether a text is being typed, so that a space belongs to it.
  bool goesOn(Time now) const { return !text_.empty() && now - last_ <= Memory; }
  void forget() { text_.clear(); }

 private:
  static constexpr std::chrono::milliseconds Memory{1000};
  std::string text_;
  Time last_{};
};

}  // namespace varnholt::controls
