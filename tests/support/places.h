// Where a test finds what lies outside it: fixtures, saved runs, the built tool.

#pragma once

#include <string>

/// The path of a fixture by its name below tests/fixtures: "mea/both_signs_of_declination.mea".
std::string fixture(const std::string& name);

/// The folder of the saved runs, without a slash at its end.
std::string runsFolder();

/// The folder of the locales that were made for the tests.
const char* localesFolder();

/// The path of the built tool.
std::string builtTool();
