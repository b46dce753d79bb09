#pragma once

#include "core/program.hpp"

#include <string>

namespace varnholt::fileops {

/// Collects what an operation left out while its loop runs, and tells it once at the ending: how many, the first names
/// with the reasons, and where the whole list lies.
class LeftOutNotice {
 public:
  explicit LeftOutNotice(core::Program& program) : program_(program) {}

  void add(platform::Error item) { items_.push_back(std::move(item)); }
  void add(const platform::LeftOuts& items) { items_.insert(items_.end(), items.begin(), items.end()); }
  /// Writes the list, replacing the last one, tells it in `Form12`, and forgets it. Nothing when nothing was left out.
  void tell();

 private:
  bool writeList() const;

  core::Program& program_;
  platform::LeftOuts items_;
};

}  // namespace varnholt::fileops
