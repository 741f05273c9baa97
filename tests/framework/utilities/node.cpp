#include "tests/framework/utilities/node.h"

#include <vector>

namespace {

const KivStreamableClass node_class(Node::CastableIdent, Node::Build, 1);
const KivStreamableClass counted_node_class(CountedNode::CastableIdent, CountedNode::Build, 1);
const KivStreamableClass stone_class(Stone::CastableIdent, Stone::Build, 1);
const KivStreamableClass barren_class(
    kBarrenClass, [](KivStreamable* object) { return object; }, 1);

}  // namespace

int Node::alive = 0;
int Stone::alive = 0;

const char Node::CastableIdent[] = "Node";
const char CountedNode::CastableIdent[] = "CountedNode";
const char Stone::CastableIdent[] = "Stone";

Node::~Node() { --alive; }

const char* Node::CastableID() const { return CastableIdent; }

void Node::Write(Kivopstream& out) const {
  KivStreamable::Write(out);
  out << value << text;
  out.WriteObjectPointer(first);
  out.WriteObjectPointer(second);
}

void Node::Read(Kivipstream& in) {
  KivStreamable::Read(in);
  in >> value >> text;
  first = ReadNode(in);
  second = ReadNode(in);
}

int Node::IsDerivedFrom(const char* ident) const {
  return ident == CastableIdent ? 1 : KivStreamable::IsDerivedFrom(ident);
}

KivStreamable* Node::Build(KivStreamable* object) {
  return object != nullptr ? object : new Node(kKivStreamableInit);
}

const char* CountedNode::CastableID() const { return CastableIdent; }

void CountedNode::Write(Kivopstream& out) const {
  Node::Write(out);
  out << count;
}

void CountedNode::Read(Kivipstream& in) {
  Node::Read(in);
  in >> count;
}

int CountedNode::IsDerivedFrom(const char* ident) const {
  return ident == CastableIdent ? 1 : Node::IsDerivedFrom(ident);
}

KivStreamable* CountedNode::Build(KivStreamable* object) {
  return object != nullptr ? object : new CountedNode(kKivStreamableInit);
}

Stone::~Stone() { --alive; }

const char* Stone::CastableID() const { return CastableIdent; }

KivStreamable* Stone::Build(KivStreamable* object) {
  return object != nullptr ? object : new Stone;
}

void CollectNodes(Node* root, std::set<Node*>& found) {
  std::vector<Node*> waiting = {root};
  while (!waiting.empty()) {
    Node* const node = waiting.back();
    waiting.pop_back();
    if (node == nullptr || !found.insert(node).second) continue;
    waiting.push_back(node->first);
    waiting.push_back(node->second);
  }
}

Node* ReadNode(Kivipstream& in) {
  return static_cast<Node*>(in.ReadObjectPointer(Node::CastableIdent));
}
