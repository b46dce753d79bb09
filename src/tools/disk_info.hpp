#pragma once

#include "controls/standard.hpp"
#include "panels/desk.hpp"

#include <string>

namespace varnholt::tools {

/// "Disk Info": the active panel's drive and the machine's memory, as numbers and as charts, and a test of all drives.
class Form17 : public controls::Form {
 public:
  explicit Form17(panels::Desk& desk);

  controls::Label Label1{*this, "Label1"}, Label2{*this, "Label2"};  ///< drive; file system and serial number
  controls::Label Label3{*this, "Label3"}, Label4{*this, "Label4"}, Label5{*this, "Label5"};  ///< total, free, used
  controls::Label Label6{*this, "Label6"}, Label7{*this, "Label7"}, Label8{*this, "Label8"};  ///< of the memory
  controls::Label Label9{*this, "Label9"};                                                    ///< its load
  controls::Chart MSChart1{*this, "MSChart1"}, MSChart2{*this, "MSChart2"};                   ///< drive, memory
  controls::Button Command1{*this, "Command1"};                                               ///< test of all drives
  controls::Button Command3{*this, "Command3"};

  void DiskInfo_Click();
  /// Opens it and runs the test.
  void DrivetestAll_Click();

 private:
  void Form_Activate();
  void showDrive(const platform::DriveInfo& drive);
  void showMemory();
  std::string bytes(const char* picture, std::uint64_t number) const;
  std::string FreeSpaceText(std::uint64_t bytes) const;
  void Command1_Click();

  panels::Desk& desk_;
  char drive_ = 0;      ///< whose facts are awaited
  bool tests_ = false;  ///< the test runs as soon as the window is there
  bool shown_ = false;
};

}  // namespace varnholt::tools
