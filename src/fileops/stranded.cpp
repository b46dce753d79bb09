#include "fileops/stranded.hpp"

namespace varnholt::fileops {

void bringBackStranded(panels::Desk& desk) {
  std::string places;
  desk.program.platform.detours.finish([&](const platform::Detour& detour) {
    for (const std::string* place : {&detour.origin, &detour.target}) {
      if (!desk.files().moveFile(detour.waits, *place)) continue;
      places += "\r" + *place;
      return true;
    }
    places += "\r" + detour.waits + "  (from " + detour.origin + ")";
    return false;
  });
  if (!places.empty())
    desk.program.dialogs.alert("A Move Or Swap Was Interrupted. Its Files Stand Here Now :" + places);
}

}  // namespace varnholt::fileops
