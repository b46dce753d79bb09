#include "support/app_rig.hpp"
#include "support/kill_at.hpp"

#include <cstdio>
#include <sstream>

namespace varnholt::zip {
namespace {

std::string said(const std::string& command) {
  std::string text;
  FILE* const pipe = ::popen(command.c_str(), "r");
  for (int c; pipe && (c = std::fgetc(pipe)) != EOF;)
    text += static_cast<char>(c);
  if (pipe) ::pclose(pipe);
  return text;
}

/// A folder of each kind in the left panel, whose archives are read by another program.
class ZipTest : public test::AppTest {
 protected:
  void SetUp() override {
    write({"Pack\\a.txt", "Pack\\b.txt", "Pack\\Deep\\a.txt", "Pack\\Deep\\er\\c.txt"});
    rig.makeFolder("C:\\Pack\\Empty");
    std::filesystem::copy_file(VARNHOLT_ZIP_LIBRARY, rig.platform->toSystem(rig.programFolder() + "\\Vnzip.dll"));
    rig.startLeft();
    show("C:\\Pack", "C:\\");
  }
  Form41& dialog() { return rig.app().zip.Form41; }
  std::string archive() { return rig.systemPath("C:\\Pack\\MyZip.Zip"); }
  /// Names in the archive, all of whose entries are sound.
  std::set<std::string> entries() {
    EXPECT_EQ(said("unzip -tqq '" + archive() + "' 2>&1; 7z t '" + archive() + "' >/dev/null 2>&1 || echo unsound"),
              "");
    std::istringstream lines(said("unzip -Z1 '" + archive() + "'"));
    std::set<std::string> names;
    for (std::string name; std::getline(lines, name);)
      names.insert(name);
    return names;
  }
  std::string text(const std::string& name) { return said("unzip -p '" + archive() + "' '" + name + "'"); }
  /// Packs the selected rows; what is done in the dialog first, and what is told behind it.
  void zip(const std::function<void()>& choose, const std::vector<test::Answer>& answers) {
    rig.loop.whenShows("Form41").run([choose](auto&) { choose(); }).press("Command1").run([this](controls::Form& form) {
      if (form.Visible) form.closeFromUser();
    });
    rig.command("MakeZip_Click", answers);
  }
  test::Answer done() { return test::noticed("Zip Function Success, - Menu Close !"); }
};

TEST_F(ZipTest, FoldersKeepTheirNamesAndWhatIsBelowWhereThatIsAskedFor) {
  clickAll({"\\ Empty", "\\ Deep"});
  zip(
      [&] {
        EXPECT_EQ(dialog().ListView1.cell(0, 0) + dialog().ListView1.cell(0, 1), "C:\\Pack\\Empty\\< Folder >");
        dialog().Check1.toggleFromUser(), dialog().Check2.toggleFromUser();
      },
      {done(), test::told()});
  EXPECT_EQ(entries(), (std::set<std::string>{"Deep/a.txt", "Deep/er/c.txt"}));
  EXPECT_NE(rig.read(rig.programFolder() + "\\LeftOut.txt").find("C:\\Pack\\Empty\tan empty folder"),
            std::string::npos);
  EXPECT_EQ(rig.names(left()).size(), 5u) << "the archive is listed";
}

TEST_F(ZipTest, OneFileSwitchesNamesAndFoldersBelowOffAndNamesThatMeetAreToldApart) {
  clickAll({"\\ Deep", "a"});
  zip([&] { dialog().Check1.toggleFromUser(), dialog().Check2.toggleFromUser(); },
      {done(), test::told(),
       test::told("1 Item(s) Under Another Name :\r\rC:\\Pack\\Deep\\a.txt :  stored as a (2).txt")});
  EXPECT_EQ(entries(), (std::set<std::string>{"a.txt", "a (2).txt"}));
  EXPECT_TRUE(rig.read(rig.programFolder() + "\\LeftOut.txt").starts_with("C:\\Pack\\Deep\\er\ta folder below"));
}

TEST_F(ZipTest, FoldersOfOneNameInAndOutsideOfTheArchivesOwnAreBothThere) {
  rig.write("C:\\Deep\\a.txt", "the other");
  show("C:\\", "C:\\");
  clickAll({"\\ Pack", "\\ Deep"});
  zip(
      [&] {
        dialog().Check1.toggleFromUser(), dialog().Check2.toggleFromUser();
        dialog().Text1.Text = "C:\\Pack\\";
      },
      {done(), test::told(), test::told()});
  EXPECT_EQ(entries(), (std::set<std::string>{"a.txt", "b.txt", "Deep/a.txt", "Deep/a (2).txt", "Deep/er/c.txt"}));
}

TEST_F(ZipTest, AnArchiveIsAddedToAndWhatItHadUnderANameIsReplaced) {
  clickAll({"a", "b"});
  zip([] {}, {done()});
  rig.write("C:\\Pack\\a.txt", "changed since");
  rig.key(left(), 'A');
  clickAll({"a"});
  const std::string question = "Zip File Name \rMyZip.Zip Already Exist !\rOverwrite/Append ?";
  zip([] {}, {test::no(question)});
  EXPECT_EQ(text("a.txt"), "x");
  zip([] {}, {test::yes(question), done()});
  EXPECT_EQ(entries(), (std::set<std::string>{"a.txt", "b.txt"}));
  EXPECT_EQ(text("a.txt"), "changed since");
}

/// A volume on which somebody acts once the call of the library is under way.
struct Busy : platform::ForwardingFileSystem {
  using ForwardingFileSystem::ForwardingFileSystem;
  std::function<void()> acts = [] {};
  platform::Result<std::uint64_t> fileSize(const std::string& path) const override {
    return acts(), base_.fileSize(path);
  }
};

TEST_F(ZipTest, NineHundredAndTwoFilesAreTwoBatchesAndTheArchiveStandsBehindEach) {
  for (int number = 0; number < 902; ++number)
    rig.write("C:\\Pack\\Many\\" + std::to_string(number), std::to_string(number));
  auto& busy = rig.use<Busy>();
  rig.startLeft();
  std::set<std::string> progress;
  busy.acts = [&] {
    if (dialog().Text3.Visible) progress.insert(dialog().Text3.Text.get());
  };
  show("C:\\Pack\\Many", "C:\\");
  rig.command("selectall_Click");
  zip([&] { dialog().Text1.Text = "C:\\Pack\\"; }, {done()});
  EXPECT_EQ(entries().size(), 902u);
  EXPECT_EQ(progress, (std::set<std::string>{"Overall: 0%", "Overall: 99%"}));
  EXPECT_FALSE(dialog().Text3.Visible);
  EXPECT_EQ(text("901"), "901");
  for (const auto& entry : std::filesystem::directory_iterator(rig.systemPath("C:\\Pack")))
    EXPECT_FALSE(entry.path().filename().string().starts_with(".vnh")) << entry;
}

TEST_F(ZipTest, NoArchiveIsTouchedThatIsBrokenAndNoneIsMadeUnderANameThatIsNone) {
  clickAll({"a"});
  rig.write("C:\\Pack\\MyZip.Zip", "PK broken");
  zip([] {}, {test::yes(), test::told("Zip Function Failed !")});
  EXPECT_EQ(rig.read("C:\\Pack\\MyZip.Zip"), "PK broken");
  for (const auto& [name, answers] : std::vector<std::pair<std::string, std::vector<test::Answer>>>{
           {"x.rar", {test::told("Wrong File Extension !, - Only .Zip")}}, {"", {}}, {"../x.zip", {test::told()}}}) {
    clickAll({"a"});
    zip([&, name = name] { dialog().Text2.Text = name; }, answers);
    EXPECT_TRUE(dialog().Command2.Enabled && dialog().Check1.Enabled) << name;
  }
  EXPECT_EQ(rig.names(left()).size(), 5u);
  clickAll({"a"});
  rig.loop.whenShows("Form41")
      .run([&](auto&) { dialog().Text2.Text = ""; })
      .press("Command1")
      .run([&](controls::Form& form) {
        EXPECT_TRUE(dialog().Text2.hasFocus());
        form.closeFromUser();
      });
  rig.command("MakeZip_Click");
  clickAll({"a"});
  rig.loop.whenShows("Form41").reads("Text2", "MyZip.Zip").closes();
  rig.command("MakeZip_Click");
}

TEST_F(ZipTest, StopKeepsNothingOfTheBatchAndTellsWhatCouldNotBeRead) {
  clickAll({"a", "b"});
  rig.loop.onTurn = [&] {
    if (!dialog().Command1.Enabled) dialog().Command4.press();
  };
  zip([] {}, {});
  rig.loop.onTurn = {};
  EXPECT_FALSE(rig.exists("C:\\Pack\\MyZip.Zip")) << "stopped between two rows";
  clickAll({"a", "b"});
  std::filesystem::remove(rig.systemPath("C:\\Pack\\b.txt"));
  zip([] {}, {done(), test::told()});
  EXPECT_EQ(entries(), (std::set<std::string>{"a.txt"}));
  cZip zip;
  zip.BasePath = "C:\\Pack\\";
  zip.ZipFile = "MyZip.Zip";
  zip.AddFileSpec("C:\\Pack\\Deep\\a.txt");
  zip.Service = [](const std::string&, bool& cancel) { cancel = true; };
  mZip library(rig.app().program);
  EXPECT_NE(library.Zip(zip).value_or(0), 0);
  EXPECT_EQ(entries().size(), 1u);
  zip.Service = {};
  EXPECT_EQ(library.Zip(zip), 0) << "a stop is over with its run";
  for (int count = 0; count < 1024; ++count)
    zip.AddFileSpec("C:\\Pack\\a.txt");
  EXPECT_FALSE(library.Zip(zip)) << "more than there are slots";
}

TEST_F(ZipTest, StopInTheMiddleOfTheCallKeepsNothing) {
  auto& busy = rig.use<Busy>();
  rig.startLeft();
  show("C:\\Pack", "C:\\");
  clickAll({"a"});
  busy.acts = [&] { rig.loop.stopMeanwhile(); };
  zip([] {}, {});
  EXPECT_FALSE(rig.exists("C:\\Pack\\MyZip.Zip"));
}

TEST_F(ZipTest, WithoutTheLibraryOrASelectionThereIsNoDialog) {
  rig.command("MakeZip_Click", {test::told("No Items Selected, - Function Exits !")});
  std::filesystem::remove(rig.platform->toSystem(rig.programFolder() + "\\Vnzip.dll"));
  rig.loop.whenBox("Alert !", controls::MessageAnswer::Ok,
                   "File Vnzip.Dll missing in Application Folder, Function exits !");
  rig.command("MakeZip_Click");
}

/// The library by itself, on a folder of the system.
class ZipLibraryTest : public testing::Test {
 protected:
  ZipLibraryTest() {
    for (const char* name : {"one", "two", "three"})
      scratch.write(name, std::string(3000, name[0]) + name);
  }
  int pack(const std::vector<std::string>& names, const VnOptions& asked = {}) const {
    const platform::SharedLibrary library(VARNHOLT_ZIP_LIBRARY);
    VnOptions options = asked;
    const std::string root = scratch.path();
    options.rootDirectory = root.c_str();
    library.call<decltype(ZpSetOptions)>("ZpSetOptions")(&options);
    const auto archive = library.call<decltype(ZpArchive)>("ZpArchive");
    int result = 0;
    for (const std::string& name : names) {
      const std::string path = scratch / name;
      const char* const fileSpecs[] = {path.c_str()};
      result = std::max(result, archive(1, "x.zip", fileSpecs));
    }
    return archive(0, "", nullptr), result;
  }
  std::string entries() const {
    return said("unzip -tqq '" + (scratch / "x.zip") + "' 2>&1 && unzip -Z1 '" + (scratch / "x.zip") + "'");
  }

  test::ScratchFolder scratch;
};

TEST_F(ZipLibraryTest, AKillAtAnyCallLeavesTheArchiveOfTheLastWholeBatch) {
  const auto before = [&] {
    std::filesystem::remove(scratch / "x.zip");
    ASSERT_EQ(pack({"one"}), 0);
  };
  before();
  const test::KillAt killer([] {}, [&] { (void)pack({"two", "three", "one"}); });
  const int moments = killer.moments();
  if (moments == test::KillAt::Untraceable) GTEST_SKIP() << "processes may not be traced here";
  ASSERT_GT(moments, 10);
  std::set<std::string> seen;
  for (int moment = 0; moment < moments; ++moment) {
    before();
    (void)killer.at(moment);
    seen.insert(entries());
  }
  EXPECT_EQ(seen, (std::set<std::string>{"one\n", "one\ntwo\n", "one\ntwo\nthree\n"}));
}

TEST_F(ZipLibraryTest, WhatBatchesReplaceDoesNotStayInTheArchive) {
  ASSERT_EQ(pack({"one", "two", "three"}), 0);
  const auto size = std::filesystem::file_size(scratch / "x.zip");
  ASSERT_EQ(pack({"three", "one", "two", "one"}), 0);
  EXPECT_EQ(std::filesystem::file_size(scratch / "x.zip"), size);
  EXPECT_EQ(entries(), "one\ntwo\nthree\n");
}

TEST_F(ZipLibraryTest, AbsurdRequestsAreRefusedAndNothingIsTouched) {
  const platform::SharedLibrary library(VARNHOLT_ZIP_LIBRARY);
  EXPECT_NE(library.call<decltype(ZpInit)>("ZpInit")(nullptr), 0);
  EXPECT_NE(library.call<decltype(ZpSetOptions)>("ZpSetOptions")(nullptr), 0);
  const auto archive = library.call<decltype(ZpArchive)>("ZpArchive");
  EXPECT_NE(archive(1, "x.zip", nullptr), 0);
  EXPECT_NE(archive(-1, "x.zip", nullptr), 0);
  EXPECT_NE(archive(VnSlots, "x.zip", nullptr), 0);
  EXPECT_NE(archive(1, nullptr, nullptr), 0);
  VnOptions secret{};
  secret.encrypt = 1;
  EXPECT_NE(pack({"one"}, secret), 0);
  EXPECT_FALSE(scratch.has("x.zip"));
}

TEST_F(ZipLibraryTest, NamesTimesModesAndLinksComeOutAsTheyWere) {
  scratch.write("sub/\xC3\xA4 b\\c.sh", "run");
  scratch.write("sub/empty", "");
  scratch.link("sub/l", "../one");
  std::filesystem::permissions(scratch / "sub/\xC3\xA4 b\\c.sh", std::filesystem::perms(0750));
  VnOptions all{};
  all.recurse = 2;
  ASSERT_EQ(pack({"sub/*.*"}, all), 0);
  said("cd '" + scratch.path() + "' && mkdir out && cd out && LC_ALL=C.UTF-8 unzip -q ../x.zip");
  const std::filesystem::path out = scratch / "out/sub";
  EXPECT_EQ(std::filesystem::read_symlink(out / "l"), "../one");
  const std::filesystem::path script = out / "\xC3\xA4 b\xEF\x81\x9C"
                                             "c.sh";
  struct stat packed {
  }, was{};
  ASSERT_EQ(::stat(script.c_str(), &packed) + ::stat((scratch / "sub/\xC3\xA4 b\\c.sh").c_str(), &was), 0);
  EXPECT_EQ(packed.st_mode, was.st_mode);
  EXPECT_EQ(packed.st_mtim.tv_sec, was.st_mtim.tv_sec);
}

}  // namespace
}  // namespace varnholt::zip
