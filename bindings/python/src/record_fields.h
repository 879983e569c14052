// Record fields: numbers and texts of a record of the library as attributes of a Python class, a row for
// each.

#pragma once

#include "python_text.h"

#include <string>
#include <type_traits>

#include <pybind11/pybind11.h>

namespace python {

/// The value of a Python object. Throws TypeError for one of another type, and for a number that does not
/// fit.
template <class Value>
Value valueOf(pybind11::handle from)
{
    pybind11::detail::make_caster<Value> caster;
    if (!caster.load(from, true)) {
        throw pybind11::type_error("a value of the type " +
                                   std::string(pybind11::str(pybind11::type::of(from))) +
                                   " cannot be taken here");
    }
    return pybind11::detail::cast_op<Value>(caster);
}

/// A value of a record as a Python object.
template <class Value>
pybind11::object toPython(const Value& value)
{
    if constexpr (std::is_same_v<Value, std::string>) {
        return textOf(value);
    } else if constexpr (std::is_enum_v<Value>) {
        return pybind11::int_(static_cast<int>(value));
    } else {
        return pybind11::cast(value);
    }
}

/// Sets a value of a record to a Python object. Throws as valueOf.
template <class Value>
void fromPython(pybind11::handle from, Value& to)
{
    if constexpr (std::is_same_v<Value, std::string>) {
        to = bytesOf(from);
    } else if constexpr (std::is_enum_v<Value>) {
        to = static_cast<Value>(valueOf<int>(from));
    } else {
        to = valueOf<Value>(from);
    }
}

/// A row: an attribute and how it is read and set.
template <class Record>
struct RecordField
{
    const char* name;
    const char* meaning; ///< a few words with the unit, without a full stop
    pybind11::object (*get)(const Record& record);
    void (*set)(Record& record, pybind11::handle value); ///< throws TypeError for another type
};

/// For the type alone: the record that a member is of.
template <class Record, class Value>
Record recordOf(Value Record::*);

/// A row of a member.
template <auto member>
constexpr auto recordField(const char* name, const char* meaning)
{
    using Record = decltype(recordOf(member));
    return RecordField<Record>{
        name, meaning, [](const Record& record) { return toPython(record.*member); },
        [](Record& record, pybind11::handle value) { fromPython(value, record.*member); }};
}

/// The attributes of a class that is the record itself.
template <class Record, class Fields>
void defineFields(pybind11::class_<Record>& type, const Fields& fields)
{
    for (const RecordField<Record>& field : fields) {
        type.def_property(field.name, field.get, field.set, field.meaning);
    }
}

} // namespace python
