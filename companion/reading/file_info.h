// File info: what is in a measurement file, in a few values.

#pragma once

#include "reading/file_account.h"
#include "reading/text_front.h"

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace companion {

/// Lines that a reader skipped, lost or refused for one reason.
struct PassedLines
{
    std::string code; ///< of the finding
    std::size_t count = 0;
    std::size_t firstLine = 0;
};

/// A track.
struct TrackInfo
{
    std::string object;
    std::size_t marks = 0;
    std::string first; ///< the earliest time, as 2024-01-20T21:48:27.360; empty without a mark
    std::string last;
    double magnitude = 0; ///< the mean of those that are known
    bool hasMagnitude = false;
    double motion = 0; ///< from the earliest to the latest position, arcseconds per minute
    bool hasMotion = false;
};

/// A file.
struct FileInfo
{
    std::string path;
    std::string format; ///< a name of reading/signatures.h
    int confidence = 0; ///< points of 100
    std::string site{};
    std::string originator{};
    std::set<std::string> stations{};
    FileAccount account{};
    std::string first{}; ///< the earliest time of a mark
    std::string last{};
    bool hasMagnitudes = false;
    double brightest = 0;
    double faintest = 0;
    std::set<std::string> filters{};
    std::set<std::string> frames{};
    std::vector<PassedLines> passed{};
    std::size_t bytes = 0;
    TextForm form{};
    bool isSorted = true; ///< the marks of each track stand in the order of time
    std::vector<TrackInfo> tracks{};
};

/// Looks into a file of a format; at its tracks one by one only if asked. Throws WrongUsage (V003) for a file
/// that cannot be read.
FileInfo fileInfo(const std::string& path, const std::string& format, int confidence, bool withTracks);

/// Whether the files of a format have tracks.
bool hasTracks(std::string_view format);

/// A magnitude with two decimals, a motion with three.
std::string magnitudeText(double magnitude);
std::string motionText(double motion);

} // namespace companion
