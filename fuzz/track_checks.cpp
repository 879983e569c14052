#include "track_checks.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace {

using tavelinUtils::THeadTrVtor;
using tavelinUtils::TrackVtorichka;
using Mark = tavelinUtils::TRecLabelPervichka_File;

constexpr double Mark::*measuredNumbers[] = {&Mark::time, &Mark::RA, &Mark::DE, &Mark::m};
constexpr std::string THeadTrVtor::*headTexts[] = {
    &THeadTrVtor::QRVName,    &THeadTrVtor::NORAD,           &THeadTrVtor::MPCChecker,
    &THeadTrVtor::HeadText2,  &THeadTrVtor::HeadText3,       &THeadTrVtor::telescope,
    &THeadTrVtor::originator, &THeadTrVtor::Series,          &THeadTrVtor::ObsCode,
    &THeadTrVtor::SourceFile, &THeadTrVtor::REFERENCE_FRAME, &THeadTrVtor::ResidFile};

bool sameMark(const Mark& a, const Mark& b)
{
    return std::all_of(std::begin(measuredNumbers), std::end(measuredNumbers),
                       [&](auto number) { return sameNumber(a.*number, b.*number); }) &&
           a.date == b.date && a.iF == b.iF && a.filtr == b.filtr && a.mjd == b.mjd && a.AuxInt1 == b.AuxInt1;
}

bool sameTrack(const TrackVtorichka& a, const TrackVtorichka& b)
{
    return std::all_of(std::begin(headTexts), std::end(headTexts),
                       [&](auto text) { return a.*text == b.*text; }) &&
           a.MPCHeader.COD == b.MPCHeader.COD && a.MPCHeader.TEL == b.MPCHeader.TEL && a.NMarks == b.NMarks &&
           a.InterBlobs.size() == b.InterBlobs.size() &&
           std::equal(a.Marks.begin(), a.Marks.end(), b.Marks.begin(), b.Marks.end(), sameMark);
}

// Not so long that it is cut, and without what separates words.
bool isPlainName(std::string_view name)
{
    constexpr std::string_view letters = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789_";
    return !name.empty() && name.size() <= 7 && name.find_first_not_of(letters) == std::string_view::npos;
}

// Names of other objects stay other names.
void makePlain(TrackVtorichka& track, std::size_t number)
{
    constexpr char ofNumber = 'N';
    if (!isPlainName(track.QRVName) || track.QRVName.front() == ofNumber) {
        track.QRVName = ofNumber + std::to_string(number % 1000000);
    }
    for (std::string* const name : {&track.telescope, &track.originator}) {
        if (!isPlainName(*name)) {
            *name = "plain";
        }
    }
}

bool isBetween(double low, double value, double high)
{
    return low <= value && value <= high;
}

bool isOrdinary(const Mark& mark)
{
    constexpr int firstDay = 51544; // of 2000, and the last of 2049
    constexpr int lastDay = 69806;
    return isBetween(firstDay, mark.date, lastDay) && isBetween(0.0, mark.time, 0.9999) &&
           isBetween(0.0, mark.RA, 359.99) && isBetween(-89.99, mark.DE, 89.99) &&
           isBetween(0.0, mark.m, 90.0);
}

void mustBeNear(double again, double value, double error)
{
    constexpr double ofArithmetic = 1e-9;
    mustHold(std::abs(again - value) <= error + ofArithmetic);
}

void mustBeReadAgain(const Mark& again, const Mark& mark, const Exactness& exactness)
{
    constexpr double secondsOfDay = 86400.0;
    mustBeNear((again.date - mark.date) + (again.time - mark.time), 0.0, exactness.seconds / secondsOfDay);
    mustBeNear(again.RA, mark.RA, exactness.RA);
    mustBeNear(again.DE, mark.DE, exactness.DE);
    mustBeNear(again.m, mark.m, exactness.magnitude);
}

} // namespace

bool sameNumber(double a, double b)
{
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

bool sameTracks(const Tracks& a, const Tracks& b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), sameTrack);
}

Tracks ordinaryTracks(const Tracks& tracks)
{
    Tracks ordinary;
    for (const TrackVtorichka& track : tracks) {
        TrackVtorichka kept = track;
        std::erase_if(kept.Marks, [](const Mark& mark) { return !isOrdinary(mark); });
        if (!kept.Marks.empty()) {
            makePlain(kept, ordinary.size());
            ordinary.push_back(std::move(kept));
        }
    }
    return ordinary;
}

Tracks southernTracks(Tracks tracks)
{
    constexpr double roundsToNone = 0.001;
    for (TrackVtorichka& track : tracks) {
        for (Mark& mark : track.Marks) {
            mark.DE = -std::max(std::abs(mark.DE), roundsToNone);
        }
    }
    return tracks;
}

void mustBeReadAgain(const Tracks& again, const Tracks& tracks, const Exactness& exactness)
{
    mustHold(again.size() == tracks.size());
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        mustHold(again[i].QRVName == tracks[i].QRVName && again[i].Marks.size() == tracks[i].Marks.size());
        for (std::size_t j = 0; j < tracks[i].Marks.size(); ++j) {
            mustBeReadAgain(again[i].Marks[j], tracks[i].Marks[j], exactness);
        }
    }
}
