#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "solver/flatzinc/error.h"
#include "solver/flatzinc/reader.h"
#include "tests/solver/flatzinc/print_model.h"
#include "tests/support/random.h"
#include "tests/support/seed.h"

namespace kiv::test {
namespace {

// A part of a text: as it is written, and as it is printed once it was understood.
struct Part {
  std::string written;
  std::string printed;
};

constexpr std::string_view kTypes[] = {"bool", "int", "float", "set of int"};

// A random text of every construct, with what each item must be understood to say.
class RandomText {
 public:
  explicit RandomText(std::uint64_t seed) : random_(seed) {
    for (int item = Pick(random_, 0, 25); item > 0; --item) AddItem();
    AddSolve();
  }

  const std::string& GetText() const { return text_; }
  std::string GetPrinted() const { return variables_ + arrays_ + constraints_ + solve_; }

 private:
  // A name that stands for a value, or for the elements of an array.
  struct Declared {
    std::string name;
    std::string_view type;
    bool varies;
    bool is_array;
    std::vector<std::string> printed;
  };

  // What may stand between two tokens.
  std::string Blank() {
    constexpr std::string_view kBlanks[] = {"",     "", "", " ", "  ", "\n", "\t", " % c :: ;\n",
                                            "%\r\n"};
    return std::string(PickOf(random_, kBlanks));
  }
  // What must stand between two words.
  std::string Gap() { return ' ' + Blank(); }

  std::string NewName() {
    constexpr std::string_view kNames[] = {"x", "_y", "Z_", "varx", "in"};
    return std::string(PickOf(random_, kNames)) + std::to_string(++names_);
  }

  // `count` parts, each made by `make`, with commas between them.
  template <class Make>
  Part List(int count, Make make) {
    Part list;
    for (int i = 0; i < count; ++i) {
      const Part part = make();
      list.written += Blank() + part.written + Blank();
      list.printed += part.printed;
      if (i + 1 < count) {
        list.printed += ',';
        list.written += ',';
      } else if (OneIn(random_, 5)) {
        list.written += ',';
      }
    }
    list.written += Blank();
    return list;
  }

  Part Integer() {
    const std::string value = std::to_string(Pick(random_, -30, 30));
    const Part usual = {value, value};
    const Part unusual[] = {{"0x1F", "31"},
                            {"-0o11", "-9"},
                            {"007", "7"},
                            {"-576460752303423487", "-576460752303423487"}};
    return OneIn(random_, 6) ? PickOf(random_, unusual) : usual;
  }

  Part Float() {
    const Part floats[] = {{"0.5", "0.5"},
                           {"-2.50", "-2.5"},
                           {"1E3", "1000.0"},
                           {"1e-7", "1e-07"},
                           {"12.5e+1", "125.0"}};
    return PickOf(random_, floats);
  }

  Part Set() {
    if (OneIn(random_, 2)) {
      const std::string lower = std::to_string(Pick(random_, -9, 9));
      const std::string upper = std::to_string(Pick(random_, -9, 9));
      return {lower + Blank() + ".." + Blank() + upper, lower + ".." + upper};
    }
    std::set<int> values;
    const std::string written = List(Pick(random_, 0, 4), [&] {
                                  const int value = *values.insert(Pick(random_, -9, 9)).first;
                                  return Part{std::to_string(value), {}};
                                }).written;
    return {'{' + written + '}', PrintSet(values)};
  }

  static std::string PrintSet(const std::set<int>& values) {
    if (values.empty()) return "0..-1";
    const int lower = *values.begin();
    const int upper = *values.rbegin();
    if (upper - lower + 1 == static_cast<int>(values.size())) {
      return std::to_string(lower) + ".." + std::to_string(upper);
    }
    std::string printed;
    for (const int value : values) printed += (printed.empty() ? "{" : ",") + std::to_string(value);
    return printed + '}';
  }

  Part Literal(std::string_view type) {
    if (type == "int") return Integer();
    if (type == "float") return Float();
    if (type == "set of int") return Set();
    return OneIn(random_, 2) ? Part{"true", "true"} : Part{"false", "false"};
  }

  // A literal, or the name of what was declared, or an element of it.
  Part Value(std::string_view type, bool may_vary) {
    std::vector<Part> named;
    for (const Declared& declared : declared_) {
      if (declared.type != type || (declared.varies && !may_vary)) continue;
      for (std::size_t i = 0; i < declared.printed.size(); ++i) {
        const std::string subscript =
            Blank() + '[' + Blank() + std::to_string(i + 1) + Blank() + ']';
        named.push_back(
            {declared.name + (declared.is_array ? subscript : ""), declared.printed[i]});
      }
    }
    return named.empty() || OneIn(random_, 3) ? Literal(type) : PickOf(random_, named);
  }

  Part AnyValue() { return Value(PickOf(random_, kTypes), true); }

  // An array by its name, or written out.
  Part Array() {
    std::vector<Part> named;
    for (const Declared& declared : declared_) {
      if (!declared.is_array) continue;
      std::string printed;
      for (const std::string& element : declared.printed) {
        printed += (printed.empty() ? "" : ",") + element;
      }
      named.push_back({declared.name, '[' + printed + ']'});
    }
    if (!named.empty() && OneIn(random_, 2)) return PickOf(random_, named);
    const Part elements = List(Pick(random_, 0, 4), [&] { return AnyValue(); });
    return {'[' + elements.written + ']', '[' + elements.printed + ']'};
  }

  Part Call(int depth) {
    const std::string name = NewName();
    const Part arguments = List(Pick(random_, 0, 3), [&] { return InnerAnnotation(depth); });
    return {name + Blank() + '(' + arguments.written + ')', name + '(' + arguments.printed + ')'};
  }

  Part InnerAnnotation(int depth) {
    switch (Pick(random_, 0, depth > 0 ? 5 : 3)) {
      case 0:
        return {R"("% \"a\" \n\\")", R"("% \"a\" \n\\")"};
      case 1: {
        const std::string name = NewName();
        return {name, name};
      }
      case 2:
        return Array();
      case 3:
        return AnyValue();
      case 4:
        return Call(depth - 1);
      default: {
        const Part list = List(Pick(random_, 0, 3), [&] { return InnerAnnotation(depth - 1); });
        return {'[' + list.written + ']', '[' + list.printed + ']'};
      }
    }
  }

  Part Annotations() {
    Part annotations;
    while (OneIn(random_, 3)) {
      const std::string name = NewName();
      const Part annotation = OneIn(random_, 2) ? Part{name, name} : Call(2);
      annotations.written += Blank() + "::" + Blank() + annotation.written;
      annotations.printed += " :: " + annotation.printed;
    }
    annotations.written += Blank();
    return annotations;
  }

  void AddItem() {
    switch (Pick(random_, 0, 5)) {
      case 0:
        text_ += "predicate" + Gap() + NewName() +
                 "(array [int] of var 1..3: a, set of int: " + NewName() + ")" + Blank() + ';';
        break;
      case 1:
        AddParameter();
        break;
      case 2:
        AddVariable();
        break;
      case 3:
        AddArray();
        break;
      default:
        AddConstraint();
    }
    text_ += Blank();
  }

  void AddParameter() {
    const std::string_view type = PickOf(random_, kTypes);
    const std::string name = NewName();
    const Part value = Value(type, false);
    text_ += std::string(type) + Blank() + ':' + Blank() + name + Annotations().written + '=' +
             Blank() + value.written + Blank() + ';';
    declared_.push_back({name, type, false, false, {value.printed}});
  }

  // A type and how a domain of it is written.
  std::pair<std::string_view, Part> VariableType() {
    const std::string_view type = PickOf(random_, kTypes);
    const std::string whole(type);
    if (type == "bool" || OneIn(random_, 2)) return {type, {whole, whole}};
    if (type == "float") return {type, {"-1.5" + Blank() + ".." + Blank() + "2.5", "-1.5..2.5"}};
    const Part domain = Set();
    if (type == "int") return {type, domain};
    return {type, {"set" + Gap() + "of" + Gap() + domain.written, "set of " + domain.printed}};
  }

  void AddVariable() {
    const std::string name = NewName();
    const auto [type, written_type] = VariableType();
    const Part annotations = Annotations();
    text_ +=
        "var" + Gap() + written_type.written + Blank() + ':' + Blank() + name + annotations.written;
    variables_ += "var " + written_type.printed + ": " + name + annotations.printed;
    if (OneIn(random_, 3)) {
      const Part value = Value(type, true);
      text_ += '=' + Blank() + value.written + Blank();
      variables_ += " = " + value.printed;
    }
    text_ += ';';
    variables_ += ";\n";
    declared_.push_back({name, type, true, false, {name}});
  }

  void AddArray() {
    const bool varies = OneIn(random_, 2);
    const std::string name = NewName();
    const auto [type, written_type] =
        varies ? VariableType() : std::pair{PickOf(random_, kTypes), Part{}};
    const Part annotations = Annotations();
    Declared array{name, type, varies, true, {}};
    const int size = Pick(random_, 0, 4);
    const Part elements = List(size, [&] {
      const Part element = Value(type, varies);
      array.printed.push_back(element.printed);
      return element;
    });
    const std::string indices = "1.." + std::to_string(size);
    text_ += "array" + Blank() + '[' + Blank() + indices + Blank() + ']' + Blank() + "of" + Gap() +
             (varies ? "var" + Gap() + written_type.written : std::string(type)) + Blank() + ':' +
             name + annotations.written + '=' + Blank() + '[' + elements.written + ']' + Blank() +
             ';';
    if (varies) {
      arrays_ += "array [" + indices + "] of var " + std::string(type) + ": " + name +
                 annotations.printed + " = [" + elements.printed + "];\n";
    }
    declared_.push_back(std::move(array));
  }

  void AddConstraint() {
    const std::string name = NewName();
    const Part arguments =
        List(Pick(random_, 0, 4), [&] { return OneIn(random_, 3) ? Array() : AnyValue(); });
    const Part annotations = Annotations();
    text_ += "constraint" + Gap() + name + Blank() + '(' + arguments.written + ')' +
             annotations.written + ';';
    constraints_ +=
        "constraint " + name + '(' + arguments.printed + ')' + annotations.printed + ";\n";
  }

  void AddSolve() {
    const Part annotations = Annotations();
    text_ += "solve" + Gap() + annotations.written + ' ';
    solve_ = "solve" + annotations.printed + ' ';
    if (OneIn(random_, 2)) {
      text_ += "satisfy";
      solve_ += "satisfy";
    } else {
      const std::string goal = OneIn(random_, 2) ? "minimize" : "maximize";
      const Part objective = Value(OneIn(random_, 4) ? "float" : "int", true);
      text_ += goal + Gap() + objective.written;
      solve_ += goal + ' ' + objective.printed;
    }
    text_ += Blank() + ';';
    solve_ += ";\n";
  }

  Generator random_;
  int names_ = 0;
  std::vector<Declared> declared_;
  std::string text_;
  std::string variables_;
  std::string arrays_;
  std::string constraints_;
  std::string solve_;
};

TEST(RandomFlatZincTexts, AreUnderstood) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(20000); ++seed) {
    SCOPED_TRACE(Replay(seed));
    const RandomText text(seed);
    SCOPED_TRACE(text.GetText());
    ASSERT_EQ(Print(flatzinc::ReadModel(text.GetText())), text.GetPrinted());
  }
}

TEST(RandomFlatZincTexts, AreErrorsWhereTheyBreakOff) {
  const std::uint64_t first = Seed(1);
  for (std::uint64_t seed = first; seed < first + Times(100); ++seed) {
    SCOPED_TRACE(Replay(seed));
    const RandomText text(seed);
    for (std::size_t size = 0; size < text.GetText().size(); ++size) {
      const std::string_view part = std::string_view(text.GetText()).substr(0, size);
      SCOPED_TRACE(part);
      try {
        flatzinc::ReadModel(part);
        FAIL() << "no error";
      } catch (const flatzinc::Error& error) {
        ASSERT_LE(error.GetOffset(), size);
        ASSERT_FALSE(std::string_view(error.what()).empty());
      }
    }
  }
}

}  // namespace
}  // namespace kiv::test
