#include "config/parameters_detection.h"

#include "results/result.h"

#include "support/child_process.h"
#include "support/parameter_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <filesystem>
#include <limits>
#include <string>
#include <utility>
#include <vector>

#include <unistd.h>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

const std::vector<WrittenFile> writtenFiles = {
    {"sThresPeakXML", [](const std::string& path) { return sThresPeakXML(path, 100, 200); },
     "<?xml version=\"1.0\" ?>\n"
     "<Fitting>\n"
     "    <Peaks>\n"
     "        <Peak>\n"
     "            <X>100</X>\n"
     "            <Y>200</Y>\n"
     "        </Peak>\n"
     "    </Peaks>\n"
     "</Fitting>\n"},
    {"sThresPeakXML with limits",
     [](const std::string& path) { return sThresPeakXML(path, -2147483647 - 1, 2147483647); },
     "<?xml version=\"1.0\" ?>\n"
     "<Fitting>\n"
     "    <Peaks>\n"
     "        <Peak>\n"
     "            <X>-2147483648</X>\n"
     "            <Y>2147483647</Y>\n"
     "        </Peak>\n"
     "    </Peaks>\n"
     "</Fitting>\n"},
    {"sParamFittXML",
     [](const std::string& path) {
         return sParamFittXML(path, Texts{"/data/1.fit", "/data/2.fit"}, "7", "true", "/conf/t.xml",
                              "/serie/1", "/out/res.xml", "/out/fit.log");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<TaVeLinSettings>\n"
     "    <Fitting>\n"
     "        <FitsList>\n"
     "            <string>/data/1.fit</string>\n"
     "            <string>/data/2.fit</string>\n"
     "        </FitsList>\n"
     "        <IDFrame>7</IDFrame>\n"
     "        <DetectBadPix>true</DetectBadPix>\n"
     "        <ConfigTavelinPath>/conf/t.xml</ConfigTavelinPath>\n"
     "        <SeriePath>/serie/1</SeriePath>\n"
     "        <ResPath>/out/res.xml</ResPath>\n"
     "        <LogPath>/out/fit.log</LogPath>\n"
     "    </Fitting>\n"
     "</TaVeLinSettings>\n"},
    {"sParamFittXML without frames",
     [](const std::string& path) {
         return sParamFittXML(path, Texts{}, "", " 1 ", "a<b", "c>d", "e&f", "\"g'");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<TaVeLinSettings>\n"
     "    <Fitting>\n"
     "        <FitsList />\n"
     "        <IDFrame></IDFrame>\n"
     "        <DetectBadPix> 1 </DetectBadPix>\n"
     "        <ConfigTavelinPath>a&lt;b</ConfigTavelinPath>\n"
     "        <SeriePath>c&gt;d</SeriePath>\n"
     "        <ResPath>e&amp;f</ResPath>\n"
     "        <LogPath>&quot;g&apos;</LogPath>\n"
     "    </Fitting>\n"
     "</TaVeLinSettings>\n"},
    {"sParamFittXML with odd names of frames",
     [](const std::string& path) {
         return sParamFittXML(path, Texts{" a ", "", "b & c", "\xd1\x81"}, "1", "2", "3", "4", "5", "6");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<TaVeLinSettings>\n"
     "    <Fitting>\n"
     "        <FitsList>\n"
     "            <string> a </string>\n"
     "            <string></string>\n"
     "            <string>b &amp; c</string>\n"
     "            <string>\xd1\x81</string>\n"
     "        </FitsList>\n"
     "        <IDFrame>1</IDFrame>\n"
     "        <DetectBadPix>2</DetectBadPix>\n"
     "        <ConfigTavelinPath>3</ConfigTavelinPath>\n"
     "        <SeriePath>4</SeriePath>\n"
     "        <ResPath>5</ResPath>\n"
     "        <LogPath>6</LogPath>\n"
     "    </Fitting>\n"
     "</TaVeLinSettings>\n"},
    {"SaveThreshHough",
     [](const std::string& path) {
         return SaveThreshHough(path, "/conf/h.xml", "8", "3", "1.5", "0.4", "4096", "2048", "0.1", "20.5",
                                "/out/h.log", "/out/h.res", "/out/index", "/out/strobes",
                                Texts{"/blobs/1", "/blobs/2", "/blobs/3"});
     },
     "<?xml version=\"1.0\" ?>\n"
     "<Hough>\n"
     "    <pathConf>/conf/h.xml</pathConf>\n"
     "    <NumFr>8</NumFr>\n"
     "    <threshNBlob>3</threshNBlob>\n"
     "    <position_disp>1.5</position_disp>\n"
     "    <shine_disp>0.4</shine_disp>\n"
     "    <width>4096</width>\n"
     "    <height>2048</height>\n"
     "    <minimumVelo>0.1</minimumVelo>\n"
     "    <maximumVelo>20.5</maximumVelo>\n"
     "    <LogPath>/out/h.log</LogPath>\n"
     "    <ResPath>/out/h.res</ResPath>\n"
     "    <OutPathIndex>/out/index</OutPathIndex>\n"
     "    <OutPathStrobes>/out/strobes</OutPathStrobes>\n"
     "    <Blobs-path>\n"
     "        <Blobs>/blobs/1</Blobs>\n"
     "        <Blobs>/blobs/2</Blobs>\n"
     "        <Blobs>/blobs/3</Blobs>\n"
     "    </Blobs-path>\n"
     "</Hough>\n"},
    {"SaveThreshHough without blobs",
     [](const std::string& path) {
         return SaveThreshHough(path, "a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m",
                                Texts{});
     },
     "<?xml version=\"1.0\" ?>\n"
     "<Hough>\n"
     "    <pathConf>a</pathConf>\n"
     "    <NumFr>b</NumFr>\n"
     "    <threshNBlob>c</threshNBlob>\n"
     "    <position_disp>d</position_disp>\n"
     "    <shine_disp>e</shine_disp>\n"
     "    <width>f</width>\n"
     "    <height>g</height>\n"
     "    <minimumVelo>h</minimumVelo>\n"
     "    <maximumVelo>i</maximumVelo>\n"
     "    <LogPath>j</LogPath>\n"
     "    <ResPath>k</ResPath>\n"
     "    <OutPathIndex>l</OutPathIndex>\n"
     "    <OutPathStrobes>m</OutPathStrobes>\n"
     "    <Blobs-path />\n"
     "</Hough>\n"},
    {"SaveThreshHoughGSO",
     [](const std::string& path) {
         return SaveThreshHoughGSO(path, "/conf/g.xml", "9", "5", "2.5", "0.6", "0.01", "-15.2", "15.3",
                                   "-3.4", "3.5", "/out/g.log", "/out/g.res", "/out/g",
                                   Texts{"/blobs/8", "/blobs/9"});
     },
     "<?xml version=\"1.0\" ?>\n"
     "<HoughGSO>\n"
     "    <pathConf>/conf/g.xml</pathConf>\n"
     "    <NumFr>9</NumFr>\n"
     "    <Thres_window>5</Thres_window>\n"
     "    <position_disp>2.5</position_disp>\n"
     "    <shine_disp>0.6</shine_disp>\n"
     "    <Mx>0.01</Mx>\n"
     "    <v_ra_min>-15.2</v_ra_min>\n"
     "    <v_ra_max>15.3</v_ra_max>\n"
     "    <v_de_min>-3.4</v_de_min>\n"
     "    <v_de_max>3.5</v_de_max>\n"
     "    <LogPath>/out/g.log</LogPath>\n"
     "    <ResPath>/out/g.res</ResPath>\n"
     "    <OutPath>/out/g</OutPath>\n"
     "    <Blobs-path>\n"
     "        <Blobs>/blobs/8</Blobs>\n"
     "        <Blobs>/blobs/9</Blobs>\n"
     "    </Blobs-path>\n"
     "</HoughGSO>\n"},
    {"SaveThreshHoughGSO without blobs",
     [](const std::string& path) {
         return SaveThreshHoughGSO(path, "a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m",
                                   Texts{});
     },
     "<?xml version=\"1.0\" ?>\n"
     "<HoughGSO>\n"
     "    <pathConf>a</pathConf>\n"
     "    <NumFr>b</NumFr>\n"
     "    <Thres_window>c</Thres_window>\n"
     "    <position_disp>d</position_disp>\n"
     "    <shine_disp>e</shine_disp>\n"
     "    <Mx>f</Mx>\n"
     "    <v_ra_min>g</v_ra_min>\n"
     "    <v_ra_max>h</v_ra_max>\n"
     "    <v_de_min>i</v_de_min>\n"
     "    <v_de_max>j</v_de_max>\n"
     "    <LogPath>k</LogPath>\n"
     "    <ResPath>l</ResPath>\n"
     "    <OutPath>m</OutPath>\n"
     "    <Blobs-path />\n"
     "</HoughGSO>\n"},
    {"sThresHoughMOSK",
     [](const std::string& path) {
         return sThresHoughMOSK(path, "4", "43.6", "41.4", "2100", Texts{"25544.tle", "43013.tle"},
                                "/tle/prior.tle", "/out/m.log", "/out/m.res", "/out/m", "/blobs/all",
                                "/blobs/time", "120.5", "-30.25", "1.1", "1.2", "0.3", "0.4", "STEP-1");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<HoughSAT>\n"
     "    <appereance_threshold>4</appereance_threshold>\n"
     "    <obssite>\n"
     "        <latitude>43.6</latitude>\n"
     "        <longitude>41.4</longitude>\n"
     "        <altitude>2100</altitude>\n"
     "    </obssite>\n"
     "    <SameTLEs>\n"
     "        <tle>25544.tle</tle>\n"
     "        <tle>43013.tle</tle>\n"
     "    </SameTLEs>\n"
     "    <proirOrbitTLEPath>/tle/prior.tle</proirOrbitTLEPath>\n"
     "    <LogPath>/out/m.log</LogPath>\n"
     "    <ResPath>/out/m.res</ResPath>\n"
     "    <OutPathDir>/out/m</OutPathDir>\n"
     "    <Blobs>\n"
     "        <BlobsPath>/blobs/all</BlobsPath>\n"
     "        <BlobsTime>/blobs/time</BlobsTime>\n"
     "        <Ra0>120.5</Ra0>\n"
     "        <De0>-30.25</De0>\n"
     "        <FOVRA>1.1</FOVRA>\n"
     "        <FOVDE>1.2</FOVDE>\n"
     "        <STARRMSRA>0.3</STARRMSRA>\n"
     "        <STARRMSDE>0.4</STARRMSDE>\n"
     "        <StepName>STEP-1</StepName>\n"
     "    </Blobs>\n"
     "</HoughSAT>\n"},
    {"sThresHoughMOSK without element sets",
     [](const std::string& path) {
         return sThresHoughMOSK(path, "a", "b", "c", "d", Texts{}, "e", "f", "g", "h", "i", "j", "k", "l",
                                "m", "n", "o", "p", "q");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<HoughSAT>\n"
     "    <appereance_threshold>a</appereance_threshold>\n"
     "    <obssite>\n"
     "        <latitude>b</latitude>\n"
     "        <longitude>c</longitude>\n"
     "        <altitude>d</altitude>\n"
     "    </obssite>\n"
     "    <SameTLEs />\n"
     "    <proirOrbitTLEPath>e</proirOrbitTLEPath>\n"
     "    <LogPath>f</LogPath>\n"
     "    <ResPath>g</ResPath>\n"
     "    <OutPathDir>h</OutPathDir>\n"
     "    <Blobs>\n"
     "        <BlobsPath>i</BlobsPath>\n"
     "        <BlobsTime>j</BlobsTime>\n"
     "        <Ra0>k</Ra0>\n"
     "        <De0>l</De0>\n"
     "        <FOVRA>m</FOVRA>\n"
     "        <FOVDE>n</FOVDE>\n"
     "        <STARRMSRA>o</STARRMSRA>\n"
     "        <STARRMSDE>p</STARRMSDE>\n"
     "        <StepName>q</StepName>\n"
     "    </Blobs>\n"
     "</HoughSAT>\n"},
};

const std::vector<ReadFile> readFiles = {
    {"lThresFitting",
     readArguments<lThresFitting, 0, 1>,
     "<Fitting>\n"
     "    <FitsList>\n"
     "        <stringSubStract>/data/1.fit</stringSubStract>\n"
     "        <stringSubStract> /data/2.fit </stringSubStract>\n"
     "        <stringSubStract>/data/1.fit</stringSubStract>\n"
     "    </FitsList>\n"
     "</Fitting>\n",
     {},
     {{"FitsList", {"/data/1.fit", " /data/2.fit ", "/data/1.fit"}}},
     1,
     5},
    {"lParamFittingXML",
     readArguments<lParamFittingXML, 8, 1>,
     "<ParamFitting>\n"
     "    <FRAME>/data/7.fit</FRAME>\n"
     "    <FRAMEINDEX>7</FRAMEINDEX>\n"
     "    <SEARCHPEAK>true</SEARCHPEAK>\n"
     "    <CODE>D53</CODE>\n"
     "    <DATA>20250223</DATA>\n"
     "    <LEVELSNR>3.5</LEVELSNR>\n"
     "    <FORECAST>false</FORECAST>\n"
     "    <GAMMA>0.9</GAMMA>\n"
     "    <MARKS>\n"
     "        <MARK>10 20</MARK>\n"
     "        <MARK>30 40</MARK>\n"
     "    </MARKS>\n"
     "</ParamFitting>\n",
     {{"FRAME", "/data/7.fit"},
      {"FRAMEINDEX", "7"},
      {"SEARCHPEAK", "true"},
      {"CODE", "D53"},
      {"DATA", "20250223"},
      {"LEVELSNR", "3.5"},
      {"FORECAST", "false"},
      {"GAMMA", "0.9"}},
     {{"MARKS", {"10 20", "30 40"}}}},
    {"lParamTrackXML",
     readArguments<lParamTrackXML, 3, 1>,
     "<ParamTrack>\n"
     "    <FRAMEBASE>/data/base.fit</FRAMEBASE>\n"
     "    <CODE>D00</CODE>\n"
     "    <DATA>20250224</DATA>\n"
     "    <TRACKS>\n"
     "        <TRACK>one</TRACK>\n"
     "        <TRACK> two </TRACK>\n"
     "    </TRACKS>\n"
     "</ParamTrack>\n",
     {{"FRAMEBASE", "/data/base.fit"}, {"CODE", "D00"}, {"DATA", "20250224"}},
     {{"TRACKS", {"one", " two "}}}},
    {"LoadThreshHough",
     readArguments<LoadThreshHough, 13, 1>,
     "<Hough>\n"
     "    <pathConf>/conf/h.xml</pathConf>\n"
     "    <NumFr>8</NumFr>\n"
     "    <threshNBlob>3</threshNBlob>\n"
     "    <position_disp>1.5</position_disp>\n"
     "    <shine_disp>0.4</shine_disp>\n"
     "    <width>4096</width>\n"
     "    <height>2048</height>\n"
     "    <minimumVelo>0.1</minimumVelo>\n"
     "    <maximumVelo>20.5</maximumVelo>\n"
     "    <LogPath>/out/h.log</LogPath>\n"
     "    <ResPath>/out/h.res</ResPath>\n"
     "    <OutPathIndex>/out/index</OutPathIndex>\n"
     "    <OutPathStrobes>/out/strobes</OutPathStrobes>\n"
     "    <Blobs-path>\n"
     "        <Blobs>/blobs/1</Blobs>\n"
     "        <Blobs>/blobs/2</Blobs>\n"
     "    </Blobs-path>\n"
     "</Hough>\n",
     {{"pathConf", "/conf/h.xml"},
      {"NumFr", "8"},
      {"threshNBlob", "3"},
      {"position_disp", "1.5"},
      {"shine_disp", "0.4"},
      {"width", "4096"},
      {"height", "2048"},
      {"minimumVelo", "0.1"},
      {"maximumVelo", "20.5"},
      {"LogPath", "/out/h.log"},
      {"ResPath", "/out/h.res"},
      {"OutPathIndex", "/out/index"},
      {"OutPathStrobes", "/out/strobes"}},
     {{"Blobs-path", {"/blobs/1", "/blobs/2"}}}},
    {"LoadThreshHoughGSO",
     readArguments<LoadThreshHoughGSO, 13, 1>,
     "<HoughGSO>\n"
     "    <pathConf>/conf/g.xml</pathConf>\n"
     "    <NumFr>9</NumFr>\n"
     "    <Thres_window>5</Thres_window>\n"
     "    <position_disp>2.5</position_disp>\n"
     "    <shine_disp>0.6</shine_disp>\n"
     "    <Mx>0.01</Mx>\n"
     "    <v_ra_min>-15.2</v_ra_min>\n"
     "    <v_ra_max>15.3</v_ra_max>\n"
     "    <v_de_min>-3.4</v_de_min>\n"
     "    <v_de_max>3.5</v_de_max>\n"
     "    <LogPath>/out/g.log</LogPath>\n"
     "    <ResPath>/out/g.res</ResPath>\n"
     "    <OutPath>/out/g</OutPath>\n"
     "    <Blobs-path>\n"
     "        <Blobs>/blobs/8</Blobs>\n"
     "        <Blobs>/blobs/9</Blobs>\n"
     "    </Blobs-path>\n"
     "</HoughGSO>\n",
     {{"pathConf", "/conf/g.xml"},
      {"NumFr", "9"},
      {"Thres_window", "5"},
      {"position_disp", "2.5"},
      {"shine_disp", "0.6"},
      {"Mx", "0.01"},
      {"v_ra_min", "-15.2"},
      {"v_ra_max", "15.3"},
      {"v_de_min", "-3.4"},
      {"v_de_max", "3.5"},
      {"LogPath", "/out/g.log"},
      {"ResPath", "/out/g.res"},
      {"OutPath", "/out/g"}},
     {{"Blobs-path", {"/blobs/8", "/blobs/9"}}}},
};

/// The quality of blobs, as sHeadParams takes it and lBlobHead fills it.
struct Quality
{
    std::array<double, 13> numbers{};
    TTypeFrame type = TTypeFrame::DIURNAL;
};

int save(const std::string& path, const Quality& q)
{
    const auto& n = q.numbers;
    return sHeadParams(path, n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10], n[11], n[12],
                       q.type);
}

void load(const std::string& path, Quality& q)
{
    auto& n = q.numbers;
    lBlobHead(path, n[0], n[1], n[2], n[3], n[4], n[5], n[6], n[7], n[8], n[9], n[10], n[11], n[12], q.type);
}

/// The head that lBlobHead reads from a document with the element in place of its "TypeFrame".
TTypeFrame typeOf(const std::string& element, TTypeFrame preset)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<HeadBlob><Width>1</Width>" + element + "</HeadBlob>");
    Quality quality{{}, preset};
    load(folder / "a.xml", quality);
    EXPECT_EQ(quality.numbers[6], 1.0);
    return quality.type;
}

const std::array<double, 13> oldNumbers{-1, -2, -3, -4, -5, -6, -7, -8, -9, -10, -11, -12, -13};

constexpr double infinity = std::numeric_limits<double>::infinity();

} // namespace

TEST(DetectionParameters, WritersMakeTheWholeDocument)
{
    forEach(writtenFiles, expectDocument);
}

TEST(DetectionParameters, WritersReplaceTheFile)
{
    forEach(writtenFiles, expectReplacement);
}

TEST(DetectionParameters, WritersReturn1AndMakeNothingInAMissingFolder)
{
    forEach(writtenFiles, expectNothingInAMissingFolder);
}

TEST(DetectionParameters, WritersReturn1WhereAFolderStands)
{
    forEach(writtenFiles, expectNothingInPlaceOfAFolder);
}

TEST(DetectionParameters, ReadersFillEachArgument)
{
    forEach(readFiles, expectEachKey);
}

TEST(DetectionParameters, ReadersTakeAnyNameOfTheFirstElement)
{
    forEach(readFiles, expectAnyNameOfTheFirstElement);
}

TEST(DetectionParameters, MissingAndEmptyKeysLeaveTheirArguments)
{
    forEach(readFiles, expectMissingAndEmptyKeysToLeaveTheirArguments);
}

TEST(DetectionParameters, ReadersLookBelowTheFirstElementOnly)
{
    forEach(readFiles, expectKeysOfTheFirstElementAlone);
}

TEST(DetectionParameters, BlanksAndLettersOfValuesSurvive)
{
    forEach(readFiles, expectBlanksAndLetters);
}

TEST(DetectionParameters, FilesThatDoNotLoadLeaveAllArguments)
{
    forEach(readFiles, expectNothingOfAFileThatDoesNotLoad);
}

TEST(DetectionParameters, FramesAreReadUnderTheirOwnNameOnly)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<Fitting><FitsList><string>a</string><stringSubStract>b</stringSubStract>"
                               "<string>c</string><stringSubStract>d</stringSubStract></FitsList></Fitting>");
    Texts frames;
    lThresFitting(folder / "a.xml", frames);
    EXPECT_EQ(frames, (Texts{"b", "d"}));
}

// An empty item is not stepped over.
TEST(DetectionParameters, ListWithAnEmptyItemIsWalkedForEver)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<Fitting><FitsList><stringSubStract>a</stringSubStract><stringSubStract />"
                               "</FitsList></Fitting>");
    const ChildEnd end = runInChild(
        [&folder] {
            Texts frames;
            lThresFitting(folder / "a.xml", frames);
        },
        endlessAfter);
    EXPECT_TRUE(end.timedOut) << end.output;
}

TEST(DetectionParameters, HoughOrderComesBackAsItWent)
{
    const TemporaryFolder folder;
    Texts sent;
    for (const char* letter : {"a", "b", "c", "d", "e", "f", "g", "h", "i", "j", "k", "l", "m"}) {
        sent.push_back(std::string("  ") + letter + " <&>\"'\t");
    }
    const Texts blobs{" first ", "second\n", "\xd1\x81"};
    ASSERT_EQ(SaveThreshHough(folder / "a.xml", sent[0], sent[1], sent[2], sent[3], sent[4], sent[5], sent[6],
                              sent[7], sent[8], sent[9], sent[10], sent[11], sent[12], blobs),
              0);
    Texts read(13);
    ReadFile::Lists lists(1);
    readArguments<LoadThreshHough, 13, 1>(folder / "a.xml", read, lists);
    EXPECT_EQ(read, sent);
    EXPECT_EQ(lists[0], blobs);

    ASSERT_EQ(SaveThreshHoughGSO(folder / "b.xml", sent[12], sent[11], sent[10], sent[9], sent[8], sent[7],
                                 sent[6], sent[5], sent[4], sent[3], sent[2], sent[1], sent[0], blobs),
              0);
    readArguments<LoadThreshHoughGSO, 13, 1>(folder / "b.xml", read, lists);
    EXPECT_EQ(read, Texts(sent.rbegin(), sent.rend()));
    EXPECT_EQ(lists[0], (Texts{" first ", "second\n", "\xd1\x81", " first ", "second\n", "\xd1\x81"}));
}

TEST(HeadOfBlobs, NumbersHaveSixDecimalsAndTheTypeItsWord)
{
    const TemporaryFolder folder;
    EXPECT_EQ(save(folder / "a.xml", {{1.5, -2.25, 3, 0.1234564, 0.1234566, 1e-7, -1e-7, 1e10, 359.9999999,
                                       10, 11.11, 12.0, 0.0},
                                      TTypeFrame::STROKE}),
              0);
    EXPECT_EQ(bytesOf(folder / "a.xml"), "<?xml version=\"1.0\" ?>\n"
                                         "<HeadBlob>\n"
                                         "    <FwhmMath>1.500000</FwhmMath>\n"
                                         "    <FwhmSTD>-2.250000</FwhmSTD>\n"
                                         "    <SigFit>3.000000</SigFit>\n"
                                         "    <RMSFit>0.123456</RMSFit>\n"
                                         "    <RMSFitSTD>0.123457</RMSFitSTD>\n"
                                         "    <Ecentricity>0.000000</Ecentricity>\n"
                                         "    <Width>-0.000000</Width>\n"
                                         "    <Length>10000000000.000000</Length>\n"
                                         "    <Angle>360.000000</Angle>\n"
                                         "    <StepMath>10.000000</StepMath>\n"
                                         "    <StepSTD>11.110000</StepSTD>\n"
                                         "    <RawMath>12.000000</RawMath>\n"
                                         "    <RawSTD>0.000000</RawSTD>\n"
                                         "    <TypeFrame>STROKE</TypeFrame>\n"
                                         "</HeadBlob>\n");
}

TEST(HeadOfBlobs, TypeIsTheWordOfItsNumber)
{
    const std::pair<int, std::string> rows[] = {
        {0, "DIURNAL"}, {1, "STROKE"}, {2, "DIURNAL"}, {-1, "DIURNAL"}};
    for (const auto& [number, word] : rows) {
        SCOPED_TRACE(number);
        const TemporaryFolder folder;
        EXPECT_EQ(save(folder / "a.xml", {{infinity}, static_cast<TTypeFrame>(number)}), 0);
        EXPECT_EQ(bytesOf(folder / "a.xml"), "<?xml version=\"1.0\" ?>\n"
                                             "<HeadBlob>\n"
                                             "    <FwhmMath>inf</FwhmMath>\n"
                                             "    <FwhmSTD>0.000000</FwhmSTD>\n"
                                             "    <SigFit>0.000000</SigFit>\n"
                                             "    <RMSFit>0.000000</RMSFit>\n"
                                             "    <RMSFitSTD>0.000000</RMSFitSTD>\n"
                                             "    <Ecentricity>0.000000</Ecentricity>\n"
                                             "    <Width>0.000000</Width>\n"
                                             "    <Length>0.000000</Length>\n"
                                             "    <Angle>0.000000</Angle>\n"
                                             "    <StepMath>0.000000</StepMath>\n"
                                             "    <StepSTD>0.000000</StepSTD>\n"
                                             "    <RawMath>0.000000</RawMath>\n"
                                             "    <RawSTD>0.000000</RawSTD>\n"
                                             "    <TypeFrame>" +
                                                 word +
                                                 "</TypeFrame>\n"
                                                 "</HeadBlob>\n");
    }
}

TEST(HeadOfBlobs, MissingFolderIsRaised)
{
    const TemporaryFolder folder;
    try {
        save(folder / "missing/a.xml", {});
        ADD_FAILURE() << "nothing was thrown";
    } catch (const TavelinException& failure) {
        EXPECT_EQ(failure.getCode(), 6);
        EXPECT_EQ(failure.getComment(), folder / "missing/a.xml");
        EXPECT_STREQ(failure.what(), "Directory does not exist");
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(HeadOfBlobs, FolderInPlaceOfTheFileIsNotRaised)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "a.xml");
    EXPECT_EQ(save(folder / "a.xml", {}), 1);
    EXPECT_TRUE(std::filesystem::is_empty(folder / "a.xml"));
}

TEST(HeadOfBlobs, NameInTheRootHasNoFolderThatCouldBeMissing)
{
    // It names a folder, so nothing is written whoever runs the test.
    EXPECT_EQ(save("/proc", {}), 1);
}

TEST(HeadOfBlobs, BareNameStandsInThePresentFolder)
{
    const TemporaryFolder folder;
    const ChildEnd end = runInChild(
        [&folder] {
            std::filesystem::current_path(folder.path());
            _exit(save("bare.xml", {}) == 0 ? 3 : 4);
        },
        20);
    EXPECT_EQ(end.exitStatus, 3) << end.output;
    EXPECT_TRUE(exists(folder / "bare.xml"));
}

TEST(HeadOfBlobs, ReaderFillsEachArgument)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<HeadBlob>\n"
                               "    <FwhmMath>1.5</FwhmMath>\n"
                               "    <FwhmSTD>-2.25</FwhmSTD>\n"
                               "    <SigFit>3</SigFit>\n"
                               "    <RMSFit> 4e2</RMSFit>\n"
                               "    <RMSFitSTD>5.5 px</RMSFitSTD>\n"
                               "    <Ecentricity>+0.125</Ecentricity>\n"
                               "    <Width>7.000000</Width>\n"
                               "    <Length>8.000001</Length>\n"
                               "    <Angle>9.0</Angle>\n"
                               "    <StepMath>10</StepMath>\n"
                               "    <StepSTD>11</StepSTD>\n"
                               "    <RawMath>12</RawMath>\n"
                               "    <RawSTD>word</RawSTD>\n"
                               "    <TypeFrame>STROKE</TypeFrame>\n"
                               "</HeadBlob>\n");
    Quality quality{oldNumbers, TTypeFrame::DIURNAL};
    load(folder / "a.xml", quality);
    EXPECT_EQ(quality.numbers,
              (std::array<double, 13>{1.5, -2.25, 3, 400, 5.5, 0.125, 7, 8.000001, 9, 10, 11, 12, 0}));
    EXPECT_EQ(quality.type, TTypeFrame::STROKE);
}

TEST(HeadOfBlobs, EachMissingOrEmptyKeyLeavesItsArgument)
{
    const char* keys[] = {"FwhmMath", "FwhmSTD", "SigFit",   "RMSFit",  "RMSFitSTD", "Ecentricity", "Width",
                          "Length",   "Angle",   "StepMath", "StepSTD", "RawMath",   "RawSTD"};
    for (std::size_t left = 0; left < 13; ++left) {
        for (const std::string& by : {std::string(), "<" + std::string(keys[left]) + "/>"}) {
            const TemporaryFolder folder;
            std::string document = "<Other>";
            std::array<double, 13> expected = oldNumbers;
            for (std::size_t i = 0; i < 13; ++i) {
                const std::string key = keys[i];
                document += i == left ? by : "<" + key + ">" + std::to_string(i + 1) + "</" + key + ">";
                expected[i] = i == left ? oldNumbers[i] : static_cast<double>(i + 1);
            }
            SCOPED_TRACE(document);
            makeFile(folder / "a.xml", document + "</Other>");
            Quality quality{oldNumbers, TTypeFrame::STROKE};
            load(folder / "a.xml", quality);
            EXPECT_EQ(quality.numbers, expected);
            EXPECT_EQ(quality.type, TTypeFrame::STROKE);
        }
    }
}

TEST(HeadOfBlobs, WordOfTheTypeIsReadWhereItStands)
{
    const TTypeFrame diurnal = TTypeFrame::DIURNAL;
    const TTypeFrame stroke = TTypeFrame::STROKE;
    EXPECT_EQ(typeOf("<TypeFrame>STROKE</TypeFrame>", diurnal), stroke);
    EXPECT_EQ(typeOf("<TypeFrame>DIURNAL</TypeFrame>", stroke), diurnal);
    EXPECT_EQ(typeOf("<TypeFrame>stroke</TypeFrame>", stroke), diurnal);
    EXPECT_EQ(typeOf("<TypeFrame> STROKE</TypeFrame>", stroke), diurnal);
    EXPECT_EQ(typeOf("<TypeFrame>1</TypeFrame>", stroke), diurnal);
    EXPECT_EQ(typeOf("", stroke), stroke);
    EXPECT_EQ(typeOf("<TypeFrame />", stroke), stroke);
    EXPECT_EQ(typeOf("", diurnal), diurnal);
}

TEST(HeadOfBlobs, FileThatDoesNotLoadLeavesEverything)
{
    const TemporaryFolder folder;
    makeFile(folder / "cut.xml",
             "<HeadBlob><FwhmMath>1</FwhmMath><Angle>2</Angle><TypeFrame>DIURNAL</TypeFrame>");
    makeFile(folder / "deep.xml",
             "<R><HeadBlob><FwhmMath>1</FwhmMath><TypeFrame>DIURNAL</TypeFrame></HeadBlob></R>");
    for (const char* name : {"cut.xml", "deep.xml", "missing.xml"}) {
        SCOPED_TRACE(name);
        Quality quality{oldNumbers, TTypeFrame::STROKE};
        load(folder / name, quality);
        EXPECT_EQ(quality.numbers, oldNumbers);
        EXPECT_EQ(quality.type, TTypeFrame::STROKE);
    }
}

TEST(HeadOfBlobs, ComesBackWithSixDecimals)
{
    const TemporaryFolder folder;
    ASSERT_EQ(save(folder / "a.xml",
                   {{0.1234567, 2, -3.5, 4, 5, 6, 7, 8, 9, 10, 11, 12, 1234567.0000004}, TTypeFrame::STROKE}),
              0);
    Quality quality{oldNumbers, TTypeFrame::DIURNAL};
    load(folder / "a.xml", quality);
    EXPECT_EQ(quality.numbers,
              (std::array<double, 13>{0.123457, 2, -3.5, 4, 5, 6, 7, 8, 9, 10, 11, 12, 1234567}));
    EXPECT_EQ(quality.type, TTypeFrame::STROKE);
}
