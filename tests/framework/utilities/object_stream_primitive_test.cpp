#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <sstream>
#include <string>

#include "framework/utilities/object_stream.h"
#include "tests/framework/utilities/record_bytes.h"

namespace {

TEST(ObjectStreamPrimitive, IntegersAre32BitsLittleEndian) {
  std::ostringstream bytes;
  Kivopstream out(bytes);
  out << std::int32_t{0x01020304} << std::int32_t{-2} << std::uint32_t{0xfffefdfc};
  EXPECT_EQ(bytes.str(), "\x04\x03\x02\x01\xfe\xff\xff\xff\xfc\xfd\xfe\xff");
  EXPECT_EQ(out.State(), 0);
}

TEST(ObjectStreamPrimitive, StringsAreLengthAndBytes) {
  std::ostringstream bytes;
  Kivopstream out(bytes);
  out << std::string("abc") << std::string() << std::string("\0", 1);
  EXPECT_EQ(bytes.str(), std::string("\3\0\0\0abc\0\0\0\0\1\0\0\0\0", 16));
}

TEST(ObjectStreamPrimitive, IntegersComeBackAsTheyWere) {
  std::stringstream bytes;
  Kivopstream out(bytes);
  Kivipstream in(bytes);
  using Signed = std::numeric_limits<std::int32_t>;
  for (const std::int32_t value : {0, 1, -1, 256, -256, Signed::max(), Signed::min()}) {
    out << value << static_cast<std::uint32_t>(value);
    std::int32_t read = 77;
    std::uint32_t read_unsigned = 77;
    in >> read >> read_unsigned;
    EXPECT_EQ(read, value);
    EXPECT_EQ(read_unsigned, static_cast<std::uint32_t>(value));
  }
  EXPECT_EQ(in.State(), 0);
}

TEST(ObjectStreamPrimitive, StringsComeBackAsTheyWere) {
  std::stringstream bytes;
  Kivopstream out(bytes);
  Kivipstream in(bytes);
  for (const std::string& value :
       {std::string(), std::string("a"), std::string("\0\xff\n", 3), std::string(100000, 'x')}) {
    out << value;
    std::string read = "before";
    in >> read;
    EXPECT_EQ(read, value);
  }
  EXPECT_EQ(in.State(), 0);
}

TEST(ObjectStreamPrimitive, AtTheEndReadsAsZero) {
  for (const std::string& rest : {std::string(), std::string("\1"), std::string("\1\2\3")}) {
    std::istringstream bytes(rest);
    Kivipstream in(bytes);
    std::int32_t value = 77;
    in >> value;
    EXPECT_EQ(value, 0);
    EXPECT_EQ(in.State(), Kivpstream::kEnd | Kivpstream::kFailure);
    std::uint32_t next = 77;
    in >> next;
    EXPECT_EQ(next, 0U) << "what was left is consumed";
  }
}

TEST(ObjectStreamPrimitive, StringCutOffByTheEndReadsAsEmpty) {
  for (const std::string& input : {std::string(), Word(3).substr(0, 2), Word(3), Word(3) + "ab"}) {
    std::istringstream bytes(input);
    Kivipstream in(bytes);
    std::string text = "before";
    in >> text;
    EXPECT_EQ(text, "");
    EXPECT_EQ(in.State(), Kivpstream::kEnd | Kivpstream::kFailure);
  }
}

TEST(ObjectStreamPrimitive, StringLengthReservesNoMoreThanTheInputFills) {
  std::istringstream bytes(Word(0xffffffff) + std::string(5000, 'x'));
  Kivipstream in(bytes);
  std::string text;
  in >> text;
  EXPECT_EQ(text, "");
  EXPECT_EQ(in.State(), Kivpstream::kEnd | Kivpstream::kFailure);
  EXPECT_LE(text.capacity(), 2 * 5000U);
}

TEST(ObjectStreamPrimitive, StateStopsNeitherReadingNorWriting) {
  std::stringstream bytes;
  Kivopstream out(bytes);
  out.Clear(7);
  out << std::int32_t{5};
  EXPECT_EQ(out.State(), 7);
  Kivipstream in(bytes);
  in.Clear(7);
  std::int32_t value = 0;
  in >> value;
  EXPECT_EQ(value, 5);
  EXPECT_EQ(in.State(), 7);
}

TEST(ObjectStreamPrimitive, WriteThatIsRefusedIsBad) {
  std::ostringstream bytes;
  bytes.setstate(std::ios_base::badbit);
  Kivopstream out(bytes);
  out << std::int32_t{5};
  EXPECT_EQ(out.State(), Kivpstream::kBad);
}

}  // namespace
