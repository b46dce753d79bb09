#pragma once

#include "basket/collection_file.hpp"
#include "cleanup/scan.hpp"
#include "cleanup/scan_dialog.hpp"
#include "fileops/desktop.hpp"
#include "panels/icons.hpp"

#include <cstdint>
#include <string>
#include <vector>

namespace varnholt::cleanup {

/// What is done with the hits of a scan.
class Clean {
 public:
  Clean(panels::Desk& desk, fileops::Desktop& desktop, const panels::Icons& icons, Form16& dialog, Form23& choice,
        Scan& scan);

  /// Puts the hit of that row in hand, as a click on it does, or the last one.
  void putInHand(std::uint32_t row);

 private:
  void Command3_Click();
  bool mayClean();
  void Cleanselected();
  void Cleanall();
  void Command6_Click();
  void Command8_Click();
  void Command9_Click();
  void ListView1_Click();
  void ListView1_DblClick();
  void showPreview(const std::string& path);
  void PaintRow(std::uint32_t id, controls::Color color);
  /// The file in hand that is still there; `gone` is told when it is not.
  std::optional<std::string> fileInHand(const char* gone);
  /// Deletes these, once the user has been asked about those that are others by now. Those that are gone afterwards.
  std::size_t deleteFiles(const std::vector<const platform::FoundFile*>& files);
  /// Leaves out what has changed since the scan, unless the user wants it gone, too.
  std::vector<std::string> withoutChanged(const std::vector<const platform::FoundFile*>& files);

  panels::Desk& desk_;
  fileops::Desktop& desktop_;
  const panels::Icons& icons_;
  Form16& Form16_;
  Form23& Form23_;
  Scan& scan_;
  basket::CollectionFiles collections_;
};

}  // namespace varnholt::cleanup
