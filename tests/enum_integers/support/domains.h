#pragma once

#include <cstdint>
#include <initializer_list>
#include <string>

#include "enum_integers/domain/enum_integer.h"

// Short ways to make domains and to look at them.
namespace kiv::test {

inline constexpr std::int32_t kMin = KivOmbSingleInteger::sNC_INT_MIN;
inline constexpr std::int32_t kMax = KivOmbSingleInteger::sNC_INT_MAX;

// Built by insertion into Nil: the leftover flag is that of Nil.
KivOmbEnumInteger Set(std::initializer_list<std::int32_t> values);
// The same values with the leftover flag of Any.
KivOmbEnumInteger SetLeftAny(std::initializer_list<std::int32_t> values);
// Every integer from `lower` to `upper`; the leftover flag is that of Nil.
KivOmbEnumInteger Range(std::int32_t lower, std::int32_t upper);
KivOmbEnumInteger NilSet();

KivOmbSingleInteger NilSingle();
KivOmbIntervalInteger Interval(std::int32_t lower, std::int32_t upper);
KivOmbIntervalInteger NilInterval();

// The text form of any object.
std::string Text(const KivOmbiObject& object);

// The flag of a domain, which decides its state when it holds no values; seen in its stream form.
int Flag(const KivOmbEnumInteger& domain);

}  // namespace kiv::test
