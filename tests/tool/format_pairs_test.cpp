// The same real nights in each format that can be read, converted by the built tool into each that can be
// written. The outputs are compared with the published marks, as exactly as the digits of both formats allow;
// what a format loses is said where it is tested.

#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/tdm_xml.h"
#include "formats/telegram.h"

#include "support/child_process.h"
#include "support/locales.h"
#include "support/measured_marks.h"
#include "support/places.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"
#include "support/texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

struct TrueTrack
{
    std::string object;
    std::vector<Measured> marks;
};

struct Night
{
    const char* name;
    std::size_t tracks;
    std::size_t marks;
    std::size_t southernMarks;
};

// A northern night, a southern one with declinations of minus zero degrees, and one of both kinds.
const Night nights[] = {{"K88_20240120", 1, 130, 0}, {"291_20160608", 5, 13, 13}, {"461_20111003", 4, 18, 6}};

// How far a value may be from the true one. It is one-sided only where digits are cut off.
struct Span
{
    double low = 0;
    double high = 0;
};

Span operator+(const Span& a, const Span& b)
{
    return {a.low + b.low, a.high + b.high};
}

constexpr Span within(double half)
{
    return {-half, half};
}

// How far the digits of a format may be from the true value.
struct Digits
{
    Span time{}; // seconds
    Span RA{};   // seconds of time
    Span DE{};   // arcseconds, of the value without its sign
    Span m{};
};

Digits operator+(const Digits& a, const Digits& b)
{
    return {a.time + b.time, a.RA + b.RA, a.DE + b.DE, a.m + b.m};
}

// The true values are rounded to nine decimals of a day and of a degree.
constexpr Digits truthDigits = {within(1e-9 * 86400.0), within(1e-9 * 240.0), within(1e-9 * 3600.0),
                                within(1e-9)};

// Each format as it is written and read. MEA has two rows, since files of stations differ from those that the
// tool writes: it cuts the seconds of a time. The fraction of an arcsecond of SSMAS is not read.
constexpr Digits foundMeaDigits = {within(0.00005), within(0.00005), within(0.00005), within(0.005)};
constexpr Digits meaDigits = {{-0.001, 0.0}, within(0.00005), within(0.00005), within(0.005)};
constexpr Digits telegramDigits = {within(0.005), within(0.005), within(0.005), within(0.05)};
constexpr Digits tdmDigits = {within(0.000005), within(0.00000005 * 240.0), within(0.00000005 * 3600.0),
                              within(0.00005)};
constexpr Digits ssmasDigits = {within(0.005), within(0.005), {-1.005, 0.005}, within(0.05)};
constexpr Digits mpcDigits = {within(0.000005 * 86400.0), within(0.005), within(0.05), within(0.05)};
constexpr Digits lightCurveDigits = {within(0.00000005 * 86400.0), {}, {}, within(0.000005)};
constexpr Digits aavsoDigits = {within(0.00000005 * 86400.0), {}, {}, {}};

struct InputFormat
{
    const char* word;
    const char* folder;
    const char* extension;
    Digits digits;
};

const InputFormat inputFormats[] = {{"mea", "mea_nights", ".mea", foundMeaDigits},
                                    {"telegram", "nights", ".tel", telegramDigits},
                                    {"tdm", "nights", ".tdm", tdmDigits},
                                    {"ssmas", "nights", ".ssm", ssmasDigits}};

// The tracks of a night. The marks of an object are next to each other in the published file.
std::vector<TrueTrack> trueTracks(const Night& night)
{
    std::vector<TrueTrack> tracks;
    for (const PublishedMark& mark : publishedMarks(night.name)) {
        if (tracks.empty() || tracks.back().object != mark.object) {
            tracks.push_back({mark.object, {}});
        }
        tracks.back().marks.push_back(mark.values);
    }
    return tracks;
}

std::vector<Measured> marksOf(const std::vector<TrueTrack>& tracks)
{
    std::vector<Measured> marks;
    for (const TrueTrack& track : tracks) {
        marks.insert(marks.end(), track.marks.begin(), track.marks.end());
    }
    return marks;
}

// The words of a line; two adjacent separators have an empty word between them.
std::vector<std::string> wordsOf(const std::string& line, char separator)
{
    std::vector<std::string> words;
    std::istringstream stream(line);
    for (std::string word; std::getline(stream, word, separator);) {
        words.push_back(word);
    }
    return words;
}

std::size_t countOf(const std::string& text, const std::string& part)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) {
        ++count;
    }
    return count;
}

void expectWithin(double difference, const Span& span)
{
    EXPECT_GE(difference, span.low);
    EXPECT_LE(difference, span.high);
}

void expectTime(int date, double time, const Measured& truth, const Digits& digits)
{
    EXPECT_EQ(date, truth.date);
    expectWithin((time - truth.time) * 86400.0, digits.time);
}

// Compares whole days as integers, so that the fraction keeps all its digits.
void expectJulianDate(const std::string& text, const Measured& truth, const Digits& digits)
{
    const std::size_t point = text.find('.');
    ASSERT_EQ(text.size() - point, 8u) << text;
    const double days = std::stoi(text.substr(0, point)) - 2400000 - truth.date;
    expectWithin((days + readInC("0" + text.substr(point)) - 0.5 - truth.time) * 86400.0, digits.time);
}

void expectDE(double DE, const Measured& truth, const Digits& digits)
{
    EXPECT_EQ(std::signbit(DE), std::signbit(truth.DE));
    expectWithin((std::abs(DE) - std::abs(truth.DE)) * 3600.0, digits.DE);
}

void expectMarkButDE(const TRecLabelPervichka_File& mark, const Measured& truth, const Digits& digits)
{
    expectTime(mark.date, mark.time, truth, digits);
    expectWithin((mark.RA - truth.RA) * 240.0, digits.RA);
    expectWithin(mark.m - truth.m, digits.m);
    // No format carries the band.
    EXPECT_EQ(std::string(mark.filtr), "R");
}

void expectMark(const TRecLabelPervichka_File& mark, const Measured& truth, const Digits& digits)
{
    expectMarkButDE(mark, truth, digits);
    expectDE(mark.DE, truth, digits);
}

// Packed digits "DDMMSSss..." in degrees; the first `whole` characters are the degrees.
double packedDegrees(const std::string& text, std::size_t whole)
{
    return readInC(text.substr(0, whole)) + readInC(text.substr(whole, 2)) / 60.0 +
           readInC(text.substr(whole + 2, 2) + "." + text.substr(whole + 4)) / 3600.0;
}

// Checks a declination as the packed formats write it, and the value that their readers give it: they take
// three characters as sign and degrees, but a positive declination has no sign.
void expectPackedDE(const std::string& text, double read, const Measured& truth, const Digits& digits)
{
    if (truth.DE < 0.0) {
        ASSERT_EQ(text.substr(0, 1), "-");
        expectDE(-packedDegrees(text.substr(1), 2), truth, digits);
        expectDE(read, truth, digits);
    } else {
        expectDE(packedDegrees(text, 2), truth, digits);
        EXPECT_DOUBLE_EQ(read, packedDegrees(text, 3));
        EXPECT_GT(std::abs(read - truth.DE), 1.0);
    }
}

// The path of the file that the tool makes of a night.
std::string converted(const Night& night, const InputFormat& input, const std::string& outputWord,
                      const TemporaryFolder& folder)
{
    const std::string name = night.name;
    std::filesystem::copy_file(fixture(std::string(input.folder) + "/" + name + input.extension),
                               folder / (name + input.extension));
    std::filesystem::create_directory(folder / "out");
    makeFile(folder / "task.xml", taskText({{"path_in", name + input.extension},
                                            {"out_dir", "out"},
                                            {"outputextension", ".out"},
                                            {"inputformat", input.word},
                                            {"outputformat", outputWord},
                                            {"originator", "observers"},
                                            {"REFERENCE_FRAME", "GCRF"},
                                            {"PARTICIPANT_1", "T1"},
                                            {"autoname", "false"},
                                            {"path_res", "out/result.xml"}}));
    expectQuietEnd(runTool("task.xml", folder.path()));
    EXPECT_EQ(resultOf(folder / "out/result.xml"), resultDocument(0, "OK", "out/" + name + ".out"));
    EXPECT_EQ(filesBelow(folder / "out"), (std::set<std::string>{name + ".out", "result.xml"}));
    return folder / ("out/" + name + ".out");
}

// Calls the check for the output of each night in each input format, with the true tracks and the digits of
// the input.
void forEachInput(const std::string& outputWord,
                  const std::function<void(const std::string& path, const std::vector<TrueTrack>& truth,
                                           const Digits& input)>& check)
{
    for (const Night& night : nights) {
        for (const InputFormat& input : inputFormats) {
            SCOPED_TRACE(std::string(night.name) + " from " + input.word + " to " + outputWord);
            const TemporaryFolder folder;
            const std::string path = converted(night, input, outputWord, folder);
            check(path, trueTracks(night), input.digits + truthDigits);
        }
    }
}

// Checks that there are as many tracks, and marks in each, as in the true ones.
void expectShape(const std::vector<TrackVtorichka>& tracks, const std::vector<TrueTrack>& truth)
{
    ASSERT_EQ(tracks.size(), truth.size());
    for (std::size_t i = 0; i < truth.size(); ++i) {
        SCOPED_TRACE(truth[i].object);
        ASSERT_EQ(tracks[i].Marks.size(), truth[i].marks.size());
    }
}

void expectHead(const TrackVtorichka& track, const std::string& name, const std::string& second,
                const std::string& telescope, const std::string& originator)
{
    EXPECT_EQ(track.QRVName, name);
    EXPECT_EQ(track.NORAD, second);
    EXPECT_EQ(track.telescope, telescope);
    EXPECT_EQ(track.originator, originator);
    // Some of the files hold the frame of the task, but no reader takes it.
    EXPECT_EQ(track.REFERENCE_FRAME, "ICRF");
}

} // namespace

TEST(FormatPairs, NightsAreWhatTheirNamesSay)
{
    for (const Night& night : nights) {
        SCOPED_TRACE(night.name);
        const std::vector<TrueTrack> tracks = trueTracks(night);
        const std::vector<Measured> marks = marksOf(tracks);
        EXPECT_EQ(tracks.size(), night.tracks);
        EXPECT_EQ(marks.size(), night.marks);
        EXPECT_EQ(
            std::count_if(marks.begin(), marks.end(), [](const Measured& mark) { return mark.DE < 0.0; }),
            static_cast<std::ptrdiff_t>(night.southernMarks));
    }
}

TEST(FormatPairs, MeaReadsBackButForPositiveDeclinations)
{
    forEachInput("mea",
                 [](const std::string& path, const std::vector<TrueTrack>& truth, const Digits& input) {
                     const std::vector<std::string> lines = linesOf(bytesOf(path));
                     ASSERT_EQ(lines.size(), marksOf(truth).size() + 1);
                     EXPECT_EQ(lines[0], "T1 2000.0 UTC");
                     const std::vector<TrackVtorichka> tracks = plMEATrack(path, "reader");
                     ASSERT_NO_FATAL_FAILURE(expectShape(tracks, truth));
                     std::size_t line = 0;
                     for (std::size_t i = 0; i < truth.size(); ++i) {
                         expectHead(tracks[i], truth[i].object, truth[i].object, "T1", "reader");
                         for (std::size_t k = 0; k < truth[i].marks.size(); ++k) {
                             const std::string& text = lines[++line];
                             SCOPED_TRACE(text);
                             ASSERT_EQ(text.substr(0, 8), (truth[i].object + "        ").substr(0, 8));
                             const std::vector<std::string> words = wordsOf(text.substr(8), ' ');
                             ASSERT_EQ(words.size(), 6u);
                             EXPECT_EQ(words[4], "001");
                             const Measured& mark = truth[i].marks[k];
                             expectMarkButDE(tracks[i].Marks[k], mark, input + meaDigits);
                             expectPackedDE(words[3], tracks[i].Marks[k].DE, mark, input + meaDigits);
                         }
                     }
                 });
}

TEST(FormatPairs, TelegramReadsBackButForPositiveDeclinations)
{
    forEachInput("telegram",
                 [](const std::string& path, const std::vector<TrueTrack>& truth, const Digits& input) {
                     const std::vector<std::string> lines = linesOf(bytesOf(path));
                     ASSERT_EQ(lines.size(), marksOf(truth).size() + 3 * truth.size());
                     const std::vector<TrackVtorichka> tracks = lTelegramma(path);
                     ASSERT_NO_FATAL_FAILURE(expectShape(tracks, truth));
                     std::size_t line = 0;
                     for (std::size_t i = 0; i < truth.size(); ++i) {
                         EXPECT_EQ(lines[line++], "observers T1 " + truth[i].object);
                         expectHead(tracks[i], truth[i].object, truth[i].object, "T1", "observers");
                         for (std::size_t k = 0; k < truth[i].marks.size(); ++k) {
                             const std::string& text = lines[line++];
                             SCOPED_TRACE(text);
                             const std::vector<std::string> words = wordsOf(text, ' ');
                             ASSERT_EQ(words.size(), 5u);
                             EXPECT_EQ(words[4].substr(0, 3), "001");
                             const Measured& mark = truth[i].marks[k];
                             expectMarkButDE(tracks[i].Marks[k], mark, input + telegramDigits);
                             expectPackedDE(words[3], tracks[i].Marks[k].DE, mark, input + telegramDigits);
                         }
                         EXPECT_EQ(lines[line++], "END");
                         EXPECT_EQ(lines[line++], "");
                     }
                 });
}

TEST(FormatPairs, TdmReadsBackButForItsReferenceFrame)
{
    forEachInput("tdm",
                 [](const std::string& path, const std::vector<TrueTrack>& truth, const Digits& input) {
                     const std::string text = bytesOf(path);
                     EXPECT_EQ(countOf(text, "\nREFERENCE_FRAME = GCRF\n"), truth.size());
                     EXPECT_EQ(countOf(text, "ICRF"), 0u);
                     const std::vector<TrackVtorichka> tracks = lTDM(path);
                     ASSERT_NO_FATAL_FAILURE(expectShape(tracks, truth));
                     for (std::size_t i = 0; i < truth.size(); ++i) {
                         SCOPED_TRACE(truth[i].object);
                         expectHead(tracks[i], truth[i].object, "", "T1", "observers");
                         for (std::size_t k = 0; k < truth[i].marks.size(); ++k) {
                             SCOPED_TRACE(k);
                             expectMark(tracks[i].Marks[k], truth[i].marks[k], input + tdmDigits);
                         }
                     }
                 });
}

TEST(FormatPairs, SsmasReadsBackWithoutFractionsOfAnArcsecond)
{
    forEachInput(
        "ssmas", [](const std::string& path, const std::vector<TrueTrack>& truth, const Digits& input) {
            const std::vector<std::string> lines = linesOf(bytesOf(path));
            ASSERT_EQ(lines.size(), 3 + 5 * truth.size() + marksOf(truth).size());
            EXPECT_EQ(lines[1], "T1");
            // The column RMS is the same for every mark.
            EXPECT_EQ(std::count_if(lines.begin(), lines.end(),
                                    [](const std::string& line) {
                                        return line.size() > 40 && line.substr(line.size() - 9, 5) == " 001 ";
                                    }),
                      static_cast<std::ptrdiff_t>(marksOf(truth).size()));
            const std::vector<TrackVtorichka> tracks = lckako_meas(path, "reader");
            ASSERT_NO_FATAL_FAILURE(expectShape(tracks, truth));
            for (std::size_t i = 0; i < truth.size(); ++i) {
                SCOPED_TRACE(truth[i].object);
                // The telescope is that of the file's second line, for every track.
                expectHead(tracks[i], truth[i].object, truth[i].object, "T1", "reader");
                EXPECT_EQ(tracks[i].HeadText2, "");
                EXPECT_EQ(tracks[i].HeadText3, truth[i].object);
                for (std::size_t k = 0; k < truth[i].marks.size(); ++k) {
                    SCOPED_TRACE(k);
                    expectMark(tracks[i].Marks[k], truth[i].marks[k], input + ssmasDigits);
                    const double arcseconds = std::abs(tracks[i].Marks[k].DE) * 3600.0;
                    EXPECT_NEAR(arcseconds, std::round(arcseconds), 1e-6);
                }
            }
        });
}

TEST(FormatPairs, MpcReadsBackItsNegativeDeclinationsOnly)
{
    forEachInput("mpc",
                 [](const std::string& path, const std::vector<TrueTrack>& truth, const Digits& input) {
                     const std::vector<std::string> lines = linesOf(bytesOf(path));
                     ASSERT_EQ(lines.size(), marksOf(truth).size() + 1);
                     EXPECT_EQ(lines[0], "COD 500");
                     std::vector<TrueTrack> southern;
                     std::size_t line = 0;
                     for (const TrueTrack& track : truth) {
                         for (const Measured& mark : track.marks) {
                             const std::string& text = lines[++line];
                             SCOPED_TRACE(text);
                             if (mark.DE >= 0.0) {
                                 EXPECT_EQ(text.size(), 79u);
                                 continue;
                             }
                             EXPECT_EQ(text.size(), 80u);
                             if (southern.empty() || southern.back().object != track.object) {
                                 southern.push_back({track.object, {}});
                             }
                             southern.back().marks.push_back(mark);
                         }
                     }
                     const std::vector<TrackVtorichka> tracks = lMPC(path);
                     ASSERT_NO_FATAL_FAILURE(expectShape(tracks, southern));
                     for (std::size_t i = 0; i < southern.size(); ++i) {
                         SCOPED_TRACE(southern[i].object);
                         expectHead(tracks[i], "", "", "telescope", "observatory");
                         EXPECT_EQ(tracks[i].MPCChecker, southern[i].object);
                         EXPECT_EQ(tracks[i].MPCHeader.COD, "500");
                         for (std::size_t k = 0; k < southern[i].marks.size(); ++k) {
                             SCOPED_TRACE(k);
                             expectMark(tracks[i].Marks[k], southern[i].marks[k], input + mpcDigits);
                         }
                     }
                 });
}

TEST(FormatPairs, MpcLinesHoldEachDeclination)
{
    forEachInput(
        "mpc", [](const std::string& path, const std::vector<TrueTrack>& truth, const Digits& input) {
            const std::vector<std::string> lines = linesOf(bytesOf(path));
            const std::vector<Measured> marks = marksOf(truth);
            ASSERT_EQ(lines.size(), marks.size() + 1);
            for (std::size_t i = 0; i < marks.size(); ++i) {
                SCOPED_TRACE(lines[i + 1]);
                const bool negative = marks[i].DE < 0.0;
                const std::string text = lines[i + 1].substr(negative ? 45 : 44, 10);
                EXPECT_EQ(lines[i + 1].substr(43, negative ? 2 : 1), negative ? " -" : " ");
                const double degrees = readInC(text.substr(0, 2)) + readInC(text.substr(3, 2)) / 60.0 +
                                       readInC(text.substr(6)) / 3600.0;
                expectDE(negative ? -degrees : degrees, marks[i], input + mpcDigits);
            }
        });
}

TEST(FormatPairs, TdmXmlReadsBackItsFirstSegment)
{
    forEachInput("tdm.xml",
                 [](const std::string& path, const std::vector<TrueTrack>& truth, const Digits& input) {
                     const std::string text = bytesOf(path);
                     EXPECT_EQ(countOf(text, "<segment>"), truth.size());
                     EXPECT_EQ(countOf(text, "<observation>"), 3 * marksOf(truth).size());
                     EXPECT_EQ(countOf(text, "<ORIGINATOR>observers</ORIGINATOR>"), 1u);
                     EXPECT_EQ(countOf(text, "<PARTICIPANT_1>T1</PARTICIPANT_1>"), truth.size());
                     EXPECT_EQ(countOf(text, "<REFERENCE_FRAME>GCRF</REFERENCE_FRAME>"), truth.size());
                     for (const TrueTrack& track : truth) {
                         EXPECT_EQ(countOf(text, "<PARTICIPANT_2>" + track.object + "</PARTICIPANT_2>"), 1u);
                     }
                     std::vector<TrackVtorichka> tracks;
                     EXPECT_TRUE(lTDMxml(path, tracks));
                     ASSERT_NO_FATAL_FAILURE(expectShape(tracks, {truth[0]}));
                     // The object becomes the second designation; the other names stay those of a new track.
                     expectHead(tracks[0], "", truth[0].object, "telescope", "observatory");
                     for (std::size_t k = 0; k < truth[0].marks.size(); ++k) {
                         SCOPED_TRACE(k);
                         expectMark(tracks[0].Marks[k], truth[0].marks[k], input + tdmDigits);
                     }
                 });
}

TEST(FormatPairs, LightCurvesHoldTimesAndMagnitudes)
{
    forEachInput(
        "mag", [](const std::string& path, const std::vector<TrueTrack>& truth, const Digits& input) {
            const std::vector<std::string> lines = linesOf(bytesOf(path));
            ASSERT_EQ(lines.size(), marksOf(truth).size() + 1);
            EXPECT_EQ(lines[0],
                      "JD geocentric\tapparent\tensemble\tinstrumental\tinstr1000km\tinstrComp\tobject");
            std::size_t line = 0;
            for (const TrueTrack& track : truth) {
                for (const Measured& mark : track.marks) {
                    const std::string& text = lines[++line];
                    SCOPED_TRACE(text);
                    const std::vector<std::string> fields = wordsOf(text, '\t');
                    ASSERT_EQ(fields.size(), 7u);
                    EXPECT_EQ(text.back(), '\t');
                    expectJulianDate(fields[0], mark, input + lightCurveDigits);
                    expectWithin(readInC(fields[1]) - mark.m, (input + lightCurveDigits).m);
                    EXPECT_EQ(fields[1].size() - fields[1].find('.'), 6u);
                    for (const std::size_t unmeasured : {2u, 3u, 4u, 5u}) {
                        EXPECT_EQ(fields[unmeasured], "0.00000");
                    }
                    EXPECT_EQ(fields[6], track.object);
                }
            }
        });
}

// No format that can be read holds an ensemble magnitude, a signal-to-noise ratio or a band.
TEST(FormatPairs, AavsoReportsHoldTimesAlone)
{
    forEachInput("aavso", [](const std::string& path, const std::vector<TrueTrack>& truth,
                             const Digits& input) {
        const std::vector<std::string> lines = linesOf(bytesOf(path));
        ASSERT_EQ(lines.size(), marksOf(truth).size() + 7);
        EXPECT_EQ(lines[0], "#TYPE=Extended");
        EXPECT_EQ(lines[1], "#OBSCODE=aavso");
        EXPECT_EQ(lines[2], "#SOFTWARE=Vomar");
        EXPECT_EQ(lines[3], "#DELIM=,");
        EXPECT_EQ(lines[4], "#DATE=JD");
        EXPECT_EQ(lines[5], "#OBSTYPE=CCD");
        EXPECT_EQ(lines[6],
                  "#NAME,DATE,MAG,MAGERR,FILTER,TRANS,MTYPE,CNAME,CMAG,KNAME,KMAG,AIRMASS,GROUP,CHART,NOTES");
        std::size_t line = 6;
        for (const TrueTrack& track : truth) {
            for (const Measured& mark : track.marks) {
                const std::string& text = lines[++line];
                SCOPED_TRACE(text);
                const std::vector<std::string> fields = wordsOf(text, ',');
                ASSERT_EQ(fields.size(), 15u);
                EXPECT_EQ(fields[0], track.object);
                expectJulianDate(fields[1], mark, input + aavsoDigits);
                EXPECT_EQ(text.substr(fields[0].size() + fields[1].size() + 2),
                          "0.000,inf,R,NO,DIF,ENSEMBLE,na,,na,na,na,na,na");
            }
        }
    });
}
