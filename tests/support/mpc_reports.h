// Reports to the Minor Planet Center: an observation line, headers, and short ways to write and read.

#pragma once

#include "formats/mpc_report.h"

#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace mpcReports {

/// The line of the mark of `theMark`.
inline const std::string observation =
    "12345         C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500";

/// The observation with a text in place of what is there from a column on; columns count from 1.
inline std::string withText(std::size_t column, const std::string& text)
{
    std::string line = observation;
    return line.replace(column - 1, text.size(), text);
}

/// Names of the tracks with the number of their marks.
inline std::vector<std::string> outline(const std::vector<tavelinUtils::TrackVtorichka>& tracks)
{
    std::vector<std::string> names;
    for (const tavelinUtils::TrackVtorichka& track : tracks) {
        names.push_back(track.MPCChecker + " " + std::to_string(track.Marks.size()));
    }
    return names;
}

/// The tracks of a report of those bytes.
inline std::vector<tavelinUtils::TrackVtorichka> readFile(const std::string& bytes)
{
    return readBy([](const std::string& path) { return tavelinUtils::lMPC(path); }, bytes);
}

/// A track with the name that the MPC checker gave.
inline tavelinUtils::TrackVtorichka checkedTrack(const std::string& name,
                                                 std::vector<tavelinUtils::TRecLabelPervichka_File> marks)
{
    tavelinUtils::TrackVtorichka track = trackNamed("", std::move(marks));
    track.MPCChecker = name;
    return track;
}

/// The report of the tracks.
inline std::string written(const std::vector<tavelinUtils::TrackVtorichka>& tracks)
{
    return writtenBy([&tracks](const std::string& path) { tavelinUtils::sMPC(path, tracks); });
}

/// The report with the comparison.
inline std::string compared(const std::vector<tavelinUtils::TrackVtorichka>& tracks,
                            const std::vector<tavelinUtils::TrackVtorichka>& ephemeris)
{
    return writtenBy([&](const std::string& path) { tavelinUtils::sMPCAndHorRes(path, tracks, ephemeris); });
}

/// A keyword of the header and its text.
struct Keyword
{
    const char* word;
    std::string tavelinUtils::TMPCReportHeader::*member;
};

inline const Keyword keywords[] = {
    {"COD", &tavelinUtils::TMPCReportHeader::COD}, {"CON", &tavelinUtils::TMPCReportHeader::CON},
    {"OBS", &tavelinUtils::TMPCReportHeader::OBS}, {"MEA", &tavelinUtils::TMPCReportHeader::MEA},
    {"COM", &tavelinUtils::TMPCReportHeader::COM}, {"TEL", &tavelinUtils::TMPCReportHeader::TEL},
    {"ACK", &tavelinUtils::TMPCReportHeader::ACK}, {"AC2", &tavelinUtils::TMPCReportHeader::AC2},
    {"NET", &tavelinUtils::TMPCReportHeader::NET},
};

/// A header with a text for each keyword.
inline tavelinUtils::TMPCReportHeader fullHeader()
{
    tavelinUtils::TMPCReportHeader header;
    header.COD = "W85";
    header.CON = "A. Contact, 1 Some Street [contact@example.org]";
    header.OBS = "A. Observer, B. Observer";
    header.MEA = "C. Measurer";
    header.COM = "two  blanks stay";
    header.TEL = "1.0-m f/8 reflector + CCD";
    header.ACK = "night 1";
    header.AC2 = "ack@example.org";
    header.NET = "Gaia DR3";
    return header;
}

/// Checks the texts of a header, and that its flags are as a reader sets them.
inline void expectHeader(const tavelinUtils::TMPCReportHeader& header,
                         const tavelinUtils::TMPCReportHeader& expected)
{
    for (const Keyword& keyword : keywords) {
        EXPECT_EQ(header.*keyword.member, expected.*keyword.member) << keyword.word;
    }
    EXPECT_TRUE(header.HeaderOn);
    EXPECT_FALSE(header.HeaderFlag2);
}

} // namespace mpcReports
