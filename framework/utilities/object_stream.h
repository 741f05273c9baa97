#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <unordered_map>
#include <vector>

#include "framework/base/export.h"
#include "framework/utilities/text_stream.h"

class KivStreamable;
class Kivipstream;
class Kivopstream;

// Marks the constructor of an object that a stream will fill.
enum KivStreamableInit { kKivStreamableInit = 0 };

// An object that can be written to a Kivopstream and read back from a Kivipstream.
class KIV_EXPORT KivStreamable {
 public:
  virtual ~KivStreamable();
  // The identity of the object's class: the address of its name.
  virtual const char* CastableID() const = 0;
  // The record of the object. The common part that stands here is empty.
  virtual void Write(Kivopstream& out) const;
  virtual void Read(Kivipstream& in);
  // 1 when the object's class is the one of identity `ident` or derived from it. Addresses are
  // compared, never texts.
  virtual int IsDerivedFrom(const char* ident) const;

 protected:
  KivStreamable() = default;
  explicit KivStreamable(KivStreamableInit) {}
  KivStreamable(const KivStreamable&) = default;
  KivStreamable& operator=(const KivStreamable&) = default;
};

// Makes an object of a class for a stream to fill; a non-null argument is handed back instead. Null
// when there is no memory.
using KivStreamableBuilder = KivStreamable* (*)(KivStreamable*);

// A class that streams can build, known by name as long as this object lives. The registry is
// process wide and locked.
class KIV_EXPORT KivStreamableClass {
 public:
  // `version` is the version of the class's record.
  KivStreamableClass(const char* name, KivStreamableBuilder builder, int version);
  ~KivStreamableClass();
  KivStreamableClass(const KivStreamableClass&) = delete;
  KivStreamableClass& operator=(const KivStreamableClass&) = delete;

  const std::string& GetName() const noexcept { return name_; }
  KivStreamableBuilder GetBuilder() const noexcept { return builder_; }
  int GetVersion() const noexcept { return version_; }

  // The class registered under `name` last, or null.
  static const KivStreamableClass* Find(const std::string& name);

 private:
  std::string name_;
  KivStreamableBuilder builder_;
  int version_;
};

// Writes primitives (32 bits, little-endian), strings and objects. An object is its class name and
// record the first time, a reference to that after it, so that shared objects stay shared.
class KIV_EXPORT Kivopstream : public Kivpstream {
 public:
  explicit Kivopstream(std::ostream& out);
  Kivopstream(const Kivopstream&) = delete;
  Kivopstream& operator=(const Kivopstream&) = delete;

  Kivopstream& operator<<(std::int32_t value);
  Kivopstream& operator<<(std::uint32_t value);
  Kivopstream& operator<<(const std::string& text);

  // Writes the object; it must not be null.
  void WriteObject(const KivStreamable* object);
  // Writes the object, or that there is none.
  void WriteObjectPointer(const KivStreamable* object);

 private:
  std::ostream& out_;
  std::unordered_map<const KivStreamable*, std::uint32_t> numbers_;  // objects written so far
};

// Reads what a Kivopstream wrote. Nothing in the input can crash it: a record that cannot be right
// sets the state (kEnd and kFailure at the end of the input, kBad for what no Kivopstream writes) and
// reads as zeros, empty strings and null pointers.
class KIV_EXPORT Kivipstream : public Kivpstream {
 public:
  explicit Kivipstream(std::istream& in);
  Kivipstream(const Kivipstream&) = delete;
  Kivipstream& operator=(const Kivipstream&) = delete;

  Kivipstream& operator>>(std::int32_t& value);
  Kivipstream& operator>>(std::uint32_t& value);
  Kivipstream& operator>>(std::string& text);

  // Reads an object into `*object`, or, when `object` is null, into a new one that the caller owns.
  // The class in the stream must be that of the object; with a null `object` it must be `ident` or
  // derived from it, unless `ident` is null. On failure `object` is left as it is.
  void ReadObject(KivStreamable*& object, const char* ident = nullptr);
  // A new object, one that this stream built before, or null. The caller owns each new object.
  KivStreamable* ReadObjectPointer(const char* ident = nullptr);

  // How many bytes can still come, as far as that is known: never more than there are. No count that
  // was read from the stream may reserve more room than this can fill.
  std::size_t Remaining();

 private:
  std::istream& in_;
  std::vector<KivStreamable*> objects_;  // objects read so far, by number
  unsigned depth_ = 0;                   // of objects within objects
};
