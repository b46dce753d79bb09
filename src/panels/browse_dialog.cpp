#include "panels/browse_dialog.hpp"

#include "controls/dress.hpp"
#include "panels/tree_window.hpp"
#include "platform/paths.hpp"

#include <utility>

namespace varnholt::panels {
namespace {

namespace paths = platform::paths;

constexpr const char* Title = "Browse For Folder On Ready Drives..";

}  // namespace

panels::Form35::Form35(core::Program& program) : Form(program.loop, "Form35"), program_(program) {
  Caption = Title;
  Text1.Locked = true;
  Text1.ToolTipText = "The chosen folder";
  TreeView1.ToolTipText = "Click on a drive or folder to open and choose it.";
  TreeView1.AccessibleName = "Folders on ready drives";
  dress(Check1, "Return To Init Folder If Cancel Pri. Function",
        "The panel goes back to the folder that it shows now, if the function is cancelled.");
  dress(Check2, "Return To Init Folder After Execute Pri. Function ",
        "The panel goes back to the folder that it shows now, after the function.");
  dress(Command1, "&Ok", "Take the chosen folder");
  dress(Command3, "&Cancel", "Cancel Operation");
  defaultButton = "Command1";
  cancelButton = "Command3";
  Load = [this] { Form_Load(); };
  TreeView1.NodeClick = [this](controls::TreeNode& node) { TreeView1_NodeClick(node); };
  TreeView1.NodeMove = [this](controls::TreeNode& node) { TreeView1_NodeMove(node); };
  TreeView1.Expand = [this](controls::TreeNode& node) { TreeView1_Expand(node); };
  TreeView1.KeyDown = [this](controls::KeyEvent& event) { TreeView1_KeyDown(event); };
  Check1.Click = [this] { showCaption(); };
  Check2.Click = [this] { showCaption(); };
  Command1.Click = [this] { Command1_Click(); };
  Command3.Click = [this] { UnloadForm(); };
  QueryUnload = [this](bool& keep) { keep = scanning_; };
}

std::optional<std::string> panels::Form35::browse(const std::string& function) {
  // The turn that the drive test gives may bring a second press of the button that has opened this dialog.
  if (isLoaded()) return {};
  function_ = function;
  taken_.reset();
  ShowModal();
  return taken_;
}

void panels::Form35::Form_Load() {
  TreeView1.clear();
  Text1.Text = "";
  controls::TreeNode& computer = TreeView1.add(nullptr, "My Computer", "root", "computer");
  StatusBar1.setPanel(1, "Testing Drives For Ready Condition, - Please wait...");
  program_.loop.giveTurn();
  program_.platform.drives.refresh();
  for (const char letter : program_.platform.drives.letters()) {
    const auto info = program_.drive(letter);
    if (!info || !info->ready) continue;
    const std::string name = info->share.empty() ? info->label : info->share;
    const bool cd = info->isCompactDisc();
    controls::TreeNode& node = TreeView1.add(
        &computer, (name.empty() ? "" : name + " ") + "(" + std::string(1, letter) + ":)" + (cd ? " [CDFS]" : ""),
        info->root(), cd ? "drive-cd" : "drive-fixed");
    TreeView1.add(&node, "", std::string(UnreadLevel));
  }
  TreeView1.setExpanded(computer, true);
  StatusBar1.setPanel(1, "");
  showCaption();
}

void panels::Form35::showCaption() {
  Check1.Visible = Check2.Visible = !function_.empty();
  if (function_.empty()) {
    Caption = Title;
    return;
  }
  Caption = function_ + (Check2.Value ? " & Return On Execute" : "") + (Check1.Value ? " & Return On Cancel" : "");
}

bool panels::Form35::TreeNodetest(const controls::TreeNode& node) { return !isUnread(node); }

std::string panels::Form35::folderOf(const controls::TreeNode& node) const {
  if (node.Key == "root") return {};
  if (!node.Key.empty()) return node.Key;
  return node.parent ? paths::join(folderOf(*node.parent), node.Text) : node.Text;
}

void panels::Form35::TreeView1_NodeClick(controls::TreeNode& node) {
  if (std::exchange(scanning_, true)) return;
  Text1.Text = folderOf(node);
  Caption = "Folder Path";
  program_.loop.giveTurn();
  scan(node);
  Caption = Title;
  scanning_ = false;
}

// Keys choose what they pass; reading a drive that is only passed would be a long wait.
void panels::Form35::TreeView1_NodeMove(controls::TreeNode& node) {
  if (!scanning_) Text1.Text = folderOf(node);
}

// Enter opens a node; on one that is open, or has nothing below it, it stands for the Ok button as elsewhere.
void panels::Form35::TreeView1_KeyDown(controls::KeyEvent& event) {
  controls::TreeNode* node = TreeView1.selected();
  if (event.code != controls::key::Enter || !node || node->Expanded || node->children.empty()) return;
  event.handled = true;
  TreeView1.expandFromUser(*node, true);
}

// A node that is opened by its arrow is read, and not chosen.
void panels::Form35::TreeView1_Expand(controls::TreeNode& node) {
  if (std::exchange(scanning_, true)) return;
  const std::string before = Caption;
  scan(node);
  Caption = before;
  scanning_ = false;
}

void panels::Form35::scan(controls::TreeNode& node) {
  if (node.Key == "root" || TreeNodetest(node)) return;
  Caption = "Scanning Folders, - Please Wait...";
  program_.loop.giveTurn();
  addFolders(program_, TreeView1, node, folderOf(node));
  TreeView1.setExpanded(node, true);
}

void panels::Form35::Command1_Click() {
  const std::string folder = Text1.Text;
  if (scanning_ || folder.empty()) return;
  if (!program_.files().folderExists(folder)) return;
  taken_ = paths::withClosing(folder);
  UnloadForm();
}

}  // namespace varnholt::panels
