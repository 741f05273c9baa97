#pragma once

#include <cstdint>
#include <string_view>
#include <variant>

namespace kiv::flatzinc {

// The value of a number as the grammar admits it: an integer, in decimal, after 0x in hexadecimal
// or after 0o in octal, or a float, where there is a fraction or an exponent. Throws Error at
// `offset` for an integer beyond Expression::kGreatestInt and a float that is none of a double.
std::variant<std::int64_t, double> ParseNumber(std::string_view token, std::uint32_t offset);

}  // namespace kiv::flatzinc
