#pragma once

#include "platform/clock.hpp"
#include "platform/drives.hpp"
#include "platform/forwarding_file_system.hpp"
#include "platform/shell.hpp"
#include "support/testing.hpp"

#include <ctime>
#include <map>

namespace varnholt::test {

/// A clock that stands where a test puts it, in a zone without summer time.
class FixedClock : public platform::Clock {
 public:
  /// 2007-03-09 14:05:07 in the afternoon, on which all fields differ.
  platform::Date current{1173449107, 0};
  /// Seconds that local time is ahead of UTC.
  long offset = 0;

  platform::Date now() const override { return current; }
  platform::CalendarTime local(const platform::Date& date) const override {
    const std::time_t moment = date.seconds + offset;
    std::tm fields{};
    ::gmtime_r(&moment, &fields);
    return {fields.tm_year + 1900, fields.tm_mon + 1, fields.tm_mday, fields.tm_hour,
            fields.tm_min,         fields.tm_sec,     fields.tm_wday};
  }
  platform::Date fromLocal(const platform::CalendarTime& time) const override {
    const std::int64_t days = platform::daysSince1970(time.year, time.month, time.day);
    return {((days * 24 + time.hour) * 60 + time.minute) * 60 + time.second - offset, 0};
  }
};

/// Drives of which some can go away and come back.
class RemovableDrives : public platform::Drives {
 public:
  explicit RemovableDrives(platform::Drives& real) : real_(real) {}

  std::vector<char> away;
  /// The name that each drive bears from the next refresh on.
  std::string renamed;
  /// What all drives give as their file system; empty: their own.
  std::string fileSystem;
  /// How much is free, by letter; the others tell their own.
  std::map<char, std::uint64_t> freeBytes;

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
    if (info && freeBytes.contains(letter)) info->freeBytes = freeBytes.at(letter);
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
  platform::Result<void> logOff() override {
    started.emplace_back("log off", "");
    return {};
  }
};

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
