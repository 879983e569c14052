#include "format_words.h"

#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

std::vector<TrackVtorichka> oneTrack()
{
    return {trackNamed("12345", {{.date = 60000, .time = 0.5, .RA = 15.0, .DE = -0.5, .m = 9.5}})};
}

} // namespace

TEST(FormatWords, EachWordHasItsNumber)
{
    const struct
    {
        const char* word;
        int number;
    } rows[] = {{"mea", 0}, {"telegram", 1}, {"tdm", 2}, {"ssmas", 3},
                {"mpc", 4}, {"tdm.xml", 5},  {"mag", 6}, {"aavso", 7}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.word);
        EXPECT_EQ(formatOpticMea_to_int(row.word), row.number);
        ASSERT_NE(formatWord(row.number), nullptr);
        EXPECT_STREQ(formatWord(row.number)->word, row.word);
    }
}

TEST(FormatWords, EveryOtherTextHasNoNumber)
{
    const std::string texts[] = {"",        "MEA",      "Mea",        "mea ",       " mea",
                                 "me",      "meas",     "mea\n",      "0",          "TDM",
                                 "tdm.XML", "tdmxml",   "tdm xml",    "tdm.",       ".xml",
                                 "xml",     "Telegram", "telegramma", "SSMAS",      "MPC",
                                 "Mag",     "AAVSO",    "vomar",      "mea,mpc",    std::string("mea\0", 4),
                                 "txt",     "unknown",  "mpc.txt",    "tdm.xml.xml"};
    for (const std::string& text : texts) {
        SCOPED_TRACE("\"" + text + "\"");
        EXPECT_EQ(formatOpticMea_to_int(text), -1);
    }
}

TEST(FormatWords, NumbersOutsideTheTableHaveNoRow)
{
    for (const int number : {-2147483647 - 1, -2, -1, 8, 9, 100, 2147483647}) {
        SCOPED_TRACE(number);
        EXPECT_EQ(formatWord(number), nullptr);
    }
}

TEST(FormatWords, OutputOnlyWordsHaveNoReader)
{
    for (const char* word : {"mpc", "tdm.xml", "mag", "aavso"}) {
        SCOPED_TRACE(word);
        const FormatWord* row = formatWord(formatOpticMea_to_int(word));
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(row->read, nullptr);
    }
}

TEST(FormatWords, ReaderOfMeaStampsTheOriginator)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.mea", "T1 2000.0 UTC\n12345   250223 1200000000 0100000000 -0030000000 001 09.50\n");
    const FormatWord* row = formatWord(0);
    ASSERT_NE(row, nullptr);
    ASSERT_NE(row->read, nullptr);
    const NextTrack next = row->read(folder / "a.mea", "somebody");
    std::vector<TrackVtorichka> tracks(2);
    ASSERT_TRUE(next(tracks[0]));
    EXPECT_FALSE(next(tracks[1]));
    EXPECT_EQ(tracks[0].QRVName, "12345");
    EXPECT_EQ(tracks[0].NORAD, "12345");
    EXPECT_EQ(tracks[0].telescope, "T1");
    EXPECT_EQ(tracks[0].originator, "somebody");
    ASSERT_EQ(tracks[0].Marks.size(), 1u);
    EXPECT_EQ(int(tracks[0].Marks[0].date), 60000);
    EXPECT_DOUBLE_EQ(double(tracks[0].Marks[0].time), 0.5);
    EXPECT_DOUBLE_EQ(double(tracks[0].Marks[0].RA), 15.0);
    EXPECT_DOUBLE_EQ(double(tracks[0].Marks[0].DE), -0.5);
    EXPECT_DOUBLE_EQ(double(tracks[0].Marks[0].m), 9.5);
}

TEST(SelectFormatAndSave, MeaWritesMea)
{
    const TemporaryFolder folder;
    std::vector<TrackVtorichka> tracks = oneTrack();
    const TFuncRes result = SelectFormatAndSave(folder / "a.txt", "mea", tracks);
    EXPECT_EQ(result.Code, 0);
    EXPECT_EQ(result.Comment, "OK");
    EXPECT_EQ(result.Description, "OK");
    EXPECT_TRUE(result.Details.empty());
    EXPECT_EQ(bytesOf(folder / "a.txt"),
              "telescope 2000.0 UTC\n12345   250223 1200000000 0100000000 -0030000000 001 09.50\n");
}

TEST(SelectFormatAndSave, MpcWritesAnMpcReport)
{
    const TemporaryFolder folder;
    std::vector<TrackVtorichka> tracks = oneTrack();
    const TFuncRes result = SelectFormatAndSave(folder / "a", "mpc", tracks);
    EXPECT_EQ(result.Code, 0);
    EXPECT_EQ(result.Comment, "OK");
    EXPECT_EQ(result.Description, "OK");
    EXPECT_EQ(bytesOf(folder / "a"),
              "COD 500\n"
              "12345         C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500\n");
}

TEST(SelectFormatAndSave, FileIsReplaced)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.mea", std::string(5000, 'x'));
    std::vector<TrackVtorichka> tracks = oneTrack();
    SelectFormatAndSave(folder / "a.mea", "mea", tracks);
    EXPECT_EQ(bytesOf(folder / "a.mea"),
              "telescope 2000.0 UTC\n12345   250223 1200000000 0100000000 -0030000000 001 09.50\n");
}

TEST(SelectFormatAndSave, UnknownWordWritesNothing)
{
    const TemporaryFolder folder;
    for (const char* word : {"", "MEA", "vomar", "tdm.XML", "mea "}) {
        SCOPED_TRACE(word);
        std::vector<TrackVtorichka> tracks = oneTrack();
        const TFuncRes result = SelectFormatAndSave(folder / "a.mea", word, tracks);
        EXPECT_EQ(result.Code, -2);
        EXPECT_EQ(result.Comment, "unknown output format");
        EXPECT_EQ(result.Description, "format_out");
        EXPECT_TRUE(result.Details.empty());
        EXPECT_FALSE(exists(folder / "a.mea"));
    }
}

TEST(SelectFormatAndSave, EmptyListLeavesAnExistingFile)
{
    const TemporaryFolder folder;
    for (const char* word : {"mea", "mpc"}) {
        SCOPED_TRACE(word);
        makeFile(folder / "old", "old\n");
        std::vector<TrackVtorichka> none;
        EXPECT_EQ(SelectFormatAndSave(folder / "old", word, none).Code, 0);
        EXPECT_EQ(SelectFormatAndSave(folder / "new", word, none).Code, 0);
        EXPECT_EQ(bytesOf(folder / "old"), "old\n");
        EXPECT_FALSE(exists(folder / "new"));
    }
}

TEST(SelectFormatAndSave, FailedWriteThrows)
{
    const TemporaryFolder folder;
    for (const char* word : {"mea", "mpc"}) {
        SCOPED_TRACE(word);
        std::vector<TrackVtorichka> tracks = oneTrack();
        try {
            SelectFormatAndSave(folder / "missing/a", word, tracks);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const TavelinException& failure) {
            EXPECT_EQ(failure.getCode(), 7);
            EXPECT_STREQ(failure.what(), "Error opening file");
            EXPECT_EQ(failure.getComment(), folder / "missing/a");
        }
        EXPECT_FALSE(exists(folder / "missing"));
    }
}
