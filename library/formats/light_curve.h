// Light curve table, the brightness of tracks over time: a line per mark, each field followed by a tab.
//
//   JD geocentric	apparent	ensemble	instrumental	instr1000km	instrComp	object
//   2460001.0000000	9.50000	0.00000	0.00000	0.00000	0.00000	12345

#pragma once

#include "../export.h"
#include "../records/track.h"

#include <memory>
#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Writes tracks as SaveLightCurve does, one after the other (records/track_stream.h). `save` is always true.
class LightCurveSink
{
public:
    /// Opens and removes nothing yet.
    LightCurveSink(std::string path, std::string timeLabel);

    /// Takes over what the other has to write.
    LightCurveSink(LightCurveSink&& other) noexcept;
    ~LightCurveSink();

    /// Writes a track.
    void add(const TrackVtorichka& track);

    /// Ends the file, once; true.
    bool save();

private:
    struct State;
    std::unique_ptr<State> state;
};

/// Replaces the file by the table, whose first column is named by the label and holds Julian dates. Without
/// tracks it is the column line alone. A file that cannot be written is not reported.
void SaveLightCurve(std::string path, const std::vector<TrackVtorichka>& tracks, std::string timeLabel);

/// The column header of a track table of light curves.
std::string getHeadLightCurve();

} // namespace tavelinUtils
