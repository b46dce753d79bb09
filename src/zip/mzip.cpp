#include "zip/mzip.hpp"

#include "platform/paths.hpp"

#include <algorithm>
#include <cstring>

namespace varnholt::zip {
namespace {

namespace paths = platform::paths;

constexpr std::size_t MostTold = 1024, LongestComment = 254;

/// The object whose archive is in work: the library's callbacks know no other way to it.
cZip* current = nullptr;

std::string textOf(const char* text, std::uint32_t length) {
  const std::size_t most = std::min<std::size_t>(length, MostTold);
  return {text, ::strnlen(text, most)};
}

std::int32_t print(char* text, std::uint32_t length) {
  if (!text || length <= 1 || !current || !current->Progress) return 0;
  std::string told = textOf(text, length);
  std::ranges::replace_if(
      told, [](char c) { return c == '\r' || c == '\n'; }, ' ');
  current->Progress(told);
  return 0;
}

std::int32_t service(char* text, std::uint32_t length) {
  if (!text || length <= 1 || !current) return 0;
  if (current->Service) current->Service(textOf(text, length), current->cancel);
  return current->cancel ? 1 : 0;
}

std::int32_t comment(char* text) {
  if (!text || !current || !current->CommentRequest) return 0;
  const std::string answer = current->CommentRequest().substr(0, LongestComment);
  std::memcpy(text, answer.c_str(), answer.size() + 1);
  return 0;
}

std::int32_t password(char* text, std::int32_t length) {
  if (!text || length < 1 || !current || !current->PasswordRequest) return 0;
  const std::string answer = current->PasswordRequest().substr(0, static_cast<std::size_t>(length) - 1);
  if (!answer.empty()) std::memcpy(text, answer.c_str(), answer.size() + 1);
  return 0;
}

}  // namespace

std::string mZip::libraryPath() const { return program_.platform.programFolder + "\\Vnzip.dll"; }

void mZip::close() {
  if (!library_) return;
  if (const auto archive = library_->call<decltype(ZpArchive)>("ZpArchive")) archive(0, "", nullptr);
  library_.reset();
}

std::string mZip::fileSpec(const std::string& path) const {
  const std::string drive = program_.platform.toSystem(paths::driveOf(path) + "\\");
  const std::string system = program_.platform.toSystem(path);
  const std::size_t below = drive == "/" ? 0 : drive.size();
  return system.empty() ? system : system.substr(0, below) + "/" + system.substr(below);
}

std::optional<std::int32_t> mZip::Zip(cZip& zip) {
  zip.cancel = false;
  zip.result = 0;
  if (!library_) library_.emplace(program_.platform.toSystem(libraryPath()));
  const auto init = library_->call<decltype(ZpInit)>("ZpInit");
  const auto setOptions = library_->call<decltype(ZpSetOptions)>("ZpSetOptions");
  const auto archive = library_->call<decltype(ZpArchive)>("ZpArchive");
  if (!init || !setOptions || !archive || zip.FileSpecCount() >= VnSlots) return {};
  current = &zip;
  const VnUserFunctions functions{print, comment, password, service};
  VnOptions options = zip.options();
  const std::string root = program_.platform.toSystem(zip.BasePath);
  options.rootDirectory = root.c_str();
  program_.platform.replaces(paths::join(zip.BasePath, zip.ZipFile));
  init(&functions);
  setOptions(&options);
  const char* slots[VnSlots] = {};
  std::vector<std::string> specs;
  for (std::size_t at = 0; at < zip.FileSpecCount(); ++at)
    specs.push_back(fileSpec(zip.FileSpec(at)));
  for (std::size_t at = 0; at < specs.size(); ++at)
    slots[at] = specs[at].c_str();
  slots[specs.size()] = "";
  zip.result = archive(static_cast<std::int32_t>(specs.size()), zip.ZipFile.c_str(), slots);
  current = nullptr;
  return zip.result;
}

}  // namespace varnholt::zip
