#include "properties/item_properties.hpp"

#include "core/attribute_words.hpp"
#include "core/error_words.hpp"
#include "core/item_text.hpp"
#include "platform/paths.hpp"

namespace varnholt::properties {

namespace paths = platform::paths;
namespace attribute = platform::attribute;

ItemProperties::ItemProperties(panels::Desk& desk, fileops::Desktop& desktop, Form15& dialog)
    : desk_(desk), desktop_(desktop), Form15_(dialog) {
  Form15_.Command1.Click = [this] { Command1_Click(); };
  Form15_.Command2.Click = [this] { Command2_Click(); };
  Form15_.Command3.Click = [this] { desk_.opener.OpenItemPath(item().path); };
  Form15_.Command4.Click = [this] { Command4_Click(); };
  Form15_.Command5.Click = [this] {
    desktop_.copy({item().path},
                  [this](const fileops::LongCall& call) { return work_.runTelling(Form15_.Command2, call); });
  };
  Form15_.Image1.Click = [this] { step(-1); };
  for (controls::Button* next : {&Form15_.Image2, &Form15_.Command11})
    next->Click = [this] { step(+1); };
  Form15_.KeyDown = [this](controls::KeyEvent& key) { keyDown(key); };
}

// --- Hand-over -----------------------------------------------------------------------------------------------------

void ItemProperties::Command15_Click() {
  if (!desk_.dispatcher.panelPreCheck()) return;
  handOver();
  desk_.dispatcher.resetval();
  desk_.listing.FocusView();
  desk_.dispatcher.commandDone();
}

void ItemProperties::handOver() {
  auto& form = desk_.form;
  panels::Panel& panel = *form.activePanel();
  const auto drive = desk_.program.drive(panel.driveRoot().front());
  if (!drive || !drive->ready) {
    desk_.program.dialogs.alert("Cannot View Data, - Drive(s) Not Ready !\rFunction Exits !");
    return;
  }
  readOnlyMedium_ = drive->isDisc();
  desk_.selection.ViewClickCopy(panel);
  form.setMode("FilesMode");
  items_.clear();
  for (const core::Item& collected : form.filecollect.items())
    items_.push_back({core::entryPath(collected.path, panel.path()), collected.isFolder});
  if (!items_.empty()) return open();
  desk_.selection.ClickPane();
  desk_.selection.nonselect();
}

void ItemProperties::open() {
  index_ = 0;
  changed_ = false;
  Form15_.reset(items_.size(), readOnlyMedium_);
  Itemdata();
  AttUpdate();
  Form15_.ShowModal();
  Form15_.Image3.Picture = "";
  desk_.navigation.leaveVanished();
  if (changed_) desk_.listing.viewrefresh();
}

// --- The item in hand ------------------------------------------------------------------------------------------------

void ItemProperties::Itemdata() { data_ = desk_.files().info(item().path); }

void ItemProperties::AttUpdate() {
  const auto& program = desk_.program;
  const auto date = [&](const platform::Date& moment) {
    return core::propertiesDate(program.init.DateTimeFormat, program.platform.clock.local(moment));
  };
  const std::string name(paths::fileName(item().path));
  Form15_.Label2.Caption = std::to_string(index_ + 1) + " / " + std::to_string(items_.size());
  Form15_.Text1.Text = name;
  Form15_.Text2.Text = paths::parent(item().path);
  Form15_.Text3.Text = type();
  Form15_.Text4.Text = !data_            ? data_.error().text
                       : item().isFolder ? std::string()
                                         : core::bytesText(data_->size, program.platform.regional);
  Form15_.Text5.Text = data_ ? date(data_->created) : std::string();
  Form15_.Text6.Text = data_ ? date(data_->modified) : std::string();
  Form15_.Command1.Enabled = item().isFolder;
  Form15_.Command5.Enabled = !item().isFolder;
  Form15_.Command4.Enabled = !item().isFolder && !readOnlyMedium_;
  const bool isFile = data_ && data_->kind == platform::EntryKind::File;
  Form15_.Image3.Picture = isFile ? item().path : std::string();
  showBoxes();
}

void ItemProperties::showBoxes() {
  const platform::Attributes value = data_ ? data_->attributes : 0;
  Form15_.Check1.Value = (value & attribute::Archive) != 0;
  Form15_.Check2.Value = (value & attribute::Hidden) != 0;
  Form15_.Check3.Value = (value & attribute::ReadOnly) != 0;
  Form15_.Check4.Value = (value & attribute::System) != 0;
  Form15_.Check5.Value = (value & attribute::Compressed) != 0;
  Form15_.Check6.Value = data_ && data_->isIndexed;
  Form15_.Text7.Text = data_ ? std::string(core::propertiesAttributes(value)) : std::string();
}

std::string ItemProperties::type() const {
  if (item().isFolder) return "Folder";
  if (data_ && data_->kind == platform::EntryKind::Special) return "Pipe, Socket Or Device";
  const std::string words =
      desk_.program.platform.fileTypes.description(paths::extension(paths::fileName(item().path)));
  return words.empty() ? "File" : core::properCase(words);
}

void ItemProperties::step(int by) {
  const auto to = static_cast<std::ptrdiff_t>(index_) + by;
  if (to < 0 || to >= static_cast<std::ptrdiff_t>(items_.size())) return;
  index_ = static_cast<std::size_t>(to);
  Itemdata();
  AttUpdate();
}

void ItemProperties::Command1_Click() {
  if (!item().isFolder) return;
  Form15_.Text4.Text = "Calculating, - Please Wait!";
  desk_.pointer() = controls::pointer::Hourglass;
  foldercalc();
  desk_.pointer() = controls::pointer::Default;
}

void ItemProperties::foldercalc() {
  const std::string folder = item().path;
  platform::Result<platform::TreeSize> size = platform::TreeSize{};
  const bool whole = work_.run(Form15_.Command2, [&] {
    const auto info = desk_.files().info(folder);
    if (info && info->isLink) return;
    size = desk_.files().folderSize(folder, [this](std::uint64_t) { return work_.goesOn(); });
  });
  if (size) {
    Form15_.Text4.Text = (size->exact ? "" : "~ ") + core::folderSizeText(size->bytes, desk_.program.platform.regional);
  } else {
    Form15_.Text4.Text = whole ? size.error().text : std::string();
  }
}

void ItemProperties::Command4_Click() {
  if (item().isFolder || readOnlyMedium_) return;
  const auto reset = desk_.files().resetAttributes(item().path);
  Itemdata();
  showBoxes();
  if (reset) {
    changed_ = true;
    return;
  }
  const std::string name(paths::fileName(item().path));
  desk_.program.dialogs.alert(name + ",  - Attributes Not Changed !\r" + core::reasonOf(reset.error(), name));
}

void ItemProperties::Command2_Click() {
  if (work_.running()) return work_.stop();
  Form15_.Hide();
}

void ItemProperties::keyDown(controls::KeyEvent& key) {
  if (key.code == controls::key::Space && Form15_.Image3.hasFocus()) {
    key.handled = true;
    return Form15_.Image3.Click();
  }
  if (key.code != controls::key::PageUp && key.code != controls::key::PageDown) return;
  key.handled = true;
  step(key.code == controls::key::PageUp ? -1 : +1);
}

}  // namespace varnholt::properties
