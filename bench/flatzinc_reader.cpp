// Reads a FlatZinc text of 50 MB, made of what real models are made of, and prints the speed and
// how the memory of the model compares with the text. `bench_flatzinc_reader 100` takes 100 MB.

#include <sys/resource.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <iomanip>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "solver/flatzinc/reader.h"

namespace {

using kiv::flatzinc::Model;

constexpr std::size_t kMegabyte = 1'000'000;

// Every block declares its own variables, and constrains them together with some of earlier blocks.
std::string MakeBlock(std::size_t block) {
  const auto name = [](std::size_t number) {
    return "X_INTRODUCED_" + std::to_string(number) + '_';
  };
  const std::size_t first = block * 5;
  std::string text = "array [1..5] of int: C" + std::to_string(block) + " = [2,-3,1,5,-7];\n";
  std::string terms = "[";
  for (std::size_t i = 0; i < 5; ++i) {
    const std::string variable = name(first + i);
    text += "var 0..99: " + variable + " ::var_is_introduced :: is_defined_var;\n";
    text += "var bool: B" + variable + " ::var_is_introduced :: is_defined_var;\n";
    terms += (i > 0 ? "," : "") + (i % 2 == 0 ? variable : name(first * 7919 / 10000 + i));
  }
  terms += "]";
  text += "array [1..5] of var int: A" + std::to_string(block) +
          " :: output_array([1..5]) = " + terms + ";\n";
  for (std::size_t i = 0; i < 5; ++i) {
    const std::string variable = name(first + i);
    const std::string truth = 'B' + variable;
    text += "constraint int_lin_le([1,-2,3,-4,5]," + terms + "," + std::to_string(i) + ");\n";
    text += "constraint int_lin_eq(C" + std::to_string(block) + ",A" + std::to_string(block) +
            ",-17) :: domain;\n";
    text += "constraint bool_clause([" + truth + "],[B" + name(first) + "]);\n";
    text += "constraint int_eq_reif(" + variable + "," + std::to_string(i) + "," + truth +
            ") :: defines_var(" + truth + ");\n";
  }
  return text;
}

// Declarations stand before constraints in real texts, but that makes no difference here.
std::string MakeText(std::size_t size) {
  std::string text;
  text.reserve(size + 10'000);
  for (std::size_t block = 0; text.size() < size; ++block) text += MakeBlock(block);
  text += "solve :: int_search(A0, first_fail, indomain_min, complete) satisfy;\n";
  return text;
}

template <class Element>
std::size_t SizeOf(const std::vector<Element>& table) {
  return table.capacity() * sizeof(Element);
}

// Names of more than 15 characters have memory of their own.
std::size_t SizeOf(const Model& model) {
  std::size_t size = SizeOf(model.pool) + SizeOf(model.arrays) + SizeOf(model.calls) +
                     SizeOf(model.sets) + SizeOf(model.set_values) + SizeOf(model.float_sets) +
                     SizeOf(model.floats) + SizeOf(model.strings) + SizeOf(model.names) +
                     SizeOf(model.variables) + SizeOf(model.variable_arrays) +
                     SizeOf(model.constraints);
  for (const std::string& name : model.names) size += name.size() > 15 ? name.capacity() + 1 : 0;
  return size;
}

// In bytes.
std::size_t GetPeakMemory() {
  rusage usage{};
  getrusage(RUSAGE_SELF, &usage);
  return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

}  // namespace

int main(int argc, char** argv) {
  const std::size_t megabytes = argc > 1 ? std::strtoul(argv[1], nullptr, 10) : 50;
  const std::string text = MakeText(megabytes * kMegabyte);
  const std::size_t before = GetPeakMemory();
  double best = 0;
  std::size_t size = 0;
  std::size_t constraints = 0;
  for (int run = 0; run < 5; ++run) {
    const std::clock_t start = std::clock();
    const Model model = kiv::flatzinc::ReadModel(text);
    const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
    best = std::max(best, static_cast<double>(text.size()) / kMegabyte / seconds);
    size = SizeOf(model);
    constraints = model.constraints.size();
  }
  const auto ratio = [&](std::size_t bytes) {
    return static_cast<double>(bytes) / static_cast<double>(text.size());
  };
  std::cout << std::fixed << std::setprecision(2) << "text              " << text.size() / kMegabyte
            << " MB, " << constraints << " constraints\n"
            << "speed             " << best << " MB/s of processor time, best of 5\n"
            << "model             " << ratio(size) << " bytes per byte of text\n"
            << "memory at most    " << ratio(GetPeakMemory() - before)
            << " bytes per byte of text, beside the text\n";
  return EXIT_SUCCESS;
}
