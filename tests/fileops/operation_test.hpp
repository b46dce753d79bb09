#pragma once

#include "support/app_rig.hpp"

namespace varnholt::fileops {

using test::no;
using test::told;
using test::yes;

/// The folders of the two panels.
struct Places {
  std::string from = "C:\\From", to = "C:\\To";
};

/// Both panels on folders of their own, the left one active: "C:\From\" and "C:\To\".
class OperationTest : public test::AppTest {
 protected:
  using Answers = std::vector<test::Answer>;

  void SetUp() override {
    rig.makeFolder("C:\\From");
    rig.makeFolder("C:\\To");
    rig.startLeft();
  }

  /// Lists the folders anew and selects these rows of the left panel, in this order.
  void select(const Names& rows, const Places& places = {}) {
    show(places.from, places.to);
    clickAll(rows);
  }
  /// Selects these rows, starts the operation in its dialog, and meets these dialogs.
  void copy(const Names& rows, const Answers& answers = {}, const Places& places = {}) {
    select(rows, places);
    start("Command1_Click", {{"Form3"}}, answers);
  }
  void move(const Names& rows, const Answers& answers = {}, const Places& places = {}) {
    select(rows, places);
    start("Command3_Click", {{"Form5"}}, answers);
  }
  /// Yes is the answer to the question about all.
  void remove(const Names& rows, const Answers& answers = {}, const Places& places = {}) {
    select(rows, places);
    start("Command4_Click", {{"Form4"}, yes()}, answers);
  }
  void start(const char* handler, const Answers& dialogs, const Answers& answers) {
    rig.loop.meets(dialogs);
    rig.command(handler, answers);
  }
  /// What is done to an existing target.
  static test::Answer existing(const char* button, const std::string& name = {}) {
    return {"Form7", button, name.empty() ? name : "Source FileName:     " + name};
  }
  static constexpr const char *ThisOne = "Command11", *Skip = "Command1", *Cancel = "Command2", *AllOlder = "Command3",
                              *RenameIt = "Command4", *All = "Command6";
  /// What is done about a protected file.
  static test::Answer isProtected(const char* button, const std::string& text = {}) { return {"Form10", button, text}; }
  static constexpr const char *Anyway = "Command11", *AnywayAll = "Command1", *SkipIt = "Command2",
                              *CancelAll = "Command3";
  /// Puts a file system of that kind between the program and the disk, and starts the program.
  template <class Files>
  Files& use() {
    Files& files = rig.use<Files>();
    OperationTest::SetUp();
    return files;
  }

  FileOps& ops() { return rig.app().fileops; }
  void protect(const std::string& path, platform::Attributes attributes = platform::attribute::ReadOnly) {
    setAttributes(path, attributes);
  }
};

}  // namespace varnholt::fileops
