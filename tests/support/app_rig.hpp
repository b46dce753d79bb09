#pragma once

#include "app/app.hpp"
#include "support/scratch_folder.hpp"
#include "support/scripted_loop.hpp"
#include "support/stand_ins.hpp"

namespace varnholt::test {

/// What a user does in any list, and its rows as they stand: so many columns, "text|ext".
void click(controls::ListView& list, std::uint32_t row, controls::Modifiers modifiers = {});
void key(controls::ListView& list, int code, controls::Modifiers modifiers = {});
std::vector<std::string> rowsOf(const controls::ListView& list, int columns = 1);

/// The whole program on temporary folders, with a scripted user, a fixed clock and fixed regional formats. `C:` and
/// `D:` are two fresh folders, `Z:` is the root of the file system. Paths that the rig itself takes are on `C:` or
/// `D:`.
class AppRig {
 public:
  AppRig() { build(); }
  /// Over folders that another rig left, or that are still to be made, in a folder that stays: the program's next start
  /// on the same disk.
  explicit AppRig(std::string existingFolder) : scratch(std::move(existingFolder)) { build(); }
  ~AppRig();

  /// Builds the program anew over the same folders, as a second start does. Call before start().
  void restart();
  /// Puts a file system of that kind between the program and the real one, and builds the program anew.
  template <class Files>
  Files& use() {
    wrapper_ = [](platform::FileSystem& real) { return std::make_unique<Files>(real); };
    restart();
    return dynamic_cast<Files&>(*wrapped_);
  }
  /// Starts no program from here on, and gives what records them. Builds the program anew.
  RecordingShell& useRecordingShell() {
    shell_ = std::make_unique<RecordingShell>();
    restart();
    return *shell_;
  }
  /// Runs `Main`, with the splash going away by itself, and activates the main window without the tip. False: the
  /// program has ended.
  bool start();
  /// The splash that comes next goes away by itself.
  void splashGoes() {
    loop.whenShows("frmSplash").run([this](controls::Form&) { app_->frmSplash.Timer1.Tick(); });
  }
  /// start() and the left panel active, as after a click into it.
  void startLeft();

  /// Makes a file with the folders above it, by program path.
  void write(std::string_view path, std::string_view bytes = "x") { scratch.write(inScratch(path), bytes); }
  void makeFolder(std::string_view path) { scratch.folder(inScratch(path)); }
  bool exists(std::string_view path) const { return scratch.has(inScratch(path)); }
  std::string read(std::string_view path) const { return scratch.read(inScratch(path)); }
  /// Local calendar date of a file, noon.
  void setDate(std::string_view path, int year, int month, int day);
  std::string systemPath(std::string_view path) const { return scratch / inScratch(path); }
  /// A text of the registry; the key is made.
  void registerText(platform::RegistryRoot root, const std::string& key, const std::string& name, std::string text);
  /// Where the registry says that a folder of the user is.
  void useShellFolder(const std::string& name, const std::string& folder);

  app::App& app() { return *app_; }
  panels::Form1& form() { return app_->Form1; }
  controls::MenuItem& menu(const std::string& name);
  /// Runs a command by its handler, and meets these dialogs behind those that are expected already. Fails the test when
  /// there is no such handler.
  void command(const std::string& handler, const std::vector<Answer>& answers = {});
  /// Rows as they stand, "text|ext".
  std::vector<std::string> names(const panels::Panel& panel) const { return rowsOf(panel.list, 2); }
  /// Clicks a row that has this text in its first column.
  void click(panels::Panel& panel, const std::string& text, controls::Modifiers modifiers = {});
  void doubleClick(panels::Panel& panel, const std::string& text);
  void key(panels::Panel& panel, int code, controls::Modifiers modifiers = {});
  std::uint32_t rowOf(panels::Panel& panel, const std::string& text);

  ScratchFolder scratch;
  FixedClock clock;
  ScriptedLoop loop;
  std::unique_ptr<platform::PlatformHost> host;
  std::unique_ptr<RemovableDrives> drives;
  std::unique_ptr<platform::Platform> platform;
  std::string programFolder() const { return platform->programFolder; }

 private:
  void build();
  std::string inScratch(std::string_view path) const;

  std::function<std::unique_ptr<platform::FileSystem>(platform::FileSystem& real)> wrapper_;
  std::unique_ptr<RecordingShell> shell_;
  std::unique_ptr<platform::FileSystem> wrapped_;
  std::unique_ptr<app::App> app_;
};

/// The base of tests that play the whole program: what they speak of most.
class AppTest : public testing::Test {
 protected:
  using Names = std::vector<std::string>;

  panels::Form1& form() { return rig.form(); }
  panels::Panel& left() { return rig.form().Panel1; }
  panels::Panel& right() { return rig.form().Panel2; }
  platform::FileSystem& files() { return rig.platform->files; }
  std::string status(int number) { return form().StatusBar1.panel(number); }
  /// Makes small files below `C:`.
  void write(const Names& paths, std::string_view bytes = "x") {
    for (const std::string& path : paths)
      rig.write("C:\\" + path, bytes);
  }
  /// Runs a command and acts in the dialog that it shows, which is left by that button, without one by its close box,
  /// if it is still open. These dialogs are met on the way.
  void inDialog(const std::string& handler, const std::string& dialog, const std::function<void()>& acts,
                const std::vector<Answer>& answers = {}, const std::string& leaves = "Command2");
  /// Takes the panels to these folders; the left one is active then.
  void show(const std::string& leftFolder, const std::string& rightFolder);
  /// Adds these rows of the left panel to what is selected, the first one alone.
  void clickAll(const Names& rows);
  void setAttributes(const std::string& path, platform::Attributes attributes) {
    ASSERT_TRUE(files().setAttributes(path, attributes)) << path;
  }
  /// Whole names of the selected rows.
  Names selected(panels::Panel& panel);

  AppRig rig;
};

}  // namespace varnholt::test
