#pragma once

#include "platform/forwarding_file_system.hpp"

#include <optional>
#include <string>

namespace varnholt::test {

/// A file system with a switch a trouble, over a real one. Paths and codes are those that the real trouble gives.
class FaultyFileSystem : public platform::ForwardingFileSystem {
 public:
  using ForwardingFileSystem::ForwardingFileSystem;

  bool noSpace = false;      ///< nothing that writes bytes finds room
  bool deniesWrite = false;  ///< nothing may be changed
  std::string vanishes;      ///< this path is gone by the time it is asked for
  /// Writing calls find room for so many bytes together, and then none.
  std::optional<std::uint64_t> failsAfterBytes;

  platform::Result<platform::EntryInfo> info(const std::string& path) const override {
    return vanished(path) ? gone(path) : ForwardingFileSystem::info(path);
  }
  bool fileExists(const std::string& path) const override {
    return !vanished(path) && ForwardingFileSystem::fileExists(path);
  }
  bool folderExists(const std::string& path) const override {
    return !vanished(path) && ForwardingFileSystem::folderExists(path);
  }
  platform::Result<platform::ListingPtr> list(const std::string& folder) const override {
    if (vanished(folder)) return gone(folder);
    return ForwardingFileSystem::list(folder);
  }
  platform::Result<std::string> readFile(const std::string& path, std::uint64_t limit) const override {
    if (vanished(path)) return gone(path);
    return ForwardingFileSystem::readFile(path, limit);
  }
  platform::Result<void> writeFile(const std::string& path, std::string_view bytes) override {
    if (auto trouble = troubleWriting(path, bytes.size())) return *trouble;
    return ForwardingFileSystem::writeFile(path, bytes);
  }
  platform::Result<void> copyFile(const std::string& from, const std::string& to, bool overwrite,
                                  const platform::Progress& progress) override {
    if (vanished(from)) return gone(from);
    const auto source = ForwardingFileSystem::info(from);
    if (auto trouble = troubleWriting(to, source ? source->size : 0)) return *trouble;
    return ForwardingFileSystem::copyFile(from, to, overwrite, progress);
  }
  platform::Result<void> replaceFile(const std::string& from, const std::string& to,
                                     const platform::Progress& progress) override {
    if (auto trouble = troubleWriting(to, 0)) return *trouble;
    return ForwardingFileSystem::replaceFile(from, to, progress);
  }
  platform::Result<void> copyFolder(const std::string& from, const std::string& to, bool overwrite,
                                    const platform::Progress& progress, platform::LeftOuts* leftOut) override {
    if (vanished(from)) return gone(from);
    const auto source = ForwardingFileSystem::folderSize(from);
    if (auto trouble = troubleWriting(to, source ? source->bytes : 0)) return *trouble;
    return ForwardingFileSystem::copyFolder(from, to, overwrite, progress, leftOut);
  }
  platform::Result<void> moveFile(const std::string& from, const std::string& to,
                                  const platform::Progress& progress) override {
    if (auto trouble = troubleChanging(from)) return *trouble;
    return ForwardingFileSystem::moveFile(from, to, progress);
  }
  platform::Result<void> moveFolder(const std::string& from, const std::string& to) override {
    if (auto trouble = troubleChanging(from)) return *trouble;
    return ForwardingFileSystem::moveFolder(from, to);
  }
  platform::Result<void> deleteFile(const std::string& path, bool force) override {
    if (auto trouble = troubleChanging(path)) return *trouble;
    return ForwardingFileSystem::deleteFile(path, force);
  }
  platform::Result<void> deleteFolder(const std::string& path, bool force, const platform::Progress& progress,
                                      platform::LeftOuts* leftOut) override {
    if (auto trouble = troubleChanging(path)) return *trouble;
    return ForwardingFileSystem::deleteFolder(path, force, progress, leftOut);
  }
  platform::Result<void> createFolder(const std::string& path) override {
    if (auto trouble = troubleWriting(path, 0)) return *trouble;
    return ForwardingFileSystem::createFolder(path);
  }
  platform::Result<void> setAttributes(const std::string& path, platform::Attributes attributes) override {
    if (auto trouble = troubleChanging(path)) return *trouble;
    return ForwardingFileSystem::setAttributes(path, attributes);
  }
  platform::Result<void> setModified(const std::string& path, const platform::Date& date) override {
    if (auto trouble = troubleChanging(path)) return *trouble;
    return ForwardingFileSystem::setModified(path, date);
  }

 private:
  using Trouble = std::optional<platform::Error>;

  bool vanished(const std::string& path) const { return !vanishes.empty() && path == vanishes; }
  static platform::Error gone(const std::string& path) {
    return {platform::ErrorCode::NotFound, path, "No such file or directory"};
  }
  Trouble troubleChanging(const std::string& path) const {
    if (vanished(path)) return gone(path);
    if (deniesWrite) return platform::Error{platform::ErrorCode::AccessDenied, path, "Permission denied"};
    return {};
  }
  Trouble troubleWriting(const std::string& path, std::uint64_t bytes) {
    if (auto trouble = troubleChanging(path)) return trouble;
    const bool full = noSpace || (failsAfterBytes && *failsAfterBytes < bytes);
    if (full) return platform::Error{platform::ErrorCode::NoSpace, path, "No space left on device"};
    if (failsAfterBytes) *failsAfterBytes -= bytes;
    return {};
  }
};

}  // namespace varnholt::test
