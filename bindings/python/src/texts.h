// Texts of angles, dates, times and numbers, and back.

#pragma once

#include <pybind11/pybind11.h>

namespace python {

/// Adds the texts to the module.
void defineTexts(pybind11::module_& module);

} // namespace python
