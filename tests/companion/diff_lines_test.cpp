#include "command/diff_lines.h"

#include <gmock/gmock.h>

namespace {

using namespace companion;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

// Two marks of an object at noon.
class TwoMarks
{
public:
    TwoMarks()
    {
        a.object = texts.objects.numberOf("A");
        b.object = a.object;
        pair.a = &a;
        pair.b = &b;
    }

    DiffLines lines() const
    {
        const FormatFacts& facts = *formatFacts("mea");
        return {facts, facts, toleranceOf(facts, facts), texts};
    }

    ComparedTexts texts{};
    ComparedMark a{60000, 0.5, 15.0, -0.5, 9.5, 0, 0, 0, 0, 1};
    ComparedMark b = a;
    ComparedPair pair{};
};

TEST(DiffLines, NumberThatDiffersIsNeverShownAsZero)
{
    TwoMarks marks;
    marks.pair.difference.angle = 1e-9;
    marks.pair.difference.inBand = true;
    EXPECT_THAT(marks.lines().text(marks.pair), Not(HasSubstr("angle")));
    marks.pair.difference.inAngle = true;
    EXPECT_THAT(marks.lines().text(marks.pair), HasSubstr("angle "));
}

TEST(DiffLines, WordThatIsMissingIsNone)
{
    TwoMarks marks;
    marks.pair.difference.inBand = true;
    EXPECT_THAT(marks.lines().text(marks.pair), EndsWith("  band none, none"));
    EXPECT_THAT(marks.lines().json(marks.pair).text(), HasSubstr("\"bands\":[null,null]"));
}

TEST(DiffLines, TimeOfNoCalendarIsShownAsUnknown)
{
    TwoMarks marks;
    EXPECT_EQ(marks.lines().text(marks.pair), "  A 2023-02-25T12:00:00.000");
    marks.a.day = ComparedMark::unknownDay;
    EXPECT_EQ(marks.lines().text(marks.pair), "  A ?");
}

} // namespace
