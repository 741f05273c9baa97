#include "solver/constraints/machine_times.h"

#include <algorithm>
#include <numeric>

namespace kiv {

namespace {

using Task = MachineTimes::Task;

// Time runs the other way, so that what is said of starts is said of ends.
void Mirror(std::vector<Task>& tasks) {
  for (Task& task : tasks) {
    task = {-task.latest_end, -task.earliest_start, task.duration};
  }
}

}  // namespace

bool MachineTimes::Narrow(std::vector<Task>& tasks) {
  bool is_open = true;
  while (is_open) {
    is_open = false;
    for (int direction = 0; direction < 2; ++direction) {
      if (!NarrowOnce(tasks)) return false;
      is_open |= tasks != narrowed_;
      tasks.swap(narrowed_);
      Mirror(tasks);
    }
  }
  return true;
}

// Leaves in narrowed_ what follows in one direction of time. False when the tasks do not fit in.
bool MachineTimes::NarrowOnce(std::vector<Task>& tasks) {
  narrowed_ = tasks;
  SortTasks(tasks);
  if (IsOverloaded(tasks)) return false;
  DetectPrecedences(tasks);
  FindNotLast(tasks);
  FindEdges(tasks);
  return std::ranges::all_of(
      narrowed_, [](const Task& task) { return task.EarliestEnd() <= task.latest_end; });
}

void MachineTimes::SortTasks(std::span<const Task> tasks) {
  const auto sort = [&](std::vector<std::size_t>& order, auto key) {
    order.resize(tasks.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    std::ranges::sort(order, {}, [&](std::size_t task) { return key(tasks[task]); });
  };
  sort(by_earliest_start_, [](const Task& task) { return task.earliest_start; });
  sort(by_earliest_end_, [](const Task& task) { return task.EarliestEnd(); });
  sort(by_latest_start_, [](const Task& task) { return task.LatestStart(); });
  sort(by_latest_end_, [](const Task& task) { return task.latest_end; });
  rank_.resize(tasks.size());
  for (std::size_t i = 0; i < tasks.size(); ++i) rank_[by_earliest_start_[i]] = i;
}

void MachineTimes::Insert(std::span<const Task> tasks, std::size_t task) {
  tree_.InsertTheta(rank_[task], tasks[task].earliest_start, tasks[task].duration);
  is_inserted_[task] = 1;
}

// When the inserted tasks but this one are done.
std::int64_t MachineTimes::EndWithout(std::span<const Task> tasks, std::size_t task) {
  if (is_inserted_[task] == 0) return tree_.GetEnd();
  tree_.Remove(rank_[task]);
  const std::int64_t end = tree_.GetEnd();
  Insert(tasks, task);
  return end;
}

// Tasks that must end by some time are done later.
bool MachineTimes::IsOverloaded(std::span<const Task> tasks) {
  tree_.Reset(tasks.size());
  is_inserted_.assign(tasks.size(), 0);
  for (const std::size_t task : by_latest_end_) {
    Insert(tasks, task);
    if (tree_.GetEnd() > tasks[task].latest_end) return true;
  }
  return false;
}

// A task that cannot end before others must start comes after all of those.
void MachineTimes::DetectPrecedences(std::span<const Task> tasks) {
  tree_.Reset(tasks.size());
  is_inserted_.assign(tasks.size(), 0);
  auto other = by_latest_start_.begin();
  for (const std::size_t task : by_earliest_end_) {
    while (other != by_latest_start_.end() &&
           tasks[task].EarliestEnd() > tasks[*other].LatestStart()) {
      Insert(tasks, *other++);
    }
    Task& narrowed = narrowed_[task];
    narrowed.earliest_start = std::max(narrowed.earliest_start, EndWithout(tasks, task));
  }
}

// A task that would start too late behind others ends before one of those starts.
void MachineTimes::FindNotLast(std::span<const Task> tasks) {
  tree_.Reset(tasks.size());
  is_inserted_.assign(tasks.size(), 0);
  auto other = by_latest_start_.begin();
  for (const std::size_t task : by_latest_end_) {
    while (other != by_latest_start_.end() &&
           tasks[task].latest_end > tasks[*other].LatestStart()) {
      Insert(tasks, *other++);
    }
    if (EndWithout(tasks, task) <= tasks[task].LatestStart()) continue;
    Task& narrowed = narrowed_[task];
    narrowed.latest_end = std::min(narrowed.latest_end, tasks[*(other - 1)].LatestStart());
  }
}

// A task with which others could not end in time comes after all of those.
void MachineTimes::FindEdges(std::span<const Task> tasks) {
  tree_.Reset(tasks.size());
  is_inserted_.assign(tasks.size(), 0);
  for (std::size_t task = 0; task < tasks.size(); ++task) Insert(tasks, task);
  for (std::size_t last = tasks.size(); last-- > 1;) {
    const std::size_t grey = by_latest_end_[last];
    tree_.InsertLambda(rank_[grey], tasks[grey].earliest_start, tasks[grey].duration);
    const std::int64_t latest_end = tasks[by_latest_end_[last - 1]].latest_end;
    while (tree_.GetDelayer() != ThetaLambdaTree::kNobody && tree_.GetDelayedEnd() > latest_end) {
      const std::size_t rank = tree_.GetDelayer();
      Task& narrowed = narrowed_[by_earliest_start_[rank]];
      narrowed.earliest_start = std::max(narrowed.earliest_start, tree_.GetEnd());
      tree_.Remove(rank);
    }
  }
}

}  // namespace kiv
