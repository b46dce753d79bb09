#pragma once

#include "core/environment_folders.hpp"
#include "core/init_state.hpp"
#include "core/message_dialogs.hpp"
#include "core/registry_access.hpp"
#include "core/settings.hpp"
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

  platform::FileSystem& files() const { return platform.files; }
};

}  // namespace varnholt::core
