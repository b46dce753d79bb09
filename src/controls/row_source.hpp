#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace varnholt::controls {

/// Small marks drawn over a row's icon.
enum class Emblem : std::uint8_t { None, Link, LinkGone };

/// Where the rows of a list view come from. Texts are made when somebody looks, so a list of 100,000 rows formats
/// the few dozen that are on screen. Rows are numbered in the order in which they were added.
class RowSource {
 public:
  virtual ~RowSource() = default;
  virtual std::uint32_t rowCount() const = 0;
  /// Column 0 is the row's Text, the others its SubItems.
  virtual std::string cell(std::uint32_t row, int column) const = 0;
  virtual int icon(std::uint32_t row) const = 0;
  virtual Emblem emblem(std::uint32_t) const { return Emblem::None; }
  /// The row's name: what typed letters are looked for in.
  virtual std::string seekText(std::uint32_t row) const { return cell(row, 0); }
  /// What assistive technology reads in the first column: more than is drawn where a name goes on in the next one.
  virtual std::string spokenText(std::uint32_t row) const { return cell(row, 0); }
  /// Fills one number a row whose order is that of the column's texts, where there is one: far cheaper to sort.
  virtual bool numericKeys(int /*column*/, std::vector<std::int64_t>& /*keys*/) const { return false; }
  /// Appends the text that the column is sorted by. Called on two threads at once.
  virtual void appendSortText(std::uint32_t row, int column, std::string& text) const { text += cell(row, column); }
};

/// The rows of `before`, which holds each once, in the order of a column's texts, folded (text_order.hpp); rows of
/// equal text keep the order of `before` in both directions.
std::vector<std::uint32_t> sortedRows(const RowSource& source, int column, bool descending,
                                      const std::vector<std::uint32_t>& before);

}  // namespace varnholt::controls
