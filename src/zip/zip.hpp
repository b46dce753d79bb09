#pragma once

#include "panels/desk.hpp"
#include "panels/room.hpp"
#include "zip/zip_dialog.hpp"

#include <vector>

namespace varnholt::zip {

/// Packs what is selected into a zip archive.
class Zip : public panels::Room {
 public:
  explicit Zip(panels::Desk& desk) : desk_(desk), Form41(desk) {}
  Zip(const Zip&) = delete;
  Zip& operator=(const Zip&) = delete;

  void addCommands(panels::CommandTable& table) override;
  std::vector<controls::Form*> dialogs() override { return {&Form41}; }
  void MakeZip_Click();

 private:
  void makeZip();

  panels::Desk& desk_;

 public:
  zip::Form41 Form41;
};

}  // namespace varnholt::zip
