#include "rename/attribute_question.hpp"

#include "core/attribute_words.hpp"

#include <algorithm>

namespace varnholt::rename {
namespace {

// Exactly these: an archived hidden file (34), for one, goes unasked.
constexpr platform::Attributes AskedAbout[] = {1, 2, 3, 4, 6, 7, 33, 35, 36, 37, 38, 39, 2083};

}  // namespace

bool isAskedAbout(platform::Attributes attributes) {
  return std::ranges::find(AskedAbout, attributes) != std::end(AskedAbout);
}

bool mayRename(core::MessageDialogs& dialogs, const std::string& name, platform::Attributes attributes) {
  if (!isAskedAbout(attributes)) return true;
  return dialogs.AskRetry("Current File:  " + name + "\r Are marked:  " + std::string(core::fileatrib(attributes)) +
                          "\rAre you Sure ?");
}

}  // namespace varnholt::rename
