#include "places/places_form.hpp"

#include <utility>

namespace varnholt::places {

PlacesForm::PlacesForm(panels::Desk& desk, rename::Rename& rename, std::string name, PlaceKind kind, Speech speech)
    : Form(desk.program.loop, std::move(name)),
      places(desk, ListView1, kind),
      desk_(desk),
      rename_(rename),
      speech_(speech) {
  cancelButton = "Command3";
  Load = [this] { Form_Load(); };
  Activate = [this] { places.showDateHeader(); };
  places.opened = [this](controls::ListItem row) { open(row); };
  places.deleted = [this] { Command1_Click(); };
  Command1.Click = [this] { Command1_Click(); };
  Command3.Click = [this] { UnloadForm(); };
  Command4.Click = [this] { Command4_Click(); };
}

void PlacesForm::Form_Load() {
  places.resetColumns();
  places.refresh();
  if (ListView1.count() > 0) ListView1.focusRow(0);
  ListView1.SetFocus();
}

void PlacesForm::Command1_Click() {
  const auto files = places.markSelected();
  if (files.empty()) return desk_.selection.nonselect();
  if (desk_.program.dialogs.AskRetry("You Are About To Delete \r" + std::to_string(files.size()) + speech_.many +
                                     "\rAre You Sure ?"))
    places.deleteFiles(files);
  ListView1.SetFocus();
}

void PlacesForm::Command4_Click() {
  const auto row = places.inHand();
  if (!row) return;
  const std::string name = row->Text();
  const auto newName = rename_.renameOne(speech_.caller, places.path(*row));
  places.refresh();
  places.selectName(newName.value_or(name));
  ListView1.SetFocus();
}

}  // namespace varnholt::places
