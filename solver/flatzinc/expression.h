#pragma once

#include <cstdint>

namespace kiv::flatzinc {

// An expression of a FlatZinc text, its names resolved, in one word: a text of many megabytes is
// mostly expressions. What does not fit the word stands in a table of the Model, and the word holds
// its place there.
class Expression {
 public:
  enum class Kind : std::uint8_t {
    kBool,      // 0 or 1
    kInt,       // the value
    kFloat,     // a place in Model::floats
    kString,    // in Model::strings
    kSet,       // in Model::sets
    kArray,     // in Model::arrays
    kVariable,  // in Model::variables
    kName,      // in Model::names: an atom of an annotation
    kCall,      // in Model::calls: a compound annotation
    kFloatSet,  // in Model::float_sets
  };

  // Integers of a text have at most this magnitude.
  static constexpr std::int64_t kGreatestInt = (std::int64_t{1} << 59) - 1;

  Expression() = default;
  Expression(Kind kind, std::int64_t value)
      : word_(value * kKinds + static_cast<std::int64_t>(kind)) {}

  Kind GetKind() const noexcept { return static_cast<Kind>(word_ & (kKinds - 1)); }
  bool Is(Kind kind) const noexcept { return GetKind() == kind; }
  // Of kBool and kInt, of at most kGreatestInt either way.
  std::int64_t GetValue() const noexcept { return word_ >> kKindBits; }
  // Of all others.
  std::uint32_t GetPlace() const noexcept { return static_cast<std::uint32_t>(GetValue()); }

 private:
  static constexpr int kKindBits = 4;
  static constexpr std::int64_t kKinds = 1 << kKindBits;

  std::int64_t word_ = 0;  // value or place, and in the last bits the kind
};
static_assert(sizeof(Expression) == 8);

}  // namespace kiv::flatzinc
