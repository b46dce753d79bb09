#include "basket/paste_dialog.hpp"

#include "controls/dress.hpp"
#include "core/text_character.hpp"

namespace varnholt::basket {
namespace {

constexpr std::size_t LongLine = 72, LongLineKept = 66;

}  // namespace

basket::Form43::Form43(controls::MessageLoop& loop)
    : ProgressForm(loop,
                   {.form = "Form43", .verb = "Paste", .caption = "Paste Item(s)", .button = {}, .buttonTip = {}}) {
  Label1.AccessibleName = "Target";
  Label2.AccessibleName = "Items";
  Label3.AccessibleName = "The item in hand";
  Label4.Caption = "Working...";
  dress(Command2, "&Cancel", "Cancel Operation");
  cancelButton = "Command2";
  defaultButton = "Command2";
  Command2.Click = [this] { StopFlag = true; };
}

void basket::Form43::showItem(const std::string& line) {
  Label3.Caption = core::shortened(line, LongLine, LongLineKept);
}

void basket::Form43::showCount(std::size_t number, std::size_t of) {
  Label2.Caption = "Paste " + std::to_string(number) + " Of " + std::to_string(of) + " Item(s)...";
}

}  // namespace varnholt::basket
