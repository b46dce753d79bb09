#pragma once

#include "controls/standard.hpp"
#include "panels/desk.hpp"
#include "vdt/projects.hpp"

#include <functional>
#include <string>

namespace varnholt::vdt {

/// "VDT Project Manager": chooses a project, or names a new one. Whichever opens it, the current project is stored.
class Form44 : public controls::Form {
 public:
  Form44(panels::Desk& desk, Projects& projects, PointerList& list);

  controls::PictureBox Image1{*this, "Image1"}, Image2{*this, "Image2"};  ///< of a new project; of one that is opened
  controls::Label Label1{*this, "Label1"};
  controls::TextBox Text1{*this, "Text1"};       ///< name of a new project
  controls::ComboBox Combo1{*this, "Combo1"};    ///< the projects
  controls::Button Command1{*this, "Command1"};  ///< execute
  controls::Button Command2{*this, "Command2"};  ///< cancel

  /// Asks for a project in one of the two modes. False: the user has cancelled.
  bool nameProject() { return open(true); }
  bool chooseProject() { return open(false); }

  /// Another project is the current one.
  std::function<void()> projectChanged;

 private:
  bool open(bool names);
  void Form_Load();
  void Form_Activate();
  void Combo1_Click();
  void Command1_Click();
  void takeChosen();
  void takeName();
  bool mayReplace(const std::string& name);
  void finish();

  panels::Desk& desk_;
  Projects& projects_;
  PointerList& list_;
  bool names_ = false;
  bool executed_ = false;
};

}  // namespace varnholt::vdt
