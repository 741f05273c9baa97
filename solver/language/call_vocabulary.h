#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "framework/base/export.h"
#include "solver/language/integer_set.h"
#include "solver/language/operand.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

class NetworkBuilder;
class OperatorCompiler;

// What a parameter of a call takes.
enum class ParameterKind {
  kIntegers,   // a list
  kInteger,    // a single one
  kTruth,      // a single truth value
  kConstants,  // a list of constant integers
  kTuples,     // a list of rows of constant integers, all of one length
  kSet,        // constant integers, as behind `in`
};

// An argument, computed for its parameter.
struct CallArgument {
  SourceRange range;
  std::vector<Operand> operands;          // integers, or a single value
  std::int64_t first = 1;                 // the index of the first one, an integer of models
  std::vector<std::int32_t> constants;    // row by row
  std::optional<std::size_t> row_length;  // of tuples, where the list tells it
};

// One call in a model.
struct CallSite {
  Word name;
  SourceRange range;
  std::vector<CallArgument> arguments;
  std::vector<Word> annotations;
  NetworkBuilder& builder;
  OperatorCompiler& operators;
};

// What a model can call by name, beside the operators of modules.
struct CallEntry {
  std::string_view name;
  std::string_view signature;
  std::string_view meaning;
  // All arguments together are the list that the only parameter takes.
  bool takes_any_number;
  std::vector<ParameterKind> parameters;
  std::vector<std::string_view> annotations;  // those that it knows
  // Posts what the call asserts; false, reported, when something is wrong. Null for a function.
  bool (*post)(const CallSite& site);
  // The value of the call; nothing, reported, when something is wrong. Null for a constraint.
  std::optional<Operand> (*apply)(const CallSite& site);
};

// All of them, by name.
KIV_EXPORT std::span<const CallEntry> GetCallEntries();
// Null when nothing has that name.
KIV_EXPORT const CallEntry* FindCallEntry(std::string_view name);

}  // namespace kiv
