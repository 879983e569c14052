#include "math/series_measures.h"

#include "base/numbers.h"
#include "base/stored_index.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <unordered_map>

namespace tavelinMath {
namespace {

using tavelinUtils::THeadBlobs;
using tavelinUtils::TIndVK;
using tavelinUtils::TrackVtorichka;
using tavelinUtils::TRecLabelPervichka_File;
using tavelinUtils::TRepresent;

double daysOf(const THeadBlobs& frame)
{
    return frame.date + frame.time;
}

// A run keeps growing while it is short, at the end of the series, or where the gaps do not show a break.
bool staysInRun(int i, int runStart, int runEnd, double factor, const std::vector<THeadBlobs>& frames)
{
    const int followers = static_cast<int>(frames.size()) - i;
    if (followers < 3) {
        return true;
    }
    const double before = cdeltaMin(i, i - 1, frames);
    const double after = cdeltaMin(i + 1, i, frames);
    if (after >= before) {
        return true;
    }
    if (runEnd - runStart + 1 <= 2) {
        return true;
    }
    return cdeltaMin(i - 1, i - 2, frames) * factor > before;
}

void cutIntoTens(int frames, std::vector<int>& starts, std::vector<int>& ends)
{
    constexpr int runLength = 10;
    const int runs = frames / runLength;
    starts.clear();
    ends.clear();
    for (int run = 0; run < runs; ++run) {
        starts.push_back(run * runLength);
        ends.push_back(run * runLength + runLength - 1);
    }
    ends.back() = frames - 1;
}

using FramesByNumber = std::unordered_map<int, THeadBlobs*>;

// A null pointer for an unknown frame and for a blob that the frame does not have.
TRecLabelPervichka_File* markOf(const TIndVK& entry, const FramesByNumber& frames)
{
    const auto frame = frames.find(entry.FrameNumber);
    return frame == frames.end() ? nullptr : tavelinUtils::elementAt(frame->second->Marks, entry.BlobIndex);
}

} // namespace

void CalcInstrMagnitude(std::vector<TrackVtorichka>& tracks, double referenceRange)
{
    for (TrackVtorichka& track : tracks) {
        const bool isSatellite = !track.NORAD.empty();
        for (TRecLabelPervichka_File& mark : track.Marks) {
            const double magnitude = cInstrumentMag(mark.A);
            mark.mInstr = magnitude;
            if (!isSatellite) {
                continue; // mInstr1000 stays as it was
            }
            const double range = mark.SpareTail;
            mark.mInstr1000 = referenceRange == 0.0
                                  ? magnitude
                                  : magnitude + cInstrumentMag_addbyrange(range, referenceRange);
        }
    }
}

double cInstrumentMag(double flux)
{
    return flux == 0.0 ? 0.0 : -2.5 * std::log10(flux / 1e10);
}

double cInstrumentMag_addbyrange(double range, double referenceRange)
{
    return referenceRange == 0.0 ? 0.0 : -5.0 * std::log10(range / referenceRange);
}

void SetSubSeries2(double factor, const std::vector<THeadBlobs>& frames, bool split, std::vector<int>& starts,
                   std::vector<int>& ends)
{
    constexpr int leastToCut = 4;
    constexpr int leastToSplit = 21;
    const int n = static_cast<int>(frames.size());
    starts.assign(1, 0);
    ends.assign(1, n - 1);
    if (n < leastToCut) {
        return;
    }
    ends.back() = 2;
    for (int i = 3; i < n; ++i) {
        if (!staysInRun(i, starts.back(), ends.back(), factor, frames)) {
            starts.push_back(i);
            ends.push_back(i);
        }
        ends.back() = i;
    }
    if (split && starts.size() == 1 && n >= leastToSplit) {
        cutIntoTens(n, starts, ends);
    }
}

double cdeltaMin(int i, int j, const std::vector<THeadBlobs>& frames)
{
    constexpr double minutesPerDay = 1440.0;
    const THeadBlobs* const later = tavelinUtils::elementAt(frames, i);
    const THeadBlobs* const earlier = tavelinUtils::elementAt(frames, j);
    return later == nullptr || earlier == nullptr ? 0.0 : (daysOf(*later) - daysOf(*earlier)) * minutesPerDay;
}

double cAngleBetweenPoints(double y1, double x1, double y2, double x2, int width, int height)
{
    constexpr double degreesPerRadian = 57.29577951308232;
    const double halfWidth = width / 2.0;
    const double halfHeight = height / 2.0;
    const double dy = (height - y1 - halfHeight) - (height - y2 - halfHeight);
    const double u = (x1 - halfWidth) - (x2 - halfWidth);
    const double dx = dy > 0.0 ? u : -u;
    return std::acos(dx / std::sqrt(dx * dx + dy * dy)) * degreesPerRadian;
}

void cDistAndVelo(int columns, int rows, double a, double f, double b, double c, double column, double row,
                  double& distance, double& velocity)
{
    constexpr double speedOfLight = 299792458.0; // metres per second
    distance = a * (rows - row) * c;
    velocity = -(column - std::floor(columns / 2.0)) * b * speedOfLight / (2.0 * f);
}

int CalcDeltaUTC(double longitude)
{
    return tavelinUtils::cutToInt(tavelinUtils::cutToInt(longitude) / 15.0);
}

void iICtoBlob(const std::vector<TRepresent>& representatives, std::vector<THeadBlobs>& frames)
{
    // Of several frames with one number the first counts.
    FramesByNumber frameOfNumber;
    for (THeadBlobs& frame : frames) {
        frameOfNumber.emplace(frame.FrameNumber, &frame);
    }
    int number = 0;
    for (const TRepresent& representative : representatives) {
        for (const TIndVK& entry : representative.Items) {
            if (auto* const mark = markOf(entry, frameOfNumber)) {
                mark->Tag1 = number;
            }
        }
        ++number;
    }
}

} // namespace tavelinMath
