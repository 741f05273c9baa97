#include "solver/constraints/theta_lambda_tree.h"

#include <algorithm>
#include <bit>

namespace kiv {

void ThetaLambdaTree::Reset(std::size_t tasks) {
  leaves_ = std::bit_ceil(std::max<std::size_t>(tasks, 1));
  nodes_.assign(2 * leaves_, Node());
}

void ThetaLambdaTree::InsertTheta(std::size_t rank, std::int64_t earliest_start,
                                  std::int64_t duration) {
  const std::int64_t end = earliest_start + duration;
  Set(rank, {duration, end, duration, end, kNobody, kNobody});
}

void ThetaLambdaTree::InsertLambda(std::size_t rank, std::int64_t earliest_start,
                                   std::int64_t duration) {
  Set(rank, {0, kNone, duration, earliest_start + duration, rank, rank});
}

void ThetaLambdaTree::Remove(std::size_t rank) { Set(rank, Node()); }

void ThetaLambdaTree::Set(std::size_t rank, const Node& leaf) {
  std::size_t node = leaves_ + rank;
  nodes_[node] = leaf;
  for (node /= 2; node > 0; node /= 2) {
    nodes_[node] = Join(nodes_[2 * node], nodes_[2 * node + 1]);
  }
}

ThetaLambdaTree::Node ThetaLambdaTree::Join(const Node& left, const Node& right) {
  Node node;
  node.duration = left.duration + right.duration;
  node.end = std::max(left.end + right.duration, right.end);

  node.delayed_duration = left.delayed_duration + right.duration;
  node.duration_delayer = left.duration_delayer;
  if (left.duration + right.delayed_duration > node.delayed_duration) {
    node.delayed_duration = left.duration + right.delayed_duration;
    node.duration_delayer = right.duration_delayer;
  }
  node.delayed_end = right.delayed_end;
  node.end_delayer = right.end_delayer;
  const auto consider = [&](std::int64_t end, std::size_t delayer) {
    if (end <= node.delayed_end) return;
    node.delayed_end = end;
    node.end_delayer = delayer;
  };
  consider(left.end + right.delayed_duration, right.duration_delayer);
  consider(left.delayed_end + right.duration, left.end_delayer);
  return node;
}

}  // namespace kiv
