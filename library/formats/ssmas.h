// SSMAS, a line report of satellite observations: three lines of its own, then one block per object.
//
//   Measurements
//   T1
//   conversion
//   1
//
//   #SSMAS   #INTER
//   12345 12345
//      Data        UT           CU           DE      RMS  m
//   25.02.2023 12:00:00.00  01:00:00.00 -00.30.00.00 001 09.5

#pragma once

#include "../export.h"
#include "../records/track.h"
#include "line_watch.h"

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// A telescope and the word that is added to the names of its files.
struct TSSMASHAED
{
    std::string addtofilename{};
    std::string telescop{};
};

/// Hands out the tracks of a report, or of its lines, one after the other (records/track_stream.h); what they
/// are, and what is thrown when the source is made, is told with lckako_meas.
class SsmasSource
{
public:
    /// Reads the file to its end.
    SsmasSource(std::string path, std::string observatory);

    /// Reads the lines, which are not needed afterwards.
    SsmasSource(const std::vector<std::string>& lines, std::string observatory);

    /// The same, telling a watch what becomes of each line. Nothing is thrown for a line: it is refused.
    SsmasSource(std::string path, std::string observatory, LineWatch& watch);
    SsmasSource(const std::vector<std::string>& lines, std::string observatory, LineWatch& watch);

    /// Takes over what the other has still to hand out.
    SsmasSource(SsmasSource&& other) noexcept;
    ~SsmasSource();

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

/// Writes tracks as sSSMAS does, one after the other. `add` and `save` throw as sSSMAS does; without a track
/// the file stays as it is.
class SsmasSink
{
public:
    /// Opens and removes nothing yet.
    explicit SsmasSink(std::string path);

    /// Takes over what the other has to write.
    SsmasSink(SsmasSink&& other) noexcept;
    ~SsmasSink();

    /// Writes a track.
    void add(const TrackVtorichka& track);

    /// Ends the file, once; true.
    bool save();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// The tracks of a report; none for fewer than seven lines. Each blank separates two fields, which may be
/// empty, and their number decides: two open an object, seven are a mark of an open object, and fewer, the
/// first of them not empty, close an object that has marks. An object without marks leaves a default track in
/// its place. Text that is no number counts as 0. Throws std::length_error for a report whose objects repeat
/// the marks of those before them, as objects with an empty name do, more than a million times.
std::vector<TrackVtorichka> lckako_meas(const std::vector<std::string>& lines, std::string observatory);

/// The same of a file; none for a missing one.
std::vector<TrackVtorichka> lckako_meas(std::string path, std::string observatory);

/// The same, telling a watch what becomes of each line. Nothing is thrown for a line: it is refused.
std::vector<TrackVtorichka> lckako_meas(const std::vector<std::string>& lines, std::string observatory,
                                        LineWatch& watch);
std::vector<TrackVtorichka> lckako_meas(std::string path, std::string observatory, LineWatch& watch);

/// Replaces the file by the tracks as a report; its second line is the telescope of the first. The column
/// RMS always holds "001". An empty list makes no file. Throws TavelinException with code 7 and the path for
/// a file that cannot be written.
void sSSMAS(std::string path, const std::vector<TrackVtorichka>& tracks);

/// Appends the records of an XML file. Each child of the root brings all children of its name, so that n
/// records of one name come n times. A file that cannot be loaded, has no child below its root, or would
/// bring more than a million records, brings none.
void lHeadersSSMAS(std::string path, std::vector<TSSMASHAED>& headers);

} // namespace tavelinUtils
