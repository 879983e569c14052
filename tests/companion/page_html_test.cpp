// The page of contents that are given, whatever files they might come from.

#include "command/page_html.h"

#include <gmock/gmock.h>

#include <string>

namespace {

using namespace companion;
using testing::HasSubstr;
using testing::Not;

TEST(PageHtml, IsNamedAfterItsSitesOrWhatItWasMadeOf)
{
    PageContents contents;
    contents.tasks = {{"tasks/a.xml"}};
    EXPECT_THAT(pageDocument(contents), HasSubstr("<title>a.xml</title>"));
    contents.files = {{"nights/a.mea", "mea"}};
    EXPECT_THAT(pageDocument(contents), HasSubstr("<title>a.mea</title>"));
    contents.sites = {""};
    EXPECT_THAT(pageDocument(contents), HasSubstr("<title>a.mea</title>"));
    contents.files.push_back({"nights/b.mea", "mea"});
    EXPECT_THAT(pageDocument(contents), HasSubstr("<title>2 files</title>"));
    contents.sites = {"K88"};
    EXPECT_THAT(pageDocument(contents), HasSubstr("<title>K88</title>"));
    contents.sites = {"K88", "T9"};
    EXPECT_THAT(pageDocument(contents), HasSubstr("<title>2 sites</title>"));
}

TEST(PageHtml, TotalOfTheFindingsHasTheStyleOfTheWorst)
{
    PageContents contents;
    EXPECT_THAT(pageDocument(contents), HasSubstr("class=\"words good\""));
    contents.totals.notes = 1;
    EXPECT_THAT(pageDocument(contents), HasSubstr("class=\"words note\""));
    contents.totals.warnings = 2;
    EXPECT_THAT(pageDocument(contents), HasSubstr("class=\"words warning\""));
    EXPECT_THAT(pageDocument(contents), HasSubstr("2\u00a0warnings"));
    contents.totals.errors = 1;
    EXPECT_THAT(pageDocument(contents), HasSubstr("class=\"words error\""));
}

TEST(PageHtml, TasksSayWhatTheyAreAndWhatTheyLeft)
{
    PageContents contents;
    contents.tasks = {{"a.xml"}};
    EXPECT_THAT(pageDocument(contents), HasSubstr("It cannot be run, or its inputs cannot be read."));
    EXPECT_THAT(pageDocument(contents), Not(HasSubstr("id=\"task-1\"")));
    PageTask& task = contents.tasks.front();
    task.hasPlan = true;
    task.isReport = true;
    task.outputs = {{"out/a.txt", "mea", 5}, {"out/b.txt", "mea", 6}};
    EXPECT_THAT(pageDocument(contents), HasSubstr("A report: 2 files, 0 of 0 marks; it was not run yet."));
    EXPECT_THAT(pageDocument(contents), HasSubstr("<td>not written yet</td>"));
    task.isReport = false;
    task.outputs[0].isThere = true;
    task.outputs[0].found = 4;
    EXPECT_THAT(pageDocument(contents),
                HasSubstr("A conversion: 2 files, 0 of 0 marks; in the files are 4."));
    EXPECT_THAT(pageDocument(contents), HasSubstr("<td>other marks</td>"));
    EXPECT_THAT(pageDocument(contents), HasSubstr("<td>missing</td>"));
}

TEST(PageHtml, LastResultIsShownWithItsTexts)
{
    PageContents contents;
    contents.tasks = {{"a.xml"}};
    contents.tasks[0].results = {{7, "first", "", ""}, {0, "OK", "", ""}};
    EXPECT_THAT(pageDocument(contents), HasSubstr("Last result: code 0, <bdi>OK</bdi>"));
    contents.tasks[0].results.push_back({-1, "in.mea", "out.txt", ""});
    EXPECT_THAT(pageDocument(contents), HasSubstr("Last result: code -1, <bdi>in.mea: out.txt</bdi>"));
}

// A batch knows of a run that left nothing.
TEST(PageHtml, TaskThatFailedWasRun)
{
    PageTask task{"a.xml"};
    EXPECT_FALSE(task.wasRun());
    task.night.emplace();
    EXPECT_FALSE(task.wasRun());
    task.night->status = BatchStatus::findings;
    EXPECT_TRUE(task.wasRun());
    task.night->status = BatchStatus::failed;
    EXPECT_TRUE(task.wasRun());
}

TEST(PageHtml, ObjectsWithoutMagnitudesHaveTheirPathsAlone)
{
    PageContents contents;
    PageObject& object = contents.objects["A"];
    EXPECT_FALSE(object.canBePictured());
    object.paths = {{{60000.5, 15.0, -0.5}, {60000.6, 15.1, -0.5}}};
    EXPECT_TRUE(object.canBePictured());
    object.isPictured = true;
    EXPECT_THAT(pageDocument(contents), HasSubstr("id=\"o1s"));
    EXPECT_THAT(pageDocument(contents), Not(HasSubstr("id=\"o1l")));
    object.paths.clear();
    object.curves = {{"R", {{60000.5, 9.5, 0}}}};
    EXPECT_TRUE(object.canBePictured());
    EXPECT_THAT(pageDocument(contents), HasSubstr("id=\"o1l"));
}

TEST(PageHtml, PagesWithoutPicturesDoNotCountThem)
{
    PageContents contents;
    contents.objects["A"].marks = 1;
    contents.objects["B"].marks = 1;
    EXPECT_THAT(pageDocument(contents), Not(HasSubstr("pictures; their names")));
    contents.objects["B"].isPictured = true;
    EXPECT_THAT(pageDocument(contents), HasSubstr("1 object of 2 have pictures; their names"));
}

// The contents of one finding.
PageContents contentsOf(Finding found, FindingPlace place)
{
    found.places.push_back(std::move(place));
    PageContents contents;
    contents.findings[{found.severity, found.code}] = {1, {found}};
    return contents;
}

Finding someFinding()
{
    return finding("V415", {{"path", "out.txt"}});
}

TEST(PageHtml, SnippetOfAFindingHasItsPlaceMarked)
{
    const auto page = [](std::size_t column, std::size_t length) {
        return pageDocument(contentsOf(someFinding(), {1, column, length, "a line", "", "", {}}));
    };
    EXPECT_THAT(page(3, 4), HasSubstr("<pre>a <mark>line</mark></pre>"));
    EXPECT_THAT(page(3, 0), HasSubstr("<pre>a line</pre>"));
    EXPECT_THAT(page(0, 4), HasSubstr("<pre>a line</pre>"));
    EXPECT_THAT(page(99, 4), HasSubstr("<pre>a line</pre>"));
    EXPECT_THAT(pageDocument(contentsOf(someFinding(), {})), Not(HasSubstr("<pre>")));
}

TEST(PageHtml, LongSnippetIsCutBetweenCharacters)
{
    const auto page = [](const std::string& line) {
        return pageDocument(contentsOf(someFinding(), {1, 0, 0, line, "", "", {}}));
    };
    EXPECT_THAT(page(std::string(200, 'a')), HasSubstr("<pre>" + std::string(200, 'a') + "</pre>"));
    EXPECT_THAT(page(std::string(201, 'a')), HasSubstr("<pre>" + std::string(200, 'a') + " \u2026</pre>"));
    EXPECT_THAT(page(std::string(199, 'a') + "\u00e4"),
                HasSubstr("<pre>" + std::string(199, 'a') + " \u2026</pre>"));
    EXPECT_THAT(page(std::string(300, '\x80')), HasSubstr("<pre> \u2026</pre>"));
}

TEST(PageHtml, FindingsHaveTheirMarksAndHowManyThereAre)
{
    FindingPlace place;
    place.mark.series = 2;
    PageContents contents = contentsOf(someFinding().in("a.xml").times(3), place);
    contents.findings.begin()->second.count = 12;
    const std::string page = pageDocument(contents);
    EXPECT_THAT(page, HasSubstr("V415, 12 times"));
    EXPECT_THAT(page, HasSubstr("<bdi>a.xml</bdi>: <bdi>out.txt is missing</bdi> (3 times)"));
    EXPECT_THAT(page, HasSubstr("series 2"));
    EXPECT_THAT(page, HasSubstr("and 11 more"));
    EXPECT_THAT(page, HasSubstr("What it means"));
    EXPECT_THAT(pageDocument(contentsOf(someFinding(), {})),
                HasSubstr("<li><bdi>out.txt is missing</bdi></li>"));
}

TEST(PageHtml, CodeOfAnotherVersionHasNoMeaning)
{
    Finding found = someFinding();
    found.code = FindingCode::of("V999").value();
    EXPECT_THAT(pageDocument(contentsOf(found, {})), HasSubstr("V999"));
    EXPECT_THAT(pageDocument(contentsOf(found, {})), Not(HasSubstr("What it means")));
}

TEST(PageHtml, SumThatDoesNotAgreeIsShownAsAnError)
{
    PageContents contents;
    contents.lines.lines = 1;
    contents.lines.marks = 1;
    contents.lines.marksRead = 1;
    EXPECT_THAT(pageDocument(contents), Not(HasSubstr("the sum does not agree")));
    EXPECT_THAT(pageDocument(contents), HasSubstr("<b>1</b> line<"));
    EXPECT_THAT(pageDocument(contents), HasSubstr("<b>1</b> mark read<"));
    contents.lines.marksRead = 0;
    EXPECT_THAT(pageDocument(contents), HasSubstr("<span class=\"error\">the sum does not agree</span>"));
    contents.lines.lines = 3;
    EXPECT_THAT(pageDocument(contents), HasSubstr("<b>3</b> lines<"));
}

struct NightState
{
    BatchStatus status;
    const char* style;
};

const NightState nightStates[] = {
    {BatchStatus::upToDate, "good"},   {BatchStatus::good, "good"},         {BatchStatus::toRun, "waiting"},
    {BatchStatus::leftOut, "waiting"}, {BatchStatus::elsewhere, "waiting"}, {BatchStatus::findings, "error"},
    {BatchStatus::failed, "error"},    {BatchStatus::refused, "error"},     {BatchStatus::gone, "error"},
};

TEST(PageHtml, NightHasTheStyleOfItsState)
{
    for (const NightState& row : nightStates) {
        PageContents contents;
        contents.batches = 1;
        contents.tasks = {{"a.xml"}};
        contents.tasks[0].night = PageNight{row.status, "2024-01-20"};
        EXPECT_THAT(pageDocument(contents),
                    HasSubstr(std::string("<td class=\"") + row.style + "\"><a href=\"#night-1\""))
            << row.style;
    }
}

TEST(PageHtml, TasksOfNoKnownNightAreTheLast)
{
    PageContents contents;
    contents.batches = 1;
    contents.tasks = {{"a.xml"}, {"b.xml"}, {"c.xml"}};
    contents.tasks[0].night.emplace();
    contents.tasks[1].night = PageNight{BatchStatus::good, "2024-01-20"};
    const std::string page = pageDocument(contents);
    EXPECT_THAT(page, HasSubstr("<p>2 tasks: "));
    EXPECT_THAT(page, HasSubstr("<dt>nights</dt><dd>1</dd>"));
    EXPECT_LT(page.find("id=\"night-2\""), page.find("id=\"night-1\""));
}

} // namespace
