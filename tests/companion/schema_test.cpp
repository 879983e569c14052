#include "schema/schemas.h"

#include "companion/xmllint.h"
#include "config/configuration_keys.h"
#include "records/enumerations.h"
#include "results/code_table.h"
#include "results/result_files.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <set>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

const char* const conversion = R"(<?xml version="1.0" encoding="UTF-8"?>
<task>
    <path_in>./night.mea</path_in>
    <out_dir>out</out_dir>
    <outputextension>.mpc.txt</outputextension>
    <inputformat>mea</inputformat>
    <outputformat>mpc</outputformat>
    <originator>MPC</originator>
    <REFERENCE_FRAME>ICRF</REFERENCE_FRAME>
    <PARTICIPANT_1>K88</PARTICIPANT_1>
    <autoname>false</autoname>
    <path_res>out/result.xml</path_res>
</task>
)";

const char* const report = R"(<task>
    <out_dir>out</out_dir>
    <outputextension>txt</outputextension>
    <inputformat>vomar</inputformat>
    <outputformat>mpc</outputformat>
    <autoname>false</autoname>
    <longname>true</longname>
    <autoTelescope>true</autoTelescope>
    <whatSave>object</whatSave>
    <object>0</object>
    <interval>30.5</interval>
    <toSeparateFile>eachgroup</toSeparateFile>
    <path_res>./result.xml</path_res>
    <paths>
        <seria>
            <path>series/s/tavelin/dataVO/obj.txt</path>
            <filtr>R</filtr>
            <telescope>T1</telescope>
            <excludes>3;0;7 5;1</excludes>
        </seria>
        <seria><path>b.txt</path></seria>
    </paths>
</task>
)";

struct Trap
{
    const char* what;
    const char* piece;
    const char* other;
};

constexpr Trap conversionTraps[] = {
    {"keys one level too deep", "</task>", "<task/></task>"},
    {"an unknown key", "<originator>MPC</originator>", "<origin>MPC</origin>"},
    {"a key twice", "<originator>MPC</originator>", "<originator>A</originator><originator>B</originator>"},
    {"a blank in front", "<path_in>./night", "<path_in> ./night"},
    {"a blank at the end", "result.xml<", "result.xml <"},
    {"a line feed in a path", "./night.mea", "./night\n.mea"},
    {"an element in front of a text", "<path_in>", "<path_in><a/>"},
    {"an empty key", "<out_dir>out</out_dir>", "<out_dir></out_dir>"},
    {"a blank key", "<out_dir>out</out_dir>", "<out_dir> </out_dir>"},
    {"a capital letter in true", "<autoname>false", "<autoname>True"},
    {"a number for true", "<autoname>false", "<autoname>1"},
    {"a blank beside true", "<autoname>false", "<autoname> true"},
    {"no autoname", "<autoname>false</autoname>", ""},
    {"no path_res", "<path_res>out/result.xml</path_res>", ""},
    {"a bare path_res", "out/result.xml", "result.xml"},
    {"a folder for path_res", "out/result.xml", "out/"},
    {"no out_dir", "<out_dir>out</out_dir>", ""},
    {"a folder for path_in", "./night.mea", "./night/"},
    {"a backslash at the end of out_dir", ">out<", ">out\\<"},
    {"a backslash in path_in", "./night", ".\\night"},
    {"an unknown input word", "<inputformat>mea", "<inputformat>MEA"},
    {"an output-only word as input", "<inputformat>mea", "<inputformat>mpc"},
    {"an unknown output word", "<outputformat>mpc", "<outputformat>mpc.txt"},
    {"vomar as output word", "<outputformat>mpc", "<outputformat>vomar"},
    {"an empty extension", ">.mpc.txt<", "><"},
    {"a slash in the extension", ">.mpc.txt<", ">./txt<"},
    {"a slash in the automatic name", ">K88<", ">K/88<"},
    {"a name longer than a file's", ">K88<", ">K88456789012345678901234567890123<"},
    {"a key inside another", "<originator>MPC</originator>",
     "<originator>MPC<autoname>true</autoname></originator>"},
};

constexpr Trap reportTraps[] = {
    {"an empty later seria", "<seria><path>b.txt</path></seria>", "<seria></seria>"},
    {"a closed seria", "<seria><path>b.txt</path></seria>", "<seria/>"},
    {"a blank seria", "<seria><path>b.txt</path></seria>", "<seria> </seria>"},
    {"a seria without a path", "<path>b.txt</path>", "<filtr>R</filtr>"},
    {"a seria with an empty path", ">b.txt<", "><"},
    {"another element beside seria", "<seria><path>b.txt</path></seria>", "<series><path>b</path></series>"},
    {"a misspelled filter", "<filtr>R</filtr>", "<filter>R</filter>"},
    {"an excluded mark that is no number", "3;0;7 5;1", "3;x"},
    {"a comma between excluded marks", "3;0;7 5;1", "3,0,7"},
    {"two blanks between tracks", "3;0;7 5;1", "3;0  5;1"},
    {"an unknown division", ">eachgroup<", ">eachGroup<"},
    {"an unknown choice of tracks", "<whatSave>object", "<whatSave>one"},
    {"a track number that is none", "<object>0", "<object>first"},
    {"a track number of more than 32 bits", "<object>0", "<object>99999999999"},
    {"an interval of nothing", ">30.5<", ">0.0<"},
    {"a negative interval", ">30.5<", ">-1<"},
    {"an infinite interval", ">30.5<", ">inf<"},
    {"an interval in words", ">30.5<", ">30 min<"},
    {"a decimal comma", ">30.5<", ">30,5<"},
    {"a capital letter in true", "<longname>true", "<longname>TRUE"},
    {"a slash in a telescope", ">T1<", ">T/1<"},
    {"a slash in a filter", ">R<", ">R/V<"},
};

TEST(TaskSchema, TakesGoodTasks)
{
    EXPECT_EQ(refusalByXmllint("task", conversion), "");
    EXPECT_EQ(refusalByXmllint("task", report), "");
}

TEST(TaskSchema, TakesTheWaysInWhichEditorsFindIt)
{
    EXPECT_EQ(
        refusalByXmllint("task", withReplaced(conversion, "<task>",
                                              "<?xml-model href=\"task.xsd\"?>\n"
                                              "<task xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                                              "xsi:noNamespaceSchemaLocation=\"task.xsd\">")),
        "");
}

TEST(TaskSchema, TakesAnyOrderAndNamesWithBlanks)
{
    std::string other = withReplaced(conversion, "<autoname>false</autoname>", "");
    other = withReplaced(other, "<task>", "<task><autoname>true</autoname>");
    other = withReplaced(other, ">K88<", ">Mount Lemmon \xC3\xBC<");
    EXPECT_EQ(refusalByXmllint("task", other), "");
}

TEST(TaskSchema, RefusesTheTrapsOfConversions)
{
    for (const Trap& trap : conversionTraps) {
        EXPECT_NE(refusalByXmllint("task", withReplaced(conversion, trap.piece, trap.other)), "")
            << trap.what;
    }
    const std::string other = withReplaced(conversion, "<task>", "<job>");
    EXPECT_NE(refusalByXmllint("task", withReplaced(other, "</task>", "</job>")), "");
    const std::string inner = std::string("<task>") + (conversion + std::string(conversion).find("<task>"));
    EXPECT_THAT(refusalByXmllint("task", inner + "</task>"), HasSubstr("This element is not expected"));
}

TEST(TaskSchema, RefusesTheTrapsOfReports)
{
    for (const Trap& trap : reportTraps) {
        EXPECT_NE(refusalByXmllint("task", withReplaced(report, trap.piece, trap.other)), "") << trap.what;
    }
    const std::string text = report;
    const std::size_t first = text.find("<seria>");
    EXPECT_NE(refusalByXmllint("task", text.substr(0, first) + text.substr(text.find("</paths>"))), "");
}

// The files below a folder with a name of the form.
std::vector<std::string> filesBelow(const char* folder, const char* extension)
{
    std::vector<std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(VOMAR_PROJECT) / folder)) {
        if (entry.path().extension() == extension) {
            files.push_back(entry.path());
        }
    }
    return files;
}

TEST(TaskSchema, TakesTheExamplesAndTheTasksOfTheRuns)
{
    int tasks = 0;
    for (const char* folder : {"examples", "tests/runs"}) {
        for (const std::string& path : filesBelow(folder, ".xml")) {
            const std::string text = bytesOf(path);
            if (text.find("<task>") != std::string::npos) {
                EXPECT_EQ(refusalByXmllint("task", text), "") << path;
                ++tasks;
            }
        }
    }
    EXPECT_GE(tasks, 24);
}

TEST(ConfigurationSchema, TakesTheConfigurationsOfTheRepository)
{
    int configurations = 0;
    for (const char* folder : {"examples", "tests/fixtures", "tests/runs"}) {
        for (const std::string& path : filesBelow(folder, ".conf")) {
            EXPECT_EQ(refusalByXmllint("config", bytesOf(path)), "") << path;
            ++configurations;
        }
    }
    EXPECT_GE(configurations, 13);
}

// A document with one element within the other, by a path with slashes.
std::string nested(const std::string& path, const std::string& content)
{
    const std::size_t slash = path.find('/');
    const std::string name = path.substr(0, slash);
    return '<' + name + '>' +
           (slash == std::string::npos ? content : nested(path.substr(slash + 1), content)) + "</" +
           name.substr(0, name.find(' ')) + '>';
}

TEST(ConfigurationSchema, RefusesWhatTheReaderMisreads)
{
    const Trap traps[] = {
        {"an unknown section", "basicSetting", "<Filter>R</Filter>"},
        {"an unknown key", "basicSettings/filter", "R"},
        {"a key in another section", "lightCurves/Filter", "R"},
        {"a number with a comma", "basicSettings/Longitude", "10,5"},
        {"an integer with a fraction", "interframeasteroids/speedlimit", "fast"},
        {"a flag in capitals", "ZUNEK/AddDate", "True"},
        {"an unknown service", "Service", "Asteroids"},
        {"an unknown catalogue", "Identification/astroPhotoMetryCatalogs/INetAstrometric", "GAIA3"},
        {"an empty item of frames", "intraframeProcessing/brightnessFramesAlignment/ProcessingRawBias/path",
         ""},
        {"an empty name of a filter", "HeaderSettings/filterKeys/camera/R/string", ""},
        {"a blank name of a filter", "HeaderSettings/filterKeys/camera/R/string", " "},
        {"an area of another form", "intraframeProcessing/ImageDetection/AreaWithBadImages", "(1,2-3,4)"},
        {"an unknown header word", "HeaderSettings/headerKeys/key name=\"Exposure\"/string", "EXPTIME"},
    };
    for (const Trap& trap : traps) {
        EXPECT_NE(refusalByXmllint("config", nested(std::string("root/") + trap.piece, trap.other)), "")
            << trap.what;
    }
    EXPECT_NE(refusalByXmllint("config", "<root><Service>asteroids</Service><Service/></root>"), "");
    EXPECT_EQ(refusalByXmllint("config", nested("root/HeaderSettings/filterKeys/camera/R/string", "Red")),
              "");
}

// The path of each key is one that the configuration of all keys has, and the other way round.
TEST(ConfigurationSchema, KeysAreThoseOfTheConfigurationOfAllKeys)
{
    const std::string all =
        bytesOf(std::string(VOMAR_PROJECT) + "/tests/fixtures/configuration/every_key.conf");
    for (const auto& key : tavelinUtils::configurationKeys()) {
        EXPECT_THAT(all, HasSubstr('<' + key.key + '>')) << key.section;
        const std::string section = key.section.substr(key.section.rfind('/') + 1);
        EXPECT_THAT(all, HasSubstr('<' + section)) << key.key;
    }
}

// The words of a type of the schema, without the empty one.
std::vector<std::string> wordsOfType(const std::string& type)
{
    const std::string schema = companion::schemaOf("config")->text();
    const std::string mark = "<xs:enumeration value=\"";
    const std::size_t begin = schema.find("<xs:simpleType name=\"" + type + '"');
    const std::size_t end = schema.find("</xs:simpleType>", begin);
    std::vector<std::string> words;
    for (std::size_t at = schema.find(mark, begin); at < end; at = schema.find(mark, at + 1)) {
        const std::size_t front = at + mark.size();
        words.push_back(schema.substr(front, schema.find('"', front) - front));
    }
    EXPECT_EQ(words.empty() ? "none" : words.back(), "") << type;
    words.pop_back();
    return words;
}

// Each word has a number of its own, and but for one that is the default none has that of unknown words.
template <class Convert>
void expectWords(const std::string& type, Convert convert, const std::string& usual = "")
{
    std::set<int> numbers;
    for (const std::string& word : wordsOfType(type)) {
        EXPECT_TRUE(numbers.insert(static_cast<int>(convert(word))).second) << word;
        EXPECT_EQ(convert(word) == convert("no such word"), word == usual) << word;
    }
    EXPECT_GE(numbers.size(), 2U) << type;
}

TEST(ConfigurationSchema, WordsAreThoseThatTheReaderKnows)
{
    using namespace tavelinUtils;
    expectWords("service", StrToService);
    expectWords("catalogue", StrToiCat);
    expectWords("fitting", StrToModeFitting, "Auto");
    expectWords("end", StrToTypeNextFormation);
    expectWords("speedUnit", StrToTSpeedLimit);
    expectWords("aperture", StrToTApertureSize, "ByRadius");
}

TEST(ResultSchema, TakesWhatTheLibraryWrites)
{
    const TemporaryFolder folder;
    const std::string path = folder / "r.xml";
    tavelinUtils::sResXML(path, tavelinUtils::GetErrCode(7, "a & \"b\"\n<c>"));
    EXPECT_EQ(refusalByXmllint("result", bytesOf(path)), "");
    const std::string good = bytesOf(path);
    EXPECT_NE(refusalByXmllint("result", withReplaced(good, "<Code>7<", "<Code>seven<")), "");
    EXPECT_NE(refusalByXmllint("result", withReplaced(good, "<Date>", "<Date>x")), "");
}

} // namespace
