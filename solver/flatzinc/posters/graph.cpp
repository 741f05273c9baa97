#include "solver/constraints/circuit.h"
#include "solver/constraints/inverse.h"
#include "solver/constraints/subcircuit.h"
#include "solver/flatzinc/poster_table.h"

// The places of a graph are numbered from a first index on: the index sets of the arrays, which
// FlatZinc does not have.
namespace kiv::flatzinc {
namespace {

// first index, successors
void PostCircuitThroughAll(const Posting& posting) {
  PostCircuit(posting.GetNetwork(), posting.GetVariables(1),
              posting.NarrowConstant(posting.GetInteger(0)));
}

void PostCircuitThroughSome(const Posting& posting) {
  PostSubcircuit(posting.GetNetwork(), posting.GetVariables(1),
                 posting.NarrowConstant(posting.GetInteger(0)));
}

// Without the all-different, which the circuit implies.
template <class T>
void PostReifiedCircuit(const Posting& posting) {
  posting.Emplace<T>(TruthForm::kReified, posting.GetVariables(1),
                     posting.NarrowConstant(posting.GetInteger(0)));
}

// f, its first index, g, its first index
void PostInverseSequences(const Posting& posting) {
  PostInverse(posting.GetNetwork(), posting.GetVariables(0), posting.GetVariables(2),
              posting.NarrowConstant(posting.GetInteger(1)),
              posting.NarrowConstant(posting.GetInteger(3)));
}

constexpr Poster kPosters[] = {
    {"kiv_circuit", "=iI", PostCircuitThroughAll},
    {"kiv_subcircuit", "=iI", PostCircuitThroughSome},
    {"kiv_circuit_reif", "=iIb", PostReifiedCircuit<Circuit>},
    {"kiv_subcircuit_reif", "=iIb", PostReifiedCircuit<Subcircuit>},
    {"kiv_inverse", "I=iI=i", PostInverseSequences},
};

}  // namespace

std::span<const Poster> GraphPosters() { return kPosters; }

}  // namespace kiv::flatzinc
