#include "head_fields.h"

#include "python_text.h"

#include <string>
#include <utility>

#include <pybind11/stl.h>

namespace py = pybind11;

namespace python {
namespace {

using tavelinUtils::TMPCReportHeader;
using tavelinUtils::TTrackResid;

template <auto member>
constexpr HeadField field(const char* name, const char* meaning)
{
    return recordField<Head, member>(name, meaning);
}

constexpr HeadField fields[] = {
    field<&Head::QRVName>("QRVName", "name of the object"),
    field<&Head::NORAD>("NORAD", "second designation; the name again where a format has none"),
    field<&Head::MPCChecker>("MPCChecker", "answer of the MPC checker"),
    field<&Head::HeadText1>("HeadText1", "carried"),
    field<&Head::HeadText2>("HeadText2", "first object number of SSMAS"),
    field<&Head::HeadText3>("HeadText3", "second object number of SSMAS"),
    field<&Head::telescope>("telescope", "identifier of the telescope"),
    field<&Head::originator>("originator", "identifier of the observatory"),
    field<&Head::REFERENCE_FRAME>("REFERENCE_FRAME", "word of the reference frame"),
    field<&Head::Series>("Series", "label of the series; the last part of an automatic name"),
    field<&Head::HeadValue1>("HeadValue1", "carried"),
    field<&Head::HeadValue2>("HeadValue2", "carried"),
    field<&Head::HeadValue3>("HeadValue3", "carried"),
    field<&Head::X0>("X0", "start of the linear model, X, pixels"),
    field<&Head::Y0>("Y0", "start of the linear model, Y, pixels"),
    field<&Head::Vx>("Vx", "speed of the linear model, X, pixels per frame"),
    field<&Head::Vy>("Vy", "speed of the linear model, Y, pixels per frame"),
    field<&Head::HeadValue4>("HeadValue4", "carried"),
    field<&Head::HeadValue5>("HeadValue5", "carried"),
    field<&Head::HeadValue6>("HeadValue6", "carried"),
    field<&Head::HeadValue7>("HeadValue7", "carried"),
    field<&Head::HeadValue8>("HeadValue8", "carried"),
    field<&Head::V_ra>("V_ra", "speed in right ascension, arc seconds per minute"),
    field<&Head::V_de>("V_de", "speed in declination, arc seconds per minute"),
    field<&Head::V>("V", "total speed, arc seconds per minute"),
    field<&Head::HeadValue9>("HeadValue9", "carried"),
    field<&Head::DispX>("DispX", "dispersion in X, pixels; mean residual in RA for the residual report"),
    field<&Head::DispY>("DispY", "dispersion in Y, pixels; mean residual in DE for the residual report"),
    field<&Head::DispXY>("DispXY", "dispersion of both, pixels"),
    field<&Head::HeadValue10>("HeadValue10", "carried"),
    field<&Head::HeadValue11>("HeadValue11", "carried"),
    field<&Head::LymX>("LymX", "quality of the track in X; rms residual in RA for the residual report"),
    field<&Head::LymY>("LymY", "quality of the track in Y; rms residual in DE for the residual report"),
    field<&Head::LymXY>("LymXY", "quality of the track in both"),
    field<&Head::m_m>("m_m", "mean magnitude"),
    field<&Head::m_rms>("m_rms", "rms of the magnitude, magnitudes"),
    field<&Head::PA>("PA", "position angle of the motion, degrees"),
    field<&Head::HeadValue12>("HeadValue12", "carried"),
    field<&Head::Angle_rms>("Angle_rms", "rms of Angle over the marks, in its unit"),
    field<&Head::Length_rms>("Length_rms", "rms of Length over the marks, in its unit"),
    field<&Head::HeadValue13>("HeadValue13", "carried"),
    field<&Head::HeadValue14>("HeadValue14", "carried"),
    field<&Head::HeadValue15>("HeadValue15", "carried"),
    field<&Head::HeadValue16>("HeadValue16", "carried"),
    field<&Head::HeadValue17>("HeadValue17", "carried"),
    field<&Head::HeadValue18>("HeadValue18", "carried"),
    field<&Head::HeadValue19>("HeadValue19", "carried"),
    field<&Head::HeadValue20>("HeadValue20", "carried"),
    field<&Head::HeadValue21>("HeadValue21", "carried"),
    field<&Head::HeadValue22>("HeadValue22", "carried"),
    field<&Head::HeadValue23>("HeadValue23", "carried"),
    field<&Head::HeadValue24>("HeadValue24", "carried"),
    field<&Head::FindOrb>("FindOrb", "residual of the orbit fit, arc seconds; 999.0 means not computed"),
    field<&Head::N>("N", "number of the track in its list"),
    field<&Head::NMarks>("NMarks", "number of marks, set by the reader of track tables"),
    field<&Head::TrMade>("TrMade", "how the track was made"),
    field<&Head::HeadInt>("HeadInt", "carried"),
    field<&Head::ObsCode>("ObsCode", "observer code of the AAVSO report"),
    field<&Head::SourceFile>("SourceFile", "path of the track table that the track came from"),
    field<&Head::ResidFile>("ResidFile", "path of the source of the residuals"),
};

// A text of a report's header.
struct HeaderText
{
    const char* name;
    std::string TMPCReportHeader::*text;
};

constexpr HeaderText headerTexts[] = {
    {"COD", &TMPCReportHeader::COD}, {"CON", &TMPCReportHeader::CON}, {"OBS", &TMPCReportHeader::OBS},
    {"MEA", &TMPCReportHeader::MEA}, {"COM", &TMPCReportHeader::COM}, {"TEL", &TMPCReportHeader::TEL},
    {"ACK", &TMPCReportHeader::ACK}, {"AC2", &TMPCReportHeader::AC2}, {"NET", &TMPCReportHeader::NET},
};

std::string& headerText(TMPCReportHeader& header, const std::string& name)
{
    for (const HeaderText& each : headerTexts) {
        if (name == each.name) {
            return header.*each.text;
        }
    }
    throw py::key_error(name);
}

constexpr RecordField<TTrackResid> residualFields[] = {
    recordField<TTrackResid, &TTrackResid::Value1>("Value1", "carried"),
    recordField<TTrackResid, &TTrackResid::Value2>("Value2", "carried"),
    recordField<TTrackResid, &TTrackResid::Value3>("Value3", "carried"),
    recordField<TTrackResid, &TTrackResid::Value4>("Value4", "carried"),
    recordField<TTrackResid, &TTrackResid::List1>("List1", "carried"),
    recordField<TTrackResid, &TTrackResid::List2>("List2", "carried"),
    recordField<TTrackResid, &TTrackResid::List3>("List3", "carried"),
    recordField<TTrackResid, &TTrackResid::List4>("List4", "carried"),
};

const RecordField<TTrackResid>& residualField(const std::string& name)
{
    for (const RecordField<TTrackResid>& field : residualFields) {
        if (name == field.name) {
            return field;
        }
    }
    throw py::key_error(name);
}

} // namespace

std::span<const HeadField> headFields()
{
    return fields;
}

py::dict headerOf(const Head& head)
{
    py::dict header;
    for (const HeaderText& each : headerTexts) {
        header[each.name] = textOf(head.MPCHeader.*each.text);
    }
    return header;
}

void setHeader(Head& head, const py::dict& header)
{
    TMPCReportHeader changed = head.MPCHeader;
    for (const auto& [key, value] : header) {
        headerText(changed, bytesOf(key)) = bytesOf(value);
    }
    head.MPCHeader = changed;
}

py::dict residualsOf(const TTrackResid& residuals)
{
    py::dict values;
    for (const RecordField<TTrackResid>& field : residualFields) {
        values[field.name] = field.get(residuals);
    }
    return values;
}

void setResiduals(TTrackResid& residuals, const py::dict& values)
{
    TTrackResid changed = residuals;
    for (const auto& [key, value] : values) {
        residualField(bytesOf(key)).set(changed, value);
    }
    residuals = std::move(changed);
}

} // namespace python
