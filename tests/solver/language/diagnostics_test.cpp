#include "solver/language/diagnostics.h"

#include <gtest/gtest.h>

#include <sstream>

namespace kiv {
namespace {

std::string Print(const Diagnostics& diagnostics) {
  std::ostringstream out;
  diagnostics.PrintOn(out);
  return out.str();
}

TEST(Diagnostics, ShowTheLineWithAMark) {
  const SourceText source("m.kiv", "a;\n\tx = yy;\n");
  Diagnostics diagnostics(source);
  EXPECT_TRUE(diagnostics.IsEmpty());
  EXPECT_EQ(Print(diagnostics), "");
  diagnostics.Add({8, 10}, "wrong", {"a note", "another"});
  diagnostics.Add("all of it", {});
  EXPECT_EQ(Print(diagnostics),
            "m.kiv:2:6: error: wrong\n"
            "  \tx = yy;\n"
            "  \t    ^~\n"
            "  a note\n"
            "  another\n"
            "m.kiv: error: all of it\n");
}

TEST(Diagnostics, MarkTheEndOfTheText) {
  const SourceText source("m.kiv", "x");
  Diagnostics diagnostics(source);
  diagnostics.Add({1, 1}, "more");
  EXPECT_EQ(Print(diagnostics), "m.kiv:1:2: error: more\n  x\n   ^\n");
}

TEST(Diagnostics, MarkOnlyTheFirstOfSeveralLines) {
  const SourceText source("m.kiv", "x +\n y;");
  Diagnostics diagnostics(source);
  diagnostics.Add({0, 6}, "sum");
  EXPECT_EQ(Print(diagnostics), "m.kiv:1:1: error: sum\n  x +\n  ^~~\n");
}

TEST(Diagnostics, KeepTheMarkBelowCharactersOfSeveralBytes) {
  const SourceText source("m.kiv", "\xC3\xA4 = \xC3\xB6\xC3\xBC;");
  Diagnostics diagnostics(source);
  diagnostics.Add({5, 9}, "names");
  EXPECT_EQ(Print(diagnostics),
            "m.kiv:1:5: error: names\n  \xC3\xA4 = \xC3\xB6\xC3\xBC;\n      ^~\n");
}

TEST(Diagnostics, CutLinesThatAreTooLongToRead) {
  const SourceText source("m.kiv", std::string(100000, 'x') + '!' + std::string(100000, 'y'));
  Diagnostics diagnostics(source);
  diagnostics.Add({100000, 100001}, "here");
  EXPECT_EQ(Print(diagnostics), "m.kiv:1:100001: error: here\n  " + std::string(60, 'x') + '!' +
                                    std::string(99, 'y') + "\n  " + std::string(60, ' ') + "^\n");
}

TEST(Diagnostics, ReportAPlaceOnce) {
  const SourceText source("m.kiv", "abc");
  Diagnostics diagnostics(source);
  diagnostics.Add({1, 2}, "first");
  diagnostics.Add({1, 3}, "second");
  ASSERT_EQ(diagnostics.Count(), 1u);
  EXPECT_EQ(diagnostics.GetAll()[0].text, "first");
}

TEST(Diagnostics, StopAfterTwenty) {
  const SourceText source("m.kiv", std::string(100, 'x'));
  Diagnostics diagnostics(source);
  for (std::uint32_t i = 0; i < 100; ++i) diagnostics.Add({i, i + 1}, "x");
  EXPECT_TRUE(diagnostics.IsFull());
  EXPECT_EQ(diagnostics.Count(), 20u);
  EXPECT_TRUE(Print(diagnostics).ends_with("m.kiv: stopped after 20 errors\n"));
}

}  // namespace
}  // namespace kiv
