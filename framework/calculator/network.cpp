#include "framework/calculator/network.h"

KivOmbiNetwork::~KivOmbiNetwork() = default;

void KivOmbiNetwork::WillLose(std::uint32_t variable, std::span<const std::int32_t>) {
  WillChange(variable);
}
