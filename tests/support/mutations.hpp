#pragma once

#include <random>
#include <string>
#include <vector>

namespace varnholt::test {

/// Calls `reads` with bytes that were once those of a good file: parts put in, bytes changed and taken out.
template <class Reads>
void forMutationsOf(const std::string& good, const std::vector<std::string>& parts, const Reads& reads) {
  std::mt19937 random(20070309);
  const auto below = [&](std::size_t end) { return random() % end; };
  for (int time = 0; time < 3000; ++time) {
    std::string bytes = good;
    for (std::size_t change = 0; change <= below(8) && !bytes.empty(); ++change) {
      const std::size_t at = below(bytes.size()), kind = below(3);
      if (kind == 0) bytes.insert(at, parts[below(parts.size())]);
      if (kind == 1) bytes[at] = static_cast<char>(below(256));
      if (kind == 2) bytes.erase(at, below(20));
    }
    reads(bytes);
  }
}

}  // namespace varnholt::test
