#include "core/diagnostic_log.hpp"

#include "core/item_text.hpp"
#include "core/program_files.hpp"
#include "core/text_file.hpp"

namespace varnholt::core {

std::string programVersion() { return VARNHOLT_VERSION; }

std::string megabytesFree(std::uint64_t bytes) { return std::to_string(bytes / 1'000'000) + " MB Free"; }

void writeDiagnosticLog(const platform::Platform& platform, const EnvironmentFolders& folders) {
  const std::string log = program_file::path(platform, program_file::Log);
  if (platform.files.fileExists(log)) return;
  const auto version = platform.system.version();
  std::string fileSystem, freeSpace;
  if (const auto volume = platform.files.volume(folders.windir); volume && volume->ready) {
    fileSystem = volume->fileSystem;
    freeSpace = "~ " + megabytesFree(volume->freeBytes);
  }
  (void)writeLines(platform.files, log,
                   {
                       "[VnVersion]     " + programVersion(),
                       "[Curdate]       " + statusDate("0", platform.clock.local(platform.clock.now())),
                       "[Windir]        " + folders.windir,
                       "[Platform]      " + std::to_string(version.platform),
                       "[OSVersion]     " + std::to_string(version.major) + "." + std::to_string(version.minor),
                       "[OSBuild]       " + std::to_string(version.build),
                       "[Install. Path] " + platform.programFolder,
                       "[FileSystem]    " + fileSystem,
                       "[FreeSpace]     " + freeSpace,
                   });
}

}  // namespace varnholt::core
