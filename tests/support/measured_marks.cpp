#include "support/measured_marks.h"
#include "support/locales.h"

#include "support/places.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <cstddef>
#include <iomanip>
#include <limits>
#include <ostream>
#include <sstream>

using tavelinUtils::TRecLabelPervichka_File;

namespace {

// The fields that no reader of measurements sets, as `expectMark` compares them.
struct Unmeasured
{
    int iF, iB, LinkIndex, bjd;
    double X_f, mInstr, time_bjd, AuxValue, RefValue1, RefValue4, RefValue9;
    std::string mjd, QRVID, MTYPE, CNAME, CHART;

    bool operator==(const Unmeasured&) const = default;
};

std::ostream& operator<<(std::ostream& out, const Unmeasured& values)
{
    out << values.iF << ' ' << values.iB << ' ' << values.LinkIndex << ' ' << values.bjd;
    for (const double number : {values.X_f, values.mInstr, values.time_bjd, values.AuxValue, values.RefValue1,
                                values.RefValue4, values.RefValue9})
    {
        out << ' ' << number;
    }
    for (const std::string& text : {values.mjd, values.QRVID, values.MTYPE, values.CNAME, values.CHART}) {
        out << " \"" << text << '"';
    }
    return out;
}

Unmeasured unmeasured(const TRecLabelPervichka_File& mark)
{
    return {mark.iF,       mark.iB,       mark.LinkIndex, mark.bjd,       mark.X_f,       mark.mInstr,
            mark.time_bjd, mark.AuxValue, mark.RefValue1, mark.RefValue4, mark.RefValue9, mark.mjd,
            mark.QRVID,    mark.MTYPE,    mark.CNAME,     mark.CHART};
}

std::vector<std::string> cellsOf(const std::string& line)
{
    std::vector<std::string> cells;
    std::istringstream row(line);
    for (std::string cell; std::getline(row, cell, ',');) {
        cells.push_back(cell);
    }
    return cells;
}

} // namespace

std::ostream& operator<<(std::ostream& out, const Measured& values)
{
    const std::streamsize before = out.precision(std::numeric_limits<double>::max_digits10);
    out << "{date " << values.date << ", time " << values.time << ", RA " << values.RA << ", DE " << values.DE
        << ", m " << values.m << '}';
    out.precision(before);
    return out;
}

Measured measured(const TRecLabelPervichka_File& mark)
{
    return {mark.date, mark.time, mark.RA, mark.DE, mark.m};
}

testing::AssertionResult isAbout(const Measured& values, const Measured& expected)
{
    const auto matcher =
        testing::AllOf(testing::Field("date", &Measured::date, expected.date),
                       testing::Field("time", &Measured::time, testing::DoubleEq(expected.time)),
                       testing::Field("RA", &Measured::RA, testing::DoubleEq(expected.RA)),
                       testing::Field("DE", &Measured::DE, testing::DoubleEq(expected.DE)),
                       testing::Field("m", &Measured::m, testing::DoubleEq(expected.m)));
    testing::StringMatchResultListener listener;
    if (testing::ExplainMatchResult(matcher, values, &listener)) {
        return testing::AssertionSuccess() << values;
    }
    return testing::AssertionFailure() << values << " instead of " << expected << ", " << listener.str();
}

void expectMark(const TRecLabelPervichka_File& mark, const Measured& expected, const std::string& filtr)
{
    EXPECT_TRUE(isAbout(measured(mark), expected));
    EXPECT_EQ(std::string(mark.filtr), filtr);
    EXPECT_EQ(unmeasured(mark), unmeasured({}));
}

TRecLabelPervichka_File theMark()
{
    return {.date = 60000, .time = 0.5, .RA = 15.0, .DE = -0.5, .m = 9.5};
}

void expectTheMark(const TRecLabelPervichka_File& mark)
{
    expectMark(mark, measured(theMark()));
}

std::vector<PublishedMark> publishedMarks()
{
    std::vector<PublishedMark> marks;
    std::istringstream lines(bytesOf(fixture("mea_nights/truth.csv")));
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line, "object,mjd,ra_deg,dec_deg,mag,band,station,night,source");
    while (std::getline(lines, line)) {
        const std::vector<std::string> cells = cellsOf(line);
        if (cells.size() != 9) {
            ADD_FAILURE() << line;
            continue;
        }
        const std::string& mjd = cells[1];
        marks.push_back({cells[0],
                         cells[6] + "_" + cells[7],
                         {std::stoi(mjd), readInC("0" + mjd.substr(mjd.find('.'))), readInC(cells[2]),
                          readInC(cells[3]), readInC(cells[4])}});
    }
    return marks;
}

std::vector<PublishedMark> publishedMarks(const std::string& night)
{
    std::vector<PublishedMark> marks = publishedMarks();
    std::erase_if(marks, [&night](const PublishedMark& mark) { return mark.night != night; });
    return marks;
}

void expectPublished(const std::vector<TRecLabelPervichka_File>& marks,
                     const std::vector<PublishedMark>& published, const Tolerance& tolerance)
{
    constexpr double rounding = 1e-9;
    ASSERT_EQ(marks.size(), published.size());
    for (std::size_t i = 0; i < published.size(); ++i) {
        SCOPED_TRACE("mark " + std::to_string(i));
        const Measured values = measured(marks[i]);
        const Measured& expected = published[i].values;
        EXPECT_EQ(values.date, expected.date);
        EXPECT_NEAR(values.time, expected.time, tolerance.time / 86400.0 + rounding);
        EXPECT_NEAR(values.RA, expected.RA, tolerance.RA / 240.0 + rounding);
        EXPECT_NEAR(values.DE, expected.DE, tolerance.DE / 3600.0 + rounding);
        EXPECT_NEAR(values.m, expected.m, tolerance.m + rounding);
    }
}
