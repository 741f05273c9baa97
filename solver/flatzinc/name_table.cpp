#include "solver/flatzinc/name_table.h"

#include <functional>

namespace kiv::flatzinc {

NameTable::NameTable(std::vector<std::string>& names) : names_(names), slots_(1024) {}

std::uint32_t NameTable::Find(std::string_view name) {
  const auto hash = static_cast<std::uint32_t>(std::hash<std::string_view>()(name));
  const std::size_t mask = slots_.size() - 1;
  std::size_t place = hash & mask;
  for (; slots_[place].name != kFree; place = (place + 1) & mask) {
    const Slot slot = slots_[place];
    if (slot.hash == hash && names_[slot.name] == name) return slot.name;
  }
  const auto added = static_cast<std::uint32_t>(names_.size());
  names_.emplace_back(name);
  meanings_.emplace_back(Expression::Kind::kName, added);
  slots_[place] = {hash, added};
  if (names_.size() * 2 > slots_.size()) Grow();
  return added;
}

void NameTable::Grow() {
  std::vector<Slot> slots(slots_.size() * 2);
  const std::size_t mask = slots.size() - 1;
  for (const Slot slot : slots_) {
    if (slot.name == kFree) continue;
    std::size_t place = slot.hash & mask;
    while (slots[place].name != kFree) place = (place + 1) & mask;
    slots[place] = slot;
  }
  slots_ = std::move(slots);
}

}  // namespace kiv::flatzinc
