#include "user.hpp"

namespace varnholt::test {

User::User(const World& world, AppRig::Wrapper wrapper) : rig(world.path()) {
  if (wrapper) rig.useFiles(std::move(wrapper));
  rig.startLeft();
}

void User::open(const std::string& from, const std::string& to) {
  ASSERT_TRUE(rig.app().navigation.goTo(left(), from)) << from;
  ASSERT_TRUE(rig.app().navigation.goTo(right(), to)) << to;
  left().list.SetFocus();
}

std::optional<std::uint32_t> User::rowOf(const std::string& name) {
  controls::ListView& list = left().list;
  for (std::uint32_t row = 0; row < list.count(); ++row) {
    const auto item = list.item(row);
    const bool isFolder = left().isFolder(item);
    if (isFolder ? list.cell(row, 0) == "\\ " + name : left().fileName(item) == name) return row;
  }
  ADD_FAILURE() << "no row " << name;
  return {};
}

void User::mark(const std::vector<std::string>& names) {
  constexpr controls::Modifiers ctrl{false, true, false};
  bool isFirst = true;
  for (const std::string& name : names) {
    const auto row = rowOf(name);
    if (!row) return;
    const controls::MouseEvent mouse{controls::MouseButton::Left,
                                     std::exchange(isFirst, false) ? controls::Modifiers{} : ctrl};
    left().list.pressFromUser(*row, mouse);
    left().list.releaseFromUser(mouse);
  }
}

void User::markAll() {
  if (auto& folders = rig.menu("IncludeFolder"); !folders.Checked) folders.choose();
  rig.command("selectall_Click");
}

}  // namespace varnholt::test
