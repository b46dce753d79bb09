#include "rename/masked_rename.hpp"

#include "core/item_text.hpp"
#include "rename/attribute_question.hpp"
#include "rename/file_facts.hpp"

#include <span>
#include <unordered_set>

namespace varnholt::rename {

// --- Preview -------------------------------------------------------------------------------------------------------

void MaskedRename::preview(const std::vector<Item>& items) {
  if (!dialog_.readMask()) return;
  dialog_.ListView1.clear();
  paths_.clear();
  if (fillPreview(items)) return;
  context_.program.dialogs.alert("Problem !, - More File To Same Value !\rPreview Exits !");
}

// False when two files come to one name.
bool MaskedRename::fillPreview(const std::vector<Item>& items) {
  std::vector<char> isThere(items.size());
  context_.program.loop.runBlocking([&] {
    const auto& files = context_.files();
    for (std::size_t at = 0; at < items.size(); ++at)
      isThere[at] = items[at].isFolder ? files.folderExists(items[at].path()) : files.fileExists(items[at].path());
  });
  std::unordered_set<std::string> names;
  bool allDiffer = true;
  for (std::size_t at = 0; at < items.size(); ++at) {
    if (!isThere[at]) continue;
    const Item& item = items[at];
    dialog_.Stringsum(item.name, !item.isFolder);
    dialog_.ListView1.add(item.name, item.isFolder ? core::FolderClass : core::FileClass)
        .setSubItem(1, dialog_.NewName);
    paths_.push_back(item.path());
    if (!dialog_.NewName.empty() && !names.insert(item.folder + dialog_.NewName).second) allDiffer = false;
  }
  return allDiffer;
}

std::string MaskedRename::previewPath(controls::ListItem row) const {
  return row.id() < paths_.size() ? paths_[row.id()] : std::string();
}

// --- Execute All ---------------------------------------------------------------------------------------------------

namespace {

// The quick call hands off what it cannot do. What exists under a new name refuses its own renaming, and the others go
// on.
void renameAll(platform::FileSystem& files, const std::string& folder, std::span<const platform::NewName> names) {
  while (!names.empty()) {
    names = names.subspan(files.renameFiles(folder, names));
    if (names.empty()) return;
    (void)files.moveFile(folder + names.front().from, folder + names.front().to);
    names = names.subspan(1);
  }
}

}  // namespace

bool MaskedRename::execute(const std::vector<Item>& items) {
  if (!dialog_.readMask()) return false;
  if (!context_.program.dialogs.AskRetry("Execute File Rename ?  [ No Undo Available ]\r( If Any Files To Rename ! )"))
    return false;
  const std::vector<Renamings> renamings = newNames(items);
  context_.program.loop.runBlocking([&] {
    for (const Renamings& each : renamings)
      renameAll(context_.files(), each.folder, each.names);
  });
  return true;
}

// A file that the user leaves out has taken its number all the same, as in the preview.
std::vector<MaskedRename::Renamings> MaskedRename::newNames(const std::vector<Item>& items) {
  const std::size_t rows = context_.form.activePanel() ? context_.form.activePanel()->list.count() : 0;
  std::vector<std::optional<platform::Attributes>> attributes;
  context_.program.loop.runBlocking([&] { attributes = fileAttributes(context_.files(), items, rows); });
  std::vector<Renamings> renamings;
  for (std::size_t at = 0; at < items.size(); ++at) {
    if (!attributes[at]) continue;
    const Item& item = items[at];
    dialog_.Stringsum_real(item.name, true);
    if (!mayRename(context_.program.dialogs, item.name, *attributes[at])) continue;
    if (dialog_.NewName.empty() || dialog_.NewName == item.name) continue;
    if (renamings.empty() || renamings.back().folder != item.folder) renamings.push_back({item.folder, {}});
    renamings.back().names.push_back({item.name, dialog_.NewName});
  }
  return renamings;
}

}  // namespace varnholt::rename
