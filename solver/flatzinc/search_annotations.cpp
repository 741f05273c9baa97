#include "solver/flatzinc/search_annotations.h"

#include <algorithm>
#include <array>
#include <optional>
#include <span>
#include <string_view>
#include <utility>

#include "solver/flatzinc/annotations.h"

namespace kiv::flatzinc {
namespace {

using Kind = Expression::Kind;

template <class Choice, std::size_t kCount>
using Names = std::array<std::pair<std::string_view, Choice>, kCount>;

constexpr Names<VariableChoice, 9> kVariableChoices = {
    {{"input_order", VariableChoice::kInputOrder},
     {"first_fail", VariableChoice::kFirstFail},
     {"anti_first_fail", VariableChoice::kAntiFirstFail},
     {"smallest", VariableChoice::kSmallest},
     {"largest", VariableChoice::kLargest},
     {"occurrence", VariableChoice::kOccurrence},
     {"most_constrained", VariableChoice::kMostConstrained},
     {"max_regret", VariableChoice::kMaxRegret},
     {"dom_w_deg", VariableChoice::kDomWDeg}}};

constexpr Names<ValueChoice, 11> kValueChoices = {
    {{"indomain", ValueChoice::kSmallest},
     {"indomain_min", ValueChoice::kSmallest},
     {"indomain_max", ValueChoice::kGreatest},
     {"indomain_median", ValueChoice::kMedian},
     {"indomain_middle", ValueChoice::kMiddle},
     {"indomain_random", ValueChoice::kRandom},
     {"indomain_split", ValueChoice::kUpToMiddle},
     {"indomain_reverse_split", ValueChoice::kBeyondMiddle},
     {"indomain_interval", ValueChoice::kUpToFirstGap},
     {"outdomain_min", ValueChoice::kButSmallest},
     {"outdomain_max", ValueChoice::kButGreatest}}};

constexpr Names<RestartPolicy::Kind, 5> kRestarts = {
    {{"restart_none", RestartPolicy::Kind::kNone},
     {"restart_constant", RestartPolicy::Kind::kConstant},
     {"restart_linear", RestartPolicy::Kind::kLinear},
     {"restart_geometric", RestartPolicy::Kind::kGeometric},
     {"restart_luby", RestartPolicy::Kind::kLuby}}};

template <class Choice, std::size_t kCount>
std::optional<Choice> Find(std::string_view name, const Names<Choice, kCount>& names) {
  const auto found = std::ranges::find(names, name, [](const auto& known) { return known.first; });
  return found != names.end() ? std::optional(found->second) : std::nullopt;
}

class Reader {
 public:
  explicit Reader(const Builder& builder) : builder_(builder), model_(builder.GetModel()) {}

  AnnotatedSearch Read() {
    const auto annotations = model_.Get(model_.solve.annotations);
    // Those still to read, the next one last: a seq_search is replaced by what it holds.
    std::vector<Expression> open(annotations.rbegin(), annotations.rend());
    while (!open.empty()) {
      const Expression annotation = open.back();
      open.pop_back();
      const auto parts = PartsOfSequence(annotation);
      if (parts) {
        open.insert(open.end(), parts->rbegin(), parts->rend());
      } else {
        ReadOne(annotation);
      }
    }
    return std::move(search_);
  }

 private:
  std::string_view NameOf(Expression annotation) const {
    return NameOfAnnotation(model_, annotation);
  }

  std::span<const Expression> ArgumentsOf(Expression annotation) const {
    return ArgumentsOfAnnotation(model_, annotation);
  }

  std::span<const Expression> ElementsOf(Expression array) const {
    return model_.Get(model_.arrays[array.GetPlace()]);
  }

  std::optional<std::span<const Expression>> PartsOfSequence(Expression annotation) const {
    const auto arguments = ArgumentsOf(annotation);
    const bool is_sequence = NameOf(annotation) == "seq_search" && arguments.size() == 1 &&
                             arguments[0].Is(Kind::kArray);
    if (!is_sequence) return std::nullopt;
    return ElementsOf(arguments[0]);
  }

  void ReadOne(Expression annotation) {
    const std::string_view name = NameOf(annotation);
    if (name == "int_search" || name == "bool_search") {
      ReadBlock(annotation);
    } else if (name == "restart_on_solution") {
      search_.restarts_on_solution = true;
    } else if (const auto kind = Find(name, kRestarts)) {
      ReadRestarts(*kind, annotation);
    } else if (name.starts_with("warm_start")) {
      Warn(name, "is ignored");
    } else {
      search_.remarks.push_back(Describe(name) + " is ignored");
    }
  }

  void ReadBlock(Expression annotation) {
    const auto arguments = ArgumentsOf(annotation);
    // The fourth argument is how much of the tree to visit; all of it always is.
    if (arguments.size() < 3 || !arguments[0].Is(Kind::kArray)) {
      return Warn(NameOf(annotation),
                  "is ignored: it takes an array, a choice of variables and "
                  "a choice of values");
    }
    StrategyBlock block;
    for (const Expression element : ElementsOf(arguments[0])) {
      if (!element.Is(Kind::kVariable)) continue;
      block.variables.push_back(builder_.GetVariable(element.GetPlace()));
    }
    block.variable_choice =
        FindOr(VariableChoice::kInputOrder, "input_order", NameOf(arguments[1]), kVariableChoices);
    block.value_choice =
        FindOr(ValueChoice::kSmallest, "indomain_min", NameOf(arguments[2]), kValueChoices);
    search_.strategy.push_back(std::move(block));
  }

  template <class Choice, std::size_t kCount>
  Choice FindOr(Choice substitute, std::string_view its_name, std::string_view name,
                const Names<Choice, kCount>& names) {
    const auto choice = Find(name, names);
    if (!choice) Warn(name, "is not known; " + std::string(its_name) + " stands for it");
    return choice.value_or(substitute);
  }

  // restart_geometric(factor, scale); the others have a scale alone.
  void ReadRestarts(RestartPolicy::Kind kind, Expression annotation) {
    const auto arguments = ArgumentsOf(annotation);
    const bool is_geometric = kind == RestartPolicy::Kind::kGeometric;
    const std::size_t count = kind == RestartPolicy::Kind::kNone ? 0 : is_geometric ? 2 : 1;
    const auto is_wrong = [&] {
      return arguments.size() != count || (count > 0 && !IsPositive(arguments.back())) ||
             (is_geometric && !FactorOf(arguments.front()));
    };
    if (is_wrong()) return Warn(NameOf(annotation), "is ignored: its arguments are wrong");
    RestartPolicy& restarts = search_.restarts.emplace();
    restarts.kind = kind;
    if (count > 0) restarts.scale = static_cast<std::uint64_t>(arguments.back().GetValue());
    if (is_geometric) restarts.factor = *FactorOf(arguments.front());
  }

  static bool IsPositive(Expression value) { return value.Is(Kind::kInt) && value.GetValue() > 0; }

  // A number that is no less than 1.
  std::optional<double> FactorOf(Expression value) const {
    double factor = 0;
    if (value.Is(Kind::kInt)) factor = static_cast<double>(value.GetValue());
    if (value.Is(Kind::kFloat)) factor = model_.floats[value.GetPlace()];
    return factor >= 1 ? std::optional(factor) : std::nullopt;
  }

  static std::string Describe(std::string_view name) {
    if (name.empty()) return "an annotation of the search";
    return "the annotation '" + std::string(name) + '\'';
  }
  void Warn(std::string_view name, const std::string& text) {
    search_.warnings.push_back(Describe(name) + ' ' + text);
  }

  const Builder& builder_;
  const Model& model_;
  AnnotatedSearch search_;
};

}  // namespace

AnnotatedSearch ReadSearchAnnotations(const Builder& builder) { return Reader(builder).Read(); }

}  // namespace kiv::flatzinc
