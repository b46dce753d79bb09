// What a user waits for in a panel of 100,000 rows: select all, a column sort, a ReCall of 2,000 names; each against a
// plain loop over the same rows. Prints "case <tab> ours_ms <tab> floor_ms".

#include "idle_loop.hpp"
#include "panels/listing.hpp"
#include "platform/clock.hpp"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <functional>
#include <string>
#include <unordered_set>

using namespace varnholt;

namespace {

constexpr std::uint32_t Rows = 100'000, RecallNames = 2'000;

/// Files of a folder that is not on any disk.
class MadeListing : public platform::Listing {
 public:
  MadeListing() {
    names_.reserve(Rows);
    for (std::uint32_t number = 0; number < Rows; ++number)
      names_.push_back("file-" + std::to_string(number * 7919u % Rows) + ".txt");
    for (std::uint32_t number = 0; number < Rows; ++number) {
      platform::Entry entry;
      entry.name = names_[number];
      entry.size = number * 31u % 1'000'000;
      entry.modified.seconds = 1'600'000'000 + number * 997ll;
      files_.push_back(entry);
    }
  }

 private:
  std::vector<std::string> names_;
};

double medianMilliseconds(const std::function<void()>& prepare, const std::function<void()>& work) {
  std::vector<double> times;
  for (int round = 0; round < 7; ++round) {
    prepare();
    const auto from = std::chrono::steady_clock::now();
    work();
    times.push_back(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - from).count());
  }
  std::ranges::nth_element(times, times.begin() + 3);
  return times[3];
}

volatile std::size_t sink = 0;

}  // namespace

int main() {
  bench::IdleLoop loop;
  panels::Form1 form(loop);
  const auto listing = std::make_shared<MadeListing>();
  controls::ListView& list = form.ListView1;
  form.Panel1.setPath("C:\\many");
  form.Panel1.show(std::make_shared<panels::PanelRows>(listing, panels::FileTest(), panels::RowFormat{}));
  list.ensureSorted();
  const auto nothing = [] {};
  const auto plainLoop = [&] {
    std::size_t bytes = 0;
    for (const auto& file : listing->files())
      bytes += file.name.size();
    sink = bytes;
  };
  const double floor = medianMilliseconds(nothing, plainLoop);

  const double selectAll = medianMilliseconds([&] { list.selectNone(); },
                                              [&] {
                                                form.filecollect.reset();
                                                for (std::uint32_t row = 0; row < list.count(); ++row) {
                                                  controls::ListItem item = list.item(row);
                                                  item.setSelected(true);
                                                  item.setGhosted(true);
                                                  form.filecollect.push(form.Panel1.item(item));
                                                }
                                              });
  std::unordered_set<std::string> names;
  for (std::uint32_t number = 0; number < RecallNames; ++number)
    names.insert("file-" + std::to_string(number * 50) + ".txt");
  const double recall =
      medianMilliseconds([&] { list.selectNone(); },
                         [&] {
                           const std::unordered_set<std::string_view> wanted(names.begin(), names.end());
                           for (std::uint32_t row = 0; row < list.count(); ++row) {
                             controls::ListItem item = list.item(row);
                             if (wanted.contains(form.Panel1.rows->entry(item.id()).name)) item.setSelected(true);
                           }
                         });
  bool down = false;
  const double sort = medianMilliseconds(nothing, [&] {
    list.setSortOrder((down = !down) ? controls::SortOrder::Descending : controls::SortOrder::Ascending);
    list.ensureSorted();
  });
  std::printf("select-all-100k\t%.2f\t%.2f\nrecall-2000\t%.2f\t%.2f\nsort-100k\t%.2f\t%.2f\n", selectAll, floor, recall,
              floor, sort, floor);
  return 0;
}
