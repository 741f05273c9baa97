#include "tools/kiv/domain_json.h"

#include "framework/abstract_types/boolean.h"
#include "framework/abstract_types/integer.h"
#include "framework/utilities/text_stream.h"

namespace kiv {
namespace {

// Longer lists of values are not written out; the bounds tell the interval.
constexpr std::uint32_t kMostValues = 1024;

Json ValuesOf(const KivOmbiInteger& domain) {
  Json values = Json::array();
  std::int32_t v = domain.GetLowerBound();
  for (std::uint32_t i = domain.GetCardinality(); i > 0; --i) {
    values.push_back(v);
    if (i > 1) v = domain.GetNextExactValue(v);
  }
  return values;
}

}  // namespace

std::string TextOf(const KivOmbiAny& domain) {
  Kivostrstream out;
  domain.PrintOn(out);
  return out.Str();
}

Json DescribeDomain(const std::string& kind, const KivOmbiAny& domain) {
  const char* state = domain.IsNil() ? "nil" : domain.IsUndefined() ? "any" : "values";
  Json json = {{"kind", kind}, {"state", state}, {"text", TextOf(domain)}};
  if (domain.IsNil() || domain.IsUndefined()) return json;
  if (const auto* integer = KivCast<KivOmbiInteger>(&domain)) {
    json["lower"] = integer->GetLowerBound();
    json["upper"] = integer->GetUpperBound();
    json["cardinality"] = integer->GetCardinality();
    if (integer->GetCardinality() <= kMostValues) json["values"] = ValuesOf(*integer);
  } else if (const auto* boolean = KivCast<KivOmbiBoolean>(&domain)) {
    json["values"] = Json::array({boolean->CanBe(true) != 0});
  }
  return json;
}

std::string JsonLine(const Json& json) {
  return json.dump(-1, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace kiv
