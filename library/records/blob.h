// Records of frames and of what was found on them.

#pragma once

#include "records/track.h"

#include <string>
#include <vector>

namespace tavelinUtils {

/// The head of a frame.
struct TFitHead
{
    int FrameNumber = 0;
    int date = 0;    ///< whole MJD of the mid-time
    double time = 0; ///< and its fraction of the day
    int Width = 0;   ///< pixels
    int Height = 0;
    double Exposure = 0; ///< seconds
    std::string Instrument{};
    std::string Filter{};
    std::string PathFit{}; ///< the frame's file
    double CRVAL1 = 0;     ///< centre of the plate solution, degrees
    double CRVAL2 = 0;
    double CD[4] = {}; ///< matrix of the plate solution
};

/// A frame with the marks on it.
struct THeadBlobs : TFitHead
{
    std::vector<TRecLabelPervichka_File> Marks{};
};

} // namespace tavelinUtils
