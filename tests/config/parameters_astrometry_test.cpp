#include "config/parameters_astrometry.h"

#include "support/parameter_files.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

const std::vector<WrittenFile> writtenFiles = {
    {"sParamSkyIdentXML",
     [](const std::string& path) {
         return sParamSkyIdentXML(path, "12", "/data/12.fit", "/blobs/12", "/conf/t.xml", "/serie/1",
                                  "/out/res.xml", "/out/sky.log", "/out/pid");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<SkyIdent>\n"
     "    <IDFrame>12</IDFrame>\n"
     "    <FitPath>/data/12.fit</FitPath>\n"
     "    <BlobPath>/blobs/12</BlobPath>\n"
     "    <ConfigTavelinPath>/conf/t.xml</ConfigTavelinPath>\n"
     "    <SeriePath>/serie/1</SeriePath>\n"
     "    <ResPath>/out/res.xml</ResPath>\n"
     "    <LogPath>/out/sky.log</LogPath>\n"
     "    <PIDPath>/out/pid</PIDPath>\n"
     "</SkyIdent>\n"},
    {"sParamSkyIdentXML with odd texts",
     [](const std::string& path) {
         return sParamSkyIdentXML(path, "", " a ", "<b>", "c & d", "\"e\"", "'f'", "g\nh", "\xd1\x81");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<SkyIdent>\n"
     "    <IDFrame></IDFrame>\n"
     "    <FitPath> a </FitPath>\n"
     "    <BlobPath>&lt;b&gt;</BlobPath>\n"
     "    <ConfigTavelinPath>c &amp; d</ConfigTavelinPath>\n"
     "    <SeriePath>&quot;e&quot;</SeriePath>\n"
     "    <ResPath>&apos;f&apos;</ResPath>\n"
     "    <LogPath>g&#x0A;h</LogPath>\n"
     "    <PIDPath>\xd1\x81</PIDPath>\n"
     "</SkyIdent>\n"},
    {"sThresPatternAstrometryNetXML",
     [](const std::string& path) {
         return sThresPatternAstrometryNetXML(path, Texts{"/data/1.fit", " /data/2.fit"}, "en",
                                              "/conf/astrometry.xml", "/conf/t.xml", "/out/res.xml",
                                              "/out/net.log", "/serie/2");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<AstrometryPattern>\n"
     "    <FitsList>\n"
     "        <string>/data/1.fit</string>\n"
     "        <string> /data/2.fit</string>\n"
     "    </FitsList>\n"
     "    <Language>en</Language>\n"
     "    <ConfigAstrometryPath>/conf/astrometry.xml</ConfigAstrometryPath>\n"
     "    <ConfigTavelinPath>/conf/t.xml</ConfigTavelinPath>\n"
     "    <ResPath>/out/res.xml</ResPath>\n"
     "    <LogPath>/out/net.log</LogPath>\n"
     "    <SeriePath>/serie/2</SeriePath>\n"
     "</AstrometryPattern>\n"},
    {"sThresPatternAstrometryNetXML without frames",
     [](const std::string& path) {
         return sThresPatternAstrometryNetXML(path, Texts{}, "a", "b", "c", "d", "e", "f");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<AstrometryPattern>\n"
     "    <FitsList />\n"
     "    <Language>a</Language>\n"
     "    <ConfigAstrometryPath>b</ConfigAstrometryPath>\n"
     "    <ConfigTavelinPath>c</ConfigTavelinPath>\n"
     "    <ResPath>d</ResPath>\n"
     "    <LogPath>e</LogPath>\n"
     "    <SeriePath>f</SeriePath>\n"
     "</AstrometryPattern>\n"},
    // In these four rows no two switches change alike.
    {"sAstrometryNetSettings",
     [](const std::string& path) {
         return sAstrometryNetSettings(path, true, false, "/net/wcs", "/net/rdls", "/net/axy", "/net/corr",
                                       "/net/calibration", "/net/annotations", "/net/new", true, false, true,
                                       true, false, false, "0.5", "5.5");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<AstrometrySettings>\n"
     "    <UseWCS>true</UseWCS>\n"
     "    <UseCenterPixel>false</UseCenterPixel>\n"
     "    <WCSPath>/net/wcs</WCSPath>\n"
     "    <RDLSPath>/net/rdls</RDLSPath>\n"
     "    <AXYPath>/net/axy</AXYPath>\n"
     "    <CorrPath>/net/corr</CorrPath>\n"
     "    <CalibrationPath>/net/calibration</CalibrationPath>\n"
     "    <AnnotationsPath>/net/annotations</AnnotationsPath>\n"
     "    <NewImagePath>/net/new</NewImagePath>\n"
     "    <UseNewImage>true</UseNewImage>\n"
     "    <UseRDLS>false</UseRDLS>\n"
     "    <UseAXY>true</UseAXY>\n"
     "    <UseCorr>true</UseCorr>\n"
     "    <UseCalibration>false</UseCalibration>\n"
     "    <UseAnnotations>false</UseAnnotations>\n"
     "    <AllowCommercialUse>n</AllowCommercialUse>\n"
     "    <AllowModifications>n</AllowModifications>\n"
     "    <PubliclyVisible>n</PubliclyVisible>\n"
     "    <ScaleUnits>arcsecperpix</ScaleUnits>\n"
     "    <ScaleType>ul</ScaleType>\n"
     "    <ScaleLower>0.5</ScaleLower>\n"
     "    <ScaleUpper>5.5</ScaleUpper>\n"
     "</AstrometrySettings>\n"},
    {"sAstrometryNetSettings with other switches",
     [](const std::string& path) {
         return sAstrometryNetSettings(path, false, true, "a", "b", "c", "d", "e", "f", "g", false, true,
                                       false, false, true, true, "h", "i");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<AstrometrySettings>\n"
     "    <UseWCS>false</UseWCS>\n"
     "    <UseCenterPixel>true</UseCenterPixel>\n"
     "    <WCSPath>a</WCSPath>\n"
     "    <RDLSPath>b</RDLSPath>\n"
     "    <AXYPath>c</AXYPath>\n"
     "    <CorrPath>d</CorrPath>\n"
     "    <CalibrationPath>e</CalibrationPath>\n"
     "    <AnnotationsPath>f</AnnotationsPath>\n"
     "    <NewImagePath>g</NewImagePath>\n"
     "    <UseNewImage>false</UseNewImage>\n"
     "    <UseRDLS>true</UseRDLS>\n"
     "    <UseAXY>false</UseAXY>\n"
     "    <UseCorr>false</UseCorr>\n"
     "    <UseCalibration>true</UseCalibration>\n"
     "    <UseAnnotations>true</UseAnnotations>\n"
     "    <AllowCommercialUse>n</AllowCommercialUse>\n"
     "    <AllowModifications>n</AllowModifications>\n"
     "    <PubliclyVisible>n</PubliclyVisible>\n"
     "    <ScaleUnits>arcsecperpix</ScaleUnits>\n"
     "    <ScaleType>ul</ScaleType>\n"
     "    <ScaleLower>h</ScaleLower>\n"
     "    <ScaleUpper>i</ScaleUpper>\n"
     "</AstrometrySettings>\n"},
    {"sAstrometryNetSettings with a third set of switches",
     [](const std::string& path) {
         return sAstrometryNetSettings(path, false, true, "", "", "", "", "", "", "", false, true, true, true,
                                       false, false, "", "");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<AstrometrySettings>\n"
     "    <UseWCS>false</UseWCS>\n"
     "    <UseCenterPixel>true</UseCenterPixel>\n"
     "    <WCSPath></WCSPath>\n"
     "    <RDLSPath></RDLSPath>\n"
     "    <AXYPath></AXYPath>\n"
     "    <CorrPath></CorrPath>\n"
     "    <CalibrationPath></CalibrationPath>\n"
     "    <AnnotationsPath></AnnotationsPath>\n"
     "    <NewImagePath></NewImagePath>\n"
     "    <UseNewImage>false</UseNewImage>\n"
     "    <UseRDLS>true</UseRDLS>\n"
     "    <UseAXY>true</UseAXY>\n"
     "    <UseCorr>true</UseCorr>\n"
     "    <UseCalibration>false</UseCalibration>\n"
     "    <UseAnnotations>false</UseAnnotations>\n"
     "    <AllowCommercialUse>n</AllowCommercialUse>\n"
     "    <AllowModifications>n</AllowModifications>\n"
     "    <PubliclyVisible>n</PubliclyVisible>\n"
     "    <ScaleUnits>arcsecperpix</ScaleUnits>\n"
     "    <ScaleType>ul</ScaleType>\n"
     "    <ScaleLower></ScaleLower>\n"
     "    <ScaleUpper></ScaleUpper>\n"
     "</AstrometrySettings>\n"},
    {"sAstrometryNetSettings with a fourth set of switches",
     [](const std::string& path) {
         return sAstrometryNetSettings(path, false, true, "", "", "", "", "", "", "", true, false, false,
                                       true, true, false, "", "");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<AstrometrySettings>\n"
     "    <UseWCS>false</UseWCS>\n"
     "    <UseCenterPixel>true</UseCenterPixel>\n"
     "    <WCSPath></WCSPath>\n"
     "    <RDLSPath></RDLSPath>\n"
     "    <AXYPath></AXYPath>\n"
     "    <CorrPath></CorrPath>\n"
     "    <CalibrationPath></CalibrationPath>\n"
     "    <AnnotationsPath></AnnotationsPath>\n"
     "    <NewImagePath></NewImagePath>\n"
     "    <UseNewImage>true</UseNewImage>\n"
     "    <UseRDLS>false</UseRDLS>\n"
     "    <UseAXY>false</UseAXY>\n"
     "    <UseCorr>true</UseCorr>\n"
     "    <UseCalibration>true</UseCalibration>\n"
     "    <UseAnnotations>false</UseAnnotations>\n"
     "    <AllowCommercialUse>n</AllowCommercialUse>\n"
     "    <AllowModifications>n</AllowModifications>\n"
     "    <PubliclyVisible>n</PubliclyVisible>\n"
     "    <ScaleUnits>arcsecperpix</ScaleUnits>\n"
     "    <ScaleType>ul</ScaleType>\n"
     "    <ScaleLower></ScaleLower>\n"
     "    <ScaleUpper></ScaleUpper>\n"
     "</AstrometrySettings>\n"},
    {"sAstrometryYesSettings",
     [](const std::string& path) {
         return sAstrometryYesSettings(path, "true", "/blobs/3", "/data/3.fit", "/yes/wcs", "/out/yes.log",
                                       "/out/yes.res", "0.25", "2.75", "83.5", "-5.25", "1.5", "4096",
                                       "2048");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<AstrometrySettings>\n"
     "    <useCenterPixel>true</useCenterPixel>\n"
     "    <BlobPath>/blobs/3</BlobPath>\n"
     "    <FitPath>/data/3.fit</FitPath>\n"
     "    <WCSPath>/yes/wcs</WCSPath>\n"
     "    <LogPath>/out/yes.log</LogPath>\n"
     "    <ResPath>/out/yes.res</ResPath>\n"
     "    <ScaleLower>0.25</ScaleLower>\n"
     "    <ScaleUpper>2.75</ScaleUpper>\n"
     "    <CRVAL1>83.5</CRVAL1>\n"
     "    <CRVAL2>-5.25</CRVAL2>\n"
     "    <Radius>1.5</Radius>\n"
     "    <NAXIS1>4096</NAXIS1>\n"
     "    <NAXIS2>2048</NAXIS2>\n"
     "</AstrometrySettings>\n"},
    {"sThresGetiNetXML",
     [](const std::string& path) {
         return sThresGetiNetXML(path, "GetiNet", "GAIA2", "15.5", "-20.25", "1.75", "18.5",
                                 "2025-02-23T12:00:00", "R", "/cat", "/out/res.xml", "/out/stars",
                                 "/out/cat.log");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<TaVeLinPattern>\n"
     "    <GetiNet>\n"
     "        <ProcessingType>GetiNet</ProcessingType>\n"
     "        <TypeCat>GAIA2</TypeCat>\n"
     "        <RA0>15.5</RA0>\n"
     "        <DE0>-20.25</DE0>\n"
     "        <FOV>1.75</FOV>\n"
     "        <VLim>18.5</VLim>\n"
     "        <DATEOBS>2025-02-23T12:00:00</DATEOBS>\n"
     "        <TypeMag>R</TypeMag>\n"
     "        <Pathcat>/cat</Pathcat>\n"
     "        <PathRes>/out/res.xml</PathRes>\n"
     "        <PathOut>/out/stars</PathOut>\n"
     "        <PathLog>/out/cat.log</PathLog>\n"
     "    </GetiNet>\n"
     "</TaVeLinPattern>\n"},
    {"sParamMPC1",
     [](const std::string& path) {
         return sParamMPC1(path, "/data/9.fit", "false", "/conf/t.xml", "/out/mpc.log", "/out/mpc.txt",
                           "/out/mpc.res", "19.5", "D53");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<MPC1>\n"
     "    <Frame>/data/9.fit</Frame>\n"
     "    <sendMPC2>false</sendMPC2>\n"
     "    <ConfigTavelinPath>/conf/t.xml</ConfigTavelinPath>\n"
     "    <LogPath>/out/mpc.log</LogPath>\n"
     "    <MPC1Path>/out/mpc.txt</MPC1Path>\n"
     "    <ResPath>/out/mpc.res</ResPath>\n"
     "    <LimMMPC>19.5</LimMMPC>\n"
     "    <MPCCode>D53</MPCCode>\n"
     "</MPC1>\n"},
};

// Its document is checked apart, as most of its comments are free.
const WrittenFile worldCoordinates{"sWCSXML",
                                   [](const std::string& path) {
                                       return sWCSXML(path, "83.5", "-5.25", "2048.5", "1024.5", "-0.0001",
                                                      "0.0002", "0.0003", "0.0004", "1000.5", "1.25", "0.65",
                                                      "179.5");
                                   },
                                   ""};

} // namespace

TEST(AstrometryParameters, WritersMakeTheWholeDocument)
{
    forEach(writtenFiles, expectDocument);
}

TEST(AstrometryParameters, WritersReplaceTheFile)
{
    forEach(writtenFiles, expectReplacement);
}

TEST(AstrometryParameters, WritersReturn1AndMakeNothingInAMissingFolder)
{
    forEach(writtenFiles, expectNothingInAMissingFolder);
    expectNothingInAMissingFolder(worldCoordinates);
}

TEST(AstrometryParameters, WritersReturn1WhereAFolderStands)
{
    forEach(writtenFiles, expectNothingInPlaceOfAFolder);
    expectNothingInPlaceOfAFolder(worldCoordinates);
}

TEST(AstrometryParameters, EachWorldCoordinateHasAComment)
{
    const TemporaryFolder folder;
    ASSERT_EQ(worldCoordinates.write(folder / "a.xml"), 0);
    const std::string document = bytesOf(folder / "a.xml");
    // The first and the last comment are fixed texts; the others must only say something.
    std::string blanked;
    Texts comments;
    const std::regex comment(" comment=\"([^\"]+)\"");
    std::string rest = document;
    for (std::smatch found; std::regex_search(rest, found, comment); rest = found.suffix().str()) {
        blanked += found.prefix().str() + " comment=\"\"";
        comments.push_back(found[1].str());
    }
    blanked += rest;
    EXPECT_EQ(blanked, "<?xml version=\"1.0\" ?>\n"
                       "<WCS>\n"
                       "    <CRVAL1 comment=\"\">83.5</CRVAL1>\n"
                       "    <CRVAL2 comment=\"\">-5.25</CRVAL2>\n"
                       "    <CRPIX1 comment=\"\">2048.5</CRPIX1>\n"
                       "    <CRPIX2 comment=\"\">1024.5</CRPIX2>\n"
                       "    <CD1_1 comment=\"\">-0.0001</CD1_1>\n"
                       "    <CD1_2 comment=\"\">0.0002</CD1_2>\n"
                       "    <CD2_1 comment=\"\">0.0003</CD2_1>\n"
                       "    <CD2_2 comment=\"\">0.0004</CD2_2>\n"
                       "    <FOCUS comment=\"\">1000.5</FOCUS>\n"
                       "    <FOV comment=\"\">1.25</FOV>\n"
                       "    <SCALE comment=\"\">0.65</SCALE>\n"
                       "    <Rotation comment=\"\">179.5</Rotation>\n"
                       "</WCS>\n");
    ASSERT_EQ(comments.size(), 12u);
    EXPECT_EQ(comments.front(), "World coordinate value (RA) at the reference point of Axis X[deg.]");
    EXPECT_EQ(comments.back(), "Camera rotation angle[deg.]");
}

TEST(AstrometryParameters, WorldCoordinatesAreTextsAsTheyStand)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", std::string(9000, 'x'));
    ASSERT_EQ(sWCSXML(folder / "a.xml", " 1 ", "", "<", "&", "e", "f", "g", "h", "i", "j", "k", "l"), 0);
    const std::string document = bytesOf(folder / "a.xml");
    EXPECT_EQ(std::regex_replace(document, std::regex(" comment=\"[^\"]+\""), ""),
              "<?xml version=\"1.0\" ?>\n"
              "<WCS>\n"
              "    <CRVAL1> 1 </CRVAL1>\n"
              "    <CRVAL2></CRVAL2>\n"
              "    <CRPIX1>&lt;</CRPIX1>\n"
              "    <CRPIX2>&amp;</CRPIX2>\n"
              "    <CD1_1>e</CD1_1>\n"
              "    <CD1_2>f</CD1_2>\n"
              "    <CD2_1>g</CD2_1>\n"
              "    <CD2_2>h</CD2_2>\n"
              "    <FOCUS>i</FOCUS>\n"
              "    <FOV>j</FOV>\n"
              "    <SCALE>k</SCALE>\n"
              "    <Rotation>l</Rotation>\n"
              "</WCS>\n");
}
