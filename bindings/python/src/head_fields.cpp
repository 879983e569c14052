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

constexpr HeadField fields[] = {
    recordField<&Head::QRVName>("QRVName", "name of the object"),
    recordField<&Head::NORAD>("NORAD", "second designation; the name again where a format has none"),
    recordField<&Head::MPCChecker>("MPCChecker", "answer of the MPC checker"),
    recordField<&Head::HeadText1>("HeadText1", "carried"),
    recordField<&Head::HeadText2>("HeadText2", "first object number of SSMAS"),
    recordField<&Head::HeadText3>("HeadText3", "second object number of SSMAS"),
    recordField<&Head::telescope>("telescope", "identifier of the telescope"),
    recordField<&Head::originator>("originator", "identifier of the observatory"),
    recordField<&Head::REFERENCE_FRAME>("REFERENCE_FRAME", "word of the reference frame"),
    recordField<&Head::Series>("Series", "label of the series; the last part of an automatic name"),
    recordField<&Head::HeadValue1>("HeadValue1", "carried"),
    recordField<&Head::HeadValue2>("HeadValue2", "carried"),
    recordField<&Head::HeadValue3>("HeadValue3", "carried"),
    recordField<&Head::X0>("X0", "start of the linear model, X, pixels"),
    recordField<&Head::Y0>("Y0", "start of the linear model, Y, pixels"),
    recordField<&Head::Vx>("Vx", "speed of the linear model, X, pixels per frame"),
    recordField<&Head::Vy>("Vy", "speed of the linear model, Y, pixels per frame"),
    recordField<&Head::HeadValue4>("HeadValue4", "carried"),
    recordField<&Head::HeadValue5>("HeadValue5", "carried"),
    recordField<&Head::HeadValue6>("HeadValue6", "carried"),
    recordField<&Head::HeadValue7>("HeadValue7", "carried"),
    recordField<&Head::HeadValue8>("HeadValue8", "carried"),
    recordField<&Head::V_ra>("V_ra", "speed in right ascension, arc seconds per minute"),
    recordField<&Head::V_de>("V_de", "speed in declination, arc seconds per minute"),
    recordField<&Head::V>("V", "total speed, arc seconds per minute"),
    recordField<&Head::HeadValue9>("HeadValue9", "carried"),
    recordField<&Head::DispX>("DispX",
                              "dispersion in X, pixels; mean residual in RA for the residual report"),
    recordField<&Head::DispY>("DispY",
                              "dispersion in Y, pixels; mean residual in DE for the residual report"),
    recordField<&Head::DispXY>("DispXY", "dispersion of both, pixels"),
    recordField<&Head::HeadValue10>("HeadValue10", "carried"),
    recordField<&Head::HeadValue11>("HeadValue11", "carried"),
    recordField<&Head::LymX>("LymX", "quality of the track in X; rms residual in RA for the residual report"),
    recordField<&Head::LymY>("LymY", "quality of the track in Y; rms residual in DE for the residual report"),
    recordField<&Head::LymXY>("LymXY", "quality of the track in both"),
    recordField<&Head::m_m>("m_m", "mean magnitude"),
    recordField<&Head::m_rms>("m_rms", "rms of the magnitude, magnitudes"),
    recordField<&Head::PA>("PA", "position angle of the motion, degrees"),
    recordField<&Head::HeadValue12>("HeadValue12", "carried"),
    recordField<&Head::Angle_rms>("Angle_rms", "rms of Angle over the marks, in its unit"),
    recordField<&Head::Length_rms>("Length_rms", "rms of Length over the marks, in its unit"),
    recordField<&Head::HeadValue13>("HeadValue13", "carried"),
    recordField<&Head::HeadValue14>("HeadValue14", "carried"),
    recordField<&Head::HeadValue15>("HeadValue15", "carried"),
    recordField<&Head::HeadValue16>("HeadValue16", "carried"),
    recordField<&Head::HeadValue17>("HeadValue17", "carried"),
    recordField<&Head::HeadValue18>("HeadValue18", "carried"),
    recordField<&Head::HeadValue19>("HeadValue19", "carried"),
    recordField<&Head::HeadValue20>("HeadValue20", "carried"),
    recordField<&Head::HeadValue21>("HeadValue21", "carried"),
    recordField<&Head::HeadValue22>("HeadValue22", "carried"),
    recordField<&Head::HeadValue23>("HeadValue23", "carried"),
    recordField<&Head::HeadValue24>("HeadValue24", "carried"),
    recordField<&Head::FindOrb>("FindOrb",
                                "residual of the orbit fit, arc seconds; 999.0 means not computed"),
    recordField<&Head::N>("N", "number of the track in its list"),
    recordField<&Head::NMarks>("NMarks", "number of marks, set by the reader of track tables"),
    recordField<&Head::TrMade>("TrMade", "how the track was made"),
    recordField<&Head::HeadInt>("HeadInt", "carried"),
    recordField<&Head::ObsCode>("ObsCode", "observer code of the AAVSO report"),
    recordField<&Head::SourceFile>("SourceFile", "path of the track table that the track came from"),
    recordField<&Head::ResidFile>("ResidFile", "path of the source of the residuals"),
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
    recordField<&TTrackResid::Value1>("Value1", "carried"),
    recordField<&TTrackResid::Value2>("Value2", "carried"),
    recordField<&TTrackResid::Value3>("Value3", "carried"),
    recordField<&TTrackResid::Value4>("Value4", "carried"),
    recordField<&TTrackResid::List1>("List1", "carried"),
    recordField<&TTrackResid::List2>("List2", "carried"),
    recordField<&TTrackResid::List3>("List3", "carried"),
    recordField<&TTrackResid::List4>("List4", "carried"),
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
