#pragma once

#include "controls/message_loop.hpp"
#include "controls/standard.hpp"

#include <functional>
#include <string>

namespace varnholt::fileops {

/// What to do with a target that exists.
enum class Overwrite {
  None = 0,
  ThisOne = 1,
  Cancel = 2,
  All = 3,       ///< with version check
  AllOlder = 4,  ///< with version check
  Skip = 5,
  RenameTarget = 6,
};

/// "Overwrite Warning !": source and target compared, and what to do.
class Form7 : public controls::Form {
 public:
  explicit Form7(controls::MessageLoop& loop);

  controls::Label Label1{*this, "Label1"}, Label2{*this, "Label2"};  ///< source: name, facts
  controls::Label Label3{*this, "Label3"}, Label4{*this, "Label4"};  ///< target: name, facts
  controls::Label Label6{*this, "Label6"};                           ///< what a rename does to both, in plain words
  controls::Label Label5{*this, "Label5"};                           ///< what "older" and the version check go by
  controls::Button Command11{*this, "Command11"}, Command1{*this, "Command1"}, Command2{*this, "Command2"};
  controls::Button Command3{*this, "Command3"}, Command6{*this, "Command6"}, Command4{*this, "Command4"};

  Overwrite OverwriteAnswer = Overwrite::None;
  /// An "all" answer was given: no more questions in this operation.
  std::function<void()> answeredForAll;

 private:
  void finish(Overwrite answer);
};

/// What to do with an item whose attributes protect it.
enum class AttributeAnswer { None = 0, ThisItem = 1, All = 2, Skip = 3, CancelAll = 4 };

/// "Warning": the attributes of the item in hand.
class Form10 : public controls::Form {
 public:
  explicit Form10(controls::MessageLoop& loop);

  controls::Label Label1{*this, "Label1"};
  controls::Button Command11{*this, "Command11"}, Command1{*this, "Command1"};
  controls::Button Command2{*this, "Command2"}, Command3{*this, "Command3"};

  AttributeAnswer AttrAnswer = AttributeAnswer::None;

  /// Asks about an item with these attributes; values that the table does not list pass unasked.
  void atribtrap(std::uint32_t attributes, const std::string& name);

 private:
  void finish(AttributeAnswer answer);
};

}  // namespace varnholt::fileops
