#include "platform/posix/program_resources.hpp"
#include "support/testing.hpp"
#include "support/windows_program.hpp"

namespace varnholt::platform::posix {
namespace {

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
