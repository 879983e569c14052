#include "multi_report.h"

#include "support/child_process.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Names = std::set<std::string>;

// A mark of a table: its time on 25 February 2023 and its magnitude.
struct TableMark
{
    std::string time;
    std::string m;
};

// A track of a table, closed by its line. Every mark stands at 1h and half a degree south.
std::string track(const std::string& name, const std::string& checker, const std::string& norad,
                  const std::vector<TableMark>& marks)
{
    std::string text;
    for (const TableMark& mark : marks) {
        text += name + "\t" + checker + "\t" + norad + "\t2023-02-25\t" + mark.time + "\t15.0\t-0.5\t" +
                mark.m + "\n";
    }
    return text + "---\n";
}

// A track of one name that nobody has identified, with a mark at noon.
std::string nameless(const std::string& name)
{
    return track(name, "", "", {{"12:00:00", "9.5"}});
}

std::string table(const std::string& tracks)
{
    return "v2\nQRVName:Text\tMPCChecker:Text\tNORAD:Text\tdate:Date\ttime:Time\tRA:Float:deg\tDE:Float:"
           "deg\tm:"
           "Float:mag\n" +
           tracks;
}

std::string configuration(const std::string& service, const std::string& inner = "")
{
    return "<root><Service>" + service + "</Service>" + inner + "</root>\n";
}

std::string withCode(const std::string& code)
{
    return "<ReportSettings><MPCReport><MPCcode>" + code + "</MPCcode></MPCReport></ReportSettings>";
}

// A line of an MPC report: the name in its twelve columns, day with five decimals, magnitude, code.
std::string line(const std::string& name, const std::string& day, const std::string& m,
                 const std::string& code = "500")
{
    return name + "  C2023 02 " + day + " 01 00 00.00 -00 30 00.0          " + m + " R      " + code + "\n";
}

const std::string tableInSeries = "/tavelin/dataVO/obj.txt";

// A task on series folders of its own; what it writes stands below out/.
class Bench
{
public:
    TConvMea task;

    Bench()
    {
        std::filesystem::create_directory(folder / "out");
        task.inputformat = "vomar";
        task.outputformat = "mpc";
        task.outputextension = "txt";
        task.out_dir = folder / "out/";
        task.longname = false;
        task.toSeparateFile = "allobjects";
    }

    // A series of that table and, unless it is empty, that configuration.
    TSeria2& add(const std::string& name, const std::string& tracks, const std::string& conf = "")
    {
        const std::string series = folder / name;
        std::filesystem::create_directories(series + "/tavelin/dataVO");
        makeFile(series + tableInSeries, table(tracks));
        if (!conf.empty()) {
            makeFile(series + "/" + name + ".conf", conf);
        }
        return addPath(series + tableInSeries);
    }

    TSeria2& addPath(const std::string& path)
    {
        TSeria2 seria;
        seria.path = path;
        seria.filter = "R";
        seria.telescope = "T1";
        task.paths.push_back(seria);
        return task.paths.back();
    }

    // Expects code 0 and those names, in this order.
    void expectWell(const std::vector<std::string>& names)
    {
        expect(0, names);
    }

    // Expects code -1, and the names that were tried all the same.
    void expectLeftOut(const std::vector<std::string>& names)
    {
        expect(-1, names);
    }

    // The tracks as they were handed to the writers.
    std::vector<TrackList> tracks() const
    {
        std::vector<TrackList> reports;
        EXPECT_EQ(CreateMultiReport(task, reports).Code, 0);
        return reports;
    }

    // The names of the tracks of all files.
    std::vector<std::string> trackNames() const
    {
        std::vector<std::string> names;
        for (const TrackList& list : tracks()) {
            for (const TrackVtorichka& one : list) {
                names.push_back(one.QRVName);
            }
        }
        return names;
    }

    Names written() const
    {
        return filesBelow(folder / "out");
    }

    std::string bytes(const std::string& name) const
    {
        return bytesOf(folder / ("out/" + name));
    }

    std::string operator/(const std::string& name) const
    {
        return folder / name;
    }

private:
    void expect(int code, const std::vector<std::string>& names)
    {
        const TFuncRes result = CreateMultiReport(task);
        EXPECT_EQ(result.Code, code);
        EXPECT_EQ(result.Comment, "OK");
        std::string description;
        for (const std::string& name : names) {
            description += task.out_dir + name + ";";
        }
        EXPECT_EQ(result.Description, description);
    }

    TemporaryFolder folder;
};

using Texts = std::vector<std::string>;

// Two series: A is in both, the tracks of the first have a gap of an hour, the second has one mark.
void addTwoSeries(Bench& bench)
{
    bench.add("s1", track("A", "", "",
                          {{"12:00:00", "1"},
                           {"12:10:00", "2"},
                           {"12:20:00", "3"},
                           {"13:20:00", "4"},
                           {"13:30:00", "5"},
                           {"13:40:00", "6"}}) +
                        track("B", "", "", {{"12:00:00", "7"}, {"12:10:00", "8"}}));
    bench.add("s2", track("A", "", "", {{"12:10:00", "9"}})).telescope = "T2";
}

const std::string A = "           A";
const std::string B = "           B";

// A folder with a series s1 of those tracks and a task on it; further keys stand in front and so win.
class ToolBench
{
public:
    explicit ToolBench(const std::string& tracks)
    {
        std::filesystem::create_directories(folder / "s1/tavelin/dataVO");
        std::filesystem::create_directory(folder / "out");
        makeFile(folder / ("s1" + tableInSeries), table(tracks));
    }

    ChildEnd run(TaskKeys keys, const std::string& path, const std::string& inSeria = "")
    {
        const TaskKeys rest{{"inputformat", "vomar"},
                            {"out_dir", "out"},
                            {"outputformat", "mpc"},
                            {"outputextension", "txt"},
                            {"path_res", "out/result.xml"},
                            {"paths", "<seria><path>" + path + "</path>" + inSeria + "</seria>"}};
        keys.insert(keys.end(), rest.begin(), rest.end());
        makeFile(folder / "task.xml", taskText(keys));
        return runTool("task.xml", folder.path());
    }

    Names written() const
    {
        return filesBelow(folder / "out");
    }

    std::string operator/(const std::string& name) const
    {
        return folder / name;
    }

private:
    TemporaryFolder folder;
};

const std::string tableOfTool = "s1" + tableInSeries;

} // namespace

// What is read.

TEST(MultiReport, NoSeriesIsReported)
{
    for (const char* const whatSave : {"", "object"}) {
        for (const char* const division : {"", "allobjects", "eachseria", "eachobject", "eachgroup"}) {
            SCOPED_TRACE(division);
            Bench bench;
            bench.task.whatSave = whatSave;
            bench.task.toSeparateFile = division;
            const TFuncRes result = CreateMultiReport(bench.task);
            EXPECT_EQ(result.Code, -1);
            EXPECT_EQ(result.Comment, "OK");
            EXPECT_EQ(result.Description, "paths.size() == 0");
            EXPECT_EQ(bench.written(), Names{});
        }
    }
}

TEST(MultiReport, MissingTableGivesNoTracks)
{
    Bench bench;
    bench.addPath(bench / ("missing" + tableInSeries));
    bench.add("s1", nameless("12345"));
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("12345       ", "25.50000", "09.5"));
}

TEST(MultiReport, EmptyPathOfASeriesIsRaised)
{
    Bench bench;
    bench.add("s1", nameless("12345"));
    bench.addPath("");
    EXPECT_THROW(CreateMultiReport(bench.task), std::out_of_range);
    EXPECT_EQ(bench.written(), Names{});
}

TEST(MultiReport, SeriesWithoutConfigurationHasTheDefaults)
{
    Bench bench;
    bench.task.originator = "origin";
    bench.add("s1", track("12345", "K13A01A", "40001", {{"12:00:00", "9.5"}}));
    const std::vector<TrackList> reports = bench.tracks();
    ASSERT_EQ(reports.size(), 1U);
    ASSERT_EQ(reports[0].size(), 1U);
    const TrackVtorichka& one = reports[0][0];
    EXPECT_EQ(one.QRVName, "12345");
    EXPECT_EQ(one.ObsCode, "CODEAAVSO");
    EXPECT_EQ(one.MPCHeader.COD, "500");
    EXPECT_EQ(one.MPCHeader.CON + one.MPCHeader.OBS + one.MPCHeader.MEA + one.MPCHeader.COM +
                  one.MPCHeader.TEL + one.MPCHeader.ACK + one.MPCHeader.AC2 + one.MPCHeader.NET,
              "");
    EXPECT_TRUE(one.MPCHeader.HeaderOn);
    EXPECT_FALSE(one.MPCHeader.HeaderFlag2);
    EXPECT_EQ(one.Series, "R");
    EXPECT_EQ(one.telescope, "T1");
    EXPECT_EQ(one.originator, "origin");
}

TEST(MultiReport, BrokenConfigurationLeavesTheDefaults)
{
    for (const char* const text : {"<root><Service>asteroids</Service>", "no XML", "<!-- nothing -->",
                                   "<root><Service>asteroids</Service></toor>"})
    {
        SCOPED_TRACE(text);
        Bench bench;
        bench.add("s1", nameless("12345"), text);
        bench.expectWell({"out.txt"});
        EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("12345       ", "25.50000", "09.5"));
    }
}

TEST(MultiReport, ConfigurationIsFoundAnywhereBelowTheSeries)
{
    for (const char* const name :
         {"/a.conf", "/.conf", "/a.b.conf", "/tavelin/a.conf", "/tavelin/dataVO/a.conf", "/x/y/z/a.conf"})
    {
        SCOPED_TRACE(name);
        Bench bench;
        bench.add("s1", nameless("A"));
        const std::string path = bench / ("s1" + std::string(name));
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        makeFile(path, configuration("asteroids"));
        EXPECT_EQ(bench.trackNames(), (Texts{"AST1000"}));
    }
}

TEST(MultiReport, OtherNamesAreNoConfiguration)
{
    for (const char* const name : {"/a.CONF", "/a.conf.bak", "/conf", "/aconf", "/a.config"}) {
        SCOPED_TRACE(name);
        Bench bench;
        bench.add("s1", nameless("A"));
        makeFile(bench / ("s1" + std::string(name)), configuration("asteroids"));
        // Beside the series, not in it.
        makeFile(bench / "beside.conf", configuration("asteroids"));
        std::filesystem::create_directory(bench / "s1/folder.conf");
        EXPECT_EQ(bench.trackNames(), (Texts{"A"}));
    }
}

TEST(MultiReport, OfTwoConfigurationsTheFirstInTheFolderCounts)
{
    Bench bench;
    bench.add("s1", nameless("A"), "empty");
    makeFile(bench / "s1/a.conf", "");
    // The order is that of the folder, whatever the names are.
    std::vector<std::string> found;
    for (const auto& entry : std::filesystem::directory_iterator(bench / "s1")) {
        if (entry.path().extension() == ".conf") {
            found.push_back(entry.path().string());
        }
    }
    ASSERT_EQ(found.size(), 2U);
    makeFile(found[0], configuration("asteroids", withCode("I41")));
    makeFile(found[1], configuration("satellites", withCode("I42")));
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD I41\n" + line("     AST1000", "25.50000", "09.5", "I41"));

    // A broken one is not passed over for the next.
    makeFile(found[0], "<root>");
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("           A", "25.50000", "09.5"));
}

// Exclusions.

TEST(MultiReport, ExcludedMarksAreGone)
{
    Bench bench;
    bench
        .add("s1", track("A", "", "", {{"12:00:00", "1"}, {"13:00:00", "2"}, {"14:00:00", "3"}}) +
                       track("B", "", "", {{"12:00:00", "4"}, {"13:00:00", "5"}}))
        .excludes = {{1, {0}}, {0, {0, 2}}};
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("           A", "25.54167", "02.0") +
                                          line("           B", "25.54167", "05.0"));
}

TEST(MultiReport, EachExclusionCountsInWhatTheOneBeforeLeft)
{
    const std::string four =
        track("A", "", "", {{"00:00:00", "1"}, {"06:00:00", "2"}, {"12:00:00", "3"}, {"18:00:00", "4"}});
    Bench together;
    together.add("s1", four).excludes = {{0, {0, 1}}};
    together.expectWell({"out.txt"});
    EXPECT_EQ(together.bytes("out.txt"), "COD 500\n" + line("           A", "25.50000", "03.0") +
                                             line("           A", "25.75000", "04.0"));

    Bench apart;
    apart.add("s1", four).excludes = {{0, {0}}, {0, {1}}};
    apart.expectWell({"out.txt"});
    EXPECT_EQ(apart.bytes("out.txt"), "COD 500\n" + line("           A", "25.25000", "02.0") +
                                          line("           A", "25.75000", "04.0"));

    Bench twice;
    twice.add("s1", four).excludes = {{0, {0}}, {0, {0}}, {0, {}}, {0, {0}}};
    twice.expectWell({"out.txt"});
    EXPECT_EQ(twice.bytes("out.txt"), "COD 500\n" + line("           A", "25.75000", "04.0"));
}

TEST(MultiReport, ExclusionsOfWhatDoesNotExistArePassedOver)
{
    Bench bench;
    bench.add("s1", nameless("A")).excludes = {
        {1, {0}}, {-1, {0}}, {0, {1, -1, 2147483647}}, {2147483647, {0}}};
    bench.add("s2", "").excludes = {{0, {0}}};
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("           A", "25.50000", "09.5"));
}

TEST(MultiReport, ExclusionsBelongToTheirSeries)
{
    const std::string two = track("A", "", "", {{"00:00:00", "1"}, {"06:00:00", "2"}});
    Bench bench;
    bench.add("s1", two).excludes = {{0, {0}}};
    bench.add("s2", two).excludes = {{0, {1}}};
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("           A", "25.25000", "02.0") +
                                          line("           A", "25.00000", "01.0"));
}

TEST(MultiReport, TrackThatLostItsMarksStillTakesItsNumber)
{
    Bench bench;
    bench.add("s1", nameless("A") + nameless("B") + nameless("C"), configuration("asteroids")).excludes = {
        {1, {0}}};
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("     AST1000", "25.50000", "09.5") +
                                          line("     AST1002", "25.50000", "09.5"));
    EXPECT_EQ(bench.trackNames(), (Texts{"AST1000", "AST1001", "AST1002"}));
}

TEST(MultiReport, ExclusionsComeBeforeTheDivision)
{
    // Without the second mark there is a gap behind the first.
    Bench bench;
    bench.task.toSeparateFile = "eachgroup";
    bench
        .add("s1", track("A", "", "",
                         {{"12:00:00", "1"},
                          {"12:20:00", "2"},
                          {"12:40:00", "3"},
                          {"13:00:00", "4"},
                          {"13:20:00", "5"}}))
        .excludes = {{0, {1}}};
    bench.expectWell({"A.txt", "A.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + line("           A", "25.52778", "03.0") +
                                        line("           A", "25.54167", "04.0"));
}

TEST(MultiReport, ExclusionShortensMarksAlone)
{
    Bench bench;
    bench.add("s1", track("A", "", "", {{"12:00:00", "1"}, {"13:00:00", "2"}, {"14:00:00", "3"}}))
        .excludes = {{0, {1}}};
    const std::vector<TrackList> reports = bench.tracks();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].at(0).Marks.size(), 2U);
    EXPECT_EQ(reports[0].at(0).InterBlobs.size(), 3U);
    EXPECT_EQ(reports[0].at(0).NMarks, 3);
}

// Names.

TEST(MultiReport, NumbersOfAsteroidsRunOverAllSeries)
{
    Bench bench;
    bench.add("s1", nameless("A") + nameless("B"), configuration("asteroids"));
    bench.add("s2", nameless("A"), configuration("asteroids"));
    EXPECT_EQ(bench.trackNames(), (Texts{"AST1000", "AST1001", "AST1002"}));
}

TEST(MultiReport, NumbersOfSatellitesRunOverAllSeries)
{
    Bench bench;
    bench.add("s1", nameless("A") + nameless("B"), configuration("satellites"));
    bench.add("s2", nameless("A"), configuration("satellites"));
    EXPECT_EQ(bench.trackNames(), (Texts{"99000", "99001", "99002"}));
}

TEST(MultiReport, EachServiceHasItsOwnNumbers)
{
    Bench bench;
    bench.add("s1", nameless("A"), configuration("asteroids"));
    bench.add("s2", nameless("B"), configuration("satellites"));
    bench.add("s3", nameless("C"), configuration("variablestars"));
    bench.add("s4", nameless("D"), configuration("satellites"));
    bench.add("s5", nameless("E"), configuration("asteroids"));
    EXPECT_EQ(bench.trackNames(), (Texts{"AST1000", "99000", "C", "99001", "AST1001"}));
}

TEST(MultiReport, NumbersBeginAnewWithEachRun)
{
    Bench bench;
    bench.add("s1", nameless("A"), configuration("asteroids"));
    bench.add("s2", nameless("B"), configuration("satellites"));
    EXPECT_EQ(bench.trackNames(), (Texts{"AST1000", "99000"}));
    EXPECT_EQ(bench.trackNames(), (Texts{"AST1000", "99000"}));
}

TEST(MultiReport, IdentifiedAsteroidHasTheNameOfTheChecker)
{
    Bench bench;
    bench.add("s1",
              nameless("A") + track("B", "K13A01A", "40001", {{"12:00:00", "9.5"}}) +
                  track("C", "", "40002", {{"12:00:00", "9.5"}}),
              configuration("asteroids"));
    EXPECT_EQ(bench.trackNames(), (Texts{"AST1000", "K13A01A", "AST1001"}));
}

TEST(MultiReport, IdentifiedSatelliteHasItsSecondDesignation)
{
    Bench bench;
    bench.add("s1",
              track("A", "", "40001", {{"12:00:00", "9.5"}}) + nameless("B") +
                  track("C", "K13A01A", "", {{"12:00:00", "9.5"}}),
              configuration("satellites"));
    EXPECT_EQ(bench.trackNames(), (Texts{"40001", "99000", "99001"}));
}

TEST(MultiReport, OtherServicesLeaveTheNamesOfTheTable)
{
    for (const char* const service : {"variablestars", "alignment", "identification", "airfly", "", "nothing",
                                      "Asteroids", "satellites ", "Service_Uncknown", "1", "2"})
    {
        SCOPED_TRACE(service);
        Bench bench;
        bench.add("s1", nameless("A") + track("B", "K13A01A", "40001", {{"12:00:00", "9.5"}}),
                  configuration(service));
        EXPECT_EQ(bench.trackNames(), (Texts{"A", "B"}));
    }
}

TEST(MultiReport, EachSeriesHasItsOwnConfiguration)
{
    Bench bench;
    bench.task.toSeparateFile = "eachseria";
    bench.add("s1", nameless("A"),
              configuration("asteroids",
                            withCode("I41") + "<lightCurves><AAVSOCode>ABC</AAVSOCode></lightCurves>"));
    bench.add("s2", nameless("B"));
    const std::vector<TrackList> reports = bench.tracks();
    ASSERT_EQ(reports.size(), 2U);
    EXPECT_EQ(reports[0].at(0).ObsCode, "ABC");
    EXPECT_EQ(reports[1].at(0).ObsCode, "CODEAAVSO");
    EXPECT_EQ(bench.bytes("s1.txt"), "COD I41\n" + line("     AST1000", "25.50000", "09.5", "I41"));
    EXPECT_EQ(bench.bytes("s2.txt"), "COD 500\n" + line("           B", "25.50000", "09.5"));
}

// Stamps, as written files show them.

TEST(MultiReport, HeaderOfTheReportIsThatOfTheConfiguration)
{
    Bench bench;
    bench.add("s1", nameless("A"),
              configuration("asteroids",
                            "<ReportSettings><MPCReport><MPCcode>I41</MPCcode><CON>C. Contact</CON>"
                            "<OBS>O. Observer</OBS><MEA>M. Measurer</MEA><COM>comment</COM>"
                            "<TEL>1.2-m Schmidt</TEL><ACK>night</ACK><AC2>a@b.c</AC2><NET>UCAC4</NET>"
                            "<IsMagnitudeValueToReport>false</IsMagnitudeValueToReport>"
                            "<IsImprovedAccuracy>true</IsImprovedAccuracy>"
                            "</MPCReport></ReportSettings>"));
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD I41\nCON C. Contact\nOBS O. Observer\nMEA M. Measurer\n"
                                      "TEL 1.2-m Schmidt\nACK night\nAC2 a@b.c\n" +
                                          line("     AST1000", "25.50000", "09.5", "I41"));

    const std::vector<TrackList> reports = bench.tracks();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_FALSE(reports[0].at(0).MPCHeader.HeaderOn);
    EXPECT_TRUE(reports[0].at(0).MPCHeader.HeaderFlag2);
}

TEST(MultiReport, EachTrackHasTheCodeOfItsSeries)
{
    Bench bench;
    bench.add("s1", nameless("A"), configuration("", withCode("I41")));
    bench.add("s2", nameless("B"), configuration("", withCode("W84")));
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD I41\n" + line("           A", "25.50000", "09.5", "I41") +
                                          line("           B", "25.50000", "09.5", "W84"));
}

TEST(MultiReport, CheckerNamesALineWhateverTheService)
{
    Bench bench;
    bench.add("s1", track("A", "K13A01A", "40001", {{"12:00:00", "9.5"}}), configuration("satellites"));
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line("     K13A01A", "25.50000", "09.5"));
    EXPECT_EQ(bench.trackNames(), (Texts{"40001"}));
}

TEST(MultiReport, ObserverCodeOfVariableStarsIsThatOfTheConfiguration)
{
    Bench bench;
    bench.task.outputformat = "aavso";
    bench.add("s1", nameless("V1023 Her"),
              configuration("variablestars", "<lightCurves><AAVSOCode>DERA</AAVSOCode></lightCurves>"));
    bench.expectWell({"out.txt"});
    // MJD 60000.5 is JD 2460001.0; nobody measured an ensemble magnitude or a signal.
    EXPECT_EQ(bench.bytes("out.txt"),
              "#TYPE=Extended\n#OBSCODE=DERA\n#SOFTWARE=Vomar\n#DELIM=,\n#DATE=JD\n#OBSTYPE=CCD\n"
              "#NAME,DATE,MAG,MAGERR,FILTER,TRANS,MTYPE,CNAME,CMAG,KNAME,KMAG,AIRMASS,GROUP,CHART,NOTES\n"
              "V1023 Her,2460001.0000000,0.000,inf,R,NO,DIF,ENSEMBLE,na,,na,na,na,na,na\n");
}

TEST(MultiReport, TelescopeAndOriginatorAreThoseOfTheTask)
{
    const struct
    {
        bool autoTelescope;
        const char* telescope;
    } rows[] = {{true, "T1"}, {false, "common"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.autoTelescope);
        Bench bench;
        bench.task.autoTelescope = row.autoTelescope;
        bench.task.PARTICIPANT_1 = "common";
        bench.task.originator = "origin";
        bench.task.REFERENCE_FRAME = "EME2000";
        bench.task.outputformat = "tdm";
        bench.add("s1", nameless("A"));
        bench.expectWell({"out.txt"});
        EXPECT_EQ(bench.bytes("out.txt"), "CCSDS_TDM_VERS = 1.0\n"
                                          "CREATION_DATE = 0-00-00T00:00:00\n"
                                          "ORIGINATOR = origin\n"
                                          "META_START\n"
                                          "TIME_SYSTEM = UTC\n"
                                          "START_TIME = 2023-02-25T12:00:00.00000\n"
                                          "STOP_TIME = 2023-02-25T12:00:00.00000\n"
                                          "PARTICIPANT_1 = " +
                                              std::string(row.telescope) +
                                              "\n"
                                              "PARTICIPANT_2 = A\n"
                                              "MODE = SEQUENTIAL\n"
                                              "PATH = 2,1\n"
                                              "ANGLE_TYPE = RADEC\n"
                                              "REFERENCE_FRAME = ICRF\n"
                                              "META_STOP\n"
                                              "DATA_START\n"
                                              "ANGLE_1 = 2023-02-25T12:00:00.00000 15.0000000\n"
                                              "ANGLE_2 = 2023-02-25T12:00:00.00000 -0.5000000\n"
                                              "MAG = 2023-02-25T12:00:00.00000 9.5000\n"
                                              "DATA_STOP\n");
    }
}

TEST(MultiReport, EachSeriesHasItsOwnTelescopeAndFilter)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.task.longname = true;
    bench.task.PARTICIPANT_1 = "common";
    bench.add("s1", nameless("A") + nameless("B"));
    TSeria2& second = bench.add("s2", nameless("C"));
    second.telescope = "T2";
    second.filter = "V";
    TSeria2& silent = bench.add("s3", nameless("D"));
    silent.telescope = TSeria2().telescope;
    silent.filter = TSeria2().filter;
    TSeria2& empty = bench.add("s4", nameless("E"));
    empty.telescope = "";
    empty.filter = "";
    bench.expectWell({"T1-A-2023-02-25T12-00-00-R.txt", "T1-B-2023-02-25T12-00-00-R.txt",
                      "T2-C-2023-02-25T12-00-00-V.txt", "telescope-D-2023-02-25T12-00-00-filter.txt",
                      "-E-2023-02-25T12-00-00-.txt"});

    bench.task.autoTelescope = false;
    bench.expectWell({"common-A-2023-02-25T12-00-00-R.txt", "common-B-2023-02-25T12-00-00-R.txt",
                      "common-C-2023-02-25T12-00-00-V.txt", "common-D-2023-02-25T12-00-00-filter.txt",
                      "common-E-2023-02-25T12-00-00-.txt"});
}

TEST(MultiReport, EmptyTextsOfTheTaskAreStampedToo)
{
    Bench bench;
    bench.task.autoTelescope = false;
    bench.task.PARTICIPANT_1 = "";
    bench.task.originator = "";
    bench.add("s1", nameless("A"));
    const std::vector<TrackList> reports = bench.tracks();
    ASSERT_EQ(reports.size(), 1U);
    EXPECT_EQ(reports[0].at(0).telescope, "");
    EXPECT_EQ(reports[0].at(0).originator, "");
}

// The four ways of division, with short and long names.

// A name tells the time without a carry: 13:20 stands as 13-19-60.
TEST(MultiReport, EachGroupWithLongNames)
{
    Bench bench;
    bench.task.toSeparateFile = "eachgroup";
    bench.task.longname = true;
    addTwoSeries(bench);
    bench.expectWell({"T1-A-2023-02-25T12-00-00-R.txt", "T1-A-2023-02-25T13-19-60-R.txt",
                      "T1-B-2023-02-25T12-00-00-R.txt", "T2-A-2023-02-25T12-10-00-R.txt"});
    EXPECT_EQ(bench.written(), (Names{"T1-A-2023-02-25T12-00-00-R.txt", "T1-A-2023-02-25T13-19-60-R.txt",
                                      "T1-B-2023-02-25T12-00-00-R.txt", "T2-A-2023-02-25T12-10-00-R.txt"}));
    EXPECT_EQ(bench.bytes("T1-A-2023-02-25T12-00-00-R.txt"),
              "COD 500\n" + line(A, "25.50000", "01.0") + line(A, "25.50694", "02.0"));
    EXPECT_EQ(bench.bytes("T1-A-2023-02-25T13-19-60-R.txt"),
              "COD 500\n" + line(A, "25.55556", "04.0") + line(A, "25.56250", "05.0"));
    EXPECT_EQ(bench.bytes("T1-B-2023-02-25T12-00-00-R.txt"),
              "COD 500\n" + line(B, "25.50000", "07.0") + line(B, "25.50694", "08.0"));
    EXPECT_EQ(bench.bytes("T2-A-2023-02-25T12-10-00-R.txt"), "COD 500\n" + line(A, "25.50694", "09.0"));
}

TEST(MultiReport, EachGroupWithShortNamesKeepsTheLastPiece)
{
    Bench bench;
    bench.task.toSeparateFile = "eachgroup";
    addTwoSeries(bench);
    bench.expectWell({"A.txt", "A.txt", "B.txt", "A.txt"});
    EXPECT_EQ(bench.written(), (Names{"A.txt", "B.txt"}));
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + line(A, "25.50694", "09.0"));
    EXPECT_EQ(bench.bytes("B.txt"), "COD 500\n" + line(B, "25.50000", "07.0") + line(B, "25.50694", "08.0"));
}

TEST(MultiReport, EachObjectWithLongNames)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.task.longname = true;
    addTwoSeries(bench);
    bench.expectWell({"T1-A-2023-02-25T12-00-00-R.txt", "T1-B-2023-02-25T12-00-00-R.txt"});
    EXPECT_EQ(bench.written(), (Names{"T1-A-2023-02-25T12-00-00-R.txt", "T1-B-2023-02-25T12-00-00-R.txt"}));
    EXPECT_EQ(bench.bytes("T1-A-2023-02-25T12-00-00-R.txt"),
              "COD 500\n" + line(A, "25.50000", "01.0") + line(A, "25.50694", "09.0") +
                  line(A, "25.50694", "02.0") + line(A, "25.51389", "03.0") + line(A, "25.55556", "04.0") +
                  line(A, "25.56250", "05.0") + line(A, "25.56944", "06.0"));
    EXPECT_EQ(bench.bytes("T1-B-2023-02-25T12-00-00-R.txt"),
              "COD 500\n" + line(B, "25.50000", "07.0") + line(B, "25.50694", "08.0"));
}

TEST(MultiReport, EachObjectWithShortNames)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    addTwoSeries(bench);
    bench.expectWell({"A.txt", "B.txt"});
    EXPECT_EQ(bench.written(), (Names{"A.txt", "B.txt"}));
}

TEST(MultiReport, EachSeriesWithShortNames)
{
    Bench bench;
    bench.task.toSeparateFile = "eachseria";
    addTwoSeries(bench);
    bench.expectWell({"s1.txt", "s2.txt"});
    EXPECT_EQ(bench.written(), (Names{"s1.txt", "s2.txt"}));
    EXPECT_EQ(bench.bytes("s1.txt"), "COD 500\n" + line(A, "25.50000", "01.0") + line(A, "25.50694", "02.0") +
                                         line(A, "25.51389", "03.0") + line(A, "25.55556", "04.0") +
                                         line(A, "25.56250", "05.0") + line(A, "25.56944", "06.0") +
                                         line(B, "25.50000", "07.0") + line(B, "25.50694", "08.0"));
    EXPECT_EQ(bench.bytes("s2.txt"), "COD 500\n" + line(A, "25.50694", "09.0"));
}

TEST(MultiReport, EachSeriesWithLongNames)
{
    Bench bench;
    bench.task.toSeparateFile = "eachseria";
    bench.task.longname = true;
    addTwoSeries(bench);
    bench.expectWell({"T1-s1-2023-02-25T12-00-00-R.txt", "T2-s2-2023-02-25T12-10-00-R.txt"});
    EXPECT_EQ(bench.written(), (Names{"T1-s1-2023-02-25T12-00-00-R.txt", "T2-s2-2023-02-25T12-10-00-R.txt"}));
}

TEST(MultiReport, AllObjectsWithShortNames)
{
    Bench bench;
    addTwoSeries(bench);
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.written(), (Names{"out.txt"}));
    EXPECT_EQ(bench.bytes("out.txt"), "COD 500\n" + line(A, "25.50000", "01.0") +
                                          line(A, "25.50694", "02.0") + line(A, "25.51389", "03.0") +
                                          line(A, "25.55556", "04.0") + line(A, "25.56250", "05.0") +
                                          line(A, "25.56944", "06.0") + line(B, "25.50000", "07.0") +
                                          line(B, "25.50694", "08.0") + line(A, "25.50694", "09.0"));
}

TEST(MultiReport, AllObjectsWithLongNames)
{
    Bench bench;
    bench.task.longname = true;
    addTwoSeries(bench);
    bench.expectWell({"T1-out-2023-02-25T12-00-00-R.txt"});
    EXPECT_EQ(bench.written(), (Names{"T1-out-2023-02-25T12-00-00-R.txt"}));
}

TEST(MultiReport, UnknownDivisionWritesNothing)
{
    for (const char* const division :
         {"", "nothing", "Allobjects", "allobjects ", "eachseries", "eachserias", "EACHGROUP"})
    {
        for (const char* const whatSave : {"", "object"}) {
            SCOPED_TRACE(division);
            Bench bench;
            bench.task.toSeparateFile = division;
            bench.task.whatSave = whatSave;
            bench.task.object = 0;
            addTwoSeries(bench);
            bench.expectWell({});
            EXPECT_EQ(bench.written(), Names{});
        }
    }
}

TEST(MultiReport, ObjectInTwoFiltersIsTwoObjects)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.add("s1", track("A", "", "", {{"12:00:00", "1"}}));
    bench.add("s2", track("A", "", "", {{"12:00:00", "2"}})).filter = "V";
    bench.add("s3", track("A", "", "", {{"12:00:00", "3"}}));
    bench.task.longname = true;
    bench.expectWell({"T1-A-2023-02-25T12-00-00-R.txt", "T1-A-2023-02-25T12-00-00-V.txt"});
    EXPECT_EQ(bench.bytes("T1-A-2023-02-25T12-00-00-R.txt"),
              "COD 500\n" + line(A, "25.50000", "03.0") + line(A, "25.50000", "01.0"));
    EXPECT_EQ(bench.bytes("T1-A-2023-02-25T12-00-00-V.txt"), "COD 500\n" + line(A, "25.50000", "02.0"));

    // Their short names are the same, and the later file stays.
    bench.task.longname = false;
    bench.expectWell({"A.txt", "A.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + line(A, "25.50000", "02.0"));
}

TEST(MultiReport, ObjectsAreThoseOfTheGivenNames)
{
    // Nobody joins what has only a running number.
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.add("s1", nameless("A") + track("B", "K13A01A", "", {{"12:00:00", "1"}}),
              configuration("asteroids"));
    bench.add("s2", nameless("A") + track("C", "K13A01A", "", {{"13:00:00", "2"}}),
              configuration("asteroids"));
    bench.expectWell({"AST1000.txt", "K13A01A.txt", "AST1001.txt"});
    EXPECT_EQ(bench.bytes("K13A01A.txt"), "COD 500\n" + line("     K13A01A", "25.50000", "01.0") +
                                              line("     K13A01A", "25.54167", "02.0"));
}

TEST(MultiReport, EqualTimesOfThreeSeriesStandLatestFirst)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.add("s1", track("A", "", "", {{"12:00:00", "1.1"}, {"13:00:00", "1.2"}}));
    bench.add("s2", track("A", "", "", {{"12:00:00", "2.1"}, {"13:00:00", "2.2"}}));
    bench.add("s3", track("A", "", "", {{"12:00:00", "3.1"}, {"13:00:00", "3.2"}}));
    bench.expectWell({"A.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + line(A, "25.50000", "03.1") + line(A, "25.50000", "02.1") +
                                        line(A, "25.50000", "01.1") + line(A, "25.54167", "03.2") +
                                        line(A, "25.54167", "02.2") + line(A, "25.54167", "01.2"));
}

TEST(MultiReport, IntervalDecidesWhereATrackIsCut)
{
    const struct
    {
        const char* what;
        double interval;
        std::vector<TableMark> marks;
        std::vector<std::string> names;
        const char* last; // the lines of the last piece
    } rows[] = {
        {"below the interval",
         30.0,
         {{"12:00:00", "1"}, {"12:29:54", "2"}},
         {"A.txt"},
         "           A  C2023 02 25.50000 01 00 00.00 -00 30 00.0          01.0 R      500\n"
         "           A  C2023 02 25.52076 01 00 00.00 -00 30 00.0          02.0 R      500\n"},
        {"half an hour that is a little more",
         30.0,
         {{"12:00:00", "1"}, {"12:30:00", "2"}},
         {"A.txt", "A.txt"},
         ""},
        {"half an hour that is a little less",
         30.0,
         {{"12:30:00", "1"}, {"13:00:00", "2"}},
         {"A.txt"},
         "           A  C2023 02 25.52083 01 00 00.00 -00 30 00.0          01.0 R      500\n"
         "           A  C2023 02 25.54167 01 00 00.00 -00 30 00.0          02.0 R      500\n"},
        {"exactly the interval", 360.0, {{"06:00:00", "1"}, {"12:00:00", "2"}}, {"A.txt", "A.txt"}, ""},
        {"interval 0",
         0.0,
         {{"12:00:00", "1"}, {"12:00:00", "2"}, {"13:00:00", "3"}},
         {"A.txt", "A.txt", "A.txt"},
         ""},
        {"one mark",
         0.0,
         {{"12:00:00", "1"}},
         {"A.txt"},
         "           A  C2023 02 25.50000 01 00 00.00 -00 30 00.0          01.0 R      500\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.what);
        Bench bench;
        bench.task.toSeparateFile = "eachgroup";
        bench.task.interval = row.interval;
        bench.add("s1", track("A", "", "", row.marks));
        bench.expectWell(row.names);
        EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + std::string(row.last));
    }
}

TEST(MultiReport, PointBeforeTheExtensionIsAdded)
{
    Bench bench;
    bench.task.toSeparateFile = "eachseria";
    bench.task.outputformat = "mea";
    bench.task.outputextension = ".mea";
    bench.add("s1", nameless("A"));
    bench.expectWell({"s1..mea"});
    EXPECT_EQ(bench.bytes("s1..mea"), "T1 2000.0 UTC\n"
                                      "A       250223 1200000000 0100000000 -0030000000 001 09.50\n");

    bench.task.outputextension = "";
    bench.expectWell({"s1."});
    EXPECT_EQ(bench.written(), (Names{"s1..mea", "s1."}));
}

TEST(MultiReport, NameOfASeriesIsTheFourthPartFromTheEnd)
{
    const struct
    {
        const char* path;
        const char* name;
    } rows[] = {{"s1/a/b/table", "s1"},    {"x/s1/a/b/table", "s1"}, {"s1/a/b/table/", "s1"},
                {"s1//b/table", "s1"},     {"s1/a/b/c/table", "a"},  {"s.1 x/a/b/table.txt", "s.1 x"},
                {"s1/a\\b/c/table", "s1"}, {"./s1/a/b/table", "s1"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        // Nothing stands at these paths; the name is that of a report of no tracks.
        Bench bench;
        bench.task.toSeparateFile = "eachseria";
        bench.addPath(row.path);
        bench.expectWell({std::string(row.name) + ".txt"});
        EXPECT_EQ(bench.written(), Names{});
    }
}

TEST(MultiReport, NameOfAllObjectsIsTheLastFolderOfTheOutput)
{
    const struct
    {
        const char* folder;
        const char* name;
    } rows[] = {{"/data/out/", "out"}, {"/data/out", "out"}, {"out/", "out"},
                {"a.b/c d/", "c d"},   {"a//", ""},          {"/", ""},
                {"a\\b/", "a\\b"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.folder);
        // A format that is not known writes nothing.
        Bench bench;
        bench.task.outputformat = "nothing";
        bench.task.out_dir = row.folder;
        bench.add("s1", nameless("A"));
        bench.expectWell({std::string(row.name) + ".txt"});
    }
}

// One object alone.

TEST(MultiReport, OneObjectUnderEachWay)
{
    const struct
    {
        const char* division;
        bool longname;
        std::vector<std::string> names;
    } rows[] = {
        {"allobjects", false, {"out.txt"}},
        {"allobjects", true, {"T1-out-2023-02-25T11-00-00-R.txt"}},
        {"eachobject", false, {"AST1001.txt"}},
        {"eachobject", true, {"T1-AST1001-2023-02-25T11-00-00-R.txt"}},
        {"eachseria", false, {"s1.txt"}},
        {"eachseria", true, {"T1-s1-2023-02-25T11-00-00-R.txt"}},
        {"eachgroup", false, {"AST1001.txt"}},
        {"eachgroup", true, {"T1-AST1001-2023-02-25T11-00-00-R.txt"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.division);
        SCOPED_TRACE(row.longname);
        Bench bench;
        bench.task.whatSave = "object";
        bench.task.object = 2;
        bench.task.toSeparateFile = row.division;
        bench.task.longname = row.longname;
        bench.add("s1",
                  nameless("A") + track("B", "K13A01A", "", {{"12:00:00", "1"}}) +
                      track("C", "", "", {{"11:00:00", "3"}, {"11:10:00", "2"}}) + nameless("D"),
                  configuration("asteroids", withCode("I41")));
        bench.add("s2", nameless("A"), configuration("asteroids"));
        bench.expectWell(row.names);
        EXPECT_EQ(bench.written(), Names(row.names.begin(), row.names.end()));
        // Its number is the one that it has among all.
        EXPECT_EQ(bench.bytes(row.names[0]), "COD I41\n" + line("     AST1001", "25.45833", "03.0", "I41") +
                                                 line("     AST1001", "25.46528", "02.0", "I41"));
    }
}

TEST(MultiReport, OneObjectIsNotJoinedWithItsLikes)
{
    Bench bench;
    bench.task.whatSave = "object";
    bench.task.object = 0;
    bench.task.toSeparateFile = "eachobject";
    bench.add("s1", track("A", "", "", {{"12:00:00", "1"}}) + track("A", "", "", {{"13:00:00", "2"}}));
    bench.add("s2", track("A", "", "", {{"14:00:00", "3"}}));
    bench.expectWell({"A.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + line(A, "25.50000", "01.0"));
}

TEST(MultiReport, OneObjectCutIntoItsStretches)
{
    Bench bench;
    bench.task.whatSave = "object";
    bench.task.object = 0;
    bench.task.toSeparateFile = "eachgroup";
    bench.task.longname = true;
    addTwoSeries(bench);
    bench.expectWell({"T1-A-2023-02-25T12-00-00-R.txt", "T1-A-2023-02-25T13-19-60-R.txt"});
}

TEST(MultiReport, OtherWordsKeepAllTracks)
{
    for (const char* const whatSave : {"", "all", "Object", "objects", "object "}) {
        SCOPED_TRACE(whatSave);
        Bench bench;
        bench.task.whatSave = whatSave;
        bench.task.object = 1;
        addTwoSeries(bench);
        EXPECT_EQ(bench.trackNames(), (Texts{"A", "B", "A"}));
    }
}

TEST(MultiReport, ObjectThatDoesNotExistIsReported)
{
    for (const char* const division : {"allobjects", "eachseria", "eachobject", "eachgroup"}) {
        for (const int object : {-1, 1, 2, 2147483647, -2147483647 - 1}) {
            SCOPED_TRACE(division);
            SCOPED_TRACE(object);
            Bench bench;
            bench.task.whatSave = "object";
            bench.task.object = object;
            bench.task.toSeparateFile = division;
            bench.add("s1", nameless("A"));
            // Objects of later series do not count.
            bench.add("s2", nameless("B") + nameless("C") + nameless("D"));
            bench.expectLeftOut({});
            EXPECT_EQ(bench.written(), Names{});
        }
    }
}

TEST(MultiReport, FirstSeriesWithoutTracksHasNoObject)
{
    Bench bench;
    bench.task.whatSave = "object";
    bench.task.object = 0;
    bench.addPath(bench / ("missing" + tableInSeries));
    bench.add("s2", nameless("B"));
    bench.expectLeftOut({});
    EXPECT_EQ(bench.written(), Names{});
}

// Names that need what is missing.

TEST(MultiReport, NoTracksGiveNoObjectsAndNoGroups)
{
    for (const char* const division : {"eachobject", "eachgroup"}) {
        for (const bool longname : {false, true}) {
            SCOPED_TRACE(division);
            Bench bench;
            bench.task.toSeparateFile = division;
            bench.task.longname = longname;
            bench.add("s1", "");
            bench.addPath(bench / ("missing" + tableInSeries));
            bench.expectWell({});
            EXPECT_EQ(bench.written(), Names{});
        }
    }
}

TEST(MultiReport, NoTracksAreStillAllObjects)
{
    Bench bench;
    bench.add("s1", "");
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.written(), Names{});

    bench.task.outputformat = "tdm.xml";
    bench.expectWell({"out.txt"});
    EXPECT_EQ(bench.written(), (Names{"out.txt"}));

    bench.task.longname = true;
    bench.expectLeftOut({});
    EXPECT_EQ(bench.written(), (Names{"out.txt"}));
}

TEST(MultiReport, SeriesWithoutTracksIsStillASeries)
{
    Bench bench;
    bench.task.toSeparateFile = "eachseria";
    bench.add("s1", "");
    bench.add("s2", nameless("B"));
    bench.addPath(bench / ("s3" + tableInSeries));
    bench.expectWell({"s1.txt", "s2.txt", "s3.txt"});
    EXPECT_EQ(bench.written(), (Names{"s2.txt"}));

    bench.task.longname = true;
    bench.expectLeftOut({"T1-s2-2023-02-25T12-00-00-R.txt"});
}

TEST(MultiReport, SeriesOfAShortPathIsLeftOut)
{
    for (const bool longname : {false, true}) {
        SCOPED_TRACE(longname);
        Bench bench;
        bench.task.toSeparateFile = "eachseria";
        bench.task.longname = longname;
        bench.addPath("nowhere/to/go");
        bench.add("s2", nameless("B"));
        bench.addPath("nowhere");
        bench.addPath("nowhere/to/go/");
        bench.addPath("nowhere///");
        bench.add("s3", nameless("C"));
        if (longname) {
            bench.expectLeftOut({"T1-s2-2023-02-25T12-00-00-R.txt", "T1-s3-2023-02-25T12-00-00-R.txt"});
        } else {
            bench.expectLeftOut({"s2.txt", "s3.txt"});
        }
        EXPECT_EQ(bench.written().size(), 2U);
    }
}

TEST(MultiReport, ShortPathMattersToTheNamesOfSeriesAlone)
{
    for (const char* const division : {"allobjects", "eachobject", "eachgroup"}) {
        SCOPED_TRACE(division);
        Bench bench;
        bench.task.toSeparateFile = division;
        bench.add("s1", nameless("out"));
        bench.addPath("nowhere");
        bench.expectWell({"out.txt"});
    }
}

TEST(MultiReport, TrackWithoutMarksGivesNoGroup)
{
    for (const bool longname : {false, true}) {
        SCOPED_TRACE(longname);
        Bench bench;
        bench.task.toSeparateFile = "eachgroup";
        bench.task.longname = longname;
        bench.add("s1", "---\n" + nameless("B"));
        if (longname) {
            bench.expectLeftOut({"T1-B-2023-02-25T12-00-00-R.txt"});
        } else {
            bench.expectLeftOut({"B.txt"});
        }
        EXPECT_EQ(bench.written().size(), 1U);
    }
}

TEST(MultiReport, PieceWithoutMarksHasNoLongName)
{
    // The cut falls behind the first mark, so the first piece is empty.
    Bench bench;
    bench.task.toSeparateFile = "eachgroup";
    bench.task.longname = true;
    bench.add("s1", track("A", "", "", {{"12:00:00", "1"}, {"13:00:00", "2"}, {"13:10:00", "3"}}));
    bench.expectLeftOut({"T1-A-2023-02-25T12-59-60-R.txt"});
    EXPECT_EQ(bench.bytes("T1-A-2023-02-25T12-59-60-R.txt"), "COD 500\n" + line(A, "25.54167", "02.0"));

    bench.task.longname = false;
    bench.expectWell({"A.txt", "A.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n" + line(A, "25.54167", "02.0"));
}

TEST(MultiReport, LastPieceWithoutMarksWritesOverTheOneBefore)
{
    Bench bench;
    bench.task.toSeparateFile = "eachgroup";
    bench.add("s1", track("A", "", "", {{"12:00:00", "1"}, {"12:10:00", "2"}, {"13:00:00", "3"}}));
    bench.expectWell({"A.txt", "A.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n");
}

TEST(MultiReport, ObjectWithoutMarksHasNoLongName)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.task.longname = true;
    bench.add("s1", nameless("A") + nameless("B")).excludes = {{0, {0}}};
    bench.expectLeftOut({"T1-B-2023-02-25T12-00-00-R.txt"});

    bench.task.longname = false;
    bench.expectWell({"A.txt", "B.txt"});
    EXPECT_EQ(bench.bytes("A.txt"), "COD 500\n");
}

TEST(MultiReport, OnlyTheFirstTrackNamesASeriesOrAllObjects)
{
    for (const char* const division : {"eachseria", "allobjects"}) {
        SCOPED_TRACE(division);
        Bench bench;
        bench.task.toSeparateFile = division;
        bench.task.longname = true;
        const std::string name = division == std::string("eachseria") ? "s1" : "out";
        bench.add("s1", nameless("A") + nameless("B")).excludes = {{1, {0}}};
        bench.expectWell({"T1-" + name + "-2023-02-25T12-00-00-R.txt"});

        bench.task.paths[0].excludes = {{0, {0}}};
        bench.expectLeftOut({});

        bench.task.longname = false;
        bench.expectWell({name + ".txt"});
        EXPECT_EQ(bench.bytes(name + ".txt"), "COD 500\n" + line(B, "25.50000", "09.5"));
    }
}

TEST(MultiReport, SeriesWithoutTracksInFrontLeavesTheFirstTrackOfAllObjects)
{
    Bench bench;
    bench.task.longname = true;
    bench.add("s1", "");
    bench.add("s2", nameless("A")).telescope = "T2";
    bench.expectWell({"T2-out-2023-02-25T12-00-00-R.txt"});
}

TEST(MultiReport, NamelessObjectHasAnEmptyName)
{
    Bench bench;
    bench.task.toSeparateFile = "eachobject";
    bench.add("s1", nameless(""));
    bench.expectWell({".txt"});
    bench.task.longname = true;
    bench.expectWell({"T1--2023-02-25T12-00-00-R.txt"});
}

// What a writer says.

TEST(MultiReport, UnknownFormatShowsInNoWay)
{
    for (const char* const word : {"", "nothing", "vomar", "MPC"}) {
        SCOPED_TRACE(word);
        Bench bench;
        bench.task.outputformat = word;
        bench.task.toSeparateFile = "eachseria";
        addTwoSeries(bench);
        bench.expectWell({"s1.txt", "s2.txt"});
        EXPECT_EQ(bench.written(), Names{});
    }
}

TEST(MultiReport, EveryWordWrites)
{
    for (const char* const word : {"mea", "telegram", "tdm", "ssmas", "mpc", "tdm.xml", "mag", "aavso"}) {
        SCOPED_TRACE(word);
        Bench bench;
        bench.task.outputformat = word;
        bench.add("s1", nameless("12345"));
        bench.expectWell({"out.txt"});
        EXPECT_EQ(bench.written(), (Names{"out.txt"}));
        EXPECT_NE(bench.bytes("out.txt"), "");
    }
}

TEST(MultiReport, FailureOfAWriterIsPassedOn)
{
    Bench bench;
    bench.task.toSeparateFile = "eachseria";
    addTwoSeries(bench);
    std::filesystem::create_directory(bench / "out/s2.txt");
    try {
        CreateMultiReport(bench.task);
        ADD_FAILURE() << "nothing was raised";
    } catch (const TavelinException& failure) {
        EXPECT_EQ(failure.getCode(), 7);
        EXPECT_EQ(failure.getComment(), bench.task.out_dir + "s2.txt");
    }
    EXPECT_NE(bench.bytes("s1.txt"), "");
}

TEST(MultiReport, TaskIsLeftAsItWas)
{
    Bench bench;
    addTwoSeries(bench);
    bench.task.toSeparateFile = "eachobject";
    bench.expectWell({"A.txt", "B.txt"});
    bench.expectWell({"A.txt", "B.txt"});
    EXPECT_EQ(bench.task.paths.size(), 2U);
    EXPECT_EQ(bytesOf(bench.task.paths[1].path), table(track("A", "", "", {{"12:10:00", "9"}})));
}

// The built tool.

TEST(MultiReportTool, KeysThatAreMissingHaveTheirDefaults)
{
    ToolBench bench(nameless("A"));
    expectQuietEnd(bench.run({{"toSeparateFile", "eachobject"}}, tableOfTool));
    const std::string name = "telescope-A-2023-02-25T12-00-00-filter.txt";
    EXPECT_EQ(bench.written(), (Names{name, "result.xml"}));
    EXPECT_EQ(resultOf(bench / "out/result.xml"), resultDocument(0, "OK", "out/" + name + ";"));
    EXPECT_EQ(bytesOf(bench / ("out/" + name)), "COD 500\n" + line(A, "25.50000", "09.5"));
}

TEST(MultiReportTool, ExclusionsAndStampsOfASeriesAreRead)
{
    ToolBench bench(track("A", "", "", {{"00:00:00", "1"}, {"06:00:00", "2"}, {"12:00:00", "3"}}) +
                    track("B", "", "", {{"00:00:00", "4"}, {"06:00:00", "5"}}));
    expectQuietEnd(bench.run({{"toSeparateFile", "eachseria"}}, tableOfTool,
                             "<filtr>V</filtr><telescope>T9</telescope><excludes>0;0;1 1;1 0;7</excludes>"));
    const std::string name = "T9-s1-2023-02-25T12-00-00-V.txt";
    EXPECT_EQ(resultOf(bench / "out/result.xml"), resultDocument(0, "OK", "out/" + name + ";"));
    EXPECT_EQ(bytesOf(bench / ("out/" + name)),
              "COD 500\n" + line(A, "25.50000", "03.0") + line(B, "25.00000", "04.0"));
}

TEST(MultiReportTool, CodeOfAReportStandsInItsResult)
{
    ToolBench bench("---\n" + nameless("B"));
    expectQuietEnd(bench.run({{"toSeparateFile", "eachgroup"}, {"longname", "false"}}, tableOfTool));
    EXPECT_EQ(resultOf(bench / "out/result.xml"), resultDocument(-1, "OK", "out/B.txt;"));
}

TEST(MultiReportTool, ObjectIsOutOfRangeUnlessItIsGiven)
{
    ToolBench bench(nameless("A"));
    expectQuietEnd(bench.run({{"toSeparateFile", "allobjects"}, {"whatSave", "object"}}, tableOfTool));
    EXPECT_EQ(bench.written(), (Names{"result.xml"}));
    const std::string document = resultOf(bench / "out/result.xml");
    EXPECT_NE(document.find("<Code>-1</Code>"), std::string::npos) << document;
    EXPECT_NE(document.find("<Comment>OK</Comment>"), std::string::npos) << document;
}

TEST(MultiReportTool, SlashInTheNameOfAnObjectEndsTheRun)
{
    for (const char* const longname : {"true", "false"}) {
        SCOPED_TRACE(longname);
        ToolBench bench(nameless("A") + nameless("C/2020 F3") + nameless("Z"));
        const ChildEnd end =
            bench.run({{"toSeparateFile", "eachobject"}, {"longname", longname}}, tableOfTool);
        EXPECT_FALSE(end.timedOut);
        EXPECT_EQ(end.signal, SIGABRT);
        // What was written before stays; there is no result.
        EXPECT_EQ(bench.written(),
                  (Names{longname == std::string("true") ? "telescope-A-2023-02-25T12-00-00-filter.txt"
                                                         : "A.txt"}));
    }
}

TEST(MultiReportTool, SlashInTheNameOfAnObjectIsAFolderWhereItExists)
{
    ToolBench bench(nameless("C/2020 F3"));
    std::filesystem::create_directory(bench / "out/C");
    expectQuietEnd(bench.run({{"toSeparateFile", "eachobject"}, {"longname", "false"}}, tableOfTool));
    EXPECT_EQ(bench.written(), (Names{"C/2020 F3.txt", "result.xml"}));
}

TEST(MultiReportTool, EmptyPathOfASeriesEndsTheRun)
{
    ToolBench bench(nameless("A"));
    const ChildEnd end = bench.run({{"toSeparateFile", "allobjects"}}, "", "<filtr>R</filtr>");
    EXPECT_FALSE(end.timedOut);
    EXPECT_EQ(end.signal, SIGABRT);
    EXPECT_EQ(bench.written(), Names{});
}

TEST(MultiReportTool, NoSeriesIsReported)
{
    ToolBench bench(nameless("A"));
    expectQuietEnd(bench.run({{"paths", ""}, {"toSeparateFile", "allobjects"}}, tableOfTool));
    EXPECT_EQ(bench.written(), (Names{"result.xml"}));
    EXPECT_EQ(resultOf(bench / "out/result.xml"), resultDocument(-1, "OK", "paths.size() == 0"));
}

TEST(MultiReportTool, IntervalIsThirtyMinutesUnlessItIsGiven)
{
    ToolBench bench(
        track("A", "", "", {{"12:00:00", "1"}, {"12:29:00", "2"}, {"13:30:00", "3"}, {"13:59:00", "4"}}));
    const std::string first = "telescope-A-2023-02-25T12-00-00-filter.txt";
    const std::string second = "telescope-A-2023-02-25T13-30-00-filter.txt";
    expectQuietEnd(bench.run({{"toSeparateFile", "eachgroup"}}, tableOfTool));
    EXPECT_EQ(bench.written(), (Names{first, second, "result.xml"}));
    EXPECT_EQ(resultOf(bench / "out/result.xml"),
              resultDocument(0, "OK", "out/" + first + ";out/" + second + ";"));
    EXPECT_EQ(bytesOf(bench / ("out/" + first)), "COD 500\n" + line(A, "25.50000", "01.0"));
    EXPECT_EQ(bytesOf(bench / ("out/" + second)), "COD 500\n" + line(A, "25.56250", "03.0"));
}

TEST(MultiReportTool, IntervalThatIsNoNumberCutsEverywhere)
{
    ToolBench bench(track("A", "", "", {{"12:00:00", "1"}, {"12:01:00", "2"}}) + nameless("B"));
    expectQuietEnd(bench.run({{"toSeparateFile", "eachgroup"}, {"interval", "often"}}, tableOfTool));
    const std::string name = "telescope-B-2023-02-25T12-00-00-filter.txt";
    EXPECT_EQ(bench.written(), (Names{name, "result.xml"}));
    EXPECT_EQ(resultOf(bench / "out/result.xml"), resultDocument(-1, "OK", "out/" + name + ";"));
}

TEST(MultiReportTool, TableOfAShortPathIsReadAndHasNoSeriesName)
{
    // Where there is no folder above, the walk upwards stays where it is.
    ToolBench bench("");
    std::filesystem::create_directories(bench / "a/b");
    makeFile(bench / "a/b/obj.txt", table(nameless("A")));
    makeFile(bench / "a/own.conf", configuration("asteroids"));
    expectQuietEnd(bench.run({{"toSeparateFile", "eachobject"}, {"longname", "false"}}, "a/b/obj.txt"));
    EXPECT_EQ(bench.written(), (Names{"AST1000.txt", "result.xml"}));

    expectQuietEnd(bench.run({{"toSeparateFile", "eachseria"}, {"longname", "false"}}, "a/b/obj.txt"));
    EXPECT_EQ(bench.written(), (Names{"AST1000.txt", "result.xml"}));
    EXPECT_NE(resultOf(bench / "out/result.xml").find("<Code>-1</Code>"), std::string::npos);
}

TEST(MultiReportTool, TwoPointsInTheNameOfAnObjectLeadOutOfTheFolder)
{
    ToolBench bench(nameless("../A") + nameless("..") + nameless("Z"));
    expectQuietEnd(bench.run({{"toSeparateFile", "eachobject"}, {"longname", "false"}}, tableOfTool));
    EXPECT_EQ(bench.written(), (Names{"...txt", "Z.txt", "result.xml"}));
    EXPECT_TRUE(exists(bench / "A.txt"));
}

TEST(MultiReportTool, NameOf300CharactersEndsTheRun)
{
    ToolBench bench(nameless("A") + nameless(std::string(300, 'n')) + nameless("Z"));
    const ChildEnd end = bench.run({{"toSeparateFile", "eachobject"}, {"longname", "false"}}, tableOfTool);
    EXPECT_FALSE(end.timedOut);
    EXPECT_EQ(end.signal, SIGABRT);
    EXPECT_EQ(bench.written(), (Names{"A.txt"}));
}

TEST(MultiReport, BrokenTablesGiveWhatTheyHold)
{
    struct Row
    {
        const char* what;
        std::string bytes;
        std::size_t tracks;
    };
    const Row rows[] = {
        {"empty", "", 0},
        {"version alone", "v2\n", 0},
        {"header alone", "v2\nQRVName:Text\tm:Float\n", 0},
        {"unknown columns", "x\ty:Int\n1\t2\n---\n", 1},
        {"short lines", "v2\nQRVName:Text\tm:Float\nA\n\n---\n", 1},
        {"no end of a track", "v2\nQRVName:Text\nA\nB\n", 1},
        {"ends alone", "v2\nQRVName:Text\n---\n---\n", 2},
        {"huge numbers", "iF:Int\tm:Float\n99999999999999999999\t1e999\n---\n", 1},
        {"binary", std::string("\0\xff\x01\t\xfe\n\0\n---\n", 11), 1},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        Bench bench;
        bench.task.outputformat = "tdm.xml";
        bench.add("s1", "");
        makeFile(bench.task.paths.back().path, row.bytes);
        ASSERT_EQ(bench.tracks().size(), 1U);
        EXPECT_EQ(bench.tracks().front().size(), row.tracks);
    }
}
