#pragma once

#include "controls/list_view.hpp"
#include "vdt/pointer.hpp"

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace varnholt::vdt {

/// The numbers of the rows' icons in the list's images: the target is there, or gone.
inline constexpr int ThereIcon = 10, GoneIcon = 11;

/// The pointers that `ListView3` shows. Rows are named by their ids, which hold until rows go.
class PointerList {
 public:
  explicit PointerList(controls::ListView& list);

  std::uint32_t count() const;
  const Pointer& at(std::uint32_t id) const;
  bool contains(const Pointer& pointer) const { return keys_.contains(pointer.key()); }
  /// The lines of a project, in the order shown.
  std::vector<std::string> lines() const;

  /// Adds those that are not there yet, all others and their marks staying. Gives how many were added.
  std::size_t add(const std::vector<Pointer>& pointers);
  /// Replaces all; what a project holds twice stays twice.
  void take(std::vector<Pointer> pointers);
  void clear() { take({}); }
  /// These rows go; the row that comes to stand where the first of them stood gets the focus.
  void remove(const std::vector<std::uint32_t>& ids);

  bool isThere(std::uint32_t id) const;
  /// What was found out about a row.
  struct Finding {
    std::uint32_t id = 0;
    Pointer pointer;  ///< as the disk spells it
    bool isThere = false;
  };
  void note(const std::vector<Finding>& findings);

  /// Counts how often ids have lost their meaning.
  unsigned generation() const { return generation_; }

 private:
  class Rows;
  /// Changes rows, of which none goes, and shows them with the marks that they had.
  template <class Change>
  void changeRows(const Change& change);
  void collectKeys();

  controls::ListView& list_;
  std::shared_ptr<Rows> rows_;
  std::unordered_set<std::string> keys_;
  unsigned generation_ = 0;
};

}  // namespace varnholt::vdt
