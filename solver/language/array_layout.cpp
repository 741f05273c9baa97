#include "solver/language/array_layout.h"

#include <algorithm>

#include "solver/language/source_text.h"

namespace kiv {
namespace {

// Fills up the cells of each column to the widest of them.
void AlignColumns(std::size_t columns, std::vector<std::string>& cells) {
  std::vector<std::size_t> widths(columns, 0);
  for (std::size_t i = 0; i < cells.size(); ++i) {
    widths[i % columns] = std::max(widths[i % columns], CountCharacters(cells[i]));
  }
  for (std::size_t i = 0; i < cells.size(); ++i) {
    cells[i].insert(0, widths[i % columns] - CountCharacters(cells[i]), ' ');
  }
}

// The cells of row number `row`.
std::string JoinRow(const std::vector<std::string>& cells, std::size_t columns, std::size_t row,
                    const char* separator) {
  std::string text;
  for (std::size_t i = 0; i < columns; ++i) {
    if (i > 0) text += separator;
    text += cells[row * columns + i];
  }
  return text;
}

}  // namespace

std::string LayOutList(const ArrayShape& shape, std::vector<std::string> cells,
                       std::size_t indent) {
  if (shape.size() < 2) return '[' + JoinRow(cells, cells.size(), 0, ", ") + ']';
  const auto rows = static_cast<std::size_t>(shape[0].Count());
  const auto columns = static_cast<std::size_t>(shape[1].Count());
  AlignColumns(columns, cells);
  std::string text = "[";
  for (std::size_t row = 0; row < rows; ++row) {
    if (row > 0) text += ",\n" + std::string(indent + 1, ' ');
    text += '[' + JoinRow(cells, columns, row, ", ") + ']';
  }
  return text + ']';
}

std::string LayOutGrid(const ArrayShape& shape, std::vector<std::string> cells) {
  if (shape.size() < 2) return LayOutList(shape, std::move(cells), 0);
  const auto rows = static_cast<std::size_t>(shape[0].Count());
  const auto columns = static_cast<std::size_t>(shape[1].Count());
  AlignColumns(columns, cells);
  std::string text;
  for (std::size_t row = 0; row < rows; ++row) {
    if (row > 0) text += '\n';
    text += JoinRow(cells, columns, row, " ");
  }
  return text;
}

}  // namespace kiv
