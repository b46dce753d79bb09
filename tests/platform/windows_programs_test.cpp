#include "platform/posix/program_resources.hpp"
#include "support/scratch_folder.hpp"
#include "support/windows_program.hpp"

namespace varnholt::platform::posix {
namespace {

// Runs the shipped scripts with stand-ins for the desktop's programs, which write down how they were called.
class WindowsScripts : public testing::Test {
 protected:
  WindowsScripts() {
    const std::string record =
        "#!/bin/sh\n{ basename \"$0\"; for w; do printf '[%s]' \"$w\"; done; echo; } >> \"$OUT\"\n";
    folder.writeScript("bin/xdg-open", record);
    folder.writeScript("bin/ping", record);
    folder.writeScript("bin/x-terminal-emulator", "#!/bin/sh\necho terminal >> \"$OUT\"\nshift\nexec \"$@\"\n");
    folder.writeScript("bin/fakeshell", "#!/bin/sh\necho stays >> \"$OUT\"\n");
    std::filesystem::create_directories(folder / "home/My Pictures");
  }

  std::string run(const std::string& script, const std::string& arguments) {
    std::filesystem::remove(folder / "out");
    const std::string command = "cd / && PATH='" + folder / "bin" + "':/usr/bin:/bin OUT='" + folder / "out" +
                                "' HOME=/home/me SHELL='" + folder / "bin/fakeshell" +
                                "' VARNHOLT_DRIVE_MAP='C=" + folder / "home" + "\nZ=/\n' '" +
                                std::string(test::SourceFolder) + "/assets/windows/" + script + "' " + arguments +
                                " </dev/null >/dev/null 2>&1";
    code = std::system(command.c_str());
    return folder.read("out");
  }

  test::ScratchFolder folder;
  int code = 0;
};

TEST_F(WindowsScripts, ExplorerOpensFoldersAndFiles) {
  EXPECT_EQ(run("explorer.exe", "'/a b/c.txt'"), "xdg-open\n[/a b/c.txt]\n");
  EXPECT_EQ(run("explorer.exe", ""), "xdg-open\n[/home/me]\n");
  EXPECT_EQ(run("explorer.exe", "map"), "xdg-open\n[network:///]\n");
}

TEST_F(WindowsScripts, ExplorerOpensTheAddressInAUrlFile) {
  const std::string home = folder / "home";
  folder.write("home/kept.url", "URL=http://example.org/kept\r\n");
  const std::pair<std::string, std::string> cases[] = {
      {"http://example.org/?a=b&c", "http://example.org/?a=b&c"},
      {"file:///C:\\My Pictures\\a.jpg", "file://" + home + "/My%20Pictures/a.jpg"},
      {"file:///c:\\x$(id)`id`;'\"&#%41.txt", "file://" + home + "/x%24%28id%29%60id%60%3b%27%22%26%23%2541.txt"},
      {"file:///C:\\back\xEF\x81\x9Cslash", "file://" + home + "/back%5cslash"},
      {"C:\\li\xEF\x80\x8Ane\xC3\xA4", "file://" + home + "/li%0ane%c3%a4"},
      {"file:///C:\\", "file://" + home + "/"},
      {"file:///C:\\kept.url", "http://example.org/kept"},
      {"file:///C:\\gone.url", "file://" + home + "/gone.url"},
      {"file:///home/me/a%20b", "file:///home/me/a%20b"}};
  for (const auto& [address, opened] : cases) {
    const std::string file = folder.write("Temp.Url", "[Default]\r\nBASEURL=" + address +
                                                          "\r\n[InternetShortcut]\r\nURL=" + address + "\r\n");
    EXPECT_EQ(run("explorer.exe", "'" + file + "'"), "xdg-open\n[" + opened + "]\n") << address;
  }
  for (const char* nothing : {"", "URL=", "URL=file:///Q:\\unknown", "URL=--help", "URL=id", "URL=../up"}) {
    const std::string file = folder.write("empty.url", std::string("[InternetShortcut]\n") + nothing + "\n");
    EXPECT_EQ(run("explorer.exe", "'" + file + "'"), "") << nothing;
  }
}

TEST_F(WindowsScripts, CmdAndPingOpenATerminalThatStays) {
  EXPECT_EQ(run("system32/cmd.exe", ""), "terminal\nstays\n");
  EXPECT_EQ(run("system32/cmd.exe", "/K Ping 'a;b' '$(id)'"), "terminal\nping\n[a;b][$(id)]\nstays\n");
  EXPECT_EQ(run("system32/cmd.exe", "/c ping x"), "terminal\nping\n[x]\n");
  folder.writeScript("bin/ip", "#!/bin/sh\necho \"ip $*\" >> \"$OUT\"\n");
  EXPECT_EQ(run("system32/cmd.exe", "/K IPconfig/all"), "terminal\nip address\nip route\nstays\n");
  EXPECT_EQ(run("system32/cmd.exe", "/K /usr/bin/true"), "terminal\nstays\n");
  EXPECT_EQ(run("system32/ping.exe", "localhost"), "terminal\nping\n[localhost]\nstays\n");
}

using test::put;
using test::windowsProgram;

std::string versionIn(const std::string& bytes) {
  return versionOfProgram([&](std::uint64_t offset, std::size_t count) {
    return offset < bytes.size() ? bytes.substr(static_cast<size_t>(offset), count) : std::string();
  });
}

TEST(VersionResource, BothProgramForms) {
  EXPECT_EQ(versionIn(windowsProgram(false, 0x00060001, 0x1DB10004)), "6.1.7601.4");
  EXPECT_EQ(versionIn(windowsProgram(true, 0xFFFF0000, 0x0000FFFF)), "65535.0.0.65535");
}

TEST(VersionResource, AnythingElseHasNone) {
  EXPECT_EQ(versionIn(std::string(4096, 'x')), "");
  using Change = std::tuple<size_t, std::uint32_t, const char*>;
  for (const auto& [at, value, what] : {Change{16, 3, "icons, no version"}, Change{0x60 + 40, 0, "no signature"},
                                        Change{20, 0x80000000, "a folder that holds itself"}}) {
    std::string bytes = windowsProgram(false, 1, 2);
    put(bytes, 0x400 + at, value, 4);
    EXPECT_EQ(versionIn(bytes), "") << what;
  }
}

TEST(VersionResource, EveryTruncationIsSafe) {
  const std::string whole = windowsProgram(true, 1, 2);
  for (size_t length = 0; length < whole.size(); ++length) {
    const std::string version = versionIn(whole.substr(0, length));
    EXPECT_TRUE(version.empty() || version == "0.1.0.2") << length;
  }
}

TEST(VersionResource, ALyingSizeMakesNobodyReadGigabytes) {
  std::string bytes = windowsProgram(false, 1, 2);
  put(bytes, 0x400 + 0x4C, 0xFFFFFFFF, 4);
  std::size_t asked = 0;
  EXPECT_EQ(versionOfProgram([&](std::uint64_t offset, std::size_t count) {
              asked = std::max(asked, count);
              return bytes.substr(static_cast<size_t>(offset), count);
            }),
            "0.1.0.2");
  EXPECT_LE(asked, 65536u);
}

}  // namespace
}  // namespace varnholt::platform::posix
