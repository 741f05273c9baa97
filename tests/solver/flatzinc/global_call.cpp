#include "tests/solver/flatzinc/global_call.h"

namespace kiv::test {
namespace {

std::string WriteSet(const Values& values) {
  std::string text = "{";
  for (const std::int32_t value : values) {
    text += (text.size() == 1 ? "" : ",") + std::to_string(value);
  }
  return text + "}";
}

bool IsInterval(const Values& values) {
  return !values.empty() &&
         values.back() - values.front() == static_cast<std::int32_t>(values.size()) - 1;
}

// A domain or a set, as a range where it is one.
std::string WriteValues(const Values& values) {
  return IsInterval(values) ? std::to_string(values.front()) + ".." + std::to_string(values.back())
                            : WriteSet(values);
}

std::string VariableName(int variable) { return "x" + std::to_string(variable); }

}  // namespace

GlobalCall::Term GlobalCall::PickTerm(std::int32_t lower, std::int32_t upper, bool is_boolean) {
  if (OneIn(random_, 8)) return {Pick(random_, lower, upper), -1};
  if (!domains_.empty() && OneIn(random_, 10)) {
    const int variable = Pick(random_, 0, static_cast<int>(domains_.size()) - 1);
    if (is_boolean_[static_cast<std::size_t>(variable)] == is_boolean) return {0, variable};
  }
  Values values;
  while (values.empty()) {
    for (std::int32_t value = lower; value <= upper; ++value) {
      if (is_boolean || (values.size() < 4 && !OneIn(random_, 3))) values.push_back(value);
    }
  }
  domains_.push_back(values);
  is_boolean_.push_back(is_boolean);
  return {0, static_cast<int>(domains_.size()) - 1};
}

Values GlobalCall::PickSet(std::int32_t lower, std::int32_t upper) {
  Values values;
  const int one_in = Pick(random_, 1, 3);
  for (std::int32_t value = lower; value <= upper; ++value) {
    if (OneIn(random_, one_in)) values.push_back(value);
  }
  return values;
}

void GlobalCall::AddInteger(std::int32_t lower, std::int32_t upper) {
  arguments_.push_back({false, false, false, {PickTerm(lower, upper, false)}, {}});
}

void GlobalCall::AddIntegers(int count, std::int32_t lower, std::int32_t upper) {
  Argument argument{true, false, false, {}, {}};
  for (int i = 0; i < count; ++i) argument.terms.push_back(PickTerm(lower, upper, false));
  arguments_.push_back(std::move(argument));
}

void GlobalCall::AddBoolean() {
  arguments_.push_back({false, true, false, {PickTerm(0, 1, true)}, {}});
}

void GlobalCall::AddBooleans(int count) {
  Argument argument{true, true, false, {}, {}};
  for (int i = 0; i < count; ++i) argument.terms.push_back(PickTerm(0, 1, true));
  arguments_.push_back(std::move(argument));
}

void GlobalCall::AddConstant(std::int64_t value) {
  arguments_.push_back({false, false, false, {{value, -1}}, {}});
}

void GlobalCall::AddConstants(std::vector<std::int64_t> values) {
  Argument argument{true, false, false, {}, {}};
  for (const std::int64_t value : values) argument.terms.push_back({value, -1});
  arguments_.push_back(std::move(argument));
}

void GlobalCall::AddBooleanConstants(int count) {
  Argument argument{true, true, false, {}, {}};
  for (int i = 0; i < count; ++i) argument.terms.push_back({Pick(random_, 0, 1), -1});
  arguments_.push_back(std::move(argument));
}

void GlobalCall::AddSet(std::int32_t lower, std::int32_t upper) {
  arguments_.push_back({false, false, true, {}, {PickSet(lower, upper)}});
}

void GlobalCall::AddSets(int count, std::int32_t lower, std::int32_t upper) {
  Argument argument{true, false, true, {}, {}};
  for (int i = 0; i < count; ++i) argument.sets.push_back(PickSet(lower, upper));
  arguments_.push_back(std::move(argument));
}

std::string GlobalCall::Write(const Argument& argument, const Term& term) const {
  if (term.variable >= 0) return VariableName(term.variable);
  if (argument.is_boolean) return term.constant != 0 ? "true" : "false";
  return std::to_string(term.constant);
}

std::string GlobalCall::Write(const Argument& argument) const {
  std::string text;
  for (const Term& term : argument.terms) {
    text += (text.empty() ? "" : ",") + Write(argument, term);
  }
  for (const Values& set : argument.sets) {
    text += (text.empty() ? "" : ",") + WriteValues(set);
  }
  return argument.is_array ? '[' + text + ']' : text;
}

std::string GlobalCall::GetText() const {
  std::string text;
  for (std::size_t i = 0; i < domains_.size(); ++i) {
    text += "var " + (is_boolean_[i] ? "bool" : WriteValues(domains_[i])) + ": " +
            VariableName(static_cast<int>(i)) + ";\n";
  }
  text += "constraint " + name_ + '(';
  for (std::size_t i = 0; i < arguments_.size(); ++i) {
    text += (i == 0 ? "" : ",") + Write(arguments_[i]);
  }
  return text + ");\nsolve satisfy;\n";
}

GroundArguments GlobalCall::Apply(const Assignment& values) const {
  GroundArguments ground;
  for (const Argument& argument : arguments_) {
    if (argument.is_sets && argument.is_array) {
      std::vector<GroundArguments::Integers> sets;
      for (const Values& set : argument.sets) sets.emplace_back(set.begin(), set.end());
      ground.Add(std::move(sets));
      continue;
    }
    GroundArguments::Integers elements;
    if (argument.is_sets) elements.assign(argument.sets[0].begin(), argument.sets[0].end());
    for (const Term& term : argument.terms) {
      elements.push_back(term.variable < 0 ? term.constant
                                           : values[static_cast<std::size_t>(term.variable)]);
    }
    ground.Add(std::move(elements));
  }
  return ground;
}

}  // namespace kiv::test
