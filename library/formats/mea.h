// MEA, the line format of optical measurements: a site line, then one line per mark.
//
//   T1 2000.0 UTC
//   12345   250223 1200000000 0100000000 0030000000 001 09.50
//   name    date   time       RA         DE             m

#pragma once

#include "../export.h"
#include "../records/track.h"
#include "line_watch.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Hands out the tracks of a MEA file, or of its lines, one after the other (records/track_stream.h); what
/// they are, and what is thrown when the source is made, is told with plMEATrack and lMEATrack.
class MeaSource
{
public:
    /// Reads the file to its end.
    MeaSource(std::string path, std::string originator);

    /// Reads the lines, which are not needed afterwards.
    MeaSource(const std::vector<std::string>& lines, std::string originator);

    /// The same, telling a watch what becomes of each line. Nothing is thrown for a line: it is refused.
    MeaSource(std::string path, std::string originator, LineWatch& watch);
    MeaSource(const std::vector<std::string>& lines, std::string originator, LineWatch& watch);

    /// Takes over what the other has still to hand out.
    MeaSource(MeaSource&& other) noexcept;
    ~MeaSource();

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

/// Writes tracks as sMEA does, one after the other. `add` and `save` throw as sMEA does; without a track the
/// file stays as it is.
class MeaSink
{
public:
    /// Opens and removes nothing yet.
    explicit MeaSink(std::string path);

    /// Takes over what the other has to write.
    MeaSink(MeaSink&& other) noexcept;
    ~MeaSink();

    /// Writes a track.
    void add(const TrackVtorichka& track);

    /// Ends the file, once; true.
    bool save();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// The same with the ephemeris, as sMEA_TLE.
class MeaEphemerisSink
{
public:
    /// Opens and removes nothing yet.
    explicit MeaEphemerisSink(std::string path);

    /// Takes over what the other has to write.
    MeaEphemerisSink(MeaEphemerisSink&& other) noexcept;
    ~MeaEphemerisSink();

    /// Writes a track.
    void add(const TrackVtorichka& track);

    /// Ends the file, once; true.
    bool save();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// The tracks of a MEA file, one for each object in the order of its first line; none for a missing file.
/// Puts the numeric locale of the process to "C". Throws as lMEATrack does.
std::vector<TrackVtorichka> plMEATrack(std::string path, std::string originator);

/// The tracks of the lines of a MEA file. The first line gives the telescope. A line that does not have
/// exactly seven fields is skipped; text that is no number counts as 0. Throws std::out_of_range for
/// a date below 4 characters, a time or right ascension below 6, a declination below 7.
std::vector<TrackVtorichka> lMEATrack(const std::vector<std::string>& lines, std::string originator);

/// The same, telling a watch what becomes of each line. Nothing is thrown for a line: it is refused.
std::vector<TrackVtorichka> plMEATrack(std::string path, std::string originator, LineWatch& watch);
std::vector<TrackVtorichka> lMEATrack(const std::vector<std::string>& lines, std::string originator,
                                      LineWatch& watch);

/// Replaces the file by the tracks in MEA; the site line is that of the first track. An empty list leaves
/// the file as it is. Throws TavelinException with code 7 and the path for a file that cannot be written.
void sMEA(std::string path, const std::vector<TrackVtorichka>& tracks);

/// The same, and after each mark its comparison with an ephemeris: MJD, position, and the position of the
/// ephemeris, which the mark's TInterBlob holds, in degrees, then the residuals in arcseconds without the
/// cosine of the declination. A mark without a TInterBlob is compared with that of a new one.
void sMEA_TLE(std::string path, const std::vector<TrackVtorichka>& tracks);

} // namespace tavelinUtils
