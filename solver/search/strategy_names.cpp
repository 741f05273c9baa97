#include "solver/search/strategy_names.h"

#include <array>
#include <utility>

namespace kiv {
namespace {

template <class Choice, std::size_t kCount>
using Names = std::array<std::pair<std::string_view, Choice>, kCount>;

constexpr Names<VariableChoice, 9> kVariableChoices = {
    {{"input_order", VariableChoice::kInputOrder},
     {"first_fail", VariableChoice::kFirstFail},
     {"anti_first_fail", VariableChoice::kAntiFirstFail},
     {"smallest", VariableChoice::kSmallest},
     {"largest", VariableChoice::kLargest},
     {"most_constrained", VariableChoice::kMostConstrained},
     {"max_regret", VariableChoice::kMaxRegret},
     {"dom_w_deg", VariableChoice::kDomWDeg},
     {"activity", VariableChoice::kActivity}}};

constexpr Names<ValueChoice, 7> kValueChoices = {{{"smallest", ValueChoice::kSmallest},
                                                  {"greatest", ValueChoice::kGreatest},
                                                  {"lower_half", ValueChoice::kLowerHalf},
                                                  {"upper_half", ValueChoice::kUpperHalf},
                                                  {"middle", ValueChoice::kMiddle},
                                                  {"random", ValueChoice::kRandom},
                                                  {"from_below", ValueChoice::kFromBelow}}};

template <class Choice, std::size_t kCount>
std::optional<Choice> Find(std::string_view name, const Names<Choice, kCount>& choices) {
  for (const auto& [known, choice] : choices) {
    if (name == known) return choice;
  }
  return std::nullopt;
}

template <class Choice, std::size_t kCount>
std::vector<std::string> NamesOf(const Names<Choice, kCount>& choices) {
  std::vector<std::string> names;
  for (const auto& choice : choices) names.emplace_back(choice.first);
  return names;
}

}  // namespace

std::optional<VariableChoice> FindVariableChoice(std::string_view name) {
  return Find(name, kVariableChoices);
}

std::optional<ValueChoice> FindValueChoice(std::string_view name) {
  return Find(name, kValueChoices);
}

std::vector<std::string> GetVariableChoiceNames() { return NamesOf(kVariableChoices); }

std::vector<std::string> GetValueChoiceNames() { return NamesOf(kValueChoices); }

}  // namespace kiv
