#include "support/app_rig.hpp"

namespace varnholt::app {
namespace {

using panels::Panel;
namespace column = panels::column;

class ListingTest : public test::AppTest {
 protected:
  /// First columns, the extensions behind a mark if `whole`.
  std::string order(Panel& panel, bool whole) {
    std::string all;
    for (const auto& name : rig.names(panel))
      all += name.substr(0, whole ? name.npos : name.find('|')) + " ";
    return all;
  }
};

TEST_F(ListingTest, RowsTellFoldersAndFilesApart) {
  rig.makeFolder("C:\\Photos.2024");
  rig.write("C:\\report.final.txt", std::string(1234567, 'x'));
  rig.write("C:\\empty", "");
  rig.write("C:\\ends in point.", "12");
  for (const char* path : {"C:\\report.final.txt", "C:\\empty", "C:\\ends in point.", "C:\\Photos.2024"})
    rig.setDate(path, 2023, 12, 31);
  rig.startLeft();
  const std::string date = "31-12-23  12:00", day = "000000000045291";
  const Names rows{"\\ Photos.2024| |< Folder >|" + date + "||", "empty||0|" + date + "|0|" + day,
                   "ends in point.||2|" + date + "|000,000,000,002|" + day,
                   "report.final|txt|1,234,567|" + date + "|000,001,234,567|" + day};
  EXPECT_EQ(test::rowsOf(left().list, column::Count), rows);
  EXPECT_EQ(left().list.item(0).SmallIcon(), 6);
  EXPECT_EQ(left().list.item(1).SmallIcon(), 7);
  EXPECT_EQ(left().fileName(left().list.item(1)), "empty");
}

TEST_F(ListingTest, AwkwardEntriesAreListedAsWhatTheyAre) {
  const std::string folder = rig.systemPath("C:\\");
  rig.scratch.file("home/a\\b.txt");
  write({"line\nbreak.txt", "bytes \xFF\xFE.bin", "target\\inside.txt"});
  rig.scratch.link("home/dangling.lnk", "nowhere").link("home/to folder", "target").link("home/endless", "/dev/zero");
  rig.scratch.pipe("home/pipe");
  std::filesystem::resize_file((rig.write("C:\\huge.img"), folder + "huge.img"), 5ull << 30);
  rig.setDate("C:\\huge.img", 1950, 12, 31);
  rig.startLeft();
  EXPECT_EQ(left().list.cell(rig.rowOf(left(), "huge"), column::Size), "5,368,709,120");
  EXPECT_EQ(left().list.cell(rig.rowOf(left(), "huge"), column::Date), "31-12-50  12:00");
  EXPECT_EQ(left().list.cell(rig.rowOf(left(), "\\ to folder"), column::Size), "< Folder >");
  EXPECT_EQ(left().list.source().emblem(left().list.idAt(rig.rowOf(left(), "dangling"))), controls::Emblem::LinkGone);
  EXPECT_EQ(left().list.source().emblem(left().list.idAt(rig.rowOf(left(), "\\ to folder"))), controls::Emblem::Link);
  for (const char* row : {"pipe", "endless", "dangling", "line\nbreak", "bytes \xFF\xFE"})
    rig.click(left(), row);  // which looks for a picture of it
  const auto backslash = left().list.item(rig.rowOf(left(), "a\xEF\x81\x9C"
                                                            "b"));
  EXPECT_EQ(rig.platform->toSystem(left().itemPath(backslash)), rig.scratch / "home/a\\b.txt");
}

using SortRow = std::pair<int, const char*>;  ///< a click on that column, and the order then

TEST_F(ListingTest, EveryColumnSortsBothWaysTheFirstClickDescending) {
  rig.makeFolder("C:\\zoo");
  rig.makeFolder("C:\\Art");
  for (const auto& [name, size, year] : {std::tuple{"C:\\b.zip", 9, 2020},
                                         {"C:\\A.txt", 10, 2001},
                                         {"C:\\c.doc", 1000, 2019},
                                         {"C:\\10.doc", 0, 2019}}) {
    rig.write(name, std::string(static_cast<std::size_t>(size), 'x'));
    rig.setDate(name, year, 2, 2);
  }
  rig.startLeft();
  EXPECT_EQ(order(right(), false), "\\ Art \\ zoo 10 A b c ");
  const SortRow rows[] = {{1, "c b A 10 \\ zoo \\ Art "}, {1, "\\ Art \\ zoo 10 A b c "},
                          {2, "b A 10 c \\ Art \\ zoo "}, {2, "\\ Art \\ zoo 10 c A b "},
                          {3, "c A b 10 \\ Art \\ zoo "}, {3, "\\ Art \\ zoo 10 b A c "},
                          {4, "b 10 c A \\ Art \\ zoo "}, {4, "\\ Art \\ zoo A 10 c b "},
                          {3, "c A b 10 \\ Art \\ zoo "}, {2, "\\ Art \\ zoo c 10 A b "}};
  for (const auto& [number, expected] : rows) {
    right().list.headerFromUser(number);
    EXPECT_EQ(order(right(), false), expected) << "column " << number;
    EXPECT_EQ(right().list.MousePointer, controls::pointer::Default);
  }
  const auto& headers = right().list.ColumnHeaders.get();
  EXPECT_EQ(headers[1].Icon, 13);
  EXPECT_EQ(headers[0].Icon, 14);
  EXPECT_EQ(headers[4].Icon, 0);
  right().list.headerFromUser(4);
  EXPECT_EQ(right().list.ColumnHeaders.get()[3].Icon, 12);
}

TEST_F(ListingTest, RowsThatAreAlikeInAColumnKeepTheOrderOfTheListBefore) {
  for (const char* name : {"C:\\k1.t", "C:\\k2.t", "C:\\k3.t", "C:\\x.a", "C:\\x.b", "C:\\x.c"}) {
    rig.write(name);
    rig.setDate(name, 2020, 1, 1);
  }
  rig.startLeft();
  constexpr int Name = 1, Ext = 2, Size = 3, Date = 4;
  const SortRow clicks[] = {{Name, "x|a x|b x|c k3|t k2|t k1|t "}, {Size, "x|a x|b x|c k3|t k2|t k1|t "},
                            {Date, "x|a x|b x|c k3|t k2|t k1|t "}, {Date, "x|a x|b x|c k3|t k2|t k1|t "},
                            {Size, "x|a x|b x|c k3|t k2|t k1|t "}, {Ext, "x|a x|b x|c k3|t k2|t k1|t "},
                            {Ext, "k3|t k2|t k1|t x|c x|b x|a "},  {Name, "k1|t k2|t k3|t x|c x|b x|a "},
                            {Name, "x|c x|b x|a k3|t k2|t k1|t "}};
  for (const auto& [number, expected] : clicks) {
    left().list.headerFromUser(number);
    EXPECT_EQ(order(left(), true), expected) << "column " << number;
  }
}

TEST_F(ListingTest, FoldersLeadWhateverSignAFileBeginsWith) {
  for (const char* folder : {"C:\\zoo", "C:\\.hidden"})
    rig.makeFolder(folder);
  write({"!a", "#b", "(c", "[d", ".e", "1"});
  rig.startLeft();
  rig.menu("HidSysfiles").choose();
  Names rows = {"\\ .hidden| ", "\\ zoo| ", "!a|", "#b|", "(c|", ".e|", "[d|", "1|"};
  EXPECT_EQ(rig.names(left()), rows);
  left().list.headerFromUser(1);
  std::ranges::reverse(rows);
  EXPECT_EQ(rig.names(left()), rows);
}

TEST_F(ListingTest, HiddenFilesAndProgramsOnlyAreChoices) {
  write({"plain.txt", ".profile", "both.txt", "locked.txt", "Setup.EXE", "edit.Com", "run.bat"});
  rig.makeFolder("C:\\.config");
  setAttributes("C:\\both.txt", 3);
  setAttributes("C:\\locked.txt", 1);
  rig.startLeft();
  EXPECT_EQ(rig.names(left()), (Names{"\\ .config| ", "edit|Com", "locked|txt", "plain|txt", "run|bat", "Setup|EXE"}));
  EXPECT_EQ(left().list.item(rig.rowOf(left(), "locked")).SmallIcon(), 9);
  const auto line = [&] { return rig.menu("Viewfilter").Caption.get(); };
  rig.menu("HidSysfiles").choose();
  EXPECT_EQ(left().list.count(), 8u);
  EXPECT_EQ(left().list.item(rig.rowOf(left(), "both")).SmallIcon(), 8);
  EXPECT_EQ(line(), "|  View Filter:  All Files  (*.*)");
  rig.menu("ViewProg").choose();
  EXPECT_EQ(rig.names(left()), (Names{"\\ .config| ", "edit|Com", "Setup|EXE"}));
  EXPECT_EQ(line(), "|  View Filter:  Programs Only  (*.Exe , *.Com)");
  EXPECT_FALSE(rig.menu("Viewall").Checked);
}

TEST_F(ListingTest, TheDateSystemNamesTheColumnAndFillsIt) {
  rig.write("C:\\a.txt");
  rig.setDate("C:\\a.txt", 2001, 2, 3);
  rig.startLeft();
  const auto dates = [&] {
    return left().list.ColumnHeaders.get()[3].Text + left().list.cell(0, column::Date) +
           right().list.cell(0, column::Date);
  };
  EXPECT_EQ(dates(), "Date Modified:03-02-01  12:0003-02-01  12:00");
  rig.menu("DateTime12").choose();
  EXPECT_EQ(dates(), "Date Modified:02-03-01  12:00  PM02-03-01  12:00  PM");
  rig.menu("DateCreate").choose();
  EXPECT_TRUE(dates().starts_with("Date Created:"));
  EXPECT_EQ(dates().find("02-03-01"), std::string::npos) << "the birth time is now, not the modified time";
  rig.menu("DateAcess").choose();
  EXPECT_EQ(dates(), "Date Accessed:02-03-01  12:00  PM02-03-01  12:00  PM");
}

TEST_F(ListingTest, AnActivePanelIsUnmistakable) {
  rig.startLeft();
  const auto active = [&] {
    return form().ListView1.ColumnHeaders.get()[0].Text + "/" + form().ListView2.ColumnHeaders.get()[0].Text + "/" +
           form().StatusBar1.panel(panels::status::ActiveView);
  };
  EXPECT_EQ(active(), "Name:  [Me Active]/Name:/View1Active");
  const auto activeColor = form().ListView1.BackColor.get();
  EXPECT_NE(activeColor, form().ListView2.BackColor.get());
  form().Command1.FontUnderline = true;
  form().ListView2.SetFocus();
  EXPECT_EQ(active(), "Name:/Name:  [Me Active]/View2Active");
  EXPECT_EQ(form().ListView2.BackColor.get(), activeColor);
  EXPECT_FALSE(form().Command1.FontUnderline);
  EXPECT_TRUE(form().View2Active() && !form().View1Active());
  EXPECT_NE(form().StatusBar1.panel(panels::status::FileSystem), "");
  EXPECT_TRUE(form().StatusBar1.panel(panels::status::FreeSpace).ends_with(" MB Free"));
}

TEST_F(ListingTest, ARefreshKeepsTheCurrentRowWhileItExists) {
  write({"a.txt", "b.txt", "noext", "d.txt"});
  rig.startLeft();
  rig.click(left(), "noext");
  rig.write("C:\\aa.txt");
  rig.menu("refrechview").choose();
  ASSERT_TRUE(left().list.SelectedItem());
  EXPECT_EQ(left().list.SelectedItem()->Text(), "noext");
  EXPECT_TRUE(left().list.SelectedItem()->Selected());
  EXPECT_EQ(left().list.count(), 5u);
  EXPECT_EQ(right().list.count(), 5u) << "the other panel shows the same folder";
  std::filesystem::remove(rig.systemPath("C:\\noext"));
  rig.menu("refrechview").choose();
  EXPECT_EQ(left().list.focusedRow(), 3u) << "the keyboard goes on from the row before";
  EXPECT_EQ(left().list.selectedCount(), 0u);
}

TEST_F(ListingTest, UpdatesListThePanelsThatShowTheFolder) {
  rig.startLeft();
  // Folders of the panels, the one that has changed, and the rows that are seen then, of one.
  for (const auto& [onLeft, onRight, changed, rowsLeft, rowsRight] : {std::tuple{"C:\\1", "C:\\1\\", "c:\\1", 1u, 1u},
                                                                      {"C:\\2", "C:\\3", "C:\\2", 1, 0},
                                                                      {"C:\\4", "C:\\5", "C:\\5\\", 0, 1},
                                                                      {"C:\\6", "C:\\6", "C:\\", 0, 0}}) {
    for (const std::string folder : {onLeft, onRight})
      rig.makeFolder(folder);
    show(onLeft, onRight);
    for (const std::string folder : {onLeft, onRight})
      rig.write(folder + "\\new");
    rig.app().listing.ViewUpdateAll(changed);
    EXPECT_EQ(left().list.count(), rowsLeft) << changed;
    EXPECT_EQ(right().list.count(), rowsRight) << changed;
  }
}

TEST_F(ListingTest, AnOperationListsItsTargetAndBothWhenTheyAreOne) {
  rig.startLeft();
  for (const bool areOne : {false, true}) {
    show("C:\\", areOne ? "C:\\" : "D:\\");
    for (const std::string folder : {"C:\\", "D:\\"})
      rig.write(folder + (areOne ? "second" : "first"));
    rig.app().listing.viewupdate();
    EXPECT_EQ(right().list.count(), areOne ? 2u : 1u);
    EXPECT_EQ(left().list.count(), areOne ? 2u : 0u) << "a source alone is not listed again";
  }
}

/// Counts what the panels ask of the disk.
class CountingFiles : public platform::ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;
  platform::Result<platform::ListingPtr> list(const std::string& folder) const override {
    ++listings;
    return ForwardingFileSystem::list(folder);
  }
  platform::Result<platform::EntryInfo> info(const std::string& path) const override {
    ++questions;
    return ForwardingFileSystem::info(path);
  }
  platform::Result<platform::Attributes> attributes(const std::string& path) const override {
    ++questions;
    return ForwardingFileSystem::attributes(path);
  }
  mutable int listings = 0, questions = 0;
};

TEST_F(ListingTest, AListingAsksOnceForTheFolderAndNothingForItsRows) {
  for (int number = 0; number < 300; ++number)
    rig.write("C:\\many\\" + std::to_string(number) + ".txt");
  auto& files = rig.use<CountingFiles>();
  rig.startLeft();
  files.listings = files.questions = 0;
  left().setPath("C:\\many");
  rig.app().listing.filedir1();
  left().list.headerFromUser(3);
  EXPECT_EQ(test::rowsOf(left().list, column::Count).size(), 300u);
  EXPECT_EQ(files.listings, 1);
  EXPECT_EQ(files.questions, 0);
}

TEST_F(ListingTest, BothPanelsOnOneFolderReadItOnceAndAnewEachTime) {
  auto& files = rig.use<CountingFiles>();
  rig.startLeft();
  EXPECT_EQ(std::exchange(files.listings, 0), 1);
  for (const char* handler : {"refrechview_Click", "ViewProg_Click", "Viewall_Click"}) {
    rig.write("C:\\" + std::string(handler) + ".exe", "");
    rig.command(handler);
    EXPECT_EQ(std::exchange(files.listings, 0), 1) << handler;
    EXPECT_EQ(rig.names(left()), rig.names(right()));
    EXPECT_EQ(left().list.count(), right().list.count());
  }
  EXPECT_EQ(left().list.count(), 3u);
}

struct FilesByHours : platform::Listing {
  explicit FilesByHours(std::int64_t from) {
    for (int number = 0; number < 12 * 24 * 2; ++number) {
      files_.emplace_back();
      files_.back().modified.seconds = from + number * std::int64_t{1800};
      files_.back().hasDates = true;
    }
  }
};

/// Put forward by an hour at a midnight, and back by one a little after the midnight four days later.
struct TurnedClock : test::FixedClock {
  platform::CalendarTime local(const platform::Date& date) const override {
    const bool isSummer = date.seconds >= Midnight && date.seconds < Midnight + 4 * 86400 - 3600 + 1800;
    return FixedClock::local({date.seconds + (isSummer ? 3600 : 0), 0});
  }
  static constexpr std::int64_t Midnight = 19'800 * std::int64_t{86400} - 5 * 3600;
};

TEST(PanelRowsTest, DaysAreThoseOfTheCalendarAlsoWhereTheClockIsTurned) {
  TurnedClock clock;
  clock.offset = 5 * 3600;
  for (const std::int64_t from : {TurnedClock::Midnight - 4 * 86400, -5 * std::int64_t{86400}}) {
    const auto listing = std::make_shared<FilesByHours>(from);
    panels::RowFormat format;
    format.clock = &clock;
    const panels::PanelRows rows(listing, {}, format);
    std::vector<std::int64_t> days, expected;
    ASSERT_TRUE(rows.numericKeys(column::DateKey, days));
    for (const auto& file : listing->files())
      expected.push_back(core::dayNumber(clock.local(file.modified)));
    EXPECT_EQ(days, expected);
  }
}

}  // namespace
}  // namespace varnholt::app
