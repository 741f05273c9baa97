// What input that is wrong, or that cannot be had here, reads as; and who owns what then.

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "framework/utilities/object_stream.h"
#include "tests/framework/utilities/node.h"
#include "tests/framework/utilities/record_bytes.h"

namespace {

constexpr int kCutOff = Kivpstream::kEnd | Kivpstream::kFailure;

std::string EmptyRecord() { return Word(0) + Text("") + NullPointer() + NullPointer(); }

class ObjectStreamFailure : public testing::Test {
 protected:
  // Expects that a node cannot be read from `input` and that no object is left behind.
  static void ExpectNoNode(const std::string& input, int state) {
    const int nodes = Node::alive;
    const int stones = Stone::alive;
    std::istringstream bytes(input);
    Kivipstream in(bytes);
    EXPECT_EQ(ReadNode(in), nullptr);
    EXPECT_EQ(in.State(), state);
    EXPECT_EQ(Node::alive, nodes);
    EXPECT_EQ(Stone::alive, stones);
  }

  // Expects that nothing can be read from `input` into a given node.
  static void ExpectNothingInPlace(const std::string& input, int state) {
    std::istringstream bytes(input);
    Kivipstream in(bytes);
    Node target(7);
    KivStreamable* pointer = &target;
    in.ReadObject(pointer);
    EXPECT_EQ(pointer, &target);
    EXPECT_EQ(target.value, 7);
    EXPECT_EQ(in.State(), state);
  }
};

TEST_F(ObjectStreamFailure, EndBeforeTheRecordIsANullPointer) {
  ExpectNoNode("", kCutOff);
  const std::string head = NewObject("Node");
  for (std::size_t size = 1; size < head.size(); ++size)
    ExpectNoNode(head.substr(0, size), kCutOff);
  ExpectNoNode(Word(2) + "\1", kCutOff);
}

TEST_F(ObjectStreamFailure, EndWithinTheRecordLeavesAnObjectThatTheCallerOwns) {
  const std::string whole =
      NewObject("Node") + Word(5) + Text("x") + NewObject("Node") + EmptyRecord() + NullPointer();
  for (std::size_t size = NewObject("Node").size(); size < whole.size(); ++size) {
    std::istringstream bytes(whole.substr(0, size));
    Kivipstream in(bytes);
    Node* const node = ReadNode(in);
    EXPECT_EQ(in.State(), kCutOff) << size;
    ASSERT_NE(node, nullptr) << size;
    std::set<Node*> nodes;
    CollectNodes(node, nodes);
    for (Node* const read : nodes) delete read;
  }
  EXPECT_EQ(Node::alive, 0);
}

TEST_F(ObjectStreamFailure, UnknownTagIsBad) {
  ExpectNoNode(Word(3), Kivpstream::kBad);
  ExpectNoNode(Word(0xffffffff), Kivpstream::kBad);
  ExpectNothingInPlace(Word(3), Kivpstream::kBad | Kivpstream::kFailure);
}

TEST_F(ObjectStreamFailure, ReferenceToAnObjectThatHasNotComeIsBad) {
  ExpectNoNode(Reference(0), Kivpstream::kBad);
  ExpectNoNode(Reference(0xffffffff), Kivpstream::kBad);
  const std::string one_node = NewObject("Node") + EmptyRecord();
  std::istringstream bytes(one_node + Reference(1));
  Kivipstream in(bytes);
  const std::unique_ptr<Node> first(ReadNode(in));
  EXPECT_EQ(ReadNode(in), nullptr);
  EXPECT_EQ(in.State(), Kivpstream::kBad);
}

TEST_F(ObjectStreamFailure, UnknownClassIsAFailure) {
  ExpectNoNode(NewObject("Nobody"), Kivpstream::kFailure);
  ExpectNoNode(NewObject(""), Kivpstream::kFailure);
  ExpectNoNode(NewObject(std::string("Node\0", 5)), Kivpstream::kFailure);
}

TEST_F(ObjectStreamFailure, BuilderWithoutMemoryIsAFailure) {
  ASSERT_NE(KivStreamableClass::Find(kBarrenClass), nullptr);
  ExpectNoNode(NewObject(kBarrenClass), Kivpstream::kFailure);
}

TEST_F(ObjectStreamFailure, ObjectOfAnotherClassIsAFailureAndDeleted) {
  ExpectNoNode(NewObject("Stone"), Kivpstream::kFailure);
}

TEST_F(ObjectStreamFailure, RecordOfARefusedObjectStaysUnread) {
  std::istringstream bytes(NewObject("Stone") + Word(12));
  Kivipstream in(bytes);
  EXPECT_EQ(ReadNode(in), nullptr);
  std::int32_t next = 0;
  in >> next;
  EXPECT_EQ(next, 12);
}

TEST_F(ObjectStreamFailure, ReferenceToAnObjectOfAnotherClassIsAFailureAndDeletesNothing) {
  std::istringstream bytes(NewObject("Stone") + Reference(0));
  Kivipstream in(bytes);
  const std::unique_ptr<KivStreamable> stone(in.ReadObjectPointer());
  ASSERT_NE(stone, nullptr);
  EXPECT_EQ(ReadNode(in), nullptr);
  EXPECT_EQ(in.State(), Kivpstream::kFailure);
  EXPECT_EQ(stone->CastableID(), Stone::CastableIdent);
}

TEST_F(ObjectStreamFailure, ReferenceToARefusedObjectIsAFailure) {
  std::istringstream bytes(NewObject("Nobody") + Reference(0));
  Kivipstream in(bytes);
  EXPECT_EQ(ReadNode(in), nullptr);
  in.Clear();
  EXPECT_EQ(ReadNode(in), nullptr);
  EXPECT_EQ(in.State(), Kivpstream::kFailure);
}

TEST_F(ObjectStreamFailure, RefusedObjectKeepsItsNumber) {
  std::istringstream bytes(NewObject("Stone") + NewObject("Node") + EmptyRecord() + Reference(1));
  Kivipstream in(bytes);
  EXPECT_EQ(ReadNode(in), nullptr);
  const std::unique_ptr<Node> node(ReadNode(in));
  ASSERT_NE(node, nullptr);
  EXPECT_EQ(ReadNode(in), node.get());
}

TEST_F(ObjectStreamFailure, ObjectReadInPlaceMustBeOfExactlyItsClass) {
  ExpectNothingInPlace(NewObject("Stone"), Kivpstream::kFailure);
  ExpectNothingInPlace(NewObject("CountedNode") + EmptyRecord() + Word(1), Kivpstream::kFailure);
  ExpectNothingInPlace(NewObject("Nobody"), Kivpstream::kFailure);
  ExpectNothingInPlace(NullPointer(), Kivpstream::kFailure);
  ExpectNothingInPlace("", kCutOff);
}

TEST_F(ObjectStreamFailure, ReferenceCannotBeReadIntoAnotherObject) {
  std::istringstream bytes(NewObject("Node") + EmptyRecord() + Reference(0));
  Kivipstream in(bytes);
  const std::unique_ptr<Node> node(ReadNode(in));
  Node target(7);
  KivStreamable* pointer = &target;
  in.ReadObject(pointer);
  EXPECT_EQ(pointer, &target);
  EXPECT_EQ(target.value, 7);
  EXPECT_EQ(in.State(), Kivpstream::kFailure);
}

TEST_F(ObjectStreamFailure, NullReadAsAnObjectIsAFailureAndLeavesThePointer) {
  std::istringstream bytes(NullPointer());
  Kivipstream in(bytes);
  KivStreamable* pointer = nullptr;
  in.ReadObject(pointer);
  EXPECT_EQ(pointer, nullptr);
  EXPECT_EQ(in.State(), Kivpstream::kFailure);
}

// A chain of `length` nodes, each the first of the one before.
std::vector<std::unique_ptr<Node>> Chain(unsigned length) {
  std::vector<std::unique_ptr<Node>> nodes;
  for (unsigned i = 0; i < length; ++i) {
    nodes.push_back(std::make_unique<Node>(static_cast<std::int32_t>(i)));
    if (i > 0) nodes[i - 1]->first = nodes[i].get();
  }
  return nodes;
}

std::size_t ChainLength(const Node* node) {
  std::size_t length = 0;
  for (; node != nullptr; node = node->first) ++length;
  return length;
}

TEST_F(ObjectStreamFailure, NestingUpToTheLimitIsWrittenAndRead) {
  const auto chain = Chain(kKivMaxObjectDepth);
  std::stringstream bytes;
  Kivopstream out(bytes);
  out.WriteObjectPointer(chain[0].get());
  EXPECT_EQ(out.State(), 0);
  Kivipstream in(bytes);
  Node* const read = ReadNode(in);
  EXPECT_EQ(in.State(), 0);
  EXPECT_EQ(ChainLength(read), kKivMaxObjectDepth);
  std::set<Node*> nodes;
  CollectNodes(read, nodes);
  for (Node* const node : nodes) delete node;
}

TEST_F(ObjectStreamFailure, NestingBeyondTheLimitIsNotWritten) {
  const auto chain = Chain(kKivMaxObjectDepth + 1);
  std::stringstream bytes;
  Kivopstream out(bytes);
  out.WriteObjectPointer(chain[0].get());
  EXPECT_EQ(out.State(), Kivpstream::kFailure);
  // The object left out was given no number: it comes in full when it is less deep.
  out.WriteObjectPointer(chain.back().get());
  Kivipstream in(bytes);
  Node* const read = ReadNode(in);
  Node* const last = ReadNode(in);
  EXPECT_EQ(in.State(), 0);
  EXPECT_EQ(ChainLength(read), kKivMaxObjectDepth);
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(last->value, chain.back()->value);
  std::set<Node*> nodes;
  CollectNodes(read, nodes);
  CollectNodes(last, nodes);
  for (Node* const node : nodes) delete node;
}

TEST_F(ObjectStreamFailure, NestingBeyondTheLimitIsBad) {
  std::string input;
  for (int i = 0; i < 100000; ++i) input += NewObject("Node") + Word(0) + Text("");
  std::istringstream bytes(input);
  Kivipstream in(bytes);
  Node* const read = ReadNode(in);
  EXPECT_NE(in.State() & Kivpstream::kBad, 0);
  EXPECT_EQ(ChainLength(read), kKivMaxObjectDepth);
  std::set<Node*> nodes;
  CollectNodes(read, nodes);
  for (Node* const node : nodes) delete node;
  EXPECT_EQ(Node::alive, 0);
}

}  // namespace
