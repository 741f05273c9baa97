#include "tools/kiv/search_text.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string_view>
#include <utility>
#include <vector>

#include "solver/language/near_name.h"
#include "solver/search/strategy_names.h"
#include "tools/kiv/output.h"

namespace kiv {
namespace {

constexpr std::array<std::pair<std::string_view, RestartPolicy::Kind>, 5> kPolicies = {
    {{"none", RestartPolicy::Kind::kNone},
     {"constant", RestartPolicy::Kind::kConstant},
     {"linear", RestartPolicy::Kind::kLinear},
     {"geometric", RestartPolicy::Kind::kGeometric},
     {"luby", RestartPolicy::Kind::kLuby}}};

std::vector<std::string> Split(const std::string& text, char separator) {
  std::vector<std::string> parts;
  std::size_t begin = 0;
  for (std::size_t end; (end = text.find(separator, begin)) != std::string::npos; begin = end + 1) {
    parts.push_back(text.substr(begin, end - begin));
  }
  parts.push_back(text.substr(begin));
  return parts;
}

// The number that `text` is and nothing else; none when it is not above zero.
template <class Number>
std::optional<Number> ParsePositive(const std::string& text) {
  Number number = 0;
  const char* const end = text.data() + text.size();
  const auto [rest, error] = std::from_chars(text.data(), end, number);
  if (error != std::errc{} || rest != end || !(number > 0)) return std::nullopt;
  return number;
}

// The message for a `name` of none of `names`; `all` says in the plural what they name.
std::string Unknown(const std::string& what, const std::string& all, const std::string& name,
                    const std::vector<std::string>& names) {
  return "unknown " + what + " '" + name + '\'' + SuggestNearName(name, names) + "\n  " + all +
         ": " + ListNames(names);
}

}  // namespace

StrategyChoice ParseStrategy(const std::string& text) {
  const std::vector<std::string> words = Split(text, ',');
  const std::string option = "--strategy " + text + ": ";
  if (words.size() > 2) {
    throw InputError(option +
                     "expected default, VARIABLES or VARIABLES,VALUES, as in "
                     "first_fail,lower_half");
  }
  const auto variables = FindVariableChoice(words[0]);
  if (!variables) {
    std::vector<std::string> names = {"default"};
    for (std::string& name : GetVariableChoiceNames()) names.push_back(std::move(name));
    throw InputError(option +
                     Unknown("choice of variables", "choices of variables", words[0], names));
  }
  const auto values = words.size() < 2 ? ValueChoice::kSmallest : FindValueChoice(words[1]);
  if (!values) {
    throw InputError(
        option + Unknown("choice of values", "choices of values", words[1], GetValueChoiceNames()));
  }
  return {*variables, *values};
}

RestartPolicy ParseRestarts(const std::string& text) {
  const std::vector<std::string> words = Split(text, ':');
  const std::string option = "--restarts " + text + ": ";
  RestartPolicy policy;
  std::vector<std::string> names;
  bool known = false;
  for (const auto& [name, kind] : kPolicies) {
    names.emplace_back(name);
    if (name != words[0]) continue;
    known = true;
    policy.kind = kind;
  }
  if (!known)
    throw InputError(option +
                     Unknown("policy of restarts", "policies of restarts", words[0], names));

  const bool is_geometric = policy.kind == RestartPolicy::Kind::kGeometric;
  const std::size_t numbers = policy.kind == RestartPolicy::Kind::kNone ? 0 : is_geometric ? 2 : 1;
  if (words.size() != numbers + 1) {
    constexpr const char* kParts[] = {"", ":N", ":N:F"};
    throw InputError(option + "expected " + words[0] + kParts[numbers]);
  }
  if (numbers > 0) {
    const auto scale = ParsePositive<std::uint64_t>(words[1]);
    if (!scale) throw InputError(option + "the number of failures must be a positive integer");
    policy.scale = *scale;
  }
  if (is_geometric) {
    const auto factor = ParsePositive<double>(words[2]);
    if (!factor || !(*factor >= 1 && *factor <= 1e6)) {
      throw InputError(option + "the factor must be a number from 1 to 1000000");
    }
    policy.factor = *factor;
  }
  return policy;
}

}  // namespace kiv
