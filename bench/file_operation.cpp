// Runs one call of the file system object on system paths: the measured process beside du, cp and rm.
//   bench_file_operation size FOLDER | sizes PATH... | copy-folder FROM TO | copy-file FROM TO | delete FOLDER

#include "platform/posix/file_system.hpp"

#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

using namespace varnholt::platform;

namespace {

int report(const Result<void>& result) {
  if (result) return 0;
  std::fprintf(stderr, "%s: %s\n", result.error().path.c_str(), result.error().text.c_str());
  return 1;
}

int printSize(const FileSystem& files, const std::string& folder) {
  const auto size = files.folderSize(folder);
  if (!size) return report(size.error());
  std::printf("%llu\n", static_cast<unsigned long long>(size->bytes));
  return size->exact ? 0 : 1;
}

int printSizes(const FileSystem& files, const std::vector<std::string>& paths) {
  const auto sizes = files.sizes(paths);
  if (!sizes) return report(sizes.error());
  for (const std::uint64_t size : *sizes)
    std::printf("%llu\n", static_cast<unsigned long long>(size));
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc < 3) return 2;
  const std::string_view operation = argv[1];
  posix::PathMap map(posix::parseDriveVariable("Z=/"));
  posix::PosixFileSystem files(map);
  const std::string first = map.toProgram(argv[2]).valueOr("");
  const std::string second = argc > 3 ? map.toProgram(argv[3]).valueOr("") : "";
  if (operation == "size") return printSize(files, first);
  if (operation == "sizes") {
    std::vector<std::string> paths;
    for (int at = 2; at < argc; ++at)
      paths.push_back(map.toProgram(argv[at]).valueOr(""));
    return printSizes(files, paths);
  }
  if (operation == "delete") return report(files.deleteFolder(first, true));
  if (operation == "copy-folder") return report(files.copyFolder(first, second, false));
  if (operation == "copy-file") return report(files.copyFile(first, second, false));
  return 2;
}
