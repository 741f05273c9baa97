#include "tests/solver/flatzinc/random_text.h"

#include <algorithm>
#include <cctype>
#include <stdexcept>
#include <utility>

#include "solver/flatzinc/poster_table.h"

namespace kiv::test {
namespace {

std::string NameOf(std::size_t variable) { return "x" + std::to_string(variable); }

Values RandomSet(Generator& random, std::int32_t lower, std::int32_t upper, int most) {
  Values values;
  for (int count = Pick(random, 1, most); count > 0; --count) {
    values.push_back(Pick(random, lower, upper));
  }
  std::ranges::sort(values);
  values.erase(std::ranges::unique(values).begin(), values.end());
  return values;
}

std::string WriteSet(const Values& values) {
  std::string text = "{";
  for (const std::int32_t value : values) {
    text += (text.size() == 1 ? "" : ",") + std::to_string(value);
  }
  return text + '}';
}

// The types of a poster for one of the numbers of arguments that it takes.
std::string_view PickTypes(Generator& random, std::string_view name) {
  std::string_view types = flatzinc::FindPoster(name)->types;
  const auto bar = types.find('|');
  if (bar == types.npos) return types;
  return OneIn(random, 2) ? types.substr(0, bar) : types.substr(bar + 1);
}

// Where constants of any size have a clear meaning.
bool TakesHugeConstants(std::string_view name) {
  constexpr std::string_view kFamilies[] = {"int_eq",   "int_ne", "int_le",   "int_lt",   "int_lin",
                                            "bool_lin", "set_in", "int_plus", "int_minus"};
  return std::ranges::any_of(kFamilies, [&](auto family) { return name.starts_with(family); });
}

}  // namespace

RandomText::RandomText(Generator& random) : random_(random) {
  for (int count = Pick(random, 1, 3); count > 0; --count) AddInteger();
  for (int count = Pick(random, 1, 3); count > 0; --count) AddBoolean();
}

// A declared domain, or a wide one or none at all, which a constraint narrows to few values.
void RandomText::AddInteger() {
  const std::int32_t lower = Pick(random_, -4, 2);
  Variable variable{"var ", false, Range(lower, lower + Pick(random_, 0, 4))};
  const std::size_t place = variables_.size();
  const int shape = Pick(random_, 1, 12);
  if (shape <= 4) variable.values = RandomSet(random_, -5, 6, 5);
  if (shape <= 2) {
    const char* domain = shape == 1 ? "-100000..2000" : "int";
    variables_.push_back({variable.declaration + domain, false, variable.values});
    AddRelation("set_in", {{.terms = {{0, place}}}, {.is_set = true}});
    auto& set = constraints_.back().arguments[1].terms;
    for (const std::int32_t value : variable.values) set.push_back({value});
    return;
  }
  variable.declaration += shape <= 4 ? WriteSet(variable.values)
                                     : std::to_string(variable.values.front()) + ".." +
                                           std::to_string(variable.values.back());
  variable.initialiser = PickInitialiser(false);
  variables_.push_back(std::move(variable));
}

void RandomText::AddBoolean() {
  Variable variable{"var bool", true, {0, 1}};
  variable.initialiser = PickInitialiser(true);
  variables_.push_back(std::move(variable));
}

std::optional<RandomText::Term> RandomText::PickInitialiser(bool is_boolean) {
  if (!OneIn(random_, 12)) return std::nullopt;
  return PickTerm(is_boolean, false, false);
}

std::optional<std::size_t> RandomText::PickVariable(bool is_boolean) {
  std::vector<std::size_t> fitting;
  for (std::size_t i = 0; i < variables_.size(); ++i) {
    if (variables_[i].is_boolean == is_boolean) fitting.push_back(i);
  }
  if (fitting.empty()) return std::nullopt;
  return PickOf(random_, fitting);
}

RandomText::Term RandomText::PickTerm(bool is_boolean, bool is_constant, bool may_be_huge) {
  const bool wants_variable = !is_constant && !OneIn(random_, 6);
  if (const auto variable = wants_variable ? PickVariable(is_boolean) : std::nullopt) {
    return {0, variable};
  }
  if (is_boolean) return {Pick(random_, 0, 1)};
  if (may_be_huge && OneIn(random_, 16)) {
    constexpr std::int64_t kHuge[] = {1000000000000, -1000000000000, 2147483646,
                                      2147483647,    2147483648,     -2147483646,
                                      -2147483647,   -2147483648,    10000000000000};
    return {PickOf(random_, kHuge)};
  }
  return {Pick(random_, -4, 5)};
}

RandomText::Argument RandomText::PickSet(bool may_be_huge) {
  Argument argument{.is_set = true};
  if (OneIn(random_, 8)) return argument;
  for (const std::int32_t value : RandomSet(random_, -5, 6, 6)) argument.terms.push_back({value});
  if (may_be_huge && OneIn(random_, 8)) argument.terms.push_back({1000000000000});
  return argument;
}

void RandomText::AddRelation(std::string_view name, std::vector<Argument> arguments) {
  const auto meaning = BuiltinMeaning::Find(name);
  if (!meaning) throw std::invalid_argument("no meaning of " + std::string(name));
  static const std::vector<std::string> kAnnotations = {"", " :: domain", " :: bounds"};
  constraints_.push_back(
      {std::string(name), *meaning, std::move(arguments), PickOf(random_, kAnnotations)});
}

void RandomText::AddConstraint(std::string_view name) {
  const bool may_be_huge = TakesHugeConstants(name);
  const bool has_coefficients = name.find("_lin_") != name.npos;
  const int length = OneIn(random_, 8) ? 0 : Pick(random_, 1, 4);
  std::vector<Argument> arguments;
  bool is_constant = false;
  for (const char type : PickTypes(random_, name)) {
    if (type == '=') {
      is_constant = true;
      continue;
    }
    const auto letter = static_cast<char>(std::tolower(static_cast<unsigned char>(type)));
    if (letter == 's') {
      arguments.push_back(PickSet(may_be_huge));
      continue;
    }
    Argument argument{.is_boolean = letter == 'b', .is_array = letter != type};
    // Coefficients and elements are as many; other arrays of one constraint need not be.
    const int count = !argument.is_array ? 1 : has_coefficients ? length : Pick(random_, 0, 4);
    // A product of two huge constants may be refused.
    const bool is_factor = has_coefficients && arguments.size() == 1;
    for (int i = 0; i < count; ++i) {
      argument.terms.push_back(
          PickTerm(argument.is_boolean, is_constant, may_be_huge && !is_factor));
    }
    arguments.push_back(std::move(argument));
    is_constant = false;
  }
  AddRelation(name, std::move(arguments));
}

std::string RandomText::Write(const Term& term, bool is_boolean) const {
  if (term.variable) return NameOf(*term.variable);
  if (is_boolean) return term.constant != 0 ? "true" : "false";
  return std::to_string(term.constant);
}

std::string RandomText::Write(const Argument& argument) const {
  std::string text;
  for (const Term& term : argument.terms) {
    text += (text.empty() ? "" : ",") + Write(term, argument.is_boolean);
  }
  if (argument.is_set) return '{' + text + '}';
  return argument.is_array ? '[' + text + ']' : text;
}

std::string RandomText::Write() const {
  std::string text;
  for (std::size_t i = 0; i < variables_.size(); ++i) {
    const Variable& variable = variables_[i];
    text += variable.declaration + ": " + NameOf(i);
    if (variable.initialiser) text += " = " + Write(*variable.initialiser, variable.is_boolean);
    text += ";\n";
  }
  for (const Constraint& constraint : constraints_) {
    std::string arguments;
    for (const Argument& argument : constraint.arguments) {
      arguments += (arguments.empty() ? "" : ", ") + Write(argument);
    }
    text += "constraint " + constraint.name + '(' + arguments + ')' + constraint.annotation + ";\n";
  }
  return text + "solve satisfy;\n";
}

std::vector<Values> RandomText::GetDomains() const {
  std::vector<Values> domains;
  for (const Variable& variable : variables_) domains.push_back(variable.values);
  return domains;
}

bool RandomText::Holds(const Assignment& values) const {
  const auto value_of = [&](const Term& term) {
    return term.variable ? values[*term.variable] : term.constant;
  };
  for (std::size_t i = 0; i < variables_.size(); ++i) {
    const auto& initialiser = variables_[i].initialiser;
    if (initialiser && value_of(*initialiser) != values[i]) return false;
  }
  return std::ranges::all_of(constraints_, [&](const Constraint& constraint) {
    BuiltinArguments arguments;
    for (const Argument& argument : constraint.arguments) {
      auto& elements = arguments.emplace_back();
      for (const Term& term : argument.terms) elements.push_back(value_of(term));
    }
    return constraint.meaning.Holds(std::move(arguments));
  });
}

}  // namespace kiv::test
