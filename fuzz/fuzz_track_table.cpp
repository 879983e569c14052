// Track table: any bytes give tracks, the same by list and flow, with a watch and without, of all columns and
// of some; ordinary tracks are read again as they were written.

#include "config/parameter_comments.h"
#include "formats/track_table.h"
#include "track_checks.h"

#include <cstdint>
#include <string>
#include <vector>

namespace {

using namespace tavelinUtils;

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

struct TrackTable
{
    static constexpr Exactness exactness{.seconds = 1e-6, .RA = 5e-7, .DE = 5e-7, .magnitude = 5e-5};

    template <class... Watch>
    static Tracks read(const std::string& path, Watch&... watch)
    {
        return lListTrack(path, watch...);
    }
    static void write(const std::string& path, const Tracks& tracks)
    {
        sListTrack(path, "/series/a/b/table", "", tracks, "", true, true, getHeadTrack());
    }
    static TrackTableSource source(const std::string& path)
    {
        return TrackTableSource(path);
    }
    static TrackTableSink sink(const std::string& path)
    {
        return TrackTableSink(path, "/series/a/b/table", "", "", true, true, getHeadTrack());
    }
    static Tracks writable(const Tracks& tracks)
    {
        return tracks;
    }
    static void more(const std::string& path, const Tracks& tracks)
    {
        for (const TrackVtorichka& track : tracks) {
            mustHold(track.InterBlobs.size() == track.Marks.size());
        }
        mustHold(lListTrack(ReadFromFile(path)).size() == tracks.size());
        wantedColumnsAreThoseOfAll(path, tracks);
    }
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    checkFormat<TrackTable>(bytes, size);
    const std::string text(reinterpret_cast<const char*>(bytes), size);
    StrToCast(text);
    std::string source;
    std::string note;
    std::string sequence;
    ParsComment(text, source, note, sequence);
    return 0;
}
