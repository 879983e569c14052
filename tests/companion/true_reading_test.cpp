#include "reading/true_reading.h"

#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/tdm_xml.h"
#include "formats/telegram.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using companion::readAsMeant;
using companion::TrueFile;
using companion::TrueSettings;
using tavelinUtils::TrackVtorichka;
using testing::ElementsAre;

TrueFile meant(const std::string& format, const std::string& bytes, const TrueSettings& settings = {})
{
    return readBy([&](const std::string& path) { return readAsMeant(path, format, settings); }, bytes);
}

std::vector<std::string> codesOf(const TrueFile& file)
{
    std::vector<std::string> codes;
    for (const companion::Finding& each : file.findings) {
        codes.push_back(std::to_string(each.line) + ' ' + each.code.text());
    }
    return codes;
}

const std::string site = "K88 2000.0 UTC\n";

// A northern and a southern object, with seconds that round up to 10 and a magnitude below 0.
std::vector<TrackVtorichka> wholeSky()
{
    std::vector<TrackVtorichka> tracks(2);
    tracks[0].QRVName = "A0125";
    tracks[1].QRVName = "A0126";
    for (int i = 0; i < 40; ++i) {
        TrackVtorichka& track = tracks[static_cast<std::size_t>(i % 2)];
        tavelinUtils::TRecLabelPervichka_File mark;
        mark.date = 60000 + i;
        mark.time = 0.25 + 0.001 * i;
        mark.RA = 9.0 * i + 9.9951 / 240.0;
        mark.DE = -78.0 + 4.0 * i - 4.0 / 3600.0;
        mark.m = -2.0 + 0.5 * i;
        track.Marks.push_back(mark);
    }
    return tracks;
}

struct Steps
{
    double time; // seconds
    double RA;   // arcseconds
    double DE;
    double m;
};

// What a writer of the tool makes of the whole sky comes back within the digits of its format.
template <class Write>
void expectBack(const std::string& format, Write write, const Steps& steps)
{
    const std::vector<TrackVtorichka> tracks = wholeSky();
    const TrueFile back = meant(format, writtenBy([&](const std::string& path) { write(path, tracks); }));
    ASSERT_EQ(back.tracks.size(), tracks.size()) << format;
    EXPECT_EQ(back.leftOut, 0U);
    for (std::size_t track = 0; track < tracks.size(); ++track) {
        const auto& marks = back.tracks[track].track.Marks;
        EXPECT_EQ(back.tracks[track].track.QRVName, tracks[track].QRVName);
        ASSERT_EQ(marks.size(), tracks[track].Marks.size()) << format;
        ASSERT_EQ(back.tracks[track].marks.size(), marks.size()) << format;
        for (std::size_t mark = 0; mark < marks.size(); ++mark) {
            const auto& wanted = tracks[track].Marks[mark];
            SCOPED_TRACE(format + ' ' + std::to_string(wanted.date));
            EXPECT_EQ(int{marks[mark].date}, int{wanted.date});
            EXPECT_NEAR(double{marks[mark].time}, double{wanted.time}, steps.time / 86400);
            EXPECT_NEAR(double{marks[mark].RA}, double{wanted.RA}, steps.RA / 3600);
            EXPECT_NEAR(double{marks[mark].DE}, double{wanted.DE}, steps.DE / 3600);
            EXPECT_NEAR(double{marks[mark].m}, double{wanted.m}, steps.m);
        }
    }
}

} // namespace

TEST(TrueReading, WhatTheToolWritesComesBackWhole)
{
    using namespace tavelinUtils;
    expectBack("mea", sMEA, {0.0021, 0.0016, 0.0001, 0.0051});
    expectBack("telegram", sTelegramma, {0.0051, 0.076, 0.0051, 0.051});
    expectBack("ssmas", sSSMAS, {0.0051, 0.076, 0.0051, 0.051});
    expectBack("tdm", sTDM, {0.0001, 0.0002, 0.0002, 0.0001});
    expectBack("tdm.xml", sTDMPOLxml, {0.0001, 0.0002, 0.0002, 0.0001});
    expectBack("tdm.xml", sTDMxml, {0.0001, 0.0002, 0.0002, 0.0001});
    expectBack("mpc", [](const std::string& path, std::vector<TrackVtorichka> tracks) { sMPC(path, tracks); },
               {0.44, 0.076, 0.051, 0.051});
}

TEST(TrueReading, ADeclinationWithoutASignIsNorth)
{
    const TrueFile file = meant("mea", site + "12345   250223 1200000000 0100000000 1230000000 001 09.50\n");
    ASSERT_EQ(file.tracks.size(), 1U);
    EXPECT_DOUBLE_EQ(file.tracks[0].track.Marks[0].DE, 12.5);
    EXPECT_EQ(file.tracks[0].station, "K88");
    EXPECT_EQ(file.tracks[0].marks[0].line, 2U);
    EXPECT_TRUE(file.tracks[0].marks[0].hasMagnitude);
    EXPECT_FALSE(file.tracks[0].marks[0].hasBand);
}

TEST(TrueReading, MarksOfAnObjectKnowTheirLinesWhereverTheyAre)
{
    const std::string behind = "   250223 1200000000 0100000000 +123000000 001 09.50\n";
    const TrueFile file =
        meant("mea", site + "A" + behind + "B" + behind + "not a mark\nA" + behind +
                         "C   250223 1200000000 0100000000 123000000 001 09.50\nB" + behind);
    ASSERT_EQ(file.tracks.size(), 2U);
    EXPECT_EQ(file.tracks[0].marks[0].line, 2U);
    EXPECT_EQ(file.tracks[0].marks[1].line, 5U);
    EXPECT_EQ(file.tracks[1].marks[0].line, 3U);
    EXPECT_EQ(file.tracks[1].marks[1].line, 7U); // behind one that is left out
    EXPECT_EQ(file.leftOut, 2U);
    EXPECT_THAT(codesOf(file), ElementsAre("4 V150", "6 V121"));
}

TEST(TrueReading, SecondsThatRoundUpToTenAreTen)
{
    const std::string first = "MPC 807 A\n090616 05562400 16471748 -16155070 001221\n";
    const TrueFile own = meant("telegram", first + "090616 055601000 164701000 161501000 001221\nEND\n");
    ASSERT_EQ(own.tracks.size(), 1U);
    const auto& mark = own.tracks[0].track.Marks[1];
    EXPECT_NEAR(mark.time, (5 * 3600 + 56 * 60 + 10) / 86400.0, 1e-12);
    EXPECT_NEAR(mark.RA, (16 + 47 / 60.0 + 10 / 3600.0) * 15, 1e-9);
    EXPECT_NEAR(mark.DE, 16 + 15 / 60.0 + 10 / 3600.0, 1e-9);
}

TEST(TrueReading, SecondsOfAWriterWithMoreDecimalsStay)
{
    const TrueFile other = meant("telegram", "MPC 807 A\n090616 055624123 164717481 -161550701 001221\n"
                                             "090616 055601000 164701000 -161501000 001221\nEND\n");
    ASSERT_EQ(other.tracks.size(), 1U);
    EXPECT_NEAR(other.tracks[0].track.Marks[1].time, (5 * 3600 + 56 * 60 + 1) / 86400.0, 1e-12);
    EXPECT_NEAR(other.tracks[0].track.Marks[1].DE, -(16 + 15 / 60.0 + 1 / 3600.0), 1e-9);
}

TEST(TrueReading, AReportIsOfTheStationsOfItsLines)
{
    const std::string front = "     XL90E5A  C2016 06 11.34739 21 25 23.06 -08 48 57.9          ";
    const TrueFile file = meant("mpc", "COD 500\n" + front + "21.1 R      H21\n" + front +
                                           "            J04\n" + front + "21.3 V      H21\n");
    ASSERT_EQ(file.tracks.size(), 2U);
    EXPECT_EQ(file.tracks[0].station, "H21");
    EXPECT_EQ(file.tracks[0].track.Marks.size(), 2U);
    EXPECT_EQ(file.tracks[0].marks[1].line, 4U);
    EXPECT_TRUE(file.tracks[0].marks[1].hasBand);
    EXPECT_EQ(file.tracks[1].station, "J04");
    EXPECT_EQ(file.tracks[1].track.MPCHeader.COD, "J04");
    EXPECT_FALSE(file.tracks[1].marks[0].hasMagnitude);
    EXPECT_FALSE(file.tracks[1].marks[0].hasBand);
}

TEST(TrueReading, AnObservationWithoutAStationIsOfNone)
{
    const std::string front = "     XL90E5A  C2016 06 11.34739 21 25 23.06 -08 48 57.9          21.1 R      ";
    const TrueFile file = meant("mpc", "COD 807\n" + front + "   \n" + front + "H21\n");
    ASSERT_EQ(file.tracks.size(), 2U);
    EXPECT_EQ(file.tracks[0].station, "");
    EXPECT_EQ(file.tracks[1].station, "H21");
}

TEST(TrueReading, AMarkThatComesAgainIsOfNoLine)
{
    const std::string columns = "   Data        UT           CU           DE      RMS  m\n";
    const std::string mark = "09.06.2016 05:56:24.00  16:47:17.48 -16.15.50.00 001 22.1\n";
    const std::string again = "09.06.2016 06:09:22.46  16:47:15.98 -16.15.59.00 001 22.0\n";
    const TrueFile file = meant("ssmas", "Measurements\n807\nconversion\n1\n\n\n#SSMAS   #INTER\nA A\n" +
                                             columns + mark + " B\n" + again);
    std::vector<std::size_t> lines;
    for (const companion::TrueTrack& track : file.tracks) {
        for (const companion::TrueMark& each : track.marks) {
            lines.push_back(each.line);
        }
    }
    EXPECT_THAT(lines, ElementsAre(10U, 12U, 0U));
}

TEST(TrueReading, SecondLinesAndReplacedObservationsOfAReportAreNoMarks)
{
    const std::string front = "     XL90E5A  ";
    const std::string back = "2016 06 11.34739 21 25 23.06 -08 48 57.9          21.1 R      H21\n";
    const TrueFile file = meant("mpc", front + 'S' + back + front + 's' + back + front + 'X' + back);
    ASSERT_EQ(file.tracks.size(), 1U);
    EXPECT_EQ(file.tracks[0].track.Marks.size(), 1U);
}

TEST(TrueReading, AnObservationThatCannotBePutInColumnsIsTold)
{
    const TrueFile file =
        meant("mpc", "A0125 of Vega  C2016 06 11.34739 21 25 23.06 08 48 57.9          21.1 R      H21\n");
    EXPECT_TRUE(file.tracks.empty());
    EXPECT_EQ(file.leftOut, 1U);
    EXPECT_THAT(codesOf(file), ElementsAre("1 V195"));
}

TEST(TrueReading, AMessageHasItsFrameAndMarksWithoutMagnitudes)
{
    const std::string message = "META_START\n TIME_SYSTEM = TAI\n PARTICIPANT_1 = K88\n PARTICIPANT_2 = A 1\n"
                                " PATH = 2,1\n ANGLE_TYPE = RADEC\n REFERENCE_FRAME = EME2000\nMETA_STOP\n"
                                "DATA_START\n ANGLE_2 = 2017-01-01T12:00:37 -1.5\n"
                                " ANGLE_1 = 2017-01-01T12:00:37 10.5\nDATA_STOP\n";
    const TrueFile file = meant("tdm", message);
    ASSERT_EQ(file.tracks.size(), 1U);
    const TrackVtorichka& track = file.tracks[0].track;
    EXPECT_EQ(track.QRVName, "A 1");
    EXPECT_EQ(track.REFERENCE_FRAME, "EME2000");
    EXPECT_EQ(file.tracks[0].station, "K88");
    EXPECT_EQ(int{track.Marks[0].date}, 57754);
    EXPECT_EQ(double{track.Marks[0].time}, 0.5);
    EXPECT_EQ(double{track.Marks[0].RA}, 10.5);
    EXPECT_EQ(double{track.Marks[0].DE}, -1.5);
    EXPECT_EQ(file.tracks[0].marks[0].line, 10U);
    EXPECT_FALSE(file.tracks[0].marks[0].hasMagnitude);
    TrueSettings settings;
    settings.magnitude = 9.25;
    const TrueFile given = meant("tdm", message, settings);
    EXPECT_EQ(double{given.tracks[0].track.Marks[0].m}, 9.25);
    EXPECT_TRUE(given.tracks[0].marks[0].hasMagnitude);
}

TEST(TrueReading, AValueThatComesTwiceIsToldAtItsOwnPlace)
{
    const TrueFile file =
        meant("telegram", "MPC 807 A\n090616 1200000x     1200000x -16155070 001221\nEND\n");
    std::vector<std::string> misread;
    for (const companion::Finding& each : file.findings) {
        if (each.code == companion::FindingCode("V123")) {
            misread.push_back(std::to_string(each.line) + ':' + std::to_string(each.column));
        }
    }
    EXPECT_THAT(misread, ElementsAre("2:8", "2:21"));
}

TEST(TrueReading, WhatIsToldOfAMendedLineIsToldOfTheLineOfTheFile)
{
    const std::string mark = "090616 05562400 16471748 -16155070 001221\n";
    const TrueFile blocks = meant("telegram", "MPC 807 A\n" + mark + "MPC  807  B\n" + mark + "END\n");
    ASSERT_THAT(codesOf(blocks), testing::Contains("3 V161"));
    const companion::Finding& whole = blocks.findings.back();
    EXPECT_EQ(whole.places.at(0).value, "MPC  807  B");
    EXPECT_EQ(whole.column, 1U);
    const TrueFile sign =
        meant("mpc", "     XL90E5A  C2016 06 11.34739 21 25 23.06  91 48 57.9          21.1 R      H21\n");
    ASSERT_THAT(codesOf(sign), testing::Contains("1 V121"));
    const companion::Finding& beyond = sign.findings.back();
    EXPECT_EQ(beyond.places.at(0).value, "91 48 57.9");
    EXPECT_EQ(beyond.column, 46U); // without the sign that is put in front of it
}

TEST(TrueReading, NumbersWithAnExponentHaveNoDecimals)
{
    const TrueFile file =
        meant("tdm", "META_START\nTIME_SYSTEM = UTC\nPARTICIPANT_1 = K88\nPARTICIPANT_2 = A\nPATH = 2,1\n"
                     "ANGLE_TYPE = RADEC\nREFERENCE_FRAME = ICRF\nMETA_STOP\nDATA_START\n"
                     "ANGLE_1 = 2017-01-01T12:00:00 1.05e1\nANGLE_2 = 2017-01-01T12:00:00 -1.5\nDATA_STOP\n");
    ASSERT_EQ(file.tracks.size(), 1U);
    EXPECT_EQ(double{file.tracks[0].track.Marks[0].RA}, 10.5);
    EXPECT_EQ(file.tracks[0].marks[0].decimals.rightAscension, -1);
    EXPECT_EQ(file.tracks[0].marks[0].decimals.declination, 1);
}

TEST(TrueReading, ATableTellsWhetherItHasMagnitudesAndBands)
{
    const std::string bare = "QRVName\tdate\ttime\tRA\tDE\nA\t2023-02-25\t12:00:00\t15\t-0.5\n";
    const TrueFile without = meant("table", bare);
    ASSERT_EQ(without.tracks.size(), 1U);
    EXPECT_FALSE(without.tracks[0].marks[0].hasMagnitude);
    EXPECT_EQ(without.tracks[0].marks[0].line, 2U);
    EXPECT_EQ(without.tracks[0].station, "");
    const TrueFile with = meant("table", "v2\nQRVName\tdate\ttime\tRA\tDE\tm\tfiltr\n"
                                         "A\t2023-02-25\t12:00:00\t15\t-0.5\t9.5\tV\n---\n");
    EXPECT_TRUE(with.tracks[0].marks[0].hasMagnitude);
    EXPECT_TRUE(with.tracks[0].marks[0].hasBand);
    const TrueFile other = meant("table", "QRVName\tfiltr\tdate\ttime\tRA\tDE\n"
                                          "A\tV\t2023-02-25\t12:00:00\t15\t-0.5\n---\n");
    EXPECT_FALSE(other.tracks[0].marks[0].hasMagnitude);
    EXPECT_TRUE(other.tracks[0].marks[0].hasBand);
    EXPECT_EQ(with.tracks[0].marks[0].line, 3U);
}

TEST(TrueReading, AFileThatIsOfNoOneEncodingIsRefused)
{
    const TrueFile file = meant("mea", site + std::string("A\0B", 3));
    EXPECT_TRUE(file.tracks.empty());
    EXPECT_THAT(codesOf(file), ElementsAre("0 V101"));
}

TEST(TrueReading, OtherFormatsHaveNoTracks)
{
    EXPECT_TRUE(meant("task", "<task></task>\n").tracks.empty());
}

TEST(TrueReading, AMissingFileIsWrongUsage)
{
    EXPECT_THROW(readAsMeant("/missing/file", "mea"), companion::WrongUsage);
}
