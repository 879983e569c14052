#include "texts.h"

#include "python_text.h"

#include "text/angle_text.h"
#include "text/calendar.h"
#include "text/date_text.h"
#include "text/number_text.h"

namespace py = pybind11;

namespace python {
namespace {

// More decimals than any double has; what is asked for beyond would only cost memory.
constexpr int mostDecimals = 1100;

int decimalsOf(int asked)
{
    if (asked < 0 || asked > mostDecimals) {
        throw py::value_error("decimals are 0 to 1100");
    }
    return asked;
}

py::str rightAscensionText(double degrees, int decimals, const Text& separator, bool seconds)
{
    return textOf(tavelinUtils::RAToStr(degrees, decimalsOf(decimals), separator.bytes, seconds));
}

py::str declinationText(double degrees, int decimals, const Text& separator, bool seconds)
{
    return textOf(tavelinUtils::DEToStr(degrees, decimalsOf(decimals), separator.bytes, seconds));
}

py::str timeText(double day, int decimals, const Text& separator)
{
    return textOf(tavelinUtils::DayToTime(day, decimalsOf(decimals), separator.bytes));
}

py::str dateText(double mjd, const Text& separator)
{
    return textOf(tavelinUtils::MJDToDate(mjd, separator.bytes));
}

py::str momentText(double mjd, int decimals)
{
    return textOf(tavelinUtils::MJDToDateTime(mjd, "-", ":", "T", decimalsOf(decimals)));
}

py::str fixedText(double value, int decimals)
{
    return textOf(tavelinUtils::Str9(value, decimalsOf(decimals)));
}

py::str shortText(double value)
{
    return textOf(tavelinUtils::FloatToStr(value));
}

double rightAscension(const Text& text)
{
    return tavelinUtils::raToDecimal(text.bytes);
}

double declination(const Text& text)
{
    return tavelinUtils::deToDecimal(text.bytes);
}

double packedRightAscension(const Text& text)
{
    return tavelinUtils::packedRA(text.bytes);
}

double packedDeclination(const Text& text)
{
    return tavelinUtils::packedDE(text.bytes);
}

int dateOf(const Text& text, const Text& separator)
{
    return tavelinUtils::DateToMJD(text.bytes, separator.bytes);
}

double timeOf(const Text& text, const Text& separator)
{
    return tavelinUtils::TimeToDay(text.bytes, separator.bytes);
}

py::str nightOf(double mjd, double offsetHours, const Text& separator)
{
    return textOf(tavelinUtils::DateOfNight(mjd, offsetHours, separator.bytes));
}

} // namespace

void defineTexts(py::module_& module)
{
    module.def("ra_text", rightAscensionText, py::arg("degrees"), py::arg("decimals"), py::arg("separator"),
               py::arg("seconds"));
    module.def("de_text", declinationText, py::arg("degrees"), py::arg("decimals"), py::arg("separator"),
               py::arg("seconds"));
    module.def("time_text", timeText, py::arg("day"), py::arg("decimals"), py::arg("separator"));
    module.def("date_text", dateText, py::arg("mjd"), py::arg("separator"));
    module.def("moment_text", momentText, py::arg("mjd"), py::arg("decimals"));
    module.def("fixed_text", fixedText, py::arg("value"), py::arg("decimals"));
    module.def("short_text", shortText, py::arg("value"));
    module.def("ra_degrees", rightAscension, py::arg("text"));
    module.def("de_degrees", declination, py::arg("text"));
    module.def("packed_ra", packedRightAscension, py::arg("text"));
    module.def("packed_de", packedDeclination, py::arg("text"));
    module.def("date_mjd", dateOf, py::arg("text"), py::arg("separator"));
    module.def("time_day", timeOf, py::arg("text"), py::arg("separator"));
    module.def("night_text", nightOf, py::arg("mjd"), py::arg("offset_hours"), py::arg("separator"));
}

} // namespace python
