// Nights of stations, converted by the built tool and compared with the published marks.

#include "formats/mpc_report.h"

#include "support/child_process.h"
#include "support/locales.h"
#include "support/measured_marks.h"
#include "support/places.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"
#include "support/texts.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

// The published values are rounded to nine decimals; beyond that, only the rounding of a format counts.
constexpr double roundingOfTruth = 1e-9;

// The published marks of each night.
std::map<std::string, std::vector<PublishedMark>> publishedNights()
{
    std::map<std::string, std::vector<PublishedMark>> nights;
    for (const PublishedMark& mark : publishedMarks()) {
        nights[mark.night].push_back(mark);
    }
    return nights;
}

// A night as the tool writes it in a format.
std::string converted(const std::string& night, const std::string& format, const TemporaryFolder& folder)
{
    std::filesystem::copy_file(fixture("mea_nights/" + night + ".mea"), folder / (night + ".mea"));
    std::filesystem::create_directory(folder / "out");
    makeFile(folder / "task.xml", taskText({{"path_in", night + ".mea"},
                                            {"out_dir", "out"},
                                            {"outputextension", "." + format},
                                            {"inputformat", "mea"},
                                            {"outputformat", format},
                                            {"originator", "MPC"},
                                            {"REFERENCE_FRAME", "ICRF"},
                                            {"PARTICIPANT_1", night.substr(0, 3)},
                                            {"autoname", "false"},
                                            {"path_res", "out/result.xml"}}));
    expectQuietEnd(runTool("task.xml", folder.path()));
    EXPECT_EQ(resultOf(folder / "out/result.xml"), resultDocument(0, "OK", "out/" + night + "." + format));
    return bytesOf(folder / ("out/" + night + "." + format));
}

// Columns of a line, counted from 1.
std::string columns(const std::string& line, std::size_t first, std::size_t last)
{
    return first <= line.size() ? line.substr(first - 1, last - first + 1) : "";
}

// Whether a text has the form: 9 stands for a digit, everything else for itself.
bool hasForm(const std::string& text, const std::string& form)
{
    bool fits = text.size() == form.size();
    for (std::size_t i = 0; fits && i < form.size(); ++i) {
        fits = form[i] == '9' ? text[i] >= '0' && text[i] <= '9' : text[i] == form[i];
    }
    return fits;
}

// The MJD of a calendar date.
int mjdOf(int year, int month, int day)
{
    using namespace std::chrono;
    const sys_days date = std::chrono::year(year) / month / day;
    return static_cast<int>((date - sys_days(std::chrono::year(1858) / 11 / 17)).count());
}

double numberAt(const std::string& text, std::size_t first, std::size_t size)
{
    return readInC(text.substr(first, size));
}

// "12 34 56.78", which has no sign, in units of its first part.
double sexagesimal(const std::string& text)
{
    return numberAt(text, 0, 2) + numberAt(text, 3, 2) / 60.0 + readInC(text.substr(6)) / 3600.0;
}

// "12345678", two digits for each part and the rest for the fraction of the last, in units of the first.
double packedSexagesimal(const std::string& text)
{
    return numberAt(text, 0, 2) + numberAt(text, 2, 2) / 60.0 +
           readInC(text.substr(4, 2) + "." + text.substr(6)) / 3600.0;
}

void expectReportLine(const std::string& line, const PublishedMark& mark)
{
    const bool negative = mark.values.DE < 0.0;
    // Only a negative declination has a sign; what follows a positive one is a column further left.
    const std::size_t shift = negative ? 0 : 1;
    ASSERT_EQ(line.size(), 80 - shift);
    const std::string padding(12 - mark.object.size(), ' ');
    EXPECT_EQ(columns(line, 1, 12), mark.object.size() == 5 ? mark.object + padding : padding + mark.object);
    EXPECT_EQ(columns(line, 13, 15), "  C");

    const std::string date = columns(line, 16, 25);
    const std::string fraction = columns(line, 26, 31);
    ASSERT_TRUE(hasForm(date, "9999 99 99")) << date;
    ASSERT_TRUE(hasForm(fraction, ".99999")) << fraction;
    const int day =
        mjdOf(std::stoi(date.substr(0, 4)), std::stoi(date.substr(5, 2)), std::stoi(date.substr(8)));
    EXPECT_EQ(day, mark.values.date);
    EXPECT_NEAR(readInC("0" + fraction), mark.values.time, 0.000005 + roundingOfTruth);
    EXPECT_EQ(columns(line, 32, 32), " ");

    const std::string ra = columns(line, 33, 43);
    ASSERT_TRUE(hasForm(ra, "99 99 99.99")) << ra;
    EXPECT_NEAR(sexagesimal(ra) * 15.0, mark.values.RA, 0.005 / 3600.0 * 15.0 + roundingOfTruth);
    EXPECT_EQ(columns(line, 44, 44), " ");

    const std::string de = columns(line, 45, 55 - shift);
    ASSERT_TRUE(hasForm(de, negative ? "-99 99 99.9" : "99 99 99.9")) << de;
    EXPECT_NEAR(sexagesimal(de.substr(negative ? 1 : 0)), std::abs(mark.values.DE),
                0.05 / 3600.0 + roundingOfTruth);
    EXPECT_EQ(columns(line, 56 - shift, 65 - shift), "          ");

    const std::string m = columns(line, 66 - shift, 69 - shift);
    ASSERT_TRUE(hasForm(m, "99.9")) << m;
    EXPECT_NEAR(readInC(m), mark.values.m, 0.05 + roundingOfTruth);
    EXPECT_EQ(columns(line, 70 - shift, 80 - shift), " R      500");
}

void expectMeaLine(const std::string& line, const PublishedMark& mark)
{
    const bool negative = mark.values.DE < 0.0;
    const std::size_t shift = negative ? 0 : 1;
    ASSERT_EQ(line.size(), 58 - shift);
    EXPECT_EQ(columns(line, 1, 8), mark.object + std::string(8 - mark.object.size(), ' '));

    const std::string date = columns(line, 9, 14);
    ASSERT_TRUE(hasForm(date, "999999")) << date;
    EXPECT_EQ(
        mjdOf(2000 + std::stoi(date.substr(4)), std::stoi(date.substr(2, 2)), std::stoi(date.substr(0, 2))),
        mark.values.date);
    // The seconds of the time are cut to three decimals, followed by a zero.
    const std::string time = columns(line, 15, 26);
    ASSERT_TRUE(hasForm(time, " 9999999990 ")) << time;
    const double cut = (mark.values.time) * 86400.0 - packedSexagesimal(time.substr(1, 10)) * 3600.0;
    EXPECT_GT(cut, -roundingOfTruth * 86400.0);
    EXPECT_LT(cut, 0.001 + roundingOfTruth * 86400.0);

    const std::string ra = columns(line, 26, 37);
    ASSERT_TRUE(hasForm(ra, " 9999999999 ")) << ra;
    EXPECT_NEAR(packedSexagesimal(ra.substr(1, 10)) * 15.0, mark.values.RA,
                0.00005 / 3600.0 * 15.0 + roundingOfTruth);

    const std::string de = columns(line, 38, 48 - shift);
    ASSERT_TRUE(hasForm(de, negative ? "-9999999999" : "9999999999")) << de;
    EXPECT_NEAR(packedSexagesimal(de.substr(negative ? 1 : 0)), std::abs(mark.values.DE),
                0.00005 / 3600.0 + roundingOfTruth);
    EXPECT_EQ(columns(line, 49 - shift, 53 - shift), " 001 ");
    const std::string m = columns(line, 54 - shift, 58 - shift);
    ASSERT_TRUE(hasForm(m, "99.99")) << m;
    EXPECT_NEAR(readInC(m), mark.values.m, roundingOfTruth);
}

} // namespace

TEST(RealNights, FixturesAreAllThere)
{
    const auto nights = publishedNights();
    EXPECT_EQ(nights.size(), 102u);
    std::size_t marks = 0;
    for (const auto& [night, truth] : nights) {
        EXPECT_TRUE(exists(fixture("mea_nights/" + night + ".mea"))) << night;
        marks += truth.size();
    }
    EXPECT_EQ(marks, 3241u);
}

TEST(RealNights, ReportsHoldThePublishedMarks)
{
    std::size_t lineCount = 0;
    for (const auto& [night, truth] : publishedNights()) {
        SCOPED_TRACE(night);
        const TemporaryFolder folder;
        const std::vector<std::string> lines = linesOf(converted(night, "mpc", folder));
        ASSERT_EQ(lines.size(), truth.size() + 1);
        EXPECT_EQ(lines[0], "COD 500");
        for (std::size_t i = 0; i < truth.size(); ++i) {
            SCOPED_TRACE(lines[i + 1]);
            expectReportLine(lines[i + 1], truth[i]);
        }
        lineCount += lines.size() - 1;
    }
    EXPECT_EQ(lineCount, 3241u);
}

TEST(RealNights, MeaHoldsThePublishedMarks)
{
    std::size_t lineCount = 0;
    for (const auto& [night, truth] : publishedNights()) {
        SCOPED_TRACE(night);
        const TemporaryFolder folder;
        const std::vector<std::string> lines = linesOf(converted(night, "mea", folder));
        ASSERT_EQ(lines.size(), truth.size() + 1);
        EXPECT_EQ(lines[0], night.substr(0, 3) + " 2000.0 UTC");
        for (std::size_t i = 0; i < truth.size(); ++i) {
            SCOPED_TRACE(lines[i + 1]);
            expectMeaLine(lines[i + 1], truth[i]);
        }
        lineCount += lines.size() - 1;
    }
    EXPECT_EQ(lineCount, 3241u);
}

TEST(RealNights, ReaderTakesTheSouthernLinesOfAReportOnly)
{
    std::size_t markCount = 0;
    for (const auto& [night, truth] : publishedNights()) {
        SCOPED_TRACE(night);
        const TemporaryFolder folder;
        converted(night, "mpc", folder);
        const std::vector<TrackVtorichka> tracks = lMPC(folder / ("out/" + night + ".mpc"));

        // The marks of an object are next to each other in the published file, so one track follows the
        // other.
        std::size_t track = 0;
        std::size_t mark = 0;
        for (const PublishedMark& expected : truth) {
            if (expected.values.DE >= 0.0) {
                continue;
            }
            if (track < tracks.size() && mark == tracks[track].Marks.size()) {
                ++track;
                mark = 0;
            }
            SCOPED_TRACE(expected.object + " " + std::to_string(expected.values.date + expected.values.time));
            ASSERT_LT(track, tracks.size());
            ASSERT_LT(mark, tracks[track].Marks.size());
            EXPECT_EQ(tracks[track].MPCChecker, expected.object);
            EXPECT_EQ(tracks[track].MPCHeader.COD, "500");
            const TRecLabelPervichka_File read = tracks[track].Marks[mark];
            EXPECT_EQ(int(read.date), expected.values.date);
            EXPECT_NEAR(double(read.time), expected.values.time, 0.000005 + roundingOfTruth);
            EXPECT_NEAR(double(read.RA), expected.values.RA, 0.005 / 3600.0 * 15.0 + roundingOfTruth);
            EXPECT_NEAR(double(read.DE), expected.values.DE, 0.05 / 3600.0 + roundingOfTruth);
            EXPECT_NEAR(double(read.m), expected.values.m, 0.05 + roundingOfTruth);
            EXPECT_EQ(std::string(read.filtr), "R");
            ++mark;
            ++markCount;
        }
        if (track < tracks.size()) {
            EXPECT_EQ(mark, tracks[track].Marks.size());
            EXPECT_EQ(track + 1, tracks.size());
        }
    }
    EXPECT_EQ(markCount, 826u);
}
