#include "support/scratch_folder.hpp"

#include <cstdlib>

#include <fcntl.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace varnholt::test {

namespace fs = std::filesystem;

ScratchFolder::ScratchFolder() {
  std::string name = (fs::temp_directory_path() / "varnholt-test-XXXXXX").string();
  path_ = ::mkdtemp(name.data()) ? name : std::string();
}

/// Folders that a test locked must not outlive it.
ScratchFolder::~ScratchFolder() {
  if (!isOwn_ || path_.empty()) return;
  std::error_code ignored;
  for (auto at = fs::recursive_directory_iterator(path_, ignored); at != fs::end(at); at.increment(ignored))
    if (at->symlink_status(ignored).type() == fs::file_type::directory)
      fs::permissions(at->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
  fs::remove_all(path_, ignored);
}

const ScratchFolder& ScratchFolder::file(std::string_view name, std::string_view bytes,
                                         std::optional<platform::Date> date) const {
  write(name, bytes);
  return date ? modified(name, *date) : *this;
}

const ScratchFolder& ScratchFolder::folder(std::string_view name) const {
  fs::create_directories(system(name));
  return *this;
}

const ScratchFolder& ScratchFolder::link(std::string_view name, std::string_view target) const {
  fs::create_directories(fs::path(system(name)).parent_path());
  EXPECT_EQ(::symlink(std::string(target).c_str(), system(name).c_str()), 0) << name;
  return *this;
}

const ScratchFolder& ScratchFolder::hardLink(std::string_view name, std::string_view existing) const {
  EXPECT_EQ(::link(system(existing).c_str(), system(name).c_str()), 0) << name;
  return *this;
}

const ScratchFolder& ScratchFolder::pipe(std::string_view name) const {
  EXPECT_EQ(::mkfifo(system(name).c_str(), 0644), 0) << name;
  return *this;
}

const ScratchFolder& ScratchFolder::mode(std::string_view name, mode_t mode) const {
  EXPECT_EQ(::chmod(system(name).c_str(), mode), 0) << name;
  return *this;
}

const ScratchFolder& ScratchFolder::modified(std::string_view name, platform::Date date) const {
  const timespec times[2] = {{0, UTIME_OMIT}, {date.seconds, date.nanoseconds}};
  EXPECT_EQ(::utimensat(AT_FDCWD, system(name).c_str(), times, AT_SYMLINK_NOFOLLOW), 0) << name;
  return *this;
}

bool ScratchFolder::store(std::string_view name, std::string_view value) const {
  return ::setxattr(system(name).c_str(), "user.DOSATTRIB", value.data(), value.size(), 0) == 0;
}

std::string ScratchFolder::write(std::string_view name, std::string_view bytes) const {
  const fs::path file = system(name);
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << bytes;
  return file.string();
}

std::string ScratchFolder::writeScript(std::string_view name, std::string_view text) const {
  write(name, text);
  mode(name, 0755);
  return system(name);
}

std::string ScratchFolder::read(std::string_view name) const {
  std::ifstream file(system(name), std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

bool ScratchFolder::has(std::string_view name) const { return fs::exists(fs::symlink_status(system(name))); }

std::string ScratchFolder::linkText(std::string_view name) const { return fs::read_symlink(system(name)).string(); }

struct stat ScratchFolder::facts(std::string_view name) const {
  struct stat facts {};
  EXPECT_EQ(::lstat(system(name).c_str(), &facts), 0) << name;
  return facts;
}

std::vector<std::string> ScratchFolder::names(std::string_view folder) const {
  std::vector<std::string> names;
  for (const auto& entry : fs::directory_iterator(system(folder)))
    names.push_back(entry.path().filename().string());
  std::ranges::sort(names);
  return names;
}

ScopedVariable::ScopedVariable(const char* name, const char* value) : name_(name) {
  if (const char* old = std::getenv(name)) old_ = old;
  set(value);
}

void ScopedVariable::set(const char* value) const { value ? ::setenv(name_, value, 1) : ::unsetenv(name_); }

}  // namespace varnholt::test
