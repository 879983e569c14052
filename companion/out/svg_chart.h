// SVG charts: light curves and sky tracks as pictures of a page, each with a text that says what it shows.
//
// The pictures take their colors from the style of the page, so that they follow it into the dark and onto
// paper. Of many marks in a picture those are drawn that bound what all would cover.

#pragma once

#include "out/html.h"

#include <string>
#include <vector>

namespace companion {

/// A mark of a light curve.
struct CurveMark
{
    double mjd = 0;
    double magnitude = 0;
    double error = 0; ///< 0 for none
};

/// The marks of a light curve in one filter.
struct LightCurve
{
    std::string filter{}; ///< empty where it is not known
    std::vector<CurveMark> marks{};
};

/// A mark of a sky track.
struct SkyMark
{
    double mjd = 0;
    double ra = 0; ///< degrees
    double de = 0; ///< degrees
};

/// The marks of a track in the order of time.
using SkyTrack = std::vector<SkyMark>;

/// What a picture is called.
struct PictureName
{
    std::string id;     ///< of its element
    std::string object; ///< what it shows
};

/// Adds a light curve, magnitudes downwards. There is a mark at least, and numbers are finite.
void addLightCurve(Html& page, const PictureName& name, const std::vector<LightCurve>& curves);

/// Adds a sky track, right ascension to the left, with one scale on both axes. There is a mark at least, and
/// numbers are finite.
void addSkyTracks(Html& page, const PictureName& name, const std::vector<SkyTrack>& tracks);

} // namespace companion
