#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace varnholt::test {

/// A fresh folder of the system, taken away with all in it at the end. Paths in system form.
class ScratchFolder {
 public:
  ScratchFolder() {
    std::string name = (std::filesystem::temp_directory_path() / "varnholt-test-XXXXXX").string();
    path_ = ::mkdtemp(name.data()) ? name : std::string();
  }
  /// A folder of somebody else, who takes it away.
  explicit ScratchFolder(std::string existing) : path_(std::move(existing)), isOwn_(false) {}
  ~ScratchFolder() {
    std::error_code ignored;
    if (isOwn_ && !path_.empty()) std::filesystem::remove_all(path_, ignored);
  }
  ScratchFolder(ScratchFolder&& other) noexcept
      : path_(std::exchange(other.path_, {})), isOwn_(std::exchange(other.isOwn_, false)) {}
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }

  /// Writes a file, with the folders above it.
  std::string write(std::string_view name, std::string_view bytes) const {
    const std::filesystem::path file = *this / name;
    std::filesystem::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << bytes;
    return file.string();
  }
  /// Writes a file that can be run.
  std::string writeScript(std::string_view name, std::string_view text) const {
    const std::string file = write(name, text);
    std::filesystem::permissions(file, std::filesystem::perms(0755));
    return file;
  }
  std::string read(std::string_view name) const {
    std::ifstream file(*this / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  bool has(std::string_view name) const {
    return std::filesystem::exists(std::filesystem::symlink_status(*this / name));
  }

 private:
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
