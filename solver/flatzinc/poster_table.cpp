#include "solver/flatzinc/poster_table.h"

#include <cctype>
#include <ranges>
#include <string>
#include <unordered_map>
#include <vector>

#include "solver/flatzinc/error.h"

namespace kiv::flatzinc {
namespace {

using Kind = Expression::Kind;

std::unordered_map<std::string_view, const Poster*> MakeTable() {
  std::unordered_map<std::string_view, const Poster*> table;
  for (const Poster* poster : ListPosters()) table.emplace(poster->name, poster);
  return table;
}

// The type of one argument, as Poster::types writes it.
struct ArgumentType {
  char letter;  // in lower case
  bool is_array;
  bool is_constant;
};

std::vector<ArgumentType> ParseTypes(std::string_view types) {
  std::vector<ArgumentType> parsed;
  bool is_constant = false;
  for (const char letter : types) {
    if (letter == '=') {
      is_constant = true;
      continue;
    }
    const auto code = static_cast<unsigned char>(letter);
    parsed.push_back({static_cast<char>(std::tolower(code)), std::isupper(code) != 0, is_constant});
    is_constant = false;
  }
  return parsed;
}

std::string Describe(const ArgumentType& type) {
  std::string text = type.is_array ? "an array of " : "";
  if (type.letter == 's') return text + (type.is_array ? "sets" : "a set") + " of integers";
  const std::string what = type.letter == 'b' ? "boolean" : "integer";
  if (type.is_constant)
    return text + (type.is_array ? "" : "a ") + "constant " + what + (type.is_array ? "s" : "");
  if (type.is_array) return text + what + 's';
  return (type.letter == 'b' ? "a " : "an ") + what;
}

bool IsOfType(Expression value, const ArgumentType& type, const Model& model) {
  switch (value.GetKind()) {
    case Kind::kBool:
      return type.letter == 'b';
    case Kind::kInt:
      return type.letter == 'i';
    case Kind::kSet:
      return type.letter == 's';
    case Kind::kVariable: {
      if (type.is_constant) return false;
      const BaseType declared = model.variables[value.GetPlace()].type;
      return declared == (type.letter == 'b' ? BaseType::kBool : BaseType::kInt);
    }
    default:
      return false;
  }
}

bool HasType(Expression argument, const ArgumentType& type, const Model& model) {
  if (!type.is_array) return IsOfType(argument, type, model);
  if (!argument.Is(Kind::kArray)) return false;
  for (const Expression element : model.Get(model.arrays[argument.GetPlace()])) {
    if (!IsOfType(element, type, model)) return false;
  }
  return true;
}

// "2 or 3" of "bb|bbb".
std::string DescribeCounts(std::string_view types) {
  std::string text;
  for (const auto part : std::views::split(types, '|')) {
    text += text.empty() ? "" : " or ";
    text += std::to_string(ParseTypes(std::string_view(part.begin(), part.end())).size());
  }
  return text;
}

std::vector<ArgumentType> FindTypes(const Posting& posting, std::string_view alternatives) {
  for (const auto part : std::views::split(alternatives, '|')) {
    auto types = ParseTypes(std::string_view(part.begin(), part.end()));
    if (types.size() == posting.CountArguments()) return types;
  }
  posting.Refuse("takes " + DescribeCounts(alternatives) + " arguments, not " +
                 std::to_string(posting.CountArguments()));
}

void CheckArguments(const Posting& posting, const Poster& poster, const Model& model) {
  const auto types = FindTypes(posting, poster.types);
  for (std::size_t i = 0; i < types.size(); ++i) {
    if (HasType(posting.GetArgument(i), types[i], model)) continue;
    posting.Refuse("takes " + Describe(types[i]) + " as argument " + std::to_string(i + 1));
  }
}

}  // namespace

std::vector<const Poster*> ListPosters() {
  std::vector<const Poster*> posters;
  for (const auto family :
       {ArithmeticPosters(), ComparisonPosters(), LinearPosters(), BooleanPosters(),
        ElementPosters(), MembershipPosters(), DistinctPosters(), CountingPosters(), GraphPosters(),
        OrderingPosters(), SchedulingPosters(), ExtensionalPosters(), PackingPosters(),
        IndexedElementPosters()}) {
    for (const Poster& poster : family) posters.push_back(&poster);
  }
  return posters;
}

const Poster* FindPoster(std::string_view name) {
  static const auto table = MakeTable();
  const auto found = table.find(name);
  return found != table.end() ? found->second : nullptr;
}

void PostConstraints(Builder& builder) {
  const Model& model = builder.GetModel();
  std::vector<const Poster*> posters(model.names.size());  // by name, once it was looked up
  for (const Constraint& constraint : model.constraints) {
    const Posting posting(builder, constraint);
    const Poster*& poster = posters[constraint.name];
    if (poster == nullptr) poster = FindPoster(posting.GetName());
    if (poster == nullptr) {
      throw Error(constraint.offset,
                  "Kiv does not have the constraint '" + posting.GetName() + '\'');
    }
    CheckArguments(posting, *poster, model);
    if (builder.IsDone(constraint)) continue;
    poster->post(posting);
    builder.NoteOrigin(constraint.offset);
  }
}

}  // namespace kiv::flatzinc
