#include <algorithm>
#include <array>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "tools/kiv/commands.h"
#include "tools/kiv/output.h"

namespace kiv {
namespace {

using Row = KivOmbiCompoundObjectDescriptor;

struct OperatorsOptions {
  std::string module;  // empty for all
  bool tsv = false;
};

std::vector<const Row*> CollectRows(const std::vector<KivOmbiModule*>& modules) {
  std::vector<const Row*> rows;
  for (const KivOmbiModule* module : modules) {
    for (const KivOmbiObjectDescriptor* descriptor : module->GetObjectDescriptors()) {
      if (const Row* row = KivCast<Row>(descriptor)) rows.push_back(row);
    }
  }
  return rows;
}

std::string JoinKinds(const Row& row) {
  std::string names;
  for (const KivOmbiObjectDescriptor* kind : row.GetKinds()) {
    if (!names.empty()) names += ',';
    names += kind->GetName();
  }
  return names;
}

using Cells = std::array<std::string, 4>;

Cells MakeCells(const Row& row) {
  return {row.GetSymbol(), row.GetFactory(), JoinKinds(row), row.GetConstraint()->GetName()};
}

void PrintTsv(const std::vector<const Row*>& rows) {
  for (const Row* row : rows) {
    const Cells cells = MakeCells(*row);
    std::cout << cells[0] << '\t' << cells[1] << '\t' << cells[2] << '\t' << cells[3] << '\n';
  }
}

void PrintTable(const std::vector<const Row*>& rows) {
  std::vector<Cells> table = {{"SYMBOL", "FACTORY", "KINDS", "CONSTRAINT"}};
  for (const Row* row : rows) {
    table.push_back(MakeCells(*row));
    if (!row->GetConstraint()->CanPropagate()) table.back()[3] += " (cannot propagate yet)";
  }
  std::array<std::size_t, 3> widths = {};
  for (const Cells& cells : table) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      widths[i] = std::max(widths[i], cells[i].size());
    }
  }
  for (const Cells& cells : table) {
    for (std::size_t i = 0; i < widths.size(); ++i) {
      std::cout << cells[i] << std::string(widths[i] + 2 - cells[i].size(), ' ');
    }
    std::cout << cells.back() << '\n';
  }
}

ExitCode ListOperators(const OperatorsOptions& options, const ModuleOptions& modules) {
  KivOmbiModuleManager manager;
  std::vector<const Row*> rows;
  if (options.module.empty()) {
    OpenModules(modules, manager);
    rows = CollectRows(manager.GetModules());
  } else {
    KivOmbiModule* module = manager.OpenModule(options.module);
    if (module == nullptr) throw InputError(manager.GetError());
    rows = CollectRows({module});
  }
  options.tsv ? PrintTsv(rows) : PrintTable(rows);
  return kSolved;
}

}  // namespace

void AddOperatorsCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result) {
  const auto options = std::make_shared<OperatorsOptions>();
  CLI::App* command = app.add_subcommand("operators", "Lists the operators that models can use");
  command->add_option("--module", options->module, "Lists only those that this module registers")
      ->type_name("MODULE");
  command->add_flag("--tsv", options->tsv,
                    "One line for each, in order of registration: symbol, factory, kinds, "
                    "constraint, separated by tabs");
  command->footer(
      "Examples:\n"
      "  kiv operators\n"
      "  kiv operators --module KivOmbEnumIntegers --tsv | wc -l");
  command->callback([options, &modules, &result] { result = ListOperators(*options, modules); });
}

}  // namespace kiv
