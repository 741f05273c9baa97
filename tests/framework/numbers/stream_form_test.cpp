// The records of the kinds in object streams.

#include <gtest/gtest.h>

#include <memory>
#include <sstream>

#include "tests/framework/numbers/domain.h"

namespace kiv::test {
namespace {

// A new domain that a stream built from what another wrote of `domain`.
template <class Kind>
std::unique_ptr<Kind> Copy(const Kind& domain) {
  std::stringstream bytes;
  Kivopstream out(bytes);
  out.WriteObjectPointer(&domain);
  EXPECT_EQ(out.State(), 0);
  Kivipstream in(bytes);
  std::unique_ptr<Kind> copy(
      Kind::DynamicCast(static_cast<KivOmbiBase*>(in.ReadObjectPointer(Kind::CastableIdent))));
  EXPECT_EQ(in.State(), 0);
  return copy;
}

template <class Kind>
void ExpectRoundTrip(const Kind& domain) {
  const auto copy = Copy(domain);
  ASSERT_NE(copy, nullptr);
  EXPECT_EQ(copy->CastableID(), Kind::CastableIdent);
  EXPECT_EQ(Text(*copy), Text(domain));
  EXPECT_EQ(copy->Summarize(), domain.Summarize());
}

TEST(StreamForm, EveryStateComesBack) {
  for (const std::int32_t value : {0, 1, -1, kMin, kMax}) {
    ExpectRoundTrip(KivOmbSingleInteger(value));
    ExpectRoundTrip(Interval(value, value));
  }
  ExpectRoundTrip(KivOmbSingleInteger());
  KivOmbSingleInteger nil;
  nil.Nil();
  ExpectRoundTrip(nil);
  ExpectRoundTrip(KivOmbIntervalInteger());
  ExpectRoundTrip(Interval(1, 0));
  ExpectRoundTrip(Interval(-5, 7));
  ExpectRoundTrip(Interval(kMin, 7));
  ExpectRoundTrip(KivOmbSingleBoolean());
  ExpectRoundTrip(KivOmbSingleBoolean(false));
  ExpectRoundTrip(KivOmbSingleBoolean(true));
  KivOmbSingleBoolean neither;
  neither.Nil();
  ExpectRoundTrip(neither);
}

// `domain`, filled from a record of these words.
template <class Kind>
std::string FromRecord(const std::vector<std::int32_t>& words, Kind domain) {
  std::stringstream bytes;
  Kivopstream out(bytes);
  for (const std::int32_t word : words) out << word;
  Kivipstream in(bytes);
  domain.Read(in);
  return Text(domain);
}

TEST(StreamForm, ARecordThatNobodyWritesIsNil) {
  const KivOmbSingleInteger single(4);
  EXPECT_EQ(FromRecord({77, 5}, single), "Nil");
  EXPECT_EQ(FromRecord({-1, 5}, single), "Nil");
  const KivOmbIntervalInteger interval = Interval(1, 4);
  EXPECT_EQ(FromRecord({5, 4}, interval), "Nil");
  EXPECT_EQ(FromRecord({kMax, INT32_MIN}, interval), "Nil");
  const KivOmbSingleBoolean boolean(true);
  EXPECT_EQ(FromRecord({4}, boolean), "Nil");
  EXPECT_EQ(FromRecord({5}, boolean), "Nil");
  EXPECT_EQ(FromRecord({-1}, boolean), "Nil");
}

TEST(StreamForm, TheOneIntegerBeyondTheRangeIsTakenIntoIt) {
  EXPECT_EQ(FromRecord({INT32_MIN, kMax}, Interval(1, 4)), "Any");
  EXPECT_EQ(FromRecord({INT32_MIN, INT32_MIN}, Interval(1, 4)), "Min");
}

TEST(StreamForm, AnAnyOrNilRecordCarriesNoValue) {
  std::stringstream bytes;
  Kivopstream out(bytes);
  KivOmbSingleInteger any;
  any.Write(out);
  std::string record = bytes.str();
  ASSERT_EQ(record.size(), 8u);
  record[4] = 9;  // a number beside the state Any
  std::stringstream changed(record);
  Kivipstream in(changed);
  KivOmbSingleInteger read(3);
  read.Read(in);
  EXPECT_EQ(Text(read), "Any");
  EXPECT_EQ(read.GetValue(), 0);
}

template <class Kind>
void ExpectFailureFromEveryPrefix(const Kind& domain) {
  std::stringstream bytes;
  Kivopstream out(bytes);
  domain.Write(out);
  const std::string record = bytes.str();
  ASSERT_FALSE(record.empty());
  for (std::size_t length = 0; length < record.size(); ++length) {
    std::stringstream prefix(record.substr(0, length));
    Kivipstream in(prefix);
    Kind read;
    read.Read(in);
    EXPECT_EQ(in.State(), Kivpstream::kEnd | Kivpstream::kFailure);
    EXPECT_LE(read.Summarize().lower, read.Summarize().IsNil() ? kMax : read.Summarize().upper);
  }
}

TEST(StreamForm, ARecordCutOffShowsInTheState) {
  ExpectFailureFromEveryPrefix(KivOmbSingleInteger(5));
  ExpectFailureFromEveryPrefix(Interval(-5, 7));
  ExpectFailureFromEveryPrefix(KivOmbSingleBoolean(true));
}

}  // namespace
}  // namespace kiv::test
