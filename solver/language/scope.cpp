#include "solver/language/scope.h"

#include <algorithm>
#include <utility>

namespace kiv {

const Scope::Entry* Scope::Find(const std::string& name) const {
  const auto found = entries_.find(name);
  return found != entries_.end() ? &found->second : nullptr;
}

bool Scope::Declare(const std::string& name, Meaning meaning, SourceRange declared) {
  return entries_.try_emplace(name, Entry{std::move(meaning), declared}).second;
}

void Scope::Remove(const std::string& name) { entries_.erase(name); }

std::vector<std::string> Scope::GetNames() const {
  std::vector<std::string> names;
  for (const auto& [name, entry] : entries_) names.push_back(name);
  // In an order that does not depend on the hash.
  std::sort(names.begin(), names.end());
  return names;
}

bool DeclareName(Scope& scope, const Word& name, Scope::Meaning meaning, Diagnostics& diagnostics) {
  if (scope.Declare(name.text, std::move(meaning), name.range)) return true;
  const SourceRange first = scope.Find(name.text)->declared;
  diagnostics.Add(name.range, "the name '" + name.text + "' is declared already",
                  {"first at " + diagnostics.GetSource().DescribePosition(first.begin)});
  return false;
}

}  // namespace kiv
