#include "results/failure_saving.h"

#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Lines = std::vector<std::string>;
using Names = std::set<std::string>;

/// A failure with texts of its own.
TFuncRes lostFrame()
{
    TFuncRes result;
    result.Code = 5;
    result.Comment = "no stars";
    result.Description = "a.fit & co";
    result.Details = {"never shown"};
    return result;
}

/// The document of that failure.
std::string lostFrameDocument()
{
    return resultDocument(5, "no stars", "a.fit &amp; co");
}

/// A folder with the folders "s" of sources and "r" of results.
class FailureSaving : public testing::Test
{
protected:
    FailureSaving()
    {
        std::filesystem::create_directory(folder / "s");
        std::filesystem::create_directory(folder / "r");
    }

    const TemporaryFolder folder;
};

} // namespace

TEST_F(FailureSaving, FailureGoesToThreePathsEachInItsForm)
{
    tavelinExceptionsAct(7, "in/night.mea", folder / "a.log", folder / "s/b.xml", folder / "r/c.result");
    EXPECT_EQ(filesBelow(folder.path()), (Names{"a.log", "r/c.result", "s/b.xml"}));
    EXPECT_EQ(logOf(folder / "a.log"), Lines{"Code=7//Error opening file//in/night.mea"});
    const std::string document = resultDocument(7, "Error opening file", "in/night.mea");
    EXPECT_EQ(resultOf(folder / "s/b.xml"), document);
    EXPECT_EQ(resultOf(folder / "r/c.result"), document);
}

TEST_F(FailureSaving, LogsGrowAndDocumentsAreReplaced)
{
    for (const int code : {1, 4, 6}) {
        tavelinExceptionsAct(code, "a.fit", folder / "a.log", folder / "b.xml", folder / "c.result");
    }
    EXPECT_EQ(logOf(folder / "a.log"),
              (Lines{"Code=1//Parameter file does not exist//a.fit", "Code=4//File does not exist//a.fit",
                     "Code=6//Directory does not exist//a.fit"}));
    const std::string document = resultDocument(6, "Directory does not exist", "a.fit");
    EXPECT_EQ(resultOf(folder / "b.xml"), document);
    EXPECT_EQ(resultOf(folder / "c.result"), document);
}

TEST_F(FailureSaving, OnePathGivenThreeTimesGetsThreeLines)
{
    const std::string log = folder / "a.log";
    tavelinExceptionsAct(4, "a.fit", log, log, log);
    EXPECT_EQ(logOf(log), Lines(3, "Code=4//File does not exist//a.fit"));
}

TEST_F(FailureSaving, EmptyDescriptionBecomesTheTextOfTheCode)
{
    tavelinExceptionsAct(7, "", folder / "a.log", folder / "b.log", folder / "c.log");
    for (const char* name : {"a.log", "b.log", "c.log"}) {
        EXPECT_EQ(logOf(folder / name), Lines{"Code=7//Error opening file//Error opening file"}) << name;
    }
}

TEST_F(FailureSaving, CodeWithoutTextIsSavedAsUnknown)
{
    tavelinExceptionsAct(-4, "", folder / "a.log", "", "");
    tavelinExceptionsAct(140, "a.fit", folder / "a.log", "", "");
    EXPECT_EQ(logOf(folder / "a.log"),
              (Lines{"Code=-4//UnknownErr//UnknownErr", "Code=140//UnknownErr//a.fit"}));
}

TEST_F(FailureSaving, PathThatCannotBeWrittenLeavesTheOthers)
{
    std::filesystem::create_directory(folder / "folder.xml");
    std::filesystem::create_directory(folder / "folder.log");
    const std::string paths[] = {"",
                                 folder / "missing/a.log",
                                 folder / "missing/a.xml",
                                 folder / "folder.xml",
                                 folder / "folder.log",
                                 "bare_name_of_no_folder.log",
                                 "bare_name_of_no_folder.xml"};
    Lines expected;
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        EXPECT_NO_THROW(tavelinExceptionsAct(4, "1", path, folder / "a.log", folder / "b.log"));
        EXPECT_NO_THROW(tavelinExceptionsAct(4, "2", folder / "a.log", path, folder / "b.log"));
        EXPECT_NO_THROW(tavelinExceptionsAct(4, "3", folder / "a.log", folder / "b.log", path));
        for (const char* description : {"1", "2", "3"}) {
            expected.push_back("Code=4//File does not exist//" + std::string(description));
        }
        EXPECT_FALSE(exists("bare_name_of_no_folder.log"));
        EXPECT_FALSE(exists("bare_name_of_no_folder.xml"));
    }
    EXPECT_EQ(logOf(folder / "a.log"), expected);
    EXPECT_EQ(logOf(folder / "b.log"), expected);
    EXPECT_EQ(filesBelow(folder.path()), (Names{"a.log", "b.log"}));
}

TEST_F(FailureSaving, ResultFileThatStandsGetsTheFailureToo)
{
    makeFile(folder / "r/a.result", "an older result");
    SaveExceptLogCode(folder / "s/a.fit", folder / "r/a.result", lostFrame());
    EXPECT_EQ(filesBelow(folder.path()), (Names{"r/LOG_a.xml", "r/a.result"}));
    EXPECT_EQ(resultOf(folder / "r/a.result"), lostFrameDocument());
    EXPECT_EQ(resultOf(folder / "r/LOG_a.xml"), lostFrameDocument());
}

TEST_F(FailureSaving, TextLogThatStandsGetsALine)
{
    makeFile(folder / "r/a.log", "2024-03-09 04:05:06.000789 started\n");
    SaveExceptLogCode(folder / "s/a.fit", folder / "r/a.log", lostFrame());
    EXPECT_EQ(logOf(folder / "r/a.log"), (Lines{"started", "Code=5//no stars//a.fit & co"}));
    EXPECT_EQ(resultOf(folder / "r/LOG_a.xml"), lostFrameDocument());
}

TEST_F(FailureSaving, MissingResultFileIsNotMade)
{
    SaveExceptLogCode(folder / "s/a.fit", folder / "r/a.result", lostFrame());
    EXPECT_EQ(filesBelow(folder.path()), Names{"r/LOG_a.xml"});
    EXPECT_EQ(resultOf(folder / "r/LOG_a.xml"), lostFrameDocument());
}

TEST_F(FailureSaving, MissingResultFolderSendsTheFailureToTheSource)
{
    SaveExceptLogCode(folder / "s/a.fit", folder / "missing/a.result", lostFrame());
    EXPECT_EQ(filesBelow(folder.path()), Names{"s/LOG_a.xml"});
    EXPECT_EQ(resultOf(folder / "s/LOG_a.xml"), lostFrameDocument());
    EXPECT_FALSE(exists(folder / "missing"));
}

TEST_F(FailureSaving, NoFolderAtAllGetsNothingInSilence)
{
    EXPECT_NO_THROW(SaveExceptLogCode(folder / "no/a.fit", folder / "missing/a.result", lostFrame()));
    EXPECT_NO_THROW(SaveExceptLogCode("", "", lostFrame()));
    EXPECT_NO_THROW(SaveExceptLogCode("bare_source.fit", "bare.result", lostFrame()));
    EXPECT_TRUE(filesBelow(folder.path()).empty());
    EXPECT_FALSE(exists(folder / "missing"));
    EXPECT_FALSE(exists(folder / "no"));
    EXPECT_FALSE(exists("LOG_bare_source.xml"));
    EXPECT_FALSE(exists("bare.result"));
}

TEST_F(FailureSaving, LogIsNamedAfterTheSource)
{
    constexpr struct
    {
        const char* source;
        const char* log;
    } names[] = {
        {"frame.fit", "LOG_frame.xml"},
        {"frame", "LOG_frame.xml"},
        {"m31.0001.fit", "LOG_m31.0001.xml"},
        {"LOG_frame.xml", "LOG_LOG_frame.xml"},
        {".hidden", "LOG_.xml"},
        {"two words.fit", "LOG_two words.xml"},
    };
    for (const auto& [source, log] : names) {
        SCOPED_TRACE(source);
        SaveExceptLogCode(folder / "s" + "/" + source, folder / "r/a.result", lostFrame());
        EXPECT_EQ(filesBelow(folder.path()), Names{"r/" + std::string(log)});
        std::filesystem::remove(folder / "r" + "/" + log);
    }
}

TEST_F(FailureSaving, PointInTheFolderOfTheSourceStays)
{
    std::filesystem::create_directory(folder / "night.1");
    SaveExceptLogCode(folder / "night.1/frame", folder / "missing/a.result", lostFrame());
    EXPECT_EQ(filesBelow(folder.path()), Names{"night.1/LOG_frame.xml"});
}

TEST_F(FailureSaving, SourceInTheOtherSpellingIsCutToo)
{
    SaveExceptLogCode("D:\\frames\\a.fit", folder / "r/a.result", lostFrame());
    EXPECT_EQ(filesBelow(folder.path()), Names{"r/LOG_a.xml"});
}

TEST_F(FailureSaving, ResultThatIsTheLogItselfHoldsTheFailureAlone)
{
    makeFile(folder / "r/LOG_a.xml", "an older result");
    SaveExceptLogCode(folder / "s/a.fit", folder / "r/LOG_a.xml", lostFrame());
    EXPECT_EQ(resultOf(folder / "r/LOG_a.xml"), lostFrameDocument());
    EXPECT_EQ(filesBelow(folder.path()), Names{"r/LOG_a.xml"});
}

TEST_F(FailureSaving, LogOfAnEarlierFailureIsReplaced)
{
    makeFile(folder / "r/LOG_a.xml", std::string(9000, 'x'));
    SaveExceptLogCode(folder / "s/a.fit", folder / "r/a.result", lostFrame());
    EXPECT_EQ(resultOf(folder / "r/LOG_a.xml"), lostFrameDocument());
}

TEST_F(FailureSaving, FolderInPlaceOfTheLogIsPassedOver)
{
    makeFile(folder / "r/a.result", "");
    std::filesystem::create_directory(folder / "r/LOG_a.xml");
    EXPECT_NO_THROW(SaveExceptLogCode(folder / "s/a.fit", folder / "r/a.result", lostFrame()));
    EXPECT_EQ(filesBelow(folder.path()), Names{"r/a.result"});
    EXPECT_EQ(resultOf(folder / "r/a.result"), lostFrameDocument());
    EXPECT_TRUE(std::filesystem::is_empty(folder / "r/LOG_a.xml"));
}

TEST_F(FailureSaving, FolderInPlaceOfTheResultIsPassedOver)
{
    std::filesystem::create_directory(folder / "r/a.result");
    EXPECT_NO_THROW(SaveExceptLogCode(folder / "s/a.fit", folder / "r/a.result", lostFrame()));
    EXPECT_EQ(filesBelow(folder.path()), Names{"r/LOG_a.xml"});
    EXPECT_TRUE(std::filesystem::is_directory(folder / "r/a.result"));
}
