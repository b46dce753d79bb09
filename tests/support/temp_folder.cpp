#include "support/temp_folder.hpp"

#include "support/kill_at.hpp"

#include <gtest/gtest.h>

#include <algorithm>

#include <fcntl.h>
#include <grp.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace varnholt::test {

namespace fs = std::filesystem;

TempFolder::TempFolder()
    : map(platform::posix::parseDriveVariable("C=" + scratch.path() + ";E=" + scratch.path() + ";Z=/")), files(map) {}

/// Folders that a test locked must not outlive it.
TempFolder::~TempFolder() {
  std::error_code ignored;
  for (auto at = fs::recursive_directory_iterator(scratch.path(), ignored); at != fs::end(at); at.increment(ignored))
    if (at->symlink_status(ignored).type() == fs::file_type::directory)
      fs::permissions(at->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
}

TempFolder& TempFolder::file(std::string_view name, std::string_view bytes, std::optional<platform::Date> date) {
  scratch.write(name, bytes);
  return date ? modified(name, *date) : *this;
}

TempFolder& TempFolder::folder(std::string_view name) {
  fs::create_directories(system(name));
  return *this;
}

TempFolder& TempFolder::link(std::string_view name, std::string_view target) {
  EXPECT_EQ(::symlink(std::string(target).c_str(), system(name).c_str()), 0);
  return *this;
}

TempFolder& TempFolder::hardLink(std::string_view name, std::string_view existing) {
  EXPECT_EQ(::link(system(existing).c_str(), system(name).c_str()), 0);
  return *this;
}

TempFolder& TempFolder::pipe(std::string_view name) {
  EXPECT_EQ(::mkfifo(system(name).c_str(), 0644), 0);
  return *this;
}

TempFolder& TempFolder::mode(std::string_view name, mode_t mode) {
  EXPECT_EQ(::chmod(system(name).c_str(), mode), 0);
  return *this;
}

TempFolder& TempFolder::modified(std::string_view name, platform::Date date) {
  const timespec times[2] = {{0, UTIME_OMIT}, {date.seconds, date.nanoseconds}};
  EXPECT_EQ(::utimensat(AT_FDCWD, system(name).c_str(), times, AT_SYMLINK_NOFOLLOW), 0);
  return *this;
}

bool TempFolder::store(std::string_view name, std::string_view value) {
  return ::setxattr(system(name).c_str(), "user.DOSATTRIB", value.data(), value.size(), 0) == 0;
}

std::string TempFolder::path(std::string_view name, char letter) const {
  std::string program{letter, ':', '\\'};
  for (const char c : name)
    program += c == '/' ? '\\' : c;
  return program;
}

std::string TempFolder::linkText(std::string_view name) const { return fs::read_symlink(system(name)).string(); }

struct stat TempFolder::facts(std::string_view name) const {
  struct stat facts {};
  EXPECT_EQ(::lstat(system(name).c_str(), &facts), 0) << name;
  return facts;
}

std::vector<std::string> TempFolder::names(std::string_view folder) const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(system(folder)))
    names.push_back(entry.path().filename().string());
  std::sort(names.begin(), names.end());
  return names;
}

bool heldAsOrdinaryUser(const std::function<void()>& checks) {
  return heldInChild([&] {
    constexpr uid_t nobody = 65534;
    ASSERT_TRUE(::getuid() != 0 || (::setgroups(0, nullptr) == 0 && ::setgid(nobody) == 0 && ::setuid(nobody) == 0));
    checks();
  });
}

}  // namespace varnholt::test
