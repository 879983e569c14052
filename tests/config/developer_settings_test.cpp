#include "config/developer_settings.h"

#include "results/result.h"

#include "support/parameter_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

const std::vector<ReadFile> readFiles = {
    {"lDevelopClon",
     readMembers<lDevelopClon, &TDevelopClon::DontCreateTmp, &TDevelopClon::keep_tle_days,
                 &TDevelopClon::MaxTimeWaitInter, &TDevelopClon::MinTimeWaitInter,
                 &TDevelopClon::TimeWaitCosm, &TDevelopClon::TimeWaitPO, &TDevelopClon::TimeWaitVO1,
                 &TDevelopClon::TimeWaitVO2, &TDevelopClon::TimeWaitStack, &TDevelopClon::TimeWaitPhoto,
                 &TDevelopClon::TimeWaitSpaceTrack, &TDevelopClon::TimeWaitVSX,
                 &TDevelopClon::AttemptsUpDownloadS3, &TDevelopClon::SaveFrameLog, &TDevelopClon::iTest,
                 &TDevelopClon::EveryNewFrames, &TDevelopClon::NumInterFrames, &TDevelopClon::SaveSegments,
                 &TDevelopClon::PathOutDir2, &TDevelopClon::Storage>,
     "<CommonSettings>\n"
     "    <DontCreateTmp>101</DontCreateTmp>\n"
     "    <keep_tle_days>102</keep_tle_days>\n"
     "    <MaxTimeWaitInter>103</MaxTimeWaitInter>\n"
     "    <MinTimeWaitInter>104</MinTimeWaitInter>\n"
     "    <TimeWaitCosm>105</TimeWaitCosm>\n"
     "    <TimeWaitPO>106</TimeWaitPO>\n"
     "    <TimeWaitVO1>107</TimeWaitVO1>\n"
     "    <TimeWaitVO2>108</TimeWaitVO2>\n"
     "    <TimeWaitStack>109</TimeWaitStack>\n"
     "    <TimeWaitPhoto>110</TimeWaitPhoto>\n"
     "    <TimeWaitSpaceTrack>111</TimeWaitSpaceTrack>\n"
     "    <TimeWaitVSX>112</TimeWaitVSX>\n"
     "    <AttemptsUpDownloadS3>113</AttemptsUpDownloadS3>\n"
     "    <SaveFrameLog>114</SaveFrameLog>\n"
     "    <iTest>115</iTest>\n"
     "    <EveryNewFrames>116</EveryNewFrames>\n"
     "    <NumInterFrames>117</NumInterFrames>\n"
     "    <SaveSegments>118</SaveSegments>\n"
     "    <PathOutDir2>119</PathOutDir2>\n"
     "    <Storage>120</Storage>\n"
     "</CommonSettings>\n",
     {{"DontCreateTmp", "101"},
      {"keep_tle_days", "102"},
      {"MaxTimeWaitInter", "103"},
      {"MinTimeWaitInter", "104"},
      {"TimeWaitCosm", "105"},
      {"TimeWaitPO", "106"},
      {"TimeWaitVO1", "107"},
      {"TimeWaitVO2", "108"},
      {"TimeWaitStack", "109"},
      {"TimeWaitPhoto", "110"},
      {"TimeWaitSpaceTrack", "111"},
      {"TimeWaitVSX", "112"},
      {"AttemptsUpDownloadS3", "113"},
      {"SaveFrameLog", "114"},
      {"iTest", "115"},
      {"EveryNewFrames", "116"},
      {"NumInterFrames", "117"},
      {"SaveSegments", "118"},
      {"PathOutDir2", "119"},
      {"Storage", "120"}}},
    {"lDevelopFitting",
     readMembers<lDevelopFitting, &TDevelopFitting::kBrightForPlato, &TDevelopFitting::ModelingMode,
                 &TDevelopFitting::StrobeSizeCoefficient, &TDevelopFitting::MinStrobeSize,
                 &TDevelopFitting::BackgroundRejectionLevel, &TDevelopFitting::A3StrobeSize,
                 &TDevelopFitting::BrightnessDifference, &TDevelopFitting::PadCalculation,
                 &TDevelopFitting::DontCreateTmp, &TDevelopFitting::always_use_automatic_frame_type,
                 &TDevelopFitting::segment_corrframe, &TDevelopFitting::ModelType,
                 &TDevelopFitting::SNRPeakPreDetection, &TDevelopFitting::FrameSegmentationDW,
                 &TDevelopFitting::FrameSegmentationDH, &TDevelopFitting::FrameSegmentationCover,
                 &TDevelopFitting::BorderXY, &TDevelopFitting::ALMEPS, &TDevelopFitting::useAALM,
                 &TDevelopFitting::ALM_epsf, &TDevelopFitting::ALM_epsg, &TDevelopFitting::ALM_epsx,
                 &TDevelopFitting::ALM_iter, &TDevelopFitting::ALM_scaleA, &TDevelopFitting::ALM_scaleXY,
                 &TDevelopFitting::ALM_scaleS, &TDevelopFitting::AnomalPixexl, &TDevelopFitting::numIterAP,
                 &TDevelopFitting::percentAP, &TDevelopFitting::minCountPixAP, &TDevelopFitting::nSkoAP,
                 &TDevelopFitting::DetectTypeFrame, &TDevelopFitting::LevGetHightPix,
                 &TDevelopFitting::LevSeparateNoiseSignalPix, &TDevelopFitting::TrExenNotDurnal,
                 &TDevelopFitting::TriangleModelType, &TDevelopFitting::AnaliticTri,
                 &TDevelopFitting::centerSuperObj, &TDevelopFitting::useRadon,
                 &TDevelopFitting::alm_iter_long>,
     "<CommonSettings>\n"
     "    <kBrightForPlato>201</kBrightForPlato>\n"
     "    <ModelingMode>202</ModelingMode>\n"
     "    <StrobeSizeCoefficient>203</StrobeSizeCoefficient>\n"
     "    <MinStrobeSize>204</MinStrobeSize>\n"
     "    <BackgroundRejectionLevel>205</BackgroundRejectionLevel>\n"
     "    <A3StrobeSize>206</A3StrobeSize>\n"
     "    <BrightnessDifference>207</BrightnessDifference>\n"
     "    <PadCalculation>208</PadCalculation>\n"
     "    <DontCreateTmp>209</DontCreateTmp>\n"
     "    <always_use_automatic_frame_type>210</always_use_automatic_frame_type>\n"
     "    <segment_corrframe>211</segment_corrframe>\n"
     "    <ModelType>212</ModelType>\n"
     "    <SNRPeakPreDetection>213</SNRPeakPreDetection>\n"
     "    <FrameSegmentationDW>214</FrameSegmentationDW>\n"
     "    <FrameSegmentationDH>215</FrameSegmentationDH>\n"
     "    <FrameSegmentationCover>216</FrameSegmentationCover>\n"
     "    <BorderXY>217</BorderXY>\n"
     "    <ALMEPS>218</ALMEPS>\n"
     "    <useAALM>219</useAALM>\n"
     "    <ALM_epsf>220</ALM_epsf>\n"
     "    <ALM_epsg>221</ALM_epsg>\n"
     "    <ALM_epsx>222</ALM_epsx>\n"
     "    <ALM_iter>223</ALM_iter>\n"
     "    <ALM_scaleA>224</ALM_scaleA>\n"
     "    <ALM_scaleXY>225</ALM_scaleXY>\n"
     "    <ALM_scaleS>226</ALM_scaleS>\n"
     "    <AnomalPixexl>227</AnomalPixexl>\n"
     "    <numIterAP>228</numIterAP>\n"
     "    <percentAP>229</percentAP>\n"
     "    <minCountPixAP>230</minCountPixAP>\n"
     "    <nSkoAP>231</nSkoAP>\n"
     "    <DetectTypeFrame>232</DetectTypeFrame>\n"
     "    <LevGetHightPix>233</LevGetHightPix>\n"
     "    <LevSeparateNoiseSignalPix>234</LevSeparateNoiseSignalPix>\n"
     "    <TrExenNotDurnal>235</TrExenNotDurnal>\n"
     "    <TriangleModelType>236</TriangleModelType>\n"
     "    <AnaliticTri>237</AnaliticTri>\n"
     "    <centerSuperObj>238</centerSuperObj>\n"
     "    <useRadon>239</useRadon>\n"
     "    <alm_iter_long>240</alm_iter_long>\n"
     "</CommonSettings>\n",
     {{"kBrightForPlato", "201"},
      {"ModelingMode", "202"},
      {"StrobeSizeCoefficient", "203"},
      {"MinStrobeSize", "204"},
      {"BackgroundRejectionLevel", "205"},
      {"A3StrobeSize", "206"},
      {"BrightnessDifference", "207"},
      {"PadCalculation", "208"},
      {"DontCreateTmp", "209"},
      {"always_use_automatic_frame_type", "210"},
      {"segment_corrframe", "211"},
      {"ModelType", "212"},
      {"SNRPeakPreDetection", "213"},
      {"FrameSegmentationDW", "214"},
      {"FrameSegmentationDH", "215"},
      {"FrameSegmentationCover", "216"},
      {"BorderXY", "217"},
      {"ALMEPS", "218"},
      {"useAALM", "219"},
      {"ALM_epsf", "220"},
      {"ALM_epsg", "221"},
      {"ALM_epsx", "222"},
      {"ALM_iter", "223"},
      {"ALM_scaleA", "224"},
      {"ALM_scaleXY", "225"},
      {"ALM_scaleS", "226"},
      {"AnomalPixexl", "227"},
      {"numIterAP", "228"},
      {"percentAP", "229"},
      {"minCountPixAP", "230"},
      {"nSkoAP", "231"},
      {"DetectTypeFrame", "232"},
      {"LevGetHightPix", "233"},
      {"LevSeparateNoiseSignalPix", "234"},
      {"TrExenNotDurnal", "235"},
      {"TriangleModelType", "236"},
      {"AnaliticTri", "237"},
      {"centerSuperObj", "238"},
      {"useRadon", "239"},
      {"alm_iter_long", "240"}},
     {},
     5,
     5},
    {"lDevelopAstro",
     readMembers<
         lDevelopAstro, &TDevelopAstro::DontCreateTmp, &TDevelopAstro::astroIterations,
         &TDevelopAstro::min_radius_ident_firstiter_pix, &TDevelopAstro::min_radius_ident_seconditer_pix,
         &TDevelopAstro::NBlob_secident, &TDevelopAstro::KStar_secident, &TDevelopAstro::K_FirstNumAstro,
         &TDevelopAstro::TrResBlesk, &TDevelopAstro::few_measurements, &TDevelopAstro::dist12_measur,
         &TDevelopAstro::AutoSetAstroPolinom, &TDevelopAstro::PersentMxy, &TDevelopAstro::NumBlUsed,
         &TDevelopAstro::Accuracy_NScale, &TDevelopAstro::SnailSteps, &TDevelopAstro::minpair5,
         &TDevelopAstro::minpair3, &TDevelopAstro::timeWaitExternalAstro, &TDevelopAstro::timeWaitHorizon,
         &TDevelopAstro::useselectRS_near_tavelin, &TDevelopAstro::use_new_rademoov,
         &TDevelopAstro::TrMinNumPairFragment, &TDevelopAstro::use_triangle_iteration,
         &TDevelopAstro::use_astrometry_yes, &TDevelopAstro::GAIA2ASGAIA3, &TDevelopAstro::useDBCatalog,
         &TDevelopAstro::smallFOV, &TDevelopAstro::enlargeFOV, &TDevelopAstro::maxAstroStars,
         &TDevelopAstro::saveAccuracy, &TDevelopAstro::use_ASTAP, &TDevelopAstro::pathASTAPcat>,
     "<CommonSettings>\n"
     "    <DontCreateTmp>301</DontCreateTmp>\n"
     "    <astroIterations>302</astroIterations>\n"
     "    <min_radius_ident_firstiter_pix>303</min_radius_ident_firstiter_pix>\n"
     "    <min_radius_ident_seconditer_pix>304</min_radius_ident_seconditer_pix>\n"
     "    <NBlob_secident>305</NBlob_secident>\n"
     "    <KStar_secident>306</KStar_secident>\n"
     "    <K_FirstNumAstro>307</K_FirstNumAstro>\n"
     "    <TrResBlesk>308</TrResBlesk>\n"
     "    <few_measurements>309</few_measurements>\n"
     "    <dist12_measur>310</dist12_measur>\n"
     "    <AutoSetAstroPolinom>311</AutoSetAstroPolinom>\n"
     "    <PersentMxy>312</PersentMxy>\n"
     "    <NumBlUsed>313</NumBlUsed>\n"
     "    <Accuracy_NScale>314</Accuracy_NScale>\n"
     "    <SnailSteps>315</SnailSteps>\n"
     "    <minpair5>316</minpair5>\n"
     "    <minpair3>317</minpair3>\n"
     "    <timeWaitExternalAstro>318</timeWaitExternalAstro>\n"
     "    <timeWaitHorizon>319</timeWaitHorizon>\n"
     "    <useselectRS_near_tavelin>320</useselectRS_near_tavelin>\n"
     "    <use_new_rademoov>321</use_new_rademoov>\n"
     "    <TrMinNumPairFragment>322</TrMinNumPairFragment>\n"
     "    <use_triangle_iteration>323</use_triangle_iteration>\n"
     "    <use_astrometry_yes>324</use_astrometry_yes>\n"
     "    <GAIA2ASGAIA3>325</GAIA2ASGAIA3>\n"
     "    <useDBCatalog>326</useDBCatalog>\n"
     "    <smallFOV>327</smallFOV>\n"
     "    <enlargeFOV>328</enlargeFOV>\n"
     "    <maxAstroStars>329</maxAstroStars>\n"
     "    <saveAccuracy>330</saveAccuracy>\n"
     "    <use_ASTAP>331</use_ASTAP>\n"
     "    <pathASTAPcat>332</pathASTAPcat>\n"
     "</CommonSettings>\n",
     {{"DontCreateTmp", "301"},
      {"astroIterations", "302"},
      {"min_radius_ident_firstiter_pix", "303"},
      {"min_radius_ident_seconditer_pix", "304"},
      {"NBlob_secident", "305"},
      {"KStar_secident", "306"},
      {"K_FirstNumAstro", "307"},
      {"TrResBlesk", "308"},
      {"few_measurements", "309"},
      {"dist12_measur", "310"},
      {"AutoSetAstroPolinom", "311"},
      {"PersentMxy", "312"},
      {"NumBlUsed", "313"},
      {"Accuracy_NScale", "314"},
      {"SnailSteps", "315"},
      {"minpair5", "316"},
      {"minpair3", "317"},
      {"timeWaitExternalAstro", "318"},
      {"timeWaitHorizon", "319"},
      {"useselectRS_near_tavelin", "320"},
      {"use_new_rademoov", "321"},
      {"TrMinNumPairFragment", "322"},
      {"use_triangle_iteration", "323"},
      {"use_astrometry_yes", "324"},
      {"GAIA2ASGAIA3", "325"},
      {"useDBCatalog", "326"},
      {"smallFOV", "327"},
      {"enlargeFOV", "328"},
      {"maxAstroStars", "329"},
      {"saveAccuracy", "330"},
      {"use_ASTAP", "331"},
      {"pathASTAPcat", "332"}}},
    {"ldevelop_interaip",
     readMembers<ldevelop_interaip, &TDevelopInterAip::DontCreateTmp, &TDevelopInterAip::MinAllowMaxVHok,
                 &TDevelopInterAip::Threshold_Matching_DelNear, &TDevelopInterAip::Threshold_Disp_DelNear,
                 &TDevelopInterAip::use_two_frames_for_mpc, &TDevelopInterAip::timewait_tolpi_perframe_second,
                 &TDevelopInterAip::corr_response_checkframes, &TDevelopInterAip::corr_response_threshold,
                 &TDevelopInterAip::brac_all_ic, &TDevelopInterAip::sat>,
     "<CommonSettings>\n"
     "    <DontCreateTmp>401</DontCreateTmp>\n"
     "    <MinAllowMaxVHok>402</MinAllowMaxVHok>\n"
     "    <Threshold_Matching_DelNear>403</Threshold_Matching_DelNear>\n"
     "    <Threshold_Disp_DelNear>404</Threshold_Disp_DelNear>\n"
     "    <use_two_frames_for_mpc>405</use_two_frames_for_mpc>\n"
     "    <timewait_tolpi_perframe_second>406</timewait_tolpi_perframe_second>\n"
     "    <corr_response_checkframes>407</corr_response_checkframes>\n"
     "    <corr_response_threshold>408</corr_response_threshold>\n"
     "    <brac_all_ic>409</brac_all_ic>\n"
     "    <sat>410</sat>\n"
     "</CommonSettings>\n",
     {{"DontCreateTmp", "401"},
      {"MinAllowMaxVHok", "402"},
      {"Threshold_Matching_DelNear", "403"},
      {"Threshold_Disp_DelNear", "404"},
      {"use_two_frames_for_mpc", "405"},
      {"timewait_tolpi_perframe_second", "406"},
      {"corr_response_checkframes", "407"},
      {"corr_response_threshold", "408"},
      {"brac_all_ic", "409"},
      {"sat", "410"}}},
    {"lDevelopLocalPhoto",
     readMembers<
         lDevelopLocalPhoto, &TDevelopLocalPhoto::DontCreateTmp, &TDevelopLocalPhoto::useSyntFrame,
         &TDevelopLocalPhoto::useWL, &TDevelopLocalPhoto::nameWL, &TDevelopLocalPhoto::levelWL,
         &TDevelopLocalPhoto::deletelevelWL, &TDevelopLocalPhoto::useRawFrame,
         &TDevelopLocalPhoto::useAndrWeight, &TDevelopLocalPhoto::dUT1, &TDevelopLocalPhoto::useFracPix,
         &TDevelopLocalPhoto::levelBracAnomalInWin, &TDevelopLocalPhoto::RejectPixelsBySNR,
         &TDevelopLocalPhoto::RejectPixelsBySMR, &TDevelopLocalPhoto::RejectPixelsByModelDeviation,
         &TDevelopLocalPhoto::SNRForPixelsRejection, &TDevelopLocalPhoto::SMRForPixelsRejection,
         &TDevelopLocalPhoto::ModelDeviationForPixelsRejection, &TDevelopLocalPhoto::minNoisePix,
         &TDevelopLocalPhoto::numSubPixSquare, &TDevelopLocalPhoto::numSubPixSuper,
         &TDevelopLocalPhoto::nMatrSuper, &TDevelopLocalPhoto::addInner, &TDevelopLocalPhoto::addOuter,
         &TDevelopLocalPhoto::thresMinDistCheckStar, &TDevelopLocalPhoto::thresRSearchVSXBlob>,
     "<CommonSettings>\n"
     "    <DontCreateTmp>501</DontCreateTmp>\n"
     "    <useSyntFrame>502</useSyntFrame>\n"
     "    <useWL>503</useWL>\n"
     "    <nameWL>504</nameWL>\n"
     "    <levelWL>505</levelWL>\n"
     "    <deletelevelWL>506</deletelevelWL>\n"
     "    <useRawFrame>507</useRawFrame>\n"
     "    <useAndrWeight>508</useAndrWeight>\n"
     "    <dUT1>509</dUT1>\n"
     "    <useFracPix>510</useFracPix>\n"
     "    <levelBracAnomalInWin>511</levelBracAnomalInWin>\n"
     "    <RejectPixelsBySNR>512</RejectPixelsBySNR>\n"
     "    <RejectPixelsBySMR>513</RejectPixelsBySMR>\n"
     "    <RejectPixelsByModelDeviation>514</RejectPixelsByModelDeviation>\n"
     "    <SNRForPixelsRejection>515</SNRForPixelsRejection>\n"
     "    <SMRForPixelsRejection>516</SMRForPixelsRejection>\n"
     "    <ModelDeviationForPixelsRejection>517</ModelDeviationForPixelsRejection>\n"
     "    <minNoisePix>518</minNoisePix>\n"
     "    <numSubPixSquare>519</numSubPixSquare>\n"
     "    <numSubPixSuper>520</numSubPixSuper>\n"
     "    <nMatrSuper>521</nMatrSuper>\n"
     "    <addInner>522</addInner>\n"
     "    <addOuter>523</addOuter>\n"
     "    <thresMinDistCheckStar>524</thresMinDistCheckStar>\n"
     "    <thresRSearchVSXBlob>525</thresRSearchVSXBlob>\n"
     "</CommonSettings>\n",
     {{"DontCreateTmp", "501"},
      {"useSyntFrame", "502"},
      {"useWL", "503"},
      {"nameWL", "504"},
      {"levelWL", "505"},
      {"deletelevelWL", "506"},
      {"useRawFrame", "507"},
      {"useAndrWeight", "508"},
      {"dUT1", "509"},
      {"useFracPix", "510"},
      {"levelBracAnomalInWin", "511"},
      {"RejectPixelsBySNR", "512"},
      {"RejectPixelsBySMR", "513"},
      {"RejectPixelsByModelDeviation", "514"},
      {"SNRForPixelsRejection", "515"},
      {"SMRForPixelsRejection", "516"},
      {"ModelDeviationForPixelsRejection", "517"},
      {"minNoisePix", "518"},
      {"numSubPixSquare", "519"},
      {"numSubPixSuper", "520"},
      {"nMatrSuper", "521"},
      {"addInner", "522"},
      {"addOuter", "523"},
      {"thresMinDistCheckStar", "524"},
      {"thresRSearchVSXBlob", "525"}}},
    {"lZunekXML",
     readMembers<lZunekXML, &TZunekXML::ProcessingFolderPath, &TZunekXML::TimeSleep, &TZunekXML::host,
                 &TZunekXML::port, &TZunekXML::name, &TZunekXML::user, &TZunekXML::password,
                 &TZunekXML::iTest>,
     "<Settings>\n"
     "    <ProcessingFolderPath>/processing</ProcessingFolderPath>\n"
     "    <TimeSleep>30</TimeSleep>\n"
     "    <database>\n"
     "        <host>db.example</host>\n"
     "        <port>5432</port>\n"
     "        <name>series</name>\n"
     "        <user>observer</user>\n"
     "        <password>word</password>\n"
     "    </database>\n"
     "    <space-track>\n"
     "        <user>other observer</user>\n"
     "        <password>other word</password>\n"
     "    </space-track>\n"
     "    <iTest>2</iTest>\n"
     "</Settings>\n",
     {{"ProcessingFolderPath", "/processing"},
      {"TimeSleep", "30"},
      {"host", "db.example"},
      {"port", "5432"},
      {"name", "series"},
      {"user", "observer"},
      {"password", "word"},
      {"iTest", "2"}}},
};

/// The record that lZunekXML fills from a document, its texts empty before.
TZunekXML serviceOf(const std::string& document)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", document);
    TZunekXML settings;
    lZunekXML(folder / "a.xml", settings);
    return settings;
}

} // namespace

TEST(DeveloperSettings, ReadersFillEachMember)
{
    forEach(readFiles, expectEachKey);
}

TEST(DeveloperSettings, ReadersTakeAnyNameOfTheFirstElement)
{
    forEach(readFiles, expectAnyNameOfTheFirstElement);
}

TEST(DeveloperSettings, MissingAndEmptyKeysLeaveTheirMembers)
{
    forEach(readFiles, expectMissingAndEmptyKeysToLeaveTheirArguments);
}

TEST(DeveloperSettings, ReadersLookBelowTheFirstElementOnly)
{
    forEach(readFiles, expectKeysOfTheFirstElementAlone);
}

TEST(DeveloperSettings, BlanksAndLettersOfValuesSurvive)
{
    forEach(readFiles, expectBlanksAndLetters);
}

// One of them throws code 5, the others report nothing.
TEST(DeveloperSettings, FilesThatDoNotLoadLeaveTheRecord)
{
    forEach(readFiles, expectNothingOfAFileThatDoesNotLoad);
}

TEST(DeveloperSettings, RecordOfTheFittingStaysWhereTheFileIsRaised)
{
    const TemporaryFolder folder;
    makeFile(folder / "cut.xml", "<R><ModelType>1</ModelType><alm_iter_long>2</alm_iter_long>");
    TDevelopFitting settings;
    settings.ModelType = "old";
    settings.alm_iter_long = "old too";
    EXPECT_THROW(lDevelopFitting(folder / "cut.xml", settings), TavelinException);
    EXPECT_THROW(lDevelopFitting(folder / "missing.xml", settings), TavelinException);
    EXPECT_EQ(settings.ModelType, "old");
    EXPECT_EQ(settings.alm_iter_long, "old too");
}

TEST(DeveloperSettings, MembersAreEmptyAtFirst)
{
    const auto expectEmpty = [](const ReadFile& file) {
        const TemporaryFolder folder;
        makeFile(folder / "a.xml", "<R />");
        ReadFile::Texts texts(file.texts.size());
        ReadFile::Lists lists;
        file.read(folder / "a.xml", texts, lists);
        EXPECT_EQ(texts, ReadFile::Texts(file.texts.size()));
    };
    forEach(readFiles, expectEmpty);
    EXPECT_EQ(TDevelopClon().Storage, "");
    EXPECT_EQ(TDevelopFitting().kBrightForPlato, "");
    EXPECT_EQ(TDevelopAstro().pathASTAPcat, "");
    EXPECT_EQ(TDevelopInterAip().sat, "");
    EXPECT_EQ(TDevelopLocalPhoto().thresRSearchVSXBlob, "");
    EXPECT_EQ(TZunekXML().StopFile, "");
}

TEST(OnlineService, StopFileStandsInTheFolderOfProcessing)
{
    for (const char* path : {"/processing", "/processing/"}) {
        SCOPED_TRACE(path);
        const TZunekXML settings =
            serviceOf("<R><ProcessingFolderPath>" + std::string(path) + "</ProcessingFolderPath></R>");
        EXPECT_EQ(settings.ProcessingFolderPath, path);
        EXPECT_EQ(settings.StopFile, "/processing/cloneaip.stop");
    }
}

TEST(OnlineService, StopFileIsNoKey)
{
    const TZunekXML settings = serviceOf("<R><StopFile>/other</StopFile><ProcessingFolderPath>/p"
                                         "</ProcessingFolderPath></R>");
    EXPECT_TRUE(settings.StopFile.ends_with("cloneaip.stop")) << settings.StopFile;
}

TEST(OnlineService, StopFileOfAFileThatDoesNotLoadStays)
{
    const TemporaryFolder folder;
    makeFile(folder / "cut.xml", "<R><ProcessingFolderPath>/p</ProcessingFolderPath>");
    for (const char* name : {"cut.xml", "missing.xml"}) {
        SCOPED_TRACE(name);
        TZunekXML settings;
        settings.StopFile = "old";
        lZunekXML(folder / name, settings);
        EXPECT_EQ(settings.StopFile, "old");
        EXPECT_EQ(settings.ProcessingFolderPath, "");
    }
}

TEST(OnlineService, KeysOfTheDatabaseAreNotReadElsewhere)
{
    const TZunekXML settings = serviceOf(
        "<R><ProcessingFolderPath>/p</ProcessingFolderPath><host>a</host><port>b</port><name>c</name>"
        "<user>d</user><password>e</password><space-track><host>f</host><user>g</user>"
        "<password>h</password></space-track></R>");
    EXPECT_EQ(settings.ProcessingFolderPath, "/p");
    EXPECT_EQ(settings.host, "");
    EXPECT_EQ(settings.port, "");
    EXPECT_EQ(settings.name, "");
    EXPECT_EQ(settings.user, "");
    EXPECT_EQ(settings.password, "");
}

TEST(OnlineService, OtherKeysAreNotReadBelowTheDatabase)
{
    const TZunekXML settings =
        serviceOf("<R><space-track><user>x</user></space-track><database>"
                  "<TimeSleep>1</TimeSleep><iTest>2</iTest><user>observer</user></database></R>");
    EXPECT_EQ(settings.TimeSleep, "");
    EXPECT_EQ(settings.iTest, "");
    EXPECT_EQ(settings.user, "observer");
}
