#include "pages/page_samples.h"

#include "config/configuration_sections.h"
#include "config/parameters_detection.h"
#include "config/range_checks.h"
#include "config/user_configuration.h"
#include "config/xml_document.h"
#include "exchange/catalogue_lists.h"
#include "exchange/text_results.h"
#include "formats/element_sets.h"
#include "formats/horizons.h"
#include "formats/light_curve_task.h"
#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/reference_positions.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/tdm_xml.h"
#include "formats/telegram.h"
#include "formats/track_table.h"
#include "formats/variable_star_tables.h"
#include "results/result_files.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <sstream>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Text = const std::string&;

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

std::size_t countOf(Text word, Text text)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(word); at != std::string::npos; at = text.find(word, at + 1)) {
        ++count;
    }
    return count;
}

std::size_t marksOf(const std::vector<TrackVtorichka>& tracks)
{
    EXPECT_FALSE(tracks.empty());
    std::size_t count = 0;
    for (const TrackVtorichka& track : tracks) {
        EXPECT_FALSE(track.Marks.empty());
        count += track.Marks.size();
    }
    return count;
}

// Writes what was read; a sample is whole where the same bytes come out.
template <class Write>
void expectSameAgain(Text text, Write write)
{
    const TemporaryFolder folder;
    write(folder / "again");
    EXPECT_EQ(bytesOf(folder / "again"), text);
}

void checkMea(Text path, Text text)
{
    EXPECT_EQ(marksOf(plMEATrack(path, "")) + 1, linesOf(text).size());
}

void checkTelegram(Text path, Text text)
{
    const std::vector<TrackVtorichka> tracks = lTelegramma(path);
    EXPECT_GT(marksOf(tracks), 0u);
    expectSameAgain(text, [&tracks](Text again) { sTelegramma(again, tracks); });
}

void checkTdm(Text path, Text text)
{
    const std::vector<TrackVtorichka> tracks = lTDM(path);
    EXPECT_GT(marksOf(tracks), 0u);
    expectSameAgain(text, [&tracks](Text again) { sTDM(again, tracks); });
}

void checkSsmas(Text path, Text text)
{
    EXPECT_EQ(marksOf(lckako_meas(path, "")), countOf(" 001 ", text));
}

// The reader takes lines of just 80 columns: a positive declination has no sign and makes one of 79.
void checkMpc(Text path, Text text)
{
    const std::vector<std::string> lines = linesOf(text);
    const auto whole = std::count_if(lines.begin(), lines.end(), [](Text line) { return line.size() == 80; });
    std::size_t marks = 0;
    for (const TrackVtorichka& track : lMPC(path)) {
        marks += track.Marks.size();
    }
    EXPECT_EQ(marks, static_cast<std::size_t>(whole));
    EXPECT_FALSE(GetListHeadMPC(TMPCReportHeader{}).empty());
    for (const std::string& line : lines) {
        const bool isHeader = line.size() > 4 && line[3] == ' ' && line.size() < 79;
        EXPECT_TRUE(isHeader || line.size() == 80 || line.size() == 79) << line;
    }
}

void checkTdmXml(Text path, Text /*text*/)
{
    std::vector<TrackVtorichka> tracks;
    EXPECT_TRUE(lTDMxml(path, tracks));
    EXPECT_GT(marksOf(tracks), 0u);
}

void checkTrackTable(Text path, Text text)
{
    EXPECT_EQ(marksOf(lListTrack(path)) + 2 + countOf("---\n", text), linesOf(text).size());
}

void checkElementSets(Text path, Text text)
{
    const std::vector<TTLEstr> sets = l3LEstr(path);
    EXPECT_FALSE(sets.empty());
    expectSameAgain(text, [&sets](Text again) { s3LEstr(again, sets); });
}

void checkHorizons(Text path, Text text)
{
    TrackVtorichka track;
    EXPECT_EQ(lHorizons(path, track), 0);
    EXPECT_EQ(track.Marks.size() + 2, linesOf(text).size());
}

// Two readers of reference positions: the first line is no mark.
template <auto read>
void checkPositions(Text path, Text text)
{
    TrackVtorichka track;
    read(path, track);
    EXPECT_EQ(track.Marks.size() + 1, linesOf(text).size());
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        EXPECT_EQ(int{mark.date}, 60000);
        EXPECT_GT(double{mark.RA}, 0.0);
    }
}

void checkVsx(Text path, Text text)
{
    const std::vector<TVSX> stars = LoadVSX(path);
    EXPECT_FALSE(stars.empty());
    expectSameAgain(text, [&stars](Text again) { SaveVSX(again, stars); });
}

void checkShortVsx(Text path, Text text)
{
    std::vector<TVSX> stars;
    lListVSX(path, stars);
    ASSERT_EQ(stars.size() + 1, linesOf(text).size());
    EXPECT_EQ(stars[0].Name, "phi Per");
}

void checkVsp(Text path, Text text)
{
    const std::vector<TRecVSP> stars = lVSP(path);
    ASSERT_EQ(stars.size() + 2, linesOf(text).size());
    EXPECT_GT(stars[0].RA, 0.0);
    EXPECT_NE(stars[0].AUID, "");
}

void checkSatelliteNames(Text path, Text text)
{
    const std::vector<TNameSat> names = lNameSat(path);
    ASSERT_EQ(names.size(), linesOf(text).size());
    EXPECT_GT(names[0].Number, 0);
    EXPECT_NE(names[0].Text1, "");
}

void checkBands(Text path, Text /*text*/)
{
    EXPECT_EQ(lBand(path), (std::vector<std::string>{"R", "V", "B", "I"}));
}

void checkNumbers(Text path, Text text)
{
    std::vector<double> values;
    LoadResult61(path, values);
    ASSERT_EQ(values.size() + 3, linesOf(text).size());
    EXPECT_EQ(values.front(), 0.51);
}

void checkPlate(Text path, Text text)
{
    const TPlateRec plate = lAstroPlate(path);
    EXPECT_FALSE(plate.List1.empty());
    expectSameAgain(text, [&plate](Text again) { sAstroPlate(again, plate); });
}

void checkSolution(Text path, Text /*text*/)
{
    TFitHead head;
    EXPECT_EQ(lIniASTAP(path, head), 1);
}

void checkFisherTable(Text path, Text text)
{
    TFisherTable table;
    EXPECT_EQ(lFisherTable(path, 0.0, table), 0);
    EXPECT_EQ(table.Rows.size() + 2, linesOf(text).size());
}

void checkStarLightCurve(Text path, Text text)
{
    std::vector<TLocPhotoBlob> blobs;
    lVarSLightCurvesVO(path, true, blobs);
    ASSERT_EQ(blobs.size() + 1, linesOf(text).size());
}

void checkInstrumentalMagnitudes(Text path, Text text)
{
    double value = 0;
    std::vector<TFrameBrightnes> frames;
    lInstrMag(path, value, frames);
    EXPECT_FALSE(frames.empty());
    expectSameAgain(text, [&](Text again) { sInstrMag(again, value, frames); });
}

void checkResultLog(Text path, Text text)
{
    const TFuncRes result = LoadResultExe(path);
    EXPECT_NE(text.find(" Code=" + std::to_string(result.Code) + "//"), std::string::npos);
    EXPECT_NE(result.Description, "");
}

void checkResult(Text path, Text text)
{
    const TFuncRes result = lResXML(path);
    EXPECT_NE(text.find("<Code>" + std::to_string(result.Code) + "</Code>"), std::string::npos);
    EXPECT_NE(text.find("<Description>" + result.Comment + "</Description>"), std::string::npos);
}

void checkConfiguration(Text path, Text text)
{
    TPorogs porogs;
    EXPECT_EQ(LoadUserConfXML(path, porogs, false).Code, 0);
    EXPECT_NE(text.find("<MPCcode>" + porogs.mpc.MPCHeader.COD + "</MPCcode>"), std::string::npos);
    EXPECT_NE(text.find("<AAVSOCode>" + porogs.curves.AAVSOCode + "</AAVSOCode>"), std::string::npos);
}

void checkXml(Text path, Text /*text*/)
{
    EXPECT_TRUE(TtavelinXmlDocument(path).LoadFile());
}

void checkPrograms(Text path, Text /*text*/)
{
    TExe programs;
    EXPECT_EQ(lConfig(path, programs).Code, 0);
    EXPECT_NE(programs.FindOrb, "");
}

void checkSearch(Text path, Text /*text*/)
{
    std::string texts[13];
    std::vector<std::string> blobs;
    LoadThreshHough(path, texts[0], texts[1], texts[2], texts[3], texts[4], texts[5], texts[6], texts[7],
                    texts[8], texts[9], texts[10], texts[11], texts[12], blobs);
    EXPECT_EQ(std::count(std::begin(texts), std::end(texts), ""), 0);
    EXPECT_EQ(blobs.size(), 2u);
}

void checkVsxAnswer(Text path, Text /*text*/)
{
    std::vector<TVSX> stars;
    EXPECT_TRUE(LoadVSXQuerry(path, stars));
    EXPECT_EQ(stars.size(), 1u);
}

void checkLightCurveTask(Text path, Text /*text*/)
{
    const TLCTask task = lLCTask(path);
    EXPECT_FALSE(task.research.empty());
    EXPECT_FALSE(task.comparison.empty());
}

void checkSsmasHeaders(Text path, Text /*text*/)
{
    std::vector<TSSMASHAED> headers;
    lHeadersSSMAS(path, headers);
    EXPECT_FALSE(headers.empty());
}

// By the word after the fence.
const std::map<std::string, SampleCheck> checksOfKinds = {
    {"mea", checkMea},
    {"telegram", checkTelegram},
    {"tdm", checkTdm},
    {"ssmas", checkSsmas},
    {"mpc", checkMpc},
    {"track-table", checkTrackTable},
    {"element-sets", checkElementSets},
    {"horizons", checkHorizons},
    {"reference-table", checkPositions<loadAMU>},
    {"reference-list", checkPositions<loadEtalonAMU>},
    {"vsx", checkVsx},
    {"vsx-short", checkShortVsx},
    {"vsp", checkVsp},
    {"satellite-names", checkSatelliteNames},
    {"bands", checkBands},
    {"numbers", checkNumbers},
    {"plate", checkPlate},
    {"astap", checkSolution},
    {"fisher-table", checkFisherTable},
    {"star-light-curve", checkStarLightCurve},
    {"instrumental-magnitudes", checkInstrumentalMagnitudes},
    {"result-log", checkResultLog},
};

// By the note of an XML document.
const std::map<std::string, SampleCheck> checksOfDocuments = {
    {"tdm.xml", checkTdmXml},
    {"result", checkResult},
    {"configuration", checkConfiguration},
    {"header settings", checkXml},
    {"programs", checkPrograms},
    {"parameter file", checkSearch},
    {"vsx answer", checkVsxAnswer},
    {"light curve task", checkLightCurveTask},
    {"ssmas headers", checkSsmasHeaders},
};

} // namespace

SampleCheck sampleCheckOf(const PageBlock& block)
{
    const bool isXml = block.kind == "xml";
    const auto& checks = isXml ? checksOfDocuments : checksOfKinds;
    const auto found = checks.find(isXml ? block.note : block.kind);
    return found == checks.end() ? nullptr : found->second;
}
