#include "python_text.h"

namespace py = pybind11;

namespace python {

py::str textOf(const std::string& bytes)
{
    PyObject* const text =
        PyUnicode_DecodeUTF8(bytes.data(), static_cast<Py_ssize_t>(bytes.size()), "surrogateescape");
    if (text == nullptr) {
        throw py::error_already_set();
    }
    return py::reinterpret_steal<py::str>(text);
}

std::string bytesOf(py::handle text)
{
    if (!PyUnicode_Check(text.ptr())) {
        throw py::type_error("expected a text");
    }
    PyObject* const bytes = PyUnicode_AsEncodedString(text.ptr(), "utf-8", "surrogateescape");
    if (bytes == nullptr) {
        throw py::error_already_set();
    }
    return py::reinterpret_steal<py::bytes>(bytes);
}

} // namespace python
