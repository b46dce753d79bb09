#include "world.hpp"

#include <gtest/gtest.h>

#include <random>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

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

World::World() : scratch_(freshFolder()) {
  for (const char* name : {"home", "second", "program"}) {
    std::filesystem::create_directories(scratch_ / name);
    ::chmod((scratch_ / name).c_str(), 0777);
  }
  ::chmod(path().c_str(), 0777);
}

bool World::mountSecond(const std::string& options) {
  second_ = ScopedMount::memory(scratch_ / "second", options);
  return static_cast<bool>(second_);
}

std::string World::system(std::string_view name) const {
  std::string path = name.starts_with("D:") ? scratch_ / "second" : scratch_ / "home";
  return path.append(name.substr(2));
}

World& World::file(std::string_view name, std::string_view bytes, long date, mode_t mode) {
  const std::filesystem::path path = system(name);
  std::filesystem::create_directories(path.parent_path());
  std::filesystem::remove(path);  // it may be read-only
  std::ofstream(path, std::ios::binary) << bytes;
  ::chmod(path.c_str(), mode);
  const timespec times[2] = {{date, 0}, {date, 123}};
  EXPECT_EQ(::utimensat(AT_FDCWD, path.c_str(), times, 0), 0) << name;
  return *this;
}

World& World::folder(std::string_view name) {
  std::filesystem::create_directories(system(name));
  return *this;
}

World& World::link(std::string_view name, std::string_view target) {
  std::filesystem::create_directories(std::filesystem::path(system(name)).parent_path());
  EXPECT_EQ(::symlink(std::string(target).c_str(), system(name).c_str()), 0) << name;
  return *this;
}

TreeSnapshot World::all() const {
  TreeSnapshot both;
  for (const std::string drive : {"C:", "D:"})
    for (auto& [name, facts] : tree(drive))
      both.emplace(drive + "/" + name, facts);
  return both;
}

std::vector<std::string> World::temporary(std::string_view folder, bool below) const {
  std::vector<std::string> names;
  for (const auto& [name, facts] : tree(folder)) {
    const size_t at = name.rfind('/') + 1;
    if (name.compare(at, 5, ".vnh-") == 0 && (below || at == 0)) names.push_back(name);
  }
  return names;
}

std::string pattern(std::size_t count, unsigned seed) {
  std::mt19937 random(seed);
  std::string bytes(count, '\0');
  for (char& c : bytes)
    c = static_cast<char>(random());
  return bytes;
}

}  // namespace varnholt::test
