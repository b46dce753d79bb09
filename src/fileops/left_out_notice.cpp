#include "fileops/left_out_notice.hpp"

#include "core/program_files.hpp"
#include "core/text_character.hpp"

#include <algorithm>

namespace varnholt::fileops {
namespace {

constexpr std::size_t NamesTold = 10;
constexpr std::size_t LongName = 60;

/// A name may hold line breaks, and an entry is one line.
std::string onOneLine(std::string text) {
  std::ranges::replace_if(
      text, [](char c) { return c == '\r' || c == '\n' || c == '\t'; }, ' ');
  return text;
}

}  // namespace

bool LeftOutNotice::writeList() const {
  std::string list;
  for (const platform::Error& item : items_)
    list += onOneLine(item.path) + "\t" + onOneLine(item.text) + "\r\n";
  bool written = false;
  const std::string path = core::program_file::path(program_.platform, core::program_file::LeftOut);
  program_.loop.runBlocking([&] { written = program_.files().writeFile(path, list).ok(); });
  return written;
}

void LeftOutNotice::tell() {
  if (items_.empty()) return;
  std::string text = std::to_string(items_.size()) + " Item(s) Left Out :\r";
  for (std::size_t at = 0; at < std::min(items_.size(), NamesTold); ++at)
    text += "\r" + core::shortened(onOneLine(items_[at].path), LongName + 1, LongName) + " :  " +
            onOneLine(items_[at].text);
  if (items_.size() > NamesTold) text += "\r... and " + std::to_string(items_.size() - NamesTold) + " more";
  if (writeList())
    text += "\r\rThe whole list :  " + core::program_file::path(program_.platform, core::program_file::LeftOut);
  items_.clear();
  program_.dialogs.alert(text);
}

}  // namespace varnholt::fileops
