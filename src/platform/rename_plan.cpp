#include "platform/rename_plan.hpp"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string_view>
#include <unordered_map>

namespace varnholt::platform {
namespace {

class Planner {
 public:
  explicit Planner(std::span<const NewName> names) : names_(names), states_(names.size(), State::New) {
    holders_.reserve(names.size());
    for (std::size_t at = 0; at < names.size(); ++at)
      holders_.emplace(names[at].from, at);
  }

  RenamePlan plan() {
    for (std::size_t at = 0; at < names_.size(); ++at)
      follow(at);
    return std::move(plan_);
  }

 private:
  enum class State : std::uint8_t { New, OnTheWay, Placed };

  /// The rename that has to be done before: the one of the file that holds the new name.
  std::optional<std::size_t> before(std::size_t at) const {
    const auto holder = holders_.find(names_[at].to);
    return holder == holders_.end() ? std::nullopt : std::optional(holder->second);
  }

  /// Goes from a rename to the one that it waits for, and so on, and places them from the end of that way.
  void follow(std::size_t start) {
    std::vector<std::size_t> way;
    std::optional<std::size_t> at = start;
    for (; at && states_[*at] == State::New; at = before(*at)) {
      states_[*at] = State::OnTheWay;
      way.push_back(*at);
    }
    if (at && states_[*at] == State::OnTheWay) takeRing(way, *at);
    plan_.order.insert(plan_.order.end(), way.rbegin(), way.rend());
    for (const std::size_t placed : way)
      states_[placed] = State::Placed;
  }

  void takeRing(std::vector<std::size_t>& way, std::size_t first) {
    const auto begin = std::ranges::find(way, first);
    for (auto member = begin; member != way.end(); ++member)
      states_[*member] = State::Placed;
    if (way.end() - begin > 1) plan_.rings.emplace_back(begin, way.end());
    way.erase(begin, way.end());
  }

  std::span<const NewName> names_;
  std::vector<State> states_;
  std::unordered_map<std::string_view, std::size_t> holders_;
  RenamePlan plan_;
};

}  // namespace

RenamePlan planRenames(std::span<const NewName> names) { return Planner(names).plan(); }

}  // namespace varnholt::platform
