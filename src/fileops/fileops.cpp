#include "fileops/fileops.hpp"

#include "core/item_text.hpp"
#include "fileops/stranded.hpp"
#include "platform/paths.hpp"

namespace varnholt::fileops {

FileOps::FileOps(panels::Desk& desk)
    : desk_(desk),
      Form2(desk),
      Form3(desk.program.loop),
      Form4(desk.program.loop),
      Form5(desk.program.loop),
      Form7(desk.program.loop),
      Form10(desk.program.loop),
      Form32(desk.program.dialogs),
      Space(desk),
      policy(desk, Form7, Form10),
      Copy(desk, Form3, Space, Form32, policy, Form7, Form10),
      Move(desk, Form5, Space, Form32),
      Delete(desk, Form4, Space, Form10),
      editor(desk, Form32),
      desktop(desk, Form3),
      swap(desk) {
  policy.copyDialogVisible = [this] { return Form3.Visible.get(); };
  auto& dialogs = desk_.program.dialogs;
  dialogs.Form11.executed = [this] {
    if (Form4.Visible) Form4.showProgress("Processing...");
  };
  dialogs.Form12.closed.push_back([this] {
    for (OperationForm* dialog : std::initializer_list<OperationForm*>{&Form3, &Form4, &Form5})
      dialog->StopFlag = false;
  });
}

void FileOps::load() {
  desk_.program.loop.later([this] { bringBackStranded(desk_); });
}

void FileOps::ValCopyMove_Click() {
  auto& entry = desk_.form.Menu["ValCopyMove"];
  entry.Checked = !entry.Checked;
  auto& value = desk_.program.init.ValidateCM;
  value = entry.Checked ? "1" : "0";
  desk_.program.settings.save(core::setting::ValidateCM, value);
}

bool FileOps::dropFiles(panels::Panel& panel, const std::vector<std::string>& files, bool move) {
  std::vector<core::Item> items;
  for (const std::string& file : files) {
    const std::string path = platform::paths::withoutClosing(file);
    items.push_back({path, desk_.files().folderExists(path)});
  }
  // The other panel stands for the source, whatever it shows: the items bring their own paths.
  desk_.form.otherPanel(panel).list.SetFocus();
  move ? Move.start(items) : Copy.start(items);
  panel.list.SetFocus();
  return true;
}

}  // namespace varnholt::fileops
