#pragma once

#include <string>
#include <vector>

namespace kiv::bench {

// A model in bench/search/models and what is asked of both solvers.
struct SearchCase {
  enum class Wanted { kFirst, kAll, kOptimum };
  // Whose constraints the FlatZinc has: those that every solver has, so that both get the same
  // text, or each solver its own.
  enum class Library { kStandard, kOwn };

  std::string name;
  std::string model;       // without its ending
  std::string definition;  // of a parameter, as minizinc -D takes it; empty for none
  Wanted wanted;
  Library library = Library::kStandard;
};

const std::vector<SearchCase>& SearchCases();

}  // namespace kiv::bench
