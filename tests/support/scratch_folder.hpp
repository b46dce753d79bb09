#pragma once

#include "platform/clock.hpp"
#include "support/testing.hpp"

#include <cstdlib>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace varnholt::test {

/// A fresh folder of the system, taken away with all in it at the end, and what tests build in it and look at. Names
/// are relative to it, with slashes.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "varnholt-test-XXXXXX").string();
    path_ = ::mkdtemp(name.data()) ? name : std::string();
  }
  /// A folder of somebody else, who takes it away.
  explicit ScratchFolder(std::string existing) : path_(std::move(existing)), isOwn_(false) {}
  /// Folders that a test locked must not outlive it.
  ~ScratchFolder() {
    namespace fs = std::filesystem;
    if (!isOwn_ || path_.empty()) return;
    std::error_code ignored;
    for (auto at = fs::recursive_directory_iterator(path_, ignored); at != fs::end(at); at.increment(ignored))
      if (at->symlink_status(ignored).type() == fs::file_type::directory)
        fs::permissions(at->path(), fs::perms::owner_all, fs::perm_options::add, ignored);
    fs::remove_all(path_, ignored);
  }
  ScratchFolder(ScratchFolder&& other) noexcept
      : path_(std::exchange(other.path_, {})), isOwn_(std::exchange(other.isOwn_, false)) {}
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }
  std::string system(std::string_view name = {}) const { return name.empty() ? path_ : *this / name; }

  const ScratchFolder& file(std::string_view name, std::string_view bytes = "x",
                            std::optional<platform::Date> date = {}) const {
    write(name, bytes);
    return date ? modified(name, *date) : *this;
  }
  const ScratchFolder& folder(std::string_view name) const {
    std::filesystem::create_directories(system(name));
    return *this;
  }
  const ScratchFolder& link(std::string_view name, std::string_view target) const {
    std::filesystem::create_directories(std::filesystem::path(system(name)).parent_path());
    return made(::symlink(std::string(target).c_str(), system(name).c_str()), name);
  }
  const ScratchFolder& hardLink(std::string_view name, std::string_view existing) const {
    return made(::link(system(existing).c_str(), system(name).c_str()), name);
  }
  const ScratchFolder& pipe(std::string_view name) const { return made(::mkfifo(system(name).c_str(), 0644), name); }
  const ScratchFolder& mode(std::string_view name, mode_t mode) const {
    return made(::chmod(system(name).c_str(), mode), name);
  }
  const ScratchFolder& modified(std::string_view name, platform::Date date) const {
    const timespec times[2] = {{0, UTIME_OMIT}, {date.seconds, date.nanoseconds}};
    return made(::utimensat(AT_FDCWD, system(name).c_str(), times, AT_SYMLINK_NOFOLLOW), name);
  }
  /// Stores DOS attributes as they are, past the program. False where the volume keeps none.
  bool store(std::string_view name, std::string_view value) const {
    return ::setxattr(system(name).c_str(), "user.DOSATTRIB", value.data(), value.size(), 0) == 0;
  }
  /// Writes a file, or one that can be run, and gives its path.
  std::string write(std::string_view name, std::string_view bytes) const {
    const std::filesystem::path file = system(name);
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file.string();
  }
  std::string writeScript(std::string_view name, std::string_view text) const {
    write(name, text);
    return mode(name, 0755).system(name);
  }

  std::string read(std::string_view name) const {
    std::ifstream file(system(name), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  bool has(std::string_view name) const {
    return std::filesystem::exists(std::filesystem::symlink_status(system(name)));
  }
  std::string linkText(std::string_view name) const { return std::filesystem::read_symlink(system(name)).string(); }
  struct stat facts(std::string_view name) const {
    struct stat facts {};
    made(::lstat(system(name).c_str(), &facts), name);
    return facts;
  }
  /// Names in a folder by bytes, "." and ".." left out: finds temporary files that were left behind.
  std::vector<std::string> names(std::string_view folder = {}) const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(system(folder)))
      names.push_back(entry.path().filename().string());
    std::ranges::sort(names);
    return names;
  }

 private:
  const ScratchFolder& made(int result, std::string_view name) const {
    EXPECT_EQ(result, 0) << name;
    return *this;
  }

  std::string path_;
  bool isOwn_ = true;
};

/// Sets a variable of the process environment for a while; a null value takes it away.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const char* value) : name_(name) {
    if (const char* old = std::getenv(name)) old_ = old;
    set(value);
  }
  ~ScopedVariable() { set(old_ ? old_->c_str() : nullptr); }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  void set(const char* value) const { value ? ::setenv(name_, value, 1) : ::unsetenv(name_); }

  const char* name_;
  std::optional<std::string> old_;
};

}  // namespace varnholt::test
