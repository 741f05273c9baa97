#pragma once

namespace kiv {

// What a model asks for.
enum class GoalKind {
  kSatisfy,   // a solution
  kAll,       // all solutions
  kMinimize,  // a solution in which an integer is as small as possible
  kMaximize,  // a solution in which it is as great as possible
};

}  // namespace kiv
