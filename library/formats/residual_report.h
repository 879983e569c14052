// Residual report: how far the marks of tracks lie from calculated positions, a file each and a summary.
//
//   mean	rms
//   RA: 0.12	0.34
//   DE: -0.05	0.28
//   dateTtime	day	sign	resRA	resDE	fi	len	...

#pragma once

#include "../export.h"
#include "../records/track.h"

#include <memory>
#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Writes tracks as SaveResidAMU does, one after the other (records/track_stream.h): `add` the file of a
/// track, `save` the summary, also without a track. Both throw as SaveResidAMU does.
class ResidualReportSink
{
public:
    /// Opens and removes nothing yet.
    ResidualReportSink(std::string folder, std::string name);

    /// Takes over what the other has to write.
    ResidualReportSink(ResidualReportSink&& other) noexcept;
    ~ResidualReportSink();

    /// Writes a track.
    void add(const TrackVtorichka& track);

    /// Writes the summary, once; true.
    bool save();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// Writes a ".resid" file for each track that has marks, then the summary `name`.result, all into the folder,
/// which must exist. The calculated right ascension and declination of a mark are its RefValue4 and
/// RefValue5, in degrees; mean and rms of a track are DispX and LymX for the right ascension, DispY and LymY
/// for the declination, in arcseconds. All of them are written unchanged. Residuals are arcseconds without
/// the cosine of the declination, and are not wrapped at 360 degrees. Throws TavelinException with code 7 and
/// the path for the first file that cannot be written.
void SaveResidAMU(std::string folder, std::string name, const std::vector<TrackVtorichka>& tracks);

} // namespace tavelinUtils
