#include "tests/solver/flatzinc/posted_text.h"

#include <stdexcept>

#include "solver/flatzinc/poster_table.h"
#include "solver/flatzinc/reader.h"
#include "tests/support/modules.h"

namespace kiv::test {
namespace {

const Vocabulary& AllWords() {
  static const Vocabulary vocabulary(OpenModules().manager.GetModules());
  return vocabulary;
}

}  // namespace

PostedText::PostedText(std::string_view text)
    : model(flatzinc::ReadModel(text)), builder(model, AllWords(), network) {
  flatzinc::PostConstraints(builder);
}

KivOmbNetwork::VariableId PostedText::Find(std::string_view name) const {
  for (std::uint32_t i = 0; i < model.variables.size(); ++i) {
    if (model.names[model.variables[i].name] == name) return builder.GetVariable(i);
  }
  throw std::runtime_error("no variable " + std::string(name));
}

}  // namespace kiv::test
