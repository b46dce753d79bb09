#pragma once

#include "fileops/as_new_name.hpp"
#include "fileops/left_out_notice.hpp"
#include "fileops/operation_dialogs.hpp"
#include "fileops/progress.hpp"
#include "fileops/space.hpp"
#include "panels/desk.hpp"

#include <cstdint>
#include <deque>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace varnholt::fileops {

/// The one skeleton of copy, move and delete: the hand-over from the panels, the loop over the collected items in its
/// dialog, and the ending. What differs is stated by the operation itself. A failing call of the file system is passed
/// over; the test after each item shows what it left.
class Operation {
 public:
  virtual ~Operation() = default;
  Operation(const Operation&) = delete;
  Operation& operator=(const Operation&) = delete;

  /// The command of the panels: takes the selection over and shows the dialog until it closes.
  void start();
  /// The same for items that come from elsewhere, by full paths. The target is the panel that is not active.
  void start(const std::vector<core::Item>& items);
  const Tally& tally() const { return tally_; }

 protected:
  Operation(panels::Desk& desk, OperationForm& dialog);
  /// One that is not asked for in a dialog: it only shows how it goes on, and begins by run().
  Operation(panels::Desk& desk, ProgressForm& progress) : desk_(desk), dialog_(progress) {}
  /// The tests, the loop and the ending.
  void run();

  /// How an item came through.
  enum class Item {
    Done,        ///< counted and verified
    Left,        ///< counted alone: the user left it as it is
    PassedOver,  ///< neither: it was refused
    EndsLoop,    ///< the user ends the loop
    EndsAll,     ///< the operation ends at it
    Stopped,     ///< given up half way, for the user stopped the operation
  };
  enum class Begin { Loop, Ending, Closed };
  /// Where the loop gives the message loop its turn.
  enum class Turn { BeforeTaking, BeforeItem, AfterItem };

  // --- What each operation states --------------------------------------------------------------------------------
  virtual std::string_view modeWord() const = 0;
  /// Tests in front of the dialog; they tell the user themselves.
  virtual bool mayOpen() { return true; }
  virtual std::string folderShown() const { return desk_.form.TargetPath; }
  /// Marks the rows that it will take.
  virtual void markRows() { desk_.dispatcher.copycolor(); }
  /// What it works on: the collected items, the folder that those have that bring no path of their own, and the folder
  /// that they go to. The panels say it, unless the operation brings it along.
  virtual panels::FileCollect& items() { return desk_.form.filecollect; }
  virtual std::string sourceFolder() const;
  virtual std::string targetFolder() const;
  /// Makes `SourcePath` and `TargetPath` of `CurrentItem`.
  virtual void identify() { desk_.dispatcher.Fileident(); }
  /// Whether the panel still shows what the items were selected in: names selected there mean other files elsewhere.
  virtual bool sourceStands() const;
  virtual void opening() {}
  virtual void closed(bool /*executed*/) {}
  /// Questions and space tests in front of the loop. Closed: the dialog has hidden, and no ending follows.
  virtual Begin mayBegin() = 0;
  virtual Turn turn() const = 0;
  /// Handle the item in hand: `SourcePath`, `TargetPath`, and `CurrentItem` without its marker.
  virtual Item file() = 0;
  virtual Item folder() = 0;
  /// Does the call of the operation for these files of the source folder, as far as they are plain cases.
  virtual platform::BatchResults batch(const std::string& folder, const std::vector<std::string>& names,
                                       const std::string& to, const platform::Progress& progress) = 0;
  virtual void counted() {}
  /// Looks whether the item came through, where its call did not say so; false ends the loop.
  virtual bool verify() = 0;
  /// The loop is over and has changed something on the disk.
  virtual void changed() {}
  virtual void refreshPanels() = 0;
  virtual void ended(bool /*normally*/) {}

  /// The bytes of the file in hand when it is done already, together with those around it: many small files are handled
  /// several at once between two turns of the message loop, and counted one after the other all the same. Nothing: it
  /// is to be handled by itself.
  std::optional<std::uint64_t> doneInBatch();
  /// The item in hand has been tried in a batch.
  bool inBatch() const { return !batch_.empty(); }

  // --- What they share -------------------------------------------------------------------------------------------
  void showItem(const std::string& line) { dialog_.showItem(line); }
  /// What a call handles: the bytes that its item adds to `BytesDone`, and what its progress counts up to (0: unknown).
  struct Extent {
    std::uint64_t bytes = 0, whole = 0;
  };
  /// Runs a call that may take long, while the windows go on painting, the bars move and the stop button works:
  /// pressed, it ends the call (Stopped).
  platform::Result<void> runLong(const Extent& extent, const LongCall& call);
  using FolderCall = std::function<platform::Result<void>(const platform::FolderProgress&)>;
  /// The same for a whole folder, of which nobody knows the size before; adds it to `BytesDone`.
  platform::Result<void> runFolder(const FolderCall& call);
  /// What a folder holds; to be stopped, too.
  platform::TreeSize treeSize(const std::string& folder);
  /// How the item in hand came out by its call. What was left out in it is told at the ending.
  Item cameOut(const platform::Result<void>& result, const platform::LeftOuts& leftOut = {});
  /// The item is there all the same, so that nobody is asked about it: what failed is told at the ending.
  void noteFailure();
  std::uint64_t fileBytes(const std::string& file) const;
  bool exists(const std::string& path) const;
  bool driveReady(const panels::Panel& panel);
  void alert(const std::string& text) { desk_.program.dialogs.alert(text); }

  panels::Desk& desk_;
  ProgressForm& dialog_;
  Tally tally_;
  std::string leaf_;                        ///< name of the item in hand
  bool VerifyFolderMode_ = false;           ///< the item in hand is a folder
  bool RefreshTreeNeeded_ = false;          ///< a folder came or went
  bool succeeded_ = false;                  ///< the call for the item in hand says that it is done: nothing to verify
  std::optional<platform::Error> failure_;  ///< why that call failed as a whole
  LeftOutNotice leftOut_{desk_.program};

 private:
  void Command2_Click();
  void handOver(const std::vector<core::Item>* items);
  void collect(const std::vector<core::Item>* items);
  void fillDialog();
  void begin();
  void takeNext();
  bool stopAsked();
  enum class Ending { Straight, Normal, Aborted };
  Ending loop();
  void end(Ending ending);
  void close();

  std::vector<std::string> nextNames(const std::string& folder, std::size_t count);
  void runBatch();

  bool executed_ = false;
  bool changed_ = false;            ///< the loop has done something to the disk
  OperationForm* asked_ = nullptr;  ///< the dialog in which it is asked for
  std::string sourceFolder_;        ///< what the active panel showed at the hand-over
  /// Bytes of the files that a batch has done, from the one in hand on; nothing for one that failed in it.
  std::deque<std::optional<std::uint64_t>> batch_;
  std::size_t batchSize_ = 0, batchPause_ = 0;
};

/// What copy and move share: a target folder that can be browsed for, and the space tests.
class TargetOperation : public Operation {
 protected:
  TargetOperation(panels::Desk& desk, TargetForm& dialog, Space& space, Form32& nameDialog);
  TargetOperation(panels::Desk& desk, ProgressForm& progress, Space& space)
      : Operation(desk, progress), space_(space) {}

  void opening() override;
  void closed(bool executed) override;
  Begin mayBegin() override;
  /// `VerifyTarget`: the target is there, or the user goes on without it.
  bool verify() override;
  /// Has the target's volume written out: beside the window, but waited for where the volume may be pulled out.
  void changed() override;
  virtual bool moving() const { return false; }
  /// Its items leave their places.
  virtual bool takesAway() const { return false; }

  /// `stieqopen`: the item in hand cannot go into itself.
  void stieqopen();
  /// The target lies in the item by the spelling of the two paths, so a folder whose name begins like the item's
  /// counts too.
  bool liesInItem() const;
  bool isOwnTarget() const;
  /// What a refusal of the item in hand comes to: a single item ends the operation.
  virtual Item refused() const { return tally_.ItemsTotal == 1 ? Item::EndsAll : Item::PassedOver; }

 private:
  void Command4_Click();
  void Command5_Click();
  platform::Result<void> runAlone(const LongCall& call);

  TargetForm* target_ = nullptr;
  Space& space_;
  std::optional<AsNewName> asNewName_;
  std::string initFolder_;  ///< what the panel that is not active showed when the dialog opened
};

}  // namespace varnholt::fileops
