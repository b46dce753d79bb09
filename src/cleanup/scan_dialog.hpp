#pragma once

#include "cleanup/hits.hpp"
#include "controls/standard.hpp"
#include "core/stoppable_call.hpp"
#include "panels/desk.hpp"

#include <array>
#include <memory>
#include <string>

namespace varnholt::cleanup {

/// "Cleanup Options": which of the hits are to go.
class Form23 : public controls::Form {
 public:
  explicit Form23(controls::MessageLoop& loop);

  controls::Label Label1{*this, "Label1"};
  controls::Button Command1{*this, "Command1"};  ///< selected
  controls::Button Command2{*this, "Command2"};  ///< all
  controls::Button Command3{*this, "Command3"};  ///< cancel
};

/// "CleanUp-Search": finds the files of a drive or folder that patterns match, and lists them for what is to be done
/// with them. The controls, and how they hang on each other.
class Form16 : public controls::Form {
 public:
  explicit Form16(panels::Desk& desk);

  controls::CheckBox Check1{*this, "Check1"}, Check2{*this, "Check2"}, Check3{*this, "Check3"};
  controls::CheckBox Check4{*this, "Check4"}, Check5{*this, "Check5"}, Check6{*this, "Check6"};
  controls::CheckBox Check7{*this, "Check7"}, Check8{*this, "Check8"};
  controls::ComboBox Drive1{*this, "Drive1"};
  controls::TextBox Text1{*this, "Text1"};  ///< what is going on
  controls::ProgressBar ProgressBar1{*this, "ProgressBar1"};
  controls::ListView ListView1{*this, "ListView1"};
  controls::PictureBox Image2{*this, "Image2"};      ///< preview of a picture
  controls::PictureBox Picture1{*this, "Picture1"};  ///< icon of the file's type
  // The further options.
  controls::TextBox Text2{*this, "Text2"};                         ///< patterns of the user's own
  controls::CheckBox Check9{*this, "Check9"};                      ///< sizes count
  controls::TextBox Text3{*this, "Text3"}, Text4{*this, "Text4"};  ///< more than, less than so many megabytes
  controls::CheckBox Check10{*this, "Check10"};                    ///< the active panel's folder
  controls::Label Label1{*this, "Label1"}, Label2{*this, "Label2"}, Label3{*this, "Label3"};
  controls::TextBox Text5{*this, "Text5"};       ///< name of a collection
  controls::Button Command1{*this, "Command1"};  ///< start
  controls::Button Command7{*this, "Command7"};  ///< stop
  controls::Button Command4{*this, "Command4"};  ///< more, less
  controls::Button Command5{*this, "Command5"};  ///< standard boxes
  controls::Button Command3{*this, "Command3"};  ///< clean
  controls::Button Command6{*this, "Command6"};  ///< go to
  controls::Button Command9{*this, "Command9"};  ///< to the desktop
  controls::Button Command8{*this, "Command8"};  ///< save as a collection
  controls::Button Command2{*this, "Command2"};  ///< leave
  controls::Timer Timer1{*this, "Timer1"};       ///< empties the list

  struct PatternBox {
    controls::CheckBox& box;
    const char *pattern, *toolTip;
    bool standard;
  };
  /// The boxes that add a pattern each, in their order.
  std::array<PatternBox, 8> patternBoxes();

  /// The further options are shown, and count.
  bool options() const { return options_; }
  /// The drive or folder to scan, as a path.
  const std::string& root() const { return root_; }

  void show(std::shared_ptr<const Hits> hits);
  void clearHits();
  /// Null while the list has no hits.
  const HitRows* hitRows() const { return dynamic_cast<const HitRows*>(&ListView1.source()); }
  /// What works while the list has rows, and what only does so when nothing runs.
  void setRunning(bool running);
  /// A call runs that the stop button, or Esc, ends.
  void letStop(bool running);

  core::StoppableCall work{loop()};

 private:
  void setTexts();
  void bind();
  void Form_Load();
  void Form_Unload();
  void Form_Activate();
  const panels::Panel& activePanel() const;
  void fillDrives();
  void setRoot(const std::string& root);
  /// The active panel may have gone elsewhere while the dialog was hidden.
  void takeRoot();
  void showCaption();
  void Drive1_Change();
  void Check10_Click();
  void Command4_Click();
  void Command5_Click();
  void FlotingPointError(const controls::TextBox& box);
  void ListView1_ColumnClick(int number);
  void setStandard();
  /// What works while the list has rows and nothing runs.
  void followRows(bool running);

  panels::Desk& desk_;
  std::string root_;
  bool options_ = false;
  bool boxesOff_ = false;  ///< by the button that switches between none and the standard
};

}  // namespace varnholt::cleanup
