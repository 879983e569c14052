#include "config/parameters_frames.h"

#include "support/parameter_files.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

const std::vector<WrittenFile> writtenFiles = {
    {"sThresCosmetic",
     [](const std::string& path) {
         return sThresCosmetic(
             path, "Cosmetic", Texts{"/raw/1.fit", "/raw/2.fit"}, Texts{"/bias/1.fit", "/bias/2.fit"},
             Texts{"/dark/1.fit"}, Texts{"/darkflat/1.fit", "/darkflat/2.fit", "/darkflat/3.fit"},
             Texts{"/flat/1.fit", " /flat/2.fit "}, "mask", "/out/res.xml", "/out/pid", "/out/cosmetic.log",
             "/out", "3.5", "/fhf", "55", "bands", "2", "/common", "delete", "bias", "dark", "darkflat",
             "flat", "fhf", "common", "master", "/conf/t.xml");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<TaVeLinPattern>\n"
     "    <ProcessingType>Cosmetic</ProcessingType>\n"
     "    <FitsList>\n"
     "        <stringFL>/raw/1.fit</stringFL>\n"
     "        <stringFL>/raw/2.fit</stringFL>\n"
     "    </FitsList>\n"
     "    <FitsListBias>\n"
     "        <stringFLB>/bias/1.fit</stringFLB>\n"
     "        <stringFLB>/bias/2.fit</stringFLB>\n"
     "    </FitsListBias>\n"
     "    <FitsListDark>\n"
     "        <stringFLD>/dark/1.fit</stringFLD>\n"
     "    </FitsListDark>\n"
     "    <FitsListDarkFlat>\n"
     "        <stringFLDF>/darkflat/1.fit</stringFLDF>\n"
     "        <stringFLDF>/darkflat/2.fit</stringFLDF>\n"
     "        <stringFLDF>/darkflat/3.fit</stringFLDF>\n"
     "    </FitsListDarkFlat>\n"
     "    <FitsListFlat>\n"
     "        <stringFLF>/flat/1.fit</stringFLF>\n"
     "        <stringFLF> /flat/2.fit </stringFLF>\n"
     "    </FitsListFlat>\n"
     "    <AddMask>mask</AddMask>\n"
     "    <PathRes>/out/res.xml</PathRes>\n"
     "    <PIDPath>/out/pid</PIDPath>\n"
     "    <PathLog>/out/cosmetic.log</PathLog>\n"
     "    <OutPutFolder>/out</OutPutFolder>\n"
     "    <NSigm>3.5</NSigm>\n"
     "    <PathFHF>/fhf</PathFHF>\n"
     "    <winFHF5>55</winFHF5>\n"
     "    <HorizontalBandsFilter>bands</HorizontalBandsFilter>\n"
     "    <BinningCoefficient>2</BinningCoefficient>\n"
     "    <CommonFolder>/common</CommonFolder>\n"
     "    <DeleteTMP>delete</DeleteTMP>\n"
     "    <UseBias>bias</UseBias>\n"
     "    <UseDark>dark</UseDark>\n"
     "    <UseDarkFlat>darkflat</UseDarkFlat>\n"
     "    <UseFlat>flat</UseFlat>\n"
     "    <UseFHF>fhf</UseFHF>\n"
     "    <UseCommonFolder>common</UseCommonFolder>\n"
     "    <SpecifiedMasterFrames>master</SpecifiedMasterFrames>\n"
     "    <ConfigTavelinPath>/conf/t.xml</ConfigTavelinPath>\n"
     "</TaVeLinPattern>\n"},
    {"sThresCosmetic without frames",
     [](const std::string& path) {
         return sThresCosmetic(path, "", Texts{}, Texts{}, Texts{}, Texts{}, Texts{}, " a ", "<b>", "c & d",
                               "e", "f", "g", "h", "i", "j", "k", "l", "m", "n", "o", "p", "q", "r", "s", "t",
                               "u");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<TaVeLinPattern>\n"
     "    <ProcessingType></ProcessingType>\n"
     "    <FitsList />\n"
     "    <FitsListBias />\n"
     "    <FitsListDark />\n"
     "    <FitsListDarkFlat />\n"
     "    <FitsListFlat />\n"
     "    <AddMask> a </AddMask>\n"
     "    <PathRes>&lt;b&gt;</PathRes>\n"
     "    <PIDPath>c &amp; d</PIDPath>\n"
     "    <PathLog>e</PathLog>\n"
     "    <OutPutFolder>f</OutPutFolder>\n"
     "    <NSigm>g</NSigm>\n"
     "    <PathFHF>h</PathFHF>\n"
     "    <winFHF5>i</winFHF5>\n"
     "    <HorizontalBandsFilter>j</HorizontalBandsFilter>\n"
     "    <BinningCoefficient>k</BinningCoefficient>\n"
     "    <CommonFolder>l</CommonFolder>\n"
     "    <DeleteTMP>m</DeleteTMP>\n"
     "    <UseBias>n</UseBias>\n"
     "    <UseDark>o</UseDark>\n"
     "    <UseDarkFlat>p</UseDarkFlat>\n"
     "    <UseFlat>q</UseFlat>\n"
     "    <UseFHF>r</UseFHF>\n"
     "    <UseCommonFolder>s</UseCommonFolder>\n"
     "    <SpecifiedMasterFrames>t</SpecifiedMasterFrames>\n"
     "    <ConfigTavelinPath>u</ConfigTavelinPath>\n"
     "</TaVeLinPattern>\n"},
    {"SaveParamMultiformat",
     [](const std::string& path) {
         return SaveParamMultiformat(path, Texts{"/raw/1.cr2", "/raw/2.cr2"}, Texts{"/out/1.fit"}, "true",
                                     "/conf/t.xml", "/out/res.xml", "/out/multi.log", "/out/header.txt");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<Root>\n"
     "    <InputFilesList>\n"
     "        <String>/raw/1.cr2</String>\n"
     "        <String>/raw/2.cr2</String>\n"
     "    </InputFilesList>\n"
     "    <OutputFilesList>\n"
     "        <String>/out/1.fit</String>\n"
     "    </OutputFilesList>\n"
     "    <ToGrayscale>true</ToGrayscale>\n"
     "    <ConfigTavelinPath>/conf/t.xml</ConfigTavelinPath>\n"
     "    <ResPath>/out/res.xml</ResPath>\n"
     "    <LogPath>/out/multi.log</LogPath>\n"
     "    <HeaderPath>/out/header.txt</HeaderPath>\n"
     "</Root>\n"},
    {"SaveParamMultiformat without files",
     [](const std::string& path) {
         return SaveParamMultiformat(path, Texts{}, Texts{}, "a", " b ", "\"c\"", "'d'", "\xd1\x81");
     },
     "<?xml version=\"1.0\" ?>\n"
     "<Root>\n"
     "    <InputFilesList />\n"
     "    <OutputFilesList />\n"
     "    <ToGrayscale>a</ToGrayscale>\n"
     "    <ConfigTavelinPath> b </ConfigTavelinPath>\n"
     "    <ResPath>&quot;c&quot;</ResPath>\n"
     "    <LogPath>&apos;d&apos;</LogPath>\n"
     "    <HeaderPath>\xd1\x81</HeaderPath>\n"
     "</Root>\n"},
    // In these three rows no two flags change alike.
    {"SaveThresholdFHF in colour",
     [](const std::string& path) {
         return SaveThresholdFHF(path, "/out/fhf.log", "/fhf/init", "/fhf/in.fit", "/fhf/out.fit", "55", "2",
                                 true, false, false);
     },
     "<?xml version=\"1.0\" ?>\n"
     "<FhfSettings>\n"
     "    <logAndInitFile>\n"
     "        <FullNameLogFile>/out/fhf.log</FullNameLogFile>\n"
     "        <FullNameResFile>---</FullNameResFile>\n"
     "        <FullNameInitFile>/fhf/init</FullNameInitFile>\n"
     "    </logAndInitFile>\n"
     "    <inversMedianFilter>\n"
     "        <IsInversMedianFilter>1</IsInversMedianFilter>\n"
     "        <FullNameFitInInversMedianFilter>/fhf/in.fit</FullNameFitInInversMedianFilter>\n"
     "        <FullNameFitOutInversMedianFilter>/fhf/out.fit</FullNameFitOutInversMedianFilter>\n"
     "        <InversMedianWindow>55</InversMedianWindow>\n"
     "    </inversMedianFilter>\n"
     "    <Binning>2</Binning>\n"
     "    <ColorOrBw>1</ColorOrBw>\n"
     "    <SmallOrBig>0</SmallOrBig>\n"
     "    <HorizontalBandsFilter>0</HorizontalBandsFilter>\n"
     "</FhfSettings>\n"},
    {"SaveThresholdFHF of small frames",
     [](const std::string& path) {
         return SaveThresholdFHF(path, " a ", "b", "c", "d", "e", "f", false, true, false);
     },
     "<?xml version=\"1.0\" ?>\n"
     "<FhfSettings>\n"
     "    <logAndInitFile>\n"
     "        <FullNameLogFile> a </FullNameLogFile>\n"
     "        <FullNameResFile>---</FullNameResFile>\n"
     "        <FullNameInitFile>b</FullNameInitFile>\n"
     "    </logAndInitFile>\n"
     "    <inversMedianFilter>\n"
     "        <IsInversMedianFilter>1</IsInversMedianFilter>\n"
     "        <FullNameFitInInversMedianFilter>c</FullNameFitInInversMedianFilter>\n"
     "        <FullNameFitOutInversMedianFilter>d</FullNameFitOutInversMedianFilter>\n"
     "        <InversMedianWindow>e</InversMedianWindow>\n"
     "    </inversMedianFilter>\n"
     "    <Binning>f</Binning>\n"
     "    <ColorOrBw>0</ColorOrBw>\n"
     "    <SmallOrBig>1</SmallOrBig>\n"
     "    <HorizontalBandsFilter>0</HorizontalBandsFilter>\n"
     "</FhfSettings>\n"},
    {"SaveThresholdFHF with horizontal bands",
     [](const std::string& path) {
         return SaveThresholdFHF(path, "", "", "", "", "", "", false, false, true);
     },
     "<?xml version=\"1.0\" ?>\n"
     "<FhfSettings>\n"
     "    <logAndInitFile>\n"
     "        <FullNameLogFile></FullNameLogFile>\n"
     "        <FullNameResFile>---</FullNameResFile>\n"
     "        <FullNameInitFile></FullNameInitFile>\n"
     "    </logAndInitFile>\n"
     "    <inversMedianFilter>\n"
     "        <IsInversMedianFilter>1</IsInversMedianFilter>\n"
     "        <FullNameFitInInversMedianFilter></FullNameFitInInversMedianFilter>\n"
     "        <FullNameFitOutInversMedianFilter></FullNameFitOutInversMedianFilter>\n"
     "        <InversMedianWindow></InversMedianWindow>\n"
     "    </inversMedianFilter>\n"
     "    <Binning></Binning>\n"
     "    <ColorOrBw>0</ColorOrBw>\n"
     "    <SmallOrBig>0</SmallOrBig>\n"
     "    <HorizontalBandsFilter>1</HorizontalBandsFilter>\n"
     "</FhfSettings>\n"},
};

const std::vector<ReadFile> readFiles = {
    {"lThresADD",
     readArguments<lThresADD, 5, 2>,
     "<Add>\n"
     "    <AddType>median</AddType>\n"
     "    <BaseFit>/data/base.fit</BaseFit>\n"
     "    <ResPath>/out/res.xml</ResPath>\n"
     "    <LogPath>/out/add.log</LogPath>\n"
     "    <SuperFit>/out/super.fit</SuperFit>\n"
     "    <FitsList>\n"
     "        <string>/data/1.fit</string>\n"
     "        <string> /data/2.fit </string>\n"
     "        <dxdy>no frame</dxdy>\n"
     "    </FitsList>\n"
     "    <ShiftList>\n"
     "        <dxdy>1.5 2.5</dxdy>\n"
     "        <string>no shift</string>\n"
     "        <dxdy>-3.5 4.5</dxdy>\n"
     "    </ShiftList>\n"
     "</Add>\n",
     {{"AddType", "median"},
      {"BaseFit", "/data/base.fit"},
      {"ResPath", "/out/res.xml"},
      {"LogPath", "/out/add.log"},
      {"SuperFit", "/out/super.fit"}},
     {{"FitsList", {"/data/1.fit", " /data/2.fit "}}, {"ShiftList", {"1.5 2.5", "-3.5 4.5"}}},
     1,
     5},
    {"lThresConvFormats",
     readArguments<lThresConvFormats, 2>,
     "<ConvertFormats>\n"
     "    <zonePath>/conf/zones</zonePath>\n"
     "    <startTime>12:34:56</startTime>\n"
     "</ConvertFormats>\n",
     {{"zonePath", "/conf/zones"}, {"startTime", "12:34:56"}}},
    {"LFrameSelector",
     readArguments<LFrameSelector, 4>,
     "<Selector>\n"
     "    <frames>/data</frames>\n"
     "    <list_frames>/data/list.txt</list_frames>\n"
     "    <observations>/data/observations.txt</observations>\n"
     "    <full_path>true</full_path>\n"
     "</Selector>\n",
     {{"frames", "/data"},
      {"list_frames", "/data/list.txt"},
      {"observations", "/data/observations.txt"},
      {"full_path", "true"}}},
    {"lFitEdit",
     readArguments<lFitEdit, 6>,
     "<task>\n"
     "    <fixheader>true</fixheader>\n"
     "    <inputdirectory>/data/in</inputdirectory>\n"
     "    <exludedtext>-r</exludedtext>\n"
     "    <roundmillisecond>3</roundmillisecond>\n"
     "    <outputdirectory>/data/out</outputdirectory>\n"
     "    <add_time>-0.5</add_time>\n"
     "</task>\n",
     {{"fixheader", "true"},
      {"inputdirectory", "/data/in"},
      {"exludedtext", "-r"},
      {"roundmillisecond", "3"},
      {"outputdirectory", "/data/out"},
      {"add_time", "-0.5"}}},
    {"lPACKxml",
     readArguments<lPACKxml, 2, 2>,
     "<Pack>\n"
     "    <Mode>unpack</Mode>\n"
     "    <ResPath>/out/res.xml</ResPath>\n"
     "    <FitsList>\n"
     "        <input>/data/1.fz</input>\n"
     "        <output>no input</output>\n"
     "        <input>/data/2.fz</input>\n"
     "    </FitsList>\n"
     "    <OutputFitsList>\n"
     "        <output>/out/1.fit</output>\n"
     "        <input>no output</input>\n"
     "        <output> /out/2.fit </output>\n"
     "    </OutputFitsList>\n"
     "</Pack>\n",
     {{"Mode", "unpack"}, {"ResPath", "/out/res.xml"}},
     {{"FitsList", {"/data/1.fz", "/data/2.fz"}}, {"OutputFitsList", {"/out/1.fit", " /out/2.fit "}}}},
};

} // namespace

TEST(FrameParameters, WritersMakeTheWholeDocument)
{
    forEach(writtenFiles, expectDocument);
}

TEST(FrameParameters, WritersReplaceTheFile)
{
    forEach(writtenFiles, expectReplacement);
}

TEST(FrameParameters, WritersReturn1AndMakeNothingInAMissingFolder)
{
    forEach(writtenFiles, expectNothingInAMissingFolder);
}

TEST(FrameParameters, WritersReturn1WhereAFolderStands)
{
    forEach(writtenFiles, expectNothingInPlaceOfAFolder);
}

TEST(FrameParameters, ReadersFillEachArgument)
{
    forEach(readFiles, expectEachKey);
}

TEST(FrameParameters, ReadersTakeAnyNameOfTheFirstElement)
{
    forEach(readFiles, expectAnyNameOfTheFirstElement);
}

TEST(FrameParameters, MissingAndEmptyKeysLeaveTheirArguments)
{
    forEach(readFiles, expectMissingAndEmptyKeysToLeaveTheirArguments);
}

TEST(FrameParameters, ReadersLookBelowTheFirstElementOnly)
{
    forEach(readFiles, expectKeysOfTheFirstElementAlone);
}

TEST(FrameParameters, BlanksAndLettersOfValuesSurvive)
{
    forEach(readFiles, expectBlanksAndLetters);
}

TEST(FrameParameters, FilesThatDoNotLoadLeaveAllArguments)
{
    forEach(readFiles, expectNothingOfAFileThatDoesNotLoad);
}
