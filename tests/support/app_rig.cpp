#include "support/app_rig.hpp"

#include "core/settings.hpp"

namespace varnholt::test {

void click(controls::ListView& list, std::uint32_t row, controls::Modifiers modifiers) {
  const controls::MouseEvent mouse{controls::MouseButton::Left, modifiers};
  list.pressFromUser(row, mouse);
  list.releaseFromUser(mouse);
}

void key(controls::ListView& list, int code, controls::Modifiers modifiers) {
  controls::KeyEvent event{code, modifiers, false};
  list.keyFromUser(event, 10);
  list.keyUpFromUser(event);
}

std::vector<std::string> rowsOf(const controls::ListView& list, int columns) {
  std::vector<std::string> rows;
  for (std::uint32_t row = 0; row < list.count(); ++row) {
    rows.push_back(list.cell(row, 0));
    for (int column = 1; column < columns; ++column)
      rows.back() += "|" + list.cell(row, column);
  }
  return rows;
}

void AppRig::build() {
  scratch.folder("home").folder("second").folder("program");
  restart();
}

// Whatever a test does: the program names no menu entry that its tables do not have, no command stays at work, and rows
// and marks agree.
AppRig::~AppRig() {
  EXPECT_FALSE(app_->dispatcher.busy);
  for (const panels::Panel* panel : {&form().Panel1, &form().Panel2})
    EXPECT_EQ(panel->inconsistency(), "");
  for (const auto& name : form().Menu.unknown())
    ADD_FAILURE() << "no row of the command table has " << name;
}

void AppRig::restart() {
  app_.reset();
  loop.forgetLaterCalls();
  platform.reset();
  host.reset();
  platform::HostFolders folders;
  folders.executable = scratch / "program";
  folders.data = scratch / "data";
  folders.assets = std::string(SourceFolder) + "/assets";
  folders.drives = "C=" + scratch / "home" + ";D=" + scratch / "second" + ";Z=/";
  host = platform::makePlatformHost(folders);
  const platform::Platform& real = host->platform();
  wrapped_ = wrapper_ ? wrapper_(real.files) : nullptr;
  platform::FileSystem& files = wrapped_ ? *wrapped_ : real.files;
  drives = std::make_unique<RemovableDrives>(real.drives);
  platform::Shell& shell = shell_ ? *shell_ : real.shell;
  platform.reset(new platform::Platform{files, *drives, real.environment, real.settings, real.registry, shell,
                                        real.detours, real.fileTypes, real.system, clock, platform::RegionalFormats{},
                                        real.programFolder, real.assetsFolder, real.startNotices, real.toSystem,
                                        real.toProgram, real.alone, real.replaces, real.clearLeftovers});
  platform->ownsProgramFolder = real.ownsProgramFolder;
  app_ = std::make_unique<app::App>(loop, *platform);
}

bool AppRig::start() {
  core::Settings(platform->settings).save(core::setting::Tip_State, "1");
  splashGoes();
  if (!app_->Main()) return false;
  form().Activate();
  return true;
}

void AppRig::startLeft() {
  ASSERT_TRUE(start());
  form().ListView1.SetFocus();
}

std::string AppRig::inScratch(std::string_view path) const {
  // What lies beside the program has a letter of its own.
  if (!path.starts_with("C:") && !path.starts_with("D:"))
    return platform->toSystem(std::string(path)).substr(scratch.path().size() + 1);
  std::string name(path.substr(2));
  std::ranges::replace(name, '\\', '/');
  return (path.starts_with("D:") ? "second" : "home") + name;
}

void AppRig::setDate(std::string_view path, int year, int month, int day) {
  const timespec moment{clock.fromLocal({year, month, day, 12, 0, 0, 0}).seconds, 0}, times[] = {moment, moment};
  ASSERT_EQ(::utimensat(AT_FDCWD, systemPath(path).c_str(), times, 0), 0);
}

void AppRig::registerText(platform::RegistryRoot root, const std::string& key, const std::string& name,
                          std::string text) {
  ASSERT_TRUE(platform->registry.createKey(root, key));
  ASSERT_TRUE(platform->registry.set(root, key, name, std::move(text)));
}

void AppRig::useShellFolder(const std::string& name, const std::string& folder) {
  const char* const key = "Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
  registerText(platform::RegistryRoot::CurrentUser, key, name, folder);
}

controls::MenuItem& AppRig::menu(const std::string& name) {
  EXPECT_TRUE(form().Menu.has(name)) << "no menu entry " << name;
  return form().Menu[name];
}

void AppRig::command(const std::string& handler, const std::vector<Answer>& answers) {
  loop.meets(answers);
  const auto* found = form().commands.find(handler);
  ASSERT_TRUE(found && found->run) << "nothing runs behind " << handler;
  app().dispatcher.perform(handler);
}

std::uint32_t AppRig::rowOf(panels::Panel& panel, const std::string& text) {
  for (std::uint32_t row = 0; row < panel.list.count(); ++row)
    if (panel.list.cell(row, 0) == text) return row;
  ADD_FAILURE() << "no row " << text;
  return 0;
}

void AppRig::click(panels::Panel& panel, const std::string& text, controls::Modifiers modifiers) {
  test::click(panel.list, rowOf(panel, text), modifiers);
  EXPECT_EQ(panel.inconsistency(), "");
}

void AppRig::doubleClick(panels::Panel& panel, const std::string& text) {
  click(panel, text);
  panel.list.doubleClickFromUser(rowOf(panel, text));
  EXPECT_EQ(panel.inconsistency(), "");
}

void AppRig::key(panels::Panel& panel, int code, controls::Modifiers modifiers) {
  test::key(panel.list, code, modifiers);
  EXPECT_EQ(panel.inconsistency(), "");
}

void AppTest::inDialog(const std::string& handler, const std::string& dialog, const std::function<void()>& acts,
                       const std::vector<Answer>& answers, const std::string& leaves) {
  rig.loop.whenShows(dialog).run([acts, leaves](controls::Form& form) {
    acts();
    if (!form.Visible) return;
    leaves.empty() ? form.closeFromUser() : dynamic_cast<controls::Button&>(*form.control(leaves)).press();
  });
  rig.command(handler, answers);
  rig.loop.expectAllReached();
}

void AppTest::show(const std::string& leftFolder, const std::string& rightFolder) {
  ASSERT_TRUE(rig.app().navigation.goTo(left(), leftFolder));
  ASSERT_TRUE(rig.app().navigation.goTo(right(), rightFolder));
  left().list.SetFocus();
}

void AppTest::clickAll(const Names& rows) {
  controls::Modifiers modifiers;
  for (const std::string& row : rows) {
    rig.click(left(), row, modifiers);
    modifiers.ctrl = true;
  }
}

AppTest::Names AppTest::selected(panels::Panel& panel) {
  Names names;
  for (const auto id : panel.list.selectedIds())
    names.push_back(panel.fileName({panel.list, id}));
  return names;
}

}  // namespace varnholt::test
