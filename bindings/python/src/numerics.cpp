#include "numerics.h"

#include "math/histogram.h"
#include "math/quick_sort.h"
#include "math/statistics.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <limits>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include <pybind11/numpy.h>

namespace py = pybind11;

namespace python {
namespace {

using tavelinUtils::THisto;

// Arrays of doubles without gaps are taken as they are, others as a copy. Of several dimensions the values
// count in the order of rows.
using Values = py::array_t<double, py::array::c_style | py::array::forcecast>;
using Mask = py::array_t<bool, py::array::c_style | py::array::forcecast>;

// The library counts values by an int.
int countOf(const py::array& values)
{
    if (values.size() > std::numeric_limits<int>::max()) {
        throw py::value_error("an array has at most 2147483647 values here");
    }
    return static_cast<int>(values.size());
}

// The library takes what it does not change by a plain pointer too.
double* dataOf(const Values& values)
{
    return const_cast<double*>(values.data());
}

bool* dataOf(const Mask& mask)
{
    return const_cast<bool*>(mask.data());
}

void mustMatch(const Values& values, const Mask& mask)
{
    if (values.size() != mask.size()) {
        throw py::value_error("the mask has " + std::to_string(mask.size()) + " places for " +
                              std::to_string(values.size()) + " values");
    }
}

std::vector<double> listOf(const Values& values)
{
    return {values.data(), values.data() + countOf(values)};
}

py::tuple maskedMean(const Values& values, const Mask& mask)
{
    mustMatch(values, mask);
    unsigned long count = 0;
    const double mean = tavelinMath::CalculateAverage(countOf(values), dataOf(values), dataOf(mask), count);
    return py::make_tuple(mean, count);
}

py::tuple maskedDeviation(const Values& values, const Mask& mask, double mean)
{
    mustMatch(values, mask);
    unsigned long count = 0;
    const double deviation =
        tavelinMath::CalculateSKO(countOf(values), dataOf(values), dataOf(mask), count, mean);
    return py::make_tuple(deviation, count);
}

// Throws ValueError where an array that is changed in place is not of the type, has gaps or is read-only.
template <class Array>
Array inPlace(const py::array& array, const char* what)
{
    if (!py::isinstance<Array>(array) || !array.writeable()) {
        throw py::value_error(std::string("what is changed in place is a writable array of ") + what +
                              " without gaps");
    }
    return py::reinterpret_borrow<Array>(array);
}

void blank(const Values& values, const py::array& mask, double lower, double upper)
{
    const auto places = inPlace<Mask>(mask, "bool");
    mustMatch(values, places);
    tavelinMath::BlankARR(countOf(values), dataOf(values), dataOf(places), lower, upper);
}

py::tuple clippedMean(const Values& values, int iterations, double k, double eps)
{
    double mean = std::numeric_limits<double>::quiet_NaN();
    double sigma = mean;
    const int count = countOf(values);
    double* const data = dataOf(values);
    {
        const py::gil_scoped_release others;
        tavelinMath::pcMathSKO(count, 1, data, iterations, k, eps, mean, sigma);
    }
    return py::make_tuple(mean, sigma);
}

template <double (*median)(std::vector<double>&)>
double medianOf(const Values& values)
{
    std::vector<double> list = listOf(values);
    const py::gil_scoped_release others;
    return median(list);
}

py::tuple arraysOf(const std::vector<THisto>& histogram)
{
    const auto size = static_cast<py::ssize_t>(histogram.size());
    py::array_t<double> lower(size);
    py::array_t<double> upper(size);
    py::array_t<int> counts(size);
    for (py::ssize_t bin = 0; bin < size; ++bin) {
        const THisto& each = histogram[static_cast<std::size_t>(bin)];
        lower.mutable_at(bin) = each.Lo;
        upper.mutable_at(bin) = each.Hi;
        counts.mutable_at(bin) = each.Count;
    }
    return py::make_tuple(lower, upper, counts);
}

py::tuple histogram(const Values& values, int bins)
{
    std::vector<double> list = listOf(values);
    std::vector<THisto> result;
    {
        const py::gil_scoped_release others;
        result = tavelinMath::calcGisto(list, bins);
    }
    return arraysOf(result);
}

py::tuple peakHistogram(const Values& values, int bins, int iterations)
{
    const std::vector<double> list = listOf(values);
    std::vector<THisto> result;
    {
        const py::gil_scoped_release others;
        result = tavelinMath::calcGistoIteratio(list, bins, iterations);
    }
    return arraysOf(result);
}

// The library's sort, on the memory of the array. Gives the index.
py::array_t<unsigned long> sortInPlace(const py::array& keys, bool isDescending)
{
    auto values = inPlace<Values>(keys, "float64");
    const int last = countOf(values) - 1;
    py::array_t<unsigned long> index(values.size());
    unsigned long* const places = index.mutable_data();
    std::iota(places, places + values.size(), 0UL);
    const tavelinUtils::IndexedKeys<double> both{values.mutable_data(), places};
    const py::gil_scoped_release others;
    if (isDescending) {
        tavelinUtils::sortByPartitions(both, 0, last, std::greater<double>());
    } else {
        tavelinUtils::sortByPartitions(both, 0, last, std::less<double>());
    }
    return index;
}

} // namespace

void defineNumerics(py::module_& module)
{
    module.def("masked_mean", maskedMean, py::arg("values"), py::arg("mask"));
    module.def("masked_deviation", maskedDeviation, py::arg("values"), py::arg("mask"), py::arg("mean"));
    module.def("blank", blank, py::arg("values"), py::arg("mask").noconvert(), py::arg("lower"),
               py::arg("upper"));
    module.def("clipped_mean", clippedMean, py::arg("values"), py::arg("iterations"), py::arg("k"),
               py::arg("eps"));
    module.def("median", medianOf<tavelinMath::Median>, py::arg("values"));
    module.def("lower_median", medianOf<tavelinMath::Median2>, py::arg("values"));
    module.def("histogram", histogram, py::arg("values"), py::arg("bins"));
    module.def("peak_histogram", peakHistogram, py::arg("values"), py::arg("bins"), py::arg("iterations"));
    module.def("sort_in_place", sortInPlace, py::arg("keys").noconvert(), py::arg("descending"));
}

} // namespace python
