#include "tools/clean_windows.hpp"

#include "core/error_words.hpp"
#include "core/system_tools.hpp"
#include "platform/paths.hpp"

namespace varnholt::tools {

namespace paths = platform::paths;

void CleanWindows::CleanPrefetch_Click() {
  auto& files = desk_.files();
  const std::string folder = paths::join(desk_.program.folders.windir, "Prefetch");
  if (!files.folderExists(folder)) return desk_.program.dialogs.inform("Prefetch Folder Do Not Exist !");
  if (refused(folder)) return;
  // A link goes as a link: a folder of its own comes in its place.
  const auto facts = files.info(folder);
  const auto deleted = facts && facts->isLink ? files.deleteFile(folder, true) : files.deleteFolder(folder, true);
  (void)files.createFolder(folder);
  desk_.listing.ViewUpdateAll(folder);
  if (!deleted) return desk_.program.dialogs.alert(deleted.error().text);
  desk_.program.dialogs.inform("Prefetch Folder Cleaned !");
}

void CleanWindows::DelCookies_Click() {
  deleteFiles({"Cookies",
               "\rYou are about to Delete All Cookie Files In Folder :%\r"
               "You will Loose all information related to web sides !\rARE YOU SURE ?",
               "No Cookies Folder Exist or NO Cookies !", "All Cookie Files Deleted !"});
}

void CleanWindows::DelRecent_Click() {
  deleteFiles({"Recent", "\rYou are about to Delete All Recent Files In Folder :%\rARE YOU SURE ?",
               "No Recent Folder Exist or No Recent Files !", "All Recent Files Deleted !"});
}

void CleanWindows::deleteFiles(const Leftovers& leftovers) {
  auto& program = desk_.program;
  const std::string folder = core::profileFolder(program, leftovers.value);
  std::string question = leftovers.question;
  question.replace(question.find('%'), 1, folder);
  if (!program.dialogs.AskRetry(question)) return;
  if (!program.files().folderExists(folder)) return program.dialogs.inform(leftovers.none);
  if (refused(folder)) return;
  const auto listing = program.files().list(folder);
  if (!listing || (*listing)->files().empty()) return program.dialogs.inform(leftovers.none);
  std::vector<std::string> left;
  for (const auto& file : (*listing)->files()) {
    const std::string path = paths::join(folder, file.name);
    if (const auto deleted = program.files().deleteFile(path, true); !deleted)
      left.push_back(std::string(file.name) + ":  " + core::reasonOf(deleted.error(), std::string(file.name)));
  }
  desk_.listing.ViewUpdateAll(folder);
  if (!left.empty())
    return program.dialogs.alert(core::leftOutText(std::to_string(left.size()) + " File(s) NOT Deleted !", left));
  program.dialogs.inform(leftovers.deleted);
}

bool CleanWindows::refused(const std::string& folder) {
  if (!desk_.files().holdsPlaces(folder)) return false;
  desk_.program.dialogs.inform("Folder NOT Allowed To Clean !\r" + folder);
  return true;
}

}  // namespace varnholt::tools
