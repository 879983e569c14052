#include "config/range_checks.h"

#include "support/places.h"
#include "support/results.h"
#include "support/settings_rows.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Lines = std::vector<std::string>;

const std::string outOfRange =
    "These configuration file parameters are out of the range of acceptable values: ";

/// A result that nothing was written to, so that each check is seen on its own.
TFuncRes emptyResult()
{
    TFuncRes result;
    result.Comment = "";
    result.Description = "";
    return result;
}

/// What CheckDoubleMinMax leaves of an empty result.
TFuncRes checkedRange(double min, double max, double value)
{
    TFuncRes result = emptyResult();
    CheckDoubleMinMax("Focal", min, max, value, result);
    return result;
}

/// What CheckAstroDegree leaves of an empty result.
TFuncRes checkedDegree(int value, const std::string& allowed)
{
    TFuncRes result = emptyResult();
    CheckAstroDegree("Degree", value, allowed, result);
    return result;
}

constexpr std::string TExe::*programs[] = {&TExe::FindOrb, &TExe::Java};
static_assert(sizeof(TExe) == std::size(programs) * sizeof(std::string), "a program is missing above");

/// The configuration of a telescope, with one element set.
std::string configurationOf(const std::string& telescope)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
           "<root>\n"
           "    <Service>satellites</Service>\n"
           "    <basicSettings><Telescope>" +
           telescope +
           "</Telescope></basicSettings>\n"
           "    <TLEs><TLE><Line0>ISS</Line0><Line1>1 25544U</Line1><Line2>2 25544</Line2></TLE></TLEs>\n"
           "</root>\n";
}

const std::string programConfiguration = "<?xml version=\"1.0\" ?>\n"
                                         "<programs>\n"
                                         "    <FindOrb>orbits/fo%exe%</FindOrb>\n"
                                         "    <Java>jre/java.exe</Java>\n"
                                         "</programs>\n";

/// Paths of a new series, which every loading begins with.
SettingRows seriesRows()
{
    return {
        {"subfolders.cosmFolder", "tavelin/cosm"},
        {"subfolders.dataPOFolder", "tavelin/dataPO"},
        {"subfolders.dataVOFolder", "tavelin/dataVO"},
        {"subfolders.dataFolder", "tavelin/data"},
        {"subfolders.mfitsFolder", "tavelin/mfits"},
        {"subfolders.logsFolder", "tavelin/logs"},
        {"subfolders.lightcurvesFolder", "tavelin/lightcurves"},
        {"subfolders.lctasksFolder", "tavelin/lctasks"},
        {"subfolders.tmpFolder", "tavelin/tmp"},
        {"subfolders.reportsFolder", "tavelin/reports"},
        {"subfolders.tempUnpackFolder", "tavelin/temp-unpack"},
        {"subfolders.packFolder", "tavelin/pack"},
        {"subfolders.stackTmpFolder", "tavelin/stack_tmp"},
        {"subfolders.stackedFolder", "tavelin/stacked"},
        {"output.processLog", "tavelin/logs/process.log"},
        {"output.objLightcurveQrv", "tavelin/dataVO/obj-lightcurve-qrv.txt"},
        {"output.objAavsoVsp", "tavelin/dataVO/obj-aavso-vsp.txt"},
        {"output.objVarstarsVsx", "tavelin/dataVO/obj-varstars-vsx.txt"},
        {"output.objAsteroidsQrv", "tavelin/dataVO/obj-asteroids-qrv.txt"},
        {"output.objAsteroidsMpc", "tavelin/dataVO/obj-asteroids-mpc.txt"},
        {"output.objSatellitesQrv", "tavelin/dataVO/obj-satellites-qrv.txt"},
        {"output.objSatellitesCat", "tavelin/dataVO/obj-satellites-cat.txt"},
        {"output.rptAsteroidsMpcAuto", "tavelin/reports/rpt-asteroids-mpc-auto.txt"},
        {"output.representative", "tavelin/dataVO/representative.bin"},
        {"output.vkInd", "tavelin/dataVO/VKInd.txt"},
    };
}

/// The rows of a new series with further ones.
SettingRows seriesRowsAnd(const SettingRows& others)
{
    SettingRows rows = seriesRows();
    rows.insert(rows.end(), others.begin(), others.end());
    return rows;
}

/// A series, a folder of programs, a configuration outside of the series, and a log.
class UserConfLoading : public testing::Test
{
protected:
    UserConfLoading()
    {
        std::filesystem::create_directories(folder / "series/tavelin");
        std::filesystem::create_directories(folder / "programs/vomar");
        makeFile(folder / "programs/vomar/vomar.xml", programConfiguration);
        makeFile(folder / "series/own.conf", configurationOf("own"));
        makeFile(folder / "given.conf", configurationOf("given"));
    }

    TPorogs load(const std::string& seriesFolder, const std::string& programPath,
                 const std::string& configPath, bool loadTLE = false)
    {
        return LoadUserConf(seriesFolder, programPath, configPath, log, result, loadTLE);
    }

    /// Checks that loading throws code 123, and leaves it in the result.
    void expectNoConfiguration(const std::string& seriesFolder, const std::string& programPath,
                               const std::string& configPath)
    {
        try {
            load(seriesFolder, programPath, configPath);
            ADD_FAILURE() << "nothing was thrown";
        } catch (const TavelinException& failure) {
            EXPECT_EQ(failure.getCode(), 123);
            EXPECT_STREQ(failure.what(), "Error downloading configuration file.");
            EXPECT_EQ(failure.getComment(), "Error downloading configuration file.");
        }
        expectResult(result, 123, "Error downloading configuration file.",
                     "Error downloading configuration file.");
    }

    const TemporaryFolder folder;
    const std::string log = folder / "load.log";
    const std::string series = folder / "series";
    const std::string programFolder = folder / "programs";
    const std::string programFile = folder / "programs/vomar/vomar.xml";
    const std::string given = folder / "given.conf";
    TFuncRes result;
};

} // namespace

TEST(ProgramConfiguration, KeysFillTheirMembers)
{
    const TemporaryFolder folder;
    makeFile(folder / "vomar.xml", programConfiguration);
    TExe exe;
    const TFuncRes result = lConfig(folder / "vomar.xml", exe);
    expectResult(result, 0, "OK", "OK");
    EXPECT_EQ(exe.FindOrb, "orbits/fo%exe%");
    EXPECT_EQ(exe.Java, "jre/java.exe");
}

TEST(ProgramConfiguration, NameOfTheRootDoesNotMatter)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<Other><Java> j </Java><FindOrb>f</FindOrb></Other>");
    TExe exe;
    EXPECT_EQ(lConfig(folder / "a.xml", exe).Code, 0);
    EXPECT_EQ(exe.FindOrb, "f");
    EXPECT_EQ(exe.Java, " j ");
}

TEST(ProgramConfiguration, MissingAndEmptyKeysLeaveTheirMembers)
{
    const TemporaryFolder folder;
    for (const char* document : {"<R />", "<R><Java /><FindOrb></FindOrb></R>", "<R><findorb>a</findorb></R>",
                                 "<R><Inner><FindOrb>a</FindOrb><Java>b</Java></Inner></R>",
                                 "<R /><R><FindOrb>a</FindOrb><Java>b</Java></R>"})
    {
        SCOPED_TRACE(document);
        makeFile(folder / "a.xml", document);
        TExe exe{.FindOrb = "old orbits", .Java = "old java"};
        EXPECT_EQ(lConfig(folder / "a.xml", exe).Code, 0);
        EXPECT_EQ(exe.FindOrb, "old orbits");
        EXPECT_EQ(exe.Java, "old java");
    }
}

TEST(ProgramConfiguration, FileThatCannotBeLoadedChangesNothing)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder.xml");
    makeFile(folder / "cut.xml", "<R><FindOrb>a</FindOrb><Java>b</Java>");
    makeFile(folder / "empty.xml", "");
    makeFile(folder / "text.xml", "no element\n");
    for (const char* name :
         {"missing.xml", "missing/a.xml", "folder.xml", "cut.xml", "empty.xml", "text.xml"}) {
        SCOPED_TRACE(name);
        TExe exe{.FindOrb = "old orbits", .Java = "old java"};
        const TFuncRes result = lConfig(folder / name, exe);
        const bool missing = std::string(name).starts_with("missing");
        expectResult(result, missing ? 138 : 139,
                     missing ? "Error loading configuration parameters, file missing: "
                             : "Error loading configuration file, file broken.",
                     folder / name);
        EXPECT_EQ(exe.FindOrb, "old orbits");
        EXPECT_EQ(exe.Java, "old java");
    }
}

TEST_F(UserConfLoading, GoodLoadTellsEachStep)
{
    result.Code = 5;
    result.Comment = "old";
    result.Details = {"old"};
    const TPorogs porogs = load(series, programFolder, "");
    expectResult(result, 0, "OK", "OK");
    EXPECT_TRUE(result.Details.empty());
    expectDefaultsBut(porogs, seriesRowsAnd({{"exe.FindOrb", programFolder + "/orbits/fo"},
                                             {"exe.Java", programFolder + "/jre/java"},
                                             {"basicSettings.Telescope", "own"},
                                             {"Service", "2"}}));
    EXPECT_EQ(logOf(log), (Lines{"start load userConf", "loading vomar.conf: " + programFile,
                                 "userConf.Config = " + folder / "series/own.conf", "end load userConf"}));
}

TEST_F(UserConfLoading, LogGrowsFromLoadToLoad)
{
    makeFile(log, "2024-03-09 04:05:06.000789 earlier\n");
    load("", "", given);
    load("", "", given);
    EXPECT_EQ(logOf(log), (Lines{"earlier", "start load userConf", "loading vomar.conf: vomar/vomar.xml",
                                 "userConf.Config = " + given, "end load userConf", "start load userConf",
                                 "loading vomar.conf: vomar/vomar.xml", "userConf.Config = " + given,
                                 "end load userConf"}));
}

TEST_F(UserConfLoading, LogThatCannotBeWrittenChangesNothingElse)
{
    for (const std::string& path : {std::string(), folder / "missing/a.log", series}) {
        SCOPED_TRACE(path);
        const auto before = filesBelow(folder.path());
        const TPorogs porogs = LoadUserConf(series, programFolder, given, path, result, false);
        EXPECT_EQ(result.Code, 0);
        EXPECT_EQ(porogs.basicSettings.Telescope, "given");
        EXPECT_EQ(filesBelow(folder.path()), before);
    }
}

TEST_F(UserConfLoading, SlashBehindTheFolderOfProgramsIsNotDoubled)
{
    const TPorogs porogs = load(series, programFolder + "/", given);
    EXPECT_EQ(result.Code, 0);
    EXPECT_EQ(porogs.exe.FindOrb, programFolder + "/orbits/fo");
    EXPECT_EQ(porogs.exe.Java, programFolder + "/jre/java");
    ASSERT_EQ(logOf(log).size(), 4u);
    EXPECT_EQ(logOf(log)[1], "loading vomar.conf: " + programFile);
}

TEST_F(UserConfLoading, EmptyFolderOfProgramsSkipsTheirConfiguration)
{
    const TPorogs porogs = load(series, "", given);
    expectResult(result, 0, "OK", "OK");
    EXPECT_EQ(porogs.exe.Java, "java");
    EXPECT_EQ(porogs.basicSettings.Telescope, "given");
    EXPECT_EQ(logOf(log), (Lines{"start load userConf", "loading vomar.conf: vomar/vomar.xml",
                                 "userConf.Config = " + given, "end load userConf"}));
}

TEST_F(UserConfLoading, ProgramsWithoutKeyGetTheirStandardNames)
{
    makeFile(programFile, "<programs />");
    const TPorogs porogs = load(series, programFolder, given);
    EXPECT_EQ(result.Code, 0);
    EXPECT_EQ(porogs.exe.FindOrb, programFolder + "/find_orb");
    EXPECT_EQ(porogs.exe.Java, programFolder + "/java");
}

TEST_F(UserConfLoading, MissingConfigurationOfProgramsEndsTheLoading)
{
    std::filesystem::remove(programFile);
    const TPorogs porogs = load(series, programFolder, given, true);
    expectResult(result, 138, "Error loading configuration parameters, file missing: ", programFile);
    EXPECT_EQ(porogs.exe.Java, "java");
    EXPECT_EQ(porogs.subfolders.cosmFolder, "tavelin/cosm");
    EXPECT_EQ(porogs.basicSettings.Telescope, "telescope");
    EXPECT_EQ(porogs.Service, TService::unknown);
    EXPECT_TRUE(porogs.interSat.TLEs.empty());
    EXPECT_EQ(logOf(log), (Lines{"start load userConf", "loading vomar.conf: " + programFile}));
}

TEST_F(UserConfLoading, BrokenConfigurationOfProgramsEndsTheLoading)
{
    makeFile(programFile, "<programs><Java>other</Java>");
    const TPorogs porogs = load(series, programFolder, given, true);
    expectResult(result, 139, "Error loading configuration file, file broken.", programFile);
    EXPECT_EQ(porogs.exe.Java, "java");
    EXPECT_EQ(porogs.subfolders.cosmFolder, "tavelin/cosm");
    EXPECT_EQ(porogs.basicSettings.Telescope, "telescope");
    EXPECT_EQ(logOf(log), (Lines{"start load userConf", "loading vomar.conf: " + programFile}));
}

TEST_F(UserConfLoading, MissingConfigurationOfProgramsStandsBeforeAMissingOneOfTheSeries)
{
    EXPECT_NO_THROW(load("", folder / "nowhere", ""));
    expectResult(result, 138, "Error loading configuration parameters, file missing: ",
                 folder / "nowhere/vomar/vomar.xml");
}

TEST_F(UserConfLoading, GivenPathStandsBeforeTheSeries)
{
    EXPECT_EQ(load(series, programFolder, given).basicSettings.Telescope, "given");
    EXPECT_EQ(load(folder / "nowhere", programFolder, given).basicSettings.Telescope, "given");
    EXPECT_EQ(load("", programFolder, given).basicSettings.Telescope, "given");
    for (const std::string& line : {logOf(log).at(2), logOf(log).at(6), logOf(log).at(10)}) {
        EXPECT_EQ(line, "userConf.Config = " + given);
    }
}

TEST_F(UserConfLoading, SeriesIsSearchedWhereTheGivenPathIsMissing)
{
    EXPECT_EQ(load(series, programFolder, folder / "missing.conf").basicSettings.Telescope, "own");
    EXPECT_EQ(logOf(log).at(2), "userConf.Config = " + folder / "series/own.conf");
}

TEST_F(UserConfLoading, ConfigurationDeepInTheSeriesIsFound)
{
    std::filesystem::rename(folder / "series/own.conf", folder / "series/tavelin/deep.conf");
    EXPECT_EQ(load(series, "", "").basicSettings.Telescope, "own");
    EXPECT_EQ(logOf(log).at(2), "userConf.Config = " + folder / "series/tavelin/deep.conf");
}

TEST_F(UserConfLoading, AmongMoreTheOneWithTheKnownRootIsUsed)
{
    makeFile(folder / "series/a.conf", "<other>\n<Service>airfly</Service>\n</other>\n");
    makeFile(folder / "series/z.conf", "one\ntwo\nthree\n");
    EXPECT_EQ(load(series, "", "").basicSettings.Telescope, "own");
    EXPECT_EQ(logOf(log).at(2), "userConf.Config = " + folder / "series/own.conf");
}

TEST_F(UserConfLoading, MissingConfigurationRaisesCode123)
{
    std::filesystem::remove(folder / "series/own.conf");
    const std::string seriesFolders[] = {"", folder / "nowhere", series};
    for (const std::string& seriesFolder : seriesFolders) {
        for (const std::string& configPath : {std::string(), folder / "missing.conf"}) {
            SCOPED_TRACE("\"" + seriesFolder + "\" \"" + configPath + "\"");
            std::filesystem::remove(log);
            expectNoConfiguration(seriesFolder, programFolder, configPath);
            EXPECT_EQ(logOf(log), (Lines{"start load userConf", "loading vomar.conf: " + programFile,
                                         "userConf.Config = "}));
        }
    }
}

TEST_F(UserConfLoading, SeveralConfigurationsWithoutTheKnownRootAreNone)
{
    makeFile(folder / "series/own.conf", "<other>\n<Service>airfly</Service>\n</other>\n");
    makeFile(folder / "series/z.conf", "one\ntwo\nthree\n");
    expectNoConfiguration(series, "", "");
}

TEST_F(UserConfLoading, BrokenConfigurationLeavesTheDefaults)
{
    makeFile(given, "<root><Service>satellites</Service>");
    const TPorogs porogs = load(series, programFolder, given, true);
    expectResult(result, 139, "Error loading configuration file, file broken.", "Load user conf. " + given,
                 {given});
    // Extension and folder come after the settings of the series, and so not at all.
    expectDefaultsBut(porogs,
                      seriesRowsAnd({{"exe.FindOrb", "orbits/fo%exe%"}, {"exe.Java", "jre/java.exe"}}));
    EXPECT_EQ(logOf(log), (Lines{"start load userConf", "loading vomar.conf: " + programFile,
                                 "userConf.Config = " + given}));
}

TEST_F(UserConfLoading, FolderInPlaceOfTheConfigurationIsABrokenOne)
{
    const TPorogs porogs = load(series, programFolder, programFolder);
    expectResult(result, 139, "Error loading configuration file, file broken.",
                 "Load user conf. " + programFolder, {programFolder});
    EXPECT_EQ(porogs.basicSettings.Telescope, "telescope");
    EXPECT_EQ(logOf(log).back(), "userConf.Config = " + programFolder);
}

TEST_F(UserConfLoading, ElementSetsAreReadWhereAskedFor)
{
    EXPECT_TRUE(load(series, "", given, false).interSat.TLEs.empty());
    const TPorogs porogs = load(series, "", given, true);
    ASSERT_EQ(porogs.interSat.TLEs.size(), 1u);
    EXPECT_EQ(porogs.interSat.TLEs[0].Line0, "ISS");
    EXPECT_EQ(porogs.interSat.TLEs[0].Line1, "1 25544U");
    EXPECT_EQ(porogs.interSat.TLEs[0].Line2, "2 25544");
}

TEST_F(UserConfLoading, RealConfigurationOfASeriesIsLoadedWhole)
{
    std::filesystem::copy_file(fixture("configuration/asteroid_series.conf"), folder / "series/own.conf",
                               std::filesystem::copy_options::overwrite_existing);
    const TPorogs porogs = load(series, programFolder, "");
    EXPECT_EQ(result.Code, 0);
    expectDefaultsBut(porogs, seriesRowsAnd({{"exe.FindOrb", programFolder + "/orbits/fo"},
                                             {"exe.Java", programFolder + "/jre/java"},
                                             {"Version", "1.0"},
                                             {"Service", "1"},
                                             {"basicSettings.Filter", "R"},
                                             {"basicSettings.Telescope", "PTF48"},
                                             {"basicSettings.Observatory", "I41"},
                                             {"basicSettings.PixelWidth", "0.009"},
                                             {"basicSettings.PixelHeight", "0.009"},
                                             {"mpc.MPCHeader.COD", "I41"},
                                             {"mpc.MPCHeader.OBS", "PTF Observer"},
                                             {"mpc.MPCHeader.MEA", "PTF Measurer"},
                                             {"mpc.MPCHeader.TEL", "1.2-m Schmidt + CCD"},
                                             {"mpc.MPCHeader.ACK", "night report"}}));
}

TEST(SeriesPaths, NamesBecomePathsBelowTheServiceFolder)
{
    TPorogs porogs;
    SetBlanks(porogs);
    expectDefaultsBut(porogs, seriesRows());
}

TEST(SeriesPaths, FoldersOfTheMultiSeriesToolStay)
{
    TPorogs porogs;
    porogs.subfolders.vomarFolder = "a";
    porogs.subfolders.vomarLogsFolder = "b";
    porogs.subfolders.vomarConfFolder = "c";
    SetBlanks(porogs);
    EXPECT_EQ(porogs.subfolders.vomarFolder, "a");
    EXPECT_EQ(porogs.subfolders.vomarLogsFolder, "b");
    EXPECT_EQ(porogs.subfolders.vomarConfFolder, "c");
}

TEST(SeriesPaths, OtherNameOfTheServiceFolderIsUsed)
{
    TPorogs porogs;
    porogs.subfolders.tavelinFolder = "own service";
    porogs.subfolders.dataVOFolder = "vo";
    porogs.output.vkInd = "ind.txt";
    SetBlanks(porogs);
    EXPECT_EQ(porogs.subfolders.tavelinFolder, "own service");
    EXPECT_EQ(porogs.subfolders.cosmFolder, "own service/cosm");
    EXPECT_EQ(porogs.subfolders.stackedFolder, "own service/stacked");
    EXPECT_EQ(porogs.subfolders.dataVOFolder, "own service/vo");
    EXPECT_EQ(porogs.output.vkInd, "own service/vo/ind.txt");
    EXPECT_EQ(porogs.output.processLog, "own service/logs/process.log");
}

TEST(SeriesPaths, SecondCallPutsTheServiceFolderInFrontOnceMore)
{
    TPorogs porogs;
    SetBlanks(porogs);
    SetBlanks(porogs);
    EXPECT_EQ(porogs.subfolders.tavelinFolder, "tavelin");
    EXPECT_EQ(porogs.subfolders.cosmFolder, "tavelin/tavelin/cosm");
}

TEST(ProgramPaths, ExtensionGoesOutOfEveryPath)
{
    constexpr struct
    {
        const char* path;
        const char* without;
    } paths[] = {
        {"", ""},
        {"find_orb", "find_orb"},
        {"find_orb.exe", "find_orb"},
        {"find_orb%exe%", "find_orb"},
        {"bin/find_orb.exe -q", "bin/find_orb -q"},
        {"bin/find_orb%exe% -q", "bin/find_orb -q"},
        {"a.exe%exe%", "a"},
        {"a%exe%.exe", "a"},
        {"a.exe.exe", "a.exe"},
        {"a%exe%%exe%", "a%exe%"},
        {"A.EXE", "A.EXE"},
        {"a%EXE%", "a%EXE%"},
        {"aexe", "aexe"},
        {".exe", ""},
        {"%exe%", ""},
        // The first occurrence goes, wherever in the path it is.
        {"/opt/.executor/find_orb.exe", "/opt/cutor/find_orb.exe"},
        // ".exe" goes first: what it leaves may be the marker, and what the marker leaves stays.
        {"a%.exeexe%", "a"},
        {"a.%exe%exe", "a.exe"},
    };
    for (const auto program : programs) {
        for (const auto& [path, without] : paths) {
            SCOPED_TRACE(path);
            TPorogs porogs;
            porogs.exe = {.FindOrb = "other", .Java = "other"};
            porogs.exe.*program = path;
            DelExtensionExe(porogs);
            TExe expected{.FindOrb = "other", .Java = "other"};
            expected.*program = without;
            expectDefaultsBut(porogs, {{"exe.FindOrb", expected.FindOrb}, {"exe.Java", expected.Java}});
        }
    }
}

TEST(ProgramPaths, FolderComesInFrontOfEveryPath)
{
    constexpr struct
    {
        const char* folder;
        const char* path;
        const char* whole;
    } paths[] = {
        {"/opt/pipeline", "find_orb", "/opt/pipeline/find_orb"},
        {"/opt/pipeline/", "find_orb", "/opt/pipeline/find_orb"},
        {"/opt/pipeline//", "find_orb", "/opt/pipeline//find_orb"},
        {"pipeline", "bin/find_orb.exe", "pipeline/bin/find_orb.exe"},
        {"/opt", "/usr/bin/java", "/opt//usr/bin/java"},
        {"", "find_orb", "find_orb"},
    };
    for (const auto program : programs) {
        for (const auto& [folder, path, whole] : paths) {
            SCOPED_TRACE(std::string(folder) + " " + path);
            TPorogs porogs;
            porogs.exe = {.FindOrb = "x", .Java = "x"};
            porogs.exe.*program = path;
            CheckModulsForPaths(folder, porogs);
            EXPECT_EQ(porogs.exe.*program, whole);
            const auto other = program == &TExe::FindOrb ? &TExe::Java : &TExe::FindOrb;
            const std::string rest = whole;
            EXPECT_EQ(porogs.exe.*other, rest.substr(0, rest.size() - std::string(path).size()) + "x");
        }
    }
}

TEST(ProgramPaths, FolderLeavesAllOtherSettings)
{
    TPorogs porogs;
    porogs.exe = {.FindOrb = "f", .Java = "j"};
    CheckModulsForPaths("/p/", porogs);
    expectDefaultsBut(porogs, {{"exe.FindOrb", "/p/f"}, {"exe.Java", "/p/j"}});
}

TEST(Code142, NameAndRangeGoBehindTheDescription)
{
    TFuncRes result = emptyResult();
    SetCode142("Filter", "R, V", result);
    expectResult(result, 142, "", "Filter out of [R, V] ");
    SetCode142("", "", result);
    expectResult(result, 142, "", "Filter out of [R, V]  out of [] ");
    EXPECT_TRUE(result.Details.empty());
}

TEST(Code142, CommentAndTheBeginningOfTheDescriptionStay)
{
    TFuncRes result;
    result.Details = {"kept"};
    SetCode142("Filter", "R", result);
    expectResult(result, 142, "OK", "OKFilter out of [R] ", {"kept"});

    TFuncRes failed;
    failed.Code = 7;
    failed.Comment = outOfRange;
    failed.Description = "a.conf: ";
    SetCode142("Filter", "R", failed);
    expectResult(failed, 142, outOfRange, "a.conf: Filter out of [R] ");
}

TEST(RangeOfDoubles, EndsBelongToTheRange)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    constexpr struct
    {
        double min, max, value;
    } inside[] = {
        {1, 100, 1},
        {1, 100, 100},
        {1, 100, 50},
        {-5.5, -1.25, -5.5},
        {-5.5, -1.25, -1.25},
        {0, 0, 0},
        {0, 0, -0.0},
        {-0.0, 0, 0},
        {0.1, 0.3, 0.1},
        {0.1, 0.3, 0.3},
        {0, infinity, infinity},
        {-infinity, 0, -infinity},
        {-infinity, infinity, 1e308},
    };
    for (const auto& [min, max, value] : inside) {
        SCOPED_TRACE(std::to_string(value));
        expectResult(checkedRange(min, max, value), 0, "", "");
    }
}

TEST(RangeOfDoubles, ValueInsideLeavesAnEarlierFailure)
{
    TFuncRes result;
    result.Code = 142;
    result.Comment = "c";
    result.Description = "d";
    CheckDoubleMinMax("Focal", 1, 2, 1.5, result);
    expectResult(result, 142, "c", "d");
}

TEST(RangeOfDoubles, ValueBeyondAnEndIsTold)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const struct
    {
        double min, max, value;
        const char* description;
    } outside[] = {
        {1, 100, 0.5, "Focal=0.5 out of [1; 100] "},
        {1, 100, 100.5, "Focal=100.5 out of [1; 100] "},
        {-5.5, -1.25, -6, "Focal=-6 out of [-5.5; -1.25] "},
        {-5.5, -1.25, 0, "Focal=0 out of [-5.5; -1.25] "},
        // Six significant digits: a value just outside looks like the end.
        {1, 100, 100.00001, "Focal=100 out of [1; 100] "},
        {1, 100, std::nextafter(1.0, 0.0), "Focal=1 out of [1; 100] "},
        {1, 100, std::nextafter(100.0, 101.0), "Focal=100 out of [1; 100] "},
        {0.123456789, 1234567, 0, "Focal=0 out of [0.123457; 1.23457e+06] "},
        {0, 1, 1e-5 + 1, "Focal=1.00001 out of [0; 1] "},
        {0, 1, -1e-7, "Focal=-1e-07 out of [0; 1] "},
        {0, 1, infinity, "Focal=inf out of [0; 1] "},
        {0, 1, -infinity, "Focal=-inf out of [0; 1] "},
        {0, infinity, -1, "Focal=-1 out of [0; inf] "},
        {2, 1, 1.5, "Focal=1.5 out of [2; 1] "},
        {2, 1, 2, "Focal=2 out of [2; 1] "},
        {0, 1, std::numeric_limits<double>::quiet_NaN(), "Focal=nan out of [0; 1] "},
    };
    for (const auto& [min, max, value, description] : outside) {
        SCOPED_TRACE(description);
        expectResult(checkedRange(min, max, value), 142, "", description);
    }
}

TEST(RangeOfDegrees, ValueOfTheListPasses)
{
    constexpr struct
    {
        int value;
        const char* allowed;
    } inside[] = {
        {1, "1,3,5"}, {3, "1,3,5"}, {5, "1,3,5"}, {5, "1,3,5,"},  {3, " 1, 3, 5"},   {3, "3"},
        {-3, "-3,3"}, {3, "+3"},    {3, "03"},    {3, "3rd,5th"}, {5, "3rd,5th"},    {0, "1,,5"},
        {0, ","},     {0, "one"},   {0, "0x3"},   {3, "3.9"},     {1, "4294967297"},
    };
    for (const auto& [value, allowed] : inside) {
        SCOPED_TRACE(std::to_string(value) + " of " + allowed);
        expectResult(checkedDegree(value, allowed), 0, "", "");
    }
}

TEST(RangeOfDegrees, OtherValueIsToldWithTheListAsItStands)
{
    constexpr struct
    {
        int value;
        const char* allowed;
        const char* description;
    } outside[] = {
        {2, "1,3,5", "Degree=2 out of [1,3,5] "},
        {0, "1,3,5", "Degree=0 out of [1,3,5] "},
        {0, "1,3,5,", "Degree=0 out of [1,3,5,] "}, // nothing behind the last comma is no part
        {35, "3,5", "Degree=35 out of [3,5] "},
        {-3, "1,3,5", "Degree=-3 out of [1,3,5] "},
        {3, "1;3;5", "Degree=3 out of [1;3;5] "},
        {3, "1 3 5", "Degree=3 out of [1 3 5] "},
        {3, " 1, 5 ", "Degree=3 out of [ 1, 5 ] "},
        {3, "0x3", "Degree=3 out of [0x3] "},
        {0, "", "Degree=0 out of [] "},
        {2147483647, "1", "Degree=2147483647 out of [1] "},
        {-2147483647 - 1, "1", "Degree=-2147483648 out of [1] "},
    };
    for (const auto& [value, allowed, description] : outside) {
        SCOPED_TRACE(description);
        expectResult(checkedDegree(value, allowed), 142, "", description);
    }
}

TEST(RangeOfDegrees, ValueOfTheListLeavesAnEarlierFailure)
{
    TFuncRes result;
    result.Code = 7;
    result.Comment = "c";
    result.Description = "d";
    CheckAstroDegree("Degree", 3, "1,3,5", result);
    expectResult(result, 7, "c", "d");
}

TEST(RangeChecks, FailuresGatherInOneDescriptionInOrder)
{
    TFuncRes result = emptyResult();
    CheckDoubleMinMax("Focal", 1, 100, 0.5, result);
    CheckDoubleMinMax("Radius", 0, 10, 5, result);
    CheckAstroDegree("Degree", 2, "1,3,5", result);
    SetCode142("Filter", "R, V", result);
    CheckDoubleMinMax("Focal", 1, 100, 101, result);
    expectResult(result, 142, "",
                 "Focal=0.5 out of [1; 100] Degree=2 out of [1,3,5] Filter out of [R, V] "
                 "Focal=101 out of [1; 100] ");
}

TEST(RangeChecks, NewResultBeginsItsDescriptionWithOK)
{
    TFuncRes result;
    CheckDoubleMinMax("Focal", 1, 100, 0.5, result);
    CheckAstroDegree("Degree", 2, "1,3,5", result);
    expectResult(result, 142, "OK", "OKFocal=0.5 out of [1; 100] Degree=2 out of [1,3,5] ");
}
