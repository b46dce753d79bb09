#pragma once

#include "platform/forwarding_file_system.hpp"
#include "support/testing.hpp"

namespace varnholt::test {

/// A file system with a switch a trouble, over a real one. Paths and codes are those that the real trouble gives.
class FaultyFileSystem : public platform::ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;

  bool noSpace = false;  ///< nothing that writes bytes finds room
  std::string vanishes;  ///< this path is gone by the time it is asked for
  /// Writing calls find room for so many bytes together, and then none.
  std::optional<std::uint64_t> failsAfterBytes;

  bool fileExists(const std::string& path) const override { return path != vanishes && base_.fileExists(path); }
  bool folderExists(const std::string& path) const override { return path != vanishes && base_.folderExists(path); }
  platform::Result<void> writeFile(const std::string& path, std::string_view bytes) override {
    if (!findsRoom(bytes.size())) return full(path);
    return base_.writeFile(path, bytes);
  }
  platform::Result<void> copyFile(const std::string& from, const std::string& to, bool overwrite,
                                  const platform::Progress& progress) override {
    const auto source = base_.info(from);
    if (!findsRoom(source ? source->size : 0)) return full(to);
    return base_.copyFile(from, to, overwrite, progress);
  }
  platform::Result<void> replaceFile(const std::string& from, const std::string& to,
                                     const platform::Progress& progress) override {
    if (!findsRoom(0)) return full(to);
    return base_.replaceFile(from, to, progress);
  }

 private:
  static platform::Error full(const std::string& path) {
    return {platform::ErrorCode::NoSpace, path, "No space left on device"};
  }
  bool findsRoom(std::uint64_t bytes) {
    if (noSpace || (failsAfterBytes && *failsAfterBytes < bytes)) return false;
    if (failsAfterBytes) *failsAfterBytes -= bytes;
    return true;
  }
};

}  // namespace varnholt::test
