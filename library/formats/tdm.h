// TDM, angle tracking data in the key-value form of the CCSDS Tracking Data Message: one segment per track.
//
//   CCSDS_TDM_VERS = 1.0
//   CREATION_DATE = 0-00-00T00:00:00
//   ORIGINATOR = observatory
//   META_START
//   TIME_SYSTEM = UTC
//   ...
//   DATA_START
//   ANGLE_1 = 2023-02-25T12:00:00.00000 15.0000000
//   ANGLE_2 = 2023-02-25T12:00:00.00000 -0.5000000
//   MAG = 2023-02-25T12:00:00.00000 9.5000
//   DATA_STOP
//
// Published as CCSDS 503.0-B, Tracking Data Message. Ours writes the fixed creation date above, and its
// magnitude line is not a key of the first issue; the reader makes a mark of a magnitude line only.

#pragma once

#include "../export.h"
#include "../records/track.h"
#include "line_watch.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Hands out the tracks of a message one after the other (records/track_stream.h); what they are is told with
/// lTDM.
class TdmSource
{
public:
    /// Reads the file to its end.
    explicit TdmSource(std::string path);

    /// The same, telling a watch what becomes of each line.
    TdmSource(std::string path, LineWatch& watch);

    /// Takes over what the other has still to hand out.
    TdmSource(TdmSource&& other) noexcept;
    ~TdmSource();

    /// How many tracks are to come.
    std::size_t count() const;

    /// Fills the track with the next one; false, and the track as it was, after the last.
    bool next(TrackVtorichka& track);

    /// The same in less time: of the marks that the track has, only the fields that the file has are set.
    bool refill(TrackVtorichka& track);

private:
    struct Store;
    std::unique_ptr<Store> store;
};

/// Writes tracks as sTDM does, one after the other. `add` and `save` throw as sTDM does; without a track the
/// file stays as it is.
class TdmSink
{
public:
    /// Opens and removes nothing yet.
    explicit TdmSink(std::string path);

    /// Takes over what the other has to write.
    TdmSink(TdmSink&& other) noexcept;
    ~TdmSink();

    /// Writes a track.
    void add(const TrackVtorichka& track);

    /// Ends the file, once; true.
    bool save();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// The tracks of a message, one for each segment; none for a missing file or one without a segment. A
/// segment or a mark without a value has the one read most recently, across segments: originator,
/// participants, epoch, angles. The reference frame is not read. Text that is no number counts as 0.
std::vector<TrackVtorichka> lTDM(std::string path);

/// The same, telling a watch what becomes of each line.
std::vector<TrackVtorichka> lTDM(std::string path, LineWatch& watch);

/// Replaces the file by the tracks as a message, under the originator of the first. A track without marks
/// has no segment. An empty list makes no file. Throws TavelinException with code 7 and the path for a
/// file that cannot be written.
void sTDM(std::string path, const std::vector<TrackVtorichka>& tracks);

/// The creation date of every message that is written here: "0-00-00T00:00:00", since no clock is read for
/// it.
std::string zeroCreationDate();

} // namespace tavelinUtils
