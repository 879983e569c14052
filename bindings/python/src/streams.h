// Streams of tracks: files that are read and written track by track, of any format.

#pragma once

#include <pybind11/pybind11.h>

namespace python {

/// Adds readers and writers to the module.
void defineStreams(pybind11::module_& module);

} // namespace python
