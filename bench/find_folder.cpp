// Looks for a folder by a word that matches nothing, as the quick find does.

#include "platform/posix/file_system.hpp"
#include "search/folder_word.hpp"

#include <cstdio>

using namespace varnholt;

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  platform::posix::PathMap map(platform::posix::parseDriveVariable("Z=/"));
  platform::posix::PosixFileSystem files(map);
  const auto folder = map.toProgram(argv[1]);
  if (!folder) return 1;
  const search::FolderWord word(argv[2], false);
  const auto takes = [&](const std::string& path) { return word.matches(path); };
  const auto found = files.findFolder(*folder, 10, takes, {}, [](const platform::SearchAdvance&) { return true; });
  if (!found) return 1;
  std::puts(found->c_str());
  return 0;
}
