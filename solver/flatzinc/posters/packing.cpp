#include "solver/constraints/bin_packing.h"
#include "solver/flatzinc/poster_table.h"

namespace kiv::flatzinc {
namespace {

// loads, the number of the first bin, bin of each item, weights
void PostBinPacking(const Posting& posting) {
  auto arguments = posting.GetVariables(2);
  std::vector<std::int32_t> weights;
  for (const std::int64_t weight : posting.GetIntegers(3)) {
    if (weight < 0) posting.Refuse("takes weights that are not negative");
    weights.push_back(posting.NarrowConstant(weight));
  }
  if (weights.size() != arguments.size()) posting.Refuse("takes a weight for each item");
  const auto loads = posting.GetVariables(0);
  arguments.insert(arguments.end(), loads.begin(), loads.end());
  posting.GetNetwork().Emplace<BinPacking>(arguments, std::move(weights),
                                           posting.NarrowConstant(posting.GetInteger(1)));
}

constexpr Poster kPosters[] = {
    {"kiv_bin_packing_load", "I=iI=I", PostBinPacking},
};

}  // namespace

std::span<const Poster> PackingPosters() { return kPosters; }

}  // namespace kiv::flatzinc
