// Texts between Python and the library: the library's texts are bytes, and what is not UTF-8 among them goes
// through Python unharmed, as the names of files do.

#pragma once

#include <string>

#include <pybind11/pybind11.h>

namespace python {

/// Bytes as a text; those that are not UTF-8 become lone surrogates, as in names of files.
pybind11::str textOf(const std::string& bytes);

/// The bytes of a text, lone surrogates back to what they were. Throws pybind11::type_error for anything but
/// a text.
std::string bytesOf(pybind11::handle text);

/// A text argument.
struct Text
{
    std::string bytes{};
};

/// A path argument: a text, bytes or an os.PathLike.
struct Path
{
    std::string bytes{};
};

} // namespace python

namespace pybind11::detail {

/// Takes texts for arguments of the type Text, and gives them back as texts.
template <>
struct type_caster<python::Text>
{
    PYBIND11_TYPE_CASTER(python::Text, const_name("str"));

    /// False for anything but a text, so that the call is refused with a TypeError.
    bool load(handle source, bool)
    {
        if (!PyUnicode_Check(source.ptr())) {
            return false;
        }
        value.bytes = python::bytesOf(source);
        return true;
    }

    /// A text of bytes.
    static handle cast(const python::Text& text, return_value_policy, handle)
    {
        return python::textOf(text.bytes).release();
    }
};

/// Takes paths for arguments of the type Path.
template <>
struct type_caster<python::Path>
{
    PYBIND11_TYPE_CASTER(python::Path, const_name("str | os.PathLike[str]"));

    /// Throws what os.fsencode throws; a path with a zero byte is a ValueError.
    bool load(handle source, bool)
    {
        PyObject* encoded = nullptr;
        if (PyUnicode_FSConverter(source.ptr(), &encoded) == 0) {
            throw error_already_set();
        }
        value.bytes = reinterpret_steal<bytes>(encoded);
        return true;
    }
};

} // namespace pybind11::detail
