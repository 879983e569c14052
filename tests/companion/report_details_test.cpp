// The headers and the observations of a report in 80 columns.

#include "reading/report_details.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using companion::ReportDetails;

const std::string observation =
    "     K24Y04R  C2025 02 23.51234 12 30 12.34 -01 20 30.1          18.5 G      L01\n";

ReportDetails detailsOf(const std::string& report)
{
    return readBy([](const std::string& path) { return companion::reportDetails(path); }, report);
}

} // namespace

TEST(ReportDetails, NamesAndCommentsGoOnInFurtherLines)
{
    const ReportDetails details = detailsOf("COD L01\nOBS A. Bee\nOBS C. Dee\nMEA E. Eff\nMEA G. Aitch\nCOM\n"
                                            "COM one\nCOM two\nNET Gaia-DR2\nNET Gaia-DR3\n" +
                                            observation);
    ASSERT_EQ(details.lines.count(11), 1U);
    const companion::Observatory& header = *details.lines.at(11).header;
    EXPECT_EQ(header.observers, "A. Bee, C. Dee");
    EXPECT_EQ(header.measurers, "E. Eff, G. Aitch");
    EXPECT_EQ(header.comment, "one\ntwo");
    EXPECT_EQ(header.astrometricCatalogue, "Gaia-DR3");
    EXPECT_FALSE(details.isOfAnother);
}

TEST(ReportDetails, ALineWithADigitForTheSignHasItsFieldsElsewhere)
{
    std::string wide = observation;
    wide[44] = '1';
    const ReportDetails details = detailsOf(wide + observation);
    EXPECT_EQ(details.lines.at(1).line, "");
    EXPECT_EQ(details.lines.at(1).station, "L01");
    EXPECT_EQ(details.lines.at(2).line + '\n', observation);
    EXPECT_FALSE(details.isOfAnother);
}

// Its marks are read from this text too.
TEST(ReportDetails, ReportInWideCharactersOrWithCarriageReturnsAloneIsReadAsPlainText)
{
    const std::string report = "COD L01\nOBS A. Bee\n" + observation;
    std::string wide = "\xFF\xFE";
    std::string returns;
    for (const char letter : report) {
        wide += {letter, '\0'};
        returns += letter == '\n' ? '\r' : letter;
    }
    for (const std::string& bytes : {wide, returns}) {
        const ReportDetails details = detailsOf(bytes);
        ASSERT_EQ(details.lines.count(3), 1U);
        EXPECT_EQ(details.lines.at(3).station, "L01");
        EXPECT_EQ(details.lines.at(3).header->observers, "A. Bee");
    }
}
