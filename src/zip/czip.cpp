#include "zip/czip.hpp"

#include <utility>

namespace varnholt::zip {

cZip::cZip() {
  setStoreDirectories(false);
  setStoreFolderNames(false);
  setRecurseSubDirs(false);
}

void cZip::setMessageLevel(int level) {
  options_.messagesFull = level == 0;
  options_.messagesSecond = level == 1;
}

std::size_t cZip::AddFileSpec(std::string spec) {
  specs_.push_back(std::move(spec));
  return specs_.size();
}

}  // namespace varnholt::zip
