#include "tests/tools/fzn_kiv.h"

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <utility>

namespace kiv::test {
namespace {

constexpr int kPigeons = 14;

std::string PigeonName(int i) { return "p" + std::to_string(i); }

std::string DeclarePigeons(int holes) {
  std::string text;
  for (int i = 1; i <= kPigeons; ++i) {
    text += "var 1.." + std::to_string(holes) + ": " + PigeonName(i) + " :: output_var;\n";
  }
  return text;
}

std::string TellThemApart() {
  std::string text;
  for (int i = 1; i <= kPigeons; ++i) {
    for (int j = i + 1; j <= kPigeons; ++j) {
      text += "constraint int_ne(" + PigeonName(i) + ", " + PigeonName(j) + ");\n";
    }
  }
  return text;
}

}  // namespace

CommandResult RunFznKiv(const std::string& text, std::vector<std::string> arguments,
                        CommandSettings settings) {
  settings.program = FZN_KIV_COMMAND;
  settings.input = text;
  arguments.push_back("-");
  return RunKiv(arguments, settings);
}

CommandResult RunScript(const std::string& script, const std::vector<std::string>& texts) {
  std::string folder = (std::filesystem::temp_directory_path() / "fzn_kiv_XXXXXX").string();
  if (mkdtemp(folder.data()) == nullptr) throw std::runtime_error("no folder for a test");
  std::vector<std::string> arguments = {
      "-c", "fzn_kiv=" FZN_KIV_COMMAND "; cd " + folder + "; " + script, "bash"};
  for (std::size_t i = 0; i < texts.size(); ++i) {
    arguments.push_back(folder + "/text" + std::to_string(i + 1) + ".fzn");
    std::ofstream(arguments.back()) << texts[i];
  }
  CommandSettings settings;
  settings.program = "/bin/bash";
  const CommandResult result = RunKiv(arguments, settings);
  std::filesystem::remove_all(folder);
  return result;
}

std::string Pigeons() {
  return DeclarePigeons(kPigeons - 1) + TellThemApart() + "solve satisfy;\n";
}

std::string PigeonOptimisation() {
  std::string text = DeclarePigeons(kPigeons) + "var 0..1: e :: output_var;\n" + TellThemApart();
  std::string names;
  for (int i = 1; i <= kPigeons; ++i) {
    const std::string name = PigeonName(i);
    names += ", " + name;
    text += "constraint int_lin_le([1, -1], [" + name + ", e], " + std::to_string(kPigeons - 1) +
            ");\n";
  }
  return text + "solve :: int_search([e" + names +
         "], input_order, indomain_max, complete) minimize e;\n";
}

}  // namespace kiv::test
