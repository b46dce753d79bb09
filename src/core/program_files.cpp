#include "core/program_files.hpp"

namespace varnholt::core::program_file {
namespace {

constexpr std::string_view DataFolders[] = {VDT_Projects, Favorites, Bookmarks, Collections, Notes, Tmp, SwapTmp};
constexpr std::string_view DataFiles[] = {DirHis, FileHis,    CompHis_L, CompHis_R, OpenHis, MostUsed, FolderSearchHis,
                                          GetQF,  GetFolders, TempUrl,   PresetIni, Log,     LeftOut};

}  // namespace

std::string path(const platform::Platform& platform, std::string_view literal) {
  return platform.programFolder + std::string(literal);
}

void makeFolders(const platform::Platform& platform) {
  for (const auto folder : DataFolders)
    if (!platform.files.folderExists(path(platform, folder))) (void)platform.files.createFolder(path(platform, folder));
}

void deleteUserData(const platform::Platform& platform) {
  for (const auto file : DataFiles)
    (void)platform.files.deleteFile(path(platform, file), true);
  for (const auto folder : DataFolders)
    (void)platform.files.deleteFolder(path(platform, folder), true);
}

}  // namespace varnholt::core::program_file
