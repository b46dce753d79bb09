#include "support/app_rig.hpp"
#include "support/mutations.hpp"

namespace varnholt::places {
namespace {

using test::Answer;
using test::key;
using test::rowsOf;

class SavedPlacesTest : public test::AppTest {
 protected:
  void SetUp() override {
    write({"Work\\letter.txt", "Work\\README", "Work\\Drafts\\one.txt"});
    shell = &rig.useRecordingShell();
    rig.startLeft();
    show("C:\\Work", "C:\\");
  }
  std::string folder(const char* name) const { return rig.programFolder() + "\\" + name + "\\"; }
  std::string kept(const std::string& path) { return files().readFile(path).valueOr("none"); }
  void keep(const std::string& path, const std::string& text) { ASSERT_TRUE(files().writeFile(path, text)); }
  static void select(controls::ListView& list, const Names& names) {
    list.selectNone();
    for (std::uint32_t row = 0; row < list.count(); ++row)
      if (std::ranges::count(names, list.cell(row, 0))) {
        list.item(row).setSelected(true);
        list.focusRow(row);
      }
  }
  Answer named(const char* form, const std::string& name) {
    return {form, "Command11", "", [this, form, name] {
              dynamic_cast<controls::TextBox*>(rig.loop.form(form)->control("Text1"))->typeFromUser(name);
            }};
  }
  void add(const char* handler, const std::string& row, const std::vector<Answer>& answers) {
    rig.click(left(), row);
    rig.command(handler, answers);
    rig.loop.expectAllReached();
  }
  void addFavorite(const std::string& row, const std::vector<Answer>& answers) { add("addfavor_Click", row, answers); }
  void addBookmark(const std::string& row, const std::vector<Answer>& answers) { add("addtobook_Click", row, answers); }
  void inFavorites(const std::function<void()>& acts, const std::vector<Answer>& meets = {}) {
    inDialog("showfavor_Click", "Form26", acts, meets, "Command3");
  }
  Form26& favorites() { return rig.app().savedPlaces.favorites.Form26; }
  Form33& bookmarks() { return rig.app().savedPlaces.bookmarks.Form33; }
  const Answer favoriteMade = test::noticed("Favorite Created, To Selected Item !");
  const Answer bookmarkMade = test::noticed("Bookmark Created, To Selected Item !");
  test::RecordingShell* shell = nullptr;
};

TEST_F(SavedPlacesTest, AFavoriteIsAFileOfFourLines) {
  rig.click(left(), "letter");
  rig.loop.whenShows("Form27").reads("Text1", "letter").press("Command11");
  rig.loop.meets({favoriteMade});
  rig.menu("addfavor").choose();
  EXPECT_EQ(
      kept(folder("Favorites") + "letter.Url"),
      "[Default]\r\nBASEURL=file://C:\\Work\\letter.txt\r\n[InternetShortcut]\r\nURL=file:///C:\\Work\\letter.txt\r\n");
  EXPECT_EQ(rig.platform->settings.get("kelvarton", "LastCommand", "Command"), "18");
}

TEST_F(SavedPlacesTest, ANameCannotLeaveTheFolderAndIsAskedForUntilItIsGood) {
  rig.click(left(), "letter");
  auto& form = rig.app().savedPlaces.favorites.Form27;
  const std::string answer = "Key in Favorit name !.";  // which is no name
  rig.loop.whenShows("Form27").run([&](controls::Form&) {
    for (const auto& [name, shown] : {std::pair<std::string, std::string>{"../../up", "../../up"},
                                      {"  ", answer},
                                      {answer, answer},
                                      {" .. ", ".."}}) {
      EXPECT_TRUE(form.Visible) << name;
      form.Text1.typeFromUser(name);
      form.Command11.press();
      EXPECT_EQ(form.Text1.Text.get(), shown);
    }
  });
  rig.loop.meets({test::told("[ /InValid Chr. In Filename !, "), favoriteMade});
  rig.menu("addfavor").choose();
  EXPECT_NE(kept(folder("Favorites") + "...Url"), "none");
}

TEST_F(SavedPlacesTest, FavoritesOfFoldersAndOfFavoritesAreRefused) {
  write({"Work\\web.URL"});
  rig.command("Command27_Click");
  addFavorite("\\ Drafts", {test::noticed("Cannot Create Folder Favorite !")});
  addFavorite("web", {named("Form27", "w"), test::noticed("Operation NOT Allowed !")});
  EXPECT_EQ(kept(folder("Favorites") + "w.Url"), "none");
  addFavorite("letter", {named("Form27", "w"), favoriteMade});
  addFavorite("README", {named("Form27", "w"), test::no("Favorit:  w\r\rAlready Exist !, OverWrite ?")});
  EXPECT_NE(kept(folder("Favorites") + "w.Url").find("letter"), std::string::npos);
  addFavorite("README", {named("Form27", "w"), test::yes(), favoriteMade});
  EXPECT_NE(kept(folder("Favorites") + "w.Url").find("README\r\n"), std::string::npos);
}

TEST_F(SavedPlacesTest, FavoritesAreListedWithTheDateOfTheSettingAndSortedByIt) {
  for (const auto& [name, day] : {std::pair<const char*, int>{"b.Url", 3}, {"A.url", 20}, {"c.txt", 1}}) {
    keep(folder("Favorites") + name, "x");
    ASSERT_TRUE(
        files().setModified(folder("Favorites") + name, rig.platform->clock.fromLocal({2007, 3, day, 14, 5, 0, 0})));
  }
  inFavorites([this] {
    auto& list = favorites().ListView1;
    EXPECT_EQ(rowsOf(list), (Names{"A.url", "b.Url"}));
    EXPECT_EQ(list.cell(0, 1) + "|" + list.cell(0, 2), "20-03-07  14:05|000000000039161");
    EXPECT_EQ(list.ColumnHeaders.get()[1].Text, "Date Modified:");
    list.ColumnClick(2);
    EXPECT_EQ(rowsOf(list), (Names{"b.Url", "A.url"}));
    EXPECT_EQ(list.ImageList.get().at(list.ColumnHeaders.get()[1].Icon), "sort-up");
  });
  EXPECT_EQ(form().mode(), "FavoritMode");
}

TEST_F(SavedPlacesTest, OpeningAFavoriteCountsItAndHandsOnlyItsFileOver) {
  addFavorite("letter", {named("Form27", "f"), favoriteMade});
  const std::string favorite = folder("Favorites") + "f.Url";
  keep(folder("Favorites") + "web.url", "[InternetShortcut]\r\nURL=https://example.org/\r\n");
  keep(folder("Favorites") + "bare.url", "");
  const auto open = [this](const char* row, const std::vector<Answer>& meets) {
    shell->started.clear();
    const auto acts = [&] {
      select(favorites().ListView1, {row});
      key(favorites().ListView1, controls::key::Enter);
    };
    inFavorites(acts, meets);
    return shell->started.empty() ? std::string() : shell->started[0].first;
  };
  const std::string explorer = "\"" + rig.app().program.folders.windir + "explorer.exe\" ";
  for (const char* row : {"f.Url", "web.url", "bare.url"}) {
    EXPECT_EQ(open(row, {}), explorer + "\"" + rig.programFolder() + "\\Temp.Url\"") << row;
    EXPECT_EQ(kept(rig.programFolder() + "\\Temp.Url").find("C:\\Work"), std::string::npos);
  }
  ASSERT_EQ(rig.app().mostUsed.entries.size(), 3u);
  EXPECT_EQ(rig.app().mostUsed.entries[0].name, "f.Url");

  ASSERT_TRUE(files().deleteFile("C:\\Work\\letter.txt", true));
  EXPECT_EQ(open("f.Url", {test::told("Favorit has changed and NOT Valid !")}), "");
  EXPECT_NE(kept(favorite), "none");

  // In a panel the file itself goes to the desktop's opener; one that lies elsewhere is opened by its type.
  write({"Work\\other.url"});
  show(folder("Favorites"), "C:\\Work");
  shell->started.clear();
  rig.doubleClick(left(), "web");
  ASSERT_EQ(shell->started.size(), 1u);
  EXPECT_EQ(shell->started[0].first, explorer + "\"" + folder("Favorites") + "web.url\"");
  EXPECT_EQ(rig.app().mostUsed.entries[1].hits, 2u);
  rig.loop.meets({test::told("Favorit has changed and NOT Valid !")});
  rig.doubleClick(left(), "f");
  rig.registerText(platform::RegistryRoot::ClassesRoot, ".url", "", "address");
  rig.registerText(platform::RegistryRoot::ClassesRoot, "address\\shell\\open\\command", "", "viewer");
  rig.app().opener.open("C:\\Work\\other.url");
  EXPECT_EQ(shell->started.back().first, "viewer \"C:\\Work\\other.url\"");
}

TEST_F(SavedPlacesTest, SeveralAreDeletedAfterOneQuestionReadOnlyOnesToo) {
  for (const char* name : {"a.Url", "b.Url", "c.Url"})
    keep(folder("Favorites") + name, "x");
  setAttributes(folder("Favorites") + "a.Url", 1);
  auto& list = favorites().ListView1;
  inFavorites([&] { favorites().Command1.press(); }, {test::noticed(" No Items selected. ! ")});
  const std::string question = "You Are About To Delete \r2 Favorit(es) !\rAre You Sure ?";
  const auto act = [&] {
    select(list, {"a.Url", "c.Url"});
    key(list, controls::key::Delete);
  };
  const auto marked = [&] {
    EXPECT_TRUE(list.item(0).Ghosted() && !list.item(1).Ghosted() && list.item(2).Ghosted());
    EXPECT_EQ(list.item(0).ForeColor(), panels::mark_color::Selection);
  };
  inFavorites(act, {{"Form11", "Command1", question, marked}});
  EXPECT_NE(kept(folder("Favorites") + "a.Url"), "none");
  const auto acts = [&] {
    act();
    EXPECT_EQ(rowsOf(list), Names{"b.Url"});
    EXPECT_TRUE(list.item(0).Selected() && !list.item(0).Ghosted());
  };
  inFavorites(acts, {test::yes(question)});
  EXPECT_EQ(kept(folder("Favorites") + "a.Url") + kept(folder("Favorites") + "c.Url"), "nonenone");
}

TEST_F(SavedPlacesTest, ARenamedOneIsSelectedByItsNewName) {
  for (const char* name : {"a.Url", "b.Url"})
    keep(folder("Favorites") + name, "x");
  const auto newName = [this] {
    EXPECT_EQ(rig.app().rename.Form14.Caption.get(), "Rename Favorit To : *.Url");
    EXPECT_EQ(rig.app().rename.Form14.Text1.Text.get(), "a.Url");
    rig.app().rename.Form14.Text1.typeFromUser("z.Url");
  };
  const auto renames = [this] {
    select(favorites().ListView1, {"a.Url"});
    favorites().Command4.press();
    EXPECT_EQ(rowsOf(favorites().ListView1), (Names{"b.Url", "z.Url"}));
    EXPECT_EQ(favorites().ListView1.SelectedItem()->Text(), "z.Url");
  };
  inFavorites(renames, {{"Form14", "Command11", "", newName}});
}

TEST_F(SavedPlacesTest, TheImportTakesShortcutsOfTheFolderItselfAndOverwrites) {
  const std::string question = "\rYou are about to Import existing windows Favorites to :" + rig.programFolder() +
                               "\\Favorites\r\rARE YOU SURE ?";
  const auto import = [&](const std::vector<Answer>& answers) {
    rig.command("Syncfavorites_Click", answers);
    rig.loop.expectAllReached();
  };
  write({"Old\\a.URL", "Old\\b.txt", "Old\\Sub\\c.url"});
  keep(folder("Favorites") + "a.URL", "before");
  const test::Answer missing = test::noticed(".. \\Favorites Folder Do Not Exist !");
  import({test::yes(question), missing});
  rig.useShellFolder("Favorites", "C:\\Old");
  import({test::no()});
  EXPECT_EQ(kept(folder("Favorites") + "a.URL"), "before");
  import({test::yes()});
  EXPECT_EQ(kept(folder("Favorites") + "a.URL") + kept(folder("Favorites") + "b.txt") +
                kept(folder("Favorites") + "c.url"),
            "xnonenone");
  setAttributes(folder("Favorites") + "a.URL", 1);
  import({test::yes(), test::noticed("Copy Failed To Excecute.. !")});
}

TEST_F(SavedPlacesTest, ABookmarkHoldsItsFolderAndTheRow) {
  addBookmark("letter", {named("Form32", "file"), bookmarkMade});
  addBookmark("\\ Drafts", {named("Form32", "sub"), bookmarkMade});
  EXPECT_EQ(kept(folder("Bookmarks") + "file.Bmk"), "[Path]\r\nC:\\Work\\\r\n[FileName]\r\nletter.txt\r\n");
  EXPECT_EQ(kept(folder("Bookmarks") + "sub.Bmk"), "[Path]\r\nC:\\Work\\\r\n[Folder]\r\n\\ Drafts\r\n");
  addBookmark("README", {named("Form32", "sub"), test::no("Bookmark:  sub\r\rAlready Exist !, OverWrite ?")});

  rig.click(left(), "\\ Drafts");
  auto& dialog = rig.app().fileops.Form32;
  rig.loop.whenShows("Form32").run([&](controls::Form& form) {
    EXPECT_EQ(dialog.Text1.Text.get() + "|" + form.Caption.get(), "Drafts|BookMark Creation");
    EXPECT_EQ(dialog.Image1.ToolTipText.get(), "BookMark Creation As *.bmk Files");
    dialog.Text1.typeFromUser("a/b");
    dialog.Command11.press();
    EXPECT_EQ(form.Caption.get(), "Bookmark Creation");
    dialog.Text1.typeFromUser("");
    dialog.Command11.press();
    EXPECT_EQ(dialog.Text1.Text.get(), "Key Bookmark Name !");
    dialog.Command2.press();
  });
  rig.loop.meets({test::told("[ /InValid Chr. In Filename !, ")});
  rig.menu("addtobook").choose();

  show(folder("Bookmarks"), "C:\\");
  addBookmark("file", {named("Form32", "x"), test::noticed("Operation NOT Allowed !")});
}

TEST_F(SavedPlacesTest, ABookmarkIsReadForWhatItIsWorth) {
  const std::tuple<const char*, const char*> cases[] = {
      {"[Path]\r\nC:\\a\\\r\n[FileName]\r\nb.txt\r\n", "C:\\a\\||b.txt"},
      {"[Folder]\n\\ x\nrubbish\n[Path]\nC:\\a", "C:\\a|\\ x|"},
      {"[FileName]\r\n[Folder]\r\n[Path]\r\nC:\\", "C:\\||[Folder]"},
      {"[Path]\r\n\r\n[Folder]", "||"},
      {"", "||"},
      {"[Path]\r\nC:\\\xFF\\\r\n[FileName]\r\n\xEF\x80\x8A", "C:\\\xFF\\||\n"}};
  for (const auto& [bytes, expected] : cases) {
    const Bookmark bookmark = bookmarkOf(bytes);
    EXPECT_EQ(bookmark.path + "|" + bookmark.folder + "|" + bookmark.fileName, expected) << bytes;
  }
  test::forMutationsOf(std::get<0>(cases[0]), {"[Path]\r\n", "[Folder]\n", "[FileName]", "\n", "\\ ", "..\\"},
                       [](const std::string& bytes) {
                         const Bookmark read = bookmarkOf(bytes);
                         ASSERT_LE(read.path.size() + read.folder.size() + read.fileName.size(), bytes.size()) << bytes;
                       });
}

TEST_F(SavedPlacesTest, FollowingOneShowsItsRowOrSaysWhatIsMissing) {
  rig.write("C:\\Work\\.secret");
  setAttributes("C:\\Work\\.secret", 2);
  const std::string work = "[Path]\r\nC:\\Work\\\r\n";
  struct Row {
    const char* bookmark;
    std::string bytes;
    const char *path, *row, *told;
    int icon;
    bool closes;
  };
  const Row cases[] = {
      {"file.Bmk", work + "[FileName]\r\nletter.txt\r\n", "C:\\Work\\", "letter", "", 18, true},
      {"bare.Bmk", "[Path]\r\nc:\\work\r\n[FileName]\r\nreadme\r\n", "C:\\Work\\", "README", "", 18, true},
      {"sub.Bmk", work + "[Folder]\r\n\\ Drafts\r\n", "C:\\Work\\", "\\ Drafts", "", 18, true},
      {"place.Bmk", "[Path]\r\nC:\\Work\\Drafts\\\r\n", "C:\\Work\\Drafts\\", "", "", 18, true},
      {"noplace.Bmk", "[Path]\r\nC:\\Gone\\\r\n", "C:\\", "", "Bookmark Primary Path NOT Valid !", 15, false},
      {"lost.Bmk", work, "C:\\", "", "Bookmark Data File NOT Found !", 18, false},
      {"nofile.Bmk", work + "[FileName]\r\ngone.txt\r\n", "C:\\Work\\", "", "Bookmark File NOT Valid !", 15, false},
      {"nosub.Bmk", work + "[Folder]\r\nDrafts\r\n", "C:\\Work\\", "", "Bookmark Path NOT Valid !", 15, false},
      {"hidden.Bmk", work + "[FileName]\r\n.secret\r\n", "C:\\Work\\", "", "Bookmark Item Not Found In View !", 18,
       true}};
  for (const Row& each : cases)
    keep(folder("Bookmarks") + each.bookmark, each.bytes);
  for (const Row& each : cases) {
    SCOPED_TRACE(each.bookmark);
    show("C:\\", "C:\\");
    bool closed = false;
    const auto follows = [&] {
      auto& list = bookmarks().ListView1;
      select(list, {each.bookmark});
      EXPECT_EQ(form().mode(), "BookMarkMode");
      EXPECT_EQ(list.SelectedItem()->SmallIcon(), each.icon);
      list.Click();
      EXPECT_EQ(bookmarks().Caption.get(), std::string("Book-Marks, - ") + each.bookmark);
      if (each.bookmark == std::string("lost.Bmk")) (void)files().deleteFile(folder("Bookmarks") + "lost.Bmk", true);
      key(list, controls::key::Enter);
      closed = !bookmarks().Visible;
    };
    const auto answers = *each.told ? std::vector<Answer>{test::told(each.told)} : std::vector<Answer>();
    inDialog("OpenBook_Click", "Form33", follows, answers, "Command3");
    EXPECT_EQ(closed, each.closes);
    EXPECT_EQ(left().path(), each.path);
    const auto chosen = left().list.selectedIds();
    EXPECT_EQ(chosen.empty() ? "" : left().list.SelectedItem()->Text(), each.row);
    EXPECT_EQ(form().filecollect.count(), *each.row ? 1u : 0u);
  }

  // The same from a panel, without the dialog.
  show(folder("Bookmarks"), "C:\\");
  rig.doubleClick(left(), "sub");
  EXPECT_EQ(left().path() + left().list.SelectedItem()->Text(), "C:\\Work\\\\ Drafts");
}

}  // namespace
}  // namespace varnholt::places
