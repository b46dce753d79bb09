#pragma once

// What nearly every test needs of the standard library.
#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <functional>
#include <gtest/gtest.h>
#include <initializer_list>
#include <iterator>
#include <list>
#include <map>
#include <memory>
#include <optional>
#include <random>
#include <set>
#include <string>
#include <string_view>
#include <thread>
#include <tuple>
#include <utility>
#include <vector>

namespace varnholt::test {

extern const std::string_view SourceFolder;

/// The texts of a row that is written as one: "README.TXT|readme.txt". What is not there is empty.
struct Row {
  explicit Row(std::string_view row) {
    for (std::string* each : {&first, &second, &third, &fourth}) {
      const auto end = std::min(row.find('|'), row.size());
      *each = row.substr(0, end);
      row.remove_prefix(std::min(end + 1, row.size()));
    }
  }
  std::string first, second, third, fourth;
};
using Rows = std::initializer_list<std::string_view>;

}  // namespace varnholt::test
