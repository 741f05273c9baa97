#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "tools/kiv/commands.h"
#include "tools/kiv/domain_call.h"
#include "tools/kiv/domain_json.h"

namespace kiv {
namespace {

struct DomainOptions {
  std::string statement;
  bool json = false;
};

void PrintText(const std::vector<DomainCall>& calls) {
  for (const DomainCall& call : calls) {
    std::cout << call.receiver << '.' << call.operation.name << '(';
    for (std::size_t i = 0; i < call.arguments.size(); ++i) {
      std::cout << (i > 0 ? ", " : "") << call.arguments[i];
    }
    std::cout << ") = " << call.result << "\n  " << call.target.name << " = " << TextOf(*call.after)
              << '\n';
  }
}

void PrintJson(const DomainStatement& statement, const std::vector<DomainCall>& calls) {
  Json operations = Json::array();
  for (const DomainCall& call : calls) {
    operations.push_back({{"operation", call.operation.name},
                          {"receiver", call.receiver},
                          {"arguments", call.arguments},
                          {"target", call.target.name},
                          {"result", call.result},
                          {"before", DescribeDomain(call.target.kind->GetName(), *call.before)},
                          {"after", DescribeDomain(call.target.kind->GetName(), *call.after)}});
  }
  const Json json = {{"operator", statement.op->symbol}, {"operations", operations}};
  std::cout << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

ExitCode Calculate(const DomainOptions& options, const ModuleOptions& modules) {
  KivOmbiModuleManager manager;
  OpenModules(modules, manager);
  const Vocabulary vocabulary(manager.GetModules());
  const SourceText source("<statement>", options.statement);
  Diagnostics diagnostics(source);
  const auto statement = ParseDomainStatement(source, vocabulary, diagnostics);
  if (!statement) {
    diagnostics.PrintOn(std::cerr);
    return kBadInput;
  }
  const std::vector<DomainCall> calls = CallOperations(*statement);
  options.json ? PrintJson(*statement, calls) : PrintText(calls);
  return kSolved;
}

}  // namespace

void AddDomainCommand(CLI::App& app, const ModuleOptions& modules, ExitCode& result) {
  const auto options = std::make_shared<DomainOptions>();
  CLI::App* command =
      app.add_subcommand("domain", "Calculates with domains, one operation at a time");
  command
      ->add_option("STATEMENT", options->statement,
                   "One operator applied to domains; behind -- if it begins with a minus sign")
      ->required()
      ->type_name("TEXT");
  command->add_flag("--json", options->json, "Prints the operations and domains as JSON");
  command->footer(
      "Calls each operation that narrows a declared name or the result, always on the domains as\n"
      "given, and prints the call with its result code (0 unchanged, 1 narrowed) and the domain "
      "it\n"
      "leaves. Kinds are 'enum int' unless given: 'x : interval int in [1, 9]', '(int) 5'.\n"
      "Operators: z = x + y  - * / mod ^ /\\ \\/; z = - x, abs, next, prev, sign;\n"
      "x = y  <> < <= > >=; t = x == y  << <== >> >==.\n"
      "Examples:\n"
      "  kiv domain '{ 1, 5, 9 } + [1, 3]'\n"
      "  kiv domain 'x in { 1, 5, 9 }: x < 7'\n"
      "  kiv domain 'z in Any, x in { 1, 2 }, y in { 5, 6 }: z = x + y'\n"
      "  kiv domain --json 'x : interval int in [1, 9]: x <> 9'");
  command->callback([options, &modules, &result] { result = Calculate(*options, modules); });
}

}  // namespace kiv
