#pragma once

#include <cstdint>
#include <string>
#include <tao/pegtl/contrib/parse_tree.hpp>

#include "solver/language/source_text.h"
#include "solver/language/syntax_tree.h"

namespace kiv {

// What a rule of the grammar read, with what its parts read. For the parser alone.
using ParseNode = tao::pegtl::parse_tree::node;

// The part of the text that a node stands for.
inline SourceRange RangeOf(const ParseNode& node, const SourceText& source) {
  const auto begin =
      static_cast<std::uint32_t>(node.string_view().data() - source.GetText().data());
  return {begin, begin + static_cast<std::uint32_t>(node.string_view().size())};
}

inline Word WordOf(const ParseNode& node, const SourceText& source) {
  return {node.string(), RangeOf(node, source)};
}

}  // namespace kiv
