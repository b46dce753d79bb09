#include "panels/tree_window.hpp"

#include "core/item_text.hpp"
#include "core/text_character.hpp"
#include "platform/paths.hpp"
#include "platform/text_fold.hpp"

namespace varnholt::panels {
namespace {

namespace paths = platform::paths;

// Names of more characters are shown by their tail.
constexpr std::size_t LongItem = 60;

controls::TreeNode* childNamed(controls::TreeNode& node, std::string_view name) {
  for (auto& child : node.children)
    if (child->Text == name) return child.get();
  return nullptr;
}

}  // namespace

panels::Form9::Form9(controls::MessageLoop& loop) : Form(loop, "Form9") {
  Caption = "TreeView, One-Way Command Source.";
  Text1.Locked = true;
  Text2.Locked = true;
  Text1.AccessibleName = "Folder of the left tree";
  Text2.AccessibleName = "Folder of the right tree";
  TreeView1.AccessibleName = "Left tree";
  TreeView2.AccessibleName = "Right tree";
  TreeView1.ToolTipText = "Dbl. Click to goto to folder.";
  TreeView2.ToolTipText = "Dbl. Click to goto to folder.";
}

bool isUnread(const controls::TreeNode& node) {
  return node.children.size() == 1 && node.children.front()->Key == UnreadLevel;
}

bool addFolders(core::Program& program, controls::TreeView& tree, controls::TreeNode& node, const std::string& folder,
                const std::function<void(std::size_t, std::size_t)>& each) {
  const auto listing = program.files().list(folder);
  tree.removeChildren(node);
  if (!listing) return false;
  const auto& folders = (*listing)->folders();
  std::size_t done = 0;
  for (const auto& entry : folders) {
    controls::TreeNode& child = tree.add(&node, std::string(entry.name), {}, "folder");
    if (!entry.isLink) tree.add(&child, "", std::string(UnreadLevel));
    if (each) each(++done, folders.size());
  }
  return true;
}

TreeWindow::TreeWindow(Form9& form9, Form1& form, core::Program& program)
    : Form9_(form9), form_(form), program_(program) {
  Form9_.Load = [this] { Form_Load(); };
  // The close box hides the window; it lives as long as the main window.
  Form9_.QueryUnload = [this](bool& keep) {
    keep = form_.Visible;
    if (keep) Form9_.Hide();
  };
  Form9_.KeyDown = [this](controls::KeyEvent& event) {
    if (event.code != controls::key::Esc) return;
    event.handled = true;
    Form9_.Hide();
  };
  auto& events = form_.events;
  events.activated.listen([this](Panel& panel, bool) {
    Form9_.StatusBar1.setPanel(tree_status::ActiveView,
                               panel.side == Side::Left ? "TreeView1-View1Active" : "TreeView2-View2Active");
    TreedisplayItem();
  });
  events.itemChanged.listen([this](Panel&) { TreedisplayItem(); });
  events.selectionChanged.listen([this](Panel&) { TreedisplayItem(); });
  for (Panel* panel : {&form_.Panel1, &form_.Panel2}) {
    controls::TreeView& view = tree(*panel);
    view.NodeClick = [this, panel](controls::TreeNode& node) { NodeClick(*panel, node); };
    view.NodeMove = view.NodeClick;
    view.DblClick = [this, panel] { DblClick(*panel); };
    // Who has no mouse goes there with Enter, as in the lists.
    view.KeyDown = [this, panel](controls::KeyEvent& event) {
      if (event.code != controls::key::Enter) return;
      event.handled = true;
      DblClick(*panel);
    };
    view.Expand = [this, panel](controls::TreeNode& node) { Expand(*panel, node); };
    view.Collapse = [this, panel](controls::TreeNode& node) { Collapse(*panel, node); };
  }
}

void TreeWindow::Form_Load() {
  if (restorePosition) restorePosition();
  for (Panel* panel : {&form_.Panel1, &form_.Panel2}) {
    tree(*panel).clear();
    tree(*panel).add(nullptr, core::properCase(paths::withoutClosing(panel->path())), "root", "folder");
    text(*panel).Text = paths::withoutClosing(panel->path());
  }
}

void TreeWindow::Treeon_Click() {
  form_.setMode("TreeMode");
  if (Form9_.Visible) {
    Form9_.Hide();
    return;
  }
  if (restorePosition) restorePosition();
  Form9_.Show();
  redraw();
}

void TreeWindow::redraw() {
  if (!Form9_.Visible) return;
  build(form_.Panel1);
  build(form_.Panel2);
  const Panel* panel = form_.activePanel();
  if (panel && panel->list.SelectedItem()) TreedisplayItem();
}

// --- Building ------------------------------------------------------------------------------------------------------

void TreeWindow::build(Panel& panel) {
  controls::TreeView& view = tree(panel);
  view.clear();
  controls::TreeNode* node = &view.add(nullptr, panel.driveRoot(), "root", "drive-fixed");
  buildLevel(panel, *node);
  view.setExpanded(*node, true);
  std::string below = paths::withoutClosing(panel.path());
  below = below.size() > 3 ? below.substr(3) : std::string();
  while (!below.empty()) {
    const auto end = below.find('\\');
    controls::TreeNode* child = childNamed(*node, below.substr(0, end));
    if (!child) break;
    node = child;
    if (!isUnread(*node)) break;
    buildLevel(panel, *node);
    view.setExpanded(*node, true);
    below = end == std::string::npos ? std::string() : below.substr(end + 1);
  }
  view.select(node);
  text(panel).Text = paths::withoutClosing(panel.path());
}

void TreeWindow::buildLevel(Panel& panel, controls::TreeNode& node) {
  program_.loop.screen().MousePointer = controls::pointer::Hourglass;
  const std::string folder = folderOf(node);
  addFolders(program_, tree(panel), node, folder, [this](std::size_t done, std::size_t total) {
    Form9_.ProgressBar1.Value = static_cast<double>(done) / static_cast<double>(total) * 100;
  });
  Form9_.ProgressBar1.Value = 0;
  Form9_.StatusBar1.setPanel(tree_status::Item, "View Update Done.");
  text(panel).Text = paths::withoutClosing(folder);
  program_.loop.screen().MousePointer = controls::pointer::Default;
}

std::string TreeWindow::folderOf(const controls::TreeNode& node) const {
  const std::string path = node.fullPath();
  return program_.files().resolve(path).valueOr(path);
}

// --- What the user does --------------------------------------------------------------------------------------------

void TreeWindow::NodeClick(Panel& panel, controls::TreeNode& node) {
  text(panel).Text = paths::withoutClosing(folderOf(node));
}

void TreeWindow::Expand(Panel& panel, controls::TreeNode& node) {
  if (isUnread(node)) buildLevel(panel, node);
}

void TreeWindow::Collapse(Panel& panel, controls::TreeNode& node) {
  text(panel).Text = paths::withoutClosing(folderOf(node));
}

void TreeWindow::DblClick(Panel& panel) {
  controls::TreeNode* node = tree(panel).selected();
  if (!node || node->Key == UnreadLevel) return;
  const std::string folder = folderOf(*node);
  if (!goTo || !goTo(panel, folder)) return;
  // From here the next step leads deeper.
  node = tree(panel).selected();
  if (node && node->Key != UnreadLevel) {
    Expand(panel, *node);
    tree(panel).setExpanded(*node, true);
  }
  text(panel).Text = paths::withoutClosing(folder);
}

void TreeWindow::TreedisplayItem() {
  if (!Form9_.Visible) return;
  Panel* panel = form_.activePanel();
  const auto item = panel ? panel->list.SelectedItem() : std::nullopt;
  if (!item || !panel->rows) return Form9_.StatusBar1.setPanel(tree_status::Item, "");
  std::string line = panel->fileName(*item);
  if (core::characterCount(line) > LongItem) line = "...\\" + std::string(core::lastCharacters(line, LongItem));
  const auto& entry = panel->rows->entry(item->id());
  if (entry.hasDates)
    line += "  " + core::treeDate(program_.init.DateTimeFormat, program_.platform.clock.local(entry.modified));
  Form9_.StatusBar1.setPanel(tree_status::Item, line);
}

}  // namespace varnholt::panels
