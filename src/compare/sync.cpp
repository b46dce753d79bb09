#include "compare/sync.hpp"

#include "platform/paths.hpp"

#include <algorithm>
#include <atomic>
#include <utility>

namespace varnholt::compare {
namespace {

namespace paths = platform::paths;

// Small new files go several at once; larger ones are copied one by one, so that the bar moves and a stop is heard.
constexpr std::size_t BatchFiles = 256;
constexpr std::uint64_t BatchBytes = 1u << 20;

/// The copies of one direction, on the thread of the long call.
class Transfers {
 public:
  Transfers(platform::FileSystem& files, const Form30::Direction& direction, const core::StoppableCall& work)
      : files_(files), from_(direction.source.path()), to_(direction.target.path()), work_(work) {}

  void run(std::vector<Transfer>& rows) {
    for (const Transfer& row : rows)
      total_ += row.bytes;
    for (std::size_t at = 0; at < rows.size();) {
      if (!work_.goesOn()) {
        for (; at < rows.size(); ++at)
          rows[at].failure = "Not copied: stopped";
        return;
      }
      const std::size_t copied = batch(rows, at);
      at += copied;
      if (copied == 0) single(rows[at++]);
    }
    const auto volume = files_.volume(to_);
    const auto written =
        files_.writeOut(to_, volume && volume->mayBePulledOut(), [this](std::uint64_t) { return work_.goesOn(); });
    if (!written && written.error().code != platform::ErrorCode::Stopped)
      for (Transfer& row : rows)
        if (row.failure.empty()) row.failure = "Not written out to the medium: " + written.error().text;
    if (std::ranges::all_of(rows, [](const Transfer& row) { return row.failure.empty(); })) keepDate();
  }
  /// Between 0 and 1.
  double share() const { return total_ == 0 ? 0 : static_cast<double>(done_) / static_cast<double>(total_); }

 private:
  /// As many of the rows from there on as are new on the other side and small.
  std::size_t batch(const std::vector<Transfer>& rows, std::size_t first) {
    std::vector<std::string> names;
    for (std::size_t at = first; at < rows.size() && names.size() < BatchFiles; ++at) {
      if (rows[at].reason != Reason::Missing || rows[at].bytes > BatchBytes) break;
      names.push_back(rows[at].name);
    }
    if (names.empty()) return 0;
    const auto results =
        files_.copyFiles(from_, names, to_, BatchBytes, [this](std::uint64_t) { return work_.goesOn(); });
    std::size_t copied = 0;
    for (const auto& result : results) {
      if (!result) break;
      done_ += *result;
      ++copied;
    }
    return copied;
  }

  /// The old file stands until the new one is in its place, whatever protects it; nothing is written through a link.
  void single(Transfer& row) {
    const std::string source = paths::join(from_, row.name), target = paths::join(to_, row.name);
    const std::uint64_t before = done_;
    // A link to a folder, too, is a folder to whoever looks at that side.
    if (row.reason == Reason::Missing && files_.folderExists(target)) {
      row.failure = "Not copied: a folder has that name";
      done_ = before + row.bytes;
      return;
    }
    // What somebody has put there since is nothing that the user was told of.
    const platform::FileFacts now = files_.fileFacts(to_, {row.name}).front();
    if (now.isThere != row.there.isThere || now.size != row.there.size || now.modified != row.there.modified) {
      row.failure = "Not copied: the target has changed since the compare";
      done_ = before + row.bytes;
      return;
    }
    const auto progress = [&](std::uint64_t bytes) {
      done_ = before + bytes;
      return work_.goesOn();
    };
    const auto copied = row.reason == Reason::Missing ? files_.copyFile(source, target, false, progress)
                                                      : files_.replaceFile(source, target, progress);
    done_ = before + row.bytes;
    if (!copied) row.failure = "Not copied: " + copied.error().text;
  }

  /// Folders that are alike have one date, as after the copy of a folder. A volume that keeps none has its own.
  void keepDate() {
    if (const auto folder = files_.info(from_)) (void)files_.setModified(to_, folder->modified);
  }

  platform::FileSystem& files_;
  const std::string from_, to_;
  const core::StoppableCall& work_;
  std::uint64_t total_ = 0;
  std::atomic<std::uint64_t> done_ = 0;
};

}  // namespace

void syncFiles(panels::Desk& desk, Form30& dialog, const Form30::Direction& direction) {
  std::vector<Transfer> rows = dialog.rows(direction.list);
  Transfers transfers(desk.files(), direction, dialog.work);
  dialog.work.run(
      dialog.Command2, [&] { transfers.run(rows); }, [&] { dialog.ProgressBar1.Value = transfers.share() * 100; });
  dialog.show(direction.list, std::move(rows));
}

void keepFailed(Form30& dialog) {
  for (const panels::Side side : {panels::Side::Left, panels::Side::Right}) {
    const auto direction = dialog.direction(side);
    std::vector<Transfer> rows = dialog.rows(direction.list);
    std::erase_if(rows, [](const Transfer& row) { return row.failure.empty(); });
    direction.list.clear();
    if (rows.empty()) continue;
    dialog.StatusBar1.setPanel(direction.statusPanel, "Not Copied:   " + std::to_string(rows.size()) + " File(s)");
    dialog.show(direction.list, std::move(rows));
  }
  dialog.Text1.Visible = false;
}

}  // namespace varnholt::compare
