#include "config/user_configuration.h"

#include "support/child_process.h"
#include "support/places.h"
#include "support/results.h"
#include "support/settings_rows.h"
#include "support/temporary_folder.h"
#include "support/user_configurations.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using namespace tavelinUtils;

namespace {

void expectMissing(const std::string& path)
{
    SCOPED_TRACE(path);
    TPorogs porogs = everyKey();
    const SettingRows before = settingRows(porogs);
    expectResult(LoadUserConfXML(path, porogs, true), 138,
                 "Error loading configuration parameters, file missing: ", "Load user conf.=" + path,
                 {"Load user conf.=" + path});
    expectRows(settingRows(porogs), before);
}

void expectBroken(const std::string& path)
{
    SCOPED_TRACE(path);
    TPorogs porogs = everyKey();
    const SettingRows before = settingRows(porogs);
    expectResult(LoadUserConfXML(path, porogs, true), 139, "Error loading configuration file, file broken.",
                 "Load user conf. " + path, {path});
    expectRows(settingRows(porogs), before);
}

void expectBrokenBytes(const std::string& bytes)
{
    SCOPED_TRACE(bytes.substr(0, 100));
    const TemporaryFolder folder;
    makeFile(folder / "a.conf", bytes);
    expectBroken(folder / "a.conf");
}

} // namespace

TEST(UserConfiguration, ARootWithoutChildrenGivesTheDefaults)
{
    expectDefaultsBut(loaded(""), {});
    const TemporaryFolder folder;
    makeFile(folder / "a.conf", "<a/>");
    TPorogs porogs;
    expectResult(LoadUserConfXML(folder / "a.conf", porogs, true), 0, "OK", "OK", {});
    expectDefaultsBut(porogs, {});
}

TEST(UserConfiguration, TheFirstElementIsTheRootWhateverItsName)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.conf", "<?xml version=\"1.0\"?>\n<!-- a night -->\n"
                                "<basicSettings>\n<Version>7</Version></basicSettings>\n"
                                "<root><Version>8</Version></root>\n");
    TPorogs porogs;
    EXPECT_EQ(LoadUserConfXML(folder / "a.conf", porogs, true).Code, 0);
    EXPECT_EQ(porogs.Version, "7");
}

TEST(UserConfiguration, LinesMayEndInCrLf)
{
    expectDefaultsBut(
        loaded("\r\n\t<Service>airfly</Service>\r\n\t<lightCurves>\r\n\t\t<AAVSOCode>ABC</AAVSOCode>\r\n"
               "\t</lightCurves>\r\n"),
        {{"Service", "6"}, {"curves.AAVSOCode", "ABC"}});
}

TEST(UserConfiguration, BlanksInTextsStay)
{
    expectDefaultsBut(loaded("<Version>  2  5 </Version><basicSettings><Telescope> T  1 </Telescope>"
                             "<FocalLength> 1200 </FocalLength></basicSettings>"),
                      {{"Version", "  2  5 "},
                       {"basicSettings.Telescope", " T  1 "},
                       {"basicSettings.FocalLength", "1200"}});
}

TEST(UserConfiguration, TextsAreUnescaped)
{
    expectDefaultsBut(loaded("<ReportSettings><MPCReport><OBS>A &amp; B &lt;\xC3\xA9&gt;</OBS>"
                             "<MEA><![CDATA[C & D]]></MEA></MPCReport></ReportSettings>"),
                      {{"mpc.MPCHeader.OBS", "A & B <\xC3\xA9>"}, {"mpc.MPCHeader.MEA", "C & D"}});
}

// An empty CDATA section is a node, unlike blanks.
TEST(UserConfiguration, AnEmptyCdataSectionEmptiesADefault)
{
    expectDefaultsBut(
        loaded("<basicSettings><Telescope><![CDATA[]]></Telescope></basicSettings>"
               "<lightCurves><AAVSOCode><![CDATA[]]></AAVSOCode>"
               "<ApertureSize><![CDATA[]]></ApertureSize></lightCurves>"),
        {{"basicSettings.Telescope", ""}, {"curves.AAVSOCode", ""}, {"curves.ApertureSize", "0"}});
}

// Every record of a section is replaced whole; what no section fills stays.
TEST(UserConfiguration, MissingSectionsPutTheDefaultsBack)
{
    TPorogs porogs = everyKey();
    porogs.subfolders.tavelinFolder = "kept 1";
    porogs.output.vkInd = "kept 2";
    porogs.extension.stepPrefix = "kept 3";
    porogs.exe.Java = "kept 4";
    porogs.input.PathLog = "kept 5";
    porogs.devPhoto.Text = "kept 6";
    porogs.devPhoto.List = {0.5};
    porogs.mpc.MPCHeader.COM = "dropped";
    porogs.mpc.MPCHeader.NET = "dropped";
    porogs.curves.CurvesFlag = true;
    porogs.fitt.Value1 = 99;
    porogs.stacking.Int1 = 99;
    porogs.vo.TieFrames = 99;
    EXPECT_EQ(load("", porogs).Code, 0);
    expectDefaultsBut(porogs, {{"subfolders.tavelinFolder", "kept 1"},
                               {"output.vkInd", "kept 2"},
                               {"extension.stepPrefix", "kept 3"},
                               {"exe.Java", "kept 4"},
                               {"input.PathLog", "kept 5"},
                               {"devPhoto.Text", "kept 6"},
                               {"devPhoto.List", "[0.5]"},
                               {"astro.CoefficientsNumber", "21"},
                               {"Version", "2.5 beta"}});
}

TEST(UserConfiguration, ASecondLoadAppendsNothing)
{
    TPorogs porogs = everyKey();
    const SettingRows once = settingRows(porogs);
    EXPECT_EQ(LoadUserConfXML(fixture("configuration/every_key.conf"), porogs, true).Code, 0);
    expectRows(settingRows(porogs), once);
}

TEST(UserConfiguration, MissingFile)
{
    const TemporaryFolder folder;
    expectMissing(folder / "a.conf");
    expectMissing(folder / "none/a.conf");
    expectMissing("");
}

TEST(UserConfiguration, BrokenFiles)
{
    for (const char* bytes : {
             "",
             "\n",
             "no markup",
             "<root>",
             "<root><Version>1</Version>",
             "<root><Version>1</root>",
             "<root><Version>1</Versio></root>",
             "</root>",
             "<?xml version=\"1.0\"?>",
             "<?xml version=\"1.0\"?>\n<!-- nothing -->\n",
             "<root",
         })
    {
        expectBrokenBytes(bytes);
    }
}

TEST(UserConfiguration, BinaryFiles)
{
    expectBrokenBytes(std::string("\0\0\0\0", 4));
    expectBrokenBytes(std::string("\x7F"
                                  "ELF\x02\x01\x01\0\0\0\0\0",
                                  12));
    std::string allBytes;
    for (int i = 255; i >= 0; --i) {
        allBytes += static_cast<char>(i);
    }
    expectBrokenBytes(allBytes);
    expectBrokenBytes(std::string("<root><Version>1\0</Version></root>", 34));
}

TEST(UserConfiguration, TooDeepFiles)
{
    std::string open;
    std::string close;
    for (int i = 0; i < 10001; ++i) {
        open += "<a>";
        close += "</a>";
    }
    expectBrokenBytes(open + close);
}

TEST(UserConfiguration, AFolderIsABrokenFile)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "a.conf");
    expectBroken(folder / "a.conf");
}

TEST(UserConfiguration, AnEmptyItemOfAListNeverReturns)
{
    for (const char* inside : {
             "<intraframeProcessing><brightnessFramesAlignment><UseMasterBias>true</UseMasterBias>"
             "<ProcessingRawBias><path>1.fit</path><path/></ProcessingRawBias>"
             "</brightnessFramesAlignment></intraframeProcessing>",
             // The list is read before it is dropped.
             "<intraframeProcessing><brightnessFramesAlignment>"
             "<ProcessingRawFlat><path></path></ProcessingRawFlat>"
             "</brightnessFramesAlignment></intraframeProcessing>",
             "<HeaderSettings><filterKeys><key><I><string>i</string><string/></I></key></filterKeys>"
             "</HeaderSettings>",
         })
    {
        SCOPED_TRACE(inside);
        const TemporaryFolder folder;
        makeFile(folder / "a.conf", "<root>" + std::string(inside) + "</root>");
        const ChildEnd end = runInChild(
            [&folder] {
                TPorogs porogs;
                LoadUserConfXML(folder / "a.conf", porogs, true);
            },
            endlessAfter);
        EXPECT_TRUE(end.timedOut);
    }
}

TEST(UserConfiguration, SeriesOfAsteroids)
{
    TPorogs porogs;
    expectResult(LoadUserConfXML(fixture("configuration/asteroid_series.conf"), porogs, true), 0, "OK", "OK",
                 {});
    expectDefaultsBut(porogs, {{"Version", "1.0"},
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
                               {"mpc.MPCHeader.ACK", "night report"}});
}

TEST(UserConfiguration, SeriesOfVariableStars)
{
    TPorogs porogs;
    expectResult(LoadUserConfXML(fixture("configuration/variable_star_series.conf"), porogs, true), 0, "OK",
                 "OK", {});
    expectDefaultsBut(porogs, {{"Version", "1.0"},
                               {"Service", "3"},
                               {"basicSettings.Filter", "V"},
                               {"basicSettings.Telescope", "C14"},
                               {"basicSettings.Observatory", "500"},
                               {"basicSettings.PixelWidth", "0.009"},
                               {"basicSettings.PixelHeight", "0.009"},
                               {"curves.AAVSOCode", "DERA"},
                               {"mpc.MPCHeader.OBS", "E. Dose"},
                               {"mpc.MPCHeader.MEA", "E. Dose"},
                               {"mpc.MPCHeader.TEL", "0.35-m reflector + CCD"},
                               {"mpc.MPCHeader.ACK", "variables"}});
}
