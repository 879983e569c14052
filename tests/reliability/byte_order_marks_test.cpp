// A byte order mark at the front of a file, for each format that is read: XML is read with it, in text it
// belongs to the first field.

#include "config/user_configuration.h"
#include "formats/element_sets.h"
#include "formats/horizons.h"
#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/tdm_xml.h"
#include "formats/telegram.h"
#include "formats/track_table.h"
#include "formats/variable_star_tables.h"
#include "results/result_files.h"
#include "task.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Tracks = std::vector<TrackVtorichka>;

const std::string mark = "\xEF\xBB\xBF";

struct Format
{
    std::string name;
    std::string bytes; // one track of one mark, in the north at 15 degrees
    std::function<Tracks(const std::string&)> read;
};

const std::string messageInXml =
    "<tdm><header/><body><segment><metadata><PARTICIPANT_2>A</PARTICIPANT_2></metadata><data>"
    "<observation><EPOCH>2023-02-25T12:00:00</EPOCH><ANGLE_1>15.0</ANGLE_1></observation>"
    "<observation><EPOCH>2023-02-25T12:00:00</EPOCH><ANGLE_2>1.0</ANGLE_2></observation>"
    "<observation><EPOCH>2023-02-25T12:00:00</EPOCH><MAG>9.5</MAG></observation>"
    "</data></segment></body></tdm>";

// The formats whose first line holds nothing that a mark needs.
const std::vector<Format>& formats()
{
    static const std::vector<Format> all{
        {"MEA", "T1 2000.0 UTC\nA 250223 1200000000 0100000000 +0030000000 001 09.50\n",
         [](const std::string& path) { return plMEATrack(path, "observatory"); }},
        {"telegram", "MPC 807 A\n250223 12000000 01000000 +0030000 001095\nEND\n",
         [](const std::string& path) { return lTelegramma(path); }},
        {"TDM",
         "CCSDS_TDM_VERS = 1.0\nMETA_START\nPARTICIPANT_2 = A\nMETA_STOP\nDATA_START\n"
         "ANGLE_1 = 2023-02-25T12:00:00 15.0\nANGLE_2 = 2023-02-25T12:00:00 1.0\nMAG = 2023-02-25T12:00:00 "
         "9.5\n"
         "DATA_STOP\n",
         [](const std::string& path) { return lTDM(path); }},
        {"TDM in XML", messageInXml,
         [](const std::string& path) {
             Tracks tracks;
             EXPECT_TRUE(lTDMxml(path, tracks));
             return tracks;
         }},
        {"SSMAS",
         "Measurements\nH21\nconversion\n1\n\n#SSMAS   #INTER\nA A\n   Data        UT           CU           "
         "DE      "
         "RMS  m\n25.02.2023 12:00:00.00  01:00:00.00 +00.30.00.00 001 9.5\n",
         [](const std::string& path) { return lckako_meas(path, "observatory"); }},
        {"MPC report",
         "COD K88\n     K17BC1T KC2018 02 16.19817201 00 00.00 -00 30 00.0          20.2 G      K88\n",
         [](const std::string& path) { return lMPC(path); }},
    };
    return all;
}

double firstRightAscension(const Tracks& tracks)
{
    return tracks.empty() || tracks[0].Marks.empty() ? -1.0 : tracks[0].Marks[0].RA;
}

} // namespace

TEST(ByteOrderMark, ChangesNoMarkOfAMeasurementFile)
{
    for (const Format& format : formats()) {
        SCOPED_TRACE(format.name);
        for (const std::string& front : {std::string(), mark}) {
            const Tracks tracks = readBy(format.read, front + format.bytes);
            EXPECT_EQ(countMarks(tracks), 1u);
            EXPECT_NEAR(firstRightAscension(tracks), 15.0, 1e-9);
        }
    }
}

TEST(ByteOrderMark, BelongsToTheFirstFieldOfALine)
{
    EXPECT_EQ(readBy(formats()[0].read, mark + formats()[0].bytes).at(0).telescope, mark + "T1");
    EXPECT_EQ(readBy(formats()[1].read, mark + formats()[1].bytes).at(0).originator, mark + "MPC");
}

// The keyword is not known with it.
TEST(ByteOrderMark, HidesTheStationOfAnMpcReport)
{
    const Format& report = formats()[5];
    EXPECT_EQ(readBy(report.read, report.bytes).at(0).MPCHeader.COD, "K88");
    EXPECT_NE(readBy(report.read, mark + report.bytes).at(0).MPCHeader.COD, "K88");
}

TEST(ByteOrderMark, LosesTheFirstLineOfAnMpcReportWithoutAHeader)
{
    const std::string line = formats()[5].bytes.substr(8);
    EXPECT_EQ(countMarks(readBy(formats()[5].read, line)), 1u);
    EXPECT_EQ(countMarks(readBy(formats()[5].read, mark + line)), 0u);
}

TEST(ByteOrderMark, MakesTheVersionLineOfATrackTableItsHeader)
{
    const auto read = [](const std::string& path) { return lListTrack(path); };
    const std::string table = "v2\nQRVName:Text\tRA:Float:deg\nA\t15.0\n";
    EXPECT_EQ(firstRightAscension(readBy(read, table)), 15.0);
    const Tracks tracks = readBy(read, mark + table);
    EXPECT_EQ(countMarks(tracks), 2u);
    EXPECT_EQ(firstRightAscension(tracks), 0.0);
}

TEST(ByteOrderMark, LosesTheFirstLineOfElementSets)
{
    const auto read = [](const std::string& path) { return l3LEstr(path); };
    const std::string sets = "0 A\n1 1\n2 1\n0 B\n1 2\n2 2\n";
    EXPECT_EQ(readBy(read, sets).at(0).Line0, "0 A");
    EXPECT_NE(readBy(read, mark + sets).at(0).Line0, "0 A");
    EXPECT_EQ(readBy(read, mark + sets).back().Line0, "0 B");
}

TEST(ByteOrderMark, MakesTheNumberAtTheFrontOfAMagnitudeFileZero)
{
    double value = -1.0;
    std::vector<TFrameBrightnes> frames;
    const auto read = [&](const std::string& path) {
        lInstrMag(path, value, frames);
        return value;
    };
    EXPECT_EQ(readBy(read, "2.5\n"), 2.5);
    EXPECT_EQ(readBy(read, mark + "2.5\n"), 0.0);
}

TEST(ByteOrderMark, ChangesNoTaskNoConfigurationAndNoResult)
{
    const auto taskOf = [](const std::string& path) {
        TConvMea task;
        EXPECT_TRUE(ltaskconv(path, task));
        return task.inputformat;
    };
    EXPECT_EQ(readBy(taskOf, mark + "<task><inputformat>tdm</inputformat></task>"), "tdm");
    const auto settingsOf = [](const std::string& path) {
        TPorogs settings;
        LoadUserConfXML(path, settings, false);
        return settings.curves.AAVSOCode;
    };
    const std::string configuration = "<root><lightCurves><AAVSOCode>ABC</AAVSOCode></lightCurves></root>";
    EXPECT_EQ(readBy(settingsOf, mark + configuration), "ABC");
    const auto codeOf = [](const std::string& path) { return lResXML(path).Code; };
    EXPECT_EQ(readBy(codeOf, mark + "<ResultsList><Result><Code>7</Code></Result></ResultsList>"), 7);
}
