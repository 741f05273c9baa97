#include "tools/kiv/domain_call.h"

#include <utility>

namespace kiv {
namespace {

DomainCall Call(const DomainStatement& statement, const DomainOperation& operation) {
  std::vector<DomainObject> objects;
  for (const DomainValue& value : statement.values) objects.push_back(value.Make());
  std::vector<KivOmbiAny*> called;
  std::vector<std::string> names;
  for (const unsigned role : operation.roles) {
    const std::size_t value = statement.operands[role];
    called.push_back(&*objects[value]);
    names.push_back(statement.values[value].name);
  }
  const std::size_t target = statement.operands[operation.target];
  const int result = operation.call(called);
  return {operation,
          names.front(),
          {names.begin() + 1, names.end()},
          statement.values[target],
          statement.values[target].Make(),
          std::move(objects[target]),
          result};
}

}  // namespace

std::vector<DomainCall> CallOperations(const DomainStatement& statement) {
  std::vector<DomainCall> calls;
  for (const DomainOperation& operation : statement.op->operations) {
    if (statement.values[statement.operands[operation.target]].is_target) {
      calls.push_back(Call(statement, operation));
    }
  }
  return calls;
}

}  // namespace kiv
