#include "fileops/left_out_notice.hpp"

#include "core/error_words.hpp"
#include "core/program_files.hpp"
#include "core/text_character.hpp"

#include <algorithm>

namespace varnholt::fileops {
namespace {

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
  const std::string path = core::program_file::path(program_.platform, core::program_file::LeftOut);
  return program_.files().writeFile(path, list).ok();
}

void LeftOutNotice::tell() {
  if (items_.empty()) return;
  std::vector<std::string> lines;
  for (const platform::Error& item : items_)
    lines.push_back(core::shortened(onOneLine(item.path), LongName + 1, LongName) + " :  " + onOneLine(item.text));
  std::string text = core::leftOutText(std::to_string(items_.size()) + " Item(s) Left Out :", lines);
  if (writeList())
    text += "\r\rThe whole list :  " + core::program_file::path(program_.platform, core::program_file::LeftOut);
  items_.clear();
  program_.dialogs.alert(text);
}

}  // namespace varnholt::fileops
