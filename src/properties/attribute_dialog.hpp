#pragma once

#include "controls/standard.hpp"
#include "platform/attributes.hpp"

#include <cstddef>
#include <string>

namespace varnholt::properties {

/// "Attribut Change": which attributes the selected files get in place of those that they have.
class Form18 : public controls::Form {
 public:
  explicit Form18(controls::MessageLoop& loop);

  controls::Label Label1{*this, "Label1"};       ///< how many items are to change
  controls::TextBox Text1{*this, "Text1"};       ///< what it does to earlier attributes
  controls::CheckBox Check1{*this, "Check1"};    ///< archive
  controls::CheckBox Check2{*this, "Check2"};    ///< read-only
  controls::CheckBox Check3{*this, "Check3"};    ///< hidden
  controls::TextBox Text2{*this, "Text2"};       ///< the file changed last, and how many could not be
  controls::Button Command1{*this, "Command1"};  ///< execute
  controls::Button Command2{*this, "Command2"};  ///< cancel; stops what runs

  platform::Attributes NewAttributes = 0;
  bool StopFlag = false;

  /// As it opens for so many selected items.
  void reset(std::size_t count);
  void setRunning(bool running);

 private:
  bool running_ = false;
};

}  // namespace varnholt::properties
