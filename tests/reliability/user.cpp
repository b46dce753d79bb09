#include "user.hpp"

#include <algorithm>

namespace varnholt::test {

User::User(const World& world, AppRig::Wrapper wrapper) : rig(world.path()) {
  if (wrapper) rig.useFiles(std::move(wrapper));
  rig.startLeft();
  if (std::ranges::any_of(rig.platform->detours.waiting(),
                          [this](const std::string& place) { return rig.platform->files.fileExists(place); }))
    meets({told()});
  rig.loop.giveTurn();
}

void User::open(const std::string& from, const std::string& to) {
  ASSERT_TRUE(rig.app().navigation.goTo(left(), from)) << from;
  ASSERT_TRUE(rig.app().navigation.goTo(right(), to)) << to;
  left().list.SetFocus();
}

void User::mark(const std::vector<std::string>& names) {
  const auto rowOf = [this](const std::string& name) {
    for (std::uint32_t row = 0; row < left().list.count(); ++row) {
      const auto item = left().list.item(row);
      if (left().isFolder(item) ? item.Text() == "\\ " + name : left().fileName(item) == name) return row;
    }
    ADD_FAILURE() << "no row " << name;
    return 0u;
  };
  controls::MouseEvent mouse{controls::MouseButton::Left, {}};
  for (const std::string& name : names) {
    left().list.pressFromUser(rowOf(name), mouse);
    left().list.releaseFromUser(mouse);
    mouse.modifiers.ctrl = true;
  }
}

void User::markBoth() {
  for (panels::Panel* panel : {&left(), &right()})
    for (std::uint32_t row = 0; row < panel->list.count(); ++row) {
      controls::MouseEvent mouse{controls::MouseButton::Left, {.ctrl = true}};
      panel->list.pressFromUser(row, mouse);
      panel->list.releaseFromUser(mouse);
    }
}

void User::markAll() {
  if (auto& folders = rig.menu("IncludeFolder"); !folders.Checked) folders.choose();
  rig.command("selectall_Click");
}

}  // namespace varnholt::test
