#pragma once

#include <string>
#include <vector>

#include "tools/kiv/domain_statement.h"

namespace kiv {

// One call of an operation and what it did. Refers to the statement, which must outlive it.
struct DomainCall {
  const DomainOperation& operation;
  std::string receiver;
  std::vector<std::string> arguments;
  const DomainValue& target;  // what was narrowed
  DomainObject before;
  DomainObject after;
  int result;  // 0 unchanged, 1 narrowed or made Nil
};

// Calls each operation of the statement that narrows a value that is asked for. Each call is on new
// objects, so that none sees what another did; a value that stands in several places is one object.
std::vector<DomainCall> CallOperations(const DomainStatement& statement);

}  // namespace kiv
