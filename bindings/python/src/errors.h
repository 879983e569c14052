// Errors: what the library throws as exceptions of Python.

#pragma once

#include <string>

#include <pybind11/pybind11.h>

namespace python {

/// Makes the exceptions of the library those of the package: a TavelinError with code and path, a
/// FormatError, or a ValueError for a text that is too short.
void defineErrors();

/// Throws the FormatError of a file whose reader has refused a line, with the place of that line where it is
/// found.
[[noreturn]] void throwFormatError(const std::string& path, const std::string& format,
                                   const std::string& why);

} // namespace python
