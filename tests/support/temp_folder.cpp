#include "support/temp_folder.hpp"

#include "support/kill_at.hpp"

#include <grp.h>
#include <unistd.h>

namespace varnholt::test {

TempFolder::TempFolder()
    : map(platform::posix::parseDriveVariable("C=" + path() + ";E=" + path() + ";Z=/")), files(map) {}

std::string TempFolder::at(std::string_view name, char letter) const {
  std::string program = std::string{letter, ':', '\\'}.append(name);
  std::ranges::replace(program, '/', '\\');
  return program;
}

bool heldAsOrdinaryUser(const std::function<void()>& checks) {
  return heldInChild([&] {
    constexpr uid_t nobody = 65534;
    ASSERT_TRUE(::getuid() != 0 || (::setgroups(0, nullptr) == 0 && ::setgid(nobody) == 0 && ::setuid(nobody) == 0));
    checks();
  });
}

}  // namespace varnholt::test
