#include "solver/flatzinc/number_token.h"

#include <charconv>
#include <string>
#include <system_error>

#include "solver/flatzinc/error.h"
#include "solver/flatzinc/expression.h"
#include "solver/language/token_description.h"

namespace kiv::flatzinc {
namespace {

[[noreturn]] void RefuseInteger(std::string_view token, std::uint32_t offset) {
  throw Error(offset, "the integer " + QuoteWord(token) + " is outside " +
                          std::to_string(-Expression::kGreatestInt) + ".." +
                          std::to_string(Expression::kGreatestInt));
}

std::int64_t ParsePrefixed(std::string_view token, bool is_negative, std::uint32_t offset) {
  const std::string_view digits = token.substr(is_negative ? 3 : 2);
  const int base = digits.data()[-1] == 'x' ? 16 : 8;
  std::int64_t value = 0;
  const auto [end, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
  if (error != std::errc() || value > Expression::kGreatestInt) RefuseInteger(token, offset);
  return is_negative ? -value : value;
}

}  // namespace

std::variant<std::int64_t, double> ParseNumber(std::string_view token, std::uint32_t offset) {
  const char* const begin = token.data();
  const char* const end = begin + token.size();
  const bool is_negative = *begin == '-';
  const std::size_t second = is_negative ? 2 : 1;
  if (token.size() > second && (begin[second] == 'x' || begin[second] == 'o')) {
    return ParsePrefixed(token, is_negative, offset);
  }

  std::int64_t integer = 0;
  const auto [rest, integer_error] = std::from_chars(begin, end, integer);
  if (rest == end) {
    const bool fits = integer_error == std::errc() && integer <= Expression::kGreatestInt &&
                      integer >= -Expression::kGreatestInt;
    if (!fits) RefuseInteger(token, offset);
    return integer;
  }
  double number = 0;
  if (std::from_chars(begin, end, number).ec != std::errc()) {
    throw Error(offset,
                "the number " + QuoteWord(token) + " is too great or too small for a float");
  }
  return number;
}

}  // namespace kiv::flatzinc
