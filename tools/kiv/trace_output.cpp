#include "tools/kiv/trace_output.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <iostream>
#include <optional>
#include <ostream>
#include <span>
#include <utility>
#include <vector>

#include "tools/kiv/model_json.h"
#include "tools/kiv/output.h"

namespace kiv {
namespace {

using VariableId = KivOmbNetwork::VariableId;
using ConstraintId = KivOmbNetwork::ConstraintId;

// Keeps what a step may change and compares it with what it left.
class Tracer final : public KivOmbiNetworkObserver {
 public:
  Tracer(const CompiledModel& model, std::ostream& out, bool json)
      : model_(model), out_(out), json_(json) {}

  void BeforeStep(const KivOmbNetwork& network, std::optional<ConstraintId>,
                  std::span<const VariableId> variables) override {
    before_.clear();
    for (const VariableId variable : variables) {
      before_.push_back(TextOf(network.GetDomain(variable)));
    }
  }

  void AfterStep(const KivOmbNetwork& network, std::optional<ConstraintId> constraint,
                 std::span<const VariableId> variables) override {
    for (std::size_t i = 0; i < variables.size(); ++i) {
      const auto earlier = variables.first(i);
      if (std::find(earlier.begin(), earlier.end(), variables[i]) != earlier.end()) continue;
      const std::string after = TextOf(network.GetDomain(variables[i]));
      if (after != before_[i]) Narrowed(constraint, variables[i], before_[i], after);
    }
    if (constraint && network.GetCulprit() == constraint) Contradicted(*constraint);
  }

 private:
  // The name of a declared variable; a value of an expression is called by its number.
  std::string NameOf(VariableId variable) const {
    const std::string name = model_.NameOf(variable);
    return name.empty() ? '#' + std::to_string(variable) : name;
  }

  void Narrowed(std::optional<ConstraintId> constraint, VariableId variable,
                const std::string& before, const std::string& after) {
    const std::size_t level = model_.GetNetwork().GetLevel();
    if (json_) {
      Json line = {{"type", constraint ? "narrowing" : "decision"},
                   {"level", level},
                   {"variable", NameOf(variable)},
                   {"before", before},
                   {"after", after}};
      AddOrigin(constraint, line);
      out_ << JsonLine(line);
    } else {
      out_ << level << ' ' << NameOf(variable) << ": " << before << " -> " << after << " by "
           << (constraint ? model_.Describe(*constraint) : "decision") << '\n';
    }
  }

  void Contradicted(ConstraintId constraint) {
    const std::size_t level = model_.GetNetwork().GetLevel();
    if (json_) {
      Json line = {{"type", "contradiction"}, {"level", level}};
      AddOrigin(constraint, line);
      out_ << JsonLine(line);
    } else {
      out_ << level << " contradiction by " << model_.Describe(constraint) << '\n';
    }
  }

  void AddOrigin(std::optional<ConstraintId> constraint, Json& line) const {
    if (!constraint) return;
    line["constraint"] = *constraint;
    line.update(DescribeOrigin(model_, *constraint));
  }

  const CompiledModel& model_;
  std::ostream& out_;
  bool json_;
  std::vector<std::string> before_;  // the arguments of the step that is under way
};

}  // namespace

void TraceOptions::AddTo(CLI::App& command) {
  command.add_option("--trace", form, "Tells which constraint narrowed what, on standard error")
      ->type_name("text|json")
      ->check(CLI::IsMember({"text", "json"}).description(""));
  command.add_option("--trace-file", file, "Writes the trace to this file instead")
      ->type_name("FILE");
}

Trace::Trace(const TraceOptions& options, CompiledModel& model)
    : name_(options.file), model_(model) {
  if (!options.IsAsked()) return;
  if (!options.file.empty()) {
    errno = 0;
    file_.open(options.file);
    if (!file_) throw InputError(options.file + ": " + std::strerror(errno));
  }
  std::ostream& out = options.file.empty() ? std::cerr : file_;
  observer_ = std::make_unique<Tracer>(model, out, options.form == "json");
  model_.GetNetwork().SetObserver(observer_.get());
}

Trace::~Trace() { model_.GetNetwork().SetObserver(nullptr); }

void Trace::Finish() {
  if (name_.empty()) return;
  file_.close();
  if (!file_) throw OutputError("cannot write the trace to " + name_);
}

}  // namespace kiv
