// Layout of a series: from a file to its series, its configuration, and the names of its frames.
//
// A series is a folder of the observer's naming; the service folder "tavelin" lies directly below it. An
// empty text is the answer where something is not found. The part of a path below a series is GetInSeriaPath.

#pragma once

#include "../config/settings.h"
#include "../export.h"
#include "series_names.h"

#include <string>

namespace TAVELIN_API tavelinUtils {

/// What the forms of one frame share: the file name without the prefixes of pipeline and step frames,
/// wherever in the name they occur. The extension stays: "STEP-m31_0001.fit" gives "m31_0001.fit".
std::string GetIDFrame(std::string path, TExtension extension);

/// The path of a frame's step frame, in the folder of the frame; a step frame gives itself. A bare name has
/// no folder but itself: "a.fit" gives "a.fit/STEP-a.fit".
std::string GetFNStep(const TPorogs& porogs, std::string path);

/// The component before the first one that is exactly "tavelin". Only "/" separates. "" if there is no such
/// component, or none before it.
std::string GetSeriaName(std::string path);

/// The path before that component, with a slash at its end; "" where GetSeriaName has no component to give.
std::string GetSeriaPath(std::string path);

/// The configuration of a series: the only ".conf" file below its folder, whatever it holds, or, of several,
/// the first one found that has at least three lines, the first or second of which is exactly "<root>" or
/// "<TaVeLin>".
std::string GetSeriaConfig(std::string seriesPath);

} // namespace tavelinUtils
