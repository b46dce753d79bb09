#include "core/diagnostic_log.hpp"
#include "platform/paths.hpp"
#include "support/app_rig.hpp"

namespace varnholt::tools {
namespace {

using Started = std::vector<std::pair<std::string, std::string>>;

class SystemShortcutsTest : public test::AppTest {
 protected:
  void start() {
    shell = &rig.useRecordingShell();
    rig.makeFolder("C:\\Work");
    rig.startLeft();
    ASSERT_TRUE(rig.app().navigation.goTo(left(), "C:\\Work"));
    windows = platform::paths::withoutClosing(rig.app().program.folders.windir);
  }
  test::RecordingShell* shell = nullptr;
  std::string windows;
};

TEST_F(SystemShortcutsTest, StartTheSystemsToolsInTheActiveFolder) {
  start();
  rig.command("Dos_Click");
  rig.command("Readme_Click");
  EXPECT_EQ(shell->started, (Started{{"\"" + windows + "\\system32\\cmd.exe\"", "C:\\Work\\"},
                                     {"\"" + windows + "\\notepad.exe\" \"" + rig.programFolder() + "\\Readme.txt\"",
                                      rig.programFolder() + "\\"}}));
  EXPECT_EQ(rig.form().mode(), "DosMode");
}

TEST_F(SystemShortcutsTest, SayWhichToolIsMissing) {
  start();
  rig.app().program.folders.windir = "C:\\Work";
  rig.loop.meets({test::told("Cmd.exe or Command.com Not found")});
  rig.command("Dos_Click");
  rig.loop.meets({test::told("Could Not Find Notepad.exe !")});
  rig.command("Readme_Click");
  rig.write("C:\\Work\\command.com");
  rig.command("Dos_Click");
  EXPECT_EQ(shell->started, (Started{{"\"C:\\Work\\command.com\"", "C:\\Work\\"}}));
}

TEST_F(SystemShortcutsTest, TheAboutBoxTellsTheVersion) {
  start();
  rig.loop.whenShows("form8").reads("Label1", "Varnholt " + core::programVersion()).press("Command1");
  rig.command("About_program_Click");
}

}  // namespace
}  // namespace varnholt::tools
