// How many marks a copy holds, by its text.

#include "command/ready_marks.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using companion::marksOfCopy;

constexpr const char* observation =
    "     AST1000  C2023 02 25.50000 01 00 00.000+00 30 00.00          9.50V      K88\n";

TEST(ReadyMarks, AreTheRowsOfBarredBlocksWhateverTheyHold)
{
    const std::string block = "# version=2022\n"
                              "# observatory\n"
                              "! mpcCode K88\n"
                              "trkSub |obsTime             \n"
                              "AST100Z|2023-02-25T12:00:00Z\n"
                              "AST100Z|2023-02-25T12:00Z   \n"
                              "       |                    \n";
    EXPECT_EQ(marksOfCopy(block, "ades.psv"), 3U);
    EXPECT_EQ(marksOfCopy(block + block, "ades.psv"), 6U);
    EXPECT_EQ(marksOfCopy("# version=2022\n! mpcCode K88\ntrkSub |obsTime\n", "ades.psv"), 0U);
    EXPECT_EQ(marksOfCopy("", "ades.psv"), 0U);
    EXPECT_EQ(marksOfCopy(block + '\n' + block, "ades.psv"), 6U);
}

TEST(ReadyMarks, AreTheLinesOfAReportToTheAavsoWhateverItsDelimiter)
{
    EXPECT_EQ(
        marksOfCopy("#TYPE=Extended\n#DELIM=;\n#NAME,DATE\nAST,1000;2460001.5\n\nB;2460001.6\n", "aavso"),
        2U);
    EXPECT_EQ(marksOfCopy("#TYPE=Extended\n", "aavso"), 0U);
}

TEST(ReadyMarks, AreNoHeaderLinesOf80ColumnsThatHoldADate)
{
    const std::string contact = "CON Founded on:2023 02 25.5" + std::string(53, 'x');
    ASSERT_EQ(contact.size(), 80U);
    EXPECT_EQ(marksOfCopy("COD K88\n" + contact + '\n' + observation, "mpc"), 1U);
    std::string ofNumber = observation;
    ofNumber.replace(0, 12, "00433       ");
    EXPECT_EQ(marksOfCopy(ofNumber + observation, "mpc"), 2U);
}

TEST(ReadyMarks, AreElementsAndAnglesOfMessages)
{
    EXPECT_EQ(marksOfCopy("<optical><trkSub>A</trkSub></optical><optical></optical>", "ades.xml"), 2U);
    EXPECT_EQ(marksOfCopy("DATA_START\nANGLE_1 = a 1\nANGLE_2 = a 2\nANGLE_1 = b 1\n", "tdm"), 2U);
    EXPECT_EQ(marksOfCopy("<ANGLE_1>1</ANGLE_1><ANGLE_2>1</ANGLE_2>", "tdm.xml"), 1U);
}

TEST(ReadyMarks, ACopyOfOtherMarksThanThoseOfTheInputIsAFaultOfTheAccounts)
{
    EXPECT_FALSE(companion::disagreement(observation, "mpc", 1));
    for (const std::size_t marks : {0U, 2U}) {
        const auto fault = companion::disagreement(observation, "mpc", marks);
        ASSERT_TRUE(fault);
        EXPECT_EQ(fault->code.text(), "V490");
        EXPECT_EQ(fault->text, "the accounts do not agree: the marks of the input and of the copy");
    }
}

} // namespace
