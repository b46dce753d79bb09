#pragma once

#include "platform/clock.hpp"
#include "support/testing.hpp"

#include <sys/stat.h>

namespace varnholt::test {

/// A fresh folder of the system, taken away with all in it at the end, and what tests build in it and look at. Names
/// are relative to it, with slashes.
class ScratchFolder {
 public:
  ScratchFolder();
  /// A folder of somebody else, who takes it away.
  explicit ScratchFolder(std::string existing) : path_(std::move(existing)), isOwn_(false) {}
  ~ScratchFolder();
  ScratchFolder(ScratchFolder&& other) noexcept
      : path_(std::exchange(other.path_, {})), isOwn_(std::exchange(other.isOwn_, false)) {}
  ScratchFolder(const ScratchFolder&) = delete;
  ScratchFolder& operator=(const ScratchFolder&) = delete;

  const std::string& path() const { return path_; }
  std::string operator/(std::string_view name) const { return path_ + "/" + std::string(name); }
  std::string system(std::string_view name = {}) const { return name.empty() ? path_ : *this / name; }

  // --- Building, each in one line; the folders above are made too --------------------------------------------------

  const ScratchFolder& file(std::string_view name, std::string_view bytes = "x",
                            std::optional<platform::Date> date = {}) const;
  const ScratchFolder& folder(std::string_view name) const;
  const ScratchFolder& link(std::string_view name, std::string_view target) const;
  const ScratchFolder& hardLink(std::string_view name, std::string_view existing) const;
  const ScratchFolder& pipe(std::string_view name) const;
  const ScratchFolder& mode(std::string_view name, mode_t mode) const;
  const ScratchFolder& modified(std::string_view name, platform::Date date) const;
  /// Stores DOS attributes as they are, past the program. False where the volume keeps none.
  bool store(std::string_view name, std::string_view value) const;
  /// Writes a file, or one that can be run, and gives its path.
  std::string write(std::string_view name, std::string_view bytes) const;
  std::string writeScript(std::string_view name, std::string_view text) const;

  // --- Looking -----------------------------------------------------------------------------------------------------

  std::string read(std::string_view name) const;
  bool has(std::string_view name) const;
  std::string linkText(std::string_view name) const;
  struct stat facts(std::string_view name) const;
  /// Names in a folder by bytes, "." and ".." left out: finds temporary files that were left behind.
  std::vector<std::string> names(std::string_view folder = {}) const;

 private:
  std::string path_;
  bool isOwn_ = true;
};

/// Sets a variable of the process environment for a while; a null value takes it away.
class ScopedVariable {
 public:
  ScopedVariable(const char* name, const char* value);
  ~ScopedVariable() { set(old_ ? old_->c_str() : nullptr); }
  ScopedVariable(const ScopedVariable&) = delete;
  ScopedVariable& operator=(const ScopedVariable&) = delete;

 private:
  void set(const char* value) const;

  const char* name_;
  std::optional<std::string> old_;
};

}  // namespace varnholt::test
