#include "rename/single_rename.hpp"

#include "rename/attribute_question.hpp"

namespace varnholt::rename {

using fileops::Overwrite;
using Outcome = SingleRename::Outcome;

Outcome SingleRename::rename(const Item& item, const std::string& newName) {
  if (newName.empty() || newName == item.name) return Outcome::Left;
  const std::string to = item.folder + newName;
  return item.isFolder ? folder(item, to) : file(item, to);
}

bool SingleRename::run(const std::function<platform::Result<void>()>& call) {
  platform::Result<void> result;
  context_.program.loop.runBlocking([&] { result = call(); });
  return result.ok();
}

// --- Folders -------------------------------------------------------------------------------------------------------

Outcome SingleRename::folder(const Item& item, const std::string& to) {
  auto& files = context_.files();
  auto& dialogs = context_.program.dialogs;
  const std::string from = item.path();
  // Where case is not told apart, the folder itself answers to the other spelling of its name.
  if (files.folderExists(to) && !files.sameEntry(from, to)) {
    dialogs.alert("Folder already Exist , - Cannot Rename !");
    return Outcome::Stays;
  }
  for (const panels::Panel* panel : {&context_.form.Panel1, &context_.form.Panel2})
    if (files.sameEntry(panel->path(), from)) {
      dialogs.alert("Folder already Open, - Cannot Rename !");
      return Outcome::Stays;
    }
  return run([&] { return files.moveFolder(from, to); }) ? Outcome::Renamed : Outcome::Left;
}

// --- Files ---------------------------------------------------------------------------------------------------------

Outcome SingleRename::file(const Item& item, const std::string& to) {
  auto& files = context_.files();
  const auto attributes = files.attributes(item.path());
  if (!attributes || !mayRename(context_.program.dialogs, item.name, *attributes)) return Outcome::Left;
  if (files.fileExists(to)) return replace(item, to);
  return run([&] { return files.moveFile(item.path(), to); }) ? Outcome::Renamed : Outcome::Left;
}

Outcome SingleRename::replace(const Item& item, const std::string& to) {
  auto& files = context_.files();
  const std::string from = item.path();
  if (!mayReplace(item, to)) return Outcome::Left;
  // One file under both names: copying it over itself and deleting it would lose it.
  const bool isItself = files.sameEntry(from, to);
  const bool done = isItself ? run([&] { return files.moveFile(from, to); })
                             : run([&] { return files.copyFile(from, to, true); }) &&
                                   run([&] { return files.deleteFile(from, true); });
  return done ? Outcome::Renamed : Outcome::Left;
}

bool SingleRename::mayReplace(const Item& item, const std::string& to) {
  if (replaceAll_) return true;
  const Overwrite answer = ask(item, to);
  replaceAll_ = answer == Overwrite::All;
  return replaceAll_ || answer == Overwrite::ThisOne;
}

// The question belongs to the operation that may stand behind this dialog too: what it was answered there stays.
Overwrite SingleRename::ask(const Item& item, const std::string& to) {
  const bool prompt = context_.form.OverwritePrompt;
  const Overwrite before = form7_.OverwriteAnswer;
  dialog_.Command11.Enabled = false;
  dialog_.Command2.Enabled = false;
  const Overwrite answer = policy_.RenameWarning(item.path(), to);
  dialog_.Command11.Enabled = true;
  dialog_.Command2.Enabled = true;
  context_.form.OverwritePrompt = prompt;
  form7_.OverwriteAnswer = before;
  return answer;
}

}  // namespace varnholt::rename
