// MPC report: header lines, then one line of 80 columns per mark, as the Minor Planet Center takes them.
//
//   COD 500
//   OBS A. Observer
//   12345         C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500
//   name            date      day   RA          DE                   m    band   code
//
// Published as "Format For Optical Astrometric Observations Of Comets, Minor Planets and Natural
// Satellites" by the Minor Planet Center. Ours differs in the sign of a declination: a positive one has
// none, so that its line has 79 columns, and the reader skips such a line.

#pragma once

#include "../export.h"
#include "../records/track.h"
#include "line_watch.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// An observation line, parsed.
struct TMPCMea
{
    std::string Name{};
    std::string filtr{};
    int date = 0;    ///< whole MJD
    double time = 0; ///< fraction of the day
    double RA = 0;   ///< degrees
    double DE = 0;   ///< degrees
    double m = 0;    ///< magnitude
};

/// Hands out the tracks of a report, or of its lines, one after the other (records/track_stream.h); what they
/// are, and what is thrown when the source is made, is told with lMPC.
class MpcReportSource
{
public:
    /// Reads the file to its end.
    explicit MpcReportSource(std::string path);

    /// Reads the lines, which are not needed afterwards.
    explicit MpcReportSource(const std::vector<std::string>& lines);

    /// The same, telling a watch what becomes of each line. Nothing is thrown for a line: it is refused.
    MpcReportSource(std::string path, LineWatch& watch);
    MpcReportSource(const std::vector<std::string>& lines, LineWatch& watch);

    /// Takes over what the other has still to hand out.
    MpcReportSource(MpcReportSource&& other) noexcept;
    ~MpcReportSource();

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

/// Writes tracks as sMPC does, one after the other. `add` and `save` throw as sMPC does; without a track the
/// file stays as it is.
class MpcReportSink
{
public:
    /// Opens and removes nothing yet.
    explicit MpcReportSink(std::string path);

    /// Takes over what the other has to write.
    MpcReportSink(MpcReportSink&& other) noexcept;
    ~MpcReportSink();

    /// Writes a track.
    void add(const TrackVtorichka& track);

    /// Ends the file, once; true.
    bool save();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// The same as sMPCAndHorRes, where each track comes with that of its ephemeris, or with a null pointer where
/// it has none.
class MpcComparisonSink
{
public:
    /// Opens and removes nothing yet.
    explicit MpcComparisonSink(std::string path);

    /// Takes over what the other has to write.
    MpcComparisonSink(MpcComparisonSink&& other) noexcept;
    ~MpcComparisonSink();

    /// Writes a track.
    void add(const TrackVtorichka& track, const TrackVtorichka* ephemeris);

    /// Ends the file, once; true.
    bool save();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// The header lines: one for each of the nine texts that is not empty, keyword in front.
std::vector<std::string> GetListHeadMPC(const TMPCReportHeader& header);

/// One observation line, without line feed. A name, band or code of another width than its columns, or a
/// negative magnitude, moves what follows it.
std::string GetStringMPC(std::string name, std::string code, const TRecLabelPervichka_File& mark);

/// Replaces the file by a report of the tracks: the header of the first, then the marks of all under
/// MPCChecker or, where that is empty, QRVName. An empty list makes no file. Throws TavelinException with
/// code 7 and the path for a file that cannot be written.
void sMPC(std::string path, const std::vector<TrackVtorichka>& tracks);

/// The same, always under MPCChecker, with a comparison after each line: the residuals RefValue4,
/// RefValue5 and RefValue6, position and magnitude of the mark at the same place of the second list, and
/// the time of the observed mark. A flag marks residuals above 1.0 and above 2.0. Where the second list has
/// no such track or mark the comparison is "???".
void sMPCAndHorRes(std::string path, const std::vector<TrackVtorichka>& tracks,
                   const std::vector<TrackVtorichka>& ephemerisTracks);

/// The tracks of a report, in the order in which their names first occur; the header is copied to each, the
/// last line of a keyword wins. A line that is neither a header line nor 80 characters long is skipped;
/// text that is no number counts as 0. Throws std::out_of_range for a keyword with nothing after it, not even
/// its blank.
std::vector<TrackVtorichka> lMPC(const std::vector<std::string>& lines);

/// The same of a file; none for a missing one.
std::vector<TrackVtorichka> lMPC(std::string path);

/// The same, telling a watch what becomes of each line. Nothing is thrown for a line: it is refused.
std::vector<TrackVtorichka> lMPC(const std::vector<std::string>& lines, LineWatch& watch);
std::vector<TrackVtorichka> lMPC(std::string path, LineWatch& watch);

/// An observation line by its columns; the note columns and the code are not read. Throws
/// std::out_of_range for a line that ends before a column.
TMPCMea ParsMPCMea(std::string line);

/// The column header of a table of report marks.
std::string getHeadMPC();

/// Replaces the file by the version line of a track table and the column header.
void sMPCHeadTrack(std::string path);

} // namespace tavelinUtils
