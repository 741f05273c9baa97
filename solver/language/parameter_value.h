#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace kiv {

struct ParameterValue;
using ParameterList = std::vector<ParameterValue>;

// A value for a parameter that comes from outside of the model: an integer, a truth value or a list
// of values.
struct ParameterValue : std::variant<std::int64_t, bool, ParameterList> {
  using variant::variant;
};

// "12", "true" or "a list of 3".
inline std::string Describe(const ParameterValue& value) {
  if (const auto* integer = std::get_if<std::int64_t>(&value)) return std::to_string(*integer);
  if (const auto* truth = std::get_if<bool>(&value)) return *truth ? "true" : "false";
  return "a list of " + std::to_string(std::get<ParameterList>(value).size());
}

}  // namespace kiv
