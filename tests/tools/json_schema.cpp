#include "tests/tools/json_schema.h"

#include <algorithm>
#include <set>
#include <stdexcept>

namespace kiv::test {
namespace {

using Json = nlohmann::json;

const std::set<std::string> kKeywords = {
    "$schema", "title",   "$defs",    "type",       "enum",
    "const",   "minimum", "required", "properties", "additionalProperties",
    "items",   "oneOf",   "$ref"};

bool HasType(const Json& value, const std::string& type) {
  if (type == "object") return value.is_object();
  if (type == "array") return value.is_array();
  if (type == "string") return value.is_string();
  if (type == "boolean") return value.is_boolean();
  if (type == "integer") return value.is_number_integer();
  if (type == "number") return value.is_number();
  throw std::invalid_argument("unknown type " + type);
}

// Checks against schemas of one document, to whose definitions they refer.
class Validator {
 public:
  explicit Validator(const Json& document) : document_(document) {}

  std::string FindError(const Json& value, const Json& schema) const {
    for (const auto& [keyword, rule] : schema.items()) {
      if (!kKeywords.contains(keyword)) throw std::invalid_argument("unknown keyword " + keyword);
    }
    if (schema.contains("$ref")) {
      const auto reference = schema["$ref"].get<std::string>().substr(1);
      return FindError(value, document_.at(Json::json_pointer(reference)));
    }
    if (schema.contains("type") && !HasType(value, schema["type"])) {
      return value.dump() + " is no " + schema["type"].get<std::string>();
    }
    if (schema.contains("const") && value != schema["const"]) {
      return value.dump() + " is not " + schema["const"].dump();
    }
    if (schema.contains("enum") &&
        std::find(schema["enum"].begin(), schema["enum"].end(), value) == schema["enum"].end()) {
      return value.dump() + " is none of " + schema["enum"].dump();
    }
    if (schema.contains("minimum") && value < schema["minimum"]) {
      return value.dump() + " is below " + schema["minimum"].dump();
    }
    if (schema.contains("oneOf")) return FindChoiceError(value, schema["oneOf"]);
    if (value.is_array() && schema.contains("items")) {
      for (const Json& item : value) {
        if (std::string error = FindError(item, schema["items"]); !error.empty()) return error;
      }
    }
    return value.is_object() ? FindMemberError(value, schema) : "";
  }

 private:
  std::string FindChoiceError(const Json& value, const Json& choices) const {
    std::string errors;
    std::size_t valid = 0;
    for (const Json& choice : choices) {
      const std::string error = FindError(value, choice);
      if (error.empty()) ++valid;
      errors += "\n  " + error;
    }
    return valid == 1 ? "" : value.dump() + " fits " + std::to_string(valid) + " choices" + errors;
  }

  std::string FindMemberError(const Json& value, const Json& schema) const {
    for (const Json& name : schema.value("required", Json::array())) {
      if (!value.contains(name.get<std::string>())) return "no member " + name.dump();
    }
    const Json properties = schema.value("properties", Json::object());
    const Json others = schema.value("additionalProperties", Json(true));
    for (const auto& [name, member] : value.items()) {
      if (!properties.contains(name) && others == Json(false)) return "unknown member " + name;
      if (!properties.contains(name) && others == Json(true)) continue;
      const std::string error =
          FindError(member, properties.contains(name) ? properties[name] : others);
      if (!error.empty()) return name + ": " + error;
    }
    return {};
  }

  const Json& document_;
};

}  // namespace

std::string FindSchemaError(const Json& value, const Json& schema) {
  return Validator(schema).FindError(value, schema);
}

}  // namespace kiv::test
