#include "solver/language/data_file.h"

#include <gtest/gtest.h>

#include <sstream>

namespace kiv {
namespace {

std::string ErrorsOf(const std::string& text) {
  const SourceText source("d.json", text);
  Diagnostics diagnostics(source);
  const auto values = ReadData(source, diagnostics);
  EXPECT_EQ(values.has_value(), diagnostics.IsEmpty()) << text;
  std::ostringstream errors;
  diagnostics.PrintOn(errors);
  return errors.str();
}

std::map<std::string, ParameterValue> ValuesOf(const std::string& text) {
  const SourceText source("d.json", text);
  Diagnostics diagnostics(source);
  auto values = ReadData(source, diagnostics);
  EXPECT_TRUE(values);
  return values.value_or(std::map<std::string, ParameterValue>());
}

TEST(DataFile, HoldsIntegersTruthValuesAndLists) {
  const auto values =
      ValuesOf(R"({ "n": -8, "b": true, "w": [1, 2], "a": [[1], []], "e": [], "no": null })");
  EXPECT_EQ(values.size(), 5u);
  EXPECT_EQ(values.at("n"), ParameterValue(std::int64_t{-8}));
  EXPECT_EQ(values.at("b"), ParameterValue(true));
  EXPECT_EQ(values.at("w"), ParameterValue(ParameterList{std::int64_t{1}, std::int64_t{2}}));
  EXPECT_EQ(values.at("a"),
            ParameterValue(ParameterList{ParameterList{std::int64_t{1}}, ParameterList{}}));
  EXPECT_EQ(values.at("e"), ParameterValue(ParameterList{}));
  EXPECT_TRUE(ValuesOf("{}").empty());
}

TEST(DataFile, ErrorsOfSyntaxHaveTheirPlace) {
  EXPECT_EQ(ErrorsOf("{ \"n\": 1,\n  \"w\": [1, 2,]\n}\n"),
            "d.json:2:14: error: syntax error while parsing value - unexpected ']'; expected '[', "
            "'{', or a literal\n"
            "    \"w\": [1, 2,]\n"
            "               ^\n");
  EXPECT_EQ(ErrorsOf("").rfind("d.json:1:1: error: ", 0), 0u);
  EXPECT_EQ(ErrorsOf("{ \"n\": 1 } x").rfind("d.json:1:12: error: ", 0), 0u);
}

TEST(DataFile, OtherErrorsNameTheParameter) {
  EXPECT_EQ(ErrorsOf(R"({ "n": 1.5 })"),
            "d.json: error: 'n': 1.5 is no integer that a parameter can have\n");
  EXPECT_EQ(ErrorsOf(R"({ "n": 99999999999999999999 })"),
            "d.json: error: 'n': 99999999999999999999 is no integer that a parameter can have\n");
  EXPECT_EQ(ErrorsOf(R"({ "n": 9223372036854775808 })"),
            "d.json: error: 'n': 9223372036854775808 is no integer that a parameter can have\n");
  EXPECT_EQ(ErrorsOf(R"({ "n": "8" })"),
            "d.json: error: 'n': expected an integer, true, false or a list, found a text\n");
  EXPECT_EQ(ErrorsOf(R"({ "n": [{}] })"),
            "d.json: error: 'n': expected an integer, true, false or a list, found an object\n");
  EXPECT_EQ(ErrorsOf(R"({ "n": [1, null] })"),
            "d.json: error: 'n': null is no element of a list; a parameter that is null as a whole "
            "is not given\n");
  EXPECT_EQ(ErrorsOf(R"({ "n": 1, "n": 2 })"), "d.json: error: 'n': given twice\n");
}

TEST(DataFile, IsAnObject) {
  for (const char* text : {"8", "[1]", "true", "null", "\"n\"", "1.5"}) {
    EXPECT_EQ(ErrorsOf(text),
              "d.json: error: expected an object whose keys are parameters, as in { \"n\": 8 }\n")
        << text;
  }
}

TEST(DataFile, DeepListsAreRefusedAtOnce) {
  EXPECT_EQ(ErrorsOf("{ \"n\": " + std::string(1000000, '[')),
            "d.json: error: 'n': lists are nested more than 2 deep\n");
}

TEST(DataFile, TakesAnyBytes) {
  for (int byte = 0; byte < 256; ++byte) {
    for (const std::string prefix : {"", "{ \"n\"", "{ \"n\": ", "{ \"n\": [1"}) {
      EXPECT_NE(ErrorsOf(prefix + static_cast<char>(byte)), "");
    }
  }
}

TEST(DataFile, OneValueStandsAlone) {
  const SourceText source("-D", "[1, true]");
  Diagnostics diagnostics(source);
  EXPECT_EQ(ReadValue(source, "w", diagnostics),
            ParameterValue(ParameterList{std::int64_t{1}, true}));
  for (const char* text : {"", "null", "{}", "x", "1 2"}) {
    const SourceText wrong("-D", text);
    Diagnostics mistakes(wrong);
    EXPECT_FALSE(ReadValue(wrong, "w", mistakes)) << text;
    EXPECT_FALSE(mistakes.IsEmpty()) << text;
  }
}

}  // namespace
}  // namespace kiv
