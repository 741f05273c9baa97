#pragma once

#include <CLI/App.hpp>
#include <fstream>
#include <iosfwd>
#include <memory>
#include <string>

#include "framework/networks/observer.h"
#include "solver/language/compiled_model.h"

namespace kiv {

// What the command line says about tracing.
struct TraceOptions {
  std::string form;  // "text", "json" or empty
  std::string file;  // empty for standard error

  void AddTo(CLI::App& command);
  bool IsAsked() const { return !form.empty() || !file.empty(); }
  // Whether the trace stands on standard error, where nothing may disturb it.
  bool UsesStandardError() const { return !form.empty() && file.empty(); }
};

// Writes a line for each variable that a step of the network narrows, and for each contradiction.
class Trace {
 public:
  // From now on the model's network is traced as `options` ask, until this goes. Throws InputError
  // when the file cannot be opened.
  Trace(const TraceOptions& options, CompiledModel& model);
  ~Trace();
  Trace(const Trace&) = delete;
  Trace& operator=(const Trace&) = delete;

  // Throws OutputError when what was written did not arrive.
  void Finish();

 private:
  std::ofstream file_;
  std::string name_;
  std::unique_ptr<KivOmbiNetworkObserver> observer_;
  CompiledModel& model_;
};

}  // namespace kiv
