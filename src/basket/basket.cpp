#include "basket/basket.hpp"

namespace varnholt::basket {

Basket::Basket(panels::Desk& desk, fileops::FileOps& fileops)
    : Form43(desk.program.loop),
      Form38(desk, PasteCollection),
      Paste(desk, fileops, Form43, PasteCollection),
      desk_(desk) {}

void Basket::WinCopy_Click() {
  auto& form = desk_.form;
  panels::Panel* panel = form.activePanel();
  if (!panel || panel->list.count() == 0) return;
  desk_.selection.ViewClickCopy(*panel);
  if (!form.filecollect.empty()) form.Caption = "Varnholt, - Building Selection Set, - Please Wait... !";
  const bool added = PasteCollection.add(form.filecollect.rows());
  form.Caption = added ? "Varnholt, - Ctrl+C Done !" : "Varnholt, - Ctrl+C Failed !";
}

void Basket::RegOptions_Click() {
  if (!desk_.dispatcher.panelPreCheck()) return;
  Form38.ShowModal();
  desk_.dispatcher.commandDone();
}

}  // namespace varnholt::basket
