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

using Sizes = std::vector<std::uint64_t>;

/// Sizes of files, asked about many at once: one by one takes several times as long.
Sizes sizesOf(const platform::FileSystem& files, const std::vector<std::string>& items, const std::string& from,
              const std::vector<std::string>& leaves) {
  Sizes sizes;
  // Items that bring paths of their own lie anywhere.
  if (leaves == items) {
    for (const platform::FileFacts& facts : files.fileFacts(from, items))
      sizes.push_back(facts.size);
  } else {
    for (const std::string& item : items)
      sizes.push_back(files.fileSize(core::entryPath(item, from)).valueOr(0));
  }
  return sizes;
}

/// What files take; with a target, what they need there.
std::uint64_t bytesOf(const platform::FileSystem& files, const std::vector<std::string>& items, const std::string& from,
                      const std::string* to) {
  std::vector<std::string> leaves;
  for (const std::string& item : items)
    leaves.emplace_back(paths::fileName(item));
  const Sizes sizes = sizesOf(files, items, from, leaves);
  const auto there = to ? files.fileFacts(*to, leaves) : std::vector<platform::FileFacts>(items.size());
  std::uint64_t bytes = 0;
  for (std::size_t at = 0; at < items.size(); ++at)
    bytes += growth(sizes[at], there[at].size);
  return bytes;
}

constexpr std::size_t Block = 8192;

}  // namespace

std::uint64_t Space::bytesOfItems(const panels::FileCollect& collected, const std::string& from, const std::string* to,
                                  std::uint64_t enough) const {
  std::uint64_t bytes = 0;
  const auto& items = collected.items();
  for (auto item = items.begin(); item != items.end() && bytes < enough;) {
    if (item->isFolder) {
      bytes += bytesOfFolder((item++)->path, to);
      continue;
    }
    std::vector<std::string> block;
    for (; item != items.end() && block.size() < Block && !item->isFolder; ++item)
      block.push_back(item->path);
    bytes += desk_.program.loop.ask([&] { return bytesOf(desk_.files(), block, from, to); });
  }
  return bytes;
}

std::uint64_t Space::bytesOfFolder(const std::string& folder, const std::string* to) const {
  const std::string target = to ? paths::join(*to, paths::fileName(folder)) : std::string();
  const bool merges = to && desk_.files().folderExists(target);
  return growth(folderBytes(desk_, folder), merges ? folderBytes(desk_, target) : 0);
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
  const std::uint64_t needed = bytesOfItems(collected, from, &to, drive->availableBytes);
  desk_.pointer() = Default;
  const bool fits = needed < drive->availableBytes;
  if (!fits) desk_.program.dialogs.alert("Insufficient Free Space On Target Drive !\rFurther Operation is Canceled!");
  dialog.hideProgress();
  return fits;
}

void Space::selectsize(OperationForm& dialog) {
  dialog.Label4.Caption = "Calculating... Please wait  !";
  desk_.program.loop.giveTurn();
  const panels::Panel* source = desk_.form.activePanel();
  const std::uint64_t sum = bytesOfItems(desk_.form.filecollect, source ? source->path() : std::string());
  dialog.Label4.Caption =
      "Size of selected Item(s) :  " + core::panelSize(sum, desk_.program.platform.regional) + "   Bytes";
}

}  // namespace varnholt::fileops
