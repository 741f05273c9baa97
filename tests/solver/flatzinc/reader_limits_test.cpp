// Texts at the limits of what is read. Their sizes would show a reader that takes more than linear
// time, or a part of the stack for each element, by not coming to an end.

#include <gtest/gtest.h>
#include <sys/mman.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "solver/flatzinc/error.h"
#include "solver/flatzinc/reader.h"
#include "solver/flatzinc/value_assembler.h"
#include "solver/language/source_text.h"
#include "tests/solver/flatzinc/print_model.h"

namespace kiv::test {
namespace {

using flatzinc::Model;
using flatzinc::ReadModel;

constexpr std::size_t kLong = 10'000'000;

void ExpectError(std::string_view text, std::size_t offset, const std::string& message) {
  try {
    ReadModel(text);
    ADD_FAILURE() << "no error";
  } catch (const flatzinc::Error& error) {
    EXPECT_EQ(error.what(), message);
    EXPECT_EQ(error.GetOffset(), offset);
  }
}

std::string Repeat(std::string_view part, std::size_t times) {
  std::string text;
  for (std::size_t i = 0; i < times; ++i) text += part;
  return text;
}

TEST(FlatZincReaderLimits, LongNames) {
  const std::string name(kLong, 'x');
  const Model model =
      ReadModel("var int: " + name + "; constraint c(" + name + "," + name + "); solve satisfy;");
  EXPECT_EQ(model.names[model.variables.at(0).name], name);
  EXPECT_EQ(model.names.size(), 2u);
}

TEST(FlatZincReaderLimits, LongNamesAreCutInMessages) {
  const std::string name(kLong, 'x');
  const std::string quoted = "'" + std::string(60, 'x') + "...'";
  ExpectError("constraint c(" + name + ");", 13, "the name " + quoted + " is not declared");
  ExpectError("constraint c() " + name, 15, "expected ';' after the constraint, found " + quoted);
}

TEST(FlatZincReaderLimits, LongNumbers) {
  const std::string zeros(kLong, '0');
  const Model model = ReadModel("solve :: f(" + zeros + "1," + zeros + "1.5,1." + zeros + "1,0x" +
                                zeros + "f) satisfy;");
  EXPECT_EQ(Print(model.solve.annotations.size == 1 ? model.Get(model.solve.annotations)[0]
                                                    : flatzinc::Expression(),
                  model),
            "f(1,1.5,1.0,15)");
  ExpectError("solve :: f(1" + zeros + ") satisfy;", 11,
              "the integer '1" + std::string(59, '0') +
                  "...' is outside -576460752303423487..576460752303423487");
}

TEST(FlatZincReaderLimits, LongTexts) {
  const Model model = ReadModel("solve :: f(\"" + Repeat("ab\\\"%", kLong / 5) + "\") satisfy;");
  EXPECT_EQ(model.strings.at(0), Repeat("ab\"%", kLong / 5));
  const std::string open = "solve :: f(\"" + std::string(kLong, 'a');
  ExpectError(open, open.size(),
              "expected '\"' before the end of the line, found the end of the model");
}

TEST(FlatZincReaderLimits, LongCommentsAndBlanks) {
  for (const std::string& blanks :
       {std::string(kLong, ' '), '%' + std::string(kLong, '%') + '\n', Repeat("%\n", kLong / 2)}) {
    const Model model = ReadModel("var int:" + blanks + "x" + blanks + "::" + blanks + "a" +
                                  blanks + ";constraint c(" + blanks + "x" + blanks + ")" + blanks +
                                  ";solve" + blanks + "satisfy;" + blanks);
    EXPECT_EQ(Print(model), "var int: x :: a;\nconstraint c(x);\nsolve satisfy;\n");
    ExpectError("solve satisfy" + blanks, 13,
                "expected ';' after the solve item, found the end of the model");
  }
}

TEST(FlatZincReaderLimits, LongArraysAndSets) {
  const std::size_t count = kLong / 2;
  const std::string size = std::to_string(count);
  const Model model =
      ReadModel("var int: x; array [1.." + size + "] of int: p = [" + Repeat("7,", count) +
                "];constraint c([" + Repeat("x,", count) + "],{" + Repeat("3,1,", count / 2) +
                "}) :: f([" + Repeat("y,", count) + "]); solve satisfy;");
  const auto arguments = model.GetArguments(model.constraints.at(0));
  EXPECT_EQ(model.arrays[arguments[0].GetPlace()].size, count);
  EXPECT_EQ(Print(arguments[1], model), "{1,3}");
  ASSERT_EQ(model.arrays.size(), 3u);
  for (const auto& array : model.arrays) EXPECT_EQ(array.size, count);
}

std::string Nest(std::size_t depth, std::string_view open, std::string_view close) {
  return "solve :: a(" + Repeat(open, depth - 1) + "b" + Repeat(close, depth - 1) + ") satisfy;";
}

TEST(FlatZincReaderLimits, AnnotationsNestToALimit) {
  const std::size_t deepest = flatzinc::ValueAssembler::kDeepestNesting;
  const std::string message = "nested more than 200 levels deep";
  EXPECT_EQ(Print(ReadModel(Nest(deepest, "a(", ")"))), Nest(deepest, "a(", ")") + '\n');
  EXPECT_EQ(Print(ReadModel(Nest(deepest, "[", "]"))), Nest(deepest, "[", "]") + '\n');
  ExpectError(Nest(deepest + 1, "a(", ")"), 11 + 2 * (deepest - 1), message);
  ExpectError(Nest(deepest + 1, "[", "]"), 11 + (deepest - 1), message);
  ExpectError(Nest(kLong, "a(", ")"), 11 + 2 * (deepest - 1), message);
  ExpectError("solve :: a(" + Repeat("[", kLong), 11 + (deepest - 1), message);
  // Side by side they are not nested.
  EXPECT_NO_THROW(ReadModel("solve :: a(" + Repeat("b([]),", 1000) + ") satisfy;"));
}

TEST(FlatZincReaderLimits, ArgumentsAndAnnotationsOfAConstraint) {
  constexpr std::size_t kMost = 65535;
  const auto text = [](std::size_t arguments, std::size_t annotations) {
    return "constraint c(" + Repeat("1,", arguments) + ")" + Repeat("::a", annotations) +
           ";solve satisfy;";
  };
  const Model model = ReadModel(text(kMost, kMost));
  EXPECT_EQ(model.GetArguments(model.constraints.at(0)).size(), kMost);
  EXPECT_EQ(model.GetAnnotations(model.constraints.at(0)).size(), kMost);
  ExpectError(text(kMost + 1, 0), 13 + 2 * kMost, "a constraint has at most 65535 arguments");
  ExpectError(text(0, kMost + 1), 14 + 3 * kMost + 2, "an item has at most 65535 annotations");
}

TEST(FlatZincReaderLimits, TextsThatAreTooLongAreNotRead) {
  const std::size_t size = SourceText::kMaxSize + 1;
  void* const unreadable = mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  ASSERT_NE(unreadable, MAP_FAILED);
  ExpectError({static_cast<const char*>(unreadable), size}, 0,
              "the model is too long: more than 1073741824 bytes");
  munmap(unreadable, size);
}

}  // namespace
}  // namespace kiv::test
