#include "core/diagnostic_log.hpp"
#include "platform/paths.hpp"
#include "support/app_rig.hpp"

namespace varnholt::tools {
namespace {

using test::noticed;
using test::told;
using Started = std::vector<std::pair<std::string, std::string>>;

class SystemShortcutsTest : public test::AppTest {
 protected:
  void SetUp() override {
    shell = &rig.useRecordingShell();
    rig.makeFolder("C:\\Work");
    rig.startLeft();
    ASSERT_TRUE(rig.app().navigation.goTo(left(), "C:\\Work"));
    windows = platform::paths::withoutClosing(rig.app().program.folders.windir);
  }
  test::RecordingShell* shell = nullptr;
  std::string windows;
};

TEST_F(SystemShortcutsTest, StartTheSystemsToolsWithWhatTheyAreToShow) {
  const std::string prompt = "\"" + windows + "\\system32\\cmd.exe\"", explorer = "\"" + windows + "\\explorer.exe\" ";
  const std::string beside = rig.programFolder();
  struct Case {
    const char* handler;
    Started started;
  };
  for (const Case& each :
       {Case{"Dos_Click", {{prompt, "C:\\Work\\"}}},
        Case{"Readme_Click", {{"\"" + windows + "\\notepad.exe\" \"" + beside + "\\Readme.txt\"", beside + "\\"}}},
        Case{"IPconfig_Click", {{prompt + " /K IPconfig/all", ""}}},
        Case{"IPconfignew_Click", {{prompt + " /K IPconfig/renew", ""}}},
        Case{"winexpl_Click", {{explorer + "\"C:\\Work\\\"", ""}}},
        Case{"winexplBoth_Click", {{explorer + "\"C:\\Work\\\"", ""}, {explorer + "\"C:\\\"", ""}}},
        Case{"regedit_Click", {{"\"" + windows + "\\regedit.exe\"", ""}}},
        Case{"OutlookExpress_Click", {{explorer + "\"mailto:\"", ""}}},
        Case{"InternetB_Click", {{explorer + "\"" + beside + "\\HomePage.htm\"", ""}}},
        Case{"attackdrive_Click", {{explorer + "\"map\"", ""}}},
        Case{"Detachdrive_Click", {{explorer + "\"disconnect\"", ""}}}}) {
    shell->started.clear();
    rig.command(each.handler);
    EXPECT_EQ(shell->started, each.started) << each.handler;
  }
  EXPECT_TRUE(rig.exists(beside + "\\HomePage.htm"));
  EXPECT_EQ(form().Caption.get(), "Varnholt - Use F4 To Update Panels !");
}

TEST_F(SystemShortcutsTest, SayWhichToolIsMissing) {
  rig.app().program.folders.windir = "C:\\Work";
  using Missing = std::pair<const char*, const char*>;
  for (const auto& [handler, text] :
       {Missing{"Dos_Click", "Cmd.exe or Command.com Not found"},
        Missing{"Readme_Click", "Could Not Find Notepad.exe !"},
        Missing{"IPconfig_Click", "Cmd.exe or IPconfig.exe In ...\\System32\rNot Found !"},
        Missing{"IPconfignew_Click", "Cmd.exe Or IPconfig.exe In ...\\System32\rNot Found !"},
        Missing{"PingI_Click", "Cmd.exe Or Ping.exe In ...\\System32 Not found !"},
        Missing{"winexpl_Click", "Explorer.exe Not Found !"}, Missing{"regedit_Click", "Regedit.exe not found !"},
        Missing{"attackdrive_Click", "Explorer.exe not found !"}}) {
    rig.command(handler, {told(text)});
    rig.loop.expectAllReached();
  }
  rig.write("C:\\Work\\command.com");
  rig.command("Dos_Click");
  EXPECT_EQ(shell->started, (Started{{"\"C:\\Work\\command.com\"", "C:\\Work\\"}}));
}

TEST_F(SystemShortcutsTest, LogOffOnlyWhenTheUserSaysYes) {
  const std::string question = "You are about to Log Off !\rARE YOU SURE ?";
  for (const auto& [answer, starts] : {std::pair{test::no(question), 0u}, {test::yes(question), 1u}}) {
    rig.command("WinShutDown_Click", {answer});
    EXPECT_EQ(shell->started.size(), starts);
  }
}

// Whatever is typed reaches ping as one word that is no option.
TEST_F(SystemShortcutsTest, PingTakesTheAddressAsItIsTyped) {
  using Typed = std::pair<const char*, const char*>;
  for (const auto& [typed, handed] : {Typed{" 10.0.0.1 ", "\"10.0.0.1\""}, Typed{"; rm -rf ~", "\"; rm -rf ~\""},
                                      Typed{"-f", "\"-f\""}, Typed{"a\" \"$(x)", "\"a\"\" \"\"$(x)\""}}) {
    shell->started.clear();
    rig.loop.whenShows("Form39")
        .run(
            [typed = typed](controls::Form& dialog) { dynamic_cast<tools::Form39&>(dialog).Text1.typeFromUser(typed); })
        .press("Command11");
    rig.command("PingI_Click");
    ASSERT_EQ(shell->started.size(), 1u);
    EXPECT_EQ(shell->started[0].first, "\"" + windows + "\\system32\\cmd.exe\" /K Ping -- " + handed);
  }
  rig.loop.whenShows("Form39").press("Command11").press("Command2");
  rig.command("PingI_Click", {noticed("Key In Ping Address Please !")});
}

TEST_F(SystemShortcutsTest, TheAboutBoxTellsTheVersion) {
  rig.loop.whenShows("form8").reads("Label1", "Varnholt " + core::programVersion()).press("Command1");
  rig.command("About_program_Click");
}

}  // namespace
}  // namespace varnholt::tools
