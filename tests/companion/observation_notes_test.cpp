#include "receivers/observation_notes.h"

#include <gtest/gtest.h>

#include <optional>

using companion::noteOfCopy;

TEST(ObservationNotes, ACopyKeepsTheNoteOfItsReportWhereTheModeIsTheSame)
{
    EXPECT_EQ(noteOfCopy('B', "CMO"), 'B');
    EXPECT_EQ(noteOfCopy('B', "CCD"), 'C');
    EXPECT_EQ(noteOfCopy('C', "XYZ"), std::nullopt);
}

TEST(ObservationNotes, ANoteThatIsNoneIsThatOfTheMode)
{
    for (const char letter : {'D', 'x', '?', 's'}) {
        EXPECT_EQ(noteOfCopy(letter, "CMO"), 'B') << letter;
        EXPECT_EQ(noteOfCopy(letter, ""), 'C') << letter;
    }
}
