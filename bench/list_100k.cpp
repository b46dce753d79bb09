// Reads one folder as a panel does, and prints how many entries it found.

#include "platform/posix/file_system.hpp"

#include <cstdio>

using namespace varnholt::platform;

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  posix::PathMap map(posix::parseDriveVariable("Z=/"));
  posix::PosixFileSystem files(map);
  const auto folder = map.toProgram(argv[1]);
  const auto listing = folder ? files.list(*folder) : Result<ListingPtr>(folder.error());
  if (!listing) return 1;
  std::printf("%zu\n", (*listing)->folders().size() + (*listing)->files().size());
  return 0;
}
