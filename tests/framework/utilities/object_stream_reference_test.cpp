// Objects that come once, objects that come again, and objects that lead back to themselves.

#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <set>
#include <sstream>
#include <string>

#include "framework/utilities/object_stream.h"
#include "tests/framework/utilities/node.h"
#include "tests/framework/utilities/record_bytes.h"

namespace {

std::string LeafRecord(std::int32_t value) {
  return Word(static_cast<std::uint32_t>(value)) + Text("") + NullPointer() + NullPointer();
}

// A stream to write to and to read back from, and the owner of all nodes that were read.
class ObjectStreamReference : public testing::Test {
 protected:
  ~ObjectStreamReference() override {
    for (Node* const node : nodes_) delete node;
  }

  Node* Read() {
    Node* const node = ReadNode(in);
    CollectNodes(node, nodes_);
    return node;
  }

  std::stringstream bytes;
  Kivopstream out{bytes};
  Kivipstream in{bytes};

 private:
  std::set<Node*> nodes_;
};

TEST_F(ObjectStreamReference, ObjectIsItsClassNameAndRecordTheFirstTime) {
  const Node node(5);
  out.WriteObject(&node);
  EXPECT_EQ(bytes.str(), NewObject("Node") + LeafRecord(5));
}

TEST_F(ObjectStreamReference, ObjectIsAReferenceAfterThat) {
  const Node zero(10);
  const Node one(11);
  out.WriteObjectPointer(&zero);
  out.WriteObject(&one);
  out.WriteObjectPointer(&one);
  out.WriteObject(&zero);
  EXPECT_EQ(bytes.str(), NewObject("Node") + LeafRecord(10) + NewObject("Node") + LeafRecord(11) +
                             Reference(1) + Reference(0));
}

TEST_F(ObjectStreamReference, NullPointerIsWrittenAndRead) {
  out.WriteObjectPointer(nullptr);
  EXPECT_EQ(bytes.str(), NullPointer());
  EXPECT_EQ(out.State(), 0);
  EXPECT_EQ(Read(), nullptr);
  EXPECT_EQ(in.State(), 0);
}

TEST_F(ObjectStreamReference, ObjectComesBackAsItWas) {
  Node node(-7);
  node.text = "seven";
  out.WriteObjectPointer(&node);
  const Node* const read = Read();
  ASSERT_NE(read, nullptr);
  EXPECT_NE(read, &node);
  EXPECT_EQ(read->value, -7);
  EXPECT_EQ(read->text, "seven");
  EXPECT_EQ(read->first, nullptr);
  EXPECT_EQ(in.State(), 0);
}

TEST_F(ObjectStreamReference, ObjectOfADerivedClassComesBackAsThat) {
  CountedNode node(3);
  node.count = 0xffffffff;
  out.WriteObjectPointer(&node);
  const auto* const read = dynamic_cast<CountedNode*>(Read());
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->value, 3);
  EXPECT_EQ(read->count, 0xffffffffU);
}

TEST_F(ObjectStreamReference, SharedObjectStaysShared) {
  Node shared(1);
  Node root(2);
  root.first = root.second = &shared;
  out.WriteObjectPointer(&root);
  const Node* const read = Read();
  ASSERT_NE(read, nullptr);
  ASSERT_NE(read->first, nullptr);
  EXPECT_EQ(read->first, read->second);
  EXPECT_EQ(read->first->value, 1);
}

TEST_F(ObjectStreamReference, ObjectSharedByTwoReadingsStaysShared) {
  const Node node(1);
  out.WriteObjectPointer(&node);
  out.WriteObjectPointer(&node);
  const Node* const first = Read();
  EXPECT_NE(first, nullptr);
  EXPECT_EQ(Read(), first);
}

TEST_F(ObjectStreamReference, CycleIsClosedAgain) {
  Node a(1);
  Node b(2);
  a.first = &b;
  b.first = &a;
  b.second = &b;
  out.WriteObjectPointer(&a);
  const Node* const read = Read();
  ASSERT_NE(read, nullptr);
  ASSERT_NE(read->first, nullptr);
  EXPECT_EQ(read->first->value, 2);
  EXPECT_EQ(read->first->first, read);
  EXPECT_EQ(read->first->second, read->first);
  EXPECT_EQ(in.State(), 0);
}

TEST_F(ObjectStreamReference, ObjectCanBeReadInPlace) {
  Node node(9);
  Node child(10);
  node.first = &child;
  out.WriteObject(&node);
  Node target;
  KivStreamable* pointer = &target;
  in.ReadObject(pointer);
  const std::unique_ptr<Node> read_child(target.first);
  EXPECT_EQ(pointer, &target);
  EXPECT_EQ(target.value, 9);
  ASSERT_NE(target.first, nullptr);
  EXPECT_EQ(target.first->value, 10);
  EXPECT_EQ(in.State(), 0);
}

TEST_F(ObjectStreamReference, ReferenceLeadsToAnObjectReadInPlace) {
  Node node(9);
  node.second = &node;
  out.WriteObject(&node);
  out.WriteObjectPointer(&node);
  Node target;
  KivStreamable* pointer = &target;
  in.ReadObject(pointer);
  EXPECT_EQ(target.second, &target);
  EXPECT_EQ(ReadNode(in), &target);
}

TEST_F(ObjectStreamReference, ObjectReadInPlaceCanComeAgainForItself) {
  const Node node(9);
  out.WriteObject(&node);
  out.WriteObject(&node);
  Node target;
  KivStreamable* pointer = &target;
  in.ReadObject(pointer);
  in.ReadObject(pointer);
  EXPECT_EQ(pointer, &target);
  EXPECT_EQ(in.State(), 0);
}

TEST_F(ObjectStreamReference, ObjectReadIntoNullIsNew) {
  const Node node(9);
  out.WriteObject(&node);
  KivStreamable* pointer = nullptr;
  in.ReadObject(pointer, Node::CastableIdent);
  const std::unique_ptr<KivStreamable> read(pointer);
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(static_cast<Node&>(*read).value, 9);
  EXPECT_EQ(in.State(), 0);
}

TEST_F(ObjectStreamReference, ObjectMayBeOfAnyClassWhenNoneIsAskedFor) {
  const Stone stone;
  out.WriteObjectPointer(&stone);
  EXPECT_EQ(bytes.str(), NewObject("Stone")) << "the common part of a record is empty";
  const std::unique_ptr<KivStreamable> read(in.ReadObjectPointer());
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->CastableID(), Stone::CastableIdent);
}

TEST_F(ObjectStreamReference, NullIsNoObjectToWrite) {
  out.WriteObject(nullptr);
  EXPECT_EQ(out.State(), Kivpstream::kFailure);
  EXPECT_EQ(bytes.str(), NullPointer());
}

}  // namespace
