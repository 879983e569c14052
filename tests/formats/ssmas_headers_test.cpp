#include "formats/ssmas.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include <tinyxml.h>

using namespace tavelinUtils;

namespace {

using Lines = std::vector<std::string>;

std::vector<TSSMASHAED> readHeaders(const std::string& bytes)
{
    std::vector<TSSMASHAED> headers;
    readBy([&headers](const std::string& path) { lHeadersSSMAS(path, headers); }, bytes);
    return headers;
}

// "add/telescope" of each record.
Lines pairs(const std::vector<TSSMASHAED>& headers)
{
    Lines texts;
    for (const TSSMASHAED& header : headers) {
        texts.push_back(header.addtofilename + "/" + header.telescop);
    }
    return texts;
}

std::string record(const std::string& tag, const std::string& add, const std::string& telescop)
{
    return "<" + tag + "><addtofilename>" + add + "</addtofilename><telescop>" + telescop + "</telescop></" +
           tag + ">";
}

} // namespace

TEST(SsmasHeaders, ARecord)
{
    EXPECT_EQ(pairs(readHeaders("<?xml version=\"1.0\" ?><r>" + record("head", "add", "T1") + "</r>")),
              Lines{"add/T1"});
}

TEST(SsmasHeaders, RecordsOfOneNameComeAsOftenAsThereAreRecords)
{
    const std::string two = record("a", "1", "A") + record("a", "2", "B");
    EXPECT_EQ(pairs(readHeaders("<r>" + two + "</r>")), (Lines{"1/A", "2/B", "1/A", "2/B"}));
    EXPECT_EQ(pairs(readHeaders("<r>" + two + record("a", "3", "C") + "</r>")),
              (Lines{"1/A", "2/B", "3/C", "1/A", "2/B", "3/C", "1/A", "2/B", "3/C"}));
}

TEST(SsmasHeaders, RecordsOfDifferentNamesComeOnce)
{
    EXPECT_EQ(pairs(readHeaders("<r>" + record("a", "1", "A") + record("b", "2", "B") +
                                record("c", "3", "C") + "</r>")),
              (Lines{"1/A", "2/B", "3/C"}));
}

TEST(SsmasHeaders, NamesMayAlternate)
{
    EXPECT_EQ(pairs(readHeaders("<r>" + record("a", "1", "A") + record("b", "2", "B") +
                                record("a", "3", "C") + "</r>")),
              (Lines{"1/A", "3/C", "2/B", "1/A", "3/C"}));
}

TEST(SsmasHeaders, EachRecordStartsFresh)
{
    EXPECT_EQ(pairs(readHeaders("<r>" + record("a", "1", "A") +
                                "<b><telescop>B</telescop></b><c><addtofilename>3</addtofilename></c>"
                                "<d/><e><addtofilename/><telescop></telescop></e><f>text</f></r>")),
              (Lines{"1/A", "/B", "3/", "/", "/", "/"}));
}

TEST(SsmasHeaders, ChildrenThatAreNoElementsArePassedOver)
{
    EXPECT_EQ(pairs(readHeaders("<r>text<!-- c -->" + record("a", "1", "A") + "<!-- c -->text</r>")),
              Lines{"1/A"});
}

TEST(SsmasHeaders, BlanksAndEntitiesOfATextSurvive)
{
    TiXmlBase::SetCondenseWhiteSpace(true);
    EXPECT_EQ(pairs(readHeaders("<r>" + record("a", "  a   b ", "&lt;T&amp;1&gt;") + "</r>")),
              Lines{"  a   b /<T&1>"});
    EXPECT_FALSE(TiXmlBase::IsWhiteSpaceCondensed());
}

TEST(SsmasHeaders, RecordsAreAppended)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<r>" + record("a", "1", "A") + "</r>");
    std::vector<TSSMASHAED> headers = {{"0", "Z"}};
    lHeadersSSMAS(folder / "a.xml", headers);
    lHeadersSSMAS(folder / "a.xml", headers);
    EXPECT_EQ(pairs(headers), (Lines{"0/Z", "1/A", "1/A"}));
}

TEST(SsmasHeaders, NothingToReadLeavesTheList)
{
    const TemporaryFolder folder;
    Lines paths = {folder / "missing.xml", folder.path()};
    for (const char* bytes : {"", "no XML", "<?xml version=\"1.0\" ?>", "<r/>", "<r></r>", "<r>text</r>",
                              "<r><!-- c --></r>", "<r><a>", "<r><a></r>"})
    {
        paths.push_back(folder / (std::to_string(paths.size()) + ".xml"));
        makeFile(paths.back(), bytes);
    }
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        std::vector<TSSMASHAED> headers = {{"0", "Z"}};
        lHeadersSSMAS(path, headers);
        EXPECT_EQ(pairs(headers), Lines{"0/Z"});
    }
}

TEST(SsmasHeaders, AMillionRecordsAreTheMost)
{
    std::string children;
    for (int i = 0; i < 1000; ++i) {
        children += "<a/>";
    }
    EXPECT_EQ(readHeaders("<r>" + children + "</r>").size(), 1000000u);
    EXPECT_EQ(readHeaders("<r>" + children + "<b/></r>").size(), 0u);
    EXPECT_EQ(readHeaders("<r>" + children + "<a/></r>").size(), 0u);
}
