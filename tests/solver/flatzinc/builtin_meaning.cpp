#include "tests/solver/flatzinc/builtin_meaning.h"

#include <algorithm>
#include <map>
#include <ranges>

namespace kiv::test {
namespace {

using Arguments = BuiltinArguments;
using Integers = std::vector<std::int64_t>;

std::int64_t One(const Arguments& a, std::size_t i) { return a[i].at(0); }

bool AreTrue(const Integers& values) {
  return std::ranges::all_of(values, [](std::int64_t value) { return value == 1; });
}
bool HasTrue(const Integers& values) { return std::ranges::count(values, 1) > 0; }
bool HasFalse(const Integers& values) { return std::ranges::count(values, 0) > 0; }

__int128 Sum(const Arguments& a) {
  __int128 sum = 0;
  for (std::size_t i = 0; i < a[0].size(); ++i) {
    sum += static_cast<__int128>(a[0][i]) * a[1].at(i);
  }
  return sum;
}

bool IsPower(std::int64_t x, std::int64_t y, std::int64_t z) {
  if (y < 0 && x == 0) return false;
  std::int64_t power = 1;
  for (std::int64_t i = 0; i < std::abs(y); ++i) power *= x;
  return z == (y < 0 ? 1 / power : power);
}

bool IsElement(const Arguments& a) {
  const std::int64_t index = One(a, 0);
  return 1 <= index && index <= static_cast<std::int64_t>(a[1].size()) &&
         a[1][static_cast<std::size_t>(index - 1)] == One(a, 2);
}

const std::map<std::string_view, BuiltinMeaning::Predicate>& Meanings() {
  static const std::map<std::string_view, BuiltinMeaning::Predicate> meanings = {
      {"int_eq", [](const Arguments& a) { return One(a, 0) == One(a, 1); }},
      {"int_ne", [](const Arguments& a) { return One(a, 0) != One(a, 1); }},
      {"int_le", [](const Arguments& a) { return One(a, 0) <= One(a, 1); }},
      {"int_lt", [](const Arguments& a) { return One(a, 0) < One(a, 1); }},
      {"bool_eq", [](const Arguments& a) { return One(a, 0) == One(a, 1); }},
      {"bool_ne", [](const Arguments& a) { return One(a, 0) != One(a, 1); }},
      {"bool_not", [](const Arguments& a) { return One(a, 0) != One(a, 1); }},
      {"bool_le", [](const Arguments& a) { return One(a, 0) == 0 || One(a, 1) == 1; }},
      {"bool_lt", [](const Arguments& a) { return One(a, 0) == 0 && One(a, 1) == 1; }},
      {"bool2int", [](const Arguments& a) { return One(a, 0) == One(a, 1); }},

      {"int_abs", [](const Arguments& a) { return std::abs(One(a, 0)) == One(a, 1); }},
      {"int_plus", [](const Arguments& a) { return One(a, 0) + One(a, 1) == One(a, 2); }},
      {"int_minus", [](const Arguments& a) { return One(a, 0) - One(a, 1) == One(a, 2); }},
      {"int_times", [](const Arguments& a) { return One(a, 0) * One(a, 1) == One(a, 2); }},
      {"int_div",
       [](const Arguments& a) { return One(a, 1) != 0 && One(a, 0) / One(a, 1) == One(a, 2); }},
      {"int_mod",
       [](const Arguments& a) { return One(a, 1) != 0 && One(a, 0) % One(a, 1) == One(a, 2); }},
      {"int_min", [](const Arguments& a) { return std::min(One(a, 0), One(a, 1)) == One(a, 2); }},
      {"int_max", [](const Arguments& a) { return std::max(One(a, 0), One(a, 1)) == One(a, 2); }},
      {"int_pow", [](const Arguments& a) { return IsPower(One(a, 0), One(a, 1), One(a, 2)); }},
      {"int_pow_fixed",
       [](const Arguments& a) { return IsPower(One(a, 0), One(a, 1), One(a, 2)); }},

      {"int_lin_eq", [](const Arguments& a) { return Sum(a) == One(a, 2); }},
      {"int_lin_ne", [](const Arguments& a) { return Sum(a) != One(a, 2); }},
      {"int_lin_le", [](const Arguments& a) { return Sum(a) <= One(a, 2); }},
      {"int_lin_lt", [](const Arguments& a) { return Sum(a) < One(a, 2); }},
      {"bool_lin_eq", [](const Arguments& a) { return Sum(a) == One(a, 2); }},
      {"bool_lin_ne", [](const Arguments& a) { return Sum(a) != One(a, 2); }},
      {"bool_lin_le", [](const Arguments& a) { return Sum(a) <= One(a, 2); }},
      {"bool_lin_lt", [](const Arguments& a) { return Sum(a) < One(a, 2); }},

      {"bool_clause", [](const Arguments& a) { return HasTrue(a[0]) || HasFalse(a[1]); }},
      {"bool_xor",
       [](const Arguments& a) {
         const bool differ = One(a, 0) != One(a, 1);
         return a.size() == 2 ? differ : differ == (One(a, 2) == 1);
       }},
      {"array_bool_xor", [](const Arguments& a) { return std::ranges::count(a[0], 1) % 2 == 1; }},

      {"array_int_element", IsElement},
      {"array_bool_element", IsElement},
      {"array_var_int_element", IsElement},
      {"array_var_bool_element", IsElement},
      {"array_int_maximum",
       [](const Arguments& a) { return !a[1].empty() && std::ranges::max(a[1]) == One(a, 0); }},
      {"array_int_minimum",
       [](const Arguments& a) { return !a[1].empty() && std::ranges::min(a[1]) == One(a, 0); }},

      {"set_in", [](const Arguments& a) { return std::ranges::count(a[1], One(a, 0)) > 0; }},

      // The last argument of these is the truth of the connective already.
      {"bool_and",
       [](const Arguments& a) { return (One(a, 2) == 1) == (One(a, 0) + One(a, 1) == 2); }},
      {"bool_and_reif",
       [](const Arguments& a) { return (One(a, 2) == 1) == (One(a, 0) + One(a, 1) == 2); }},
      {"bool_and_imp",
       [](const Arguments& a) { return One(a, 2) == 0 || One(a, 0) + One(a, 1) == 2; }},
      {"bool_or",
       [](const Arguments& a) { return (One(a, 2) == 1) == (One(a, 0) + One(a, 1) > 0); }},
      {"bool_or_reif",
       [](const Arguments& a) { return (One(a, 2) == 1) == (One(a, 0) + One(a, 1) > 0); }},
      {"bool_or_imp",
       [](const Arguments& a) { return One(a, 2) == 0 || One(a, 0) + One(a, 1) > 0; }},
      {"array_bool_and", [](const Arguments& a) { return (One(a, 1) == 1) == AreTrue(a[0]); }},
      {"array_bool_and_reif", [](const Arguments& a) { return (One(a, 1) == 1) == AreTrue(a[0]); }},
      {"array_bool_and_imp", [](const Arguments& a) { return One(a, 1) == 0 || AreTrue(a[0]); }},
      {"array_bool_or", [](const Arguments& a) { return (One(a, 1) == 1) == HasTrue(a[0]); }},
      {"array_bool_or_reif", [](const Arguments& a) { return (One(a, 1) == 1) == HasTrue(a[0]); }},
      {"array_bool_or_imp", [](const Arguments& a) { return One(a, 1) == 0 || HasTrue(a[0]); }},
  };
  return meanings;
}

}  // namespace

std::optional<BuiltinMeaning> BuiltinMeaning::Find(std::string_view name) {
  constexpr std::pair<std::string_view, Form> kForms[] = {
      {"", Form::kPlain}, {"_reif", Form::kReified}, {"_imp", Form::kImplied}};
  for (const auto& [suffix, form] : kForms) {
    if (!name.ends_with(suffix)) continue;
    const auto found = Meanings().find(name.substr(0, name.size() - suffix.size()));
    if (found != Meanings().end()) return BuiltinMeaning(found->second, form);
  }
  return std::nullopt;
}

bool BuiltinMeaning::Holds(BuiltinArguments arguments) const {
  if (form_ == Form::kPlain) return holds_(arguments);
  const bool truth = arguments.back().at(0) == 1;
  arguments.pop_back();
  return form_ == Form::kReified ? truth == holds_(arguments) : !truth || holds_(arguments);
}

}  // namespace kiv::test
