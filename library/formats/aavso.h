// AAVSO report, variable-star brightness in the Extended File Format: one line per mark.
//
//   #TYPE=Extended
//   #OBSCODE=aavso
//   ...
//   #NAME,DATE,MAG,MAGERR,FILTER,TRANS,MTYPE,CNAME,CMAG,KNAME,KMAG,AIRMASS,GROUP,CHART,NOTES
//   V1023 Her,2457878.7654321,12.345,0.0100,V,NO,DIF,ENSEMBLE,na,000-BCD,na,na,na,na,na
//
// Published as "AAVSO Extended File Format". Written only.

#pragma once

#include "../export.h"
#include "../records/photo_blob.h"
#include "../records/track.h"

#include <memory>
#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Writes tracks as sAAVSO of tracks does, one after the other (records/track_stream.h). `add` and `save`
/// throw as sAAVSO does; without a track the file stays as it is. Remembers the filters of the first track.
class AavsoSink
{
public:
    /// Opens and removes nothing yet.
    explicit AavsoSink(std::string path);

    /// Takes over what the other has to write.
    AavsoSink(AavsoSink&& other) noexcept;
    ~AavsoSink();

    /// Writes a track.
    void add(const TrackVtorichka& track);

    /// Ends the file, once; true.
    bool save();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// Replaces the file by a report of the tracks under the observer code of the first. DATE is the Julian date,
/// MAG is mEnsemble, MAGERR the reciprocal of SNRpeak ("inf" for 0). FILTER comes from the mark at the same
/// place in the first track, and only where that has none from the mark itself. CNAME is always "ENSEMBLE".
/// An empty list leaves the file as it is. Throws TavelinException with code 7 and the path for a file that
/// cannot be written.
void sAAVSO(std::string path, const std::vector<TrackVtorichka>& tracks);

/// Replaces the file by a report of one star, a line for each frame. DATE is the MJD, although the header
/// says JD. KNAME is that of the first check star, KMAG that of the first check star on the same frame; where
/// there is none they are "" and "na".
void sAAVSO(std::string path, std::string obsCode, std::string filter, std::string mType,
            std::vector<TLocPhotoBlob> objects, std::vector<std::vector<TLocPhotoBlob>> checkStars,
            std::string chart);

} // namespace tavelinUtils
