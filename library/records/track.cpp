#include "records/track.h"

namespace tavelinUtils {

void SetNilHeadTrack(TrackVtorichka& track)
{
    for (double* computed :
         {&track.DispX, &track.DispY, &track.DispXY, &track.HeadValue10, &track.HeadValue11, &track.LymX,
          &track.LymY, &track.LymXY, &track.m_m, &track.m_rms, &track.PA, &track.HeadValue12,
          &track.Angle_rms, &track.Length_rms, &track.HeadValue1, &track.HeadValue2})
    {
        *computed = 0;
    }
    track.N = 0;
    track.HeadInt = 0;
    track.TrMade = THowMakeTr::MANUA;
}

bool SortTrackByName(const TrackVtorichka& a, const TrackVtorichka& b)
{
    return a.MPCChecker < b.MPCChecker;
}

std::size_t countMarks(const std::vector<TrackVtorichka>& tracks)
{
    std::size_t count = 0;
    for (const TrackVtorichka& track : tracks) {
        count += track.Marks.size();
    }
    return count;
}

} // namespace tavelinUtils
