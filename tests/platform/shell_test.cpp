#include "platform/posix/shell.hpp"

#include "platform/text_fold.hpp"

#include "support/scratch_folder.hpp"

#include <sstream>

#include <sys/wait.h>

namespace varnholt::platform::posix {
namespace {

using Words = std::vector<std::string>;

Words wordsOf(std::string_view line) {
  Words words;
  for (const CommandWord& word : splitCommand(line))
    words.push_back(word.text());
  return words;
}

TEST(CommandWords, AreSplitByBlanksOutsideQuotes) {
  const std::pair<const char*, Words> cases[] = {{"", {}},
                                                 {"  \t ", {}},
                                                 {"a b\tc", {"a", "b", "c"}},
                                                 {" \"a b\"  c ", {"a b", "c"}},
                                                 {"\"\" x", {"", "x"}},
                                                 {"a\"b c\"d", {"ab cd"}},
                                                 {"\"say \"\"hi\"\" now\"", {"say \"hi\" now"}},
                                                 {"\"C:\\folder\\\" next", {"C:\\folder\\", "next"}},
                                                 {"\"not closed x", {"not closed x"}},
                                                 {"a 'b c'", {"a", "'b", "c'"}}};
  for (const auto& [line, words] : cases)
    EXPECT_EQ(wordsOf(line), words) << line;
}

TEST(CommandWords, OfAnyQuotedTextAreThatText) {
  for (const char* text : {"", "plain", "two words", "a\"b", "\"", "\"\"", "ends in \\", "tab\tand\nline", "*?$`;&|"})
    EXPECT_EQ(wordsOf("x " + quoteArgument(text) + " y"), (Words{"x", text, "y"})) << text;
}

class ShellTest : public testing::Test {
 protected:
  void SetUp() override {
    folder.write("c/plain.txt", "x");
    folder.write("c/My Folder/a file.txt", "x");
    folder.write("c/My", "x");
    folder.writeScript("c/record.sh", "#!/bin/sh\nfor word; do printf '%s\\n' \"$word\"; done > \"$OUT\"\n");
  }

  Result<std::string> findInAnyCase(const std::string& path) const {
    for (const char* known : {"C:\\record.sh", "C:\\windows\\notepad.exe", "C:\\windows\\system32\\ping.exe"})
      if (foldCase(known) == foldCase(path) && std::filesystem::exists(map.toSystem(known).valueOr("")))
        return std::string(known);
    return Error{ErrorCode::NotFound, path, ""};
  }

  static bool comesTrue(const std::function<bool()>& what) {
    for (int i = 0; i < 2000 && !what(); ++i)
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    return what();
  }
  std::string run(const std::string& command, const std::string& workingFolder = {}) {
    const auto process = shell.start(command, workingFolder);
    if (!process) return "error " + process.error().text;
    const auto code = shell.wait(*process);
    return code ? "code " + std::to_string(*code) : "error";
  }

  test::ScratchFolder folder;
  test::ScopedVariable out{"OUT", (folder / "out").c_str()};
  PathMap map{parseDriveVariable("C=" + folder / "c" + ";Z=/")};
  PosixShell shell{map,
                   {[this](const std::string& path) { return findInAnyCase(path); }, [] { return "C:\\windows"; }}};
};

TEST_F(ShellTest, HandsPathsOverInSystemForm) {
  const std::string c = folder / "c", tool = folder.writeScript("c/Program Files/a tool.exe", "#!/bin/sh\n");
  const std::pair<const char*, Words> cases[] = {
      {"gimp C:\\plain.txt", {"gimp", c + "/plain.txt"}},
      {"gimp c:\\plain.txt", {"gimp", c + "/plain.txt"}},
      {"gimp \"C:\\My Folder\\a file.txt\"", {"gimp", c + "/My Folder/a file.txt"}},
      {"gimp C:\\My Folder\\a file.txt", {"gimp", c + "/My Folder/a file.txt"}},
      {"gimp C:\\My other", {"gimp", c + "/My", "other"}},
      {"gimp C:\\missing one", {"gimp", c + "/missing", "one"}},
      {"gimp \"C:\\\"", {"gimp", c}},
      {"gimp Z:\\usr\\bin", {"gimp", "/usr/bin"}},
      {"gimp --file=\"C:\\plain.txt\" -v", {"gimp", "--file=" + c + "/plain.txt", "-v"}},
      {"gimp Q:\\none C: a:b http://x/C:\\y", {"gimp", "Q:\\none", "C:", "a:b", "http://x/C:\\y"}},
      {"C:\\record.sh x", {c + "/record.sh", "x"}},
      {"c:\\RECORD.SH x", {c + "/record.sh", "x"}},
      {"C:\\My Folder\\a file.txt x", {c + "/My", "Folder\\a", "file.txt", "x"}},
      {"/usr/bin/env x", {"/usr/bin/env", "x"}},
      {"C:\\Program Files\\a tool.exe -x", {tool, "-x"}},
      {"\"C:\\Program Files\\a tool.exe\" -x", {tool, "-x"}},
      {"   ", {}}};
  for (const auto& [command, words] : cases)
    EXPECT_EQ(shell.arguments(command), words) << command;
}

TEST_F(ShellTest, PassesNothingThroughACommandInterpreter) {
  EXPECT_EQ(run("C:\\record.sh $HOME ; `id` * \"a  b\" | > x & %1"), "code 0");
  EXPECT_EQ(folder.read("out"), "$HOME\n;\n`id`\n*\na  b\n|\n>\nx\n&\n%1\n");
}

TEST_F(ShellTest, TellsExitCodesAndSignals) {
  folder.writeScript("c/seven.sh", "#!/bin/sh\nexit 7\n");
  folder.writeScript("c/killed.sh", "#!/bin/sh\nkill -9 $$\n");
  EXPECT_EQ(run("C:\\seven.sh"), "code 7");
  EXPECT_EQ(run("C:\\killed.sh"), "code 137");
  EXPECT_EQ(shell.wait(12345).error().code, ErrorCode::NotFound);
}

TEST_F(ShellTest, TellsWhyAProgramDoesNotStart) {
  folder.write("c/no_program.txt", "text");
  std::filesystem::permissions(folder / "c/no_program.txt", std::filesystem::perms(0644));
  folder.writeScript("c/setup.exe", std::string("MZ\x90\0\3\0\0\0", 8));
  using enum ErrorCode;
  const std::pair<ErrorCode, Words> cases[] = {
      {NotFound, {"", "\"\" x", "no-such-program-anywhere x", "C:\\missing.exe", "Q:\\missing.exe"}},
      {AccessDenied, {"C:\\no_program.txt", "\"C:\\My Folder\""}},
      {NotSupported, {"C:\\setup.exe"}}};
  for (const auto& [code, commands] : cases)
    for (const std::string& command : commands) {
      const auto started = shell.start(command);
      ASSERT_FALSE(started) << command;
      EXPECT_EQ(started.error().code, code) << command << ": " << started.error().text;
    }
  EXPECT_EQ(shell.start("true", "Q:\\x").error().code, ErrorCode::InvalidPath);
  EXPECT_EQ(shell.start("true", "C:\\missing").error().code, ErrorCode::NotFound);
}

TEST_F(ShellTest, RunsInTheGivenFolder) {
  folder.writeScript("c/where.sh", "#!/bin/sh\npwd > \"$OUT\"\n");
  EXPECT_EQ(run("C:\\where.sh", "C:\\My Folder"), "code 0");
  EXPECT_EQ(folder.read("out"), (folder / "c/My Folder") + "\n");
}

TEST_F(ShellTest, LooksForBareNamesInTheWindowsFolder) {
  for (const char* name : {"c/windows/notepad.exe", "c/windows/system32/ping.exe"})
    folder.writeScript(name, "#!/bin/sh\necho \"$0\" > \"$OUT\"\n");
  EXPECT_EQ(run("NOTEPAD C:\\plain.txt"), "code 0");
  EXPECT_EQ(folder.read("out"), (folder / "c/windows/notepad.exe") + "\n");
  EXPECT_EQ(run("Ping.exe x"), "code 0");
  EXPECT_EQ(folder.read("out"), (folder / "c/windows/system32/ping.exe") + "\n");
}

TEST_F(ShellTest, GivesChildrenTheDriveMapFreshSignalsAndTheStandardDescriptorsAlone) {
  folder.writeScript("c/what.sh", "#!/bin/sh\n{ sed -n 's/^SigIgn:.//p' /proc/$$/status; ls -x /proc/$$/fd\n"
                                  "printf '%s' \"$VARNHOLT_DRIVE_MAP\"; } > \"$OUT\" 2>&1 3>&-\n");
  const test::ScopedVariable outer("VARNHOLT_DRIVE_MAP", "Q=/wrong");
  const int leak = ::dup2(::open("/dev/null", O_RDONLY), 7);  // without close-on-exec, as a library might leave one
  const auto old = std::signal(SIGPIPE, SIG_IGN);
  EXPECT_EQ(run("C:\\what.sh"), "code 0");
  std::signal(SIGPIPE, old);
  ::close(leak);
  std::istringstream lines(folder.read("out"));
  std::string ignored, open, drives;
  std::getline(lines, ignored);
  std::getline(lines, open);
  std::getline(lines, drives, '\0');
  EXPECT_EQ(std::stoull(ignored, nullptr, 16) >> (SIGPIPE - 1) & 1, 0u);
  EXPECT_EQ((" " + open + " ").find(" 7 "), std::string::npos) << open;
  EXPECT_EQ(drives, "C=" + folder / "c" + "\nZ=/\n");
}

TEST_F(ShellTest, LeavesNoZombieOfAProgramThatNobodyWaitsFor) {
  folder.writeScript("c/pid.sh", "#!/bin/sh\necho $$ > \"$OUT\"\n");
  ASSERT_TRUE(shell.start("C:\\pid.sh"));
  // A child that was reaped has no entry in /proc; a zombie keeps one for as long as this process lives.
  EXPECT_TRUE(comesTrue([&] {
    const std::string pid = folder.read("out");
    return pid.ends_with('\n') && !std::filesystem::exists("/proc/" + pid.substr(0, pid.size() - 1));
  }));
}

TEST_F(ShellTest, MayGoBeforeItsChildrenEnd) {
  folder.writeScript("c/slow.sh", "#!/bin/sh\nsleep 0.2\necho done > \"$OUT\"\n");
  {
    PosixShell brief(map, {[](const std::string& path) { return path; }, [] { return ""; }});
    ASSERT_TRUE(brief.start("C:\\slow.sh"));
  }
  EXPECT_TRUE(comesTrue([&] { return folder.read("out") == "done\n"; }));
}

}  // namespace
}  // namespace varnholt::platform::posix
