#include "rename/single_rename.hpp"

#include "core/error_words.hpp"
#include "core/text_character.hpp"
#include "platform/paths.hpp"
#include "rename/attribute_question.hpp"

namespace varnholt::rename {

using fileops::Overwrite;
using Outcome = SingleRename::Outcome;

Outcome SingleRename::rename(const Item& item, const std::string& newName) {
  if (newName == item.name) return Outcome::Left;
  if (core::trimmed(newName).empty()) return refused(item, "the new name is empty");
  const std::string to = item.folder + newName;
  return item.isFolder ? folder(item, to) : file(item, to);
}

Outcome SingleRename::run(const Item& item, const std::string& to,
                          const std::function<platform::Result<void>()>& call) {
  const auto result = desk_.program.loop.ask(call);
  if (result) return Outcome::Renamed;
  return refused(item, core::reasonOf(result.error(), std::string(platform::paths::fileName(to))));
}

Outcome SingleRename::refused(const Item& item, const std::string& reason) {
  desk_.program.dialogs.alert(item.name + ",  - Cannot Rename !\r" + reason);
  return Outcome::Left;
}

// --- Folders -------------------------------------------------------------------------------------------------------

Outcome SingleRename::folder(const Item& item, const std::string& to) {
  auto& files = desk_.files();
  auto& dialogs = desk_.program.dialogs;
  const std::string from = item.path();
  // Where case is not told apart, the folder itself answers to the other spelling of its name.
  if (files.folderExists(to) && !files.sameEntry(from, to)) {
    dialogs.alert("Folder already Exist , - Cannot Rename !");
    return Outcome::Stays;
  }
  for (const panels::Panel* panel : {&desk_.form.Panel1, &desk_.form.Panel2})
    if (files.sameEntry(panel->path(), from)) {
      dialogs.alert("Folder already Open, - Cannot Rename !");
      return Outcome::Stays;
    }
  return run(item, to, [&] { return files.moveFolder(from, to); });
}

// --- Files ---------------------------------------------------------------------------------------------------------

Outcome SingleRename::file(const Item& item, const std::string& to) {
  auto& files = desk_.files();
  const auto attributes = files.attributes(item.path());
  if (!attributes) return refused(item, core::reasonOf(attributes.error(), item.name));
  if (!mayRename(desk_.program.dialogs, item.name, *attributes)) return Outcome::Left;
  if (files.fileExists(to)) return replace(item, to);
  return run(item, to, [&] { return files.moveFile(item.path(), to); });
}

Outcome SingleRename::replace(const Item& item, const std::string& to) {
  if (!mayReplace(item, to)) return Outcome::Left;
  return run(item, to, [&] { return desk_.files().renameOver(item.path(), to); });
}

bool SingleRename::mayReplace(const Item& item, const std::string& to) {
  if (replaceAll_) return true;
  const Overwrite answer = ask(item, to);
  replaceAll_ = answer == Overwrite::All;
  return replaceAll_ || answer == Overwrite::ThisOne;
}

// The question belongs to the operation that may stand behind this dialog too: what it was answered there stays.
Overwrite SingleRename::ask(const Item& item, const std::string& to) {
  const bool prompt = policy_.OverwritePrompt;
  const Overwrite before = form7_.OverwriteAnswer;
  dialog_.Command11.Enabled = false;
  dialog_.Command2.Enabled = false;
  const Overwrite answer = policy_.RenameWarning(item.path(), to);
  dialog_.Command11.Enabled = true;
  dialog_.Command2.Enabled = true;
  policy_.OverwritePrompt = prompt;
  form7_.OverwriteAnswer = before;
  return answer;
}

}  // namespace varnholt::rename
