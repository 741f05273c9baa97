#pragma once

#include <string>

// The string in which names are handed to the framework.
using KivString = std::string;
