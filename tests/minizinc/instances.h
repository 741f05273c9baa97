#pragma once

#include <ostream>
#include <string>
#include <vector>

namespace kiv::test {

// A model of examples/minizinc with its data. The comment at its head says the answer:
//
//   % Answer: 1 solution.
//   % Answer with queens_8.dzn: 92 solutions.
//   % Answer with golomb_ruler_8.dzn: optimum 34.
//   % Answer with queens_3.dzn: no solution.
struct Instance {
  std::string name;                // the data's, or the model's if it needs none
  std::vector<std::string> files;  // paths of model and data
  std::string answer;              // "92 solutions", "1 solution", "no solution", "optimum 34"
};

// How GoogleTest names an instance.
void PrintTo(const Instance& instance, std::ostream* out);

// All of them, in the order of their files. Throws std::runtime_error if a model says no answer, or
// data belong to no model.
std::vector<Instance> ReadInstances();

}  // namespace kiv::test
