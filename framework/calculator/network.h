#pragma once

#include <cstdint>
#include <span>

#include "framework/base/export.h"

class KivOmbiObject;
class KivOmbiObjectDescriptor;

// What the objects of a network ask of it.
class KIV_EXPORT KivOmbiNetwork {
 public:
  virtual ~KivOmbiNetwork();

  // Lets constraint number `constraint` run; `events` are the KivOmbiEvent bits that it will be
  // told.
  virtual void Enqueue(std::uint32_t constraint, std::int64_t events) = 0;
  // The domain of `variable` is about to be written.
  virtual void WillChange(std::uint32_t variable) = 0;
  // It is about to lose `values`, ascending, and nothing else. By default a change like any other.
  virtual void WillLose(std::uint32_t variable, std::span<const std::int32_t> values);
  // The domain of `variable` was written: brings its summary up to date and wakes whom it concerns.
  virtual void Refresh(std::uint32_t variable) = 0;
  // `word` belongs to an object of the network and is about to change; it becomes what it is now
  // when the current level is taken back.
  virtual void SaveWord(std::uint64_t& word) = 0;
  // An object of `kind` to compute with, one for each `index` below kScratchObjects; its value is
  // whatever its last user left.
  virtual KivOmbiObject& Scratch(const KivOmbiObjectDescriptor& kind, unsigned index) = 0;

  static constexpr unsigned kScratchObjects = 4;

 protected:
  KivOmbiNetwork() = default;
  KivOmbiNetwork(const KivOmbiNetwork&) = delete;
  KivOmbiNetwork& operator=(const KivOmbiNetwork&) = delete;
};
