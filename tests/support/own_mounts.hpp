#pragma once

#include "support/testing.hpp"

namespace varnholt::test {

/// Gives this process a mount table of its own, so that its mounts are seen by itself and its children alone and go
/// with it. False where that is not permitted; a test says so and skips.
bool enterOwnMounts();

/// A mount for as long as this object lives.
class ScopedMount {
 public:
  ScopedMount() = default;
  /// A new file system in memory; `options` as mount(8) takes them ("size=4m").
  static ScopedMount memory(const std::string& folder, const std::string& options = "mode=0777");
  /// A folder shown at a second place.
  static ScopedMount bind(const std::string& source, const std::string& folder);
  ScopedMount(ScopedMount&& other) noexcept;
  ScopedMount& operator=(ScopedMount&& other) noexcept;
  ~ScopedMount();

  explicit operator bool() const { return !folder_.empty(); }
  /// Nothing can be written to it any more. False when that failed.
  bool makeReadOnly() const;

 private:
  ScopedMount(const std::string& folder, bool mounted) : folder_(mounted ? folder : std::string()) {}
  std::string folder_;
};

}  // namespace varnholt::test
