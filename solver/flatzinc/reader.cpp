#include "solver/flatzinc/reader.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <type_traits>

#include "solver/flatzinc/error.h"
#include "solver/flatzinc/grammar.h"
#include "solver/flatzinc/item_assembler.h"
#include "solver/language/source_text.h"
#include "solver/language/syntax_error.h"
#include "solver/language/token_description.h"

namespace kiv::flatzinc {
namespace {

namespace g = grammar;
namespace pegtl = tao::pegtl;

// An action is a step of the assembler of values or of items, given the text of the rule and where
// it begins, or only that, or nothing.
template <auto Step, class Input, class Assembler>
void Take(const Input& in, Assembler& assembler) {
  const auto offset = static_cast<std::uint32_t>(in.begin() - in.input().begin());
  if constexpr (std::is_invocable_v<decltype(Step), Assembler&, std::string_view, std::uint32_t>) {
    std::invoke(Step, assembler, in.string_view(), offset);
  } else if constexpr (std::is_invocable_v<decltype(Step), Assembler&, std::uint32_t>) {
    std::invoke(Step, assembler, offset);
  } else {
    std::invoke(Step, assembler);
  }
}

template <auto Step>
struct OfValues {
  template <class Input>
  static void apply(const Input& in, ItemAssembler& items) {
    Take<Step>(in, items.GetValues());
  }
};

template <auto Step>
struct OfItems {
  template <class Input>
  static void apply(const Input& in, ItemAssembler& items) {
    Take<Step>(in, items);
  }
};

template <BaseType type>
struct SetType {
  static void apply0(ItemAssembler& items) { items.SetType(type); }
};

template <Solve::Goal goal>
struct SetGoal {
  static void apply0(ItemAssembler& items) { items.SetGoal(goal); }
};

using Values = ValueAssembler;
using Items = ItemAssembler;

template <class Rule>
struct Action : pegtl::nothing<Rule> {};

template <>
struct Action<g::name> : OfValues<&Values::ReadName> {};
template <>
struct Action<g::number> : OfValues<&Values::ReadNumber> {};
template <>
struct Action<g::quoted_text> : OfValues<&Values::ReadText> {};
template <>
struct Action<g::truth> : OfValues<&Values::ReadTrue> {};
template <>
struct Action<g::falsehood> : OfValues<&Values::ReadFalse> {};
template <>
struct Action<g::range_sign> : OfValues<&Values::BeginRange> {};
template <>
struct Action<g::range_part> : OfValues<&Values::EndRange> {};
template <>
struct Action<g::set_start> : OfValues<&Values::BeginSet> {};
template <>
struct Action<g::set_element> : OfValues<&Values::AddToSet> {};
template <>
struct Action<g::set> : OfValues<&Values::EndSet> {};
template <>
struct Action<g::array_start> : OfValues<&Values::BeginArray> {};
template <>
struct Action<g::array_element> : OfValues<&Values::AddToArray> {};
template <>
struct Action<g::array> : OfValues<&Values::EndArray> {};
template <>
struct Action<g::subscript_start> : OfValues<&Values::BeginSubscript> {};
template <>
struct Action<g::subscript> : OfValues<&Values::EndSubscript> {};
template <>
struct Action<g::reference> : OfValues<&Values::Resolve> {};
template <>
struct Action<g::named_annotation> : OfValues<&Values::ResolveInAnnotation> {};
template <>
struct Action<g::call_start> : OfValues<&Values::BeginCall> {};
template <>
struct Action<g::call> : OfValues<&Values::EndCall> {};
template <>
struct Action<g::list_start> : OfValues<&Values::BeginAnnotationArray> {};
template <>
struct Action<g::list> : OfValues<&Values::EndAnnotationArray> {};
template <>
struct Action<g::annotation_argument> : OfValues<&Values::AddToAnnotation> {};
template <>
struct Action<g::annotation_element> : OfValues<&Values::AddToAnnotation> {};

template <>
struct Action<g::bool_type> : SetType<BaseType::kBool> {};
template <>
struct Action<g::int_type> : SetType<BaseType::kInt> {};
template <>
struct Action<g::float_type> : SetType<BaseType::kFloat> {};
template <>
struct Action<g::set_of_int> : SetType<BaseType::kSetOfInt> {};
template <>
struct Action<g::set_of_float> : SetType<BaseType::kSetOfFloat> {};
template <>
struct Action<g::domain_type> : OfItems<&Items::SetTypeByDomain> {};
template <>
struct Action<g::set_of_domain> : OfItems<&Items::SetTypeBySetDomain> {};
template <>
struct Action<g::first_index> : OfItems<&Items::ReadFirstIndex> {};
template <>
struct Action<g::last_index> : OfItems<&Items::ReadLastIndex> {};
template <>
struct Action<g::variable_array_word> : OfItems<&Items::LetElementsVary> {};
template <>
struct Action<g::declared_name> : OfItems<&Items::ReadName> {};
template <>
struct Action<g::annotation> : OfItems<&Items::AddAnnotation> {};
template <>
struct Action<g::declared_annotations> : OfItems<&Items::EndAnnotations> {};
template <>
struct Action<g::elements_start> : OfItems<&Items::BeginElements> {};
template <>
struct Action<g::declared_element> : OfItems<&Items::AddElement> {};
template <>
struct Action<g::variable_value> : OfItems<&Items::ReadInitialiser> {};
template <>
struct Action<g::parameter> : OfItems<&Items::EndParameter> {};
template <>
struct Action<g::variable> : OfItems<&Items::EndVariable> {};
template <>
struct Action<g::declared_array> : OfItems<&Items::EndArray> {};
template <>
struct Action<g::constraint_name> : OfItems<&Items::BeginConstraint> {};
template <>
struct Action<g::argument> : OfItems<&Items::AddArgument> {};
template <>
struct Action<g::constraint> : OfItems<&Items::EndConstraint> {};
template <>
struct Action<g::solve_start> : OfItems<&Items::BeginSolve> {};
template <>
struct Action<g::satisfy> : SetGoal<Solve::Goal::kSatisfy> {};
template <>
struct Action<g::minimize> : SetGoal<Solve::Goal::kMinimize> {};
template <>
struct Action<g::maximize> : SetGoal<Solve::Goal::kMaximize> {};
template <>
struct Action<g::objective> : OfItems<&Items::ReadObjective> {};

Error Describe(const SyntaxError& error, std::string_view text) {
  pegtl::memory_input<pegtl::tracking_mode::lazy> rest(text.substr(error.offset), "");
  pegtl::parse<g::blanks>(rest);
  const std::size_t token = error.offset + rest.byte();
  // What is missing at the end of a line or of the model is missed there.
  const bool next_line =
      text.substr(error.offset, token - error.offset).find('\n') != std::string_view::npos;
  const bool is_missed_before = token == text.size() || (error.closes_statement && next_line);
  return Error(static_cast<std::uint32_t>(is_missed_before ? error.offset : token),
               std::string("expected ") + error.expected + ", found " +
                   DescribeToken(text.substr(token)).text);
}

}  // namespace

Model ReadModel(std::string_view text) {
  if (text.size() > SourceText::kMaxSize) {
    throw Error(
        0, "the model is too long: more than " + std::to_string(SourceText::kMaxSize) + " bytes");
  }
  Model model;
  ItemAssembler items(model);
  try {
    pegtl::memory_input<pegtl::tracking_mode::lazy> in(text.data(), text.size(), "");
    // A model that does not match raises an error.
    static_cast<void>(pegtl::parse<g::model, Action, SyntaxControl>(in, items));
  } catch (const SyntaxError& error) {
    throw Describe(error, text);
  }
  return model;
}

}  // namespace kiv::flatzinc
