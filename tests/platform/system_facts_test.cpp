#include "platform/posix/regional.hpp"
#include "platform/posix/system_facts.hpp"

#include "support/kill_at.hpp"
#include "support/scratch_folder.hpp"

#include <gtest/gtest.h>

namespace varnholt::platform::posix {
namespace {

constexpr std::uint64_t cap = 4'294'967'295;

TEST(Memory, IsReadFromTheKernelsLines) {
  const MemoryStatus status =
      parseMemInfo("MemTotal:        2000000 kB\nMemFree:          100000 kB\nMemAvailable:     500000 kB\n"
                   "SwapCached:           12 kB\nSwapTotal:       1000000 kB\nSwapFree:         900000 kB\n");
  EXPECT_EQ(status.totalPhysical, 2'048'000'000u);
  EXPECT_EQ(status.availablePhysical, 512'000'000u);
  EXPECT_EQ(status.loadPercent, 75u);
  EXPECT_EQ(status.totalPageFile, 3'072'000'000u);
  EXPECT_EQ(status.availablePageFile, 1'433'600'000u);
}

TEST(Memory, IsCappedAsThe32BitFieldsAre) {
  const MemoryStatus status = parseMemInfo("MemTotal: 65900000 kB\nMemAvailable: 33000000 kB\nSwapTotal: 0 kB\n");
  EXPECT_EQ(status.totalPhysical, cap);
  EXPECT_EQ(status.availablePhysical, cap);
  EXPECT_EQ(status.totalPageFile, cap);
  EXPECT_EQ(status.totalVirtual, cap);
  EXPECT_EQ(status.loadPercent, 49u);
}

TEST(Memory, SurvivesOddTexts) {
  for (const char* text : {"", "MemTotal", "MemTotal: x kB\n", "MemTotal: 0 kB\nMemFree: 9 kB", "MemTotalX: 5 kB\n"}) {
    const MemoryStatus status = parseMemInfo(text);
    EXPECT_EQ(status.totalPhysical, 0u) << text;
    EXPECT_EQ(status.loadPercent, 0u) << text;
  }
  EXPECT_EQ(parseMemInfo("MemTotal: 18446744073709551615 kB").totalPhysical, cap);
  EXPECT_EQ(parseMemInfo("MemTotal: 100 kB\nMemFree: 40 kB").availablePhysical, 40u * 1024);
}

TEST(Memory, OfThisMachineIsTold) {
  const MemoryStatus status = ProcSystemFacts().memory();
  EXPECT_GT(status.totalPhysical, 16u << 20);
  EXPECT_GT(status.availablePhysical, 0u);
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
  struct Locale {
    std::string source, charset, signs;
    bool twelveHour;
  };
  test::ScratchFolder folder;
  for (const Locale& locale : {Locale{"en_US", "UTF-8", ",.", true}, Locale{"de_DE", "UTF-8", ".,", false},
                               Locale{"fr_FR", "ISO-8859-1", "\u00A0,", false}}) {
    const std::string name = locale.source + "." + locale.charset;
    const std::string make =
        "localedef -i " + locale.source + " -f " + locale.charset + " '" + (folder / name) + "' >/dev/null 2>&1";
    if (std::system(make.c_str()) != 0) GTEST_SKIP() << "localedef or its sources are not installed";
    // In a child, since the C library never gives back what it remembers of LOCPATH.
    EXPECT_TRUE(test::heldInChild([&] {
      const test::ScopedVariable path("LOCPATH", folder.path().c_str()), chosen("LC_ALL", name.c_str());
      const RegionalFormats formats = userRegionalFormats();
      EXPECT_EQ(formats.thousandsSign + formats.decimalSign, locale.signs) << name;
      EXPECT_EQ(formats.twelveHourClock, locale.twelveHour) << name;
    }));
  }
}

}  // namespace
}  // namespace varnholt::platform::posix
