#include "base/numbers.h"
#include "config/xml_document.h"
#include "formats/mea.h"
#include "text/number_text.h"

#include "support/locales.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <limits>
#include <string>

using namespace tavelinUtils;

namespace {

/// Texts that are too odd for the short way of reading, and what they mean with a decimal point.
struct OddNumber
{
    std::string text;
    double value;
};

const OddNumber oddNumbers[] = {
    {"1.5e2", 150.0},
    {"-2.5E-1", -0.25},
    {"0.1234567890123456789012", 0.1234567890123456789012},
    {"0x1.8p1", 3.0},
    {"12.5x", 12.5},
    {" \t7.25e0 ", 7.25},
    {"1234567890123456789.5", 1234567890123456768.0},
    {"1,5", 1.0},
    {"1,5e2", 1.0},
    {"-0x.8", -0.5},
    {"1.5e400", std::numeric_limits<double>::infinity()},
    {std::string(100, '0') + "2.5", 2.5},
};

class NumbersLocale : public testing::TestWithParam<const char*>
{
protected:
    ProcessLocale locale{GetParam()};
};

std::string localeName(const testing::TestParamInfo<const char*>& locale)
{
    return std::string(locale.param).substr(0, 2);
}

INSTANTIATE_TEST_SUITE_P(AllOthers, NumbersLocale, testing::ValuesIn(otherLocales), localeName);

} // namespace

// Else the tests below would hold in any program.
TEST_P(NumbersLocale, HasACommaBeforeItsDecimals)
{
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
    EXPECT_EQ(std::strtod("1.5", nullptr), 1.0);
}

TEST_P(NumbersLocale, PointsArePointsWhateverTheLocaleOfTheProcess)
{
    for (const OddNumber& row : oddNumbers) {
        EXPECT_EQ(toDouble(row.text), row.value) << row.text;
    }
}

TEST_P(NumbersLocale, NumbersAreWrittenWithPointsAndWithoutGroups)
{
    TextBuffer text;
    appendFixed(text, -1234567.25, 2);
    EXPECT_EQ(text.str(), "-1234567.25");
    EXPECT_EQ(FloatToStr(-1234.25), "-1234.25");
    EXPECT_EQ(IntToStr(1234567), "1234567");
}

TEST_P(NumbersLocale, ValuesOfXmlFilesAreReadWithPoints)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<a><b>1.5e2</b></a>");
    TtavelinXmlDocument document(folder / "a.xml");
    ASSERT_TRUE(document.LoadFile());
    double value = 0;
    GetText(document.FirstChildElement(), "b", value);
    EXPECT_EQ(value, 150.0);
}

TEST_P(NumbersLocale, LibraryLeavesTheLocaleAlone)
{
    EXPECT_EQ(toDouble("1.5e2"), 150.0);
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), GetParam());
    EXPECT_STREQ(std::localeconv()->decimal_point, ",");
}

// By contract the reader of MEA files puts the numbers of the process, and those alone, into the "C" locale.
TEST_P(NumbersLocale, ReaderOfMeaFilesPutsTheNumericLocaleToC)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.mea", "T1 2000.0 UTC\n12345 250223 1200000000 0100000000 -0030000000 001 09.50\n");
    EXPECT_EQ(plMEATrack(folder / "a.mea", "").size(), 1U);
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
    EXPECT_STREQ(std::setlocale(LC_TIME, nullptr), GetParam());
}
