#pragma once

#include "platform/drives.hpp"
#include "platform/shell.hpp"
#include "support/testing.hpp"

namespace varnholt::test {

/// Drives of which some can go away and come back.
class RemovableDrives : public platform::Drives {
 public:
  explicit RemovableDrives(platform::Drives& real) : real_(real) {}

  std::vector<char> away;
  /// The name that each drive bears from the next refresh on.
  std::string renamed;
  /// What all drives give as their file system; empty: their own.
  std::string fileSystem;

  std::vector<char> letters() const override {
    auto all = real_.letters();
    std::erase_if(all, [this](char letter) { return isAway(letter); });
    return all;
  }
  platform::Result<platform::DriveInfo> info(char letter) const override {
    if (isAway(letter))
      return platform::Error{platform::ErrorCode::InvalidPath, std::string(1, letter), "no such drive"};
    auto info = real_.info(letter);
    if (info && !name_.empty()) info->label = name_;
    if (info && !fileSystem.empty()) info->fileSystem = fileSystem;
    return info;
  }
  void refresh() override {
    real_.refresh();
    name_ = renamed;
  }
  void watch(std::function<void()> changed) override { mounted = std::move(changed); }

  /// Something was mounted or unmounted.
  std::function<void()> mounted;

 private:
  bool isAway(char letter) const { return std::ranges::find(away, letter) != away.end(); }

  platform::Drives& real_;
  std::string name_;
};

/// Starts nothing, and notes what was to be started and where.
class RecordingShell : public platform::Shell {
 public:
  std::vector<std::pair<std::string, std::string>> started;

  platform::Result<std::int64_t> start(const std::string& command, const std::string& folder) override {
    started.emplace_back(command, folder);
    return 1;
  }
  platform::Result<int> wait(std::int64_t) override { return 0; }
};

}  // namespace varnholt::test
