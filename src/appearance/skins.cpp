#include "appearance/skins.hpp"

#include "controls/menu.hpp"
#include "core/program_files.hpp"

#include <charconv>

namespace varnholt::appearance {
namespace {

struct Skin {
  const char *name, *small, *large, *menuText, *toolTip;
  controls::Color accent, surface, active,
      inactive;  // blue-green-red; the last two are the grounds of the panels' lists
};
constexpr Skin Skins[NewSkin::Count] = {
    {"Blue", "\\Blue\\mainblue800.jpg", "\\Blue\\mainblue2500.jpg", "Blue (default)", "Dress all windows in blue",
     0xD59B5B, 0x372F2A, 0x2E1E14, 0x241A14},
    {"Green", "\\Green\\maingreen800.jpg", "\\Green\\maingreen2500.jpg", "Green", "Dress all windows in green",
     0x82C470, 0x2D332A, 0x1F2713, 0x1A1F14},
    {"Brown", "\\Brown\\mainbrown800.jpg", "\\Brown\\mainbrown2500.jpg", "Brown", "Dress all windows in brown",
     0x66A6DE, 0x2A3036, 0x15202D, 0x151B22},
    {"Metal", "\\Metal\\mainmetal800.jpg", "\\Metal\\mainmetal2500.jpg", "Metal", "Dress all windows in metal",
     0xCDC08F, 0x4A433D, 0x332D28, 0x2A2622},
    {"User", "\\User\\mainuser800.jpg", "\\User\\mainuser2500.jpg", "User",
     "Dress all windows in the two pictures of your own in the folder Skins", 0xB4BE58, 0x35312A, 0x2A2713, 0x221F14},
    {"Plastic", "\\Plastic\\mainplastic800.jpg", "\\Plastic\\mainplastic2500.jpg", "Plastic",
     "Dress all windows in plastic", 0xA67FEE, 0x39383B, 0x252426, 0x1D1C1E},
    {"Black", "\\Black\\mainblack800.jpg", "\\Black\\mainblack2500.jpg", "Black", "Dress all windows in black",
     0xD6D0CA, 0x1A1817, 0x0B0A0A, 0x121111},
    {"Violet", "\\Violet\\mainviolet800.jpg", "\\Violet\\mainViolet2500.jpg", "Violet", "Dress all windows in violet",
     0xE592B4, 0x382B2F, 0x2F1B20, 0x251820},
};

}  // namespace

std::string NewSkin::nameOf(int number) { return Skins[number].name; }

std::string NewSkin::picture(int number, bool large) const {
  return core::program_file::path(program_.platform, core::program_file::Skins) +
         (large ? Skins[number].large : Skins[number].small);
}

void NewSkin::addCommands(panels::CommandTable& table) {
  std::vector<panels::Command> rows;
  for (int number = 0; number < Count; ++number)
    rows.push_back({.handler = "Skin" + nameOf(number) + "_Click",
                    .toolTip = Skins[number].toolTip,
                    .heading = "Options/Skin",
                    .menuText = Skins[number].menuText,
                    .run = [this, number] { choose(number); }});
  table.add(std::move(rows));
}

void NewSkin::applyInitState() {
  const std::string& text = program_.init.Skintype;
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  if (number < 0) number = 0;
  wear(0);  // a number that loads no skin leaves the colours of the first
  if (number < Count) choose(number);
}

void NewSkin::choose(int number) {
  const std::string small = picture(number, false), large = picture(number, true);
  if (!program_.files().fileExists(small) || !program_.files().fileExists(large)) {
    if (number == 0) {
      program_.dialogs.alert("Needed Skinfile Missing !, - Reinstall Program From New, Or Try To Restart Varnholt.");
      return;
    }
    program_.dialogs.alert("Missing Skinfile !, - Returning to default skin.");
    program_.init.Skintype = "0";
    choose(0);
    return;
  }
  program_.init.Skintype = std::to_string(number);
  small_ = small;
  large_ = large;
  wear(number);
  dressAll();
  checkEntry(number);
}

void NewSkin::checkEntry(int number) {
  for (controls::Form* form : mainWindows_)
    for (int each = 0; each < Count; ++each)
      if (auto* entry = dynamic_cast<controls::MenuItem*>(form->control("Skin" + nameOf(each))))
        entry->Checked = each == number;
}

void NewSkin::wear(int number) {
  const Skin& skin = Skins[number];
  program_.loop.screen().Dress = {skin.accent, skin.surface, skin.inactive};
  looks_.takeGrounds(skin.active, skin.inactive);
}

void NewSkin::dressAll() {
  for (controls::Form* form : dialogs_)
    form->Picture = small_;
  for (controls::Form* form : mainWindows_)
    form->Picture = large_;
}

void NewSkin::addDialog(controls::Form& form) {
  dialogs_.push_back(&form);
  form.Picture = small_;
}

void NewSkin::addMainWindow(controls::Form& form) {
  mainWindows_.push_back(&form);
  form.Picture = large_;
}

}  // namespace varnholt::appearance
