#include "fileops/space.hpp"
#include "fileops/item_in_hand.hpp"

#include "core/format.hpp"
#include "core/item_text.hpp"
#include "platform/paths.hpp"

#include <cmath>
#include <vector>

namespace varnholt::fileops {
namespace {

namespace paths = platform::paths;
using controls::pointer::Default;
using controls::pointer::Hourglass;

// The whole-number part of the percentage.
std::uint64_t freeShare(const platform::DriveInfo& drive) {
  if (drive.totalBytes == 0) return 1;
  return static_cast<std::uint64_t>(static_cast<double>(drive.availableBytes) / static_cast<double>(drive.totalBytes) *
                                    100);
}

}  // namespace

// --- The drive -----------------------------------------------------------------------------------------------------

bool Space::DiskAvailable(bool moving, const std::string& from, const std::string& to) {
  const auto drive = desk_.files().volume(to);
  if (!drive) return false;
  if (drive->isDisc()) {
    desk_.program.dialogs.alert("Cannot Copy Or Move To CD-Rom/DVD-Rom !\rFunction Exits !");
    return true;
  }
  if (moving && paths::driveOf(from) == paths::driveOf(to)) return false;
  if (freeShare(*drive) > 1) return false;
  desk_.program.dialogs.ask("Critical DiskSpace < 1% Available ! (" +
                            core::format("#,#", drive->availableBytes, desk_.program.platform.regional) +
                            " Bytes)\rConsider Your Copy Or Move Command !\r\r"
                            "Ok = Continue, Cancel = Exit Function");
  return true;
}

// --- The selection -------------------------------------------------------------------------------------------------

namespace {

// What replaces something gives its room back.
std::uint64_t growth(std::uint64_t source, std::uint64_t target) { return source > target ? source - target : 0; }

/// What files need, asked about many at once: one by one takes several times as long.
std::uint64_t needOfFiles(platform::FileSystem& files, const std::vector<std::string>& items, const std::string& from,
                          const std::string& to) {
  std::vector<std::string> leaves;
  for (const std::string& item : items)
    leaves.emplace_back(paths::fileName(item));
  // Items that bring paths of their own lie anywhere.
  const bool together = leaves == items;
  const auto here = together ? files.fileFacts(from, items) : std::vector<platform::FileFacts>();
  const auto there = files.fileFacts(to, leaves);
  std::uint64_t needed = 0;
  for (std::size_t at = 0; at < items.size(); ++at) {
    const auto size = together ? here[at].size : files.fileSize(core::entryPath(items[at], from)).valueOr(0);
    needed += growth(size, there[at].size);
  }
  return needed;
}

constexpr std::size_t Block = 8192;

}  // namespace

std::uint64_t Space::needOfFolder(const std::string& folder, const std::string& to) const {
  const std::string target = paths::join(to, paths::fileName(folder));
  return growth(folderBytes(desk_, folder), desk_.files().folderExists(target) ? folderBytes(desk_, target) : 0);
}

bool Space::ValidateSpaceNeeded(ProgressForm& dialog, const panels::FileCollect& collected, const std::string& from,
                                const std::string& to) {
  const auto drive = desk_.files().volume(to);
  if (!drive || drive->availableBytes == 0) {
    desk_.program.dialogs.alert("Cannot Validate DiskSpace !");
    return true;
  }
  dialog.showProgress("Validating Space Available...");
  desk_.pointer() = Hourglass;
  std::uint64_t needed = 0;
  const auto& items = collected.items();
  for (auto item = items.begin(); item != items.end() && needed < drive->availableBytes;) {
    if (item->isFolder) {
      needed += needOfFolder((item++)->path, to);
      continue;
    }
    std::vector<std::string> block;
    for (; item != items.end() && block.size() < Block && !item->isFolder; ++item)
      block.push_back(item->path);
    needed += desk_.program.loop.ask([&] { return needOfFiles(desk_.files(), block, from, to); });
  }
  desk_.pointer() = Default;
  const bool fits = needed < drive->availableBytes;
  if (!fits) desk_.program.dialogs.alert("Insufficient Free Space On Target Drive !\rFurther Operation is Canceled!");
  dialog.hideProgress();
  return fits;
}

std::uint64_t Space::sizeOf(const core::Item& item) {
  desk_.form.CurrentItem = item.path;
  desk_.dispatcher.Fileident();
  const std::string path = desk_.form.SourcePath;
  return item.isFolder ? folderBytes(desk_, path) : desk_.files().fileSize(path).valueOr(0);
}

void Space::selectsize(OperationForm& dialog) {
  dialog.Label4.Caption = "Calculating... Please wait  !";
  desk_.program.loop.giveTurn();
  std::uint64_t sum = 0;
  for (const core::Item& item : desk_.form.filecollect.items())
    sum += sizeOf(item);
  dialog.Label4.Caption = "Size of selected Item(s) :  " +
                          (sum == 0 ? "0" : core::format("###,###", sum, desk_.program.platform.regional)) + "   Bytes";
}

}  // namespace varnholt::fileops
