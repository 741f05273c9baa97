#include "framework/networks/observer.h"

KivOmbiNetworkObserver::~KivOmbiNetworkObserver() = default;
