// Reads objects from any bytes: new ones, shared ones, and into given ones in turn. Whatever comes
// is owned, of the class that was asked for, and can be written and read again.

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "framework/utilities/object_stream.h"
#include "tests/framework/utilities/node.h"

namespace {

void Require(bool condition) {
  if (!condition) std::abort();
}

// How many items are read at most.
constexpr int kItems = 64;

// Writes the nodes that `root` leads to and reads them back: as many, or, when they are nested too
// deep, as the state says, fewer.
void RequireRoundTrip(Node* root) {
  std::set<Node*> nodes;
  CollectNodes(root, nodes);
  std::stringstream bytes;
  Kivopstream out(bytes);
  out.WriteObjectPointer(root);
  Kivipstream in(bytes);
  std::set<Node*> copies;
  CollectNodes(ReadNode(in), copies);
  Require(in.State() == Kivpstream::kGood && in.Remaining() == 0);
  Require(out.State() == Kivpstream::kGood ? copies.size() == nodes.size()
                                           : copies.size() <= nodes.size());
  for (Node* const copy : copies) delete copy;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::istringstream bytes(std::string(data, data + size));
  Kivipstream in(bytes);
  std::array<Node, 4> targets;
  std::vector<Node*> roots;
  std::set<Node*> nodes;
  for (int item = 0; item < kItems && in.Remaining() > 0; ++item) {
    const std::size_t before = in.Remaining();
    if (item % 4 == 3) {
      Node& target = targets[static_cast<std::size_t>(item / 4) % targets.size()];
      KivStreamable* pointer = &target;
      // A target that is filled again lets go of what it led to.
      CollectNodes(&target, nodes);
      in.ReadObject(pointer);
      Require(pointer == &target);
      CollectNodes(target.first, nodes);
      CollectNodes(target.second, nodes);
      roots.push_back(&target);
    } else if (Node* const node = ReadNode(in); node != nullptr) {
      Require(node->IsDerivedFrom(Node::CastableIdent) != 0);
      CollectNodes(node, nodes);
      roots.push_back(node);
    }
    Require(in.Remaining() < before);
  }
  for (Node* const root : roots) RequireRoundTrip(root);
  for (Node& target : targets) nodes.erase(&target);
  for (Node* const node : nodes) delete node;
  Require(Node::alive == static_cast<int>(targets.size()) && Stone::alive == 0);
  return 0;
}
