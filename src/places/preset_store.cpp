#include "places/preset_store.hpp"

#include "core/item_text.hpp"
#include "core/program_files.hpp"
#include "core/text_character.hpp"
#include "platform/text_fold.hpp"

#include <algorithm>
#include <unordered_set>

namespace varnholt::places {
namespace {

namespace setting = core::setting;

core::SettingKey keyOf(std::string_view name, std::string_view key) {
  return {core::PresetsApplication, name, key, "", ""};
}

}  // namespace

std::string PresetStore::path() const {
  return core::program_file::path(program_.platform, core::program_file::PresetIni);
}

bool PresetStore::isReserved(std::string_view name) {
  return std::ranges::any_of(setting::all(), [&](const core::SettingKey& key) {
    return key.application == core::PresetsApplication && sameName(key.section, name);
  });
}

bool PresetStore::sameName(std::string_view a, std::string_view b) {
  return platform::foldCase(a) == platform::foldCase(b);
}

std::vector<std::string> PresetStore::names() {
  if (!program_.files().fileExists(path())) (void)program_.files().writeFile(path(), "");
  std::vector<std::string> names;
  std::unordered_set<std::string> known;
  for (const std::string& line : core::splitEntries(kept_.read(path()))) {
    std::string name = platform::upperCase(core::trimmed(line));
    if (!name.empty() && known.insert(platform::foldCase(name)).second) names.push_back(std::move(name));
  }
  return names;
}

std::string PresetStore::text(const std::string& name) const {
  return core::properCase(program_.settings.get(keyOf(name, "Text")));
}

FolderPair PresetStore::folders(const std::string& name) const {
  const auto folder = [&](const core::SettingKey& key) {
    const std::string stored = program_.settings.get(keyOf(name, key.key));
    return program_.files().resolve(stored).valueOr(stored);
  };
  return {folder(setting::view1path), folder(setting::view2path)};
}

bool PresetStore::isStored(const platform::Result<void>& written) {
  if (!written) program_.dialogs.alert("Presets Not Stored !, - " + written.error().text);
  return static_cast<bool>(written);
}

bool PresetStore::write(const std::vector<std::string>& names) { return isStored(kept_.writeLines(path(), names)); }

bool PresetStore::add(const std::string& name, const std::string& text, const FolderPair& folders) {
  core::Settings::Batch batch;
  batch.add(keyOf(name, "Text"), text);
  batch.add(keyOf(name, setting::view1path.key), folders.left);
  batch.add(keyOf(name, setting::view2path.key), folders.right);
  if (!isStored(program_.settings.save(batch))) return false;
  auto all = names();
  all.push_back(name);
  if (write(all)) return true;
  removeSection(name);
  return false;
}

// A name that somebody wrote into the file himself must not take the folders of the last exit away.
void PresetStore::removeSection(const std::string& name) {
  if (!isReserved(name)) program_.settings.removeSection(keyOf(name, "Text"));
}

bool PresetStore::remove(const std::string& name) {
  auto all = names();
  std::erase(all, name);
  if (!write(all)) return false;
  removeSection(name);
  return true;
}

bool PresetStore::removeAll() {
  const auto all = names();
  if (const auto deleted = program_.files().deleteFile(path(), true); !deleted) {
    program_.dialogs.alert("Presets Not Deleted !, - " + deleted.error().text);
    return false;
  }
  for (const std::string& name : all)
    removeSection(name);
  return true;
}

}  // namespace varnholt::places
