// Lists one folder as a panel does: entries read, rows made, sorted and ready to draw. Prints how many rows there are.

#include "idle_loop.hpp"
#include "panels/listing.hpp"
#include "platform/posix/clock.hpp"
#include "platform/posix/file_system.hpp"

#include <cstdio>

using namespace varnholt;

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  platform::posix::PathMap map(platform::posix::parseDriveVariable("Z=/"));
  platform::posix::PosixFileSystem files(map);
  const platform::posix::SystemClock clock;
  bench::IdleLoop loop;
  panels::Form1 form(loop);
  const auto folder = map.toProgram(argv[1]);
  const auto listing = folder ? files.list(*folder) : platform::Result<platform::ListingPtr>(folder.error());
  if (!listing) return 1;
  form.Panel1.show(std::make_shared<panels::PanelRows>(*listing, panels::FileTest(),
                                                       panels::RowFormat{"1", "0", false, {}, &clock}));
  form.ListView1.ensureSorted();
  // What is on the screen first.
  std::size_t bytes = 0;
  for (std::uint32_t row = 0; row < 50 && row < form.ListView1.count(); ++row)
    for (int column = 0; column < panels::column::Count; ++column)
      bytes += form.ListView1.cell(row, column).size();
  std::printf("%u %zu\n", form.ListView1.count(), bytes);
  return 0;
}
