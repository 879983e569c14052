#include "exchange/text_results.h"

#include "results/result_files.h"

#include "support/failed_writes.h"
#include "support/places.h"
#include "support/results.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <filesystem>
#include <iterator>
#include <limits>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;
using Doubles = std::vector<double>;

/// The numbers of a file, appended to one that is there already.
Doubles numbersOf(const std::string& bytes)
{
    return readBy(
        [](const std::string& path) {
            Doubles values{-1.0};
            LoadResult61(path, values);
            return values;
        },
        bytes);
}

TPlateRec plate()
{
    TPlateRec plate;
    plate.Value1 = 10.6847;
    plate.Value2 = 41.269;
    plate.Value3 = 3.0;
    plate.Value4 = 4.0;
    plate.Int1 = 5;
    plate.Int2 = 6;
    plate.List1 = {1.5, 3};
    plate.List2 = {-2.5, 4};
    return plate;
}

void expectPlate(const TPlateRec& plate, double value1, double value2, const Doubles& list1,
                 const Doubles& list2)
{
    EXPECT_EQ(plate.Value1, value1);
    EXPECT_EQ(plate.Value2, value2);
    EXPECT_EQ(plate.Value3, 0.0);
    EXPECT_EQ(plate.Value4, 0.0);
    EXPECT_EQ(plate.Int1, 0);
    EXPECT_EQ(plate.Int2, 0);
    EXPECT_EQ(plate.List1, list1);
    EXPECT_EQ(plate.List2, list2);
}

/// The head of a frame with a value of its own in each field.
TFitHead frameHead()
{
    TFitHead head;
    head.FrameNumber = 1;
    head.date = 60000;
    head.time = 0.5;
    head.Width = 100;
    head.Height = 200;
    head.Exposure = 30;
    head.Instrument = "i";
    head.Filter = "R";
    head.PathFit = "a.fit";
    head.CRVAL1 = 1.5;
    head.CRVAL2 = 2.5;
    head.CD[0] = 3.5;
    head.CD[1] = 4.5;
    head.CD[2] = 5.5;
    head.CD[3] = 6.5;
    return head;
}

/// Checks the six fields of the solution, and that all others are those of frameHead.
void expectSolution(const TFitHead& head, const double (&solution)[6])
{
    const TFitHead before = frameHead();
    EXPECT_EQ(head.FrameNumber, before.FrameNumber);
    EXPECT_EQ(head.date, before.date);
    EXPECT_EQ(head.time, before.time);
    EXPECT_EQ(head.Width, before.Width);
    EXPECT_EQ(head.Height, before.Height);
    EXPECT_EQ(head.Exposure, before.Exposure);
    EXPECT_EQ(head.Instrument, before.Instrument);
    EXPECT_EQ(head.Filter, before.Filter);
    EXPECT_EQ(head.PathFit, before.PathFit);
    EXPECT_EQ(head.CRVAL1, solution[0]);
    EXPECT_EQ(head.CRVAL2, solution[1]);
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(head.CD[i], solution[i + 2]) << "CD " << i;
    }
}

void expectUnsolved(const std::string& path)
{
    SCOPED_TRACE(path);
    TFitHead head = frameHead();
    EXPECT_EQ(lIniASTAP(path, head), 0);
    expectSolution(head, {1.5, 2.5, 3.5, 4.5, 5.5, 6.5});
}

/// A table that is read already.
TFisherTable oldTable()
{
    return {.Column = 7, .Columns = {7.5}, .Rows = {77}, .Values = {{7.25}}};
}

void expectTable(const TFisherTable& table, int column, const Doubles& columns, const std::vector<int>& rows,
                 const std::vector<Doubles>& values)
{
    EXPECT_EQ(table.Column, column);
    EXPECT_EQ(table.Columns, columns);
    EXPECT_EQ(table.Rows, rows);
    EXPECT_EQ(table.Values, values);
}

/// The table of a file that is read whole, over a new one whose Column is 7.
TFisherTable tableOf(const std::string& bytes)
{
    return readBy(
        [](const std::string& path) {
            TFisherTable table;
            table.Column = 7;
            EXPECT_EQ(lFisherTable(path, 2.0, table), 0);
            return table;
        },
        bytes);
}

} // namespace

TEST(Bands, FieldsOfTheFirstLine)
{
    const struct
    {
        const char* bytes;
        Texts bands;
    } files[] = {
        {"R\tV\tB\tI\n", {"R", "V", "B", "I"}},
        {"R\tV\nB\n", {"R", "V"}},
        {"R", {"R"}},
        {"R\t\t I \n", {"R", "", " I "}},
        {"\tV\n", {"", "V"}},
        {"R\tV\t\t\r\n", {"R", "V"}},
        {"R V;B\n", {"R V;B"}},
        {"\nR\tV\n", {}},
        {"\t\t\n", {}},
        {"", {}},
    };
    for (const auto& [bytes, bands] : files) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(readBy(lBand, bytes), bands);
    }
}

TEST(NumbersOfAResult, AreAppendedBehindThreeLines)
{
    EXPECT_EQ(numbersOf("1\n2\n3\n0.51\n-1e-5\n 7 apples\nabc\n\n+8\t9\n"),
              (Doubles{-1.0, 0.51, -1e-5, 7.0, 0.0, 0.0, 8.0}));
    EXPECT_EQ(numbersOf("1\r\n2\r\n3\r\n4.5\r\n"), (Doubles{-1.0, 4.5}));
    EXPECT_EQ(numbersOf("1\n2\n3\n4.5"), (Doubles{-1.0, 4.5}));
}

TEST(NumbersOfAResult, ThreeLinesAddNothing)
{
    for (const char* bytes : {"", "\n", "1\n", "1\n2\n", "1\n2\n3", "1\n2\n3\n"}) {
        SCOPED_TRACE(bytes);
        EXPECT_EQ(numbersOf(bytes), Doubles{-1.0});
    }
}

TEST(ArrayText, RowsEndInATab)
{
    double values[] = {1, 0.5, -3, 1e-5, 1234567, 123.4567};
    const auto rows = [&values](long width, long height) {
        return writtenBy([&](const std::string& path) { arrayToTxt(path, "", values, width, height); });
    };
    EXPECT_EQ(rows(2, 1), "1\t0.5\t\n");
    EXPECT_EQ(rows(2, 3), "1\t0.5\t\n-3\t1e-05\t\n1.23457e+06\t123.457\t\n");
    EXPECT_EQ(rows(3, 2), "1\t0.5\t-3\t\n1e-05\t1.23457e+06\t123.457\t\n");
    EXPECT_EQ(rows(1, 2), "1\t\n0.5\t\n");
    EXPECT_EQ(rows(0, 2), "\n\n");
    EXPECT_EQ(rows(-1, 2), "\n\n");
}

TEST(ArrayText, HeightBelowOneLeavesAnEmptyFile)
{
    double value = 1;
    for (const long height : {0L, -1L, std::numeric_limits<long>::min()}) {
        SCOPED_TRACE(height);
        EXPECT_EQ(writtenBy([&](const std::string& path) { arrayToTxt(path, "", &value, 1, height); }), "");
    }
    EXPECT_EQ(writtenBy([](const std::string& path) { arrayToTxt(path, "", nullptr, 0, 0); }), "");
}

TEST(ArrayText, NoSeparatorComesBetweenFolderAndName)
{
    const TemporaryFolder folder;
    double value = 7;
    std::filesystem::create_directory(folder / "out");
    arrayToTxt(folder / "out/", "a.txt", &value, 1, 1);
    arrayToTxt(folder / "out", "b.txt", &value, 1, 1);
    arrayToTxt(folder / "out/", "c.txt", {pixelD{1, 2, 3, 4}});
    arrayToTxt(folder / "out", "d.txt", {pixelD{1, 2, 3, 4}});
    EXPECT_EQ(bytesOf(folder / "out/a.txt"), "7\t\n");
    EXPECT_EQ(bytesOf(folder / "outb.txt"), "7\t\n");
    EXPECT_EQ(bytesOf(folder / "out/c.txt"), "1\t2\t3\t\n");
    EXPECT_EQ(bytesOf(folder / "outd.txt"), "1\t2\t3\t\n");
    EXPECT_FALSE(exists(folder / "out/b.txt"));
    EXPECT_FALSE(exists(folder / "out/d.txt"));
}

TEST(ArrayText, PixelsHaveThreeOfTheirValues)
{
    EXPECT_EQ(writtenBy([](const std::string& path) {
                  arrayToTxt(path, "", std::vector<pixelD>{{1.5, -2, 3e10, 9}, {0.123456789, 0, -0.0, 9}});
              }),
              "1.5\t-2\t3e+10\t\n0.123457\t0\t-0\t\n");
    EXPECT_EQ(writtenBy([](const std::string& path) { arrayToTxt(path, "", std::vector<pixelD>{}); }), "");
}

TEST(PlateText, LengthValuesAndListsSideBySide)
{
    EXPECT_EQ(writtenBy([](const std::string& path) { sAstroPlate(path, plate()); }),
              "2\n10.6847\n41.269\n1.5\t-2.5\n3\t4\n");
    EXPECT_EQ(writtenBy([](const std::string& path) {
                  TPlateRec empty;
                  empty.Value1 = 359.9999999;
                  empty.Value2 = -1e-7;
                  sAstroPlate(path, empty);
              }),
              "0\n360\n-1e-07\n");
}

TEST(PlateText, ShorterSecondListIsFilledWithZeros)
{
    TPlateRec record = plate();
    record.List1 = {1, 2, 3};
    record.List2 = {7};
    EXPECT_EQ(writtenBy([&](const std::string& path) { sAstroPlate(path, record); }),
              "3\n10.6847\n41.269\n1\t7\n2\t0\n3\t0\n");
    record.List1 = {1};
    record.List2 = {7, 8};
    EXPECT_EQ(writtenBy([&](const std::string& path) { sAstroPlate(path, record); }),
              "1\n10.6847\n41.269\n1\t7\n");
}

TEST(PlateText, WrittenPlateComesBackToSixDigits)
{
    const TemporaryFolder folder;
    TPlateRec record = plate();
    record.List1 = {1.5, 3, 123456.789};
    record.List2 = {-2.5, 4, 1.23456789e-9};
    sAstroPlate(folder / "a.txt", record);
    expectPlate(lAstroPlate(folder / "a.txt"), 10.6847, 41.269, {1.5, 3, 123457}, {-2.5, 4, 1.23457e-9});
}

TEST(PlateText, PartsThatAreMissingAreZero)
{
    expectPlate(readBy(lAstroPlate, "3\n1.5\n2.5\n7\t8\n\n9\n"), 1.5, 2.5, {7, 0, 9}, {8, 0, 0});
    expectPlate(readBy(lAstroPlate, "3\n1.5\n2.5\n7\t8\tmore"), 1.5, 2.5, {7, 0, 0}, {8, 0, 0});
    expectPlate(readBy(lAstroPlate, "2\n1.5\n2.5\n\t8\nabc\t-1x\n"), 1.5, 2.5, {0, 0}, {8, -1});
}

TEST(PlateText, LinesBehindTheLastElementAreNotRead)
{
    expectPlate(readBy(lAstroPlate, "1\r\n1.5\r\n2.5\r\n7\t8\r\n9\t10\r\n"), 1.5, 2.5, {7}, {8});
    expectPlate(readBy(lAstroPlate, "0\n1.5\n2.5\n7\t8\n"), 1.5, 2.5, {}, {});
}

TEST(PlateText, LengthThatIsNegativeOrNoNumberIsZero)
{
    for (const char* length : {"-1", "-2147483648", "abc", "", "0x2", "2147483648"}) {
        SCOPED_TRACE(length);
        expectPlate(readBy(lAstroPlate, length + std::string("\n1.5\n2.5\n7\t8\n")), 1.5, 2.5, {}, {});
    }
}

TEST(PlateText, LengthIsCutTo32Bits)
{
    expectPlate(readBy(lAstroPlate, "4294967297\n1.5\n2.5\n7\t8\n9\t10\n"), 1.5, 2.5, {7}, {8});
}

TEST(PlateText, LengthThatNoFileOfThatSizeCanMeanIsRefused)
{
    for (const char* length : {"65537", "1000000", "2147483647"}) {
        SCOPED_TRACE(length);
        expectPlate(readBy(lAstroPlate, length + std::string("\n1.5\n2.5\n7\t8\n")), 0, 0, {}, {});
    }
}

TEST(PlateText, LengthUpTo65536IsTrusted)
{
    Doubles list1(65536);
    Doubles list2(65536);
    list1[0] = 7;
    list2[0] = 8;
    expectPlate(readBy(lAstroPlate, "65536\n1.5\n2.5\n7\t8\n"), 1.5, 2.5, list1, list2);
}

TEST(PlateText, GreaterLengthIsTakenFromAFileOfItsSize)
{
    std::string bytes = "70000\n1.5\n2.5\n";
    for (int i = 0; i < 70000; ++i) {
        bytes += "1\t2\n";
    }
    expectPlate(readBy(lAstroPlate, bytes), 1.5, 2.5, Doubles(70000, 1.0), Doubles(70000, 2.0));
}

TEST(ReductionParameters, TwoLinesOfEightColumns)
{
    EXPECT_EQ(writtenBy([](const std::string& path) {
                  SaveAstroParam(path, 10.6847, 41.269, 3.1, -3.1, 0, 90, 523, -0.1350001);
              }),
              "RA0\tDE0\tMx\tMy\tPoleRA\tPoleDE\tFocus\tGamma\n"
              "10.68\t41.27\t3.10\t-3.10\t0.00\t90.00\t523.000000\t-0.135000\n");
    EXPECT_EQ(writtenBy([](const std::string& path) {
                  SaveAstroParam(path, -0.001, 1234567.875, 1e10, 5, 6, 7, 1e-7, 12345678.5);
              }),
              "RA0\tDE0\tMx\tMy\tPoleRA\tPoleDE\tFocus\tGamma\n"
              "-0.00\t1234567.88\t10000000000.00\t5.00\t6.00\t7.00\t0.000000\t12345678.500000\n");
}

TEST(FitParameters, ModelOutputAndListsSideBySide)
{
    EXPECT_EQ(writtenBy([](const std::string& path) {
                  sParamAstroQRV_61(path, {1, 0.123456789}, {3, -4}, {5, 6e10}, 61, "out/night 1.txt");
              }),
              "61\t//ModelAPl\nout/night 1.txt\t//pathOUT\nXc\tXf\tXw\n1\t3\t5\n0.123457\t-4\t6e+10\n");
    EXPECT_EQ(writtenBy([](const std::string& path) { sParamAstroQRV_61(path, {}, {}, {}, -1, ""); }),
              "-1\t//ModelAPl\n\t//pathOUT\nXc\tXf\tXw\n");
}

TEST(FitParameters, ShorterListsAreFilledWithZeros)
{
    EXPECT_EQ(writtenBy([](const std::string& path) {
                  sParamAstroQRV_61(path, {1, 2}, {3}, {}, 3, "o");
              }),
              "3\t//ModelAPl\no\t//pathOUT\nXc\tXf\tXw\n1\t3\t0\n2\t0\t0\n");
}

TEST(RepresentativesText, EachEntryHasALine)
{
    std::vector<TRepresent> representatives(5);
    representatives[0] = {.X = 1.234, .Y = 2, .Value = 3.5, .Index = -1, .Items = {{1, 2, 3}, {4, 5, 6}}};
    representatives[2] = {.X = -0.001, .Y = 1234.567, .Value = -1.23449, .Index = 9, .Items = {{7, 8, 9}}};
    representatives[3] = {.X = 0, .Y = 0, .Value = 0, .Index = 0, .Items = {{-1, -2, -3}}};
    representatives[4] = {.X = 0, .Y = 0, .Value = 0, .Index = -5, .Items = {{0, 0, 0}}};
    EXPECT_EQ(writtenBy([&](const std::string& path) { SaveIndIC(path, representatives); }),
              "i\tIC\tj\tframe\tiblob\tkFstar\tpr\tX\tY\tmFcat\n"
              "0\t-1\t0\t1\t2\t3\t0\t1.23\t2.00\t3.500\n"
              "0\t-1\t1\t4\t5\t6\t0\t1.23\t2.00\t3.500\n"
              "2\t9\t0\t7\t8\t9\t1\t-0.00\t1234.57\t-1.234\n"
              "3\t0\t0\t-1\t-2\t-3\t1\t0.00\t0.00\t0.000\n"
              "4\t-5\t0\t0\t0\t0\t0\t0.00\t0.00\t0.000\n");
}

TEST(RepresentativesText, EmptyListIsTheColumnLine)
{
    EXPECT_EQ(writtenBy([](const std::string& path) { SaveIndIC(path, {}); }),
              "i\tIC\tj\tframe\tiblob\tkFstar\tpr\tX\tY\tmFcat\n");
}

TEST(TextResults, FileThatCannotBeWrittenRaisesCode7)
{
    expectCode7([](const std::string& path) { sAstroPlate(path, plate()); });
    expectCode7([](const std::string& path) { SaveAstroParam(path, 1, 2, 3, 4, 5, 6, 7, 8); });
    expectCode7([](const std::string& path) { sParamAstroQRV_61(path, {1}, {2}, {3}, 4, "o"); });
    expectCode7([](const std::string& path) { SaveIndIC(path, {}); });
    expectCode7([](const std::string& path) { arrayToTxt(path, "", std::vector<pixelD>(1)); });
    expectCode7([](const std::string& path) {
        double value = 1;
        arrayToTxt(path, "", &value, 1, 1);
    });
}

TEST(TextResults, FileThatCannotBeReadIsEmpty)
{
    const TemporaryFolder folder;
    std::filesystem::create_directory(folder / "folder");
    for (const std::string& path :
         {std::string(), folder / "missing.txt", folder / "missing/a.txt", folder / "folder"})
    {
        SCOPED_TRACE(path);
        EXPECT_EQ(lBand(path), Texts{});
        Doubles values{1};
        LoadResult61(path, values);
        EXPECT_EQ(values, Doubles{1});
        expectPlate(lAstroPlate(path), 0, 0, {}, {});
        expectUnsolved(path);
    }
    EXPECT_FALSE(exists(folder / "missing.txt"));
}

TEST(PlateSolution, RealSolutionFillsCentreAndMatrix)
{
    TFitHead head = frameHead();
    EXPECT_EQ(lIniASTAP(fixture("astap/solved.ini"), head), 1);
    expectSolution(head, {254.23046742390622, -40.311880588850023, 3.5245253250848707e-4,
                          5.8334097357301367e-4, -5.8335417754934037e-4, 3.5236170894630648e-4});
}

TEST(PlateSolution, LineEndsOfTwoBytesAreReadAlike)
{
    TFitHead head = frameHead();
    EXPECT_EQ(lIniASTAP(fixture("astap/solved_line_ends_of_two_bytes.ini"), head), 1);
    expectSolution(head, {315.41876883120699, 44.030690739232476, -2.5169979766509774e-4,
                          -1.9112853067279516e-3, -1.9128023414620393e-3, 2.5277105350825587e-4});
}

TEST(PlateSolution, OtherFirstLineLeavesTheHead)
{
    expectUnsolved(fixture("astap/failed_behind_an_empty_line.ini"));
    const std::string rest = "\nA=1\nA=2\nA=3\nA=4\nA=5\nA=6\nA=7\nA=8\nA=9\nA=10\nA=11\nA=12\n";
    for (const char* first : {"PLTSOLVD=F", "", "PLTSOLVD=T ", " PLTSOLVD=T", "PLTSOLVD = T", "pltsolvd=t",
                              "PLTSOLVD=TRUE", "PLTSOLVD=", "\nPLTSOLVD=T"})
    {
        const TemporaryFolder folder;
        makeFile(folder / "a.ini", first + rest);
        SCOPED_TRACE(first);
        expectUnsolved(folder / "a.ini");
    }
    const TemporaryFolder folder;
    makeFile(folder / "empty.ini", "");
    expectUnsolved(folder / "empty.ini");
}

TEST(PlateSolution, LinesAreTakenByTheirPlaces)
{
    TFitHead head = frameHead();
    const TemporaryFolder folder;
    makeFile(folder / "a.ini", "PLTSOLVD=T\nCRVAL1=1\nCRVAL2=2\nX=3\n=4\nA=5\nA=6\nA=7\nA=8\n"
                               "Q=-9.5=1\nQ= 1e1x\nQ=abc\nCD = 12\nCD1_1=13\n");
    EXPECT_EQ(lIniASTAP(folder / "a.ini", head), 1);
    expectSolution(head, {3, 4, -9.5, 10, 0, 12});
}

TEST(PlateSolution, LineThatIsMissingOrHasNoValueIsZero)
{
    const struct
    {
        const char* bytes;
        double solution[6];
    } files[] = {
        {"PLTSOLVD=T", {0, 0, 0, 0, 0, 0}},
        {"PLTSOLVD=T\nA=1\nA=2\nA=3\n", {3, 0, 0, 0, 0, 0}},
        {"PLTSOLVD=T\nA=1\nA=2\n3\nA=\nA=5\nA=6\nA=7\nA=8\n\nA 10\nA=11\n", {0, 0, 0, 0, 11, 0}},
    };
    for (const auto& [bytes, solution] : files) {
        SCOPED_TRACE(bytes);
        const TemporaryFolder folder;
        makeFile(folder / "a.ini", bytes);
        TFitHead head = frameHead();
        EXPECT_EQ(lIniASTAP(folder / "a.ini", head), 1);
        expectSolution(head, solution);
    }
}

TEST(PlateSolution, PlateOfAHeadHasItsCentreAlone)
{
    expectPlate(FitHeadToPlate(frameHead()), 1.5, 2.5, {}, {});
}

TEST(FisherTable, ColumnsRowsAndValues)
{
    expectTable(tableOf("F, 0.95\nn\t1\t2\t3\n1\t161.4\t199.5\t215.7\n2\t18.51\t19\t19.16\n"), 2, {1, 2, 3},
                {1, 2}, {{161.4, 199.5, 215.7}, {18.51, 19, 19.16}});
}

TEST(FisherTable, ColumnIsTheLastOneThatIsNotZero)
{
    const struct
    {
        const char* line;
        int column;
        Doubles columns;
    } tables[] = {
        {"n\t1", 0, {1}},
        {"n\t0\t0\t5\t0", 2, {0, 0, 5, 0}},
        {"n\t5\t0\t0", 0, {5, 0, 0}},
        {"n\t0\t-1e-300", 1, {0, -1e-300}},
        {"9\t0\t0", 7, {0, 0}},
        {"n\t-0.0\tabc\t\t0", 7, {-0.0, 0, 0, 0}},
        {"9", 7, {}},
        {"", 7, {}},
        {"9\t\t\t", 7, {}},
    };
    for (const auto& [line, column, columns] : tables) {
        SCOPED_TRACE(line);
        expectTable(tableOf("F\n" + std::string(line) + "\n1\t2\n"), column, columns, {1}, {{2}});
    }
}

TEST(FisherTable, NumberAmongTheArgumentsIsNotLookedAt)
{
    for (const double value : {0.0, 2.0, -1.0, std::numeric_limits<double>::quiet_NaN()}) {
        SCOPED_TRACE(value);
        const TemporaryFolder folder;
        makeFile(folder / "a.txt", "F\nn\t1\t2\t0\n1\t5\n");
        TFisherTable table;
        EXPECT_EQ(lFisherTable(folder / "a.txt", value, table), 0);
        expectTable(table, 1, {1, 2, 0}, {1}, {{5}});
    }
}

TEST(FisherTable, RowsMayDifferInLength)
{
    expectTable(tableOf("F\r\nn\t1\r\n1\t5\t6\t7\r\n2\r\n\r\n-3x\t\tabc\t8\r\ninf\t9\r\n"), 0, {1},
                {1, 2, 0, -3, 0}, {{5, 6, 7}, {}, {}, {0, 0, 8}, {9}});
}

TEST(FisherTable, MissingFileIs4AndAShortOneIs2)
{
    const TemporaryFolder folder;
    const auto expectNone = [](const std::string& path, int code) {
        SCOPED_TRACE(path);
        TFisherTable table = oldTable();
        EXPECT_EQ(lFisherTable(path, 1.0, table), code);
        expectTable(table, 7, {7.5}, {77}, {{7.25}});
    };
    expectNone(folder / "missing.txt", 4);
    expectNone(folder / "missing/a.txt", 4);
    expectNone("", 4);
    for (const char* bytes : {"", "F\n", "F\nn\t1\t2", "F\nn\t1\t2\n"}) {
        SCOPED_TRACE(bytes);
        makeFile(folder / "a.txt", bytes);
        expectNone(folder / "a.txt", 2);
    }
    // A folder opens, and has no lines.
    std::filesystem::create_directory(folder / "folder");
    expectNone(folder / "folder", 2);
}

TEST(CoordinateDifferences, NineDecimalsWithTabsBetween)
{
    TCoordSat differences;
    EXPECT_EQ(DiffSysCoordSatToStr(differences),
              "0.000000000\t0.000000000\t0.000000000\t0.000000000\t0.000000000\t0.000000000\t0.000000000\t"
              "0.000000000\t0.000000000\t0.000000000\t0.000000000\t0.000000000\t0.000000000\t0.000000000\t"
              "0.000000000\t0.000000000\t0.000000000\t0.000000000\t0.000000000\t0.000000000\t0.000000000\t"
              "0.000000000\t0.000000000\t0.000000000");
    for (int i = 0; i < 24; ++i) {
        differences.Values[i] = i + 1;
    }
    differences.Values[0] = -0.0000000001;
    differences.Values[1] = 1234567890.5;
    differences.Values[23] = 1e-9;
    EXPECT_EQ(
        DiffSysCoordSatToStr(differences),
        "-0.000000000\t1234567890.500000000\t3.000000000\t4.000000000\t5.000000000\t6.000000000\t"
        "7.000000000\t8.000000000\t9.000000000\t10.000000000\t11.000000000\t12.000000000\t13.000000000\t"
        "14.000000000\t15.000000000\t16.000000000\t17.000000000\t18.000000000\t19.000000000\t"
        "20.000000000\t21.000000000\t22.000000000\t23.000000000\t0.000000001");
}

TEST(ResultOfAProgram, LastLineTellsCodeAndMessage)
{
    constexpr struct
    {
        const char* line;
        int code;
        const char* message;
    } lines[] = {
        {"2024-03-09 04:05:06.000789 Code=7//Error//in/night.mea", 7, "Error"},
        {"2024-03-09 04:05:06.000789 Code=0//OK//OK", 0, "OK"},
        {"2024-03-09 04:05:06.000789 Code=-3//a", -3, "a"},
        // The line is cut at blanks, so one word of the text is left.
        {"d t Code=7//Error opening file//in/night.mea", 7, "Error"},
        {"d t Code=7//", 7, ""},
        {"d t Code=7", 7, ""},
        {"d t Code=7////b", 7, ""},
        {"d t Code=7/a", 7, ""},
        {"d t Code=12abc//m", 12, "m"},
        {"d t Code=abc//m", 0, "m"},
        {"d t Code=//m", 0, "m"},
        {"d t xCode=7//m", 7, "m"},
        {"d t Code=7Code=8//m", 7, "m"},
        {"d t 7//m", 0, "m"},
        {"d t code=7//m", 0, "m"},
        {"d t //m", 0, "m"},
        {"d t m//Code=7", 0, "Code=7"},
        {"d t Code=4294967303//m", 7, "m"},
        // Each blank ends an item, and an empty one counts.
        {"d  Code=7//m", 7, "m"},
        {"d t  Code=7//m", 0, ""},
        {"  Code=7//m", 7, "m"},
        {"Code=7//m", 0, ""},
        {"d Code=7//m", 0, ""},
        {"d\tt\tCode=7//m", 0, ""},
    };
    const TemporaryFolder folder;
    for (const auto& [line, code, message] : lines) {
        SCOPED_TRACE(line);
        for (const char* end : {"", "\n", "\r\n"}) {
            makeFile(folder / "a.log", "d t Code=99//before\n" + std::string(line) + end);
            expectResult(LoadResultExe(folder / "a.log"), code, "OK", message);
        }
    }
}

TEST(ResultOfAProgram, EmptyLastLineIsCodeZero)
{
    const TemporaryFolder folder;
    for (const char* bytes : {"", "\n", "d t Code=7//m\n\n", "d t Code=7//m\n\t\n"}) {
        SCOPED_TRACE(bytes);
        makeFile(folder / "a.log", bytes);
        expectResult(LoadResultExe(folder / "a.log"), 0, "OK", "");
    }
}

TEST(ResultOfAProgram, MissingFileIsToldInBothTexts)
{
    const TemporaryFolder folder;
    for (const std::string& path : {std::string(), folder / "missing.log", folder / "missing/a.log"}) {
        SCOPED_TRACE(path);
        expectResult(LoadResultExe(path), -1, "errNoFileResult", "errNoFileResult");
    }
}

TEST(ResultOfAProgram, LineOfAResultFileIsRead)
{
    const TemporaryFolder folder;
    SaveLogCode(folder / "a.log", 0, "OK", "OK");
    SaveLogCode(folder / "a.log", 4, "missing", "a.fit");
    expectResult(LoadResultExe(folder / "a.log"), 4, "OK", "missing");
}
