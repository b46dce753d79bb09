#pragma once

#include "platform/clock.hpp"
#include "platform/detours.hpp"
#include "platform/drives.hpp"
#include "platform/environment.hpp"
#include "platform/file_system.hpp"
#include "platform/file_types.hpp"
#include "platform/regional.hpp"
#include "platform/registry.hpp"
#include "platform/settings_store.hpp"
#include "platform/shell.hpp"
#include "platform/system_facts.hpp"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace varnholt::platform {

/// Everything that the program asks of the system, in one place to hand down. References outlive the program's objects.
struct Platform {
  FileSystem& files;
  Drives& drives;
  Environment& environment;
  SettingsStore& settings;
  Registry& registry;
  Shell& shell;
  Detours& detours;
  FileTypes& fileTypes;
  SystemFacts& system;
  Clock& clock;
  RegionalFormats regional;
  std::string programFolder;              ///< program form, without closing backslash
  std::string assetsFolder;               ///< read-only images and documents, program form, without closing backslash
  std::vector<std::string> startNotices;  ///< what the user must hear: a damaged settings file set aside, and alike
  /// Paths as other programs know them, for what is handed to them or comes from them. Empty text: no such path.
  std::function<std::string(const std::string&)> toSystem = {}, toProgram = {};
  /// Runs the call while no other running copy of the program runs one; waits for that two seconds at most.
  std::function<void(const std::function<void()>& call)> alone = [](const auto& call) { call(); };
  /// A library of ours is about to replace this file by way of temporary names. What killed copies of it left beside it
  /// is cleared away, and what it leaves itself will be found by `clearLeftovers`.
  std::function<void(const std::string& path)> replaces = [](const auto&) {};
  /// Clears away what killed copies of the program left where they worked. Asks drives, so that it may not return.
  std::function<void()> clearLeftovers = [] {};
  /// False in portable use, where the user keeps files of his own beside the program.
  bool ownsProgramFolder = true;
};

/// Owns one implementation of each interface and hands them out.
class PlatformHost {
 public:
  virtual ~PlatformHost() = default;
  virtual Platform& platform() = 0;
};

/// Where a host keeps its files. Empty texts: found from the executable and the user's folders. System form.
struct HostFolders {
  std::string executable;  ///< folder of the running executable
  std::string data;        ///< replaces $XDG_DATA_HOME/varnholt
  std::string assets;      ///< replaces the search for assets
  std::string drives;      ///< replaces the variable VARNHOLT_DRIVES, in its form
};

/// The implementation for this system. Makes the data folder, copies the shipped files into it at the first start,
/// makes the stand-in Windows folder when missing, opens settings and registry (a damaged file is set aside as
/// NAME.damaged-N and told in startNotices). Never fails: what cannot be had answers its calls with errors.
std::unique_ptr<PlatformHost> makePlatformHost(const HostFolders& folders = {});

}  // namespace varnholt::platform
