#include "support/expected_files.h"

#include "support/measured_marks.h"
#include "support/texts.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

namespace expectedFiles {
namespace {

using Text = const std::string&;

std::string times(std::size_t count, Text text)
{
    return repeated(text, static_cast<int>(count));
}

std::string paddedRight(Text text, std::size_t width)
{
    return text.size() < width ? text + std::string(width - text.size(), ' ') : text;
}

std::string paddedLeft(Text text, std::size_t width)
{
    return text.size() < width ? std::string(width - text.size(), ' ') + text : text;
}

std::string mea(const Outlines& tracks, const Stamps& stamps)
{
    std::string text = stamps.telescope + " 2000.0 UTC\n";
    for (const Outline& track : tracks) {
        text += times(track.marks,
                      paddedRight(track.name, 7) + " 250223 1200000000 0100000000 -0030000000 001 09.50\n");
    }
    return text;
}

std::string telegram(const Outlines& tracks, const Stamps& stamps)
{
    std::string text;
    for (const Outline& track : tracks) {
        text += stamps.originator + " " + stamps.telescope + " " + track.name + "\n" +
                times(track.marks, "250223 12000000 01000000 -00300000 001095\n") + "END\n\n";
    }
    return text;
}

std::string tdmSegment(const Outline& track, const Stamps& stamps)
{
    return "META_START\n"
           "TIME_SYSTEM = UTC\n"
           "START_TIME = 2023-02-25T12:00:00.00000\n"
           "STOP_TIME = 2023-02-25T12:00:00.00000\n"
           "PARTICIPANT_1 = " +
           stamps.telescope + "\nPARTICIPANT_2 = " + track.name +
           "\nMODE = SEQUENTIAL\n"
           "PATH = 2,1\n"
           "ANGLE_TYPE = RADEC\n"
           "REFERENCE_FRAME = " +
           stamps.frame + "\nMETA_STOP\nDATA_START\n" +
           times(track.marks, "ANGLE_1 = 2023-02-25T12:00:00.00000 15.0000000\n"
                              "ANGLE_2 = 2023-02-25T12:00:00.00000 -0.5000000\n"
                              "MAG = 2023-02-25T12:00:00.00000 9.5000\n") +
           "DATA_STOP\n";
}

std::string tdm(const Outlines& tracks, const Stamps& stamps)
{
    std::string text = "CCSDS_TDM_VERS = 1.0\n"
                       "CREATION_DATE = 0-00-00T00:00:00\n"
                       "ORIGINATOR = " +
                       stamps.originator + "\n";
    for (const Outline& track : tracks) {
        text += track.marks == 0 ? "" : tdmSegment(track, stamps);
    }
    return text;
}

std::string ssmas(const Outlines& tracks, const Stamps& stamps)
{
    std::string text = "Measurements\n" + stamps.telescope + "\nconversion\n";
    int number = 0;
    for (const Outline& track : tracks) {
        text += std::to_string(++number) + "\n\n#SSMAS   #INTER\n" + track.name + " " + track.name +
                "\n   Data        UT           CU           DE      RMS  m\n" +
                times(track.marks, "25.02.2023 12:00:00.00  01:00:00.00 -00.30.00.00 001 09.5\n");
    }
    return text;
}

std::string mpc(const Outlines& tracks, const Stamps&)
{
    std::string text = "COD 500\n";
    for (const Outline& track : tracks) {
        const std::string name =
            track.name.size() == 5 ? paddedRight(track.name, 12) : paddedLeft(track.name, 12);
        text += times(track.marks,
                      name + "  C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500\n");
    }
    return text;
}

std::string xmlSegment(const Outline& track, const Stamps& stamps)
{
    const std::string epoch = "                    <EPOCH>2023-02-25T12:00:00.00000</EPOCH>\n";
    const auto observation = [&epoch](Text value) {
        return "                <observation>\n" + epoch + "                    " + value +
               "\n                </observation>\n";
    };
    return "        <segment>\n"
           "            <metadata>\n"
           "                <TIME_SYSTEM>UTC</TIME_SYSTEM>\n"
           "                <START_TIME>2023-02-25T12:00:00.00000</START_TIME>\n"
           "                <STOP_TIME>2023-02-25T12:00:00.00000</STOP_TIME>\n"
           "                <PARTICIPANT_1>" +
           stamps.telescope +
           "</PARTICIPANT_1>\n"
           "                <PARTICIPANT_2>" +
           track.name +
           "</PARTICIPANT_2>\n"
           "                <MODE>SEQUENTIAL</MODE>\n"
           "                <PATH>2,1</PATH>\n"
           "                <ANGLE_TYPE>RADEC</ANGLE_TYPE>\n"
           "                <REFERENCE_FRAME>" +
           stamps.frame +
           "</REFERENCE_FRAME>\n"
           "            </metadata>\n"
           "            <data>\n" +
           times(track.marks, observation("<ANGLE_1>15.0000000</ANGLE_1>") +
                                  observation("<ANGLE_2>-0.5000000</ANGLE_2>") +
                                  observation("<MAG>9.5000</MAG>")) +
           "            </data>\n"
           "        </segment>\n";
}

std::string xmlDocument(Text originator, Text body)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
           "<tdm id=\"CCSDS_TDM_VERS\" version=\"2.0\">\n"
           "    <header>\n"
           "        <CREATION_DATE>0-00-00T00:00:00</CREATION_DATE>\n"
           "        <ORIGINATOR>" +
           originator +
           "</ORIGINATOR>\n"
           "    </header>\n" +
           (body.empty() ? "    <body />\n" : "    <body>\n" + body + "    </body>\n") + "</tdm>\n";
}

std::string tdmXml(const Outlines& tracks, const Stamps& stamps)
{
    std::string body;
    for (const Outline& track : tracks) {
        body += track.marks == 0 ? "" : xmlSegment(track, stamps);
    }
    return xmlDocument(stamps.originator, body);
}

const std::string lightCurveColumns =
    "JD geocentric\tapparent\tensemble\tinstrumental\tinstr1000km\tinstrComp\tobject\n";

std::string lightCurve(const Outlines& tracks, const Stamps&)
{
    std::string text = lightCurveColumns;
    for (const Outline& track : tracks) {
        text += times(track.marks,
                      "2460001.0000000\t9.50000\t0.00000\t0.00000\t0.00000\t0.00000\t" + track.name + "\t\n");
    }
    return text;
}

std::string aavso(const Outlines& tracks, const Stamps& stamps)
{
    std::string text = "#TYPE=Extended\n#OBSCODE=" + stamps.observerCode +
                       "\n#SOFTWARE=Vomar\n#DELIM=,\n#DATE=JD\n#OBSTYPE=CCD\n"
                       "#NAME,DATE,MAG,MAGERR,FILTER,TRANS,MTYPE,CNAME,CMAG,KNAME,KMAG,AIRMASS,GROUP,CHART,"
                       "NOTES\n";
    for (const Outline& track : tracks) {
        text += times(track.marks,
                      track.name + ",2460001.0000000,0.000,inf,R,NO,DIF,ENSEMBLE,na,,na,na,na,na,na\n");
    }
    return text;
}

// Segments without data, which the writer leaves out.
std::string tdmInput(const Outlines& tracks)
{
    std::string text = "ORIGINATOR = O1\nPARTICIPANT_1 = T1\n";
    for (const Outline& track : tracks) {
        text += "META_START\nPARTICIPANT_2 = " + track.name + "\nMETA_STOP\nDATA_START\n" +
                times(track.marks, "ANGLE_1 = 2023-02-25T12:00:00 15.0\n"
                                   "ANGLE_2 = 2023-02-25T12:00:00 -0.5\n"
                                   "MAG = 2023-02-25T12:00:00 9.5\n") +
                "DATA_STOP\n";
    }
    return text;
}

} // namespace

const std::vector<std::string> words = {"mea", "telegram", "tdm", "ssmas", "mpc", "tdm.xml", "mag", "aavso"};
const std::vector<std::string> inputWords = {"mea", "telegram", "tdm", "ssmas"};

std::string fileOf(const std::string& word, const Outlines& tracks, const Stamps& stamps)
{
    constexpr std::string (*files[])(const Outlines&, const Stamps&) = {mea, telegram, tdm,        ssmas,
                                                                        mpc, tdmXml,   lightCurve, aavso};
    for (std::size_t i = 0; i < words.size(); ++i) {
        if (words[i] == word) {
            return files[i](tracks, stamps);
        }
    }
    ADD_FAILURE() << word;
    return "";
}

bool isMadeOfNoTracks(const std::string& word)
{
    return word == "tdm.xml" || word == "mag";
}

std::string fileOfNoTracks(const std::string& word)
{
    EXPECT_TRUE(isMadeOfNoTracks(word)) << word;
    return word == "mag" ? lightCurveColumns : xmlDocument("", "");
}

std::vector<tavelinUtils::TrackVtorichka> tracksOf(const Outlines& tracks, const Stamps& stamps)
{
    std::vector<tavelinUtils::TrackVtorichka> made;
    for (const Outline& track : tracks) {
        made.push_back(trackNamed(track.name, {}));
        made.back().Marks.assign(track.marks, theMark());
        made.back().originator = stamps.originator;
        made.back().telescope = stamps.telescope;
        made.back().REFERENCE_FRAME = stamps.frame;
        made.back().ObsCode = stamps.observerCode;
    }
    return made;
}

std::string inputOf(const std::string& word, const Outlines& tracks)
{
    return word == "tdm" ? tdmInput(tracks) : fileOf(word, tracks, {.originator = "O1", .telescope = "T1"});
}

} // namespace expectedFiles
