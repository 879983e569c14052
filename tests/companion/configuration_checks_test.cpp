#include "task/configuration_checks.h"

#include "config/configuration_keys.h"
#include "config/user_configuration.h"
#include "support/broken_files.h"
#include "support/child_process.h"
#include "support/folder_entries.h"
#include "support/folders.h"
#include "support/tasks.h"
#include "support/temporary_folder.h"
#include "works.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <sys/stat.h>

namespace {

using namespace companion;
namespace fs = std::filesystem;

std::string configurationOf(const std::string& station, const std::string& inside = "")
{
    return "<root><Service>asteroids</Service><ReportSettings><MPCReport><MPCcode>" + station +
           "</MPCcode></MPCReport></ReportSettings>" + inside + "</root>\n";
}

// A folder with a series in it.
class Series
{
public:
    Series()
    {
        fs::create_directories(folder / "night/tavelin/dataVO");
    }

    std::string table() const
    {
        return folder / "night/tavelin/dataVO/table.txt";
    }
    void addConfiguration(const std::string& name, const std::string& bytes) const
    {
        makeFile(folder / ("night/" + name), bytes);
    }
    std::string path(const std::string& name) const
    {
        return folder / ("night/" + name);
    }

private:
    TemporaryFolder folder;
};

const SeriesConfiguration foundIn(const Series& series)
{
    SeriesSettings settings;
    return settings.of(series.table());
}

// A configuration with an empty item in a list, that of a section's path or a filter's letter.
std::string withEmptyItem(const std::string& section, const std::string& list, const std::string& item)
{
    std::string inside =
        '<' + list + "><" + item + ">a</" + item + "><" + item + "> </" + item + "></" + list + '>';
    for (std::string left = section; !left.empty();) {
        const std::size_t slash = left.rfind('/');
        const std::string name = left.substr(slash + 1);
        inside = '<' + name + '>' + inside + "</" + name + '>';
        left = slash == std::string::npos ? "" : left.substr(0, slash);
    }
    return configurationOf("I41", inside);
}

// The findings of a report of the table, twice, as codes.
std::string told(const Series& series, const std::string& format = "telegram", SeriesSettings settings = {})
{
    const std::string seria = "<seria><path>" + series.table() + "</path></seria>";
    const TaskDocument document = taskDocumentOf(
        taskText({{"inputformat", "vomar"}, {"outputformat", format}, {"paths", seria + seria}}), "task.xml");
    std::string codes;
    for (const Finding& found : settings.findings(document, taskOf(document))) {
        EXPECT_EQ(found.count, 2u);
        codes += (codes.empty() ? "" : " ") + found.code.text();
    }
    return codes;
}

// The reader of configurations comes back from the bytes exactly where no list is told.
void expectList(const std::string& bytes, const std::string& list)
{
    SCOPED_TRACE(bytes);
    const Series series;
    series.addConfiguration("a.conf", bytes);
    const SeriesConfiguration found = foundIn(series);
    EXPECT_EQ(found.emptyList, list);
    EXPECT_EQ(found.settings.mpc.MPCHeader.COD, list.empty() ? "I41" : "500");
    const ChildEnd end = runInChild(
        [&series] {
            tavelinUtils::TPorogs settings;
            tavelinUtils::LoadUserConfXML(series.path("a.conf"), settings, false);
        },
        endlessAfter);
    EXPECT_EQ(end.timedOut, !list.empty());
}

} // namespace

TEST(SeriesSettings, AreThoseOfTheTool)
{
    const Series series;
    series.addConfiguration("tavelin/a.conf",
                            configurationOf("I41", "<lightCurves><AAVSOCode>ABC</AAVSOCode></lightCurves>"));
    SeriesSettings settings;
    const tavelinUtils::TPorogs found = settings.forWorks()(series.table());
    const tavelinUtils::TPorogs ofTool = ownWorks().settings(series.table());
    EXPECT_EQ(found.mpc.MPCHeader.COD, "I41");
    EXPECT_EQ(ofTool.mpc.MPCHeader.COD, "I41");
    EXPECT_EQ(found.curves.AAVSOCode, ofTool.curves.AAVSOCode);
    EXPECT_EQ(found.Service, ofTool.Service);
    EXPECT_EQ(settings.of(series.table()).files, std::vector<std::string>{series.path("tavelin/a.conf")});
}

TEST(SeriesSettings, FolderIsSearchedOnce)
{
    const Series series;
    series.addConfiguration("a.conf", configurationOf("I41"));
    SeriesSettings settings;
    EXPECT_EQ(settings.of(series.table()).files.size(), 1u);
    fs::remove(series.path("a.conf"));
    EXPECT_EQ(settings.of(series.path("tavelin/dataVO/other.txt")).files.size(), 1u);
    EXPECT_EQ(SeriesSettings().of(series.table()).files.size(), 0u);
}

TEST(SeriesSettings, FoldersThatAreTooHighUpAreNotSearched)
{
    SeriesSettings settings;
    for (const char* table : {"/a/table.txt", "/tavelin/dataVO/table.txt", "/data/tavelin/dataVO/table.txt"})
    {
        const SeriesConfiguration& found = settings.of(table);
        EXPECT_FALSE(found.isSearched) << table;
        EXPECT_EQ(settings.forWorks()(table).mpc.MPCHeader.COD, "500");
    }
    EXPECT_EQ(settings.of("/data/tavelin/dataVO/table.txt").folder, "/data/");
    EXPECT_TRUE(settings.of("/data/night/tavelin/dataVO/table.txt").isSearched);
}

TEST(SeriesSettings, RelativeFoldersCountFromTheRoot)
{
    const TemporaryFolder folder;
    const PresentFolder present(folder.path());
    SeriesSettings settings;
    EXPECT_TRUE(settings.of("night/tavelin/dataVO/table.txt").isSearched);
    EXPECT_FALSE(settings.of("../../../../../../tavelin/dataVO/table.txt").isSearched);
}

TEST(SeriesSettings, EmptyPathThrowsAsInTheTool)
{
    EXPECT_THROW(SeriesSettings().forWorks()(""), std::out_of_range);
    EXPECT_THROW(ownWorks().settings(""), std::out_of_range);
}

TEST(SeriesSettings, EmptyItemsOfListsAreFoundBeforeTheLoad)
{
    std::size_t lists = 0;
    for (const tavelinUtils::ConfigurationKey& key : tavelinUtils::configurationKeys()) {
        if (key.value == tavelinUtils::ConfigurationValue::list) {
            expectList(withEmptyItem(key.section, key.key, key.item), key.key);
            ++lists;
        }
    }
    EXPECT_EQ(lists, 4u);
    expectList(withEmptyItem("HeaderSettings/filterKeys/filter", "V", "string"), "V");
}

TEST(SeriesSettings, ListsThatTheReaderGetsPastAreNotTold)
{
    expectList(withEmptyItem("HeaderSettings/headerKeys", "key", "string"), "");
    expectList(withEmptyItem("HeaderSettings/filterKeys/filter", "G", "string"), "");
    expectList(withEmptyItem("intraframeProcessing", "ProcessingRawDark", "path"), "");
    expectList(withEmptyItem("intraframeProcessing/brightnessFramesAlignment", "ProcessingRawDark", "string"),
               "");
}

TEST(SeriesSettings, AnyOfThreeSectionsMakesAConfiguration)
{
    for (const char* inside : {"<Service>asteroids</Service>", "<lightCurves/>", "<ReportSettings/>"}) {
        const Series series;
        series.addConfiguration("a.conf", "<root>" + std::string(inside) + "</root>");
        EXPECT_EQ(foundIn(series).problem, "") << inside;
    }
    const Series series;
    series.addConfiguration("a.conf", "<root><Other/></root>");
    EXPECT_EQ(foundIn(series).problem, "has neither Service nor lightCurves nor ReportSettings");
}

TEST(SeriesSettings, FilesThatAreNoConfigurationsAreToldByTheirNames)
{
    for (const char* name : {".#a.conf", ".~lock.a.conf"}) {
        const Series series;
        series.addConfiguration(name, configurationOf("I41"));
        EXPECT_EQ(told(series), "V219") << name;
    }
    const Series good;
    good.addConfiguration("a.conf", configurationOf("I41"));
    EXPECT_EQ(told(good), "");
}

TEST(SeriesSettings, ABackupThatIsAloneAndGoodIsMeant)
{
    for (const char* name : {"~a.conf", "a.bak.conf", "a_backup.conf", "a (copy).conf"}) {
        const Series series;
        series.addConfiguration(name, configurationOf("I41"));
        EXPECT_EQ(told(series), "") << name;
        const Series empty;
        empty.addConfiguration(name, "<root/>");
        EXPECT_EQ(told(empty), "V219") << name;
    }
    const Series two;
    two.addConfiguration("a.bak.conf", configurationOf("I41"));
    two.addConfiguration("tavelin/a.conf", configurationOf("I41"));
    setFolderEntries(FolderEntries::sorted);
    EXPECT_EQ(told(two), "V218 V219");
    setFolderEntries(FolderEntries::asTheyAre);
}

TEST(SeriesSettings, LinksAreToldWhereTheyAreBroken)
{
    const Series whole;
    makeFile(whole.path("a.txt"), configurationOf("I41"));
    fs::create_symlink("a.txt", whole.path("a.conf"));
    EXPECT_EQ(told(whole), "");
    const Series broken;
    fs::create_symlink("nowhere", broken.path("a.conf"));
    EXPECT_EQ(told(broken), "V219");
}

TEST(SeriesSettings, AConfigurationThatIsGoneSinceIsNotLookedAt)
{
    const Series series;
    series.addConfiguration("a.conf", configurationOf("I41"));
    SeriesSettings settings;
    ASSERT_EQ(settings.of(series.table()).files.size(), 1u);
    fs::remove(series.path("a.conf"));
    EXPECT_EQ(told(series, "telegram", std::move(settings)), "");
}

TEST(SeriesSettings, CodesOfReportsAreThoseOfTheConfiguration)
{
    const auto toldOf = [](const std::string& station, const std::string& inside, const char* format) {
        const Series series;
        series.addConfiguration("a.conf", configurationOf(station, inside));
        return told(series, format);
    };
    EXPECT_EQ(toldOf("I41", "", "mpc"), "");
    for (const char* station : {"500", "I-1", "I4", "I411", ""}) {
        EXPECT_EQ(toldOf(station, "", "mpc"), "V224") << station;
    }
    EXPECT_EQ(toldOf("I41", "", "aavso"), "V225");
    EXPECT_EQ(toldOf("I41", "<lightCurves><AAVSOCode>ABC</AAVSOCode></lightCurves>", "aavso"), "");
}

TEST(SeriesSettings, ATableOfALoopOfLinksIsNotSearched)
{
    const TemporaryFolder folder;
    fs::create_symlink("loop", folder / "loop");
    SeriesSettings settings;
    EXPECT_FALSE(settings.of(folder / "loop/night/tavelin/dataVO/table.txt").isSearched);
}

TEST(SeriesSettings, AConfigurationOfSeveralSeriesIsTakenOnce)
{
    const Series series;
    series.addConfiguration("a.conf", configurationOf("I41"));
    tavelinUtils::TConvMea task;
    task.inputformat = "vomar";
    task.paths.resize(3);
    task.paths[0].path = series.table();
    task.paths[2].path = series.path("tavelin/dataVO/other.txt");
    EXPECT_EQ(SeriesSettings().takenBy(task), std::vector<std::string>{series.path("a.conf")});
}

TEST(SeriesSettings, NothingIsSaidOfATaskThatCannotBeLoaded)
{
    tavelinUtils::TConvMea task;
    task.inputformat = "vomar";
    EXPECT_TRUE(SeriesSettings().findings(taskDocumentOf("<task", "task.xml"), task).empty());
}

TEST(SeriesSettings, KindsOfEntriesAreAskedOfTheFileSystem)
{
    const Series series;
    series.addConfiguration("tavelin/a.conf", configurationOf("I41"));
    EXPECT_TRUE(foundIn(series).tellsKinds);
    setFolderEntries(FolderEntries::withoutKinds);
    const SeriesConfiguration found = foundIn(series);
    setFolderEntries(FolderEntries::asTheyAre);
    EXPECT_FALSE(found.tellsKinds);
    EXPECT_TRUE(found.files.empty());
}

TEST(SeriesSettings, PipeForAConfigurationIsNotOpened)
{
    const Series series;
    ASSERT_EQ(mkfifo(series.path("a.conf").c_str(), 0600), 0);
    expectTrueInChild([&series] { return foundIn(series).problem == "is no file"; });
}

// Such a file ends the tool's run, where one that is not understood leaves the defaults.
TEST(SeriesSettings, ConfigurationThatCannotBeReadEndsTheRun)
{
    const Series series;
    fs::create_symlink(brokenFile, series.path("a.conf"));
    const SeriesConfiguration found = foundIn(series);
    ASSERT_EQ(found.files.size(), 1u);
    EXPECT_EQ(found.problem, "cannot be read: the run ends without a result");
    EXPECT_THROW(ownWorks().settings(series.table()), tavelinUtils::TavelinException);
}
