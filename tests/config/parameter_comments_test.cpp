#include "config/parameter_comments.h"

#include <gtest/gtest.h>

#include <string>

using namespace tavelinUtils;

TEST(ParameterComments, CommentLinesOfParameterFiles)
{
    const struct
    {
        std::string line, source, note, sequenceid;
    } rows[] = {
        {"#Source>catalogue", "catalogue", "n", "q"},
        {"#Note>by hand, twice", "s", "by hand, twice", "q"},
        {"#Sequenceid>X16140EI", "s", "n", "X16140EI"},
        {"#Source> blanks ", " blanks ", "n", "q"},
        {"#Source>first>second", "first", "n", "q"},
        {"#Note>>second", "s", "", "q"},
        {"#Sequenceid>", "s", "n", ""},
        {"#Source>#Note>x", "#Note", "n", "q"},
        {"#Note", "s", "", "q"},
        {"", "s", "n", "q"},
        {">", "s", "n", "q"},
        {"Source>x", "s", "n", "q"},
        {"#source>x", "s", "n", "q"},
        {"# Source>x", "s", "n", "q"},
        {"#Source >x", "s", "n", "q"},
        {" #Source>x", "s", "n", "q"},
        {"#SequenceID>x", "s", "n", "q"},
        {"#Notes>x", "s", "n", "q"},
        {"x>#Source>y", "s", "n", "q"},
        {"#Other>x", "s", "n", "q"},
        {"1.5 // 2", "s", "n", "q"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.line);
        std::string source = "s";
        std::string note = "n";
        std::string sequenceid = "q";
        ParsComment(row.line, source, note, sequenceid);
        EXPECT_EQ(source, row.source);
        EXPECT_EQ(note, row.note);
        EXPECT_EQ(sequenceid, row.sequenceid);
    }
}
