#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

#include "framework/base/export.h"

namespace kiv::flatzinc {

// Something that is wrong with a FlatZinc text, or that Kiv does not support.
class KIV_EXPORT Error final : public std::runtime_error {
 public:
  Error(std::uint32_t offset, const std::string& text);
  ~Error() override;

  // Where in the text, in bytes.
  std::uint32_t GetOffset() const noexcept { return offset_; }

 private:
  std::uint32_t offset_;
};

}  // namespace kiv::flatzinc
