#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/array_shape.h"

namespace kiv {

// An array of one dimension as "[1, 2]", one of two dimensions as a list of such rows, each on a
// line of its own with its columns aligned; all lines but the first begin with `indent` blanks.
// `cells` are its elements, row by row.
KIV_EXPORT std::string LayOutList(const ArrayShape& shape, std::vector<std::string> cells,
                                  std::size_t indent);

// An array of two dimensions as a line for each row, with aligned columns; the last line is not
// ended. Any other as LayOutList does.
KIV_EXPORT std::string LayOutGrid(const ArrayShape& shape, std::vector<std::string> cells);

}  // namespace kiv
