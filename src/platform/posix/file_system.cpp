#include "platform/posix/file_system.hpp"

#include "platform/paths.hpp"
#include "platform/posix/copy_file.hpp"
#include "platform/posix/copy_tree.hpp"
#include "platform/posix/delete_tree.hpp"
#include "platform/posix/dos_attributes.hpp"
#include "platform/posix/drives.hpp"
#include "platform/posix/entry_facts.hpp"
#include "platform/posix/file_batch.hpp"
#include "platform/posix/file_contents.hpp"
#include "platform/posix/file_facts.hpp"
#include "platform/posix/find_files.hpp"
#include "platform/posix/find_folder.hpp"
#include "platform/posix/identity.hpp"
#include "platform/posix/listing.hpp"
#include "platform/posix/modified_time.hpp"
#include "platform/posix/move.hpp"
#include "platform/posix/path_parts.hpp"
#include "platform/posix/path_resolve.hpp"
#include "platform/posix/posix_error.hpp"
#include "platform/posix/program_resources.hpp"
#include "platform/posix/rename_batch.hpp"
#include "platform/posix/walk_size.hpp"
#include "platform/posix/write_out.hpp"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <sys/stat.h>

namespace varnholt::platform::posix {
namespace {

/// Without links; empty where nothing is there.
std::string realPath(const std::string& path) {
  const std::unique_ptr<char, decltype(&::free)> text(::realpath(path.c_str(), nullptr), ::free);
  return text ? text.get() : std::string();
}

/// Of real paths: whether the folder is that path, or holds it.
bool holds(const std::string& folder, const std::string& path) {
  return folder == "/" || path == folder || path.starts_with(folder + '/');
}

ByteReader readerOf(const UniqueFd& file) {
  return [&file](std::uint64_t offset, std::size_t count) {
    std::string bytes(count, '\0');
    const ssize_t got = ::pread(file.get(), bytes.data(), count, static_cast<off_t>(offset));
    bytes.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
    return bytes;
  };
}

}  // namespace

Error PosixFileSystem::told(Error error) const {
  if (auto program = map_.toProgram(error.path)) error.path = *program;
  return error;
}

// --- Looking ---------------------------------------------------------------------------------------------------------

Result<ListingPtr> PosixFileSystem::list(const std::string& folder) const {
  const auto path = map_.toSystem(folder);
  return path ? told(readListing(*path)) : path.error();
}

Result<EntryInfo> PosixFileSystem::info(const std::string& path) const {
  const auto system = map_.toSystem(path);
  if (!system) return system.error();
  auto info = readPathInfo(*system);
  if (!info) return told(info.error());
  info->name = std::string(paths::fileName(path));
  return info;
}

bool PosixFileSystem::fileExists(const std::string& path) const {
  const auto system = map_.toSystem(path);
  struct stat facts {};
  if (!system || ::lstat(system->c_str(), &facts) != 0) return false;
  // A link that leads nowhere is a file; one that leads to a folder is not.
  return !S_ISLNK(facts.st_mode) ? !S_ISDIR(facts.st_mode)
                                 : ::stat(system->c_str(), &facts) != 0 || !S_ISDIR(facts.st_mode);
}

bool PosixFileSystem::folderExists(const std::string& path) const {
  const auto system = map_.toSystem(path);
  struct stat facts {};
  return system && ::stat(system->c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

bool PosixFileSystem::sameEntry(const std::string& a, const std::string& b) const {
  const auto first = map_.toSystem(a), second = map_.toSystem(b);
  struct stat one {
  }, two{};
  return first && second && ::stat(first->c_str(), &one) == 0 && ::stat(second->c_str(), &two) == 0 &&
         (sameInode(one, two) || areSpellings(*first, *second));
}

bool PosixFileSystem::holdsPlaces(const std::string& folder) const {
  const auto system = map_.toSystem(folder);
  const std::string outer = system ? realPath(*system) : std::string();
  if (outer.empty()) return true;
  std::vector<std::string> places;
  for (const DriveMapping& drive : map_.drives())
    if (!drive.hidden) places.push_back(drive.folder);
  if (const char* home = std::getenv("HOME")) places.emplace_back(home);
  return std::ranges::any_of(places, [&](const std::string& place) { return holds(outer, realPath(place)); });
}

Result<std::string> PosixFileSystem::resolve(const std::string& path) const { return PathResolver(map_).resolve(path); }

std::vector<Result<std::string>> PosixFileSystem::resolveAll(const std::vector<std::string>& paths) const {
  PathResolver resolver(map_);
  std::vector<Result<std::string>> resolved;
  resolved.reserve(paths.size());
  for (const std::string& path : paths)
    resolved.push_back(resolver.resolve(path));
  return resolved;
}

Result<Attributes> PosixFileSystem::attributes(const std::string& path) const {
  const auto facts = info(path);
  return facts ? Result<Attributes>(facts->attributes) : facts.error();
}

Result<std::uint64_t> PosixFileSystem::fileSize(const std::string& path) const {
  const auto system = map_.toSystem(path);
  if (!system) return system.error();
  struct stat facts {};
  if (::stat(system->c_str(), &facts) != 0 && ::lstat(system->c_str(), &facts) != 0)
    return told(systemError(errno, *system));
  return S_ISDIR(facts.st_mode) ? 0 : static_cast<std::uint64_t>(facts.st_size);
}

std::vector<FileFacts> PosixFileSystem::fileFacts(const std::string& folder,
                                                  const std::vector<std::string>& names) const {
  const auto system = map_.toSystem(folder);
  return system ? factsOf(*system, names) : std::vector<FileFacts>(names.size());
}

std::vector<std::optional<Attributes>> PosixFileSystem::fileAttributes(const std::string& folder,
                                                                       const std::vector<std::string>& names) const {
  const auto system = map_.toSystem(folder);
  return system ? attributesOf(*system, names) : std::vector<std::optional<Attributes>>(names.size());
}

Result<std::vector<std::uint64_t>> PosixFileSystem::sizes(const std::vector<std::string>& paths,
                                                          const Progress& progress) const {
  std::vector<std::string> system;
  system.reserve(paths.size());
  for (const std::string& path : paths)
    system.push_back(map_.toSystem(path).valueOr({}));
  return measureAll(system, progress);
}

Result<TreeSize> PosixFileSystem::folderSize(const std::string& folder, const Progress& progress) const {
  const auto system = map_.toSystem(folder);
  return system ? told(measureTree(*system, progress)) : system.error();
}

Result<std::vector<FoundFile>> PosixFileSystem::findFiles(const std::string& folder, unsigned levels,
                                                          const NameTest& takes, const SearchProgress& progress) const {
  const auto system = map_.toSystem(folder);
  return system ? told(posix::findFiles(map_, *system, levels, takes, progress)) : system.error();
}

Result<std::string> PosixFileSystem::findFolder(const std::string& folder, unsigned levels, const FolderTest& takes,
                                                const std::string& after, const SearchProgress& progress) const {
  const auto system = map_.toSystem(folder);
  return system ? told(posix::findFolder(*system, folder, levels, takes, after, progress)) : system.error();
}

std::vector<Result<void>> PosixFileSystem::deleteBelow(const std::string& root, const std::vector<std::string>& paths,
                                                       const Progress& progress) {
  std::vector<Result<std::string>> system;
  system.reserve(paths.size());
  for (const std::string& path : paths)
    system.push_back(map_.toSystem(path));
  auto results = posix::deleteBelow(map_.toSystem(root).valueOr({}), system, progress);
  for (auto& result : results)
    result = told(std::move(result));
  return results;
}

Result<std::string> PosixFileSystem::fileVersion(const std::string& path) const {
  if (!paths::isProgramName(path)) return std::string();
  const auto system = map_.toSystem(path);
  if (!system) return system.error();
  const auto file = openRegular(*system);
  if (!file) return told(file.error());
  return versionOfProgram(readerOf(*file));
}

Result<std::string> PosixFileSystem::programIcon(const std::string& path, std::uint32_t index) const {
  const auto system = map_.toSystem(path);
  if (!system) return system.error();
  const auto file = openRegular(*system);
  if (!file) return told(file.error());
  std::string icon = iconOfProgram(readerOf(*file), index);
  if (icon.empty()) return refusal(ErrorCode::NotFound, path, "no icon");
  return icon;
}

Result<DriveInfo> PosixFileSystem::volume(const std::string& path) const {
  const auto system = map_.toSystem(path);
  if (!system) return system.error();
  struct stat facts {};
  if (::stat(system->c_str(), &facts) != 0) return told(systemError(errno, *system));
  const char letter = paths::driveOf(path).front();
  for (const DriveMapping& drive : map_.drives())
    if (drive.letter == letter) return readVolume(drive, *system);
  return refusal(ErrorCode::InvalidPath, path, "no such drive");
}

// --- Text and data files of our own ----------------------------------------------------------------------------------

Result<std::string> PosixFileSystem::readFile(const std::string& path, std::uint64_t limit) const {
  const auto system = map_.toSystem(path);
  return system ? told(readWholeFile(*system, limit)) : system.error();
}

Result<std::string> PosixFileSystem::readBeginning(const std::string& path, std::uint64_t most) const {
  const auto system = map_.toSystem(path);
  return system ? told(readFileBeginning(*system, most)) : system.error();
}

Result<void> PosixFileSystem::writeFile(const std::string& path, std::string_view bytes) {
  const auto system = map_.toSystem(path);
  return system ? told(posix::replaceFile(*system, bytes)) : system.error();
}

// --- Changing --------------------------------------------------------------------------------------------------------

Result<std::string> PosixFileSystem::changeable(const std::string& path) const {
  const std::string_view name = paths::fileName(path);
  auto system = map_.toSystem(path);
  if (!system) return system;
  if (name == "." || name == "..") return refusal(ErrorCode::InvalidPath, path, "the path ends in a point part");
  struct stat facts {};
  // Only a folder can hold a drive; the name itself counts here, not what a link of that name leads to.
  if (::lstat(system->c_str(), &facts) != 0 || !S_ISDIR(facts.st_mode))
    return name.empty() ? Result<std::string>(refusal(ErrorCode::InvalidPath, path, "a drive")) : system;
  const std::string real = realPath(*system);
  for (const DriveMapping& drive : map_.drives())
    if (real.empty() || holds(real, realPath(drive.folder)))
      return refusal(ErrorCode::AccessDenied, path, "a drive or a folder that holds one");
  return system;
}

Result<std::pair<std::string, std::string>> PosixFileSystem::sourceAndTarget(const std::string& from,
                                                                             const std::string& to) const {
  const auto source = map_.toSystem(from);
  if (!source) return source.error();
  const bool intoFolder = !to.empty() && to.back() == '\\';
  const auto target = map_.toSystem(intoFolder ? paths::join(to, paths::fileName(from)) : to);
  if (!target) return target.error();
  return std::pair(*source, *target);
}

Result<void> PosixFileSystem::copyFile(const std::string& from, const std::string& to, bool overwrite,
                                       const Progress& progress) {
  const auto ends = sourceAndTarget(from, to);
  return ends ? told(copyFileTo(ends->first, ends->second, {.overwrite = overwrite}, progress)) : ends.error();
}

Result<void> PosixFileSystem::replaceFile(const std::string& from, const std::string& to, const Progress& progress) {
  const auto ends = sourceAndTarget(from, to);
  const CopyRules rules{.overwrite = true, .protectedToo = true};
  return ends ? told(copyFileTo(ends->first, ends->second, rules, progress)) : ends.error();
}

void PosixFileSystem::tell(LeftOuts found, LeftOuts* leftOut) const {
  if (!leftOut) return;
  for (Error& each : found)
    leftOut->push_back(told(std::move(each)));
}

Result<void> PosixFileSystem::copyFolder(const std::string& from, const std::string& to, bool overwrite,
                                         const FolderProgress& progress, LeftOuts* leftOut) {
  const auto ends = sourceAndTarget(from, to);
  if (!ends) return ends.error();
  LeftOuts found;
  auto copied = copyTree(ends->first, ends->second, overwrite, progress, &found);
  tell(std::move(found), leftOut);
  return told(std::move(copied));
}

Result<void> PosixFileSystem::moveFile(const std::string& from, const std::string& to, const Progress& progress) {
  const auto ends = sourceAndTarget(from, to);
  return ends ? told(moveFileTo(ends->first, ends->second, progress)) : ends.error();
}

Result<void> PosixFileSystem::renameOver(const std::string& from, const std::string& to) {
  const auto ends = sourceAndTarget(from, to);
  return ends ? told(renameOverTo(ends->first, ends->second)) : ends.error();
}

Result<void> PosixFileSystem::moveFolder(const std::string& from, const std::string& to) {
  if (auto allowed = changeable(from); !allowed) return allowed.error();
  const auto ends = sourceAndTarget(from, to);
  return ends ? told(moveFolderTo(ends->first, ends->second)) : ends.error();
}

Result<void> PosixFileSystem::deleteFile(const std::string& path, bool force) {
  const auto system = changeable(path);
  return system ? told(removeFile(*system, force)) : system.error();
}

Result<void> PosixFileSystem::deleteFolder(const std::string& path, bool force, const Progress& progress,
                                           LeftOuts* leftOut) {
  const auto system = changeable(path);
  if (!system) return system.error();
  LeftOuts found;
  auto removed = removeTree(*system, force, progress, &found);
  tell(std::move(found), leftOut);
  return told(std::move(removed));
}

namespace {

/// What leads elsewhere is no name of an entry.
bool isOneName(const std::string& name) {
  return !name.empty() && name != "." && name != ".." && name.find_first_of("\\/") == std::string::npos;
}

/// As far as each is one name: what leads elsewhere is no plain case.
std::vector<std::string> systemNames(const std::vector<std::string>& names) {
  std::vector<std::string> system;
  system.reserve(names.size());
  for (const std::string& name : names) {
    if (!isOneName(name)) break;
    system.push_back(PathMap::nameToSystem(name));
  }
  return system;
}

}  // namespace

BatchResults PosixFileSystem::copyFiles(const std::string& folder, const std::vector<std::string>& names,
                                        const std::string& to, std::uint64_t limit, const Progress& progress) {
  const auto from = map_.toSystem(folder), target = map_.toSystem(to);
  return from && target ? copyBatch(*from, systemNames(names), *target, limit, progress) : BatchResults();
}

BatchResults PosixFileSystem::moveFiles(const std::string& folder, const std::vector<std::string>& names,
                                        const std::string& to, const Progress& progress) {
  const auto from = map_.toSystem(folder), target = map_.toSystem(to);
  return from && target ? moveBatch(*from, systemNames(names), *target, progress) : BatchResults();
}

BatchResults PosixFileSystem::deleteFiles(const std::string& folder, const std::vector<std::string>& names,
                                          const Progress& progress) {
  const auto system = map_.toSystem(folder);
  return system ? deleteBatch(*system, systemNames(names), progress) : BatchResults();
}

std::vector<NotRenamed> PosixFileSystem::withSystemNames(RenameBatch batch, const std::string& folder,
                                                         std::span<const NewName> names) const {
  const auto system = map_.toSystem(folder);
  std::vector<NotRenamed> refused;
  std::vector<NewName> systemNames;
  std::vector<std::size_t> numbers;
  for (std::size_t at = 0; at < names.size(); ++at) {
    const auto& [from, to] = names[at];
    if (!system || !isOneName(from) || !isOneName(to)) {
      refused.push_back({at, system ? refusal(ErrorCode::InvalidPath, folder, "no name of a file") : system.error()});
      continue;
    }
    systemNames.push_back({PathMap::nameToSystem(from), PathMap::nameToSystem(to)});
    numbers.push_back(at);
  }
  if (systemNames.empty()) return refused;
  for (NotRenamed& each : batch(*system, systemNames))
    refused.push_back({numbers[each.index], told(std::move(each.error))});
  std::ranges::sort(refused, {}, &NotRenamed::index);
  return refused;
}

std::vector<NotRenamed> PosixFileSystem::renameFiles(const std::string& folder, std::span<const NewName> names) {
  return withSystemNames(renameBatch, folder, names);
}

std::vector<NotRenamed> PosixFileSystem::checkRenames(const std::string& folder, std::span<const NewName> names) const {
  return withSystemNames(checkBatch, folder, names);
}

Result<void> PosixFileSystem::deleteEmptyFolder(const std::string& path) {
  const auto system = map_.toSystem(path);
  if (!system) return system.error();
  if (::rmdir(system->c_str()) != 0) return told(systemError(errno, *system));
  return {};
}

Result<void> PosixFileSystem::createFolder(const std::string& path) {
  const auto system = map_.toSystem(path);
  if (!system) return system.error();
  if (::mkdir(system->c_str(), 0777) != 0) return told(systemError(errno, *system));
  return {};
}

Result<void> PosixFileSystem::setAttributes(const std::string& path, Attributes attributes) {
  const auto system = map_.toSystem(path);
  return system ? told(setAttributesAt(*system, attributes)) : system.error();
}

std::vector<Result<bool>> PosixFileSystem::setAttributesOf(const std::string& folder,
                                                           const std::vector<std::string>& names, Attributes attributes,
                                                           std::span<const Attributes> spared) {
  const auto system = map_.toSystem(folder);
  if (!system) return std::vector<Result<bool>>(names.size(), system.error());
  auto results = attributesBatch(*system, systemNames(names), attributes, spared);
  for (Result<bool>& result : results)
    if (!result) result = told(result.error());
  results.resize(names.size(), Error{ErrorCode::InvalidPath, folder, "no name of a file"});
  return results;
}

Result<void> PosixFileSystem::resetAttributes(const std::string& path) {
  const auto system = map_.toSystem(path);
  return system ? told(resetAttributesAt(*system)) : system.error();
}

Result<void> PosixFileSystem::setModified(const std::string& path, const Date& date) {
  const auto system = map_.toSystem(path);
  if (!system) return system.error();
  struct stat facts {};
  if (::stat(system->c_str(), &facts) != 0) return told(systemError(errno, *system));
  const auto times = modifiedTime({date.seconds, date.nanoseconds}, facts.st_atim);
  if (::utimensat(AT_FDCWD, system->c_str(), times.data(), 0) != 0) return told(systemError(errno, *system));
  return {};
}

Result<void> PosixFileSystem::writeOut(const std::string& path, bool wait, const Progress& progress) {
  const auto system = map_.toSystem(path);
  return system ? told(writeVolumeOut(*system, wait, progress)) : system.error();
}

}  // namespace varnholt::platform::posix
