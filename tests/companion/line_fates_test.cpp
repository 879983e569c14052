// The fates of lines, and what reads a file of each format.

#include "reading/line_fates.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

namespace {

using companion::LineFates;
using tavelinUtils::LineFate;
using tavelinUtils::PassedReason;

// The fate of a line of a file that is read for its fates alone.
LineFate fateOf(const std::string& format, const std::string& bytes, std::size_t line)
{
    const TemporaryFolder folder;
    makeFile(folder / "file", bytes);
    LineFates fates;
    companion::readWithFates({folder / "file", format, "", {}}, fates);
    return fates.fate(line);
}

} // namespace

TEST(LineFates, LinesThatNothingWasToldOfArePassed)
{
    LineFates fates;
    fates.settled({2, LineFate::lost, PassedReason::replaced});
    EXPECT_EQ(fates.fate(2), LineFate::lost);
    EXPECT_EQ(fates.reason(2), PassedReason::replaced);
    for (const std::size_t line : {1U, 3U}) {
        EXPECT_EQ(fates.fate(line), LineFate::passed) << line;
        EXPECT_EQ(fates.reason(line), PassedReason::none) << line;
    }
}

TEST(LineFates, FilesAreReadForTheirFatesAlone)
{
    EXPECT_EQ(fateOf("tdm.xml", "<tdm>\n<MAG>18.5</MAG>\n</tdm>\n", 2), LineFate::mark);
    EXPECT_EQ(fateOf("horizons", "$$SOE\n", 1), LineFate::head);
    EXPECT_EQ(fateOf("ades.xml", "<ades>\n</radar>\n</ades>\n", 2), LineFate::mark);
}

TEST(LineFates, AFormatWithoutAReaderIsAFaultOfTheCaller)
{
    LineFates fates;
    EXPECT_THROW(companion::readWithFates({"file", "other", "", {}}, fates), std::logic_error);
}
