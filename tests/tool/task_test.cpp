#include "task.h"

#include "support/child_process.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"
#include "support/texts.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

// The task that a document gives.
TConvMea taskOf(const std::string& document, TConvMea task = {})
{
    const TemporaryFolder folder;
    makeFile(folder / "task.xml", document);
    EXPECT_TRUE(ltaskconv(folder / "task.xml", task)) << document.substr(0, 300);
    return task;
}

// A task in which no member has its default.
TConvMea filledTask()
{
    TConvMea task;
    task.autoname = true;
    task.longname = false;
    task.autoTelescope = false;
    task.object = 17;
    task.interval = 2.5;
    task.path_in = "1";
    task.out_dir = "2";
    task.outputextension = "3";
    task.inputformat = "4";
    task.outputformat = "5";
    task.originator = "6";
    task.path_res = "7";
    task.REFERENCE_FRAME = "8";
    task.PARTICIPANT_1 = "9";
    task.whatSave = "10";
    task.toSeparateFile = "11";
    TSeria2 series;
    series.path = "12";
    task.paths = {series};
    return task;
}

// Checks that all members but `paths` are those of filledTask.
void expectFilled(const TConvMea& task)
{
    EXPECT_TRUE(task.autoname);
    EXPECT_FALSE(task.longname);
    EXPECT_FALSE(task.autoTelescope);
    EXPECT_EQ(task.object, 17);
    EXPECT_EQ(task.interval, 2.5);
    EXPECT_EQ(task.path_in, "1");
    EXPECT_EQ(task.out_dir, "2");
    EXPECT_EQ(task.outputextension, "3");
    EXPECT_EQ(task.inputformat, "4");
    EXPECT_EQ(task.outputformat, "5");
    EXPECT_EQ(task.originator, "6");
    EXPECT_EQ(task.path_res, "7");
    EXPECT_EQ(task.REFERENCE_FRAME, "8");
    EXPECT_EQ(task.PARTICIPANT_1, "9");
    EXPECT_EQ(task.whatSave, "10");
    EXPECT_EQ(task.toSeparateFile, "11");
}

void expectUntouched(const std::string& path)
{
    TConvMea task = filledTask();
    EXPECT_FALSE(ltaskconv(path, task));
    expectFilled(task);
    ASSERT_EQ(task.paths.size(), 1u);
    EXPECT_EQ(task.paths[0].path, "12");
}

void expectRefused(const std::string& document)
{
    const TemporaryFolder folder;
    makeFile(folder / "task.xml", document);
    expectUntouched(folder / "task.xml");
}

// "3:0,7 | 4:" for marks 0 and 7 of track 3 and no mark of track 4.
std::string shown(const std::vector<TExcludBlobs>& excludes)
{
    std::string text;
    for (const TExcludBlobs& entry : excludes) {
        text += text.empty() ? "" : " | ";
        text += std::to_string(entry.object) + ":";
        for (std::size_t i = 0; i < entry.blobs.size(); ++i) {
            text += (i == 0 ? "" : ",") + std::to_string(entry.blobs[i]);
        }
    }
    return text;
}

// The series of a document whose root has the content.
std::vector<TSeria2> seriesOf(const std::string& inside, const std::string& key = "paths")
{
    TiXmlDocument document;
    TiXmlBase::SetCondenseWhiteSpace(false);
    document.Parse(("<task>" + inside + "</task>").c_str());
    EXPECT_FALSE(document.Error()) << inside;
    return GetSeriaAndObjects(document.RootElement(), key);
}

void expectEndlessWalk(const std::string& inside)
{
    const ChildEnd end = runInChild([&] { seriesOf(inside); }, endlessAfter);
    EXPECT_TRUE(end.timedOut) << inside << end.output;
}

} // namespace

TEST(Task, NoElementHasNoSeries)
{
    EXPECT_TRUE(GetSeriaAndObjects(nullptr, "paths").empty());
}

TEST(Task, NewTaskHasTheDefaults)
{
    const TConvMea task;
    EXPECT_FALSE(task.autoname);
    EXPECT_TRUE(task.longname);
    EXPECT_TRUE(task.autoTelescope);
    EXPECT_EQ(task.object, -1);
    EXPECT_EQ(task.interval, 30.0);
    EXPECT_EQ(task.path_in, "");
    EXPECT_EQ(task.out_dir, "");
    EXPECT_EQ(task.outputextension, "");
    EXPECT_EQ(task.inputformat, "");
    EXPECT_EQ(task.outputformat, "");
    EXPECT_EQ(task.originator, "observatory");
    EXPECT_EQ(task.path_res, "");
    EXPECT_EQ(task.REFERENCE_FRAME, "");
    EXPECT_EQ(task.PARTICIPANT_1, "telescope");
    EXPECT_EQ(task.whatSave, "");
    EXPECT_EQ(task.toSeparateFile, "");
    EXPECT_TRUE(task.paths.empty());
}

TEST(Task, NewSeriesHasTheDefaults)
{
    const TSeria2 series;
    EXPECT_EQ(series.path, "");
    EXPECT_EQ(series.filter, "filter");
    EXPECT_EQ(series.telescope, "telescope");
    EXPECT_TRUE(series.excludes.empty());
    const TExcludBlobs excluded;
    EXPECT_EQ(excluded.object, 0);
    EXPECT_TRUE(excluded.blobs.empty());
}

TEST(Task, CopiesAreDeep)
{
    TConvMea task = taskOf("<t><paths><seria><path>a</path><excludes>1;2</excludes></seria></paths></t>");
    const TConvMea copy = task;
    task.paths[0].path = "b";
    task.paths[0].excludes[0].blobs[0] = 9;
    ASSERT_EQ(copy.paths.size(), 1u);
    EXPECT_EQ(copy.paths[0].path, "a");
    EXPECT_EQ(shown(copy.paths[0].excludes), "1:2");
}

TEST(Task, EveryKeyIsRead)
{
    const TConvMea task = taskOf(taskText({{"path_in", "/data/night.mea"},
                                           {"out_dir", "/out"},
                                           {"outputextension", ".mpc.txt"},
                                           {"inputformat", "mea"},
                                           {"outputformat", "mpc"},
                                           {"originator", "Observatory of the Hill"},
                                           {"REFERENCE_FRAME", "J2000"},
                                           {"PARTICIPANT_1", "T2"},
                                           {"autoname", "true"},
                                           {"longname", "false"},
                                           {"autoTelescope", "false"},
                                           {"whatSave", "object"},
                                           {"interval", "12.5"},
                                           {"toSeparateFile", "eachgroup"},
                                           {"object", "3"},
                                           {"path_res", "/out/run.result"},
                                           {"paths", "<seria><path>/s/obj.txt</path><filtr>V</filtr>"
                                                     "<telescope>T1</telescope>"
                                                     "<excludes>0;1;5 3;2</excludes></seria>"}}));
    EXPECT_EQ(task.path_in, "/data/night.mea");
    EXPECT_EQ(task.out_dir, "/out");
    EXPECT_EQ(task.outputextension, ".mpc.txt");
    EXPECT_EQ(task.inputformat, "mea");
    EXPECT_EQ(task.outputformat, "mpc");
    EXPECT_EQ(task.originator, "Observatory of the Hill");
    EXPECT_EQ(task.REFERENCE_FRAME, "J2000");
    EXPECT_EQ(task.PARTICIPANT_1, "T2");
    EXPECT_TRUE(task.autoname);
    EXPECT_FALSE(task.longname);
    EXPECT_FALSE(task.autoTelescope);
    EXPECT_EQ(task.whatSave, "object");
    EXPECT_EQ(task.interval, 12.5);
    EXPECT_EQ(task.toSeparateFile, "eachgroup");
    EXPECT_EQ(task.object, 3);
    EXPECT_EQ(task.path_res, "/out/run.result");
    ASSERT_EQ(task.paths.size(), 1u);
    EXPECT_EQ(task.paths[0].path, "/s/obj.txt");
    EXPECT_EQ(task.paths[0].filter, "V");
    EXPECT_EQ(task.paths[0].telescope, "T1");
    EXPECT_EQ(shown(task.paths[0].excludes), "0:1,5 | 3:2");
}

TEST(Task, MissingKeysLeaveTheMembers)
{
    const TConvMea task = taskOf("<task/>", filledTask());
    expectFilled(task);
}

TEST(Task, EmptyElementsLeaveTheMembers)
{
    const char* keys[] = {"path_in",      "out_dir",        "outputextension", "inputformat",
                          "outputformat", "originator",     "REFERENCE_FRAME", "PARTICIPANT_1",
                          "autoname",     "longname",       "autoTelescope",   "whatSave",
                          "interval",     "toSeparateFile", "object",          "path_res"};
    std::string closed;
    std::string open;
    std::string blank;
    for (const std::string key : keys) {
        closed += "<" + key + "/>";
        open += "<" + key + "></" + key + ">";
        blank += "<" + key + ">  \n\t </" + key + ">";
    }
    expectFilled(taskOf("<t>" + closed + "</t>", filledTask()));
    expectFilled(taskOf("<t>" + open + "</t>", filledTask()));
    expectFilled(taskOf("<t>" + blank + "</t>", filledTask()));
}

TEST(Task, SeriesAreReplacedEvenByNone)
{
    EXPECT_TRUE(taskOf("<t/>", filledTask()).paths.empty());
    EXPECT_TRUE(taskOf("<t><paths/></t>", filledTask()).paths.empty());
    const TConvMea task = taskOf("<t><paths><seria><path>a</path></seria></paths></t>", filledTask());
    ASSERT_EQ(task.paths.size(), 1u);
    EXPECT_EQ(task.paths[0].path, "a");
}

TEST(Task, RootMayHaveAnyName)
{
    for (const char* name : {"task", "TConvMea", "a", "path_in", "x.y-z_1"}) {
        SCOPED_TRACE(name);
        const std::string root = name;
        EXPECT_EQ(taskOf("<" + root + "><path_in>in</path_in></" + root + ">").path_in, "in");
    }
}

TEST(Task, DeclarationAndCommentsMayPrecedeTheRoot)
{
    EXPECT_EQ(taskOf("<?xml version=\"1.0\"?><t><path_in>in</path_in></t>").path_in, "in");
    EXPECT_EQ(taskOf("<!-- a --><!-- b -->\n<t><path_in>in</path_in></t>").path_in, "in");
    EXPECT_EQ(taskOf("<?xml version=\"1.0\" ?>\n<!-- a -->\n\n<t><path_in>in</path_in></t>\n\n").path_in,
              "in");
}

TEST(Task, OrderOfKeysDoesNotMatter)
{
    const TConvMea task = taskOf("<t><path_res>r</path_res><object>2</object><path_in>in</path_in></t>");
    EXPECT_EQ(task.path_res, "r");
    EXPECT_EQ(task.object, 2);
    EXPECT_EQ(task.path_in, "in");
}

TEST(Task, UnknownElementsAndAttributesAreIgnored)
{
    const TConvMea task = taskOf("<t path_in=\"no\"><comment>c</comment><Path_in>no</Path_in>"
                                 "<group><path_in>no</path_in></group><filter>no</filter>"
                                 "<path_in a=\"1\" b='2'>yes</path_in></t>");
    EXPECT_EQ(task.path_in, "yes");
}

TEST(Task, FirstElementOfAKeyCounts)
{
    EXPECT_EQ(taskOf("<t><path_in>1</path_in><path_in>2</path_in></t>").path_in, "1");
    EXPECT_EQ(taskOf("<t><path_in/><path_in>2</path_in></t>", filledTask()).path_in, "1");
}

TEST(Task, TextIsTakenAsItIs)
{
    const struct
    {
        const char* xml;
        const char* text;
    } rows[] = {{"a b  c", "a b  c"},
                {"  a  ", "  a  "},
                {"\ta\n b", "\ta\n b"},
                {"C:\\data\\in.mea", "C:\\data\\in.mea"},
                {"a&amp;b&lt;c&gt;d&quot;e&apos;f", "a&b<c>d\"e'f"},
                {"&#x41;&#66;", "AB"},
                {"<![CDATA[<a> & b]]>", "<a> & b"},
                {"<![CDATA[]]>", ""},
                {"\xD0\xBD\xD0\xBE\xD1\x87\xD1\x8C", "\xD0\xBD\xD0\xBE\xD1\x87\xD1\x8C"},
                {"true", "true"},
                {"0", "0"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.xml);
        TConvMea preset;
        preset.path_in = "before";
        EXPECT_EQ(taskOf("<t><path_in>" + std::string(row.xml) + "</path_in></t>", preset).path_in, row.text);
    }
}

TEST(Task, ValueIsTheFirstNodeWhateverItsKind)
{
    EXPECT_EQ(taskOf("<t><path_in><!--note-->in</path_in></t>").path_in, "note");
    EXPECT_EQ(taskOf("<t><path_in><b>in</b></path_in></t>").path_in, "b");
    EXPECT_EQ(taskOf("<t><path_in>in<b/>behind</path_in></t>").path_in, "in");
}

TEST(Task, WhiteSpaceIsNotCondensed)
{
    TiXmlBase::SetCondenseWhiteSpace(true);
    EXPECT_EQ(taskOf("<t><originator>a   b </originator></t>").originator, "a   b ");
    EXPECT_FALSE(TiXmlBase::IsWhiteSpaceCondensed());
}

TEST(Task, OnlyTheExactWordIsTrue)
{
    const struct
    {
        const char* text;
        bool value;
    } rows[] = {{"true", true},   {"false", false}, {"True", false},  {"TRUE", false}, {"true ", false},
                {" true", false}, {"1", false},     {"yes", false},   {"t", false},    {"truee", false},
                {"0", false},     {"tru", false},   {"true\n", false}};
    for (const auto& row : rows) {
        for (const bool before : {false, true}) {
            SCOPED_TRACE(std::string(row.text) + (before ? " over true" : " over false"));
            TConvMea preset;
            preset.autoname = preset.longname = preset.autoTelescope = before;
            const std::string text = row.text;
            const TConvMea task = taskOf("<t><autoname>" + text + "</autoname><longname>" + text +
                                             "</longname><autoTelescope>" + text + "</autoTelescope></t>",
                                         preset);
            EXPECT_EQ(task.autoname, row.value);
            EXPECT_EQ(task.longname, row.value);
            EXPECT_EQ(task.autoTelescope, row.value);
        }
    }
}

TEST(Task, IntervalIsReadFromTheFrontOfItsText)
{
    const struct
    {
        const char* text;
        double value;
    } rows[] = {{"30", 30.0},   {"0", 0.0},   {"-5.5", -5.5},
                {"+5.5", 5.5},  {" 7", 7.0},  {"5min", 5.0},
                {"1e2", 100.0}, {".5", 0.5},  {"5.", 5.0},
                {"12,5", 12.0}, {"abc", 0.0}, {"-", 0.0},
                {"e5", 0.0},    {"1 2", 1.0}, {"\n4\n", 4.0},
                {"0x10", 16.0}, {"1e", 1.0},  {"<b/>", 0.0},
                {"min5", 0.0},  {"--5", 0.0}, {"inf", std::numeric_limits<double>::infinity()}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(taskOf("<t><interval>" + std::string(row.text) + "</interval></t>").interval, row.value);
    }
}

TEST(Task, ObjectIsReadFromTheFrontOfItsTextAndCutTo32Bits)
{
    const struct
    {
        const char* text;
        int value;
    } rows[] = {{"0", 0},
                {"3", 3},
                {"-1", -1},
                {"-7", -7},
                {"+5", 5},
                {" 7", 7},
                {"007", 7},
                {"3.9", 3},
                {"12abc", 12},
                {"abc", 0},
                {"0x10", 0},
                {"1e3", 1},
                {"--1", 0},
                {"1 2", 1},
                {"2147483647", 2147483647},
                {"2147483648", -2147483647 - 1},
                {"4294967295", -1},
                {"4294967297", 1},
                {"99999999999", 1215752191},
                {"99999999999999999999", -1},
                {"-99999999999999999999", 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(taskOf("<t><object>" + std::string(row.text) + "</object></t>").object, row.value);
    }
}

TEST(Task, LineEndingsAndTabsOfTheFileDoNotMatter)
{
    const TConvMea task = taskOf("<?xml version=\"1.0\"?>\r\n<task>\r\n\t\t<path_in>in.mea</path_in>\r\n"
                                 "\t<paths>\r\n\t\t<seria>\r\n\t\t\t<path>s</path>\r\n\t\t</seria>\r\n"
                                 "\t</paths>\r\n</task>\r\n");
    EXPECT_EQ(task.path_in, "in.mea");
    ASSERT_EQ(task.paths.size(), 1u);
    EXPECT_EQ(task.paths[0].path, "s");
}

TEST(Task, FileThatCannotBeLoadedLeavesTheTask)
{
    const TemporaryFolder folder;
    {
        SCOPED_TRACE("missing file");
        expectUntouched(folder / "missing.xml");
    }
    {
        SCOPED_TRACE("missing folder");
        expectUntouched(folder / "missing/task.xml");
    }
    {
        SCOPED_TRACE("a folder");
        expectUntouched(folder.path());
    }
    {
        SCOPED_TRACE("empty path");
        expectUntouched("");
    }
}

TEST(Task, DocumentThatIsNotWellFormedLeavesTheTask)
{
    const std::string documents[] = {"",
                                     "\n",
                                     "  \n\n",
                                     "task",
                                     "path_in=night.mea\n",
                                     "<",
                                     "<task",
                                     "<task>",
                                     "<task><path_in>in</path_in>",
                                     "<task><path_in>in</task>",
                                     "<task><path_in>in</path></task>",
                                     "<task><path_in>in<path_in></task>",
                                     "<task a=\"b></task>",
                                     "</task>",
                                     "<!-- a",
                                     "<task><![CDATA[a</task>",
                                     std::string(1, '\0'),
                                     std::string("\0<task></task>", 14),
                                     "\x7F"
                                     "ELF\x02\x01\x01"};
    for (const std::string& document : documents) {
        SCOPED_TRACE(document);
        expectRefused(document);
    }
}

TEST(Task, DocumentWithoutAnElementLeavesTheTask)
{
    const char* documents[] = {"<?xml version=\"1.0\"?>", "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n",
                               "<!-- a -->", "<?xml version=\"1.0\"?>\n<!-- a -->\n<!-- b -->\n"};
    for (const char* document : documents) {
        SCOPED_TRACE(document);
        expectRefused(document);
    }
}

TEST(Task, EveryCutFileLeavesTheTask)
{
    const std::string document =
        "<?xml version=\"1.0\"?>\n<task>\n  <path_in>night.mea</path_in>\n  <!-- a -->\n"
        "  <paths><seria><path>s</path><filtr a=\"1\">V</filtr></seria></paths>\n"
        "  <path_res><![CDATA[r]]></path_res>\n</task>";
    EXPECT_EQ(taskOf(document).path_res, "r");
    for (std::size_t size = 0; size < document.size(); ++size) {
        SCOPED_TRACE(size);
        expectRefused(document.substr(0, size));
    }
}

TEST(Task, DeepNestingIsRefusedAndWideOnesAreRead)
{
    const std::string end = "<path_in>in</path_in></t>";
    EXPECT_EQ(taskOf("<t>" + repeated("<a>", 900) + repeated("</a>", 900) + end).path_in, "in");
    EXPECT_EQ(taskOf("<t>" + repeated("<a></a>", 20000) + end).path_in, "in");
    EXPECT_EQ(taskOf("<t>" + repeated("<a/>", 20000) + end).path_in, "in");
    EXPECT_EQ(taskOf("<t><!--" + repeated("<a>", 20000) + "-->" + end).path_in, "in");
    EXPECT_EQ(taskOf("<t><b><![CDATA[" + repeated("<a>", 20000) + "]]></b>" + end).path_in, "in");
    expectRefused("<t>" + repeated("<a>", 100000) + repeated("</a>", 100000) + end);
    expectRefused("<t>" + repeated("<a>", 100000));
}

TEST(GetSeriaAndObjects, SeriesAreInTheirOrder)
{
    const std::vector<TSeria2> series =
        seriesOf("<paths><seria><path>a</path></seria><seria><path>b</path><filtr>B</filtr></seria>"
                 "<seria><telescope>T3</telescope></seria></paths>");
    ASSERT_EQ(series.size(), 3u);
    EXPECT_EQ(series[0].path, "a");
    EXPECT_EQ(series[0].filter, "filter");
    EXPECT_EQ(series[0].telescope, "telescope");
    EXPECT_EQ(series[1].path, "b");
    EXPECT_EQ(series[1].filter, "B");
    EXPECT_EQ(series[1].telescope, "telescope");
    EXPECT_EQ(series[2].path, "");
    EXPECT_EQ(series[2].filter, "filter");
    EXPECT_EQ(series[2].telescope, "T3");
}

TEST(GetSeriaAndObjects, FilterHasTheKeyFiltr)
{
    const std::vector<TSeria2> series = seriesOf("<paths><seria><filter>V</filter></seria></paths>");
    ASSERT_EQ(series.size(), 1u);
    EXPECT_EQ(series[0].filter, "filter");
}

TEST(GetSeriaAndObjects, EmptyKeysLeaveTheDefaults)
{
    const std::vector<TSeria2> series =
        seriesOf("<paths><seria><path/><filtr></filtr><telescope> </telescope><excludes/></seria></paths>");
    ASSERT_EQ(series.size(), 1u);
    EXPECT_EQ(series[0].path, "");
    EXPECT_EQ(series[0].filter, "filter");
    EXPECT_EQ(series[0].telescope, "telescope");
    EXPECT_TRUE(series[0].excludes.empty());
}

TEST(GetSeriaAndObjects, TextsAreTakenAsTheyAre)
{
    const std::vector<TSeria2> series =
        seriesOf("<paths><seria><path> C:\\a  b\\t.txt</path><filtr>V </filtr></seria></paths>");
    ASSERT_EQ(series.size(), 1u);
    EXPECT_EQ(series[0].path, " C:\\a  b\\t.txt");
    EXPECT_EQ(series[0].filter, "V ");
}

TEST(GetSeriaAndObjects, ListHasTheGivenKey)
{
    const std::string inside = "<paths><seria><path>a</path></seria></paths>"
                               "<others><seria><path>b</path></seria></others>";
    ASSERT_EQ(seriesOf(inside, "others").size(), 1u);
    EXPECT_EQ(seriesOf(inside, "others")[0].path, "b");
    EXPECT_TRUE(seriesOf(inside, "Paths").empty());
    EXPECT_TRUE(seriesOf(inside, "").empty());
}

TEST(GetSeriaAndObjects, NoListGivesNoSeries)
{
    const char* insides[] = {"",
                             "<paths/>",
                             "<paths></paths>",
                             "<paths>text</paths>",
                             "<paths><!-- none --></paths>",
                             "<paths><series><path>a</path></series></paths>",
                             "<paths><Seria><path>a</path></Seria></paths>",
                             "<paths><list><seria><path>a</path></seria></list></paths>",
                             "<seria><path>a</path></seria>",
                             "<list><paths><seria><path>a</path></seria></paths></list>"};
    for (const char* inside : insides) {
        SCOPED_TRACE(inside);
        EXPECT_TRUE(seriesOf(inside).empty());
    }
}

TEST(GetSeriaAndObjects, FirstSeriesWithoutAChildElementGivesNoSeries)
{
    for (const char* first : {"<seria/>", "<seria></seria>", "<seria> </seria>", "<seria>text</seria>",
                              "<seria><!-- none --></seria>", "<seria path=\"a\"/>"})
    {
        SCOPED_TRACE(first);
        EXPECT_TRUE(seriesOf("<paths>" + std::string(first) + "</paths>").empty());
        EXPECT_TRUE(
            seriesOf("<paths>" + std::string(first) + "<seria><path>b</path></seria></paths>").empty());
    }
}

TEST(GetSeriaAndObjects, FirstSeriesMayHoldAnyChildElement)
{
    const std::vector<TSeria2> series =
        seriesOf("<paths><seria><note/></seria><seria><path>b</path></seria></paths>");
    ASSERT_EQ(series.size(), 2u);
    EXPECT_EQ(series[0].path, "");
    EXPECT_EQ(series[1].path, "b");
}

TEST(GetSeriaAndObjects, OtherElementsOfTheListAreSteppedOver)
{
    const std::vector<TSeria2> series =
        seriesOf("<paths>text<other/><seria><path>a</path></seria><!-- c --><other><path>no</path></other>"
                 "<seria><path>b</path></seria><Seria/></paths>");
    ASSERT_EQ(series.size(), 2u);
    EXPECT_EQ(series[0].path, "a");
    EXPECT_EQ(series[1].path, "b");
}

TEST(GetSeriaAndObjects, OnlyTheFirstListIsRead)
{
    const std::vector<TSeria2> series = seriesOf("<paths><seria><path>a</path></seria></paths>"
                                                 "<paths><seria><path>b</path></seria></paths>");
    ASSERT_EQ(series.size(), 1u);
    EXPECT_EQ(series[0].path, "a");
}

TEST(GetSeriaAndObjects, LaterSeriesWithoutElementsButWithANodeHasTheDefaults)
{
    for (const char* later : {"<seria>text</seria>", "<seria><!-- none --></seria>"}) {
        SCOPED_TRACE(later);
        const std::vector<TSeria2> series =
            seriesOf("<paths><seria><path>a</path></seria>" + std::string(later) +
                     "<seria><path>c</path></seria></paths>");
        ASSERT_EQ(series.size(), 3u);
        EXPECT_EQ(series[0].path, "a");
        EXPECT_EQ(series[1].path, "");
        EXPECT_EQ(series[1].filter, "filter");
        EXPECT_EQ(series[1].telescope, "telescope");
        EXPECT_TRUE(series[1].excludes.empty());
        EXPECT_EQ(series[2].path, "c");
    }
}

TEST(GetSeriaAndObjects, LaterSeriesWithoutAnyNodeIsEndless)
{
    expectEndlessWalk("<paths><seria><path>a</path></seria><seria/></paths>");
    expectEndlessWalk("<paths><seria><path>a</path></seria><seria></seria></paths>");
    expectEndlessWalk("<paths><seria><path>a</path></seria><seria> \n </seria></paths>");
    expectEndlessWalk("<paths><seria><path>a</path></seria><seria/><seria><path>b</path></seria></paths>");
    expectEndlessWalk("<paths><seria><path>a</path></seria><seria path=\"b\"/></paths>");
}

TEST(GetSeriaAndObjects, ExcludesAreItemsOfTrackAndMarks)
{
    const struct
    {
        const char* text;
        const char* excludes;
    } rows[] = {{"0;1;5 3;2", "0:1,5 | 3:2"},
                {"3;0;7", "3:0,7"},
                {"0;1", "0:1"},
                {"4", "4:"},
                {"4 5;6", "4: | 5:6"},
                {"0;1 0;1", "0:1 | 0:1"},
                {"2;9;1;9", "2:9,1,9"},
                {" 0;1  2;3 ", "0:1 | 2:3"},
                {"3;;7", "3:0,7"},
                {"3;", "3:"},
                {"3;7;", "3:7"},
                {";5", "0:5"},
                {";", "0:"},
                {";;", "0:0"},
                {"a;b", "0:0"},
                {"x", "0:"},
                {"1a;2b", "1:2"},
                {"1.9;2.9", "1:2"},
                {"-1;-2", "-1:-2"},
                {"+1;+2", "1:2"},
                {"0,1", "0:"},
                {"0;1\t2;3", "0:1,3"},
                {"0;1\n2;3", "0:1,3"},
                {"\n0;1\n", "0:1"},
                {"08;010", "8:10"},
                {"0;99999999999", "0:1215752191"},
                {"<![CDATA[ ]]>", ""},
                {"<![CDATA[]]>", ""},
                {"", ""},
                {"   ", ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const std::vector<TSeria2> series =
            seriesOf("<paths><seria><excludes>" + std::string(row.text) + "</excludes></seria></paths>");
        ASSERT_EQ(series.size(), 1u);
        EXPECT_EQ(shown(series[0].excludes), row.excludes);
    }
}

TEST(GetSeriaAndObjects, ExcludesOfASeriesAreItsOwn)
{
    const std::vector<TSeria2> series =
        seriesOf("<paths><seria><excludes>0;1</excludes></seria><seria><path>b</path></seria>"
                 "<seria><excludes/></seria><seria><excludes>7</excludes></seria></paths>");
    ASSERT_EQ(series.size(), 4u);
    EXPECT_EQ(shown(series[0].excludes), "0:1");
    EXPECT_TRUE(series[1].excludes.empty());
    EXPECT_TRUE(series[2].excludes.empty());
    EXPECT_EQ(shown(series[3].excludes), "7:");
}
