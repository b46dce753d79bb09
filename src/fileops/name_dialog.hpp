#pragma once

#include "controls/standard.hpp"
#include "core/message_dialogs.hpp"

#include <optional>
#include <string>

namespace varnholt::fileops {

/// How far a dialog for a name stands from the place of the window that asks: to the right and down.
struct Away {
  controls::Twips right = 2000, down = 2000;
};

/// What the small name dialog asks for, and how it says so.
struct NameQuestion {
  std::string caption;
  std::string toolTip;      ///< of the text box
  std::string pictureTip;   ///< of the picture beside it
  std::string emptyAnswer;  ///< put into the box when nothing is keyed
  std::string preset{};
  std::string icon{};            ///< of the picture; empty: that of a new file
  std::string refusedCaption{};  ///< the caption from a refused name on; empty: it stays
  /// The window from whose place it stands; null: on its caller.
  const controls::Form* beside = nullptr;
  Away away{};
};

/// What the dialogs that ask for a name have in common.
class NameForm : public controls::Form {
 public:
  controls::PictureBox Image1{*this, "Image1"};
  controls::TextBox Text1{*this, "Text1"};
  controls::Button Command11{*this, "Command11"};  ///< take the name
  controls::Button Command1{*this, "Command1"};    ///< reset the box
  controls::Button Command2{*this, "Command2"};    ///< cancel

 protected:
  NameForm(controls::MessageLoop& loop, std::string name);
  void placeBeside(const controls::Form& window, Away away = {});
};

/// `Form32`: asks for one file name.
class Form32 : public NameForm {
 public:
  explicit Form32(core::MessageDialogs& dialogs);

  /// The name, trimmed unless it is the preset one, without a character that a file name may not hold; nothing when the
  /// user cancels.
  std::optional<std::string> ask(NameQuestion question);

 private:
  void Command11_Click();

  core::MessageDialogs& dialogs_;
  NameQuestion question_;
  std::optional<std::string> name_;
};

}  // namespace varnholt::fileops
