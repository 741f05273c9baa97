// Reads a statement of the domain calculator from any text, and calls its operations.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "framework/calculator/module_manager.h"
#include "tools/kiv/domain_call.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

const kiv::Vocabulary& GetVocabulary() {
  static const kiv::Vocabulary vocabulary = [] {
    KivOmbiModuleManager manager;
    Require(manager.OpenModule("KivOmbEnumIntegers") != nullptr);
    return kiv::Vocabulary(manager.GetModules());
  }();
  return vocabulary;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const kiv::SourceText source("<fuzz>", std::string(data, data + size));
  kiv::Diagnostics diagnostics(source);
  const auto statement = kiv::ParseDomainStatement(source, GetVocabulary(), diagnostics);
  if (!statement) {
    Require(diagnostics.Count() == 1);
    const auto& range = diagnostics.GetAll()[0].range;
    Require(range && range->begin <= range->end && range->end <= size);
    std::ostringstream out;
    diagnostics.PrintOn(out);
    Require(!out.str().empty());
    return 0;
  }
  Require(diagnostics.IsEmpty());
  for (const kiv::DomainCall& call : kiv::CallOperations(*statement)) {
    Require(call.result == 0 || call.result == 1);
  }
  return 0;
}
