// Track table: any bytes give tracks, the same by list and flow, with a watch and without, of all columns and
// of some; ordinary tracks are read again as they were written.

#include "config/parameter_comments.h"
#include "files/text_files.h"
#include "formats/track_table.h"
#include "input_file.h"
#include "told_lines.h"
#include "track_checks.h"

#include <bit>
#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;

bool sameNumber(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

// The columns that are wanted below.
bool sameWanted(const TRecLabelPervichka_File& a, const TRecLabelPervichka_File& b)
{
    return a.date == b.date && sameNumber(a.time, b.time) && sameNumber(a.RA, b.RA) && a.iF == b.iF &&
           a.iFRaw == b.iFRaw && a.filtr == b.filtr && a.mjd == b.mjd;
}

// A source of some columns gives these the values that a source of all gives them.
void wantedColumnsAreThoseOfAll(const std::string& path, const std::vector<TrackVtorichka>& tracks)
{
    TrackTableSource source(path, "date time RA iF filtr mjd m_MPC");
    TrackVtorichka track;
    for (const TrackVtorichka& whole : tracks) {
        mustHold(source.next(track));
        mustHold(track.QRVName == whole.QRVName && track.NORAD == whole.NORAD &&
                 track.MPCChecker == whole.MPCChecker && track.NMarks == whole.NMarks);
        mustHold(track.Marks.size() == whole.Marks.size() && track.InterBlobs.size() == whole.Marks.size());
        for (std::size_t i = 0; i < whole.Marks.size(); ++i) {
            mustHold(sameWanted(track.Marks[i], whole.Marks[i]));
            mustHold(sameNumber(track.InterBlobs[i].m_MPC, whole.InterBlobs[i].m_MPC));
            mustHold(sameNumber(track.Marks[i].DE, 0.0) && track.Marks[i].CNAME == "ENSEMBLE");
        }
    }
    mustHold(!source.next(track));
}

std::string written(const Tracks& tracks)
{
    return bytesWritten([&](const std::string& path) {
        sListTrack(path, "/series/a/b/table", "", tracks, "", true, true, getHeadTrack());
    });
}

void checkTracks(const std::string& path, const Tracks& tracks)
{
    for (const TrackVtorichka& track : tracks) {
        mustHold(track.InterBlobs.size() == track.Marks.size());
    }
    mustHold(lListTrack(ReadFromFile(path)).size() == tracks.size());
    mustHandOut(TrackTableSource(path), TrackTableSource(path), tracks);
    wantedColumnsAreThoseOfAll(path, tracks);
    mustHold(bytesOfFlow(TrackTableSource(path), [](const std::string& to) {
                 return TrackTableSink(to, "/series/a/b/table", "", "", true, true, getHeadTrack());
             }) == written(tracks));
}

void checkWritten(const Tracks& tracks)
{
    const WrittenFile file(written(tracks));
    mustBeReadAgain(lListTrack(file.path()), tracks,
                    {.seconds = 1e-6, .RA = 5e-7, .DE = 5e-7, .magnitude = 5e-5});
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    ToldLines told;
    const Tracks watched = lListTrack(file.path(), told);
    told.mustBeAllOf(bytes, size);
    const Tracks tracks = lListTrack(file.path());
    mustHold(sameTracks(watched, tracks));
    checkTracks(file.path(), tracks);
    checkWritten(ordinaryTracks(tracks));
    const std::string text(reinterpret_cast<const char*>(bytes), size);
    StrToCast(text);
    std::string source;
    std::string note;
    std::string sequence;
    ParsComment(text, source, note, sequence);
    return 0;
}
