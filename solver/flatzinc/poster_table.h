#pragma once

#include <span>
#include <string_view>
#include <vector>

#include "framework/base/export.h"
#include "solver/flatzinc/posting.h"

namespace kiv::flatzinc {

// The posters of one family of constraints each.
std::span<const Poster> ArithmeticPosters();
std::span<const Poster> ComparisonPosters();
std::span<const Poster> LinearPosters();
std::span<const Poster> BooleanPosters();
std::span<const Poster> ElementPosters();
std::span<const Poster> MembershipPosters();
std::span<const Poster> DistinctPosters();
std::span<const Poster> CountingPosters();
std::span<const Poster> GraphPosters();
std::span<const Poster> OrderingPosters();
std::span<const Poster> SchedulingPosters();
std::span<const Poster> ExtensionalPosters();
std::span<const Poster> PackingPosters();
std::span<const Poster> IndexedElementPosters();

// All of them.
KIV_EXPORT std::vector<const Poster*> ListPosters();

// The poster of this name, or null.
KIV_EXPORT const Poster* FindPoster(std::string_view name);

// Posts all constraints of the builder's model. Throws Error for a constraint that is not known, by
// its name, or whose arguments are not of its types.
KIV_EXPORT void PostConstraints(Builder& builder);

}  // namespace kiv::flatzinc
