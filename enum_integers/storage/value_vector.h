#pragma once

#include <algorithm>
#include <concepts>
#include <cstdint>
#include <cstring>
#include <span>

#include "enum_integers/storage/value_vector_iterator.h"
#include "framework/base/export.h"
#include "framework/intervals/sub_int_base.h"

// A growable array of values that can be kept in ascending order: Add and AddUnique insert by
// order, the searches bisect. It owns Limit() slots, of which the first Top() are in use; the
// others hold zeros or what was there before. Nothing throws: an operation that finds no memory
// returns 0 and leaves the vector as it was. One thread at a time may use a vector.
//
// All operations except the constructors, the assignment, operator[], Limit, NextDelta and Resize
// are virtual and call each other through their slots, so that a derived vector can replace them.
class KIV_EXPORT KivSVectorImp_SubIntBase {
 public:
  using Visitor = void (*)(SubIntBase& value, void* context);
  using Predicate = int (*)(const SubIntBase& value, void* context);

  // A vector without storage that can never grow: every insertion fails until another vector is
  // assigned to it.
  KivSVectorImp_SubIntBase() noexcept = default;

  // Room for `size` + 1 values, growing by multiples of `delta`. A nonzero `bitwise` makes a copy
  // of the vector take over the values in use alone; otherwise it takes over the unused slots too.
  KivSVectorImp_SubIntBase(unsigned size, unsigned delta, int bitwise) noexcept;
  // The same with a step of any other integer type; without it such a step would be ambiguous.
  template <std::integral Step>
  KivSVectorImp_SubIntBase(unsigned size, Step delta, int bitwise) noexcept
      : KivSVectorImp_SubIntBase(size, static_cast<unsigned>(delta), bitwise) {}
  // Growing in proportion to its size, by `factor`; one that is not above 0 is taken as 1.
  KivSVectorImp_SubIntBase(unsigned size, double factor, int bitwise) noexcept;

  KivSVectorImp_SubIntBase(const KivSVectorImp_SubIntBase& other) noexcept;
  // Takes over goodness, and, when `other` is good, limit, manner of growth and values as well. A
  // vector without memory for them ends empty and not good.
  const KivSVectorImp_SubIntBase& operator=(const KivSVectorImp_SubIntBase& other) noexcept;
  virtual ~KivSVectorImp_SubIntBase();

  // 1 when the storage is usable: no allocation failed since it was last allocated.
  virtual int Good();
  virtual int Good() const;

  // Inserts `v` behind all values up to it. 1, or 0 when the vector could not grow.
  virtual int Add(const SubIntBase& v);
  // Inserts `v` unless it is there. 1 when it is there now, 0 when the vector could not grow.
  virtual int AddUnique(const SubIntBase& v);
  // Inserts `v` at position `i`, whatever the order; a position beyond the top first raises the top
  // to it. 1, or 0 when the vector could not grow.
  virtual int AddAt(const SubIntBase& v, unsigned i);
  // Removes one value equal to `v`; 1 when there was one.
  virtual int Detach(const SubIntBase& v);
  // Removes the `n` values from position `i` on, or as many as there are. 0 when `i` is no slot.
  virtual int DetachAt(unsigned i, unsigned n);
  virtual int IsEmpty() const;
  // Removes all values; the storage stays.
  virtual void Flush();

  // Searches, logarithmic, for ascending values. What is not found is at Limit() + 1, so that
  // callers test `index < Top()`. The position of a value equal to `v`.
  virtual unsigned Find(const SubIntBase& v) const;
  // The first of the values equal to `v`.
  virtual unsigned ClusteredFind(const SubIntBase& v) const;
  // The greatest value that is at most `v`; the first of its equals when `clustered` is nonzero.
  virtual unsigned FindLowerBound(SubIntBase v, int clustered) const;
  // The least value that is at least `v`; the first of its equals when `clustered` is nonzero.
  virtual unsigned FindUpperBound(SubIntBase v, int clustered) const;

  // The number of values.
  virtual unsigned Count() const { return top_; }
  virtual unsigned Top() const { return top_; }
  // The growth step; 0 for a vector that grows in proportion or not at all.
  virtual unsigned GetDelta() const { return delta_; }

  // Walks over the slots `from` .. `to` - 1, which are not checked, or over all values.
  virtual void ForEach(Visitor visit, void* context, unsigned from, unsigned to);
  virtual void ForEach(Visitor visit, void* context);
  // The first slot that satisfies `test`, or null.
  virtual SubIntBase* FirstThat(Predicate test, void* context) const;
  virtual SubIntBase* FirstThat(Predicate test, void* context, unsigned from, unsigned to) const;
  // The last slot that satisfies `test`, or null; every slot of the range is tested.
  virtual SubIntBase* LastThat(Predicate test, void* context) const;
  virtual SubIntBase* LastThat(Predicate test, void* context, unsigned from, unsigned to) const;

  // Slot `i`, which is not checked.
  SubIntBase& operator[](unsigned i) { return data_[i]; }
  const SubIntBase& operator[](unsigned i) const { return data_[i]; }

  // The values, for who knows that the vector is not a derived one.
  std::span<const SubIntBase> View() const noexcept { return {data_, top_}; }

  // The number of slots.
  unsigned Limit() const noexcept { return front_ + limit_; }
  // By how many slots the vector would grow to make room for `n` more values; 0 when it cannot
  // grow.
  unsigned NextDelta(unsigned n) const;
  // Grows to at least `limit` slots. 0 when the vector has as many, cannot grow or finds no memory.
  int Resize(unsigned limit);
  // Takes `count` values for the present ones: returns the slots, which the caller fills in order.
  // The growth step becomes `delta`. Null when there is no memory; the vector is as it was then.
  SubIntBase* Overwrite(unsigned count, unsigned delta) noexcept {
    DropFront();
    if (count > limit_ && !Replace(count)) return nullptr;
    top_ = count;
    delta_ = delta;
    factor_ = 0.0;
    return data_;
  }
  // Has the `count` values from `first` on again, which it had, and which were only cut since:
  // taken away by Keep and Flush.
  void Uncover(const SubIntBase* first, unsigned count) noexcept {
    DropFront();
    MoveFront(static_cast<unsigned>(first - data_));
    top_ = count;
  }
  // Puts `count` values, ascending, between the present ones. 0 when there is no memory for them.
  int Merge(const SubIntBase* added, unsigned count) noexcept;
  // Removes `count` values that are there, ascending.
  void Remove(const SubIntBase* removed, unsigned count) noexcept;
  // Takes the values and the growth step of `other`, another vector, when there is room for them;
  // false when not.
  bool CopyIntoRoom(const KivSVectorImp_SubIntBase& other) noexcept {
    const unsigned room = std::min(Limit(), other.limit_);
    if (other.top_ > room) return false;
    DropFront();
    top_ = other.top_;
    delta_ = other.delta_;
    factor_ = other.factor_;
    CopySlots(other.data_, top_, room);
    return true;
  }
  // Keeps the values at the positions `first` .. `end` - 1, which are positions of values. They
  // stay where they are: the slots before them wait for values that are merged in.
  void Keep(unsigned first, unsigned end) noexcept {
    MoveFront(first);
    top_ = end - first;
  }

 private:
  // Copies `count` slots of another array; both have room for as many as `room`. Few are copied by
  // blocks, the last of which may begin before the end of the one before it, or take in unused
  // slots. The library's copy is slower to start, and its wide stores to an array that is not
  // aligned for them hold up those who read the values next.
  void CopySlots(const SubIntBase* from, unsigned count, unsigned room) noexcept {
    constexpr unsigned kBlock = 4;
    constexpr unsigned kMostInBlocks = 512;
    const auto copy_block = [this, from](unsigned at) {
      std::memcpy(static_cast<void*>(data_ + at), from + at, kBlock * sizeof(SubIntBase));
    };
    if (count > kMostInBlocks || room < kBlock) {
      std::copy_n(from, count, data_);
      return;
    }
    for (unsigned i = 0; i + kBlock < count; i += kBlock) copy_block(i);
    copy_block(std::max(count, kBlock) - kBlock);
  }
  // The first slot in use moves up by `n` slots, of which there are as many.
  void MoveFront(unsigned n) noexcept {
    data_ += n;
    front_ += n;
    limit_ -= n;
  }
  // It becomes the first of all; the values are lost.
  void DropFront() noexcept {
    data_ -= front_;
    limit_ += front_;
    front_ = 0;
  }
  // The same for the values as well.
  void CloseFront() noexcept;
  bool Replace(unsigned count) noexcept;
  std::uint64_t ProportionalLimit(std::uint64_t least) const;
  unsigned RoundedToStep(unsigned n) const;
  unsigned FirstOfEquals(unsigned i) const;
  unsigned CountBelow(SubIntBase v) const;
  unsigned BisectToEqual(SubIntBase v, unsigned first) const;

  SubIntBase* data_ = nullptr;  // the first slot in use
  unsigned limit_ = 0;          // slots from there on
  unsigned top_ = 0;
  unsigned front_ = 0;  // slots before that
  unsigned delta_ = 0;
  double factor_ = 0.0;
  int good_ = 1;
  int bitwise_ = 0;
};
