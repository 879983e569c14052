#include "exchange/catalogue_lists.h"

#include "config/xml_document.h"

#include "support/failed_writes.h"
#include "support/places.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

const std::string columnLine =
    "N:Int\ttype:Text\tName:Text\tAUID:Text\tRA:Float:deg\tDE:Float:deg\tX:Float:pix\t"
    "Y:Float:pix\tConst:Text\tVarType:Text\tPeriod:Text\tMagRange:Text\tDraw:Bool";
const std::string headLines = columnLine + "\nv2\n";

/// A star with a value of its own in each field.
TVSX phiPersei()
{
    TVSX star;
    star.X = 512.5;
    star.Y = 498.25;
    star.RA = 25.91517;
    star.DE = 50.68872;
    star.Mag = 4.0;
    star.ProperMotionRA = 24.59;
    star.ProperMotionDec = -14.01;
    star.type = "B2Vne+B3Vne";
    star.Const = "Per";
    star.Name = "phi Per";
    star.AUID = "000-BBD-264";
    star.VarType = "GCAS";
    star.MagRange = "3.96 V-4.11 V";
    star.Period = "19.5";
    star.Category = "Variable";
    star.OID = "26210";
    return star;
}

void expectStar(const TVSX& star, const TVSX& expected)
{
    EXPECT_EQ(star.X, expected.X);
    EXPECT_EQ(star.Y, expected.Y);
    EXPECT_EQ(star.RA, expected.RA);
    EXPECT_EQ(star.DE, expected.DE);
    EXPECT_EQ(star.Mag, expected.Mag);
    EXPECT_EQ(star.ProperMotionRA, expected.ProperMotionRA);
    EXPECT_EQ(star.ProperMotionDec, expected.ProperMotionDec);
    EXPECT_EQ(star.type, expected.type);
    EXPECT_EQ(star.Const, expected.Const);
    EXPECT_EQ(star.Name, expected.Name);
    EXPECT_EQ(star.AUID, expected.AUID);
    EXPECT_EQ(star.VarType, expected.VarType);
    EXPECT_EQ(star.MagRange, expected.MagRange);
    EXPECT_EQ(star.Period, expected.Period);
    EXPECT_EQ(star.Category, expected.Category);
    EXPECT_EQ(star.OID, expected.OID);
}

/// A star as LoadVSX gives it for a line without values.
TVSX unmeasured()
{
    TVSX star;
    star.Mag = -1000.0;
    return star;
}

/// The stars that lListVSX reads from a file of the bytes, over five of an earlier list.
std::vector<TVSX> shortList(const std::string& bytes)
{
    return readBy(
        [](const std::string& path) {
            std::vector<TVSX> stars(5);
            lListVSX(path, stars);
            return stars;
        },
        bytes);
}

/// The stars of an answer with that text.
std::vector<TVSX> answered(const std::string& document)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", document);
    std::vector<TVSX> stars;
    EXPECT_TRUE(LoadVSXQuerry(folder / "a.xml", stars));
    return stars;
}

/// A star of a real answer.
struct RealStar
{
    const char* Name;
    double RA;
    double DE;
    const char* VarType;
    const char* Period;
    const char* MagRange;
    const char* OID;
};

constexpr RealStar realStars[] = {
    {"Y Com", 196.64292, 18.97247, "SRB", "95:", "13.4 B-14.39 B", "9610"},
    {"Z Com", 197.07607, 18.54055, "RRAB", "0.5466892", "<13.14 V->14.29 V", "9611"},
    {"GP Com", 196.42667, 18.01772, "IBWD", "0.032339", "15.7 V-16.2 V", "9800"},
    {"ASAS J130830+1828.1", 197.12658, 18.47531, "ED", "0.448945", "12.382 V-(0.160) V", "281437"},
    {"LINEAR 8078628", 195.73021, 17.55149, "EW", "0.940526", "15.51 CV-?", "319884"},
    {"CSS_J130149.6+181629", 195.45693, 18.27497, "RRAB", "0.6422550", "16.773 CV-(0.85) TESS", "291920"},
    {"CSS_J130246.9+182141", 195.69565, 18.36147, "", "", "18.399 CV-", "291928"},
    {"CSS_J130256.1+182529", 195.73391, 18.42494, "RRAB", "0.5606905", "17.903 CV-(0.54) CV", "291929"},
    {"CSS_J130323.8+183610", 195.84935, 18.60292, "RRAB", "0.6153327", "18.745 CV-(0.59) CV", "291935"},
    {"CSS_J130450.2+183549", 196.20921, 18.59704, "RRAB", "0.71316", "16.943 CV-(0.75) CV", "291955"},
    {"CSS_J130655.9+180243", 196.73313, 18.04544, "RRAB", "0.65192", "16.654 CV-(0.73) CV", "291984"},
    {"CSS_J130829.7+175900", 197.12409, 17.98351, "RRAB", "0.5290068", "18.679 CV-(1.07) CV", "292001"},
    {"V0337 Com", 195.55312, 17.83928, "RRD", "0.355745", "18.1 CV-18.9 CV", "382137"},
    {"V0338 Com", 195.93631, 17.96857, "RRD", "0.361005", "18.2 CV-19.2 CV", "382159"},
    {"CSS_J130600.1+180046", 196.50058, 18.01297, "EB", "1.30748", "16.68 CV-(0.14) CV", "382191"},
    {"CSS_J130915.4+181943", 197.31458, 18.32863, "EA", "0.82638", "15.951 r-(0.284) r", "382234"},
    {"ZTF J130403.26+184147.6", 196.0136, 18.69656, "BY", "1.2442269", "16.900 r-(0.099) r", "1704066"},
    {"ZTF J130429.63+180459.3", 196.12348, 18.08316, "BY", "0.5901588", "16.524 r-(0.106) r", "1704070"},
    {"ZTF J130917.23+175650.1", 197.32183, 17.94727, "RS", "0.2722320", "13.397 g-(0.117) g", "1750641"},
    {"ASASSN-V J130329.61+184723.0", 195.8734, 18.78974, "ROT", "2.9103", "15.07 g-(0.34) g", "2272914"},
    {"ASASSN-V J130647.48+182752.4", 196.69797, 18.46471, "ROT", "16.919", "13.16 g-(0.13) g", "2273094"},
    {"ASASSN-V J130651.61+174203.2", 196.715, 17.70097, "ROT", "12.311", "15.26 g-(0.32) g", "2273100"},
};
/// What the answer holds of some of the stars beside that.
struct FurtherValues
{
    const char* name;
    const char* AUID;
    double motionRA;
    double motionDE;
};

constexpr FurtherValues furtherValues[] = {
    {"Y Com", "000-BDM-173", -6.2, -3.4},          {"Z Com", "000-BDM-174", 4.5, -22.3},
    {"GP Com", "000-BCV-502", -343.0, 37.0},       {"ASAS J130830+1828.1", "", -20.1, -2.7},
    {"LINEAR 8078628", "", -32.5, -9.7},           {"CSS_J130149.6+181629", "", -2.4, -5.3},
    {"CSS_J130450.2+183549", "", 2.3, 0.5},        {"CSS_J130655.9+180243", "", -0.8, -5.9},
    {"CSS_J130600.1+180046", "000-BPF-391", 0, 0}, {"CSS_J130915.4+181943", "", 11.1, -8.3},
};
/// The star of a real answer with all that the answer holds of it.
TVSX starOf(const RealStar& row)
{
    TVSX star;
    star.Name = row.Name;
    star.RA = row.RA;
    star.DE = row.DE;
    star.VarType = row.VarType;
    star.Period = row.Period;
    star.MagRange = row.MagRange;
    star.OID = row.OID;
    star.Const = "Com";
    star.Category = star.Name == "CSS_J130246.9+182141" ? "Suspected" : "Variable";
    star.type = star.Name == "GP Com" ? "DBe" : "";
    for (const auto& [name, AUID, motionRA, motionDE] : furtherValues) {
        if (star.Name == name) {
            star.AUID = AUID;
            star.ProperMotionRA = motionRA;
            star.ProperMotionDec = motionDE;
        }
    }
    return star;
}

} // namespace

TEST(VsxRecord, NewStarIsZeroAndEmpty)
{
    const TVSX star;
    EXPECT_EQ(star.X, 0.0);
    EXPECT_EQ(star.Y, 0.0);
    EXPECT_EQ(star.RA, 0.0);
    EXPECT_EQ(star.DE, 0.0);
    EXPECT_EQ(star.Mag, 0.0);
    EXPECT_EQ(star.ProperMotionRA, 0.0);
    EXPECT_EQ(star.ProperMotionDec, 0.0);
    for (const std::string& text : {star.type, star.Const, star.Name, star.AUID, star.VarType, star.MagRange,
                                    star.Period, star.Category, star.OID})
    {
        EXPECT_EQ(text, "");
    }
}

TEST(VsxList, ColumnLineIsThatOfTheList)
{
    EXPECT_EQ(getHeadVSX(), columnLine);
}

TEST(VsxList, StarsAreWrittenWithRunningNumbers)
{
    const TemporaryFolder folder;
    TVSX second;
    second.Name = "GP Com";
    second.RA = 196.42667;
    second.DE = -18.01772;
    second.X = 1234567.0;
    second.Y = 1e-5;
    SaveVSX(folder / "a.txt", {phiPersei(), second});
    EXPECT_EQ(bytesOf(folder / "a.txt"),
              headLines +
                  "1\tB2Vne+B3Vne\tphi Per\t000-BBD-264\t25.9152\t50.6887\t512.5\t498.25\tPer\tGCAS\t19.5\t"
                  "3.96 V-4.11 V\t1\n"
                  "2\t\tGP Com\t\t196.427\t-18.0177\t1.23457e+06\t1e-05\t\t\t\t\t1\n");
}

TEST(VsxList, EmptyListIsTwoHeadLines)
{
    const TemporaryFolder folder;
    SaveVSX(folder / "a.txt", {});
    EXPECT_EQ(bytesOf(folder / "a.txt"), headLines);
    EXPECT_TRUE(LoadVSX(folder / "a.txt").empty());
}

TEST(VsxList, TextsGoOutAsTheyStand)
{
    const TemporaryFolder folder;
    TVSX star;
    star.Name = "a\tb";
    star.type = " <&\xCF\x86> ";
    SaveVSX(folder / "a.txt", {star});
    EXPECT_EQ(bytesOf(folder / "a.txt"), headLines + "1\t <&\xCF\x86> \ta\tb\t\t0\t0\t0\t0\t\t\t\t\t1\n");
}

TEST(VsxList, NothingIsLeftOfALongerFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.txt", std::string(9000, 'x'));
    SaveVSX(folder / "a.txt", {});
    EXPECT_EQ(bytesOf(folder / "a.txt"), headLines);
}

TEST(VsxList, FileThatCannotBeWrittenRaisesCode7)
{
    expectCode7([](const std::string& path) { SaveVSX(path, {phiPersei()}); });
}

TEST(VsxList, WrittenStarComesBackWithoutWhatTheListLacks)
{
    const TemporaryFolder folder;
    SaveVSX(folder / "a.txt", {phiPersei(), phiPersei()});
    const std::vector<TVSX> stars = LoadVSX(folder / "a.txt");
    TVSX expected = phiPersei();
    expected.RA = 25.9152;
    expected.DE = 50.6887;
    expected.Mag = -1000.0;
    expected.ProperMotionRA = 0;
    expected.ProperMotionDec = 0;
    expected.Category = "";
    expected.OID = "";
    ASSERT_EQ(stars.size(), 2u);
    expectStar(stars[0], expected);
    expectStar(stars[1], expected);
}

TEST(VsxList, HeadLinesNumberAndDrawAreNotLookedAt)
{
    const std::vector<TVSX> stars = readBy(
        LoadVSX, "one\ntwo\nx\ttype\tname\tauid\t1.5\t-2.5e1\t3\t+4\tconst\tvar\tperiod\trange\tx\tmore\n");
    ASSERT_EQ(stars.size(), 1u);
    TVSX expected = unmeasured();
    expected.type = "type";
    expected.Name = "name";
    expected.AUID = "auid";
    expected.RA = 1.5;
    expected.DE = -25.0;
    expected.X = 3.0;
    expected.Y = 4.0;
    expected.Const = "const";
    expected.VarType = "var";
    expected.Period = "period";
    expected.MagRange = "range";
    expectStar(stars[0], expected);
}

TEST(VsxList, FewerThanThreeLinesAreNoStars)
{
    for (const char* bytes : {"", "\n", "one", "one\n", "one\ntwo", "one\ntwo\n", "\n\n"}) {
        SCOPED_TRACE(bytes);
        EXPECT_TRUE(readBy(LoadVSX, bytes).empty());
    }
}

TEST(VsxList, EveryLineBehindTheHeadIsAStar)
{
    const std::vector<TVSX> stars = readBy(LoadVSX, "one\ntwo\n\nv2\n1\tt\tn\n\n");
    ASSERT_EQ(stars.size(), 4u);
    expectStar(stars[0], unmeasured());
    expectStar(stars[1], unmeasured());
    TVSX expected = unmeasured();
    expected.type = "t";
    expected.Name = "n";
    expectStar(stars[2], expected);
    expectStar(stars[3], unmeasured());
}

TEST(VsxList, ShortLineFillsWhatItReaches)
{
    const std::string whole = "1\ttype\tname\tauid\t1\t2\t3\t4\tconst\tvar\tperiod\trange";
    TVSX expected = unmeasured();
    std::size_t end = whole.find('\t');
    const auto expectUpToHere = [&] {
        SCOPED_TRACE(whole.substr(0, end));
        // Tabs at the end of a line go, so an empty column there is a missing one.
        for (const char* tail : {"", "\t", "\t\t\t"}) {
            const std::vector<TVSX> stars =
                readBy(LoadVSX, "one\ntwo\n" + whole.substr(0, end) + tail + "\n");
            ASSERT_EQ(stars.size(), 1u);
            expectStar(stars[0], expected);
        }
        end = std::min(whole.find('\t', end + 1), whole.size());
    };
    expectUpToHere();
    const std::pair<std::string TVSX::*, const char*> front[] = {
        {&TVSX::type, "type"}, {&TVSX::Name, "name"}, {&TVSX::AUID, "auid"}};
    for (const auto& [member, text] : front) {
        expected.*member = text;
        expectUpToHere();
    }
    double value = 0;
    for (double TVSX::*member : {&TVSX::RA, &TVSX::DE, &TVSX::X, &TVSX::Y}) {
        expected.*member = ++value;
        expectUpToHere();
    }
    const std::pair<std::string TVSX::*, const char*> back[] = {{&TVSX::Const, "const"},
                                                                {&TVSX::VarType, "var"},
                                                                {&TVSX::Period, "period"},
                                                                {&TVSX::MagRange, "range"}};
    for (const auto& [member, text] : back) {
        expected.*member = text;
        expectUpToHere();
    }
}

TEST(VsxList, EmptyFieldsInsideALineAreEmptyAndZero)
{
    const std::vector<TVSX> stars = readBy(LoadVSX, "one\ntwo\n\t\t\t\t\t\t\t\t\t\t\trange\n");
    ASSERT_EQ(stars.size(), 1u);
    TVSX expected = unmeasured();
    expected.MagRange = "range";
    expectStar(stars[0], expected);
}

TEST(VsxList, TextThatIsNoNumberIsZero)
{
    const std::vector<TVSX> stars = readBy(LoadVSX, "one\ntwo\n1\tt\tn\ta\tabc\t95:\t 7\t1,5\n");
    ASSERT_EQ(stars.size(), 1u);
    EXPECT_EQ(stars[0].RA, 0.0);
    EXPECT_EQ(stars[0].DE, 95.0);
    EXPECT_EQ(stars[0].X, 7.0);
    EXPECT_EQ(stars[0].Y, 1.0);
}

TEST(VsxList, LineEndsOfTwoBytesAreReadAlike)
{
    const std::vector<TVSX> stars =
        readBy(LoadVSX, "one\r\ntwo\r\n1\ttype\tname\tauid\t1\t2\t3\t4\tconst\tvar\tperiod\trange\r\n");
    ASSERT_EQ(stars.size(), 1u);
    EXPECT_EQ(stars[0].Name, "name");
    EXPECT_EQ(stars[0].MagRange, "range");
}

TEST(VsxShortList, ColumnsFillTheirFields)
{
    const std::vector<TVSX> stars =
        shortList("head\n25.91517\t-50.68872\ttype\tname\tauid\tconst\tvar\tperiod\trange\tmore\n1\t2\n");
    ASSERT_EQ(stars.size(), 2u);
    TVSX expected;
    expected.RA = 25.91517;
    expected.DE = -50.68872;
    expected.type = "type";
    expected.Name = "name";
    expected.AUID = "auid";
    expected.Const = "const";
    expected.VarType = "var";
    expected.Period = "period";
    expected.MagRange = "range";
    expectStar(stars[0], expected);
    TVSX second;
    second.RA = 1;
    second.DE = 2;
    expectStar(stars[1], second);
}

TEST(VsxShortList, ShortLineFillsWhatItReaches)
{
    const std::string whole = "1\t2\ttype\tname\tauid\tconst\tvar\tperiod\trange";
    std::string TVSX::*const members[] = {&TVSX::type,    &TVSX::Name,   &TVSX::AUID,    &TVSX::Const,
                                          &TVSX::VarType, &TVSX::Period, &TVSX::MagRange};
    const char* const texts[] = {"type", "name", "auid", "const", "var", "period", "range"};
    TVSX expected;
    expected.RA = 1;
    expected.DE = 2;
    std::string line = "1\t2";
    for (std::size_t i = 0; i <= std::size(texts); ++i) {
        SCOPED_TRACE(line);
        const std::vector<TVSX> stars = shortList("head\n" + line + "\n");
        ASSERT_EQ(stars.size(), 1u);
        expectStar(stars[0], expected);
        if (i < std::size(texts)) {
            line += "\t" + std::string(texts[i]);
            expected.*members[i] = texts[i];
        }
    }
    EXPECT_EQ(line, whole);
}

TEST(VsxShortList, LineWithoutDeclinationIsAStarToo)
{
    const std::vector<TVSX> stars = shortList("head\n7.5\n\nabc\t-1\n");
    ASSERT_EQ(stars.size(), 3u);
    TVSX expected;
    expected.RA = 7.5;
    expectStar(stars[0], expected);
    expectStar(stars[1], TVSX());
    expected = TVSX();
    expected.DE = -1;
    expectStar(stars[2], expected);
}

TEST(VsxShortList, ListWithoutStarsIsEmpty)
{
    for (const char* bytes : {"", "\n", "head", "head\n"}) {
        SCOPED_TRACE(bytes);
        EXPECT_TRUE(shortList(bytes).empty());
    }
}

TEST(VsxAnswer, KeysFillTheirFields)
{
    std::vector<TVSX> stars;
    EXPECT_TRUE(LoadVSXQuerry(fixture("vsx/answer_with_spectral_type.xml"), stars));
    ASSERT_EQ(stars.size(), 1u);
    TVSX expected = phiPersei();
    expected.X = 0;
    expected.Y = 0;
    expected.Mag = 0;
    expectStar(stars[0], expected);
}

TEST(VsxAnswer, RealAnswerOfTwentyTwoStars)
{
    std::vector<TVSX> stars;
    EXPECT_TRUE(LoadVSXQuerry(fixture("vsx/answer_of_22_stars.xml"), stars));
    ASSERT_EQ(stars.size(), 22u);
    ASSERT_EQ(std::size(realStars), stars.size());
    for (std::size_t i = 0; i < stars.size(); ++i) {
        SCOPED_TRACE(realStars[i].Name);
        expectStar(stars[i], starOf(realStars[i]));
    }
}

TEST(VsxAnswer, StarsAreAppended)
{
    std::vector<TVSX> stars{TVSX{.Name = "kept"}};
    EXPECT_TRUE(LoadVSXQuerry(fixture("vsx/answer_with_spectral_type.xml"), stars));
    EXPECT_TRUE(LoadVSXQuerry(fixture("vsx/answer_with_spectral_type.xml"), stars));
    ASSERT_EQ(stars.size(), 3u);
    EXPECT_EQ(stars[0].Name, "kept");
    EXPECT_EQ(stars[1].Name, "phi Per");
    EXPECT_EQ(stars[2].Name, "phi Per");
}

TEST(VsxAnswer, AnswerWithoutStarsIsReadAndEmpty)
{
    for (const char* name : {"answer_without_stars.xml", "answer_with_values_in_attributes.xml"}) {
        SCOPED_TRACE(name);
        std::vector<TVSX> stars{TVSX{.Name = "kept"}};
        EXPECT_TRUE(LoadVSXQuerry(fixture(std::string("vsx/") + name), stars));
        ASSERT_EQ(stars.size(), 1u);
        EXPECT_EQ(stars[0].Name, "kept");
    }
}

TEST(VsxAnswer, FileThatCannotBeLoadedIsFalseAndChangesNothing)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder.xml");
    makeFile(folder / "cut.xml", "<A><VSXObject><Name>a</Name></VSXObject>");
    makeFile(folder / "empty.xml", "");
    makeFile(folder / "text.xml", "no element\n");
    for (const char* name :
         {"missing.xml", "missing/a.xml", "folder.xml", "cut.xml", "empty.xml", "text.xml"}) {
        SCOPED_TRACE(name);
        std::vector<TVSX> stars{TVSX{.Name = "kept"}};
        EXPECT_FALSE(LoadVSXQuerry(folder / name, stars));
        ASSERT_EQ(stars.size(), 1u);
        EXPECT_EQ(stars[0].Name, "kept");
    }
}

TEST(VsxAnswer, MagnitudesAreJoinedByAHyphen)
{
    constexpr struct
    {
        const char* keys;
        const char* range;
    } answers[] = {
        {"<MaxMag>10.2</MaxMag><MinMag>11.1</MinMag>", "10.2-11.1"},
        {"<MinMag>11.1</MinMag><MaxMag>10.2</MaxMag>", "10.2-11.1"},
        {"<MaxMag>10.2</MaxMag>", "10.2-"},
        {"<MinMag>11.1</MinMag>", "-11.1"},
        {"<MaxMag/><MinMag></MinMag>", "-"},
        {"", "-"},
        {"<MaxMag> 10.2 </MaxMag><MinMag> 11.1 </MinMag>", " 10.2 - 11.1 "},
    };
    for (const auto& [keys, range] : answers) {
        SCOPED_TRACE(keys);
        const std::vector<TVSX> stars = answered("<A><VSXObject>" + std::string(keys) + "</VSXObject></A>");
        ASSERT_EQ(stars.size(), 1u);
        TVSX expected;
        expected.MagRange = range;
        expectStar(stars[0], expected);
    }
}

TEST(VsxAnswer, OnlyChildrenOfTheRootAreStars)
{
    const std::vector<TVSX> stars = answered("<VSXObject><Name>root</Name>"
                                             "<VSXObject><Name>a</Name></VSXObject>"
                                             "<Other><VSXObject><Name>deep</Name></VSXObject></Other>"
                                             "<vsxobject><Name>small</Name></vsxobject>"
                                             "<VSXObject/>"
                                             "<VSXObject><Name>b</Name><VSXObject><Name>c</Name></VSXObject>"
                                             "</VSXObject></VSXObject><VSXObject><Name>d</Name></VSXObject>");
    ASSERT_EQ(stars.size(), 3u);
    EXPECT_EQ(stars[0].Name, "a");
    EXPECT_EQ(stars[1].Name, "");
    EXPECT_EQ(stars[1].MagRange, "-");
    EXPECT_EQ(stars[2].Name, "b");
}

TEST(VsxAnswer, MissingKeyDoesNotTakeTheValueOfTheStarBefore)
{
    const std::vector<TVSX> stars =
        answered("<A><VSXObject><Name>a</Name><RA2000>1</RA2000><MaxMag>2</MaxMag></VSXObject>"
                 "<VSXObject><Declination2000>abc</Declination2000></VSXObject></A>");
    ASSERT_EQ(stars.size(), 2u);
    TVSX expected;
    expected.MagRange = "-";
    expectStar(stars[1], expected);
}

TEST(VsxAnswer, BlanksAndLettersOfATextStay)
{
    const std::vector<TVSX> stars =
        answered("<A>\n<VSXObject>\n<Name>  a  b &lt;&amp;&gt;  </Name>\n</VSXObject>\n</A>\n");
    ASSERT_EQ(stars.size(), 1u);
    EXPECT_EQ(stars[0].Name, "  a  b <&>  ");
}

TEST(VsxAnswer, RootThatIsLoadedGivesItsStars)
{
    TtavelinXmlDocument document(fixture("vsx/answer_with_spectral_type.xml"));
    ASSERT_TRUE(document.LoadFile());
    std::vector<TVSX> stars(1);
    GetVSXObjects(document.RootElement(), stars);
    ASSERT_EQ(stars.size(), 2u);
    EXPECT_EQ(stars[1].Name, "phi Per");
    EXPECT_EQ(stars[1].OID, "26210");
    GetVSXObjects(nullptr, stars);
    EXPECT_EQ(stars.size(), 2u);
}
