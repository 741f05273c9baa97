#pragma once

#include <CLI/App.hpp>
#include <iosfwd>

namespace kiv {

// Writes a script that completes the command line of `app` in bash: its subcommands, the options of
// each, the values of options whose type names them ("text|json"), and files. An option or argument
// of type FILE takes any file, the MODEL among them one that ends with ".kiv".
void PrintBashCompletion(const CLI::App& app, std::ostream& out);

}  // namespace kiv
