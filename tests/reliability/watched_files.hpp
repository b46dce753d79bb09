#pragma once

#include "platform/forwarding_file_system.hpp"
#include "support/app_rig.hpp"

#include <memory>
#include <string>
#include <utility>

namespace varnholt::test {

/// Long calls get a progress function of the test's own in place of the program's: it is called on the way, and so can
/// make trouble there.
class WatchedFiles : public platform::ForwardingFileSystem {
 public:
  WatchedFiles(platform::FileSystem& base, platform::Progress progress)
      : ForwardingFileSystem(base), progress_(std::move(progress)) {}
  platform::Result<void> copyFile(const std::string& from, const std::string& to, bool overwrite,
                                  const platform::Progress&) override {
    return base_.copyFile(from, to, overwrite, progress_);
  }
  platform::Result<void> moveFile(const std::string& from, const std::string& to, const platform::Progress&) override {
    return base_.moveFile(from, to, progress_);
  }
  platform::Result<void> replaceFile(const std::string& from, const std::string& to,
                                     const platform::Progress&) override {
    return base_.replaceFile(from, to, progress_);
  }
  platform::Result<void> copyFolder(const std::string& from, const std::string& to, bool overwrite,
                                    const platform::Progress&, platform::LeftOuts* leftOut) override {
    return base_.copyFolder(from, to, overwrite, progress_, leftOut);
  }
  platform::Result<void> deleteFolder(const std::string& path, bool force, const platform::Progress&,
                                      platform::LeftOuts* leftOut) override {
    return base_.deleteFolder(path, force, progress_, leftOut);
  }

 private:
  platform::Progress progress_;
};

inline AppRig::Wrapper watching(platform::Progress progress) {
  return [progress = std::move(progress)](platform::FileSystem& real) {
    return std::make_unique<WatchedFiles>(real, progress);
  };
}

}  // namespace varnholt::test
