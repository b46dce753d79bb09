#include "appearance/picture_view.hpp"

#include "core/program_files.hpp"
#include "platform/paths.hpp"

#include <memory>

namespace varnholt::appearance {
namespace {

namespace key = controls::key;

constexpr char BoxTip[] = "DblClick to Open item, (Scroll with Up/down keys). F12 Stretch on/off";
constexpr char VDTFolder[] = "<Folder>";

}  // namespace

PictureView::PictureView(panels::Desk& desk, const panels::Icons& icons)
    : desk_(desk),
      icons_(icons),
      left_{desk.form.Picture1, desk.form.Image1},
      right_{desk.form.Picture2, desk.form.Image2} {
  auto& form = desk_.form;
  bind(left_, form.Panel1);
  bind(right_, form.Panel2);
  form.Picture3.Stretch = true;
  form.Picture3.ToolTipText = "FileType Icon, Click To Open Item";
  form.Picture3.Click = [this] { open(iconItem_); };
  form.Picture3.KeyDown = [this](controls::KeyEvent& event) {
    event.handled = event.code == key::Enter || event.code == key::Space;
    if (event.handled) open(iconItem_);
  };
  form.events.itemChanged.listen([this](panels::Panel& panel) { follow(panel); });
  form.events.activated.listen([this](panels::Panel& panel, bool) { follow(panel); });
  form.events.folderChanged.listen([this] { Picreset(); });
  desk_.dispatcher.commandBegins.listen([this] { Picreset(); });
  // What a command's reset took away is there again behind it, as the panel that gets its keyboard back shows its own.
  desk_.dispatcher.commandEnded.listen([this] {
    for (panels::Panel* panel : {&desk_.form.Panel1, &desk_.form.Panel2})
      if (!boxOf(*panel).isVDT) Viewpicv(*panel);
  });
}

void PictureView::bind(Box& box, panels::Panel& panel) {
  for (controls::PictureBox* each : {&box.box, &box.image}) {
    each->ToolTipText = BoxTip;
    each->Fallback = core::program_file::path(desk_.program.platform, core::program_file::ToolPicture);
    each->DblClick = [this, &box] { open(box.item); };
  }
  box.image.Stretch = true;
  box.box.KeyDown = [this, &box, &panel](controls::KeyEvent& event) { keyDown(box, panel, event); };
}

void PictureView::addCommands(panels::CommandTable& table) {
  table.add({{.handler = "Command26_Click",
              .button = "Command26",
              .caption = "Pview",
              .toolTip = "Enable/Disable Picture View ( Alt+Bksp)",
              .icon = "picture",
              .heading = "View",
              .menu = "Picview_Toggle",
              .menuText = "&Picture View - Toggle",
              .shortcut = "Alt+Backspace",
              .number = 13,
              .newGroup = true,
              .run = [this] { Picviewonof(); }},
             {.handler = "Picview_Click",
              .toolTip = "Pictures fill their boxes, or are shown in their own size",
              .heading = "View",
              .menuText = "Picture &Stretch [on/off]",
              .shortcut = "F12",
              .run = [this] { Picview_Click(); }}});
}

void PictureView::load() {
  desk_.form.Menu["Picview"].Checked = true;
  drawIcon(false);
}

// --- Showing -------------------------------------------------------------------------------------------------------

void PictureView::follow(panels::Panel& panel) {
  Viewpicv(panel);
  if (desk_.form.activePanel() != &panel) return;
  const auto item = panel.list.SelectedItem();
  showIcon(item ? panel.itemPath(*item) : std::string());
}

void PictureView::Viewpicv(panels::Panel& panel) {
  if (!isOn()) return;
  const auto item = panel.list.SelectedItem();
  Box& box = boxOf(panel);
  box.isVDT = false;
  show(box, item ? panel.itemPath(*item) : std::string(), item && !panel.isFolder(*item));
}

void PictureView::ViewpicvVDT(const std::string& Text, const std::string& SubItem) {
  if (!isOn()) return;
  const bool isFile = SubItem != VDTFolder;
  right_.isVDT = true;
  show(right_, isFile ? Text + SubItem : Text, isFile);
}

void PictureView::show(Box& box, const std::string& item, bool isFile) {
  box.item = item;
  box.picture = isFile ? item : fallback();
  Pix(box);
}

void PictureView::Pix(Box& box) {
  const bool stretch = stretches(box);
  box.image.Visible = stretch && isOn();
  box.image.Picture = stretch ? box.picture : std::string();
  box.box.Picture = stretch ? std::string() : box.picture;
}

bool PictureView::stretches(const Box& box) const {
  return box.isVDT ? stretchVDT_ : desk_.form.Menu.checked("Picview");
}

std::string PictureView::fallback() const {
  std::string picture = core::program_file::path(desk_.program.platform, core::program_file::ToolPicture);
  return desk_.files().fileExists(picture) ? picture : std::string();
}

void PictureView::showIcon(const std::string& item) {
  if (item == iconItem_) return;
  iconItem_ = item;
  askForIcon();
}

// Whether the file is there is asked beside the window: no key waits for a drive that does not answer. Two such
// questions at most, so that they do not pile up and one drive does not keep the next away.
void PictureView::askForIcon() {
  constexpr int AtOnce = 2;
  if (asking_ == AtOnce) return;
  ++asking_;
  const auto exists = std::make_shared<bool>(false);
  desk_.program.loop.runBeside([&files = desk_.program.platform.files, item = iconItem_,
                                exists] { *exists = !item.empty() && files.fileExists(item); },
                               [this, item = iconItem_, exists] {
                                 --asking_;
                                 item == iconItem_ ? drawIcon(*exists) : askForIcon();
                               });
}

void PictureView::drawIcon(bool exists) {
  controls::PictureBox& icon = desk_.form.Picture3;
  if (exists) return icons_.Iconshow(icon, iconItem_);
  icon.PictureData = std::string();
  icon.IconName = std::string();
  icon.Picture = core::program_file::path(desk_.program.platform, core::program_file::ProgramIcon);
}

// --- What the user does --------------------------------------------------------------------------------------------

void PictureView::Picview_Click() {
  if (desk_.form.VDT_Aktive) {
    stretchVDT_ = !stretchVDT_;
  } else {
    auto& entry = desk_.form.Menu["Picview"];
    entry.Checked = !entry.Checked;
  }
  for (Box* box : {&left_, &right_})
    Pix(*box);
}

void PictureView::Picviewonof() {
  const bool on = !isOn();
  desk_.form.Menu["Picview_Toggle"].Checked = on;
  for (panels::Panel* panel : {&desk_.form.Panel1, &desk_.form.Panel2}) {
    Box& box = boxOf(*panel);
    box.box.Visible = on;
    on ? Viewpicv(*panel) : show(box, {}, true);
  }
}

void PictureView::Picreset() {
  if (!isOn()) return;
  for (Box* box : {&left_, &right_})
    show(*box, {}, false);
}

void PictureView::open(const std::string& item) {
  if (desk_.dispatcher.busy || item.empty()) return;
  desk_.opener.OpenItemPath(item);
}

// A picture that is larger than its box is scrolled by the arrow keys; else they go through the panel's items.
void PictureView::keyDown(Box& box, panels::Panel& panel, controls::KeyEvent& event) {
  const bool opens = event.code == key::Enter || event.code == key::Space;
  const bool walks = stretches(box) && (event.code == key::Up || event.code == key::Down);
  event.handled = opens || walks || event.code == key::Esc;
  if (opens) {
    open(box.item);
  } else if (walks) {
    controls::KeyEvent step;
    step.code = event.code;
    panel.list.keyFromUser(step, 1);
  } else if (event.handled) {
    desk_.listing.FocusView();
  }
}

}  // namespace varnholt::appearance
