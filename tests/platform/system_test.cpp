#include "platform/posix/clock.hpp"
#include "platform/posix/environment.hpp"
#include "platform/posix/regional.hpp"
#include "platform/posix/system_facts.hpp"
#include "support/kill_at.hpp"
#include "support/scratch_folder.hpp"

#include <climits>
#include <ctime>

namespace varnholt::platform::posix {
namespace {

long offsetAt(std::time_t moment) {
  std::tm fields{};
  ::localtime_r(&moment, &fields);
  return fields.tm_gmtoff;
}

// The local time that a person reads off the clock leads back to its moment, also next to each change of the offset;
// where the clock was put back, the first of the two.
TEST(Clock, LeadsBackToTheMomentAroundEachChangeOfTheOffset) {
  for (const char* name : {"Europe/Copenhagen", "America/New_York", "Australia/Lord_Howe", "Pacific/Apia",
                           "Africa/Monrovia", "EST5EDT,M3.2.0,M11.1.0"}) {
    const test::ScopedVariable zone("TZ", name);
    const SystemClock clock;
    int changes = 0;
    const std::time_t hour = 3600, first = -500'000'000 / hour * hour;
    for (std::time_t at = first; at < 2'500'000'000; at += hour) {
      const long before = offsetAt(at), after = offsetAt(at + hour);
      if (before == after) continue;
      ++changes;
      for (std::time_t moment = at - 2 * hour; moment < at + 4 * hour; moment += 300) {
        const std::int64_t found = clock.fromLocal(clock.local({moment, 0})).seconds;
        const bool isSecondPass = before > after && found == moment - (before - after);
        ASSERT_TRUE(found == moment || (isSecondPass && offsetAt(moment) == after)) << moment << " gave " << found;
      }
    }
    EXPECT_GT(changes, 0) << name;
  }
}

TEST(Clock, CarriesFieldsOutOfRangeAndTakesASkippedTimeAsIfTheClockHadNotBeenPutForward) {
  const test::ScopedVariable zone("TZ", "Europe/Copenhagen");
  const SystemClock clock;
  for (const auto& [given, shown] :
       {std::pair<CalendarTime, CalendarTime>{{2007, 13, 1, 14, 61, 0}, {2008, 1, 1, 15, 1, 0}},
        {{1899, 12, 30, 0, 0, 0}, {1899, 12, 30, 0, 0, 0}},
        {{2007, 3, 25, 2, 30, 0}, {2007, 3, 25, 3, 30, 0}}}) {
    const CalendarTime found = clock.local(clock.fromLocal(given));
    EXPECT_EQ(std::tuple(found.year, found.month, found.day, found.hour, found.minute),
              std::tuple(shown.year, shown.month, shown.day, shown.hour, shown.minute));
  }
}

TEST(Clock, AnswersForAnyMoment) {
  const SystemClock clock;
  EXPECT_GT(clock.local({INT64_MAX, 0}).year, 1'000'000'000);
  EXPECT_LT(clock.local({INT64_MIN, 0}).year, -1'000'000'000);
  EXPECT_LE(std::abs(clock.now().seconds - std::time(nullptr)), 1);
}

constexpr std::uint64_t cap = 4'294'967'295;

TEST(Memory, IsTheMachinesOrWhatItsGroupMayHave) {
  using Case = std::tuple<std::string, MemoryGroup, std::uint64_t, std::uint64_t, std::uint32_t>;
  const std::string machine = "MemTotal: 8388608 kB\nMemFree: 1 kB\nMemAvailable: 2097152 kB\n";
  for (const auto& [text, group, total, available, load] :
       {Case{machine, {}, 8ull << 30, 2ull << 30, 75}, Case{machine, {"max\n", "5", ""}, 8ull << 30, 2ull << 30, 75},
        Case{machine, {"1000\n", "700\n", "file 300\ninactive_file 200\n"}, 1000, 500, 50},
        Case{machine, {"1000", "2000", ""}, 1000, 0, 100},
        Case{"MemTotal: 100 kB\nMemFree: 40 kB", {}, 102'400, 40'960, 60}, Case{"", {}, 0, 0, 0},
        Case{"MemTotal", {}, 0, 0, 0}, Case{"MemTotal: x kB\n", {}, 0, 0, 0}, Case{"MemTotalX: 5 kB\n", {}, 0, 0, 0},
        Case{"MemTotal: 0 kB\nMemFree: 9 kB", {}, 0, 0, 0}}) {
    const MemoryStatus status = parseMemInfo(text, group);
    EXPECT_EQ(std::tuple(status.totalPhysical, status.availablePhysical, status.loadPercent),
              std::tuple(total, available, load))
        << text << group.most;
  }
}

TEST(Regional, TellsTwelveHourTimesByTheirEnd) {
  for (const char* text : {"01:00:00 PM", "1:00 am", "01:00Pm", "1.00 pm "})
    EXPECT_TRUE(endsInAmOrPm(text)) << text;
  for (const char* text : {"13:00:00", "", "m", "PM 1:00", "13:00 km"})
    EXPECT_FALSE(endsInAmOrPm(text)) << text;
}

TEST(Regional, WithoutALocaleUsesCommaPointAndTheLongClock) {
  for (const char* locale : {"C", "no_SUCH.UTF-8"}) {
    const test::ScopedVariable chosen("LC_ALL", locale);
    const RegionalFormats formats = userRegionalFormats();
    EXPECT_EQ(formats.thousandsSign + formats.decimalSign, ",.") << locale;
    EXPECT_FALSE(formats.twelveHourClock) << locale;
  }
}

// Compiles each locale into a folder of its own, so that the machine needs none installed.
TEST(Regional, FollowsTheLocaleOfTheUser) {
  using Locale = std::tuple<std::string, std::string, std::string, bool>;  // source, charset, signs, short clock
  test::ScratchFolder folder;
  for (const auto& [source, charset, signs, twelveHour] :
       {Locale{"en_US", "UTF-8", ",.", true}, Locale{"de_DE", "UTF-8", ".,", false},
        Locale{"fr_FR", "ISO-8859-1", "\u00A0,", false}}) {
    const std::string name = source + "." + charset;
    const std::string make = "localedef -i " + source + " -f " + charset + " '" + (folder / name) + "' >/dev/null 2>&1";
    if (std::system(make.c_str()) != 0) GTEST_SKIP() << "localedef or its sources are not installed";
    // In a child, since the C library never gives back what it remembers of LOCPATH.
    EXPECT_TRUE(test::heldInChild([&, signs = signs, twelveHour = twelveHour] {
      const test::ScopedVariable path("LOCPATH", folder.path().c_str()), chosen("LC_ALL", name.c_str());
      const RegionalFormats formats = userRegionalFormats();
      EXPECT_EQ(formats.thousandsSign + formats.decimalSign, signs) << name;
      EXPECT_EQ(formats.twelveHourClock, twelveHour) << name;
    }));
  }
}

namespace fs = std::filesystem;

class EnvironmentTest : public testing::Test {
 protected:
  EnvironmentTest() {
    for (const char* name : {"windir", "SystemRoot", "SystemDrive", "ProgramFiles", "tmp", "temp"})
      unset.emplace_back(name, nullptr);
    fs::create_directory(folder / "data");
    folder.writeScript("assets/windows/explorer.exe", "#!/bin/sh\necho shipped\n");
    folder.writeScript("assets/windows/system32/cmd.exe", "#!/bin/sh\n");
  }
  PosixEnvironment environment() {
    return {map, WindowsFolder(folder / "data/Windows", folder / "assets/windows"), folder / "data/Program Files",
            folder / "data/Temp"};
  }

  test::ScratchFolder folder;
  std::list<test::ScopedVariable> unset;
  PathMap map{parseDriveVariable("C=" + folder.path())};
};

TEST_F(EnvironmentTest, AnswersWithThePlatformsOwnFolders) {
  for (const auto row : test::Rows{"windir|C:\\data\\Windows", "SystemRoot|C:\\data\\Windows",
                                   "SystemDrive|C:", "ProgramFiles|C:\\data\\Program Files", "tmp|C:\\data\\Temp",
                                   "temp|C:\\data\\Temp", "WINDIR|"})
    EXPECT_EQ(environment().variable(test::Row(row).first), test::Row(row).second) << row;
  for (const char* made : {"data/Windows", "data/Program Files", "data/Temp"})
    EXPECT_TRUE(fs::is_directory(folder / made)) << made;
  EXPECT_EQ(fs::status(folder / "data/Temp").permissions(), fs::perms(0700));
}

TEST_F(EnvironmentTest, LeavesSetVariablesAsTheyAre) {
  const std::pair<std::string, std::string> cases[] = {
      {"", ""}, {"C:\\nowhere", "C:\\nowhere"}, {folder / "missing", "C:\\missing"}, {"/elsewhere", "/elsewhere"}};
  for (const auto& [set, answer] : cases) {
    const test::ScopedVariable variable("windir", set.c_str());
    EXPECT_EQ(environment().variable("windir"), answer) << set;
  }
  EXPECT_FALSE(folder.has("data/Windows"));
}

TEST_F(EnvironmentTest, MakesTheWindowsFolderOnceAndLeavesItToTheUser) {
  ASSERT_EQ(environment().windowsFolder(), "C:\\data\\Windows");
  EXPECT_EQ(folder.read("data/Windows/explorer.exe"), "#!/bin/sh\necho shipped\n");
  EXPECT_EQ(::access((folder / "data/Windows/system32/cmd.exe").c_str(), X_OK), 0);
  EXPECT_TRUE(folder.has("data/Windows/System32/cmd.exe"));
  folder.write("data/Windows/explorer.exe", "edited");
  fs::remove(folder / "data/Windows/system32/cmd.exe");
  ASSERT_EQ(environment().windowsFolder(), "C:\\data\\Windows");
  EXPECT_EQ(folder.read("data/Windows/explorer.exe"), "edited");
  EXPECT_FALSE(folder.has("data/Windows/system32/cmd.exe"));
  // Nothing of the making is left beside it.
  EXPECT_EQ(std::distance(fs::directory_iterator(folder / "data"), fs::directory_iterator()), 1);
  for (const auto cannotBe : test::Rows{"data/Windows/explorer.exe|assets/windows|C:\\assets\\windows",
                                        "data/Windows/explorer.exe/W|assets/windows|C:\\assets\\windows", "W|none|"}) {
    const test::Row row(cannotBe);
    const WindowsFolder windows(folder / row.first, folder / row.second);
    EXPECT_EQ(PosixEnvironment(map, windows, "", "").windowsFolder(), row.third) << cannotBe;
  }
}

TEST_F(EnvironmentTest, DoesNotUseATemporaryFolderOfSomebodyElse) {
  folder.write("data/Temp", "a file of that name");
  EXPECT_EQ(environment().variable("tmp"), "");
  fs::remove(folder / "data/Temp");
  fs::create_directory(folder / "elsewhere");
  fs::create_directory_symlink(folder / "elsewhere", folder / "data/Temp");
  EXPECT_EQ(environment().variable("tmp"), "");
  if (::geteuid() != 0) GTEST_SKIP() << "only root can make a folder of another user";
  fs::remove(folder / "data/Temp");
  fs::create_directory(folder / "data/Temp");
  ASSERT_EQ(::chown((folder / "data/Temp").c_str(), 65534, 65534), 0);
  EXPECT_EQ(environment().variable("tmp"), "");
}

}  // namespace
}  // namespace varnholt::platform::posix
