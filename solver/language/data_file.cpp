#include "solver/language/data_file.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <nlohmann/json.hpp>
#include <string_view>
#include <utility>
#include <vector>

namespace kiv {
namespace {

using Json = nlohmann::json;

// Takes the events of a parser of JSON. Every event returns whether reading goes on.
class DataReader {
 public:
  explicit DataReader(Diagnostics& diagnostics) : diagnostics_(diagnostics) {}

  // A reader of the value of that parameter.
  DataReader(std::string parameter, Diagnostics& diagnostics)
      : diagnostics_(diagnostics), parameter_(std::move(parameter)) {}

  std::map<std::string, ParameterValue> TakeValues() { return std::move(values_); }

  bool null() {
    if (!CheckPlace()) return false;
    return lists_.empty() || Refuse(
                                 "null is no element of a list; a parameter that is null as a "
                                 "whole is not given");
  }
  bool boolean(bool value) { return Take(value); }
  bool number_integer(std::int64_t value) { return Take(value); }
  bool number_unsigned(std::uint64_t value) {
    if (value > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
      return RefuseNumber(std::to_string(value));
    }
    return Take(static_cast<std::int64_t>(value));
  }
  bool number_float(double, const std::string& text) { return RefuseNumber(text); }
  bool string(std::string&) { return RefuseKind("a text"); }
  bool binary(std::vector<std::uint8_t>&) { return RefuseKind("binary data"); }

  bool start_object(std::size_t) {
    if (parameter_ || in_object_) return RefuseKind("an object");
    in_object_ = true;
    return true;
  }
  bool key(std::string& name) {
    parameter_ = std::move(name);
    return values_.count(*parameter_) == 0 || Refuse("given twice");
  }
  bool end_object() { return true; }

  bool start_array(std::size_t) {
    if (!CheckPlace()) return false;
    if (lists_.size() == kDeepestList) return Refuse("lists are nested more than 2 deep");
    lists_.emplace_back();
    return true;
  }
  bool end_array() {
    ParameterList list = std::move(lists_.back());
    lists_.pop_back();
    return Take(std::move(list));
  }

  bool parse_error(std::size_t position, const std::string&, const Json::exception& error) {
    // The library counts what it has read, the mistake included.
    const std::size_t size = diagnostics_.GetSource().GetText().size();
    const auto begin = static_cast<std::uint32_t>(std::min(position > 0 ? position - 1 : 0, size));
    const std::string_view text = error.what();
    const std::size_t reason = text.find(": ");
    diagnostics_.Add(SourceRange{begin, begin},
                     std::string(reason == text.npos ? text : text.substr(reason + 2)));
    return false;
  }

 private:
  static constexpr std::size_t kDeepestList = 2;

  bool CheckPlace() {
    if (parameter_) return true;
    diagnostics_.Add("expected an object whose keys are parameters, as in { \"n\": 8 }");
    return false;
  }

  bool Take(ParameterValue value) {
    if (!CheckPlace()) return false;
    if (lists_.empty()) {
      values_.emplace(*parameter_, std::move(value));
    } else {
      lists_.back().push_back(std::move(value));
    }
    return true;
  }

  bool Refuse(const std::string& reason) {
    diagnostics_.Add('\'' + Printable(*parameter_) + "': " + reason);
    return false;
  }
  bool RefuseNumber(const std::string& number) {
    return CheckPlace() && Refuse(number + " is no integer that a parameter can have");
  }
  bool RefuseKind(const std::string& kind) {
    return CheckPlace() && Refuse("expected an integer, true, false or a list, found " + kind);
  }

  Diagnostics& diagnostics_;
  std::optional<std::string> parameter_;  // whose value is read
  bool in_object_ = false;
  std::vector<ParameterList> lists_;  // that are open, the innermost last
  std::map<std::string, ParameterValue> values_;
};

bool Parse(const SourceText& source, DataReader& reader, Diagnostics& diagnostics) {
  if (source.GetText().size() > SourceText::kMaxSize) {
    diagnostics.Add("the text is too long: more than " + std::to_string(SourceText::kMaxSize) +
                    " bytes");
    return false;
  }
  return Json::sax_parse(source.GetText(), &reader);
}

}  // namespace

std::optional<std::map<std::string, ParameterValue>> ReadData(const SourceText& source,
                                                              Diagnostics& diagnostics) {
  DataReader reader(diagnostics);
  if (!Parse(source, reader, diagnostics)) return std::nullopt;
  return reader.TakeValues();
}

std::optional<ParameterValue> ReadValue(const SourceText& source, const std::string& name,
                                        Diagnostics& diagnostics) {
  DataReader reader(name, diagnostics);
  if (!Parse(source, reader, diagnostics)) return std::nullopt;
  auto values = reader.TakeValues();
  if (values.empty()) {
    diagnostics.Add("null is no value");
    return std::nullopt;
  }
  return std::move(values.begin()->second);
}

}  // namespace kiv
