#pragma once

#include "cleanup/patterns.hpp"
#include "cleanup/scan_dialog.hpp"

#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace varnholt::cleanup {

/// One press of the button that starts a scan, from its tests to the filled list.
class Scan {
 public:
  Scan(panels::Desk& desk, Form16& dialog) : desk_(desk), Form16_(dialog) {}

  void Command1_Click();
  /// Empty when nothing was found or has been left.
  const std::shared_ptr<Hits>& hits() const { return hits_; }
  void forget() { hits_.reset(); }
  void keep(std::shared_ptr<Hits> hits) { hits_ = std::move(hits); }

 private:
  void readLimits();
  void ResetScan();
  /// What stands against the scan; then it does not begin.
  std::optional<const char*> refusal() const;
  void run();
  void search();
  bool takes(std::string_view name, unsigned level) const;
  bool sizePasses(std::uint64_t bytes) const;
  void addRows();
  void ending();
  void Pbar();

  panels::Desk& desk_;
  Form16& Form16_;
  Patterns patterns_;
  bool userPatterns_ = false;
  std::optional<double> moreThan_, lessThan_;  ///< megabytes
  bool sizesCount_ = false;
  std::shared_ptr<Hits> hits_;
  std::mutex mutex_;  ///< guards how far the search is
  platform::SearchAdvance advance_;
};

}  // namespace varnholt::cleanup
