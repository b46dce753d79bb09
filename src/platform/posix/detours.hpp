#pragma once

#include "platform/detours.hpp"
#include "platform/posix/path_map.hpp"

namespace varnholt::platform::posix {

/// Notes of detours in the program's folder, in system form: letters may stand for other folders at the next start.
class PosixDetours final : public Detours {
 public:
  /// The map must outlive this; `notes` is a folder in system form.
  PosixDetours(const PathMap& map, std::string notes) : map_(map), notes_(std::move(notes)) {}

  Result<std::unique_ptr<Note>> note(const std::vector<Detour>& detours) override;
  std::vector<std::string> waiting() override;
  void finish(const std::function<bool(const Detour&)>& bringBack) override;

 private:
  const PathMap& map_;
  std::string notes_;
};

}  // namespace varnholt::platform::posix
