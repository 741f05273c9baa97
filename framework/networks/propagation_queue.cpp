#include "framework/networks/propagation_queue.h"

KivOmbiPropagationQueue::KivOmbiPropagationQueue(unsigned levels) : levels_(levels) {}

// A level that never runs empty must not grow without end; half of it is moved at most once for as
// many numbers that came out.
void KivOmbiPropagationQueue::ForgetOut(Level& level) {
  if (level.next * 2 < level.numbers.size()) return;
  level.numbers.erase(level.numbers.begin(),
                      level.numbers.begin() + static_cast<std::ptrdiff_t>(level.next));
  level.next = 0;
}
