#include "rename/masked_rename.hpp"

#include "core/error_words.hpp"
#include "core/item_text.hpp"
#include "core/text_character.hpp"
#include "panels/dispatcher.hpp"
#include "platform/text_fold.hpp"
#include "rename/attribute_question.hpp"

#include <algorithm>
#include <future>
#include <iterator>
#include <span>
#include <unordered_map>
#include <unordered_set>

namespace varnholt::rename {
namespace {

constexpr std::size_t LongName = 50, LongNameKept = 46;

std::string lineOf(const std::string& name, const std::string& reason) {
  return core::shortened(name, LongName, LongNameKept) + ":  " + reason;
}

using AttributesOfItems = std::vector<std::optional<platform::Attributes>>;

/// The attributes of each item; nothing for what is gone, and for what is no file.
AttributesOfItems attributesOf(const platform::FileSystem& files, std::span<const Item> items) {
  AttributesOfItems all;
  for (auto first = items.begin(); first != items.end();) {
    const auto next = std::find_if(first, items.end(), [&](const Item& item) { return item.folder != first->folder; });
    std::vector<std::string> names;
    for (; first != next; ++first)
      names.push_back(first->name);
    const auto some = files.fileAttributes(std::prev(next)->folder, names);
    all.insert(all.end(), some.begin(), some.end());
  }
  return all;
}

/// The attributes of a list, block by block. Those of the next block are read on another thread while the caller works
/// on the one that it has.
class AttributesAhead {
 public:
  AttributesAhead(const platform::FileSystem& files, std::span<const Item> items) : files_(files), rest_(items) {
    begin();
  }
  /// While items are left.
  AttributesOfItems nextBlock() {
    auto block = ahead_.get();
    begin();
    return block;
  }

 private:
  void begin() {
    constexpr std::size_t BlockSize = 1024;
    const auto block = rest_.first(std::min(rest_.size(), BlockSize));
    rest_ = rest_.subspan(block.size());
    if (!block.empty())
      ahead_ = std::async(std::launch::async | std::launch::deferred,
                          [&files = files_, block] { return attributesOf(files, block); });
  }

  const platform::FileSystem& files_;
  std::span<const Item> rest_;
  std::future<AttributesOfItems> ahead_;
};

/// Which item of a list is the last that bears a name, whatever its folder and the case of its letters.
class Bearers {
 public:
  explicit Bearers(std::span<const Item> items) {
    last_.reserve(items.size());
    for (std::size_t at = 0; at < items.size(); ++at)
      last_[platform::foldCase(items[at].name)] = at;
  }
  /// The first item's number where none bears it.
  std::size_t lastOf(const std::string& name) const {
    const auto found = last_.find(platform::foldCase(name));
    return found == last_.end() ? 0 : found->second;
  }

 private:
  std::unordered_map<std::string, std::size_t> last_;
};

}  // namespace

MaskedRename::MaskedRename(panels::Desk& desk, Form14& dialog) : desk_(desk), dialog_(dialog) {
  dialog_.ListView1.rowToolTip = [this](controls::ListItem row) {
    return row.id() < reasons_.size() ? reasons_[row.id()] : std::string();
  };
}

void MaskedRename::forget() {
  paths_.clear();
  reasons_.clear();
}

void MaskedRename::take(const Item& item, std::size_t place, std::vector<Renamings>& renamings,
                        std::vector<Kept>& kept) const {
  if (dialog_.NewName == item.name) return;
  if (dialog_.NewName.empty()) return kept.push_back({place, item.name, "nothing is left of its name"});
  if (renamings.empty() || renamings.back().folder != item.folder) renamings.push_back({item.folder, {}, {}});
  renamings.back().names.push_back({item.name, dialog_.NewName});
  renamings.back().places.push_back(place);
}

template <class RunBatch>
void MaskedRename::run(const std::vector<Renamings>& renamings, std::vector<Kept>& kept, const RunBatch& batch) const {
  desk_.program.loop.runBlocking([&] {
    for (const Renamings& each : renamings)
      for (const platform::NotRenamed& refused : batch(each)) {
        const auto& [from, to] = each.names[refused.index];
        const std::string reason = core::reasonOf(refused.error, core::shortened(to, LongName, LongNameKept));
        kept.push_back({each.places[refused.index], from, reason});
      }
  });
  std::ranges::sort(kept, {}, &Kept::place);
}

// --- Preview -------------------------------------------------------------------------------------------------------

void MaskedRename::preview(const std::vector<Item>& items) {
  if (!dialog_.readMask()) return;
  dialog_.ListView1.clear();
  forget();
  std::vector<Renamings> renamings;
  std::vector<Kept> kept;
  const bool allDiffer = fillPreview(items, renamings, kept);
  run(renamings, kept, [this](const Renamings& each) { return desk_.files().checkRenames(each.folder, each.names); });
  markPreview(kept);
  if (!allDiffer) desk_.program.dialogs.alert("Problem !, - More File To Same Value !\rPreview Exits !");
}

// False when two files come to one name.
bool MaskedRename::fillPreview(const std::vector<Item>& items, std::vector<Renamings>& renamings,
                               std::vector<Kept>& kept) {
  std::vector<char> isThere(items.size());
  desk_.program.loop.runBlocking([&] {
    const auto& files = desk_.files();
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
    if (!item.isFolder) take(item, paths_.size() - 1, renamings, kept);
  }
  return allDiffer;
}

void MaskedRename::markPreview(const std::vector<Kept>& kept) {
  reasons_.assign(paths_.size(), {});
  for (const Kept& each : kept) {
    reasons_[each.place] = lineOf(each.name, each.reason);
    controls::ListItem row(dialog_.ListView1, static_cast<std::uint32_t>(each.place));
    row.setForeColor(panels::mark_color::Trouble);
    row.setSmallIcon(Form14::KeptIcon);
  }
  dialog_.showKept(kept.size(), kept.empty() ? std::string() : reasons_[kept.front().place]);
}

std::string MaskedRename::previewPath(controls::ListItem row) const {
  return row.id() < paths_.size() ? paths_[row.id()] : std::string();
}

// --- Execute All ---------------------------------------------------------------------------------------------------

bool MaskedRename::execute(const std::vector<Item>& items) {
  if (!dialog_.readMask()) return false;
  if (!desk_.program.dialogs.AskRetry("Execute File Rename ?  [ No Undo Available ]\r( If Any Files To Rename ! )"))
    return false;
  kept_.clear();
  renameAll(items);
  return true;
}

// A name that an item of a later block still bears waits for it: what is renamed together is put into an order that
// frees the names. A file that the user leaves out has taken its number all the same, as in the preview.
void MaskedRename::renameAll(const std::vector<Item>& items) {
  AttributesAhead ahead(desk_.files(), items);
  const Bearers bearers(items);
  std::vector<Renamings> waiting;
  std::size_t waitsFor = 0;
  for (std::size_t at = 0; at < items.size();) {
    for (const auto& attributes : desk_.program.loop.ask([&] { return ahead.nextBlock(); })) {
      nameItem(items[at], at, attributes, waiting);
      waitsFor = std::max(waitsFor, bearers.lastOf(dialog_.NewName));
      ++at;
    }
    if (waitsFor >= at) continue;
    run(waiting, kept_, [this](const Renamings& each) { return desk_.files().renameFiles(each.folder, each.names); });
    waiting.clear();
  }
}

void MaskedRename::tellKept() {
  if (kept_.empty()) return;
  std::vector<std::string> lines;
  for (const Kept& each : kept_)
    lines.push_back(lineOf(each.name, each.reason));
  desk_.program.dialogs.alert(core::leftOutText(std::to_string(kept_.size()) + " Item(s) Keep Their Names !", lines));
}

void MaskedRename::nameItem(const Item& item, std::size_t place, const std::optional<platform::Attributes>& attributes,
                            std::vector<Renamings>& renamings) {
  if (item.isFolder) return;
  if (!attributes)
    return kept_.push_back({place, item.name, core::reasonOf({platform::ErrorCode::NotFound, {}, {}}, {})});
  dialog_.Stringsum_real(item.name, true);
  if (mayRename(desk_.program.dialogs, item.name, *attributes)) take(item, place, renamings, kept_);
}

}  // namespace varnholt::rename
