// User configuration of a series: the ".conf" file with telescope, thresholds and report headers.
//
//   <root>
//       <Service>asteroids</Service>
//       <basicSettings><Telescope>T1</Telescope></basicSettings>
//       <lightCurves><AAVSOCode>ABC</AAVSOCode></lightCurves>
//       <ReportSettings><MPCReport><MPCcode>500</MPCcode></MPCReport></ReportSettings>
//   </root>
//
// The name of the root does not matter.

#pragma once

#include "../export.h"
#include "../results/result.h"
#include "settings.h"
#include "xml_document.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// Reads a configuration into the settings. Every section replaces its whole record, a missing one with the
/// defaults. Version and the number of coefficients stay if the file does not set them; a missing Service is
/// an unknown one. The raw frames of an unused kind of master frame are dropped. Element sets are read only
/// if asked for; otherwise there are none.
///
/// Code 0, or 138 for a missing file and 139 for one that cannot be loaded, each with the path in the
/// description and in the details; the settings are then untouched. Never returns from an empty element of a
/// list of calibration frames or filter names.
TFuncRes LoadUserConfXML(std::string path, TPorogs& porogs, bool loadTLE);

/// The same for a document that has not been loaded; it then tells whether its file could be read.
TFuncRes LoadUserConfXML(TtavelinXmlDocument& document, TPorogs& porogs, bool loadTLE);

} // namespace tavelinUtils
