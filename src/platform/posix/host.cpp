#include "platform/platform.hpp"
#include "platform/posix/clock.hpp"
#include "platform/posix/crash_report.hpp"
#include "platform/posix/detours.hpp"
#include "platform/posix/drives.hpp"
#include "platform/posix/environment.hpp"
#include "platform/posix/file_system.hpp"
#include "platform/posix/file_types.hpp"
#include "platform/posix/leftovers.hpp"
#include "platform/posix/passing_names.hpp"
#include "platform/posix/path_map.hpp"
#include "platform/posix/program_folder.hpp"
#include "platform/posix/regional.hpp"
#include "platform/posix/registry.hpp"
#include "platform/posix/run_alone.hpp"
#include "platform/posix/settings_store.hpp"
#include "platform/posix/shell.hpp"
#include "platform/posix/system_facts.hpp"
#include "platform/posix/work_places.hpp"

#include <chrono>
#include <future>
#include <thread>
#include <utility>

namespace varnholt::platform::posix {
namespace {

DriveSources driveSources(const HostFolders& given) {
  DriveSources sources = DriveSources::fromSystem();
  if (!given.drives.empty()) sources.variable = given.drives;
  return sources;
}

/// A file or folder beside the program. Without a program folder it is one that can never exist, so that the calls
/// that need it answer with errors.
std::string beside(const ProgramFolders& folders, const char* name) {
  return (folders.program.empty() ? "/dev/null" : folders.program) + "/" + name;
}

/// The temporary folder: the system's, unless the caller keeps all files together or no drive holds that one.
std::string temporaryFolder(const HostFolders& given, const ProgramFolders& folders, const PathMap& map) {
  const std::string shared = temporaryFolderName();
  return given.data.empty() && map.toProgram(shared) ? shared : beside(folders, "Temp");
}

std::string programForm(const PathMap& map, const std::string& systemPath) {
  return systemPath.empty() ? std::string() : map.toProgram(systemPath).valueOr({});
}

/// What the user must hear of a file of ours; `subject` is "settings" or "registry".
void addNotice(const SqliteDatabase& database, const std::string& subject, const PathMap& map,
               std::vector<std::string>& notices) {
  if (const auto& kept = database.setAside())
    notices.push_back("The " + subject + " file was damaged. It is kept as " + map.toProgram(*kept).valueOr(*kept) +
                      ", and a fresh one was made.");
  if (database.unusable())
    notices.push_back("The " + subject + " file is damaged and cannot be set aside. What it should hold is not kept.");
  if (database.held())
    notices.push_back("The " + subject + " file is held by another program. It is not read, and changes are not kept.");
  if (const auto refused = database.refused())
    notices.push_back("The " + subject + " file cannot be opened: " + refused->text +
                      ". It is not read, and changes are not kept.");
}

std::string strandedText(const Stranded& file, const PathMap& map) {
  return "A rename was interrupted. " + map.toProgram(file.path).valueOr(file.path) + " is the file \"" +
         PathMap::nameToProgram(file.wanted) + "\".";
}

/// A volume that does not answer must not hold up the start: its files are put right when it does.
std::vector<Stranded> finishPassagesInTime(const std::string& notesFolder) {
  constexpr auto patience = std::chrono::milliseconds(500);
  std::packaged_task<std::vector<Stranded>()> work([notesFolder] { return finishPassages(notesFolder); });
  auto stranded = work.get_future();
  std::thread(std::move(work)).detach();
  return stranded.wait_for(patience) == std::future_status::ready ? stranded.get() : std::vector<Stranded>();
}

class PosixHost final : public PlatformHost {
 public:
  explicit PosixHost(const HostFolders& given)
      : map_(driveSources(given)),
        folders_(findProgramFolders(given, map_)),
        files_(map_),
        drives_(map_),
        environment_(map_, WindowsFolder(beside(folders_, "Windows"), folders_.assets + "/windows"),
                     beside(folders_, "Program Files"), temporaryFolder(given, folders_, map_)),
        settings_(beside(folders_, "settings.db")),
        registry_(beside(folders_, "registry.db")),
        shell_(map_, {[this](const std::string& path) { return files_.resolve(path); },
                      [this] { return environment_.windowsFolder(); }}),
        detours_(map_, folders_.program),
        fileTypes_(registry_),
        platform_{files_,
                  drives_,
                  environment_,
                  settings_,
                  registry_,
                  shell_,
                  detours_,
                  fileTypes_,
                  system_,
                  clock_,
                  userRegionalFormats(),
                  programForm(map_, folders_.program),
                  programForm(map_, folders_.assets),
                  folders_.notices,
                  [this](const std::string& path) { return map_.toSystem(path).valueOr({}); },
                  [this](const std::string& path) { return map_.toProgram(path).valueOr({}); },
                  [this](const std::function<void()>& call) { runAlone(folders_.program, call); },
                  [this](const std::string& path) {
                    if (const auto system = map_.toSystem(path)) sweepFolderOf(*system);
                  },
                  [folder = folders_.program] { clearWorkPlaces(folder); },
                  folders_.isOwn} {
    noteWorkPlacesIn(folders_.program);
    addCrashNotice();
    addNotice(settings_.database(), "settings", map_, platform_.startNotices);
    addNotice(registry_.database(), "registry", map_, platform_.startNotices);
    if (folders_.program.empty()) return;
    PassingNames::keepNotesIn(folders_.program);
    for (const Stranded& each : finishPassagesInTime(folders_.program))
      platform_.startNotices.push_back(strandedText(each, map_));
  }

  ~PosixHost() override { noteWorkPlacesIn({}); }

  Platform& platform() override { return platform_; }

 private:
  void addCrashNotice() {
    if (folders_.program.empty()) return;
    const std::string file = beside(folders_, CrashFile);
    std::string notice = takeCrashNotice(folders_.program, map_.toProgram(file).valueOr(file));
    if (!notice.empty()) platform_.startNotices.push_back(std::move(notice));
  }

  PathMap map_;
  ProgramFolders folders_;
  PosixFileSystem files_;
  PosixDrives drives_;
  PosixEnvironment environment_;
  SqliteSettingsStore settings_;
  SqliteRegistry registry_;
  PosixShell shell_;
  PosixDetours detours_;
  DesktopFileTypes fileTypes_;
  ProcSystemFacts system_;
  SystemClock clock_;
  Platform platform_;
};

}  // namespace
}  // namespace varnholt::platform::posix

std::unique_ptr<varnholt::platform::PlatformHost> varnholt::platform::makePlatformHost(const HostFolders& folders) {
  auto host = std::make_unique<posix::PosixHost>(folders);
  // The stand-in Windows folder is made now, so that start-up finds it and so does a user who looks for it.
  (void)host->platform().environment.windowsFolder();
  return host;
}
