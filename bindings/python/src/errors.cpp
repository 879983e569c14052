#include "errors.h"

#include "python_text.h"

#include "findings/finding.h"
#include "reading/lint.h"
#include "results/result.h"

#include <cstddef>
#include <exception>
#include <new>
#include <optional>
#include <stdexcept>

namespace py = pybind11;

namespace python {
namespace {

using companion::Finding;
using tavelinUtils::TavelinException;

py::object errorType(const char* name)
{
    return py::module_::import("tavelin._errors").attr(name);
}

void raise(const py::object& type, const py::object& error)
{
    PyErr_SetObject(type.ptr(), error.ptr());
}

void raiseTavelinError(const std::string& message, const py::object& code, const std::string& path)
{
    const py::object type = errorType("TavelinError");
    raise(type, type(textOf(message), code, textOf(path)));
}

void translate(std::exception_ptr thrown)
{
    try {
        std::rethrow_exception(thrown);
    } catch (const TavelinException& error) {
        raiseTavelinError(error.what(), py::int_(error.getCode()), error.getComment());
    } catch (const companion::WrongUsage& usage) {
        raiseTavelinError(usage.why.text, py::str(usage.why.code.text()), usage.why.file);
    } catch (const std::out_of_range& error) {
        PyErr_SetString(PyExc_ValueError, error.what());
    }
}

// The first line of a file that its reader refuses.
std::optional<Finding> refusal(const std::string& path, const std::string& format)
{
    std::optional<Finding> first;
    companion::LintSettings settings;
    settings.person = false;
    companion::lintFile(path, format, settings, [&first](Finding found) {
        if (!first && found.severity == companion::Severity::error) {
            first = std::move(found);
        }
    });
    return first;
}

} // namespace

void defineErrors()
{
    py::register_local_exception_translator(translate);
}

void throwFormatError(const std::string& path, const std::string& format, const std::string& why)
{
    const std::optional<Finding> found = refusal(path, format);
    const std::size_t line = found ? found->line : 0;
    const std::size_t column = found ? found->column : 0;
    const py::object type = errorType("FormatError");
    raise(type, type(textOf(found ? found->text : why), textOf(path), line, column));
    throw py::error_already_set();
}

} // namespace python
