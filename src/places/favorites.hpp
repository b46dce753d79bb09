#pragma once

#include "controls/standard.hpp"
#include "fileops/name_dialog.hpp"
#include "places/places_form.hpp"

#include <optional>
#include <string>

namespace varnholt::places {

/// "Favorit Creation": the name of a new one.
class Form27 : public fileops::NameForm {
 public:
  explicit Form27(core::MessageDialogs& dialogs);

  /// The trimmed name, which may stand in a file name; nothing when the user cancels.
  std::optional<std::string> ask(const std::string& preset, const controls::Form& mainWindow);

 private:
  void Command11_Click();

  core::MessageDialogs& dialogs_;
  bool accepted_ = false;
};

/// "Favorites": the shortcuts to files, which are opened, renamed and deleted here.
class Form26 : public PlacesForm {
 public:
  Form26(panels::Desk& desk, rename::Rename& rename);

  void view1refresh() { places.refresh(); }
  /// The target of that favorite is there, or is none that could be looked for. Otherwise the user is told.
  bool FavoritExist(const std::string& favorite) const;

 private:
  void open(controls::ListItem row) override;
};

/// The commands of favorites.
class Favorites {
 public:
  Favorites(panels::Desk& desk, rename::Rename& rename);

  void addfavor_Click();
  void showfavor_Click();
  void Syncfavorites_Click();
  /// A double click in a panel on such a file. False: it lies elsewhere, and is a file like others.
  bool open(const std::string& file);

 private:
  void addFavorite(const panels::Panel& panel);
  bool write(const std::string& file, const std::string& target);
  bool import();

  panels::Desk& desk_;

 public:
  places::Form27 Form27;
  places::Form26 Form26;
};

}  // namespace varnholt::places
