#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "tests/support/enumeration.h"
#include "tests/support/random.h"

namespace kiv::test {

// What the arguments of a constraint are once its variables have values.
class GroundArguments {
 public:
  using Integers = std::vector<std::int64_t>;

  void Add(Integers elements) { arguments_.push_back({std::move(elements), {}}); }
  void Add(std::vector<Integers> sets) { arguments_.push_back({{}, std::move(sets)}); }

  std::size_t Count() const { return arguments_.size(); }
  // Of an array, or of a set.
  const Integers& Get(std::size_t i) const { return arguments_[i].elements; }
  // Of an argument that is neither.
  std::int64_t GetOne(std::size_t i) const { return arguments_[i].elements.at(0); }
  // Of an array of sets.
  const std::vector<Integers>& GetSets(std::size_t i) const { return arguments_[i].sets; }

 private:
  struct Argument {
    Integers elements;
    std::vector<Integers> sets;
  };
  std::vector<Argument> arguments_;
};

// A random constraint over variables of its own, argument by argument: as FlatZinc writes it, and
// what it is applied to for each assignment. Where variables are asked for there are constants and
// repeated variables among them.
class GlobalCall {
 public:
  GlobalCall(std::string name, Generator& random) : name_(std::move(name)), random_(random) {}

  Generator& GetRandom() const { return random_; }

  // Integers of [lower, upper]; one of them, or an array of `count`.
  void AddInteger(std::int32_t lower, std::int32_t upper);
  void AddIntegers(int count, std::int32_t lower, std::int32_t upper);
  void AddBoolean();
  void AddBooleans(int count);
  void AddConstant(std::int64_t value);
  void AddConstants(std::vector<std::int64_t> values);
  void AddBooleanConstants(int count);
  // A set of some of [lower, upper], and an array of such.
  void AddSet(std::int32_t lower, std::int32_t upper);
  void AddSets(int count, std::int32_t lower, std::int32_t upper);

  const std::string& GetName() const { return name_; }
  // The possible values of each variable.
  const std::vector<Values>& GetDomains() const { return domains_; }
  std::string GetText() const;
  GroundArguments Apply(const Assignment& values) const;

 private:
  // A constant, or a variable of domains_.
  struct Term {
    std::int64_t constant;
    int variable = -1;
  };
  struct Argument {
    bool is_array;
    bool is_boolean;
    bool is_sets = false;
    std::vector<Term> terms;
    std::vector<Values> sets;  // one, or those of an array
  };

  Term PickTerm(std::int32_t lower, std::int32_t upper, bool is_boolean);
  Values PickSet(std::int32_t lower, std::int32_t upper);
  std::string Write(const Argument& argument) const;
  std::string Write(const Argument& argument, const Term& term) const;

  std::string name_;
  Generator& random_;
  std::vector<Values> domains_;
  std::vector<bool> is_boolean_;  // by variable
  std::vector<Argument> arguments_;
};

}  // namespace kiv::test
