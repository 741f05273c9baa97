#include "framework/calculator/network.h"

KivOmbiNetwork::~KivOmbiNetwork() = default;
