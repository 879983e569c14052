// Track table: any bytes give tracks, and tracks can be written.

#include "config/parameter_comments.h"
#include "files/text_files.h"
#include "formats/track_table.h"
#include "input_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    using namespace tavelinUtils;
    const InputFile file(bytes, size);
    const std::vector<TrackVtorichka> tracks = lListTrack(file.path());
    mustHold(tracks.size() == lListTrack(ReadFromFile(file.path())).size());
    for (const TrackVtorichka& track : tracks) {
        mustHold(track.InterBlobs.size() == track.Marks.size());
    }
    sListTrack("/dev/null", "/series/a/b/table", "", tracks, "", true, false, getHeadTrack());
    const std::string text(reinterpret_cast<const char*>(bytes), size);
    StrToCast(text);
    std::string source;
    std::string note;
    std::string sequence;
    ParsComment(text, source, note, sequence);
    return 0;
}
