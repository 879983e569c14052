// Fields of a track's head by the names under which Python knows them.

#pragma once

#include "record_fields.h"
#include "records/track.h"

#include <span>

#include <pybind11/pybind11.h>

namespace python {

using Head = tavelinUtils::THeadTrVtor;

using HeadField = RecordField<Head>;

/// All fields but the header of a report and the residuals.
std::span<const HeadField> headFields();

/// The header of a report as a dictionary, and back: what the dictionary lacks stays. Throws KeyError for a
/// key that no header has.
pybind11::dict headerOf(const Head& head);
void setHeader(Head& head, const pybind11::dict& header);

/// Residuals of a head as a dictionary of four numbers and four lists of numbers, and back: what the
/// dictionary lacks stays. Throws KeyError for a key that no residuals have, TypeError as a field.
pybind11::dict residualsOf(const tavelinUtils::TTrackResid& residuals);
void setResiduals(tavelinUtils::TTrackResid& residuals, const pybind11::dict& values);

} // namespace python
