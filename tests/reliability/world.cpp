#include "world.hpp"

namespace varnholt::test {
namespace {

/// In memory where there is such a folder: the program starts some hundred times, and each start writes its settings
/// through to the disk.
ScratchFolder freshFolder() {
  const bool inMemory = ::access("/dev/shm", W_OK) == 0;
  const ScopedVariable place("TMPDIR", inMemory ? "/dev/shm" : std::getenv("TMPDIR"));
  return ScratchFolder();
}

}  // namespace

World::World() : ScratchFolder(freshFolder()) {
  for (const auto& [drive, name] : {std::pair{"C:", "home"}, {"D:", "second"}})
    folder(name).mode(name, 0777).link(drive, name);
  folder("program").mode("program", 0777).mode("", 0777);
}

bool World::mountSecond() {
  second_ = ScopedMount::memory(system("second"));
  return static_cast<bool>(second_);
}

const World& World::file(std::string_view name, std::string_view bytes, long date, mode_t mode) const {
  std::filesystem::remove(system(name));  // it may be read-only
  ScratchFolder::file(name, bytes).mode(name, mode).modified(name, {date, 123});
  return *this;
}

TreeSnapshot World::all() const {
  TreeSnapshot both;
  for (const std::string drive : {"C:", "D:"})
    for (auto& [name, facts] : tree(drive))
      both.emplace(drive + "/" + name, facts);
  return both;
}

std::vector<std::string> World::temporary(std::string_view folder) const {
  std::vector<std::string> names;
  for (const auto& [name, facts] : tree(folder))
    if (name.compare(name.rfind('/') + 1, 5, ".vnh-") == 0) names.push_back(name);
  return names;
}

User::User(const World& world) : rig(world.path()) {
  rig.startLeft();
  if (std::ranges::any_of(rig.platform->detours.waiting(),
                          [this](const std::string& place) { return rig.platform->files.fileExists(place); }))
    meets({told()});
  rig.loop.giveTurn();
}

void User::open(const std::string& from, const std::string& to) {
  ASSERT_TRUE(rig.app().navigation.goTo(left(), from)) << from;
  ASSERT_TRUE(rig.app().navigation.goTo(rig.form().Panel2, to)) << to;
  left().list.SetFocus();
}

void User::mark(const std::vector<std::string>& rows) {
  controls::Modifiers modifiers;
  for (const std::string& row : rows) {
    rig.click(left(), row, modifiers);
    modifiers.ctrl = true;
  }
}

void User::markBoth() {
  for (panels::Panel* panel : {&left(), &rig.form().Panel2})
    for (std::uint32_t row = 0; row < panel->list.count(); ++row)
      rig.click(*panel, panel->list.cell(row, 0), {.ctrl = true});
}

void User::markAll() {
  if (auto& folders = rig.menu("IncludeFolder"); !folders.Checked) folders.choose();
  rig.command("selectall_Click");
}

std::string pattern(std::size_t count, unsigned seed) {
  std::mt19937 random(seed);
  std::string bytes(count, '\0');
  for (char& c : bytes)
    c = static_cast<char>(random());
  return bytes;
}

}  // namespace varnholt::test
