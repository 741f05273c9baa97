#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

#include "enum_integers/kernels/search.h"
#include "enum_integers/kernels/values.h"
#include "enum_integers/storage/value_vector.h"
#include "framework/abstract_types/integer.h"
#include "framework/calculator/descriptor.h"
#include "framework/numbers/interval_integer.h"
#include "framework/numbers/single_integer.h"

// The enumerated integer domain: the integers still possible, as an explicit ascending list of at
// most sMAX_CARD values, or one of two special states, Any (every integer) and Nil (none). A set
// that would outgrow the cap gives up precision and becomes Any.
//
// A domain without values is Any or Nil by a flag. While values are held, the flag is left over
// from what was before, and it decides again when the last value goes: a domain built from a
// SubIntBase becomes Any when its value is removed, one built by insertion into Nil becomes Nil.
//
// Operations that narrow return 0 when their target was left as it was and 1 when it was narrowed
// or made Nil. Nothing throws; a domain whose storage cannot grow becomes Nil. Each operator exists
// as a core over enumerated domains, often with a form for a single integer as target, and as a
// virtual entry for operands of any kind.
class KIV_EXPORT KivOmbEnumInteger : public KivOmbiInteger {
 public:
  // The greatest number of values; 0 until InitEnumIntegers sets it.
  static std::uint32_t sMAX_CARD;

  // Decides whether an intersection keeps a value.
  using ValueFilter = int (*)(const SubIntBase& value, void* context);

  KivOmbEnumInteger();  // Any
  // The one value, with a leftover flag of Any.
  KivOmbEnumInteger(const SubIntBase& value, int);
  // The same set as `single`.
  KivOmbEnumInteger(const KivOmbSingleInteger& single, int);
  // The values of a raw block: a 32-bit count and as many 32-bit values, in native byte order.
  explicit KivOmbEnumInteger(const void* raw_block);
  // For a stream to fill.
  explicit KivOmbEnumInteger(KivStreamableInit init);
  KivOmbEnumInteger(const KivOmbEnumInteger& other);
  KivOmbEnumInteger& operator=(const KivOmbEnumInteger& other) {
    if (HasOwner() || this == &other || !values.CopyIntoRoom(other.values)) {
      return AssignAnew(other);
    }
    anyFlag = other.anyFlag;
    return *this;
  }
  // Nil for Nil, but Any for a value and the stored value for Any: the reverse of the constructor.
  KivOmbEnumInteger& operator=(const KivOmbSingleInteger& single);
  ~KivOmbEnumInteger() override;

  // Identity and descriptor.
  class Descriptor;
  static const Descriptor* sDescriptor;  // null until MakeDescriptor
  static const char* const CastableIdent;
  // A new descriptor, which becomes sDescriptor; null when there is no memory.
  static const Descriptor* MakeDescriptor();
  static KivOmbEnumInteger* DynamicCast(std::nullptr_t) { return nullptr; }
  static KivOmbEnumInteger* DynamicCast(KivOmbiBase* object) {
    return KivCast<KivOmbEnumInteger>(object);
  }
  static const KivOmbEnumInteger* DynamicCast(const KivOmbiBase* object) {
    return KivCast<KivOmbEnumInteger>(object);
  }
  // Without a test.
  static KivOmbEnumInteger* StaticCast(KivOmbiBase* object);
  static const KivOmbEnumInteger* StaticCast(const KivOmbiBase* object);
  const char* CastableID() const override;
  const KivOmbiObjectDescriptor* GetDescriptor() const override;

  // Stream form: the common part, the flag, the number of values, the values.
  void Write(Kivopstream& out) const override;
  void Read(Kivipstream& in) override;
  // `object`, or a new domain for a stream to fill when it is null.
  static KivStreamable* Build(KivStreamable* object);
  static Kivipstream& readPtr(Kivipstream& in, KivOmbEnumInteger*& object);
  static Kivipstream& readRef(Kivipstream& in, KivOmbEnumInteger& object);
  static Kivopstream& writePtr(Kivopstream& out, const KivOmbEnumInteger* object);
  static Kivopstream& writeRef(Kivopstream& out, const KivOmbEnumInteger& object);

  // Text form: "Nil", "Any", a number, or "{ 1, 2 }"; the infinities are " Min" and " Max".
  void PrintOn(Kivostrstream& out) const override;
  // Reads that, and "[1, 9]". An interval of sMAX_CARD integers or more is Any, and the widest, of
  // 2^32, is Nil. A set is Any, its rest unread, when a value follows the sMAX_CARD-th. A wrong
  // separator sets the stream's state to 2: a set is Nil then, an interval still what its bounds
  // say. A value that finds no memory empties the domain, and those behind it are still read.
  void InputValue(Kivistrstream& in) override;

  // States.
  int CheckAny() const { return values.Count() == 0 && anyFlag == 1; }
  int CheckNil() const { return values.Count() == 0 && anyFlag == 0; }
  // 1 when exactly one value is held.
  int CheckDefined() const { return values.Count() == 1; }
  int IsNil() const override;
  int IsUndefined() const override;
  void Any();
  // Returns 1.
  int Nil();
  void SetNilValue() override;
  void SetUndefinedValue() override;
  // Does nothing.
  void CheckValue();
  // Makes the domain Nil and clears the error indicator of the arithmetic if that is set; 1 if so.
  int CheckErrorStatus();

  // Queries. The number of values; 0 for Any and Nil.
  unsigned Count() const { return static_cast<unsigned>(values.View().size()); }
  // The growth step of the storage.
  unsigned GetDelta() const { return values.GetDelta(); }
  // Value `i`, which is not checked.
  std::int32_t GetValue(unsigned i) const { return values[i].GetValue(); }
  // The least and the greatest value; 0 for a domain without values.
  std::int32_t GetFirstL() const { return Count() > 0 ? GetValue(0) : 0; }
  std::int32_t GetLastU() const { return Count() > 0 ? GetValue(Count() - 1) : 0; }
  // 1 when `v` is one of the listed values.
  int Contains(std::int32_t v) const {
    return kiv::kernels::Contains(View(), SubIntBase(v).GetValue());
  }
  // 0 for Nil, all bits set for Any.
  std::uint32_t GetCardinality() const override;
  std::int32_t GetLowerBound() const override;
  std::int32_t GetUpperBound() const override;
  // The least value above `v`. Above the last value it is v + 1 when `v` is that value, else `v`;
  // for Any it is v + 1. The mirror below.
  std::int32_t GetNextExactValue(std::int32_t v) const override;
  std::int32_t GetPrevExactValue(std::int32_t v) const override;

  // Edits.
  // Adds `v`; 0 when the domain is Any afterwards. A domain that already holds sMAX_CARD values
  // becomes Any, whatever `v` is; Any stays.
  int Insert(std::int32_t v);
  // Adds `v` whatever the state and without the cap; 0 when the storage could not grow.
  int SimpleInsert(std::int32_t v);
  void InsertExactValue(std::int32_t v) override;
  void SetExactValue(std::int32_t v) override;
  // 1 when `v` was a value.
  int RemoveExactValue(std::int32_t v) override;
  // Replaces a set by all integers between the bound and its other end: Any when these are
  // sMAX_CARD or more, and when the bound lies two or more beyond that end; the bound alone when it
  // lies one beyond, and for Nil. Any stays.
  void SetLowerBound(std::int32_t bound) override;
  void SetUpperBound(std::int32_t bound) override;

  // Set algebra.
  int Intersect(const KivOmbEnumInteger& other);
  int Intersect(const KivOmbSingleInteger& single);
  // A set that loses all values is left to its leftover flag; Any stays when the interval holds
  // sMAX_CARD integers or more.
  int Intersect(const KivOmbIntervalInteger& interval);
  // With the values of `other` that `filter` accepts. Any stays when it accepts none.
  int Intersect(const KivOmbEnumInteger& other, ValueFilter filter, void* context);
  // With the accepted values of the union of `a` and `b`.
  int Intersect(const KivOmbEnumInteger& a, const KivOmbEnumInteger& b, ValueFilter filter,
                void* context);
  // Narrow the operand by this domain.
  int IntersectInverse(KivOmbSingleInteger& single) const;
  int IntersectInverse(KivOmbIntervalInteger& interval) const;
  // Any when the union would hold sMAX_CARD values or more.
  void Unite(const KivOmbEnumInteger& other);
  void Unite(const KivOmbSingleInteger& single);
  // Negates every value.
  void Minus();

  // Conversion and set operations with operands of any kind. What is neither enumerated nor single
  // counts as Nil; Intersect is CalcEqualValue without its result.
  void Assign(const KivOmbiAny& x) override;
  void Intersect(const KivOmbiAny& x) override;
  void Unite(const KivOmbiAny& x) override;
  int IsIntersected(const KivOmbiAny& x) const override;

  // Moves the selected positions into `other`, an enumerated domain, and keeps the rest. With n
  // values the lower half is the first (n + 1) / 2. A domain without values stays, as does `other`;
  // an unknown selection and an `other` of another kind make this domain Nil.
  void Bisect(KivOmbiObject& other, ValueSelection selection) override;

  // Narrow to one constant: minus infinity, plus infinity, 0, 1.
  int CalcMinValue() override;
  int CalcMaxValue() override;
  int CalcZeroValue() override;
  int CalcOneValue() override;

  // The operators, with z as the receiver unless it is said otherwise. Cores of relations, of
  // minimum and maximum, and the forms for a single target take operands that are not Nil.

  // z = min(x, y) and z = max(x, y). The inverses cut x at z's bound and do not consult y.
  int CalcMinValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y);
  int CalcMinValue(const KivOmbiAny& x, const KivOmbiAny& y) override;
  int CalcMaxValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y);
  int CalcMaxValue(const KivOmbiAny& x, const KivOmbiAny& y) override;
  int CalcFirstInverseMinValue(KivOmbEnumInteger& x, const KivOmbEnumInteger& y) const;
  int CalcFirstInverseMinValue(KivOmbSingleInteger& x, const KivOmbEnumInteger& y) const;
  int CalcFirstInverseMinValue(KivOmbiAny& x, const KivOmbiAny& y) const override;
  int CalcFirstInverseMaxValue(KivOmbEnumInteger& x, const KivOmbEnumInteger& y) const;
  int CalcFirstInverseMaxValue(KivOmbSingleInteger& x, const KivOmbEnumInteger& y) const;
  int CalcFirstInverseMaxValue(KivOmbiAny& x, const KivOmbiAny& y) const override;

  // z = x. The order relations, which follow, cut at bounds only.
  int CalcEqualValue(const KivOmbiAny& x) override;
  int CalcInverseEqualValue(KivOmbiAny& x) const override;

  // z <= x
  int CalcLessOrEqualValue(const KivOmbEnumInteger& x);
  int CalcLessOrEqualValue(const KivOmbiAny& x) override;
  int CalcInverseLessOrEqualValue(KivOmbEnumInteger& x) const;
  int CalcInverseLessOrEqualValue(KivOmbSingleInteger& x) const;
  int CalcInverseLessOrEqualValue(KivOmbiAny& x) const override;

  // z < x. When the bound is not a value of the target, the cores cut one value more than the
  // relation asks for: {1, 5, 9} < {7} leaves {1}.
  int CalcLessValue(const KivOmbEnumInteger& x);
  int CalcLessValue(const KivOmbiScalar& x) override;
  int CalcInverseLessValue(KivOmbEnumInteger& x) const;
  int CalcInverseLessValue(KivOmbSingleInteger& x) const;
  int CalcInverseLessValue(KivOmbiScalar& x) const override;

  // z >= x
  int CalcNotLessValue(const KivOmbEnumInteger& x);
  int CalcNotLessValue(const KivOmbiScalar& x) override;
  int CalcInverseNotLessValue(KivOmbEnumInteger& x) const;
  int CalcInverseNotLessValue(KivOmbSingleInteger& x) const;
  int CalcInverseNotLessValue(KivOmbiScalar& x) const override;

  // z > x
  int CalcNotLessAndUnequalValue(const KivOmbEnumInteger& x);
  int CalcNotLessAndUnequalValue(const KivOmbiAny& x) override;
  int CalcInverseNotLessAndUnequalValue(KivOmbEnumInteger& x) const;
  int CalcInverseNotLessAndUnequalValue(KivOmbSingleInteger& x) const;
  int CalcInverseNotLessAndUnequalValue(KivOmbiAny& x) const override;

  // z = next(x), which is x + 1, saturating: an Any z takes plus infinity twice when x holds it and
  // its predecessor.
  int CalcNextValue(const KivOmbEnumInteger& x);
  int CalcNextValue(const KivOmbiScalar& x) override;
  int CalcInverseNextValue(KivOmbEnumInteger& x) const;
  int CalcInverseNextValue(KivOmbSingleInteger& x) const;
  int CalcInverseNextValue(KivOmbiScalar& x) const override;

  // z = abs(x). An Any x narrows z too: to its values that are not negative.
  int CalcAbsoluteValue(const KivOmbEnumInteger& x);
  int CalcAbsoluteValue(const KivOmbiNumber& x) override;
  int CalcInverseAbsoluteValue(KivOmbEnumInteger& x) const;
  int CalcInverseAbsoluteValue(KivOmbSingleInteger& x) const;
  int CalcInverseAbsoluteValue(KivOmbiNumber& x) const override;

  // z = -x
  int CalcNegativeValue(const KivOmbEnumInteger& x);
  int CalcNegativeValue(const KivOmbiNumber& x) override;
  int CalcInverseNegativeValue(KivOmbEnumInteger& x) const;
  int CalcInverseNegativeValue(KivOmbSingleInteger& x) const;
  int CalcInverseNegativeValue(KivOmbiNumber& x) const override;

  // s = sign(x), with x as the receiver: the first narrows s, the second x.
  int CalcSignumValue(KivOmbiInteger& s) const override;
  int CalcInverseSignumValue(const KivOmbiInteger& s) override;

  // z = x + y
  int CalcSumValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y);
  int CalcSumValue(const KivOmbiNumber& x, const KivOmbiNumber& y) override;
  int CalcFirstInverseSumValue(KivOmbEnumInteger& x, const KivOmbEnumInteger& y) const;
  int CalcFirstInverseSumValue(KivOmbSingleInteger& x, const KivOmbEnumInteger& y) const;
  int CalcFirstInverseSumValue(KivOmbiNumber& x, const KivOmbiNumber& y) const override;

  // z = x * y. The inverse keeps the quotients z / y, truncated, of every y but 0.
  int CalcProdValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y);
  int CalcProdValue(const KivOmbiNumber& x, const KivOmbiNumber& y) override;
  int CalcFirstInverseProdValue(KivOmbEnumInteger& x, const KivOmbEnumInteger& y) const;
  int CalcFirstInverseProdValue(KivOmbSingleInteger& x, const KivOmbEnumInteger& y) const;
  int CalcFirstInverseProdValue(KivOmbiNumber& x, const KivOmbiNumber& y) const override;

  // z = x mod y, with the sign of x. Where y may be 0, z and x stay as they are, and y keeps its 0.
  int CalcModValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y);
  int CalcModValue(const KivOmbiNumber& x, const KivOmbiNumber& y) override;
  int CalcFirstInverseModValue(KivOmbEnumInteger& x, const KivOmbEnumInteger& y) const;
  int CalcFirstInverseModValue(KivOmbSingleInteger& x, const KivOmbEnumInteger& y) const;
  int CalcFirstInverseModValue(KivOmbiNumber& x, const KivOmbiNumber& y) const override;
  int CalcSecondInverseModValue(const KivOmbEnumInteger& x, KivOmbEnumInteger& y) const;
  int CalcSecondInverseModValue(const KivOmbiNumber& x, KivOmbiNumber& y) const override;

  // z = x ^ y. The first inverse keeps of the bases for one result and one exponent only the least
  // and the greatest, which loses bases where an infinity or the exponent 0 admits more than two.
  int CalcPowerValue(const KivOmbEnumInteger& x, const KivOmbEnumInteger& y);
  int CalcPowerValue(const KivOmbiNumber& x, const KivOmbiNumber& y) override;
  int CalcFirstInversePowerValue(KivOmbEnumInteger& x, const KivOmbEnumInteger& y) const;
  int CalcFirstInversePowerValue(KivOmbSingleInteger& x, const KivOmbEnumInteger& y) const;
  int CalcFirstInversePowerValue(KivOmbiNumber& x, const KivOmbiNumber& y) const override;
  int CalcSecondInversePowerValue(const KivOmbEnumInteger& x, KivOmbEnumInteger& y) const;
  int CalcSecondInversePowerValue(const KivOmbiNumber& x, KivOmbiNumber& y) const override;

 protected:
  int IsDerivedFrom(const char* ident) const override;

 private:
  static const char* const sIdent;

  // Storage has room for 21 values, and grows by 20.
  static constexpr unsigned kRoom = 20;
  static constexpr unsigned kStep = 20;
  static constexpr unsigned kManyValues = 128;

  // The one way to the members for writing: tells the network that owns the domain first. An
  // operation that changes nothing does not come here.
  KivOmbEnumInteger& Writable() {
    WillChange();
    ++rewritten;
    return *this;
  }
  // The same for a write that takes `lost` away and nothing else.
  KivOmbEnumInteger& Without(kiv::kernels::Values lost) {
    Cut(lost);
    ++rewritten;  // after the announcement, by which the domain may be saved as it is
    return *this;
  }
  // The same when those that stay are neighbours and keep their slots, and so do the lost ones.
  KivOmbEnumInteger& Cut(kiv::kernels::Values lost) {
    LosesFew() ? WillLose(lost) : WillChange();
    return *this;
  }
  // Whether it is worth while to find out what goes: it may be less to save than what is there.
  bool LosesFew() const { return HasOwner() && Count() > kManyValues; }
  KivOmbEnumInteger& AssignAnew(const KivOmbEnumInteger& other);
  void BecomeEmpty(int flag);
  void Become(kiv::kernels::Values new_values, int flag, unsigned delta);
  void BecomeRange(std::int32_t lower, std::int32_t upper);
  void Keep(unsigned first, unsigned end);
  int CutAbove(std::int32_t bound);
  int CutBelow(std::int32_t bound);
  int KeepBetween(std::int32_t lowest, std::int32_t highest);
  void KeepWord(std::uint64_t word);
  template <class Holds>
  int KeepIf(Holds holds);
  int IntersectWith(kiv::kernels::Values others);
  int IntersectWithImage(kiv::kernels::Values image, const KivOmbEnumInteger& source);
  int IntersectWithUnion(kiv::kernels::Values a, kiv::kernels::Values b, std::int32_t lowest,
                         std::int32_t highest, std::pair<unsigned, unsigned> deltas);
  static void MirrorInto(std::int32_t* out, kiv::kernels::Values values);
  int IntersectWithShifted(kiv::kernels::Values of_source, SubIntBase step,
                           const KivOmbEnumInteger& source);
  int Lose(kiv::kernels::Values lost);
  int NarrowTo(kiv::kernels::Values kept);
  template <class Collection>
  int NarrowToCollection(const Collection& collection);
  kiv::kernels::Values View() const { return kiv::kernels::ValuesOf(values); }
  unsigned CountBelow(SubIntBase v) const { return kiv::kernels::CountBelow(View(), v.GetValue()); }
  // How many values are at most `v`.
  unsigned CountUpTo(SubIntBase v) const {
    return v.GetValue() == SubIntBase::kMax ? CountUpToInfinity()
                                            : kiv::kernels::CountUpTo(View(), v.GetValue());
  }
  unsigned CountUpToInfinity() const;

  KivSVectorImp_SubIntBase values;  // ascending; plus infinity alone may stand twice
  int anyFlag;                      // without values: 1 is Any, 0 is Nil
  // How often slots were written, in the domain of a variable: while that stays the same, what it
  // lost still stands beside what it has.
  std::uint64_t rewritten = 0;
};

// The display name of the kind is "enum int".
class KIV_EXPORT KivOmbEnumInteger::Descriptor : public KivOmbiObjectDescriptor {
 public:
  Descriptor();
  explicit Descriptor(KivStreamableInit init);
  ~Descriptor() override;

  static const char CastableIdent[];
  static KivStreamable* Build(KivStreamable* object);
  const char* CastableID() const override;

  // `data` is a raw block of values.
  KivOmbiObject* ConstructObjectFrom(void* memory, const void* data) const override;
  KivOmbiObject* ConstructObject(void* memory) const override;
  std::int64_t GetObjectSize() const override;

  // The state tells where the values stand, in case that the domain of a variable is only cut from
  // now on, and the values themselves; of many without a gap among them only the first.
  std::size_t SaveState(const KivOmbiObject& object, std::span<std::byte> room) const override;
  // Announces nothing, and allocates only when the domain has fewer slots than the state has
  // values.
  int RestoreState(KivOmbiObject& object, const void* state) const override;
  // The same; the leftover flag stays.
  int Regain(KivOmbiObject& object, std::span<const std::int32_t> values) const override;
  KivOmbiDomainSummary Summarize(const KivOmbiObject& object) const override;
  bool HoldsGaps() const override;
  std::span<const SubIntBase> GetValues(const KivOmbiObject& object) const override;
  // Nil when nothing is left, whatever the leftover flag; Any stays.
  int KeepBetween(KivOmbiObject& object, std::int32_t lower, std::int32_t upper) const override;
  // The same.
  int RemoveValues(KivOmbiObject& object, std::span<const std::int32_t> values) const override;
  int KeepWord(KivOmbiObject& object, std::uint64_t word) const override;
};
