#pragma once

#include <cstdint>
#include <set>
#include <string>

#include "framework/utilities/object_stream.h"

// Objects for streams to carry. The classes are registered under the texts of their identities.

// An object that points to others. It owns none of them, so that any graph can be made of nodes.
class Node : public KivStreamable {
 public:
  static const char CastableIdent[];

  explicit Node(std::int32_t node_value = 0) : value(node_value) { ++alive; }
  explicit Node(KivStreamableInit init) : KivStreamable(init) { ++alive; }
  Node(const Node&) = delete;
  Node& operator=(const Node&) = delete;
  ~Node() override;

  const char* CastableID() const override;
  void Write(Kivopstream& out) const override;
  void Read(Kivipstream& in) override;
  int IsDerivedFrom(const char* ident) const override;
  static KivStreamable* Build(KivStreamable* object);

  std::int32_t value = 0;
  std::string text;
  Node* first = nullptr;
  Node* second = nullptr;

  static int alive;  // how many nodes exist
};

// A kind of node with a longer record.
class CountedNode : public Node {
 public:
  static const char CastableIdent[];

  using Node::Node;
  const char* CastableID() const override;
  void Write(Kivopstream& out) const override;
  void Read(Kivipstream& in) override;
  int IsDerivedFrom(const char* ident) const override;
  static KivStreamable* Build(KivStreamable* object);

  std::uint32_t count = 0;
};

// No node. It adds nothing to what every streamable object has.
class Stone : public KivStreamable {
 public:
  static const char CastableIdent[];

  Stone() { ++alive; }
  Stone(const Stone&) = delete;
  Stone& operator=(const Stone&) = delete;
  ~Stone() override;
  const char* CastableID() const override;
  static KivStreamable* Build(KivStreamable* object);

  static int alive;
};

// The name of a registered class whose builder never has memory.
inline constexpr const char* kBarrenClass = "Barren";

// Adds to `found` all nodes that can be reached from `root`, itself included.
void CollectNodes(Node* root, std::set<Node*>& found);

// Reads a pointer to a node.
Node* ReadNode(Kivipstream& in);
