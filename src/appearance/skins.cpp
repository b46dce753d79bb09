#include "appearance/skins.hpp"

#include "core/program_files.hpp"

#include <charconv>

namespace varnholt::appearance {
namespace {

struct Skin {
  const char *name, *small, *large;
};
constexpr Skin Skins[NewSkin::Count] = {
    {"Blue", "\\Blue\\mainblue800.jpg", "\\Blue\\mainblue2500.jpg"},
    {"Green", "\\Green\\maingreen800.jpg", "\\Green\\maingreen2500.jpg"},
    {"Brown", "\\Brown\\mainbrown800.jpg", "\\Brown\\mainbrown2500.jpg"},
    {"Metal", "\\Metal\\mainmetal800.jpg", "\\Metal\\mainmetal2500.jpg"},
    {"User", "\\User\\mainuser800.jpg", "\\User\\mainuser2500.jpg"},
    {"Plastic", "\\Plastic\\mainplastic800.jpg", "\\Plastic\\mainplastic2500.jpg"},
    {"Black", "\\Black\\mainblack800.jpg", "\\Black\\mainblack2500.jpg"},
    {"Violet", "\\Violet\\mainviolet800.jpg", "\\Violet\\mainViolet2500.jpg"},
};

}  // namespace

std::string NewSkin::nameOf(int number) { return Skins[number].name; }

std::string NewSkin::picture(int number, bool large) const {
  return core::program_file::path(program_.platform, core::program_file::Skins) +
         (large ? Skins[number].large : Skins[number].small);
}

void NewSkin::applyInitState() {
  const std::string& text = program_.init.Skintype;
  int number = 0;
  std::from_chars(text.data(), text.data() + text.size(), number);
  if (number < 0) number = 0;
  if (number < Count) load(number);
}

void NewSkin::load(int number) {
  const std::string small = picture(number, false), large = picture(number, true);
  if (!program_.files().fileExists(small) || !program_.files().fileExists(large)) {
    if (number == 0) {
      program_.dialogs.alert("Needed Skinfile Missing !, - Reinstall Program From New, Or Try To Restart Varnholt.");
      return;
    }
    program_.dialogs.alert("Missing Skinfile !, - Returning to default skin.");
    load(0);
    return;
  }
  program_.init.Skintype = std::to_string(number);
  small_ = small;
  large_ = large;
  dressAll();
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
