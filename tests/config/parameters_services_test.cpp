#include "config/parameters_services.h"

#include "support/parameter_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

const std::vector<WrittenFile> writtenFiles = {
    {"sThresIntraXML",
     [](const std::string& path) {
         return sThresIntraXML(path, "PO", Texts{"/data/1.fit", "/data/2.fit"}, "/conf/t.xml", "/out/res.xml",
                               "/out/po.log", "/out/pid");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<TaVeLinPattern>\n"
     "    <PO>\n"
     "        <ProcessingType>PO</ProcessingType>\n"
     "        <FitsList>\n"
     "            <string>/data/1.fit</string>\n"
     "            <string>/data/2.fit</string>\n"
     "        </FitsList>\n"
     "        <ConfigTavelinPath>/conf/t.xml</ConfigTavelinPath>\n"
     "        <ResPath>/out/res.xml</ResPath>\n"
     "        <LogPath>/out/po.log</LogPath>\n"
     "        <PIDPath>/out/pid</PIDPath>\n"
     "    </PO>\n"
     "</TaVeLinPattern>\n"},
    {"sThresIntraXML without frames",
     [](const std::string& path) { return sThresIntraXML(path, "", Texts{}, " a ", "<b>", "c & d", "\"e'"); },
     "<?xml version=\"1.0\" ?>\n"
     "<TaVeLinPattern>\n"
     "    <PO>\n"
     "        <ProcessingType></ProcessingType>\n"
     "        <FitsList />\n"
     "        <ConfigTavelinPath> a </ConfigTavelinPath>\n"
     "        <ResPath>&lt;b&gt;</ResPath>\n"
     "        <LogPath>c &amp; d</LogPath>\n"
     "        <PIDPath>&quot;e&apos;</PIDPath>\n"
     "    </PO>\n"
     "</TaVeLinPattern>\n"},
    {"sThresInterXML",
     [](const std::string& path) {
         return sThresInterXML(path, "VO", "/out/res.xml", "/out/vo.log", "/out/pid", "/serie/1",
                               "/conf/t.xml", "/past", "/out/task.xml",
                               Texts{"/data/1.fit", " /data/2.fit "});
     },
     "<?xml version=\"1.0\" ?>\n"
     "<TaVeLinPattern>\n"
     "    <ProcessingType>VO</ProcessingType>\n"
     "    <ResPath>/out/res.xml</ResPath>\n"
     "    <LogPath>/out/vo.log</LogPath>\n"
     "    <PIDPath>/out/pid</PIDPath>\n"
     "    <SeriePath>/serie/1</SeriePath>\n"
     "    <ConfigTavelinPath>/conf/t.xml</ConfigTavelinPath>\n"
     "    <PastPath>/past</PastPath>\n"
     "    <TaskPath>/out/task.xml</TaskPath>\n"
     "    <FitsList>\n"
     "        <string>/data/1.fit</string>\n"
     "        <string> /data/2.fit </string>\n"
     "    </FitsList>\n"
     "</TaVeLinPattern>\n"},
    {"sThresInterXML without frames",
     [](const std::string& path) {
         return sThresInterXML(path, "a", "b", "c", "d", "e", "f", "g", "h", Texts{});
     },
     "<?xml version=\"1.0\" ?>\n"
     "<TaVeLinPattern>\n"
     "    <ProcessingType>a</ProcessingType>\n"
     "    <ResPath>b</ResPath>\n"
     "    <LogPath>c</LogPath>\n"
     "    <PIDPath>d</PIDPath>\n"
     "    <SeriePath>e</SeriePath>\n"
     "    <ConfigTavelinPath>f</ConfigTavelinPath>\n"
     "    <PastPath>g</PastPath>\n"
     "    <TaskPath>h</TaskPath>\n"
     "    <FitsList />\n"
     "</TaVeLinPattern>\n"},
    {"sStorageUpDownLoad",
     [](const std::string& path) {
         return sStorageUpDownLoad(path, "upload", "lctask", "/data/1.fit", "/out/s3.log", "/out/res.xml",
                                   "/store", "series/1", "s3://place", "11", "22", "33", "1.fit");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<S3UpDownLoad>\n"
     "    <Mode list=\"upload,download\">upload</Mode>\n"
     "    <TaskType list=\"input,output,result,settings,service,lctask\">lctask</TaskType>\n"
     "    <LocalFileName>/data/1.fit</LocalFileName>\n"
     "    <LogPath>/out/s3.log</LogPath>\n"
     "    <ResPath>/out/res.xml</ResPath>\n"
     "    <LocalStorage>/store</LocalStorage>\n"
     "    <PathStorage>series/1</PathStorage>\n"
     "    <S3Path>s3://place</S3Path>\n"
     "    <IDuser>11</IDuser>\n"
     "    <IDproject>22</IDproject>\n"
     "    <IDseria>33</IDseria>\n"
     "    <FileName>1.fit</FileName>\n"
     "</S3UpDownLoad>\n"},
    // The words are written as given, not checked.
    {"sStorageUpDownLoad with words that are not in the lists",
     [](const std::string& path) {
         return sStorageUpDownLoad(path, "", " other ", "", "", "", "", "", "", "", "", "", "");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<S3UpDownLoad>\n"
     "    <Mode list=\"upload,download\"></Mode>\n"
     "    <TaskType list=\"input,output,result,settings,service,lctask\"> other </TaskType>\n"
     "    <LocalFileName></LocalFileName>\n"
     "    <LogPath></LogPath>\n"
     "    <ResPath></ResPath>\n"
     "    <LocalStorage></LocalStorage>\n"
     "    <PathStorage></PathStorage>\n"
     "    <S3Path></S3Path>\n"
     "    <IDuser></IDuser>\n"
     "    <IDproject></IDproject>\n"
     "    <IDseria></IDseria>\n"
     "    <FileName></FileName>\n"
     "</S3UpDownLoad>\n"},
    {"sConvToTable",
     [](const std::string& path) {
         return sConvToTable(path, "bin", "/out/table.log", "/out/res.xml", "/out/1.tableblob",
                             "/blobs/1.bin", "/data/1.fit", "/conf/t.xml");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<ConvToTableSettings>\n"
     "    <Mode>bin</Mode>\n"
     "    <LogPath>/out/table.log</LogPath>\n"
     "    <ResPath>/out/res.xml</ResPath>\n"
     "    <BlobTablePath>/out/1.tableblob</BlobTablePath>\n"
     "    <BlobBinPath>/blobs/1.bin</BlobBinPath>\n"
     "    <FitPath>/data/1.fit</FitPath>\n"
     "    <ConfigTavelinPath>/conf/t.xml</ConfigTavelinPath>\n"
     "</ConvToTableSettings>\n"},
    {"sSATChecker",
     [](const std::string& path) {
         return sSATChecker(path, "/out/sat.txt", "/out/res.xml", "/out/sat.log", "T-1", "120.5", "-30.25",
                            "1.5", "2025-02-23T12:00:00", "43.6", "41.4", "2100");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<CheckerPattern>\n"
     "    <OutputPath>/out/sat.txt</OutputPath>\n"
     "    <ResPath>/out/res.xml</ResPath>\n"
     "    <LogPath>/out/sat.log</LogPath>\n"
     "    <TavelinTelescope>T-1</TavelinTelescope>\n"
     "    <alphaZero>120.5</alphaZero>\n"
     "    <deltaZero>-30.25</deltaZero>\n"
     "    <radius>1.5</radius>\n"
     "    <date>2025-02-23T12:00:00</date>\n"
     "    <location>\n"
     "        <latitude>43.6</latitude>\n"
     "        <longitude>41.4</longitude>\n"
     "        <altitude>2100</altitude>\n"
     "    </location>\n"
     "</CheckerPattern>\n"},
};

const char* const limits = "<Control>\n"
                           "    <angle_deviation_limit>2.5</angle_deviation_limit>\n"
                           "    <brightness_deviation_limit>0.75</brightness_deviation_limit>\n"
                           "    <time_shift>-0.125</time_shift>\n"
                           "</Control>\n";

const std::vector<std::pair<std::string, std::string>> limitTexts = {
    {"angle_deviation_limit", "2.5"}, {"brightness_deviation_limit", "0.75"}, {"time_shift", "-0.125"}};

const std::vector<ReadFile> readFiles = {
    {"LThresIntraXML",
     readArguments<LThresIntraXML, 3, 1>,
     "<Pattern>\n"
     "    <ConfigTavelinPath>/conf/t.xml</ConfigTavelinPath>\n"
     "    <ResPath>/out/res.xml</ResPath>\n"
     "    <LogPath>/out/po.log</LogPath>\n"
     "    <FitsList>\n"
     "        <string>/data/1.fit</string>\n"
     "        <string> /data/2.fit </string>\n"
     "    </FitsList>\n"
     "</Pattern>\n",
     {{"ConfigTavelinPath", "/conf/t.xml"}, {"ResPath", "/out/res.xml"}, {"LogPath", "/out/po.log"}},
     {{"FitsList", {"/data/1.fit", " /data/2.fit "}}}},
    {"lRunTask",
     readArguments<lRunTask, 11, 1>,
     "<Task>\n"
     "    <ProcessingType>PO</ProcessingType>\n"
     "    <IDFrame>5</IDFrame>\n"
     "    <ConfigTavelinPath>/conf/t.xml</ConfigTavelinPath>\n"
     "    <SeriePath>/serie/1</SeriePath>\n"
     "    <LogPath>/out/run.log</LogPath>\n"
     "    <ResPath>/out/res.xml</ResPath>\n"
     "    <BlobPath>/blobs/5</BlobPath>\n"
     "    <FitPath>/data/5.fit</FitPath>\n"
     "    <PIDPath>/out/pid</PIDPath>\n"
     "    <TaskPath>/out/task.xml</TaskPath>\n"
     "    <PastPath>/past</PastPath>\n"
     "    <FitsList>\n"
     "        <string>/data/5.fit</string>\n"
     "        <String>another name</String>\n"
     "        <string>/data/6.fit</string>\n"
     "    </FitsList>\n"
     "</Task>\n",
     {{"ProcessingType", "PO"},
      {"IDFrame", "5"},
      {"ConfigTavelinPath", "/conf/t.xml"},
      {"SeriePath", "/serie/1"},
      {"LogPath", "/out/run.log"},
      {"ResPath", "/out/res.xml"},
      {"BlobPath", "/blobs/5"},
      {"FitPath", "/data/5.fit"},
      {"PIDPath", "/out/pid"},
      {"TaskPath", "/out/task.xml"},
      {"PastPath", "/past"}},
     {{"FitsList", {"/data/5.fit", "/data/6.fit"}}}},
    {"lTestTaskXML",
     readArguments<lTestTaskXML, 1>,
     "<Test>\n"
     "    <mode>quick</mode>\n"
     "</Test>\n",
     {{"mode", "quick"}}},
    {"LoadOpearations",
     readArguments<LoadOpearations, 4>,
     "<Operations>\n"
     "    <number1>1.5</number1>\n"
     "    <number2>-2</number2>\n"
     "    <operation>+</operation>\n"
     "    <resultPath>/out/sum</resultPath>\n"
     "</Operations>\n",
     {{"number1", "1.5"}, {"number2", "-2"}, {"operation", "+"}, {"resultPath", "/out/sum"}}},
    {"lConvToTable",
     readArguments<lConvToTable, 7>,
     "<ConvToTableSettings>\n"
     "    <Mode>bin</Mode>\n"
     "    <LogPath>FOLDER/table.log</LogPath>\n"
     "    <ResPath>/out/res.xml</ResPath>\n"
     "    <BlobTablePath>/out/1.tableblob</BlobTablePath>\n"
     "    <BlobBinPath>/blobs/1.bin</BlobBinPath>\n"
     "    <FitPath>/data/1.fit</FitPath>\n"
     "    <ConfigTavelinPath>/conf/t.xml</ConfigTavelinPath>\n"
     "</ConvToTableSettings>\n",
     {{"Mode", "bin"},
      {"LogPath", "FOLDER/table.log"},
      {"ResPath", "/out/res.xml"},
      {"BlobTablePath", "/out/1.tableblob"},
      {"BlobBinPath", "/blobs/1.bin"},
      {"FitPath", "/data/1.fit"},
      {"ConfigTavelinPath", "/conf/t.xml"}}},
    {"lconvertmea",
     readArguments<lconvertmea, 10>,
     "<Task>\n"
     "    <path_in>/data/a.mea</path_in>\n"
     "    <path_out>/out/a.tdm</path_out>\n"
     "    <format_in>MEA</format_in>\n"
     "    <format_out>TDM</format_out>\n"
     "    <names_sat>/data/names.txt</names_sat>\n"
     "    <pathHeader>/data/header.txt</pathHeader>\n"
     "    <indMea>3</indMea>\n"
     "    <AddFNCode>true</AddFNCode>\n"
     "    <LogPath>/out/conv.log</LogPath>\n"
     "    <ResPath>/out/res.xml</ResPath>\n"
     "</Task>\n",
     {{"path_in", "/data/a.mea"},
      {"path_out", "/out/a.tdm"},
      {"format_in", "MEA"},
      {"format_out", "TDM"},
      {"names_sat", "/data/names.txt"},
      {"pathHeader", "/data/header.txt"},
      {"indMea", "3"},
      {"AddFNCode", "true"},
      {"LogPath", "/out/conv.log"},
      {"ResPath", "/out/res.xml"}}},
    {"LoadParamStarLoader",
     readArguments<LoadParamStarLoader, 7>,
     "<StarLoader>\n"
     "    <longitude>41.4</longitude>\n"
     "    <latitude>43.6</latitude>\n"
     "    <altitude>2100</altitude>\n"
     "    <azimuth>180.5</azimuth>\n"
     "    <elevation>45.25</elevation>\n"
     "    <radius>1.5</radius>\n"
     "    <datetime>2025-02-23T12:00:00</datetime>\n"
     "</StarLoader>\n",
     {{"longitude", "41.4"},
      {"latitude", "43.6"},
      {"altitude", "2100"},
      {"azimuth", "180.5"},
      {"elevation", "45.25"},
      {"radius", "1.5"},
      {"datetime", "2025-02-23T12:00:00"}}},
    {"lvo_track_control", readArguments<lvo_track_control, 3>, limits, limitTexts},
    {"lsat_track_control", readArguments<lsat_track_control, 3>, limits, limitTexts},
    {"lvs_control", readArguments<lvs_control, 3>, limits, limitTexts},
};

/// The seven arguments of lConvToTable, set to `preset` and then read.
Texts readTable(const std::string& path, const std::string& preset)
{
    Texts texts(7, preset);
    ReadFile::Lists lists;
    readArguments<lConvToTable, 7>(path, texts, lists);
    return texts;
}

} // namespace

TEST(ServiceParameters, WritersMakeTheWholeDocument)
{
    forEach(writtenFiles, expectDocument);
}

TEST(ServiceParameters, WritersReplaceTheFile)
{
    forEach(writtenFiles, expectReplacement);
}

TEST(ServiceParameters, WritersReturn1AndMakeNothingInAMissingFolder)
{
    forEach(writtenFiles, expectNothingInAMissingFolder);
}

TEST(ServiceParameters, WritersReturn1WhereAFolderStands)
{
    forEach(writtenFiles, expectNothingInPlaceOfAFolder);
}

TEST(ServiceParameters, ReadersFillEachArgument)
{
    forEach(readFiles, expectEachKey);
}

TEST(ServiceParameters, ReadersTakeAnyNameOfTheFirstElement)
{
    forEach(readFiles, expectAnyNameOfTheFirstElement);
}

TEST(ServiceParameters, MissingAndEmptyKeysLeaveTheirArguments)
{
    forEach(readFiles, expectMissingAndEmptyKeysToLeaveTheirArguments);
}

TEST(ServiceParameters, ReadersLookBelowTheFirstElementOnly)
{
    forEach(readFiles, expectKeysOfTheFirstElementAlone);
}

TEST(ServiceParameters, BlanksAndLettersOfValuesSurvive)
{
    forEach(readFiles, expectBlanksAndLetters);
}

TEST(ServiceParameters, FilesThatDoNotLoadLeaveAllArguments)
{
    forEach(readFiles, expectNothingOfAFileThatDoesNotLoad);
}

// The writer puts the keys one level deeper than where the reader looks.
TEST(ServiceParameters, OrderOfTheIntraFrameStageIsNotWhatItsReaderReads)
{
    const TemporaryFolder folder;
    ASSERT_EQ(sThresIntraXML(folder / "a.xml", "PO", Texts{"/data/1.fit"}, "/conf", "/res", "/log", "/pid"),
              0);
    std::string configuration = "old", result = "old", log = "old";
    Texts frames{"old"};
    LThresIntraXML(folder / "a.xml", configuration, result, log, frames);
    EXPECT_EQ((Texts{configuration, result, log}), Texts(3, "old"));
    EXPECT_EQ(frames, Texts{"old"});
}

TEST(ServiceParameters, OrderOfTheInterFrameStageIsATaskToRun)
{
    const TemporaryFolder folder;
    ASSERT_EQ(sThresInterXML(folder / "a.xml", " VO ", "/res", "/log", "/pid", "/serie", "/conf", "/past",
                             "/task", Texts{" /data/1.fit"}),
              0);
    Texts texts(11, "old");
    ReadFile::Lists lists(1);
    readArguments<lRunTask, 11, 1>(folder / "a.xml", texts, lists);
    EXPECT_EQ(texts, (Texts{" VO ", "old", "/conf", "/serie", "/log", "/res", "old", "old", "/pid", "/task",
                            "/past"}));
    EXPECT_EQ(lists[0], Texts{" /data/1.fit"});
}

TEST(ServiceParameters, OrderOfATableComesBackAsItWent)
{
    const TemporaryFolder folder;
    const Texts sent{"  bin ", folder / "table.log", " <b>", "c & d ", "\"e'", "f\tg\n", "\xd1\x81"};
    ASSERT_EQ(sConvToTable(folder / "a.xml", sent[0], sent[1], sent[2], sent[3], sent[4], sent[5], sent[6]),
              0);
    EXPECT_EQ(readTable(folder / "a.xml", "old"), sent);
}

TEST(ServiceParameters, OrderOfATableIsLoggedWhereItSays)
{
    const TemporaryFolder folder;
    ASSERT_EQ(sConvToTable(folder / "a.xml", "bin", folder / "table.log", "c", "d", "e", "f", "g"), 0);
    readTable(folder / "a.xml", folder / "preset.log");
    const std::string log = bytesOf(folder / "table.log");
    EXPECT_NE(log.find("lConvToTable="), std::string::npos) << log;
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 1) << log;
    EXPECT_TRUE(log.ends_with('\n')) << log;
    EXPECT_FALSE(exists(folder / "preset.log"));

    readTable(folder / "a.xml", "");
    EXPECT_TRUE(bytesOf(folder / "table.log").starts_with(log)) << "lines are appended";
    const std::string both = bytesOf(folder / "table.log");
    EXPECT_EQ(std::count(both.begin(), both.end(), '\n'), 2) << both;
}

TEST(ServiceParameters, OrderOfATableWithoutALogLogsNothing)
{
    for (const char* document : {"<R><Mode>bin</Mode></R>", "<R><Mode>bin</Mode><LogPath /></R>"}) {
        SCOPED_TRACE(document);
        const TemporaryFolder folder;
        makeFile(folder / "a.xml", document);
        const Texts texts = readTable(folder / "a.xml", folder / "preset.log");
        EXPECT_EQ(texts[0], "bin");
        EXPECT_EQ(texts[1], folder / "preset.log");
        EXPECT_FALSE(exists(folder / "preset.log"));
    }
}

TEST(ServiceParameters, LogThatCannotBeWrittenDoesNotStopTheReading)
{
    const TemporaryFolder folder;
    ASSERT_EQ(sConvToTable(folder / "a.xml", "bin", folder / "missing/table.log", "c", "d", "e", "f", "g"),
              0);
    EXPECT_EQ(readTable(folder / "a.xml", "old"),
              (Texts{"bin", folder / "missing/table.log", "c", "d", "e", "f", "g"}));
    EXPECT_FALSE(exists(folder / "missing"));
}
