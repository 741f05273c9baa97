#include <gtest/gtest.h>

#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "enum_integers/domain/enum_integer.h"
#include "enum_integers/storage/slot_memory.h"
#include "framework/numbers/single_integer.h"
#include "tests/enum_integers/support/domains.h"

namespace {

using namespace kiv::test;

// A record as bytes, from its words.
class Record {
 public:
  template <class... Words>
  explicit Record(Words... words) : out_(bytes_) {
    (Add(words), ...);
  }
  void Add(std::int32_t word) { out_ << word; }

  // The bytes left behind the record are a marker: 99.
  KivOmbEnumInteger ReadAs(KivOmbEnumInteger domain) {
    Add(99);
    Kivipstream in(bytes_);
    domain.Read(in);
    std::int32_t marker = 0;
    in >> marker;
    EXPECT_EQ(marker, 99);
    EXPECT_EQ(in.State(), Kivpstream::kGood);
    return domain;
  }

  std::string Bytes() const { return bytes_.str(); }

 private:
  std::stringstream bytes_;
  Kivopstream out_;
};

std::string Written(const KivOmbEnumInteger& domain) {
  std::stringstream bytes;
  Kivopstream out(bytes);
  domain.Write(out);
  return bytes.str();
}

TEST(StreamForm, IsFlagCountAndValues) {
  EXPECT_EQ(Written(SetLeftAny({1, 5, 9})), Record(1, 3, 1, 5, 9).Bytes());
  EXPECT_EQ(Written(Set({-1})), Record(0, 1, -1).Bytes());
  EXPECT_EQ(Written(NilSet()), Record(0, 0).Bytes());
  EXPECT_EQ(Written(KivOmbEnumInteger()), Record(1, 0).Bytes());
}

TEST(StreamForm, ReadsBackWhatWasWritten) {
  for (const KivOmbEnumInteger& start : {KivOmbEnumInteger(), Set({7})}) {
    EXPECT_EQ(Text(Record(0, 3, 1, 5, 9).ReadAs(start)), "{ 1, 5, 9 }");
    EXPECT_EQ(Text(Record(0, 0).ReadAs(start)), "Nil");
    EXPECT_EQ(Text(Record(1, 0).ReadAs(start)), "Any");
  }
}

TEST(StreamForm, SortsTheValuesThatItReads) {
  EXPECT_EQ(Text(Record(0, 4, 9, 1, 9, 5).ReadAs(NilSet())), "{ 1, 5, 9 }");
}

TEST(StreamForm, ARecordWithTheFlagOfAnyReadsAsAnyWhateverItLists) {
  EXPECT_EQ(Text(Record(1, 2, 4, 5).ReadAs(NilSet())), "Any");
}

TEST(StreamForm, AFlagThatNoDomainWritesIsKeptAndNamesNeitherState) {
  const KivOmbEnumInteger empty = Record(7, 0).ReadAs(Set({1}));
  EXPECT_EQ(empty.CheckAny(), 0);
  EXPECT_EQ(empty.CheckNil(), 0);
  EXPECT_EQ(Written(empty), Record(7, 0).Bytes());
  EXPECT_EQ(Text(Record(-1, 1, 4).ReadAs(Set({1}))), "4");
}

TEST(StreamForm, AStateFromBeforeDoesNotStopReadingAndStays) {
  std::istringstream bytes(Record(0, 3, 1, 5, 9).Bytes());
  Kivipstream in(bytes);
  in.Clear(Kivpstream::kFailure);
  KivOmbEnumInteger domain;
  domain.Read(in);
  EXPECT_EQ(Text(domain), "{ 1, 5, 9 }");
  EXPECT_EQ(in.State(), Kivpstream::kFailure);
  EXPECT_EQ(in.Remaining(), 0u);
}

TEST(StreamForm, AFullDomainReadsBackAndMoreValuesReadAsAny) {
  for (const std::int32_t count : {1024, 1025}) {
    Record record(0, count);
    for (std::int32_t v = 0; v < count; ++v) record.Add(2 * v);
    const KivOmbEnumInteger domain = record.ReadAs(NilSet());
    EXPECT_EQ(domain.Count(), count == 1024 ? 1024u : 0u);
    EXPECT_EQ(domain.CheckAny(), count == 1025);
  }
}

TEST(StreamForm, ATruncatedRecordEndsReadingAndReservesNothing) {
  for (const std::int32_t count : {3, 2147483647, -1}) {
    std::istringstream bytes(Record(0, count, 4, 5).Bytes());
    Kivipstream in(bytes);
    KivOmbEnumInteger domain;
    domain.Read(in);
    EXPECT_NE(in.State() & Kivpstream::kFailure, 0);
    EXPECT_EQ(Text(domain), "{ 4, 5 }");
  }
}

TEST(StreamForm, OfNothingIsNil) {
  std::istringstream bytes;
  Kivipstream in(bytes);
  KivOmbEnumInteger domain;
  domain.Read(in);
  EXPECT_NE(in.State() & Kivpstream::kFailure, 0);
  EXPECT_EQ(domain.CheckNil(), 1);
}

TEST(StreamForm, WithoutMemoryForAValueIsNilAndGoesOn) {
  Record record(0, 23);
  for (std::int32_t v = 1; v <= 23; ++v) record.Add(v);
  std::istringstream bytes(record.Bytes());
  Kivipstream in(bytes);
  KivOmbEnumInteger domain;
  const kiv::SlotMemoryLimit none(0);
  domain.Read(in);
  EXPECT_EQ(Text(domain), "23");
}

TEST(StreamForm, OfAVectorThatIsNotGoodStopsAfterTheCount) {
  const kiv::SlotMemoryLimit none(0);
  EXPECT_EQ(Written(KivOmbEnumInteger()), Record(1, 0).Bytes());
}

TEST(RawBlock, BuildsTheSortedSetOfItsValues) {
  const std::int32_t block[] = {3, 7, 2, 7};
  const KivOmbEnumInteger domain(static_cast<const void*>(block));
  EXPECT_EQ(Text(domain), "{ 2, 7 }");
  EXPECT_EQ(Flag(domain), 0);
}

TEST(RawBlock, OfMoreValuesThanTheCapIsAny) {
  for (const std::int32_t count : {1024, 1025}) {
    std::vector<std::int32_t> block{count};
    for (std::int32_t v = 0; v < count; ++v) block.push_back(v);
    const KivOmbEnumInteger domain(static_cast<const void*>(block.data()));
    EXPECT_EQ(domain.CheckAny(), count == 1025);
  }
}

TEST(RawBlock, MayStandAnywhereInMemory) {
  const std::int32_t block[] = {2, -7, kMin};
  std::string bytes(1, 'x');
  bytes.append(reinterpret_cast<const char*>(block), sizeof block);
  EXPECT_EQ(Text(KivOmbEnumInteger(static_cast<const void*>(bytes.data() + 1))), "{  Min, -7 }");
}

TEST(Builder, HandsBackWhatItIsGiven) {
  KivOmbEnumInteger domain;
  EXPECT_EQ(KivOmbEnumInteger::Build(&domain), &domain);
}

TEST(Builder, MakesAnAnyDomainForAStreamToFill) {
  const std::unique_ptr<KivStreamable> built(KivOmbEnumInteger::Build(nullptr));
  ASSERT_NE(built, nullptr);
  EXPECT_EQ(built->CastableID(), KivOmbEnumInteger::CastableIdent);
  EXPECT_EQ(static_cast<KivOmbEnumInteger&>(*built).CheckAny(), 1);
  EXPECT_EQ(KivOmbEnumInteger(kKivStreamableInit).CheckAny(), 1);
}

TEST(Builder, IsRegisteredUnderTheNameOfTheClass) {
  const KivStreamableClass* const entry = KivStreamableClass::Find("KivOmbEnumInteger");
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(entry->GetBuilder(), &KivOmbEnumInteger::Build);
  EXPECT_EQ(entry->GetVersion(), 1);
}

TEST(ObjectStream, PassesPointersAndReferences) {
  const KivOmbEnumInteger first = Set({1, 2});
  const KivOmbEnumInteger second = Set({3});
  std::stringstream bytes;
  Kivopstream out(bytes);
  EXPECT_EQ(&KivOmbEnumInteger::writePtr(out, &first), &out);
  KivOmbEnumInteger::writePtr(out, &first);
  KivOmbEnumInteger::writePtr(out, nullptr);
  EXPECT_EQ(&KivOmbEnumInteger::writeRef(out, second), &out);

  Kivipstream in(bytes);
  KivOmbEnumInteger* read = nullptr;
  KivOmbEnumInteger* again = nullptr;
  KivOmbEnumInteger target;
  KivOmbEnumInteger* null = &target;
  EXPECT_EQ(&KivOmbEnumInteger::readPtr(in, read), &in);
  const std::unique_ptr<KivOmbEnumInteger> owner(read);
  KivOmbEnumInteger::readPtr(in, again);
  KivOmbEnumInteger::readPtr(in, null);
  EXPECT_EQ(&KivOmbEnumInteger::readRef(in, target), &in);
  EXPECT_EQ(in.State(), Kivpstream::kGood);
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(Text(*read), "{ 1, 2 }");
  EXPECT_EQ(again, read);
  EXPECT_EQ(null, nullptr);
  EXPECT_EQ(Text(target), "3");
}

TEST(ObjectStream, NeverYieldsAnObjectOfAnotherClass) {
  const KivOmbSingleInteger single(3);
  std::stringstream bytes;
  Kivopstream out(bytes);
  out.WriteObjectPointer(&single);
  Kivipstream in(bytes);
  KivOmbEnumInteger* read = nullptr;
  KivOmbEnumInteger::readPtr(in, read);
  EXPECT_EQ(read, nullptr);
  EXPECT_NE(in.State(), Kivpstream::kGood);
}

}  // namespace
