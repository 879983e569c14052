// Sections of a user configuration: one reader for each, from its element into its record.
//
// A reader takes the first element of the document and the name of the section. It gives a new record with
// what the file says: a missing section or key leaves the defaults in silence, and a text that is no number
// gives 0. Of several sections of one name the first counts unless noted otherwise.

#pragma once

#include "../export.h"
#include "settings.h"
#include "xml_document.h"

#include <string>
#include <utility>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Telescope and site. A width or height of pixels above 1.0 counts as micrometres.
TBasicSettings GetBasicSettings(TiXmlElement* root, std::string key);

/// On-line processing.
TZunek GetZUNEK(TiXmlElement* root, std::string key);

/// Detection on frames and on their differences. Every section of the name is read in turn over the same
/// records, so that a later one overrides.
std::pair<TFitt, TQRVDIntraframeThresh> GetIntraFrame(TiXmlElement* root, std::string key);

/// Calibration frames, from the child "brightnessFramesAlignment". The lists of raw frames are those of the
/// file, whether they are used or not. Does not return from an empty element of such a list.
TMasterFrame GetBrightnessFrame(TiXmlElement* root, std::string key);

/// Astrometry and photometry. The number of coefficients is left at its default.
TAstro GetIdentification(TiXmlElement* root, std::string key);

/// The search for moving objects.
TVO GetInterFrameAsteroids(TiXmlElement* root, std::string key);

/// The representatives; their keys are in the section of the moving objects.
TInterIC GetInterFrameIC(TiXmlElement* root, std::string key);

/// Satellites, without their element sets.
TInterSat GetInterFrameSatellites(TiXmlElement* root, std::string key);

/// Stacking of frames.
TStacking GetAutoFrameStacking(TiXmlElement* root, std::string key);

/// Light curves.
TCurves GetLightCurves(TiXmlElement* root, std::string key);

/// The report to the Minor Planet Center, from the child "MPCReport". COM and NET of the header have no key
/// and stay empty.
TMPC GetReportSettings(TiXmlElement* root, std::string key);

/// The spellings of frame headers, from the child "headerKeys", or from the section itself if that is its
/// name: "key" elements whose attribute "name" is one of the twenty words, each with "string" children. A key
/// with another name, or without one, is skipped; an empty "string" gives no spelling.
THeaderKeys HeaderKeyXML(TiXmlElement* root, std::string key);

/// The names of filters, from the child "filterKeys", or from the section itself if that is its name. Each
/// element below it, whatever its name, adds one list for each of the four letters, an empty one where it
/// lacks the letter. Does not return from an empty "string" of such a list.
TFiltersID GetFiltersID(TiXmlElement* root, std::string key);

/// The element sets: the "TLE" elements of the section up to the first that holds no element.
std::vector<TTLEstr> GetTLEs(TiXmlElement* root, std::string key);

} // namespace tavelinUtils
