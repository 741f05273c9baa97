#include "tools/kiv/bash_completion.h"

#include <cctype>
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

namespace kiv {
namespace {

std::vector<const CLI::App*> SubcommandsOf(const CLI::App& app) {
  return app.get_subcommands([](const CLI::App* command) { return !command->get_name().empty(); });
}

std::string Join(const std::vector<std::string>& words, const char* separator) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : separator) + word;
  return text;
}

// "-n", "--solutions".
std::vector<std::string> FlagsOf(const CLI::Option& option) {
  std::vector<std::string> flags;
  for (const std::string& name : option.get_snames()) flags.emplace_back("-").append(name);
  for (const std::string& name : option.get_lnames()) flags.emplace_back("--").append(name);
  return flags;
}

bool TakesValue(const CLI::Option& option) { return option.get_items_expected_max() > 0; }

// The values that a type in small letters names, "text|json" or "none|luby:N", up to where the user
// goes on. Other types are written "FILE".
std::string ValuesOf(const std::string& type) {
  if (type.empty() || std::islower(static_cast<unsigned char>(type.front())) == 0) return {};
  std::vector<std::string> values;
  std::istringstream parts(type);
  for (std::string part; std::getline(parts, part, '|');) {
    const std::size_t colon = part.find(':');
    values.push_back(colon == std::string::npos ? part : part.substr(0, colon + 1));
  }
  return Join(values, " ");
}

// What completes the word behind an option that takes a value.
std::string CompleteValue(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  if (type == "FILE") return "COMPREPLY=($(compgen -f -- \"$word\"))";
  const std::string values = ValuesOf(type);
  return values.empty() ? "COMPREPLY=()" : "_kiv_words \"" + values + '"';
}

std::string FlagsOf(const CLI::App& app) {
  std::vector<std::string> flags;
  for (const CLI::Option* option : app.get_options()) {
    for (std::string& flag : FlagsOf(*option)) flags.push_back(std::move(flag));
  }
  return Join(flags, " ");
}

void PrintValueCases(const CLI::App& app, const std::string& command, std::ostream& out) {
  for (const CLI::Option* option : app.get_options()) {
    const std::vector<std::string> flags = FlagsOf(*option);
    if (flags.empty() || !TakesValue(*option)) continue;
    std::vector<std::string> patterns;
    for (const std::string& flag : flags) patterns.emplace_back(command).append(" ").append(flag);
    out << "    \"" << Join(patterns, "\"|\"") << "\") " << CompleteValue(*option)
        << "; return ;;\n";
  }
}

// The words that can begin a subcommand's free arguments.
std::string CompleteArgument(const CLI::App& command) {
  for (const CLI::Option* option : command.get_options()) {
    if (!option->get_positional()) continue;
    if (option->get_type_name() == "FILE") return "_kiv_models";
    const std::string values = ValuesOf(option->get_type_name());
    if (!values.empty()) return "_kiv_words \"" + values + '"';
  }
  return "COMPREPLY=()";
}

constexpr const char* kHelpers = R"(_kiv_words() {
  COMPREPLY=($(compgen -W "$1" -- "$word"))
  # The user goes on behind a colon.
  [[ ${COMPREPLY[0]} == *: ]] && compopt -o nospace 2>/dev/null
}

_kiv_models() {
  local file
  COMPREPLY=()
  while IFS= read -r file; do
    if [[ -d $file || $file == *.kiv ]]; then COMPREPLY+=("$file"); fi
  done < <(compgen -f -- "$word")
  compopt -o filenames 2>/dev/null
}
)";

}  // namespace

void PrintBashCompletion(const CLI::App& app, std::ostream& out) {
  std::vector<std::string> names;
  for (const CLI::App* command : SubcommandsOf(app)) names.push_back(command->get_name());

  out << "# Completion of kiv in bash; written by 'kiv completion bash'.\n\n"
      << kHelpers << "\n_kiv() {\n"
      << "  local word=${COMP_WORDS[COMP_CWORD]} previous=${COMP_WORDS[COMP_CWORD-1]}\n"
      << "  local command= i\n"
      << "  for ((i = 1; i < COMP_CWORD; i++)); do\n"
      << "    case ${COMP_WORDS[i]} in\n"
      << "      " << Join(names, "|") << ") command=${COMP_WORDS[i]}; break ;;\n"
      << "    esac\n  done\n\n"
      << "  case \"$command $previous\" in\n";
  PrintValueCases(app, "", out);
  for (const CLI::App* command : SubcommandsOf(app)) {
    PrintValueCases(app, command->get_name(), out);
    PrintValueCases(*command, command->get_name(), out);
  }
  out << "  esac\n\n  case \"$command $word\" in\n"
      << "    \" -\"*) _kiv_words \"" << FlagsOf(app) << "\" ;;\n";
  for (const CLI::App* command : SubcommandsOf(app)) {
    out << "    \"" << command->get_name() << " -\"*) _kiv_words \"" << FlagsOf(*command) << ' '
        << FlagsOf(app) << "\" ;;\n"
        << "    \"" << command->get_name() << " \"*) " << CompleteArgument(*command) << " ;;\n";
  }
  out << "    *) _kiv_words \"" << Join(names, " ") << "\" ;;\n"
      << "  esac\n}\n\ncomplete -F _kiv kiv\n";
}

}  // namespace kiv
