#include "config/configuration_sections.h"

#include "support/child_process.h"
#include "support/settings_rows.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

/// The record that a reader fills from the section of that name, in a root with that content.
template <class Reader>
auto read(Reader reader, const std::string& inside, const std::string& section)
{
    TiXmlBase::SetCondenseWhiteSpace(false);
    TiXmlDocument document;
    document.Parse(("<root>" + inside + "</root>").c_str());
    EXPECT_FALSE(document.Error()) << inside;
    return reader(document.FirstChildElement(), section);
}

/// The settings with every record of a section read from a section of one name.
TPorogs readAll(const std::string& inside, const std::string& section)
{
    TPorogs porogs;
    porogs.basicSettings = read(GetBasicSettings, inside, section);
    porogs.zunek = read(GetZUNEK, inside, section);
    std::tie(porogs.fitt, porogs.intraThresh) = read(GetIntraFrame, inside, section);
    porogs.masterFrame = read(GetBrightnessFrame, inside, section);
    porogs.astro = read(GetIdentification, inside, section);
    porogs.vo = read(GetInterFrameAsteroids, inside, section);
    porogs.interIC = read(GetInterFrameIC, inside, section);
    porogs.interSat = read(GetInterFrameSatellites, inside, section);
    porogs.interSat.TLEs = read(GetTLEs, inside, section);
    porogs.stacking = read(GetAutoFrameStacking, inside, section);
    porogs.curves = read(GetLightCurves, inside, section);
    porogs.mpc = read(GetReportSettings, inside, section);
    porogs.headerKeys = read(HeaderKeyXML, inside, section);
    porogs.filtersID = read(GetFiltersID, inside, section);
    return porogs;
}

struct Word
{
    const char* content; ///< of the section
    int number;
};

/// An element of the name around a content.
std::string element(const std::string& name, const std::string& content)
{
    return "<" + name + ">" + content + "</" + name + ">";
}

TBasicSettings basicSettings(const std::string& content)
{
    return read(GetBasicSettings, element("basicSettings", content), "basicSettings");
}

TFitt detection(const std::string& content)
{
    return read(GetIntraFrame, element("intraframeProcessing", content), "intraframeProcessing").first;
}

TMasterFrame masterFrame(const std::string& content)
{
    return read(GetBrightnessFrame,
                element("intraframeProcessing", element("brightnessFramesAlignment", content)),
                "intraframeProcessing");
}

TAstro catalogues(const std::string& content)
{
    return read(GetIdentification, element("Identification", element("astroPhotoMetryCatalogs", content)),
                "Identification");
}

THeaderKeys headerKeys(const std::string& content)
{
    return read(HeaderKeyXML, element("HeaderSettings", element("headerKeys", content)), "HeaderSettings");
}

TFiltersID filters(const std::string& content)
{
    return read(GetFiltersID, element("HeaderSettings", element("filterKeys", content)), "HeaderSettings");
}

std::string elementSets(const std::string& content)
{
    return settingText(read(GetTLEs, element("TLEs", content), "TLEs"));
}

/// Checks that reading the section in a child process never comes back.
template <class Reader>
void expectNeverReturns(Reader reader, const std::string& inside, const std::string& section)
{
    SCOPED_TRACE(inside);
    const ChildEnd end = runInChild([&] { read(reader, inside, section); }, endlessAfter);
    EXPECT_TRUE(end.timedOut);
}

} // namespace

TEST(ConfigurationSections, ReadersReturnTheRecordsOfTheSettings)
{
    static_assert(std::is_same_v<decltype(GetBasicSettings(nullptr, "")), TBasicSettings>);
    static_assert(std::is_same_v<decltype(GetZUNEK(nullptr, "")), TZunek>);
    static_assert(
        std::is_same_v<decltype(GetIntraFrame(nullptr, "")), std::pair<TFitt, TQRVDIntraframeThresh>>);
    static_assert(std::is_same_v<decltype(GetBrightnessFrame(nullptr, "")), TMasterFrame>);
    static_assert(std::is_same_v<decltype(GetIdentification(nullptr, "")), TAstro>);
    static_assert(std::is_same_v<decltype(GetInterFrameAsteroids(nullptr, "")), TVO>);
    static_assert(std::is_same_v<decltype(GetInterFrameIC(nullptr, "")), TInterIC>);
    static_assert(std::is_same_v<decltype(GetInterFrameSatellites(nullptr, "")), TInterSat>);
    static_assert(std::is_same_v<decltype(GetAutoFrameStacking(nullptr, "")), TStacking>);
    static_assert(std::is_same_v<decltype(GetLightCurves(nullptr, "")), TCurves>);
    static_assert(std::is_same_v<decltype(GetReportSettings(nullptr, "")), TMPC>);
    static_assert(std::is_same_v<decltype(HeaderKeyXML(nullptr, "")), THeaderKeys>);
    static_assert(std::is_same_v<decltype(GetFiltersID(nullptr, "")), TFiltersID>);
    static_assert(std::is_same_v<decltype(GetTLEs(nullptr, "")), std::vector<TTLEstr>>);
}

TEST(ConfigurationSections, AMissingSectionGivesTheDefaults)
{
    expectDefaultsBut(readAll("", "s"), {});
    expectDefaultsBut(readAll("<other><Telescope>T</Telescope><SubseriesCount>4</SubseriesCount></other>"
                              "<Telescope>T</Telescope><SubseriesCount>4</SubseriesCount>",
                              "s"),
                      {});
}

TEST(ConfigurationSections, AnEmptySectionGivesTheDefaults)
{
    expectDefaultsBut(readAll("<s/>", "s"), {});
    expectDefaultsBut(readAll("<s></s>", "s"), {});
    expectDefaultsBut(readAll("<s> \n </s>", "s"), {});
    expectDefaultsBut(readAll("<s><!-- nothing --></s>", "s"), {});
    expectDefaultsBut(readAll("<s>text</s>", "s"), {});
    expectDefaultsBut(
        readAll("<s><artifactsFilter/><ImageDetection/><DifferenceFrame/><brightnessFramesAlignment/>"
                "<astroPhotoMetryCatalogs/><astroPhotoMetry/><MPCReport/><headerKeys/><filterKeys/>"
                "<TLE/></s>",
                "s"),
        {});
}

TEST(ConfigurationSections, TheNameOfTheSectionIsGivenByTheCaller)
{
    expectDefaultsBut(
        readAll("<basicSettings><Telescope>T</Telescope></basicSettings>"
                "<s><Telescope>T1</Telescope><QuidanceError>0.5</QuidanceError>"
                "<artifactsFilter><HotPixels>2</HotPixels></artifactsFilter>"
                "<DifferenceFrame><filter>a</filter></DifferenceFrame>"
                "<brightnessFramesAlignment><UseFHF>true</UseFHF></brightnessFramesAlignment>"
                "<astroPhotoMetry><FragmentsNumber>9</FragmentsNumber></astroPhotoMetry>"
                "<mpc_load_mag>19</mpc_load_mag><DmThreshold>3</DmThreshold><VelocityFast>7</VelocityFast>"
                "<TLE><Line1>1 A</Line1></TLE><pa>4</pa><AAVSOCode>ABC</AAVSOCode>"
                "<MPCReport><OBS>A. B.</OBS></MPCReport>"
                "<headerKeys><key name=\"RA\"><string>OBJCTRA</string></key></headerKeys>"
                "<filterKeys><key><R><string>r</string></R></key></filterKeys></s>",
                "s"),
        {{"basicSettings.Telescope", "T1"},
         {"zunek.QuidanceError", "0.5"},
         {"fitt.HotPixels", "2"},
         {"intraThresh.filter", "a"},
         {"masterFrame.UseFHF", "true"},
         {"astro.FragmentsNumber", "9"},
         {"vo.mpc_load_mag", "19"},
         {"interIC.DmThreshold", "3"},
         {"interSat.VelocityFast", "7"},
         {"interSat.TLEs", "[|1 A|]"},
         {"stacking.pa", "4"},
         {"curves.AAVSOCode", "ABC"},
         {"mpc.MPCHeader.OBS", "A. B."},
         {"headerKeys.RA", "[OBJCTRA]"},
         {"filtersID.R", "[[r]]"},
         {"filtersID.V", "[[]]"},
         {"filtersID.B", "[[]]"},
         {"filtersID.I", "[[]]"}});
}

TEST(ConfigurationSections, PixelsAboveOneAreMicrometres)
{
    const struct
    {
        const char* text;
        double value;
    } rows[] = {
        {"9.0", 0.009},   {"0.9", 0.9},
        {"1.0", 1.0},     {"1", 1.0},
        {"1.5", 0.0015},  {"2", 0.002},
        {"0", 0.0},       {"-9.0", -9.0},
        {"9 um", 0.009},  {"wide", 0.0},
        {"1e3", 1.0},     {"5000", 5.0},
        {"0.009", 0.009}, {"1.0000001", 0.0010000001},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_DOUBLE_EQ(basicSettings(element("PixelWidth", row.text)).PixelWidth, row.value);
        EXPECT_DOUBLE_EQ(basicSettings(element("PixelHeight", row.text)).PixelHeight, row.value);
        EXPECT_EQ(basicSettings(element("PixelWidth", row.text)).PixelHeight, 0.0);
        EXPECT_EQ(basicSettings(element("PixelHeight", row.text)).PixelWidth, 0.0);
    }
    EXPECT_EQ(basicSettings("<PixelWidth>9.0</PixelWidth>").PixelWidth, 9.0 / 1000.0);
    EXPECT_EQ(basicSettings("<PixelWidth>1.0</PixelWidth>").PixelWidth, 1.0);
}

TEST(ConfigurationSections, OtherLengthsStayAsTheyAre)
{
    const TBasicSettings settings = basicSettings("<FocalLength>9</FocalLength><PixelScale>9</PixelScale>"
                                                  "<Altitude>9</Altitude>");
    EXPECT_EQ(settings.FocalLength, 9.0);
    EXPECT_EQ(settings.PixelScale, 9.0);
    EXPECT_EQ(settings.Altitude, 9.0);
}

TEST(ConfigurationSections, ASiteIsKnownByItsLongitudeOrLatitude)
{
    const struct
    {
        const char* content;
        bool known;
    } rows[] = {
        {"<Longitude>24.9</Longitude>", true},
        {"<Latitude>60.2</Latitude>", true},
        {"<Longitude>-24.9</Longitude>", true},
        {"<Latitude>-0.000001</Latitude>", true},
        {"<Longitude>24.9</Longitude><Latitude>0</Latitude>", true},
        {"<Longitude>0</Longitude><Latitude>60.2</Latitude>", true},
        {"<Longitude>24.9</Longitude><Latitude>60.2</Latitude><Altitude>0</Altitude>", true},
        {"<Longitude>0</Longitude><Latitude>0.0</Latitude><Altitude>2000</Altitude>", false},
        {"<Longitude>-0</Longitude>", false},
        {"<Longitude>east</Longitude><Latitude>north</Latitude>", false},
        {"<Altitude>2000</Altitude>", false},
        {"<SiteKnown>true</SiteKnown>", false},
        {"", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.content);
        EXPECT_EQ(basicSettings(row.content).SiteKnown, row.known);
    }
}

TEST(ConfigurationSections, WordsOfTheKindOfFitting)
{
    const Word rows[] = {
        {"<FittingType>Auto</FittingType>", 0},
        {"<FittingType>Diurnal</FittingType>", 1},
        {"<FittingType>Stroke</FittingType>", 2},
        {"<FittingType>DiffFrame</FittingType>", 3},
        {"<FittingType>stroke</FittingType>", 0},
        {"<FittingType>Stroke </FittingType>", 0},
        {"<FittingType>2</FittingType>", 0},
        {"<FittingType></FittingType>", 0},
        {"<FittingType><![CDATA[]]></FittingType>", 0},
        {"<FittingType/>", 0},
        {"", 0},
    };
    for (const Word& row : rows) {
        SCOPED_TRACE(row.content);
        EXPECT_EQ(static_cast<int>(detection(element("ImageDetection", row.content)).FittingType),
                  row.number);
    }
}

TEST(ConfigurationSections, WordsOfTheCatalogues)
{
    const Word rows[] = {
        {"iNoCat", 0},     {"TYCHO2", 2}, {"UCAC4", 3},   {"UCAC5", 4}, {"USNOB1", 5},    {"NOMAD1", 6},
        {"GAIA2", 7},      {"SDSS9", 9},  {"APASS9", 10}, {"VSX", 11},  {"AAVSOvsp", 12}, {"gaia2", 0},
        {"PanSTARRS1", 8}, {" GAIA2", 0}, {"GAIA3", 0},   {"7", 0},     {"", 0},
    };
    for (const Word& row : rows) {
        SCOPED_TRACE(row.content);
        const TAstro astrometric = catalogues(element("INetAstrometric", row.content));
        EXPECT_EQ(static_cast<int>(astrometric.INetAstrometric), row.number);
        EXPECT_EQ(static_cast<int>(astrometric.INetPhotometric), 0);
        const TAstro photometric = catalogues(element("INetPhotometric", row.content));
        EXPECT_EQ(static_cast<int>(photometric.INetPhotometric), row.number);
        EXPECT_EQ(static_cast<int>(photometric.INetAstrometric), 0);
    }
}

TEST(ConfigurationSections, WordsOfTheUnitOfASpeedLimit)
{
    const Word rows[] = {
        {"<TypeSpeedLimit>VisibleMotion</TypeSpeedLimit>", 0},
        {"<TypeSpeedLimit>ArcsecPerMin</TypeSpeedLimit>", 1},
        {"<TypeSpeedLimit>arcsecPerMin</TypeSpeedLimit>", 2},
        {"<TypeSpeedLimit>0</TypeSpeedLimit>", 2},
        {"<TypeSpeedLimit></TypeSpeedLimit>", 2},
        {"<TypeSpeedLimit><![CDATA[]]></TypeSpeedLimit>", 2},
        {"<TypeSpeedLimit/>", 2},
        {"", 2},
    };
    for (const Word& row : rows) {
        SCOPED_TRACE(row.content);
        EXPECT_EQ(
            static_cast<int>(read(GetInterFrameAsteroids, element("s", row.content), "s").TypeSpeedLimit),
            row.number);
    }
}

TEST(ConfigurationSections, WordsOfTheWaitForTheLastFrame)
{
    const Word rows[] = {
        {"<WaitLastFrame>ByTime</WaitLastFrame>", 0},
        {"<WaitLastFrame>ByCount</WaitLastFrame>", 1},
        {"<WaitLastFrame>bytime</WaitLastFrame>", 2},
        {"<WaitLastFrame>1</WaitLastFrame>", 2},
        {"<WaitLastFrame></WaitLastFrame>", 2},
        {"<WaitLastFrame><![CDATA[]]></WaitLastFrame>", 2},
        {"<WaitLastFrame/>", 2},
        {"", 2},
    };
    for (const Word& row : rows) {
        SCOPED_TRACE(row.content);
        EXPECT_EQ(static_cast<int>(read(GetZUNEK, element("s", row.content), "s").WaitLastFrame), row.number);
    }
}

TEST(ConfigurationSections, WordsOfTheSizeOfAnAperture)
{
    const Word rows[] = {
        {"<SetApertureSize>AutoCalculation</SetApertureSize>", 0},
        {"<SetApertureSize>ByRadius</SetApertureSize>", 1},
        {"<SetApertureSize>ByFWHM</SetApertureSize>", 2},
        {"<SetApertureSize>ByFwhm</SetApertureSize>", 1},
        {"<SetApertureSize>0</SetApertureSize>", 1},
        {"<SetApertureSize></SetApertureSize>", 1},
        {"<SetApertureSize><![CDATA[]]></SetApertureSize>", 1},
        {"<SetApertureSize/>", 1},
        {"", 1},
    };
    for (const Word& row : rows) {
        SCOPED_TRACE(row.content);
        EXPECT_EQ(static_cast<int>(read(GetLightCurves, element("s", row.content), "s").SetApertureSize),
                  row.number);
    }
}

TEST(ConfigurationSections, SectionsOfDetectionAreReadInTurn)
{
    const auto [fitt, difference] =
        read(GetIntraFrame,
             "<s><artifactsFilter><HotPixels>1</HotPixels><IsDetect>true</IsDetect></artifactsFilter>"
             "<ImageDetection><FittingType>Stroke</FittingType><snrPeakStrokeStar>4</snrPeakStrokeStar>"
             "<AreaWithBadImages>(1;2-3;4)</AreaWithBadImages>"
             "<DoNotSelectStarsOnFrame>(1;1-2;2)</DoNotSelectStarsOnFrame></ImageDetection></s>"
             "<other><artifactsFilter><HotPixels>9</HotPixels></artifactsFilter></other>"
             "<s/>"
             "<s><ImageDetection><AreaWithBadImages>(5;6-7;8)</AreaWithBadImages></ImageDetection>"
             "<DifferenceFrame><snrPeak>6</snrPeak><filter>a</filter></DifferenceFrame></s>"
             "<s><artifactsFilter><HotPixels>2</HotPixels></artifactsFilter>"
             "<DifferenceFrame><filter>b</filter></DifferenceFrame></s>",
             "s");
    EXPECT_EQ(fitt.HotPixels, 2.0);
    EXPECT_TRUE(fitt.IsDetect);
    EXPECT_EQ(static_cast<int>(fitt.FittingType), 2);
    EXPECT_EQ(fitt.snrPeakStrokeStar, 4.0);
    EXPECT_EQ(settingText(fitt.AreaWithBadImages), "[(5;6-7;8)]");
    EXPECT_EQ(settingText(fitt.DoNotSelectStarsOnFrame), "[(1;1-2;2)]");
    EXPECT_EQ(difference.snrPeak, 6.0);
    EXPECT_EQ(difference.filter, "b");
    EXPECT_EQ(difference.sigmaFit, 1.0);
}

TEST(ConfigurationSections, AnUnknownWordOfALaterSectionOverrides)
{
    const TFitt fitt = read(GetIntraFrame,
                            "<s><ImageDetection><FittingType>Stroke</FittingType></ImageDetection></s>"
                            "<s><ImageDetection><FittingType>none</FittingType></ImageDetection></s>",
                            "s")
                           .first;
    EXPECT_EQ(static_cast<int>(fitt.FittingType), 0);
}

TEST(ConfigurationSections, OneSectionHasOneChildOfAName)
{
    const TFitt fitt =
        detection("<artifactsFilter><HotPixels>1</HotPixels></artifactsFilter>"
                  "<artifactsFilter><HotPixels>2</HotPixels><IsDetect>true</IsDetect></artifactsFilter>");
    EXPECT_EQ(fitt.HotPixels, 1.0);
    EXPECT_FALSE(fitt.IsDetect);
}

TEST(ConfigurationSections, BadAreas)
{
    const struct
    {
        const char* text;
        const char* areas;
    } rows[] = {
        {"(1;2-3;4)", "[(1;2-3;4)]"},
        {"(1;2-3;4)(5;6-7;8)(9;10-11;12)", "[(1;2-3;4)(5;6-7;8)(9;10-11;12)]"},
        {"(30;40-1;2)", "[(30;40-1;2)]"},
        {"(1;2-3;4)(5;6)", "[(1;2-3;4)]"},
        {"(1;2;3;4)(5;6-7;8)", "[(5;6-7;8)]"},
        {"(1;2-3;b)(5;6-7;8)", "[(5;6-7;8)]"},
        {"(1;2-3)", "[]"},
        {"none", "[]"},
        {"()", "[]"},
        {"", "[]"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const TFitt stars =
            detection(element("ImageDetection", element("DoNotSelectStarsOnFrame", row.text)));
        EXPECT_EQ(settingText(stars.DoNotSelectStarsOnFrame), row.areas);
        EXPECT_EQ(settingText(stars.AreaWithBadImages), "[]");
        const TFitt images = detection(element("ImageDetection", element("AreaWithBadImages", row.text)));
        EXPECT_EQ(settingText(images.AreaWithBadImages), row.areas);
        EXPECT_EQ(settingText(images.DoNotSelectStarsOnFrame), "[]");
    }
}

TEST(ConfigurationSections, RawFramesComeAsTheyStandWhetherUsedOrNot)
{
    const std::string lists =
        "<ProcessingRawBias><path>b 1</path><path>b 2</path></ProcessingRawBias>"
        "<ProcessingRawDark><path>d</path></ProcessingRawDark>"
        "<ProcessingRawDarkFlat><path> df </path></ProcessingRawDarkFlat>"
        "<ProcessingRawFlat><path>f</path><string>no</string><path>g</path></ProcessingRawFlat>";
    for (const char* word : {"true", "false"}) {
        SCOPED_TRACE(word);
        const TMasterFrame frames =
            masterFrame(element("UseMasterBias", word) + element("UseMasterDark", word) +
                        element("UseMasterDarkFlat", word) + element("UseMasterFlat", word) + lists);
        EXPECT_EQ(settingText(frames.ProcessingRawBias), "[b 1|b 2]");
        EXPECT_EQ(settingText(frames.ProcessingRawDark), "[d]");
        EXPECT_EQ(settingText(frames.ProcessingRawDarkFlat), "[ df ]");
        EXPECT_EQ(settingText(frames.ProcessingRawFlat), "[f|g]");
    }
}

TEST(ConfigurationSections, RawFramesAreItemsNamedPath)
{
    const TMasterFrame frames =
        masterFrame("<ProcessingRawBias><string>b</string></ProcessingRawBias>"
                    "<ProcessingRawDark>d</ProcessingRawDark><ProcessingRawFlat/><path>f</path>");
    EXPECT_EQ(settingText(frames.ProcessingRawBias), "[]");
    EXPECT_EQ(settingText(frames.ProcessingRawDark), "[]");
    EXPECT_EQ(settingText(frames.ProcessingRawDarkFlat), "[]");
    EXPECT_EQ(settingText(frames.ProcessingRawFlat), "[]");
}

TEST(ConfigurationSections, CalibrationFramesComeFromTheFirstSection)
{
    const TMasterFrame frames =
        read(GetBrightnessFrame,
             "<s><brightnessFramesAlignment><MedianWindow>3</MedianWindow>"
             "<ProcessingRawBias><path>1</path></ProcessingRawBias></brightnessFramesAlignment></s>"
             "<s><brightnessFramesAlignment><MedianWindow>5</MedianWindow><BinningCoefficient>2</"
             "BinningCoefficient>"
             "<ProcessingRawBias><path>2</path></ProcessingRawBias></brightnessFramesAlignment></s>",
             "s");
    EXPECT_EQ(frames.MedianWindow, 3);
    EXPECT_EQ(frames.BinningCoefficient, 0);
    EXPECT_EQ(settingText(frames.ProcessingRawBias), "[1]");

    const TMasterFrame none = read(GetBrightnessFrame,
                                   "<s/><s><brightnessFramesAlignment><MedianWindow>5</MedianWindow>"
                                   "</brightnessFramesAlignment></s>",
                                   "s");
    EXPECT_EQ(none.MedianWindow, 0);
}

TEST(ConfigurationSections, TheReaderLeavesTheNumberOfCoefficients)
{
    for (const char* degree : {"1", "3", "5", "2"}) {
        SCOPED_TRACE(degree);
        const TAstro astro =
            read(GetIdentification,
                 element("s", element("astroPhotoMetry", element("AstrometryReductionDegree", degree))), "s");
        EXPECT_EQ(std::to_string(astro.AstrometryReductionDegree), degree);
        EXPECT_EQ(astro.CoefficientsNumber, 0);
    }
}

TEST(ConfigurationSections, RepresentativesStandInTheSectionOfMovingObjects)
{
    const std::string section = "<s><DmThreshold>3</DmThreshold><RadiusOfFixidity>4</RadiusOfFixidity>"
                                "<MakeICFromFrames>1-3</MakeICFromFrames>"
                                "<MakeTracksOnFrames>2-5</MakeTracksOnFrames></s>";
    const TInterIC representatives = read(GetInterFrameIC, section, "s");
    EXPECT_EQ(representatives.DmThreshold, 3.0);
    EXPECT_EQ(representatives.RadiusOfFixidity, 4.0);
    EXPECT_EQ(representatives.MakeICFromFrames, "1-3");
    EXPECT_EQ(read(GetInterFrameAsteroids, section, "s").MakeTracksOnFrames, "2-5");
}

TEST(ConfigurationSections, ReportHeadersHaveNoCommentAndNoCatalogue)
{
    const TMPC mpc =
        read(GetReportSettings,
             "<s><MPCReport><MPCcode>W84</MPCcode><COD>Z99</COD><COM>comment</COM><NET>GAIA2</NET>"
             "<HeaderOn>false</HeaderOn><HeaderFlag2>true</HeaderFlag2></MPCReport></s>",
             "s");
    EXPECT_EQ(mpc.MPCHeader.COD, "W84");
    EXPECT_EQ(mpc.MPCHeader.COM, "");
    EXPECT_EQ(mpc.MPCHeader.NET, "");
    EXPECT_TRUE(mpc.MPCHeader.HeaderOn);
    EXPECT_FALSE(mpc.MPCHeader.HeaderFlag2);
}

TEST(ConfigurationSections, EachWordOfTheHeaderKeysFillsItsList)
{
    for (const char* word : {"ObservationDate",
                             "ObservationTime",
                             "ExposureTime",
                             "Telescope",
                             "Filter",
                             "RA",
                             "DE",
                             "FocalLength",
                             "PixelWidth",
                             "PixelHeight",
                             "Temperature",
                             "ImageType",
                             "Aperture",
                             "Instrument",
                             "Altitude",
                             "Latitude",
                             "Longitude",
                             "Observer",
                             "XBIN",
                             "YBIN"})
    {
        SCOPED_TRACE(word);
        TPorogs porogs;
        porogs.headerKeys = headerKeys("<key name=\"" + std::string(word) +
                                       "\"><string>FIRST</string><string>SECOND KEY</string></key>");
        expectDefaultsBut(porogs, {{"headerKeys." + std::string(word), "[FIRST|SECOND KEY]"}});
    }
}

TEST(ConfigurationSections, OtherHeaderKeysArePassedOver)
{
    TPorogs porogs;
    porogs.headerKeys = headerKeys("<key><string>A</string></key>"
                                   "<key name=\"\"><string>B</string></key>"
                                   "<key name=\"Gain\"><string>C</string></key>"
                                   "<key name=\"telescope\"><string>D</string></key>"
                                   "<key name=\"RA \"><string>E</string></key>"
                                   "<key id=\"RA\"><string>F</string></key>"
                                   "<other name=\"RA\"><string>G</string></other>"
                                   "<RA><string>H</string></RA>"
                                   "<key name=\"DE\"><other>I</other><string>DEC</string>text</key>"
                                   "<key name=\"Filter\"/>"
                                   "<key name=\"XBIN\">text</key>");
    expectDefaultsBut(porogs, {{"headerKeys.DE", "[DEC]"}});
}

TEST(ConfigurationSections, SpellingsOfSeveralKeysOfOneNameAddUp)
{
    EXPECT_EQ(settingText(headerKeys("<key name=\"RA\"><string>A</string></key>"
                                     "<key name=\"DE\"><string>B</string></key>"
                                     "<key name=\"RA\"><string>C</string></key>")
                              .RA),
              "[A|C]");
}

// Unlike the lists of the filters, which never come back from one.
TEST(ConfigurationSections, AnEmptySpellingIsNone)
{
    EXPECT_EQ(settingText(headerKeys("<key name=\"RA\"><string/><string>A</string><string></string>"
                                     "<string>B</string></key>")
                              .RA),
              "[A|B]");
}

TEST(ConfigurationSections, HeaderKeysMayBeTheSectionItself)
{
    const THeaderKeys keys =
        read(HeaderKeyXML, "<headerKeys><key name=\"Observer\"><string>OBSERVER</string></key></headerKeys>",
             "headerKeys");
    EXPECT_EQ(settingText(keys.Observer), "[OBSERVER]");
}

TEST(ConfigurationSections, EachElementOfTheFilterKeysAddsAListToEachLetter)
{
    const TFiltersID names =
        filters("<key><R><string>Rc</string><string>r</string></R><V><string>V</string></V>"
                "<B><string>B</string></B><I><string>Ic</string></I></key>"
                "<key><I><string>i 2</string></I><R><string>R2</string></R></key>");
    EXPECT_EQ(settingText(names.R), "[[Rc|r][R2]]");
    EXPECT_EQ(settingText(names.V), "[[V][]]");
    EXPECT_EQ(settingText(names.B), "[[B][]]");
    EXPECT_EQ(settingText(names.I), "[[Ic][i 2]]");
}

TEST(ConfigurationSections, ElementsOfTheFilterKeysMayHaveAnyName)
{
    const TFiltersID names = filters("<set1><R><string>a</string></R></set1><!-- c --><other/>"
                                     "<key><r><string>b</string></r><R><path>c</path></R></key>"
                                     "<R><V><string>d</string></V></R>");
    EXPECT_EQ(settingText(names.R), "[[a][][][]]");
    EXPECT_EQ(settingText(names.V), "[[][][][d]]");
    EXPECT_EQ(settingText(names.B), "[[][][][]]");
    EXPECT_EQ(settingText(names.I), "[[][][][]]");
}

TEST(ConfigurationSections, FilterKeysMayBeTheSectionItself)
{
    const TFiltersID names =
        read(GetFiltersID, "<filterKeys><key><B><string>Bj</string></B></key></filterKeys>", "filterKeys");
    EXPECT_EQ(settingText(names.B), "[[Bj]]");
    EXPECT_EQ(settingText(names.R), "[[]]");
}

TEST(ConfigurationSections, ElementSetsHaveThreeLines)
{
    EXPECT_EQ(elementSets("<TLE><Line0>0 A</Line0><Line1>1 A</Line1><Line2>2 A</Line2></TLE>"
                          "<TLE><Line2>2 B</Line2><Line1>1 B</Line1><Line0> B </Line0></TLE>"),
              "[0 A|1 A|2 A][ B |1 B|2 B]");
}

TEST(ConfigurationSections, ALineThatIsMissingIsEmpty)
{
    EXPECT_EQ(elementSets("<TLE><Line1>1 A</Line1></TLE><TLE><Line0/></TLE><TLE><other/></TLE>"
                          "<TLE><line0>0 D</line0><Line2>2 D</Line2></TLE>"),
              "[|1 A|][||][||][||2 D]");
}

TEST(ConfigurationSections, TheWalkOverElementSetsEndsAtAnEmptyOne)
{
    const std::string a = "<TLE><Line0>A</Line0></TLE>";
    const std::string b = "<TLE><Line0>B</Line0></TLE>";
    EXPECT_EQ(elementSets(a + "<TLE/>" + b), "[A||]");
    EXPECT_EQ(elementSets(a + "<TLE></TLE>" + b), "[A||]");
    EXPECT_EQ(elementSets(a + b + "<TLE/>"), "[A||][B||]");
    EXPECT_EQ(elementSets("<TLE/>" + a + b), "[]");
    EXPECT_EQ(elementSets("<TLE>text</TLE>" + a), "[]");
    EXPECT_EQ(elementSets("<TLE><!-- none --></TLE>" + a), "[]");
    EXPECT_EQ(elementSets(""), "[]");
}

TEST(ConfigurationSections, OtherElementsBetweenElementSetsArePassedOver)
{
    EXPECT_EQ(
        elementSets("<other/><TLE><Line0>A</Line0></TLE><tle/><!-- c -->text<TLE><Line0>B</Line0></TLE>"),
        "[A||][B||]");
}

TEST(ConfigurationSections, SatellitesHaveNoElementSetsOfTheirOwn)
{
    const TInterSat satellites =
        read(GetInterFrameSatellites,
             "<s><VelocityFast>7</VelocityFast><TLEs><TLE><Line0>A</Line0></TLE></TLEs></s>"
             "<TLEs><TLE><Line0>B</Line0></TLE></TLEs>",
             "s");
    EXPECT_EQ(satellites.VelocityFast, 7.0);
    EXPECT_EQ(settingText(satellites.TLEs), "[]");
}

TEST(ConfigurationSections, AnEmptyPathOfRawFramesNeverReturns)
{
    for (const char* list :
         {"ProcessingRawBias", "ProcessingRawDark", "ProcessingRawDarkFlat", "ProcessingRawFlat"})
    {
        expectNeverReturns(GetBrightnessFrame,
                           "<s><brightnessFramesAlignment><" + std::string(list) +
                               "><path>1</path><path/></" + list + "></brightnessFramesAlignment></s>",
                           "s");
    }
}

TEST(ConfigurationSections, AnEmptyNameOfAFilterNeverReturns)
{
    for (const char* letter : {"R", "V", "B", "I"}) {
        expectNeverReturns(GetFiltersID,
                           "<s><filterKeys><key><" + std::string(letter) + "><string></string></" + letter +
                               "></key></filterKeys></s>",
                           "s");
    }
}
