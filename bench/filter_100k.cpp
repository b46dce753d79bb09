// Lists one folder as a panel does, through a View Filter of three patterns and a range of sizes when "filtered" is
// said. All files pass by the last pattern, so that every test is made and every row is still sorted and shown.

#include "filters/criteria.hpp"
#include "idle_loop.hpp"
#include "panels/listing.hpp"
#include "platform/posix/clock.hpp"
#include "platform/posix/file_system.hpp"

#include <cstdio>
#include <cstring>

using namespace varnholt;

namespace {

panels::FileTest viewFilter(const platform::Clock& clock) {
  filters::Criteria criteria;
  criteria.pattern = "*.jpg, letter-?#*.doc, *.txt";
  criteria.sizeOn = true;
  criteria.lower = -1;
  criteria.upper = 100;
  return [test = filters::FilterTest(criteria, "1", clock)](const platform::Entry& file) mutable {
    return test.passes(file.name, file);
  };
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) return 2;
  platform::posix::PathMap map(platform::posix::parseDriveVariable("Z=/"));
  platform::posix::PosixFileSystem files(map);
  const platform::posix::SystemClock clock;
  bench::IdleLoop loop;
  panels::Form1 form(loop);
  const auto folder = map.toProgram(argv[1]);
  const auto listing = folder ? files.list(*folder) : platform::Result<platform::ListingPtr>(folder.error());
  if (!listing) return 1;
  const auto test = std::strcmp(argv[2], "filtered") == 0 ? viewFilter(clock) : panels::FileTest();
  form.Panel1.show(std::make_shared<panels::PanelRows>(*listing, test, panels::RowFormat{"1", "0", false, {}, &clock}));
  form.ListView1.ensureSorted();
  std::printf("%u\n", form.ListView1.count());
  return 0;
}
