#include "formats/light_curve_task.h"

#include "support/sexagesimal.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Filters = std::vector<std::pair<std::string, double>>;

TLCTask taskOf(const std::string& document)
{
    const TemporaryFolder folder;
    makeFile(folder / "task.xml", document);
    return lLCTask(folder / "task.xml");
}

// The task of a document whose root holds the text.
TLCTask taskWith(const std::string& content)
{
    return taskOf("<?xml version=\"1.0\"?>\n<task>" + content + "</task>\n");
}

// The only object of a task whose "res" holds the text.
TInvestObj objectWith(const std::string& content)
{
    const TLCTask task = taskWith("<research><res>" + content + "</res></research>");
    EXPECT_TRUE(task.comparison.empty());
    if (task.research.size() != 1) {
        ADD_FAILURE() << task.research.size() << " objects: " << content;
        return {};
    }
    return task.research[0];
}

// The only star of a task whose "cmp" holds the text.
TCompareStar starWith(const std::string& content)
{
    const TLCTask task = taskWith("<comparison><cmp>" + content + "</cmp></comparison>");
    EXPECT_TRUE(task.research.empty());
    if (task.comparison.size() != 1) {
        ADD_FAILURE() << task.comparison.size() << " stars: " << content;
        return {};
    }
    return task.comparison[0];
}

void expectNewTask(const TLCTask& task)
{
    EXPECT_EQ(task.guardResearch, 0);
    EXPECT_EQ(task.guardComparison, 0);
    EXPECT_TRUE(task.research.empty());
    EXPECT_TRUE(task.comparison.empty());
    EXPECT_EQ(task.series, "");
    EXPECT_EQ(task.telescope, "");
    EXPECT_EQ(task.type, "");
    EXPECT_EQ(task.magType, "DIF");
}

// The arguments of a note, with all that it takes in.
struct Note
{
    TPorogs porogs{};
    THeadBlobs frame{};
    TLocPhotoBlob target{};
    TLocPhotoBlob comparison{};
    TLCTask task{};
    TReportVS report{};

    int save(const std::string& path)
    {
        return sHeadLightCurve(path, porogs, frame, target, comparison, task, report);
    }

    std::string written()
    {
        const TemporaryFolder folder;
        EXPECT_EQ(save(folder / "note.xml"), 0);
        return bytesOf(folder / "note.xml");
    }
};

Note filledNote()
{
    Note note;
    note.porogs.basicSettings.Observatory = "Mayhill";
    note.porogs.basicSettings.Telescope = "T1";
    note.porogs.mpc.MPCHeader.OBS = "A. Observer";
    note.frame.Instrument = "FLI";
    note.frame.Filter = "V";
    note.frame.Exposure = 120.0;
    note.target.Mark = {.RA = 15.0, .DE = -0.5, .SpareText = "V1023 Her", .KNAME = "000-BCD"};
    note.comparison.Mark = {.Spare3 = 12.345};
    note.report.TimeSystem = "UTC";
    return note;
}

// The text between the tags of an element that has a line of its own.
std::string valueOf(const std::string& document, const std::string& key)
{
    const std::string begin = "    <" + key + ">";
    const std::size_t first = document.find(begin);
    const std::size_t last = document.find("</" + key + ">\n");
    if (first == std::string::npos || last == std::string::npos) {
        return "no " + key;
    }
    return document.substr(first + begin.size(), last - first - begin.size());
}

} // namespace

TEST(LightCurveTask, NewRecords)
{
    expectNewTask(TLCTask{});
    const TInvestObj object;
    EXPECT_EQ(object.name, "");
    EXPECT_TRUE(object.ra.empty());
    EXPECT_TRUE(object.de.empty());
    const TCompareStar star;
    EXPECT_EQ(star.name, "");
    EXPECT_EQ(star.ra, 0.0);
    EXPECT_EQ(star.de, 0.0);
    EXPECT_TRUE(star.filters.empty());
    EXPECT_EQ(TReportVS{}.TimeSystem, "");
}

TEST(LightCurveTask, GuardsOpenTheRecord)
{
    const auto [guardResearch, guardComparison, research, comparison, series, telescope, type, magType] =
        TLCTask{1, 2, {}, {}, "series", "telescope", "type", "STD"};
    static_assert(std::is_same_v<decltype(guardResearch), const int>);
    static_assert(std::is_same_v<decltype(guardComparison), const int>);
    EXPECT_EQ(guardResearch, 1);
    EXPECT_EQ(guardComparison, 2);
    EXPECT_TRUE(research.empty());
    EXPECT_TRUE(comparison.empty());
    EXPECT_EQ(series, "series");
    EXPECT_EQ(telescope, "telescope");
    EXPECT_EQ(type, "type");
    EXPECT_EQ(magType, "STD");
}

TEST(LightCurveTask, AllKeys)
{
    const TLCTask task = taskOf("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                                "<lctask>\n"
                                "    <type>variable</type>\n"
                                "    <telescope>T1</telescope>\n"
                                "    <series>night 1</series>\n"
                                "    <research>\n"
                                "        <res>\n"
                                "            <name>V1023 Her</name>\n"
                                "            <ra>17:30:15.25</ra>\n"
                                "            <de>-00:30:00.5</de>\n"
                                "        </res>\n"
                                "        <res>\n"
                                "            <name>SS Cyg</name>\n"
                                "            <ra>21 42 42.8</ra>\n"
                                "            <de>43 35 09.9</de>\n"
                                "        </res>\n"
                                "    </research>\n"
                                "    <comparison>\n"
                                "        <cmp>\n"
                                "            <name>000-BCD</name>\n"
                                "            <ra>187.5</ra>\n"
                                "            <de>-12.25</de>\n"
                                "            <filters>V=12.345;B=13.5;Ic=11</filters>\n"
                                "        </cmp>\n"
                                "        <cmp>\n"
                                "            <name>000-BCE</name>\n"
                                "            <ra>01:00:00</ra>\n"
                                "            <de>10.20.30.9</de>\n"
                                "        </cmp>\n"
                                "    </comparison>\n"
                                "</lctask>\n");
    EXPECT_EQ(task.guardResearch, 0);
    EXPECT_EQ(task.guardComparison, 0);
    EXPECT_EQ(task.type, "variable");
    EXPECT_EQ(task.telescope, "T1");
    EXPECT_EQ(task.series, "night 1");
    EXPECT_EQ(task.magType, "DIF");

    ASSERT_EQ(task.research.size(), 2u);
    EXPECT_EQ(task.research[0].name, "V1023 Her");
    ASSERT_EQ(task.research[0].ra.size(), 1u);
    ASSERT_EQ(task.research[0].de.size(), 1u);
    EXPECT_DOUBLE_EQ(task.research[0].ra[0], hours(17, 30, 15.25));
    EXPECT_DOUBLE_EQ(task.research[0].de[0], -degrees(0, 30, 0.5));
    EXPECT_EQ(task.research[1].name, "SS Cyg");
    ASSERT_EQ(task.research[1].ra.size(), 1u);
    ASSERT_EQ(task.research[1].de.size(), 1u);
    EXPECT_DOUBLE_EQ(task.research[1].ra[0], hours(21, 42, 42.8));
    EXPECT_DOUBLE_EQ(task.research[1].de[0], degrees(43, 35, 9.9));

    ASSERT_EQ(task.comparison.size(), 2u);
    EXPECT_EQ(task.comparison[0].name, "000-BCD");
    EXPECT_EQ(task.comparison[0].ra, 187.5);
    EXPECT_EQ(task.comparison[0].de, -12.25);
    EXPECT_EQ(task.comparison[0].filters, (Filters{{"V", 12.345}, {"B", 13.5}, {"Ic", 11.0}}));
    EXPECT_EQ(task.comparison[1].name, "000-BCE");
    EXPECT_EQ(task.comparison[1].ra, 15.0);
    EXPECT_DOUBLE_EQ(task.comparison[1].de, degrees(10, 20, 30));
    EXPECT_TRUE(task.comparison[1].filters.empty());
}

TEST(LightCurveTask, FileThatCannotBeLoadedGivesANewTask)
{
    const TemporaryFolder folder;
    expectNewTask(lLCTask(folder / "missing.xml"));
    expectNewTask(lLCTask(folder.path()));
    expectNewTask(lLCTask(""));
    const std::string documents[] = {
        "",
        "no xml",
        "<?xml version=\"1.0\"?>\n",
        "<?xml version=\"1.0\"?>\n<!-- nothing -->\n",
        "<task><type>T</type>",
        "<task><type>T</telescope></task>",
    };
    for (const std::string& document : documents) {
        SCOPED_TRACE(document);
        expectNewTask(taskOf(document));
    }
}

TEST(LightCurveTask, EmptyRootGivesANewTask)
{
    expectNewTask(taskOf("<task/>"));
    expectNewTask(taskOf("<task></task>"));
    expectNewTask(taskWith("<type/><telescope></telescope><series/><research/><comparison></comparison>"));
}

TEST(LightCurveTask, NameOfTheRootIsNotLookedAt)
{
    EXPECT_EQ(taskOf("<anything><type>T</type></anything>").type, "T");
    EXPECT_EQ(taskOf("<first><type>T</type></first>").type, "T");
}

TEST(LightCurveTask, TextsKeepTheirBlanks)
{
    const TLCTask task = taskWith("<type> a  b </type><telescope>\tT1</telescope><series> s </series>");
    EXPECT_EQ(task.type, " a  b ");
    EXPECT_EQ(task.telescope, "\tT1");
    EXPECT_EQ(task.series, " s ");
    EXPECT_EQ(objectWith("<name>  V  1 </name>").name, "  V  1 ");
    EXPECT_EQ(starWith("<name>  C  1 </name>").name, "  C  1 ");
}

TEST(LightCurveTask, KindOfMagnitudeIsNotRead)
{
    const TLCTask task = taskWith("<magType>STD</magType><magtype>STD</magtype><MTYPE>STD</MTYPE>"
                                  "<mag_type>STD</mag_type><guardResearch>1</guardResearch>");
    EXPECT_EQ(task.magType, "DIF");
    EXPECT_EQ(task.guardResearch, 0);
}

TEST(LightCurveTask, TextsInOtherPlacesAreNotRead)
{
    expectNewTask(taskWith("<other><type>T</type><res><name>N</name></res><cmp><name>C</name></cmp></other>"
                           "<Type>T</Type><res><name>N</name></res><cmp><name>C</name></cmp>"));
    EXPECT_TRUE(taskWith("<research><cmp><name>C</name></cmp></research>").research.empty());
    EXPECT_TRUE(taskWith("<research><cmp><name>C</name></cmp></research>").comparison.empty());
    EXPECT_TRUE(taskWith("<comparison><res><name>C</name></res></comparison>").research.empty());
    EXPECT_TRUE(taskWith("<comparison><res><name>C</name></res></comparison>").comparison.empty());
}

TEST(LightCurveTask, SeveralListsFollowEachOther)
{
    const TLCTask task =
        taskWith("<research><res><name>A</name></res><res><name>B</name></res></research>"
                 "<comparison><cmp><name>K</name></cmp></comparison>"
                 "<research/>"
                 "<research><other><name>no</name></other><res><name>C</name></res></research>"
                 "<comparison><cmp><name>L</name></cmp><cmp><name>M</name></cmp></comparison>");
    ASSERT_EQ(task.research.size(), 3u);
    EXPECT_EQ(task.research[0].name, "A");
    EXPECT_EQ(task.research[1].name, "B");
    EXPECT_EQ(task.research[2].name, "C");
    ASSERT_EQ(task.comparison.size(), 3u);
    EXPECT_EQ(task.comparison[0].name, "K");
    EXPECT_EQ(task.comparison[1].name, "L");
    EXPECT_EQ(task.comparison[2].name, "M");
}

TEST(LightCurveTask, PositionsOfAnObject)
{
    const struct
    {
        const char* ra;
        const char* de;
        double degreesRA;
        double degreesDE;
    } rows[] = {
        {"12:30:00", "12:30:00", 187.5, 12.5},
        {"12 30 00", "-12 30 00", 187.5, -12.5},
        {"01:00:00.00", "-00:30:00.0", 15.0, -0.5},
        {"12.5", "-12.5", 12.5, -12.5},
        {"12.5", "+12:30:00", 12.5, 12.5},
        // A fourth part, after a point, is not read.
        {"0", "12.30.00.9", 0.0, 12.5},
        {"abc", "abc", 0.0, 0.0},
        // Out of range for both: the text had two parts, or more than three.
        {"12 30", "12 30", -100.0, -100.0},
        {"12:30", "12:30", -100.0, -100.0},
        {"1 2 3 4", "1:2:3:4", -100.0, -100.0},
        {" 12:30:00", " 12:30:00", -100.0, -100.0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(std::string(row.ra) + " | " + row.de);
        const TInvestObj object =
            objectWith(std::string("<name>N</name><ra>") + row.ra + "</ra><de>" + row.de + "</de>");
        EXPECT_EQ(object.name, "N");
        ASSERT_EQ(object.ra.size(), 1u);
        ASSERT_EQ(object.de.size(), 1u);
        EXPECT_DOUBLE_EQ(object.ra[0], row.degreesRA);
        EXPECT_DOUBLE_EQ(object.de[0], row.degreesDE);
        const TCompareStar star =
            starWith(std::string("<name>N</name><ra>") + row.ra + "</ra><de>" + row.de + "</de>");
        EXPECT_DOUBLE_EQ(star.ra, row.degreesRA);
        EXPECT_DOUBLE_EQ(star.de, row.degreesDE);
    }
}

TEST(LightCurveTask, ObjectWithHalfAPositionHasNone)
{
    for (const char* content :
         {"<name>N</name>", "<name>N</name><ra>12:30:00</ra>", "<name>N</name><de>12:30:00</de>",
          "<name>N</name><ra/><de>12:30:00</de>", "<name>N</name><ra>12:30:00</ra><de></de>",
          "<name>N</name><RA>12:30:00</RA><DE>12:30:00</DE>"})
    {
        SCOPED_TRACE(content);
        const TInvestObj object = objectWith(content);
        EXPECT_EQ(object.name, "N");
        EXPECT_TRUE(object.ra.empty());
        EXPECT_TRUE(object.de.empty());
    }
}

TEST(LightCurveTask, ObjectsWithoutPositionKeepTheirPlace)
{
    const TLCTask task = taskWith("<research><res><name>A</name></res>"
                                  "<res><ra>15.0</ra><de>-0.5</de></res>"
                                  "<res><name>C</name><ra>30.0</ra></res></research>");
    ASSERT_EQ(task.research.size(), 3u);
    EXPECT_EQ(task.research[0].name, "A");
    EXPECT_TRUE(task.research[0].ra.empty());
    EXPECT_EQ(task.research[1].name, "");
    EXPECT_EQ(task.research[1].ra, std::vector<double>{15.0});
    EXPECT_EQ(task.research[1].de, std::vector<double>{-0.5});
    EXPECT_EQ(task.research[2].name, "C");
    EXPECT_TRUE(task.research[2].ra.empty());
    EXPECT_TRUE(task.research[2].de.empty());
}

TEST(LightCurveTask, EachPartOfAStarsPositionStandsAlone)
{
    const TCompareStar rightAscension = starWith("<ra>12:30:00</ra>");
    EXPECT_EQ(rightAscension.name, "");
    EXPECT_EQ(rightAscension.ra, 187.5);
    EXPECT_EQ(rightAscension.de, 0.0);
    const TCompareStar declination = starWith("<de>-12:30:00</de><ra/>");
    EXPECT_EQ(declination.ra, 0.0);
    EXPECT_EQ(declination.de, -12.5);
    const TCompareStar none = starWith("<name>C</name>");
    EXPECT_EQ(none.name, "C");
    EXPECT_EQ(none.ra, 0.0);
    EXPECT_EQ(none.de, 0.0);
    EXPECT_TRUE(none.filters.empty());
}

TEST(LightCurveTask, ValuesOfOneStarDoNotReachTheNext)
{
    const TLCTask task =
        taskWith("<comparison>"
                 "<cmp><name>A</name><ra>15</ra><de>1</de><filters>V=1</filters></cmp>"
                 "<cmp><name>B</name></cmp>"
                 "</comparison>"
                 "<research><res><name>A</name><ra>15</ra><de>1</de></res><res/></research>");
    ASSERT_EQ(task.comparison.size(), 2u);
    EXPECT_EQ(task.comparison[1].name, "B");
    EXPECT_EQ(task.comparison[1].ra, 0.0);
    EXPECT_EQ(task.comparison[1].de, 0.0);
    EXPECT_TRUE(task.comparison[1].filters.empty());
    ASSERT_EQ(task.research.size(), 2u);
    EXPECT_EQ(task.research[1].name, "");
    EXPECT_TRUE(task.research[1].ra.empty());
}

TEST(LightCurveTask, Filters)
{
    const struct
    {
        const char* text;
        Filters filters;
    } rows[] = {
        {"V=12.345", {{"V", 12.345}}},
        {"V=12.345;", {{"V", 12.345}}},
        {"V=12.345;B=13.5", {{"V", 12.345}, {"B", 13.5}}},
        {"V=1;V=2", {{"V", 1.0}, {"V", 2.0}}},
        {"Clear filter=-1.5", {{"Clear filter", -1.5}}},
        {" V= 12.5 ; B =1", {{" V", 12.5}, {" B ", 1.0}}},
        {"V=abc", {{"V", 0.0}}},
        {"V=12.5mag", {{"V", 12.5}}},
        {"V=1e1", {{"V", 10.0}}},
        {"=12.5", {{"", 12.5}}},
        // Items of one part, of none and of three are dropped.
        {"V", {}},
        {"V;B=13.5", {{"B", 13.5}}},
        {"V=", {}},
        {"V=1=2", {}},
        {"V=1=2;B=13.5;R", {{"B", 13.5}}},
        {";;V=1;;B=2;;", {{"V", 1.0}, {"B", 2.0}}},
        {";", {}},
        {"V:12.5,B:13.5", {}},
        {"V=1,B=2", {}},
        {"V=12,5", {{"V", 12.0}}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(starWith(std::string("<filters>") + row.text + "</filters>").filters, row.filters);
    }
    EXPECT_TRUE(starWith("<filters/>").filters.empty());
    EXPECT_TRUE(starWith("<filters></filters>").filters.empty());
}

TEST(LightCurveNote, WholeDocument)
{
    EXPECT_EQ(filledNote().written(), "<?xml version=\"1.0\" ?>\n"
                                      "<Note>\n"
                                      "    <Observatory>Mayhill</Observatory>\n"
                                      "    <Observer>A. Observer</Observer>\n"
                                      "    <Telescope>T1</Telescope>\n"
                                      "    <Instrument>FLI</Instrument>\n"
                                      "    <Filter>V</Filter>\n"
                                      "    <Exposure>120.00</Exposure>\n"
                                      "    <Target>V1023 Her</Target>\n"
                                      "    <Position>01:00:00.00 -00:30:00.0</Position>\n"
                                      "    <MainComp>000-BCD</MainComp>\n"
                                      "    <Source>true</Source>\n"
                                      "    <ReferenceMagnitude>12.345</ReferenceMagnitude>\n"
                                      "    <MagnitudeSystem>User</MagnitudeSystem>\n"
                                      "    <TimeSystem>UTC</TimeSystem>\n"
                                      "    <Reduction>Ensemble photometry with Vomar</Reduction>\n"
                                      "    <Comment>true</Comment>\n"
                                      "</Note>\n");
}

TEST(LightCurveNote, NewRecords)
{
    EXPECT_EQ(Note{}.written(), "<?xml version=\"1.0\" ?>\n"
                                "<Note>\n"
                                "    <Observatory>observatory</Observatory>\n"
                                "    <Observer></Observer>\n"
                                "    <Telescope>telescope</Telescope>\n"
                                "    <Instrument></Instrument>\n"
                                "    <Filter></Filter>\n"
                                "    <Exposure>0.00</Exposure>\n"
                                "    <Target></Target>\n"
                                "    <Position>00:00:00.00 00:00:00.0</Position>\n"
                                "    <MainComp></MainComp>\n"
                                "    <Source>true</Source>\n"
                                "    <ReferenceMagnitude>0.000</ReferenceMagnitude>\n"
                                "    <MagnitudeSystem>User</MagnitudeSystem>\n"
                                "    <TimeSystem></TimeSystem>\n"
                                "    <Reduction>Ensemble photometry with Vomar</Reduction>\n"
                                "    <Comment>true</Comment>\n"
                                "</Note>\n");
}

TEST(LightCurveNote, FieldsOfTheSameMeaningElsewhereAreNotTaken)
{
    Note note = filledNote();
    const std::string document = note.written();
    note.porogs.basicSettings.Filter = "B";
    note.porogs.mpc.MPCHeader.COD = "K88";
    note.porogs.mpc.MPCHeader.MEA = "M. Measurer";
    note.porogs.mpc.MPCHeader.TEL = "0.5-m";
    note.frame.PathFit = "a.fit";
    note.frame.CRVAL1 = 30.0;
    note.frame.CRVAL2 = 40.0;
    note.frame.Marks = {note.comparison.Mark};
    note.target.Head.Instrument = "other";
    note.target.Head.Filter = "I";
    note.target.Head.Exposure = 1.0;
    note.target.Mark.Spare3 = 1.0;
    note.target.Mark.CNAME = "other";
    note.target.Mark.MTYPE = "STD";
    note.comparison.Head.Instrument = "other";
    note.comparison.Mark.RA = 30.0;
    note.comparison.Mark.DE = 30.0;
    note.comparison.Mark.KNAME = "other";
    note.comparison.Mark.SpareText = "other";
    note.comparison.Mark.Spare2 = 1.0;
    note.comparison.Mark.m = 2.0;
    note.task = {1, 1, {{"R", {1.0}, {2.0}}}, {{"C", 1.0, 2.0, {{"V", 3.0}}}}, "s", "t", "type", "STD"};
    EXPECT_EQ(note.written(), document);
}

TEST(LightCurveNote, Numbers)
{
    const struct
    {
        double value;
        const char* exposure;
        const char* magnitude;
    } rows[] = {
        {0.125, "0.12", "0.125"},     {30.0, "30.00", "30.000"}, {1800.0, "1800.00", "1800.000"},
        {0.0625, "0.06", "0.062"},    {-1.5, "-1.50", "-1.500"}, {59.9996, "60.00", "60.000"},
        {-0.0001, "-0.00", "-0.000"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.exposure);
        Note note;
        note.frame.Exposure = row.value;
        note.comparison.Mark.Spare3 = row.value;
        const std::string document = note.written();
        EXPECT_EQ(valueOf(document, "Exposure"), row.exposure);
        EXPECT_EQ(valueOf(document, "ReferenceMagnitude"), row.magnitude);
    }
}

TEST(LightCurveNote, Positions)
{
    const struct
    {
        double RA;
        double DE;
        const char* text;
    } rows[] = {
        {0.0, 0.0, "00:00:00.00 00:00:00.0"},
        {187.5, 45.25, "12:30:00.00 45:15:00.0"},
        {15.0, -0.5, "01:00:00.00 -00:30:00.0"},
        {360.0, 90.0, "24:00:00.00 90:00:00.0"},
        // Seconds that round up are written as 60.
        {359.9999999, 9.9999999, "23:59:60.00 09:59:60.0"},
        {-15.0, -89.5, "-01:00:00.00 -89:30:00.0"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        Note note;
        note.target.Mark.RA = row.RA;
        note.target.Mark.DE = row.DE;
        EXPECT_EQ(valueOf(note.written(), "Position"), row.text);
    }
}

TEST(LightCurveNote, MarkupInTextsIsEscaped)
{
    Note note = filledNote();
    note.porogs.basicSettings.Observatory = "A & B";
    note.target.Mark.SpareText = "<V1>";
    note.target.Mark.KNAME = "\"K\" '1'";
    note.report.TimeSystem = " UTC ";
    const std::string document = note.written();
    EXPECT_EQ(valueOf(document, "Observatory"), "A &amp; B");
    EXPECT_EQ(valueOf(document, "Target"), "&lt;V1&gt;");
    EXPECT_EQ(valueOf(document, "MainComp"), "&quot;K&quot; &apos;1&apos;");
    EXPECT_EQ(valueOf(document, "TimeSystem"), " UTC ");
}

TEST(LightCurveNote, ReportIsLeftAsItIs)
{
    Note note = filledNote();
    note.written();
    EXPECT_EQ(note.report.TimeSystem, "UTC");
}

TEST(LightCurveNote, FileIsReplaced)
{
    const TemporaryFolder folder;
    makeFile(folder / "note.xml", std::string(5000, 'x'));
    EXPECT_EQ(filledNote().save(folder / "note.xml"), 0);
    EXPECT_EQ(bytesOf(folder / "note.xml"), filledNote().written());
}

TEST(LightCurveNote, WhatCannotBeWrittenGives1)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    EXPECT_EQ(filledNote().save(folder / "folder"), 1);
    EXPECT_TRUE(std::filesystem::is_directory(folder / "folder"));
    EXPECT_EQ(filledNote().save(folder / "missing/note.xml"), 1);
    EXPECT_FALSE(exists(folder / "missing"));
    EXPECT_EQ(filledNote().save("/dev/full"), 1);
    EXPECT_EQ(filledNote().save(""), 1);
}
