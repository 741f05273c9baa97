#include "framework/utilities/object_stream.h"

#include <algorithm>
#include <array>
#include <istream>
#include <limits>
#include <memory>
#include <ostream>

namespace {

// What stands before a pointer to an object. A tag that the end of the input cut off reads as 0,
// the null pointer.
enum Tag : std::uint32_t {
  kNull = 0,
  kNew = 1,        // followed by the name of the class and the record
  kReference = 2,  // followed by the number of an object that came before, counted from 0
};

constexpr std::size_t kWordSize = 4;

bool IsA(const KivStreamable& object, const char* ident) {
  return ident == nullptr || object.IsDerivedFrom(ident) != 0;
}

// A new object of the class named `name`, when that is known here and is `ident` or derived from
// it.
std::unique_ptr<KivStreamable> Make(const std::string& name, const char* ident) {
  const KivStreamableClass* const streamable_class = KivStreamableClass::Find(name);
  if (streamable_class == nullptr) return nullptr;
  std::unique_ptr<KivStreamable> object(streamable_class->GetBuilder()(nullptr));
  if (object != nullptr && !IsA(*object, ident)) object.reset();
  return object;
}

}  // namespace

KivStreamable::~KivStreamable() = default;

void KivStreamable::Write(Kivopstream&) const {}

void KivStreamable::Read(Kivipstream&) {}

int KivStreamable::IsDerivedFrom(const char* ident) const { return ident == CastableID() ? 1 : 0; }

Kivopstream::Kivopstream(std::ostream& out) : out_(out) {}

Kivopstream& Kivopstream::operator<<(std::int32_t value) {
  return *this << static_cast<std::uint32_t>(value);
}

Kivopstream& Kivopstream::operator<<(std::uint32_t value) {
  std::array<char, kWordSize> bytes;
  for (char& byte : bytes) {
    byte = static_cast<char>(value & 0xff);
    value >>= 8;
  }
  WriteBytes(bytes.data(), bytes.size());
  return *this;
}

Kivopstream& Kivopstream::operator<<(const std::string& text) {
  if (text.size() > std::numeric_limits<std::uint32_t>::max()) {
    Raise(kFailure);
    return *this << std::uint32_t{0};
  }
  *this << static_cast<std::uint32_t>(text.size());
  WriteBytes(text.data(), text.size());
  return *this;
}

void Kivopstream::WriteBytes(const char* bytes, std::size_t size) {
  if (!out_.write(bytes, static_cast<std::streamsize>(size))) Raise(kBad);
}

void Kivopstream::WriteObject(const KivStreamable* object) {
  if (object == nullptr) Raise(kFailure);
  WriteObjectPointer(object);
}

void Kivopstream::WriteObjectPointer(const KivStreamable* object) {
  if (object == nullptr) {
    *this << kNull;
    return;
  }
  if (const auto known = numbers_.find(object); known != numbers_.end()) {
    *this << kReference << known->second;
    return;
  }
  if (depth_ == kKivMaxObjectDepth) {
    Raise(kFailure);
    *this << kNull;
    return;
  }
  // Numbered before its record, which may lead back to it.
  numbers_.emplace(object, static_cast<std::uint32_t>(numbers_.size()));
  *this << kNew << std::string(object->CastableID());
  ++depth_;
  object->Write(*this);
  --depth_;
}

Kivipstream::Kivipstream(std::istream& in) : in_(in) {}

Kivipstream& Kivipstream::operator>>(std::int32_t& value) {
  std::uint32_t word = 0;
  ReadWord(word);
  value = static_cast<std::int32_t>(word);
  return *this;
}

Kivipstream& Kivipstream::operator>>(std::uint32_t& value) {
  ReadWord(value);
  return *this;
}

Kivipstream& Kivipstream::operator>>(std::string& text) {
  ReadText(text);
  return *this;
}

bool Kivipstream::ReadBytes(char* bytes, std::size_t size) {
  if (in_.read(bytes, static_cast<std::streamsize>(size))) return true;
  Raise(kEnd | kFailure);
  return false;
}

bool Kivipstream::ReadWord(std::uint32_t& value) {
  value = 0;
  std::array<unsigned char, kWordSize> bytes;
  if (!ReadBytes(reinterpret_cast<char*>(bytes.data()), bytes.size())) return false;
  for (std::size_t i = kWordSize; i-- > 0;) value = value << 8 | bytes[i];
  return true;
}

bool Kivipstream::ReadText(std::string& text) {
  text.clear();
  std::uint32_t length = 0;
  if (!ReadWord(length)) return false;
  // Piece by piece, so that a length that the input does not keep costs no more than the input.
  std::array<char, 1024> piece;
  for (std::size_t left = length; left > 0;) {
    const std::size_t size = std::min(left, piece.size());
    if (!ReadBytes(piece.data(), size)) {
      text.clear();
      return false;
    }
    text.append(piece.data(), size);
    left -= size;
  }
  return true;
}

void Kivipstream::ReadObject(KivStreamable*& object, const char* ident) {
  if (KivStreamable* const read = ReadItem(object, ident); read != nullptr) {
    object = read;
  } else {
    Raise(kFailure);
  }
}

KivStreamable* Kivipstream::ReadObjectPointer(const char* ident) {
  return ReadItem(nullptr, ident);
}

KivStreamable* Kivipstream::ReadItem(KivStreamable* target, const char* ident) {
  std::uint32_t tag = kNull;
  ReadWord(tag);
  switch (tag) {
    case kNull:
      return nullptr;
    case kNew:
      return ReadNew(target, ident);
    case kReference:
      return ReadReference(target, ident);
    default:
      Raise(kBad);
      return nullptr;
  }
}

KivStreamable* Kivipstream::ReadNew(KivStreamable* target, const char* ident) {
  std::string name;
  if (!ReadText(name)) return nullptr;
  if (depth_ == kKivMaxObjectDepth) {
    Raise(kBad);
    return nullptr;
  }
  // Numbered before its record, which may lead back to it, and even if nothing comes of it, so that
  // the numbers stay those of the writer.
  const std::size_t number = objects_.size();
  objects_.push_back(nullptr);
  std::unique_ptr<KivStreamable> made;
  if (target == nullptr) {
    made = Make(name, ident);
    target = made.get();
  } else if (name != target->CastableID()) {
    target = nullptr;
  }
  if (target == nullptr) {
    Raise(kFailure);
    return nullptr;
  }
  objects_[number] = target;
  ++depth_;
  target->Read(*this);
  --depth_;
  made.release();
  return target;
}

KivStreamable* Kivipstream::ReadReference(const KivStreamable* target, const char* ident) {
  std::uint32_t number = 0;
  if (!ReadWord(number)) return nullptr;
  if (number >= objects_.size()) {
    Raise(kBad);
    return nullptr;
  }
  KivStreamable* const object = objects_[number];
  if (object == nullptr || (target == nullptr ? !IsA(*object, ident) : object != target)) {
    Raise(kFailure);
    return nullptr;
  }
  return object;
}

std::size_t Kivipstream::Remaining() {
  if (!in_.good()) return 0;
  // The buffer is asked, not the stream: a question that it cannot answer is no failure of reading.
  std::streambuf& buffer = *in_.rdbuf();
  const std::streamoff here = buffer.pubseekoff(0, std::ios_base::cur, std::ios_base::in);
  const std::streamoff end =
      here < 0 ? here : std::streamoff{buffer.pubseekoff(0, std::ios_base::end, std::ios_base::in)};
  if (end < 0) {
    return static_cast<std::size_t>(std::max(buffer.in_avail(), std::streamsize{0}));
  }
  if (buffer.pubseekpos(here, std::ios_base::in) < 0) {
    in_.setstate(std::ios_base::badbit);
    return 0;
  }
  return static_cast<std::size_t>(std::max(end - here, std::streamoff{0}));
}
