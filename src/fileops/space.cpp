#include "fileops/space.hpp"

#include "core/format.hpp"
#include "core/item_text.hpp"
#include "platform/paths.hpp"

#include <cmath>
#include <unordered_map>

namespace varnholt::fileops {
namespace {

namespace paths = platform::paths;
using controls::pointer::Default;
using controls::pointer::Hourglass;

constexpr std::uint64_t Kilobyte = 1000, Megabyte = 1'000'000;

bool isDisc(const platform::DriveInfo& drive) { return drive.fileSystem == "CDFS" || drive.fileSystem == "UDF"; }

// The whole-number part of the percentage.
std::uint64_t freeShare(const platform::DriveInfo& drive) {
  if (drive.totalBytes == 0) return 1;
  return static_cast<std::uint64_t>(static_cast<double>(drive.availableBytes) / static_cast<double>(drive.totalBytes) *
                                    100);
}

}  // namespace

std::string FreeSpaceText(const platform::Result<platform::DriveInfo>& drive,
                          const platform::RegionalFormats& regional) {
  if (!drive || !drive->ready) return "[ NA ]";
  const std::uint64_t free = drive->freeBytes;
  if (free >= Megabyte) return "[ " + core::format("#,#", free / Megabyte, regional) + " MB Free ]";
  return "[ " + core::format("#,#", free / Kilobyte, regional) + " KB Free ]";
}

// --- The drive -----------------------------------------------------------------------------------------------------

void Space::DiskAvailable(bool moving) {
  auto& form = context_.form;
  form.SpaceProblem = false;
  panels::Panel* source = form.activePanel();
  if (!source) return;
  panels::Panel& target = form.otherPanel(*source);
  platform::Result<platform::DriveInfo> drive = platform::Error{};
  context_.program.loop.runBlocking([&] { drive = context_.files().volume(target.path()); });
  if (!drive) return;
  if (isDisc(*drive)) {
    context_.program.dialogs.alert("Cannot Copy Or Move To CD-Rom/DVD-Rom !\rFunction Exits !");
    form.SpaceProblem = true;
    return;
  }
  if (moving && paths::driveOf(source->path()) == paths::driveOf(target.path())) return;
  if (freeShare(*drive) > 1) return;
  form.SpaceProblem = true;
  context_.program.dialogs.ask("Critical DiskSpace < 1% Available ! (" +
                               core::format("#,#", drive->availableBytes, context_.program.platform.regional) +
                               " Bytes)\rConsider Your Copy Or Move Command !\r\r"
                               "Ok = Continue, Cancel = Exit Function");
}

// --- The selection -------------------------------------------------------------------------------------------------

/// Source and target folder, read once: asking the disk for each of many thousand files takes several times as long.
struct Space::Folders {
  std::string source, target;
  platform::ListingPtr sourceListing, targetListing;
  std::unordered_map<std::string_view, std::uint64_t> sourceSizes, targetSizes;

  Folders(platform::FileSystem& files, std::string from, std::string to)
      : source(std::move(from)), target(std::move(to)) {
    sourceListing = read(files, source, sourceSizes);
    targetListing = read(files, target, targetSizes);
  }

 private:
  static platform::ListingPtr read(platform::FileSystem& files, const std::string& folder,
                                   std::unordered_map<std::string_view, std::uint64_t>& sizes) {
    auto listing = files.list(folder).valueOr(nullptr);
    if (!listing) return listing;
    sizes.reserve(listing->files().size());
    for (const platform::Entry& file : listing->files())
      sizes.emplace(file.name, file.size);
    return listing;
  }
};

std::uint64_t Space::folderBytes(const std::string& folder) {
  const auto size = context_.files().folderSize(folder);
  return size ? size->bytes : 0;
}

// What the item adds to the target: what it replaces there gives its own room back.
std::uint64_t Space::needOf(const std::string& item, Folders& folders) {
  const auto difference = [](std::uint64_t source, std::uint64_t target) {
    return source > target ? source - target : 0;
  };
  const std::string path(core::itemPath(item));
  const std::string leaf(paths::fileName(path));
  if (core::isFolderItem(item)) {
    const std::string target = folders.target + leaf;
    return difference(folderBytes(path), context_.files().folderExists(target) ? folderBytes(target) : 0);
  }
  std::uint64_t size = 0;
  if (const auto known = folders.sourceSizes.find(path); known != folders.sourceSizes.end())
    size = known->second;
  else
    size = context_.files().fileSize(core::entryPath(item, folders.source)).valueOr(0);
  const auto there = folders.targetSizes.find(leaf);
  return difference(size, there == folders.targetSizes.end() ? 0 : there->second);
}

void Space::ValidateSpaceNeeded(OperationForm& dialog) {
  auto& form = context_.form;
  form.SpaceRefused = false;
  panels::Panel* source = form.activePanel();
  if (!source) return;
  const std::string from = form.TmpMode ? context_.dispatcher.TmpFolder() : source->path();
  const std::string to = form.otherPanel(*source).path();
  const auto drive = context_.files().volume(to);
  if (!drive || drive->availableBytes == 0) {
    context_.program.dialogs.alert("Cannot Validate DiskSpace !");
    return;
  }
  dialog.showProgress("Validating Space Available...");
  context_.pointer() = Hourglass;
  std::uint64_t needed = 0;
  const auto& items = form.filecollect.items();
  context_.program.loop.runBlocking([&] {
    Folders folders(context_.files(), from, to);
    for (const std::string& item : items) {
      needed += needOf(item, folders);
      if (needed >= drive->availableBytes) break;
    }
  });
  context_.pointer() = Default;
  if (needed >= drive->availableBytes) {
    form.SpaceRefused = true;
    context_.program.dialogs.alert("Insufficient Free Space On Target Drive !\rFurther Operation is Canceled!");
  }
  dialog.hideProgress();
}

std::uint64_t Space::sizeOf(const std::string& item) {
  context_.form.CurrentItem = item;
  context_.dispatcher.Fileident();
  const std::string path = context_.form.SourcePath;
  std::uint64_t size = 0;
  if (core::isFolderItem(item)) {
    context_.program.loop.runBlocking([&] { size = folderBytes(path); });
  } else {
    size = context_.files().fileSize(path).valueOr(0);
  }
  return size;
}

void Space::selectsize(OperationForm& dialog) {
  dialog.Label4.Caption = "Calculating... Please wait  !";
  context_.program.loop.giveTurn();
  std::uint64_t sum = 0;
  for (const std::string& item : context_.form.filecollect.items())
    sum += sizeOf(item);
  dialog.Label4.Caption = "Size of selected Item(s) :  " +
                          (sum == 0 ? "0" : core::format("###,###", sum, context_.program.platform.regional)) +
                          "   Bytes";
}

}  // namespace varnholt::fileops
