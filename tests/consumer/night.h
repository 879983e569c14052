// What the shared object of the consumer offers.

#pragma once

#include <string>

std::string firstName(const std::string& path);
