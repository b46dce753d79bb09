#include "basket/collection_file.hpp"

#include "core/program_files.hpp"
#include "core/text_character.hpp"
#include "core/text_file.hpp"
#include "core/val_input_rule.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

namespace varnholt::basket {
namespace {

namespace paths = platform::paths;

constexpr std::string_view FolderMark = "|Fold|", Extension = "col";

std::optional<core::Item> itemOf(const platform::FileSystem& files, std::string_view line) {
  if (line.starts_with(FolderMark)) line.remove_prefix(FolderMark.size());
  // A drive as a whole has no name that it could be pasted under.
  if (paths::driveOf(line).empty() || paths::isRoot(line)) return {};
  const auto found = files.resolve(std::string(line));
  if (!found || paths::isRoot(*found)) return {};
  return core::Item{paths::withoutClosing(*found), files.folderExists(*found)};
}

}  // namespace

std::vector<std::string> CollectionFiles::names() const {
  std::vector<std::string> found;
  const auto folder = program_.files().list(path({}));
  if (!folder) return found;
  for (const platform::Entry& entry : (*folder)->files())
    if (platform::foldCase(paths::extension(entry.name)) == Extension) found.emplace_back(entry.name);
  return found;
}

std::string CollectionFiles::path(const std::string& name) const {
  return paths::join(core::program_file::path(program_.platform, core::program_file::Collections), name);
}

platform::Result<void> CollectionFiles::save(const std::string& name, const std::deque<core::Item>& items) const {
  std::vector<std::string> lines;
  for (const core::Item& item : items)
    lines.push_back((item.isFolder ? std::string(FolderMark) : std::string()) + item.path);
  return core::writeLines(program_.files(), path(name), lines);
}

bool CollectionFiles::saveAs(controls::TextBox& nameBox, const std::deque<core::Item>& items,
                             const std::function<bool(const std::string& question)>& mayReplace) const {
  auto& dialogs = program_.dialogs;
  std::string name(core::trimmed(nameBox.Text.get()));
  if (name.empty()) return false;
  if (const auto refused = core::firstRefusedCharacter(name)) {
    nameBox.Text = name;
    dialogs.alert(core::refusedCharacterText(*refused));
    nameBox.SetFocus();
    return false;
  }
  name += ".Col";
  if (program_.files().fileExists(path(name)) &&
      !mayReplace("Collection File:  " + name + "\rAlready Exist !, - OverWrite ?"))
    return false;
  if (const auto saved = save(name, items); !saved) {
    dialogs.alert("Cannot Save Collection File !\r" + name + " :  " + saved.error().text);
    return false;
  }
  dialogs.inform("Saved As:  ...\\" + name);
  return true;
}

CollectionFiles::Loaded CollectionFiles::itemsOf(const platform::FileSystem& files, const std::string& bytes,
                                                 const std::function<bool()>& goesOn) {
  Loaded loaded;
  for (const std::string& line : core::splitLines(bytes)) {
    if (!goesOn()) break;
    if (line.empty()) continue;
    if (auto item = itemOf(files, line))
      loaded.items.push_back(*std::move(item));
    else
      ++loaded.skipped;
  }
  return loaded;
}

}  // namespace varnholt::basket
