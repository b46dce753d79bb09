#include "appearance/command_tree.hpp"

#include "controls/dress.hpp"
#include "core/program_files.hpp"
#include "platform/paths.hpp"

namespace varnholt::appearance {
namespace {

namespace paths = platform::paths;
namespace key = controls::key;

constexpr const char *NonFolder = "[ Non Folder ]", *NoPath = "No Path..", *FolderPath = "Folder Path",
                     *FolderGone = "Folder Do Not Exists !";
constexpr const char *FindHandler = "QuickFolderInView_Click", *FindEntry = "QuickFind";
constexpr const char* TreeRoot = "\\";
constexpr controls::Twips FirstWidth = 4'800, FirstHeight = 9'600;

}  // namespace

appearance::Form22::Form22(panels::Desk& desk) : Form(desk.program.loop, "Form22"), desk_(desk) {
  Caption = "Commands";
  cancelButton = "Image1";
  makeButtons();
  dress(Image1, "Close", "Close menu. (Right click selects only one item and resets others)");
  dress(Text1, "Folder in the tree", "Folder that is selected in the tree");
  Text1.Locked = true;
  TreeView1.AccessibleName = "Folders of the active view's drive";
  TreeView1.ToolTipText = "Dbl. Click to goto to folder.";
  Image2.AccessibleName = "Preview";
  Image2.ToolTipText = "Image Preview Window Stretched. Dbl Click to Open In explorer.";
  Image2.Stretch = true;
  Image2.Fallback = core::program_file::path(desk_.program.platform, core::program_file::ToolPicture);
  bind();
}

void appearance::Form22::makeButtons() {
  buttons_ = {{&Command1, "Command1_Click", "Copy", "Copy Selected item", "copy"},
              {&Command2, "Command3_Click", "Move", "Move Selected item", "move"},
              {&Command3, "Command4_Click", "Delete", "Delete Selected item", "delete"},
              {&Command4, "Command14_Click", "Rename", "Rename Selected item", "rename"},
              {&Command5, "Command15_Click", "Properties", "Property of selected Item", "properties"},
              {&Command6, "Command2_Click", "Edit File", "Edit Selected Item", "edit"},
              {&Command7, "OpenSelected_Click", "Open", "Open Selected Item", "open"},
              {&Command8, "refrechview_Click", "Refresh View", "Refresh Current View", "refresh"},
              {&Command9, "selectall_Click", "Select All", "Select All Items in Current View", "select-all"},
              {&Command10, "", "Parent Folder", "Open Parent Folder", "parent"},
              {&Command11, FindHandler, "Quick Find", "Quick Find Item In Active View.", "find-item"},
              {&Command12, "", "Tree On/Off", "TreeView On/Off As Toggle.", "tree"}};
  for (const CommandButton& each : buttons_) {
    dress(*each.button, each.caption, each.toolTip, each.icon);
    each.button->Click = [this, handler = std::string(each.handler)] { run(handler); };
    each.button->GotFocus = [this, button = each.button] {
      UnderScoreRemove();
      button->FontUnderline = true;
    };
    each.button->LostFocus = [this] { UnderScoreRemove(); };
  }
}

void appearance::Form22::bind() {
  Load = [this] { Form_Load(); };
  Command10.Click = [this] { run(parentHandler()); };
  Command12.Click = [this] { TreeView1.Visible = !TreeView1.Visible; };
  Image1.Click = [this] { UnloadForm(); };
  Image1.MouseDown = [this](const controls::MouseEvent& mouse) {
    if (mouse.button == controls::MouseButton::Right) selectOne();
  };
  TreeView1.NodeClick = [this](controls::TreeNode& node) { TreeView1_NodeClick(node); };
  TreeView1.NodeMove = [this](controls::TreeNode& node) { nodeInHand(node); };
  TreeView1.Expand = [this](controls::TreeNode& node) { fill(node); };
  TreeView1.DblClick = [this] { TreeView1_DblClick(); };
  TreeView1.KeyDown = [this](controls::KeyEvent& event) {
    if (event.code != key::Enter) return;
    event.handled = true;
    TreeView1_DblClick();
  };
  Image2.DblClick = [this] { Image2_DblClick(); };
  auto& events = desk_.form.events;
  events.activated.listen([this](panels::Panel&, bool) { F22commandfunction(); });
  events.itemChanged.listen([this](panels::Panel&) { F22commandfunction(); });
  events.selectionChanged.listen([this](panels::Panel&) { F22commandfunction(); });
  events.folderChanged.listen([this] { F22commandfunction(); });
  events.VDT_Aktive.listen([this](bool on) {
    if (on) UnloadForm();
  });
}

// --- Opening -------------------------------------------------------------------------------------------------------

void appearance::Form22::Form_Load() {
  if (desk_.form.Width > 0) {  // where it hides the least: at the right edge of the main window
    Width = FirstWidth;
    Height = FirstHeight;
    Left = desk_.form.Left + desk_.form.Width - FirstWidth;
    Top = desk_.form.Top.get();
  }
  TreeView1.Visible = true;
  TreeView1.clear();
  nodes_.clear();
  drive_.clear();
  F22Path.clear();
  const panels::Panel* panel = desk_.form.activePanel();
  if (!panel) return;
  // What a filter has marked stays selected.
  for (std::uint32_t id = 0; id < panel->list.count(); ++id)
    if (panel->list.foreColor(id) == panels::mark_color::Selection) panel->list.setSelected(id, true);
}

void appearance::Form22::F22commandfunction() {
  if (!Visible) return;
  const panels::Panel* panel = desk_.form.activePanel();
  if (!panel || panel->path().empty()) {
    Text1.Text = NonFolder;
    return;
  }
  // A folder that was not there may have come.
  if (paths::withClosing(F22Path) != panel->path() || Text1.Text.get() == NoPath || TreeView1.roots().empty())
    showFolder(*panel);
  F22Path = panel->path();
  Command10.Enabled = !paths::isRoot(F22Path);
  Command10.Caption = Command10.Enabled ? "Parent Folder" : "Root Folder";
  auto& form = desk_.form;
  Command11.Enabled =
      form.commands.find(FindHandler) != nullptr && (!form.Menu.has(FindEntry) || form.Menu[FindEntry].Enabled);
  Command6.Enabled = form.Command2.Enabled.get();
  showPicture(*panel);
}

void appearance::Form22::showPicture(const panels::Panel& panel) {
  const auto item = panel.list.SelectedItem();
  previewed_ = item && !panel.isFolder(*item) ? panel.itemPath(*item) : std::string();
  Image2.Picture = previewed_.empty() ? Image2.Fallback.get() : previewed_;
}

void appearance::Form22::Image2_DblClick() {
  if (!desk_.dispatcher.busy && !previewed_.empty()) desk_.opener.OpenItemPath(previewed_);
}

void appearance::Form22::selectOne() {
  panels::Panel* panel = desk_.form.activePanel();
  auto item = panel ? panel->list.SelectedItem() : std::nullopt;
  if (!item || desk_.dispatcher.busy) return;
  panel->list.selectNone();
  item->setSelected(true);
  desk_.selection.ClickPane();
}

// --- Buttons -------------------------------------------------------------------------------------------------------

void appearance::Form22::run(const std::string& handler) {
  desk_.dispatcher.perform(handler);
  F22commandfunction();
}

std::string appearance::Form22::parentHandler() const {
  return desk_.form.View2Active() ? "Command19_Click" : "Command18_Click";
}

void appearance::Form22::UnderScoreRemove() {
  for (const CommandButton& each : buttons_)
    each.button->FontUnderline = false;
}

// --- The tree ------------------------------------------------------------------------------------------------------

bool appearance::Form22::isNonFolder() const { return Text1.Text.get() == NonFolder; }

controls::TreeNode* appearance::Form22::TreeNodetest(const std::string& fullPath) const {
  const auto found = nodes_.find(fullPath);
  return found == nodes_.end() ? nullptr : found->second;
}

std::string appearance::Form22::folderOf(const controls::TreeNode& node) const {
  return paths::withoutClosing(drive_ + node.fullPath().substr(1));
}

void appearance::Form22::showFolder(const panels::Panel& panel) {
  if (drive_ != panel.driveRoot() || TreeView1.roots().empty()) {
    TreeView1.clear();
    nodes_.clear();
    drive_ = panel.driveRoot();
    nodes_[TreeRoot] = &TreeView1.add(nullptr, TreeRoot, "root", "drive-fixed");
  }
  const std::string folder = paths::withoutClosing(panel.path());
  std::string fullPath = TreeRoot;
  controls::TreeNode* node = TreeNodetest(fullPath);
  for (std::size_t from = drive_.size(); node;) {
    if (panels::isUnread(*node) || node->children.empty()) fill(*node);
    TreeView1.setExpanded(*node, true);
    TreeView1.select(node);
    if (from >= folder.size()) break;
    const std::size_t end = std::min(folder.find('\\', from), folder.size());
    fullPath = paths::join(fullPath, folder.substr(from, end - from));
    node = TreeNodetest(fullPath);
    from = end + 1;
  }
  Text1.Text = desk_.files().folderExists(folder) ? folder : std::string(NoPath);
}

void appearance::Form22::fill(controls::TreeNode& node) {
  const auto listing = desk_.files().list(folderOf(node));
  if (panels::isUnread(node)) TreeView1.removeChildren(node);
  if (!listing) {
    Text1.Text = NoPath;
    return;
  }
  const std::string above = node.fullPath();
  for (const platform::Entry& entry : (*listing)->folders()) {
    const std::string fullPath = paths::join(above, entry.name);
    if (TreeNodetest(fullPath)) continue;
    controls::TreeNode& child = TreeView1.add(&node, std::string(entry.name), {}, "folder");
    nodes_[fullPath] = &child;
    if (!entry.isLink) TreeView1.add(&child, "", std::string(panels::UnreadLevel));
  }
}

void appearance::Form22::nodeInHand(const controls::TreeNode& node) {
  if (isNonFolder() || node.Key == panels::UnreadLevel) return;
  F22Path = folderOf(node);
  const bool isThere = desk_.files().folderExists(F22Path);
  Text1.Text = isThere ? F22Path : std::string(FolderPath);
  if (!isThere) F22Path.clear();
}

void appearance::Form22::TreeView1_NodeClick(controls::TreeNode& node) {
  if (isNonFolder() || node.Key == panels::UnreadLevel) return;
  nodeInHand(node);
  if (!F22Path.empty())
    fill(node);
  else if (panels::isUnread(node))
    TreeView1.removeChildren(node);
  TreeView1.setExpanded(node, true);
}

void appearance::Form22::TreeView1_DblClick() {
  if (isNonFolder() || desk_.dispatcher.busy) return;
  panels::Panel* panel = desk_.form.activePanel();
  const std::string folder = F22Path;
  if (!panel || folder.empty() || !desk_.navigation.goTo(*panel, folder)) Text1.Text = FolderGone;
}

// --- The command ---------------------------------------------------------------------------------------------------

CommandTree::CommandTree(panels::Desk& desk) : Form22(desk) {}

void CommandTree::Commands_Click() {
  if (Form22.Visible) return Form22.UnloadForm();
  Form22.Show();
  Form22.F22commandfunction();
}

void CommandTree::addCommands(panels::CommandTable& table) {
  table.add({{.handler = "Commands_Click",
              .toolTip = "Show or hide the window of commands",
              .icon = "run",
              .heading = "View",
              .menuText = "&Commands",
              .after = "Treeon",
              .run = [this] { Commands_Click(); }}});
}

}  // namespace varnholt::appearance
