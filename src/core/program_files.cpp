#include "core/program_files.hpp"

#include "core/text_file.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>

namespace varnholt::core::program_file {
namespace {

namespace paths = platform::paths;

/// A folder of the layout and the extension of the files that the program writes there; a work folder has none, since
/// what lies in it is the user's.
struct DataFolder {
  std::string_view literal, extension;
};
constexpr DataFolder DataFolders[] = {{VDT_Projects, "pro"}, {Favorites, "url"}, {Bookmarks, "bmk"},
                                      {Collections, "col"},  {Notes, "rtf"},     {Tmp, ""},
                                      {SwapTmp, ""}};

using Lines = std::vector<std::string>;

bool isLog(const Lines& lines) { return !lines.empty() && lines.front().starts_with("[VnVersion]"); }
bool isCrashReport(const Lines& lines) { return !lines.empty() && lines.front().starts_with("[Version]"); }
bool isShortcut(const Lines& lines) { return !lines.empty() && lines.front() == "[Default]"; }
bool isListOfPaths(const Lines& lines) {
  return std::ranges::all_of(lines, [](const std::string& line) { return !paths::driveOf(line).empty(); });
}
bool isListOfItems(const Lines& lines) {
  return std::ranges::all_of(lines, [](std::string_view line) {
    if (line.starts_with("|Fold|")) line.remove_prefix(6);
    return !paths::driveOf(line).empty();
  });
}
// What users type holds anything.
bool isListOfTexts(const Lines&) { return true; }
bool isListOfEntries(const Lines& lines) { return lines.empty() || lines.front() == "[Entry]"; }

/// A file of the layout and how one of the program's own is told from a user's that has its name.
struct DataFile {
  std::string_view literal;
  bool (*isOurs)(const Lines& lines);
};
constexpr DataFile DataFiles[] = {
    {DirHis, isListOfPaths},          {FileHis, isListOfPaths},    {CompHis_L, isListOfPaths},
    {CompHis_R, isListOfPaths},       {GetFolders, isListOfPaths}, {OpenHis, isListOfTexts},
    {FolderSearchHis, isListOfTexts}, {GetQF, isListOfItems},      {MostUsed, isListOfEntries},
    {PresetIni, isListOfTexts},       {TempUrl, isShortcut},       {Log, isLog},
    {Crash, isCrashReport},           {LeftOut, isListOfPaths}};

/// Removes what the program has written and notes what stays.
class Removal {
 public:
  explicit Removal(platform::FileSystem& files) : files_(files) {}

  void file(const std::string& path, bool isOurs) {
    if (!isOurs || !files_.deleteFile(path, true)) kept.push_back(path);
  }

  /// The folder itself goes when nothing stays in it.
  void folder(const std::string& path, std::string_view extension) {
    const auto listing = files_.list(path);
    if (!listing) return kept.push_back(path);
    const std::size_t before = kept.size();
    for (const auto& entry : (*listing)->folders()) {
      const std::string below = paths::join(path, entry.name);
      entry.isLink || extension.empty() ? kept.push_back(below) : folder(below, extension);
    }
    for (const auto& entry : (*listing)->files())
      if (entry.name != OwnMark.substr(1)) file(paths::join(path, entry.name), isOurs(entry, extension));
    if (kept.size() != before) return;
    (void)files_.deleteFile(path + std::string(OwnMark), true);
    (void)files_.deleteFolder(path, true);
  }

  std::vector<std::string> kept;

 private:
  static bool isOurs(const platform::Entry& entry, std::string_view extension) {
    return !extension.empty() && !entry.isLink && entry.kind == platform::EntryKind::File &&
           platform::foldCase(paths::extension(entry.name)) == extension;
  }

  platform::FileSystem& files_;
};

}  // namespace

std::string path(const platform::Platform& platform, std::string_view literal) {
  // The root of a drive ends with a backslash of its own.
  std::string_view folder = platform.programFolder;
  if (folder.ends_with('\\') && literal.starts_with('\\')) folder.remove_suffix(1);
  return std::string(folder) + std::string(literal);
}

void makeFolders(const platform::Platform& platform) {
  for (const auto& [literal, extension] : DataFolders) {
    const std::string folder = path(platform, literal);
    if (platform.files.folderExists(folder) || !platform.files.createFolder(folder)) continue;
    (void)writeLines(platform.files, folder + std::string(OwnMark), {"Varnholt has made this folder."});
  }
}

void removeWorkFolder(const platform::Platform& platform, std::string_view literal) {
  const std::string folder = path(platform, literal);
  const auto listing = platform.files.list(folder);
  if (!listing || !(*listing)->folders().empty() || (*listing)->files().size() > 1) return;
  (void)platform.files.deleteFile(folder + std::string(OwnMark), true);
  (void)platform.files.deleteEmptyFolder(folder);
}

std::vector<std::string> deleteUserData(const platform::Platform& platform) {
  Removal removal(platform.files);
  for (const auto& [literal, isOurs] : DataFiles) {
    const std::string file = path(platform, literal);
    if (platform.files.fileExists(file)) removal.file(file, isOurs(readLines(platform.files, file)));
  }
  for (const auto& [literal, extension] : DataFolders) {
    const std::string folder = path(platform, literal);
    if (!platform.files.folderExists(folder)) continue;
    const bool isOwn = platform.ownsProgramFolder || platform.files.fileExists(folder + std::string(OwnMark));
    isOwn ? removal.folder(folder, extension) : removal.kept.push_back(folder);
  }
  return removal.kept;
}

}  // namespace varnholt::core::program_file
