#pragma once

#include "controls/standard.hpp"

namespace varnholt::search {

/// "Match Found !": a folder that a search has found, to be gone to or passed over.
class Form37 : public controls::Form {
 public:
  explicit Form37(controls::MessageLoop& loop);

  controls::TextBox Text1{*this, "Text1"};       ///< the folder
  controls::Button Command1{*this, "Command1"};  ///< accept
  controls::Button Command2{*this, "Command2"};  ///< cancel
  controls::Button Command3{*this, "Command3"};  ///< continue

  enum class Answer { Accept = 1, Cancel = 2, Continue = 3 };
  Answer answer = Answer::Cancel;  ///< also of the close box

 private:
  void bind(controls::Button& button, Answer answer, const char* title);
};

}  // namespace varnholt::search
