#pragma once

#include "support/app_rig.hpp"

namespace varnholt::rename {

/// The left panel active on a folder of its own, "C:\Pics\", the right one on "C:\Other\".
class RenameTest : public test::AppTest {
 protected:
  using Action = std::function<void()>;

  void SetUp() override { begin(); }
  void begin() {
    rig.makeFolder("C:\\Pics");
    rig.makeFolder("C:\\Other");
    rig.startLeft();
  }

  void make(const std::vector<std::string>& names) {
    for (const std::string& name : names)
      rig.write("C:\\Pics\\" + name, name);
  }
  void protect(const std::string& name, platform::Attributes attributes) {
    setAttributes("C:\\Pics\\" + name, attributes);
  }
  /// Lists the folders anew and selects these rows of the left panel.
  void select(const std::vector<std::string>& rows) {
    show("C:\\Pics", "C:\\Other");
    clickAll(rows);
  }
  void rename(const Action& inDialog) {
    rig.loop.whenShows("Form14").run([inDialog](controls::Form&) { inDialog(); });
    rig.command("Command14_Click");
  }
  void rename(const Names& files, const Action& inDialog) {
    make(files);
    selectFiles(files);
    rename(inDialog);
  }
  void selectFiles(const Names& files) {
    Names rows;
    for (const std::string& file : files)
      rows.push_back(file.substr(0, file.rfind('.')));
    select(rows);
  }
  void type(controls::TextBox& field, const std::string& text) { field.typeFromUser(text); }
  void next(const std::string& name) {
    type(dialog().Text1, name);
    dialog().Command11.press();
  }
  void expectAlert(const std::string& text) { rig.loop.meets({test::told(text)}); }
  void asks(const std::string& text, bool agrees) { rig.loop.meets({agrees ? test::yes(text) : test::no(text)}); }
  std::vector<std::string> preview() {
    std::vector<std::string> rows;
    for (std::uint32_t row = 0; row < dialog().ListView1.count(); ++row)
      rows.push_back(dialog().ListView1.cell(row, 0) + " > " + dialog().ListView1.cell(row, 1));
    return rows;
  }
  bool exists(const std::string& name) { return rig.exists("C:\\Pics\\" + name); }
  std::string contents(const std::string& name) { return rig.read("C:\\Pics\\" + name); }

  Form14& dialog() { return rig.app().rename.Form14; }
};

}  // namespace varnholt::rename
