#include "records/track_stream.h"

namespace tavelinUtils {

void resetHead(TrackVtorichka& track)
{
    static const THeadTrVtor newHead;
    static_cast<THeadTrVtor&>(track) = newHead;
    track.InterBlobs.clear();
    track.Candidates.clear();
    track.Cast.clear();
}

} // namespace tavelinUtils
