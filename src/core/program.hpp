#pragma once

#include "core/environment_folders.hpp"
#include "core/init_state.hpp"
#include "core/message_dialogs.hpp"
#include "core/registry_access.hpp"
#include "core/settings.hpp"
#include "core/waited_files.hpp"
#include "platform/platform.hpp"

namespace varnholt::core {

/// What every room of the program works with, handed down by whoever builds it.
struct Program {
  controls::MessageLoop& loop;
  platform::Platform& platform;
  MessageDialogs& dialogs;
  Settings settings{platform.settings};
  RegistryAccess registry{platform.registry, dialogs};
  InitState init{};
  EnvironmentFolders folders{};

  platform::FileSystem& files() const { return *waitedFiles; }
  /// Starts a command as Shell::start does; its folder may lie on a drive that does not answer.
  platform::Result<std::int64_t> start(const std::string& command, const std::string& folder = {}) const {
    return loop.ask([&] { return platform.shell.start(command, folder); });
  }
  /// A drive's facts, for which it may have to be waited.
  platform::Result<platform::DriveInfo> drive(char letter) const {
    return loop.ask([&] { return platform.drives.info(letter); });
  }
  bool driveReady(char letter) const {
    const auto facts = drive(letter);
    return facts && facts->ready;
  }

  std::unique_ptr<platform::FileSystem> waitedFiles = makeWaitedFiles(platform.files, loop);
};

}  // namespace varnholt::core
