#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <ios>
#include <sstream>
#include <streambuf>
#include <string>
#include <utility>

#include "framework/utilities/object_stream.h"
#include "tests/framework/utilities/record_bytes.h"

namespace {

// An input that cannot seek and comes in pieces.
class Pipe : public std::streambuf {
 public:
  Pipe(std::string input, std::size_t piece) : input_(std::move(input)), piece_(piece) {}

 protected:
  int_type underflow() override {
    const std::size_t size = std::min(piece_, input_.size() - taken_);
    if (size == 0) return traits_type::eof();
    char* const begin = input_.data() + taken_;
    setg(begin, begin, begin + size);
    taken_ += size;
    return traits_type::to_int_type(*begin);
  }

 private:
  std::string input_;
  std::size_t piece_;
  std::size_t taken_ = 0;
};

// An input that tells where it is and how long it is, but does not find its way back.
class OneWay : public std::streambuf {
 public:
  OneWay() { setg(bytes_, bytes_, bytes_ + sizeof(bytes_)); }

 protected:
  pos_type seekoff(off_type, std::ios_base::seekdir from, std::ios_base::openmode) override {
    return from == std::ios_base::end ? 8 : 0;
  }

 private:
  char bytes_[8] = {1, 1, 1, 1, 1, 1, 1, 1};
};

std::int32_t ReadInteger(Kivipstream& in) {
  std::int32_t value = 0;
  in >> value;
  return value;
}

TEST(Remaining, IsWhatIsLeftOfASeekableInput) {
  std::istringstream bytes(Word(1) + Word(2) + "xyz");
  Kivipstream in(bytes);
  EXPECT_EQ(in.Remaining(), 11U);
  EXPECT_EQ(ReadInteger(in), 1);
  EXPECT_EQ(in.Remaining(), 7U);
  EXPECT_EQ(ReadInteger(in), 2);
  EXPECT_EQ(in.Remaining(), 3U);
  EXPECT_EQ(in.State(), 0);
}

TEST(Remaining, CountsFromWhereTheInputStands) {
  std::istringstream bytes(Word(1) + Word(2));
  bytes.ignore(3);
  EXPECT_EQ(Kivipstream(bytes).Remaining(), 5U);
}

TEST(Remaining, IsNothingAtTheEndAndAfterIt) {
  std::istringstream bytes(Word(1) + "x");
  Kivipstream in(bytes);
  ReadInteger(in);
  ReadInteger(in);
  EXPECT_EQ(in.Remaining(), 0U);
  std::istringstream empty;
  EXPECT_EQ(Kivipstream(empty).Remaining(), 0U);
}

TEST(Remaining, IsNothingOfAnInputThatGivesNothing) {
  std::istringstream bytes(Word(1));
  bytes.setstate(std::ios_base::failbit);
  EXPECT_EQ(Kivipstream(bytes).Remaining(), 0U);
}

TEST(Remaining, IsWhatIsLeftOfAFile) {
  std::FILE* const file = std::tmpfile();
  ASSERT_NE(file, nullptr);
  const std::string path = "/proc/self/fd/" + std::to_string(fileno(file));
  {
    std::ofstream out(path, std::ios_base::binary);
    Kivopstream stream(out);
    for (std::int32_t i = 0; i < 10000; ++i) stream << i;
  }
  std::ifstream bytes(path, std::ios_base::binary);
  Kivipstream in(bytes);
  for (std::int32_t i = 0; i < 10000; ++i) {
    ASSERT_EQ(in.Remaining(), 4U * static_cast<std::size_t>(10000 - i));
    ASSERT_EQ(ReadInteger(in), i);
  }
  EXPECT_EQ(in.Remaining(), 0U);
  EXPECT_EQ(in.State(), 0);
  std::fclose(file);
}

TEST(Remaining, IsWhatIsBufferedOfAnInputThatCannotSeek) {
  Pipe pipe(Word(1) + Word(2) + Word(3), 10);
  std::istream bytes(&pipe);
  Kivipstream in(bytes);
  EXPECT_EQ(in.Remaining(), 0U) << "nothing is known yet";
  EXPECT_EQ(ReadInteger(in), 1);
  EXPECT_EQ(in.Remaining(), 6U);
  EXPECT_EQ(ReadInteger(in), 2);
  EXPECT_EQ(in.Remaining(), 2U);
  EXPECT_EQ(ReadInteger(in), 3);
  EXPECT_EQ(in.Remaining(), 0U);
  EXPECT_EQ(in.State(), 0);
}

TEST(Remaining, LimitsNoStringOfAnInputThatCannotSeek) {
  const std::string text(5000, 'x');
  Pipe pipe(Text(text), 7);
  std::istream bytes(&pipe);
  Kivipstream in(bytes);
  std::string read;
  in >> read;
  EXPECT_EQ(read, text);
  EXPECT_EQ(in.State(), 0);
}

TEST(Remaining, IsNothingWhenTheInputLosesItsPlace) {
  OneWay lost;
  std::istream bytes(&lost);
  Kivipstream in(bytes);
  EXPECT_EQ(in.Remaining(), 0U);
  EXPECT_EQ(ReadInteger(in), 0) << "nothing is read from the wrong place";
  EXPECT_EQ(in.State(), Kivpstream::kEnd | Kivpstream::kFailure);
}

}  // namespace
