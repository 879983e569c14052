// Works: the two works of the tool on tasks, and the command's own.

#pragma once

#include <pybind11/pybind11.h>

namespace python {

/// Adds tasks, their works and the command to the module.
void defineWorks(pybind11::module_& module);

} // namespace python
