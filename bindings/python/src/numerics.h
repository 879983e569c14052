// Numerics over arrays: statistics, clipping, histograms and the sort of the library.

#pragma once

#include <pybind11/pybind11.h>

namespace python {

/// Adds the numerics to the module.
void defineNumerics(pybind11::module_& module);

} // namespace python
