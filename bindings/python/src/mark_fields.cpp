#include "mark_fields.h"

#include <cstring>
#include <stdexcept>
#include <type_traits>
#include <vector>

namespace python {
namespace {

template <class Value>
Value typeOf(Value Mark::*);

template <class Value>
constexpr const char* formatOf()
{
    if constexpr (std::is_same_v<Value, double>) {
        return "f8";
    } else if constexpr (std::is_same_v<Value, bool>) {
        return "?";
    } else {
        static_assert(sizeof(Value) == 4, "an integer or an enumeration");
        return "i4";
    }
}

// A row of the table.
template <auto member>
NumberField number(const char* name, const char* unit, const char* meaning)
{
    static const Mark example;
    const void* const begin = &example;
    const void* const place = &(example.*member);
    const auto offset = static_cast<const char*>(place) - static_cast<const char*>(begin);
    using Value = decltype(typeOf(member));
    return {name, unit, meaning, formatOf<Value>(), static_cast<std::size_t>(offset), sizeof(Value)};
}

// A field has a unit only where it has no other meaning beside.
const NumberField numbers[] = {
    number<&Mark::BlobCode>("BlobCode", "", "verdict on the blob"),
    number<&Mark::X_bf>("X_bf", "pix", "X on the frame before fitting, pixels"),
    number<&Mark::Y_bf>("Y_bf", "pix", "Y before fitting, pixels"),
    number<&Mark::X_f>("X_f", "pix", "X after fitting, pixels"),
    number<&Mark::Y_f>("Y_f", "pix", "Y after fitting, pixels"),
    number<&Mark::AuxInt1>("AuxInt1", "", "carried"),
    number<&Mark::AuxInt2>("AuxInt2", "", "carried"),
    number<&Mark::TypeBlob>("TypeBlob", "", "kind of blob"),
    number<&Mark::AuxFlag>("AuxFlag", "", "carried"),
    number<&Mark::AuxInt3>("AuxInt3", "", "carried"),
    number<&Mark::iFRaw>("iFRaw", "", "the column iF as read; -1 after a conversion from a blob table"),
    number<&Mark::iF>("iF", "", "index of the frame, from 0; the column shows it from 1"),
    number<&Mark::AuxInt4>("AuxInt4", "", "carried; -1 after a conversion from a blob table"),
    number<&Mark::iB>("iB", "", "index of the blob on its frame"),
    number<&Mark::AuxInt5>("AuxInt5", "", "carried"),
    number<&Mark::LinkIndex>("LinkIndex", "", "index of a linked blob, -1 for none; carried"),
    number<&Mark::SNRafit>("SNRafit", "", "signal-to-noise ratio of the fitted amplitude"),
    number<&Mark::SNRasegm>("SNRasegm", "", "signal-to-noise ratio of the segment's amplitude"),
    number<&Mark::SNRpeak>("SNRpeak", "", "signal-to-noise ratio at the peak"),
    number<&Mark::FWHM>("FWHM", "pix", "full width at half maximum, pixels"),
    number<&Mark::SigFit>("SigFit", "pix", "sigma of the fit, pixels"),
    number<&Mark::RMSFit>("RMSFit", "", "rms of the fit, ADU"),
    number<&Mark::SNcorrnotnorm>("SNcorrnotnorm", "", "measure of correlation, not normalised"),
    number<&Mark::corrnorm>("corrnorm", "", "measure of correlation, normalised"),
    number<&Mark::Exc>("Exc", "", "eccentricity of the blob"),
    number<&Mark::Angle>("Angle", "", "angle of the blob; the column names no unit"),
    number<&Mark::Length>("Length", "", "length of the blob; the column names no unit"),
    number<&Mark::Width>("Width", "", "width of the blob; the column names no unit"),
    number<&Mark::Radius>("Radius", "", "radius of the blob; the column names no unit"),
    number<&Mark::A>("A", "", "fitted amplitude, the flux of mInstr; the column names no unit"),
    number<&Mark::Asegm>("Asegm", "", "amplitude of the segment; the column names no unit"),
    number<&Mark::Astrob>("Astrob", "", "amplitude of the strobe; the column names no unit"),
    number<&Mark::mInstr>("mInstr", "mag", "instrumental magnitude"),
    number<&Mark::mInstr1000>("mInstr1000", "mag",
                              "instrumental magnitude at the reference range, for satellites"),
    number<&Mark::date>("date", "d", "whole day of the mid-time, MJD"),
    number<&Mark::time>("time", "d", "fraction of that day: date + time is the MJD"),
    number<&Mark::bjd>("bjd", "d", "whole day of the barycentric time"),
    number<&Mark::time_bjd>("time_bjd", "d", "fraction of that day"),
    number<&Mark::RA>("RA", "deg", "right ascension, degrees"),
    number<&Mark::DE>("DE", "deg", "declination, degrees"),
    number<&Mark::AuxValue>("AuxValue", "", "carried"),
    number<&Mark::m>("m", "mag", "magnitude; it may be negative"),
    number<&Mark::RefValue1>("RefValue1", "", "carried"),
    number<&Mark::RefValue2>("RefValue2", "", "carried"),
    number<&Mark::RefValue3>("RefValue3", "", "carried"),
    number<&Mark::RefValue4>("RefValue4", "", "calculated right ascension, degrees; or its residual"),
    number<&Mark::RefValue5>("RefValue5", "", "calculated declination, degrees; or its residual"),
    number<&Mark::RefValue6>("RefValue6", "", "third residual; no unit is given"),
    number<&Mark::RefValue7>("RefValue7", "", "carried"),
    number<&Mark::RefValue8>("RefValue8", "", "carried"),
    number<&Mark::RefValue9>("RefValue9", "", "carried"),
    number<&Mark::Tag1>("Tag1", "", "number of the blob's group where iICtoBlob sets it; else carried"),
    number<&Mark::Tag2>("Tag2", "", "carried"),
    number<&Mark::Tag3>("Tag3", "", "carried"),
    number<&Mark::Tag4>("Tag4", "", "carried"),
    number<&Mark::Spare1>("Spare1", "", "instrumental magnitude of a star's light curve; else carried"),
    number<&Mark::mEnsemble>("mEnsemble", "mag", "ensemble magnitude"),
    number<&Mark::Spare2>("Spare2", "", "magnitude of a check star in the AAVSO report; else carried"),
    number<&Mark::Spare3>("Spare3", "", "magnitude of a comparison star in a light curve; else carried"),
    number<&Mark::mInstrComp>("mInstrComp", "mag", "instrumental magnitude of the comparison"),
    number<&Mark::Spare4>("Spare4", "", "carried"),
    number<&Mark::Spare5>("Spare5", "",
                          "error of mEnsemble in a star's light curve, magnitudes; else carried"),
    number<&Mark::SpareTail>("SpareTail", "", "distance to the object, in the unit of the reference range"),
};

constexpr TextField texts[] = {
    {"filtr", "letter of the photometric filter", &Mark::filtr},
    {"mjd", "the column mjd as read; it sets neither date nor time", &Mark::mjd},
    {"QRVID", "identifier in the catalogue of the processing", &Mark::QRVID},
    {"SpareText", "name of the star in a star's light curve; else carried", &Mark::SpareText},
    {"KNAME", "name of the check star", &Mark::KNAME},
    {"MTYPE", "word for the kind of magnitude", &Mark::MTYPE},
    {"CNAME", "name of the comparison star", &Mark::CNAME},
    {"CHART", "identifier of the chart", &Mark::CHART},
};

// Bytes of a record that follow each other.
struct Run
{
    std::size_t offset;
    std::size_t size;
};

// The stretches of numbers between the texts.
std::vector<Run> runsOfNumbers()
{
    std::vector<Run> runs{{0, 0}};
    for (const NumberField& field : numbers) {
        if (field.offset != runs.back().offset + runs.back().size) {
            runs.push_back({field.offset, 0});
        }
        runs.back().size += field.size;
    }
    return runs;
}

} // namespace

std::span<const NumberField> numberFields()
{
    return numbers;
}

std::span<const TextField> textFields()
{
    return texts;
}

std::size_t textPlace(std::string_view name)
{
    for (std::size_t place = 0; place < std::size(texts); ++place) {
        if (name == texts[place].name) {
            return place;
        }
    }
    throw std::invalid_argument("a mark has no text of the name " + std::string(name));
}

void copyNumbers(const std::byte* from, std::byte* to)
{
    static const std::vector<Run> runs = runsOfNumbers();
    for (const Run& run : runs) {
        std::memcpy(to + run.offset, from + run.offset, run.size);
    }
}

} // namespace python
