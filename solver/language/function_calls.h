#pragma once

#include <optional>

#include "solver/language/call_vocabulary.h"

// The values of calls that are functions, as GetCallEntries lists them. Nothing, reported, when the
// arguments do not go together.
namespace kiv {

std::optional<Operand> ApplyAmong(const CallSite& site);
std::optional<Operand> ApplyCountOf(const CallSite& site);
std::optional<Operand> ApplyGreatest(const CallSite& site);
std::optional<Operand> ApplyInt(const CallSite& site);
std::optional<Operand> ApplyLeast(const CallSite& site);
std::optional<Operand> ApplyNumberOfValues(const CallSite& site);
std::optional<Operand> ApplySum(const CallSite& site);

}  // namespace kiv
