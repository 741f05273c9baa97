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

// How deep objects may be nested, each in the record of the one before. Deeper ones are not written
// and not read, so that no chain of objects can use up the stack.
inline constexpr unsigned kKivMaxObjectDepth = 1000;

// An object that can be written to a Kivopstream and read back from a Kivipstream.
class KIV_EXPORT KivStreamable {
 public:
  virtual ~KivStreamable();
  // The identity of the object's class: the address of its name. Streams know the class by the
  // name.
  virtual const char* CastableID() const = 0;
  // The record of the object; Read reads what Write wrote, or the zeros and nulls of a stream that
  // failed. The common part that stands here is empty. Neither throws.
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
// process wide and locked, and can be used during the static initialisation of any library. Of two
// classes of one name the one registered last is known; when it goes, the other is known again.
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

// Writes primitives (32 bits, little-endian), strings (length and bytes) and objects. An object is
// its class name and record the first time, a reference to that after it, so that shared objects
// stay shared and cycles end. Objects are told apart by address: what was written must stay alive
// while the stream is used. The state gets kBad when the std::ostream takes no more, kFailure for
// what cannot be written.
class KIV_EXPORT Kivopstream : public Kivpstream {
 public:
  explicit Kivopstream(std::ostream& out);
  Kivopstream(const Kivopstream&) = delete;
  Kivopstream& operator=(const Kivopstream&) = delete;

  Kivopstream& operator<<(std::int32_t value);
  Kivopstream& operator<<(std::uint32_t value);
  // A text of 4 GiB or more is written as an empty one, with kFailure.
  Kivopstream& operator<<(const std::string& text);

  // Writes the object. It must not be null: that is a kFailure, and a null pointer is written.
  void WriteObject(const KivStreamable* object);
  // Writes the object, or that there is none. An object nested deeper than kKivMaxObjectDepth is a
  // kFailure, and a null pointer is written in its place.
  void WriteObjectPointer(const KivStreamable* object);

 private:
  void WriteBytes(const char* bytes, std::size_t size);

  std::ostream& out_;
  std::unordered_map<const KivStreamable*, std::uint32_t> numbers_;  // objects written so far
  unsigned depth_ = 0;                                               // of objects within objects
};

// Reads what a Kivopstream wrote. Nothing in the input can crash it: what cannot be read adds to
// the state and reads as zero, an empty string or a null pointer.
//   kEnd | kFailure  the input ended; what was left of it is consumed
//   kBad             no Kivopstream writes this: an unknown tag, a reference to an object that has
//   not
//                    come, objects nested deeper than kKivMaxObjectDepth
//   kFailure         an object, but not one that can be had here: its class is unknown, is not the
//   one
//                    that was asked for, or could not build it, or null came where an object must
//                    come. Its record stays unread.
//
// The caller owns every object that a call made for it and returned, also when its record failed
// and left it half filled; an object that was made and is not of the class that was asked for is
// deleted before anyone sees it. Later references may lead to any object read: all must stay alive
// while the stream is used.
class KIV_EXPORT Kivipstream : public Kivpstream {
 public:
  explicit Kivipstream(std::istream& in);
  Kivipstream(const Kivipstream&) = delete;
  Kivipstream& operator=(const Kivipstream&) = delete;

  Kivipstream& operator>>(std::int32_t& value);
  Kivipstream& operator>>(std::uint32_t& value);
  Kivipstream& operator>>(std::string& text);

  // Reads an object into `*object`; it must be of exactly the class of that. In the place of its
  // record a reference may stand, but only to `*object` itself. With a null `object` this is
  // ReadObjectPointer, except that null must not come. When no object comes, `object` and `*object`
  // are left as they are.
  void ReadObject(KivStreamable*& object, const char* ident = nullptr);
  // A new object, one that this stream read before, or null. Its class must be `ident` or derived
  // from it, unless `ident` is null.
  KivStreamable* ReadObjectPointer(const char* ident = nullptr);

  // How many bytes can still come, as far as that is known: what is left of a seekable input, what
  // is buffered of any other; never more than there are. No count that was read from the stream may
  // reserve more room than this can fill.
  std::size_t Remaining();

 private:
  // These are false, and the state says so, when the input ends first; then the value is 0 or
  // empty.
  bool ReadBytes(char* bytes, std::size_t size);
  bool ReadWord(std::uint32_t& value);
  bool ReadText(std::string& text);

  // The next pointer: `target`, filled, or without a target any object of kind `ident`. Null when
  // none comes.
  KivStreamable* ReadItem(KivStreamable* target, const char* ident);
  KivStreamable* ReadNew(KivStreamable* target, const char* ident);
  KivStreamable* ReadReference(const KivStreamable* target, const char* ident);

  std::istream& in_;
  std::vector<KivStreamable*> objects_;  // objects read so far, by number; null for one that failed
  unsigned depth_ = 0;                   // of objects within objects
};
