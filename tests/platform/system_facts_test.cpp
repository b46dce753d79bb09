#include "platform/posix/regional.hpp"
#include "platform/posix/system_facts.hpp"

#include "support/kill_at.hpp"
#include "support/scratch_folder.hpp"

namespace varnholt::platform::posix {
namespace {

constexpr std::uint64_t cap = 4'294'967'295;

TEST(Memory, IsReadFromTheKernelsLinesAndCappedAsThe32BitFieldsAre) {
  // The text; total, available, load in percent, and page file.
  using Case = std::tuple<const char*, std::uint64_t, std::uint64_t, std::uint64_t, std::uint64_t>;
  for (const auto& [text, total, available, load, pageFile] :
       {Case{"MemTotal:        2000000 kB\nMemFree:          100000 kB\nMemAvailable:     500000 kB\n"
             "SwapCached:           12 kB\nSwapTotal:       1000000 kB\nSwapFree:         900000 kB\n",
             2'048'000'000, 512'000'000, 75, 3'072'000'000},
        Case{"MemTotal: 65900000 kB\nMemAvailable: 33000000 kB\nSwapTotal: 0 kB\n", cap, cap, 49, cap},
        Case{"MemTotal: 100 kB\nMemFree: 40 kB", 102'400, 40'960, 60, 102'400}, Case{"", 0, 0, 0, 0},
        Case{"MemTotal", 0, 0, 0, 0}, Case{"MemTotal: x kB\n", 0, 0, 0, 0}, Case{"MemTotalX: 5 kB\n", 0, 0, 0, 0}}) {
    const MemoryStatus status = parseMemInfo(text);
    EXPECT_EQ(Case(text, status.totalPhysical, status.availablePhysical, status.loadPercent, status.totalPageFile),
              Case(text, total, available, load, pageFile));
  }
  EXPECT_EQ(parseMemInfo("MemTotal: 18446744073709551615 kB").totalPhysical, cap);
  EXPECT_EQ(parseMemInfo("MemTotal: 0 kB\nMemFree: 9 kB").loadPercent, 0u);
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

}  // namespace
}  // namespace varnholt::platform::posix
