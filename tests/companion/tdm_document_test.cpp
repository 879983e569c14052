// The parts of a tracking data message, in particular of documents that are laid out otherwise than usual.

#include "reading/tdm_document.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

using companion::TdmDocument;
using companion::TdmEntry;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using testing::SizeIs;

std::vector<std::string> textsOf(const std::vector<TdmEntry>& entries)
{
    std::vector<std::string> texts;
    for (const TdmEntry& each : entries) {
        texts.push_back(each.key + '=' + each.value);
    }
    return texts;
}

std::string segment(const std::string& metadata, const std::string& data = "")
{
    return "<segment><metadata>" + metadata + "</metadata><data>" + data + "</data></segment>";
}

std::string message(const std::string& segments, const std::string& header = "")
{
    return "<tdm version=\"2.0\"><header>" + header + "</header><body>" + segments + "</body></tdm>";
}

TdmDocument documentOf(const std::string& text)
{
    const auto document = companion::tdmOfXml(text);
    EXPECT_TRUE(document.has_value()) << text;
    return document.value_or(TdmDocument{});
}

} // namespace

TEST(TdmDocument, MessagesAmongOthersAreOne)
{
    const std::string mode = "<MODE>SEQUENTIAL</MODE>";
    const TdmDocument document =
        documentOf("<ndm><opm/>" + message(segment(mode), "<ORIGINATOR>A</ORIGINATOR>") +
                   message(segment(mode), "<ORIGINATOR>B</ORIGINATOR>") + "</ndm>");
    EXPECT_THAT(textsOf(document.header), ElementsAre("CCSDS_TDM_VERS=2.0", "ORIGINATOR=A")); // of the first
    EXPECT_THAT(document.segments, SizeIs(2));
}

TEST(TdmDocument, ElementsOfABodyThatAreNoSegmentsAreSkipped)
{
    const TdmDocument document = documentOf(message("<piece><MODE>A</MODE></piece>" + segment("")));
    ASSERT_THAT(document.segments, SizeIs(1));
    EXPECT_THAT(document.segments[0].metadata, IsEmpty());
}

TEST(TdmDocument, ATextOfSeveralLinesIsOneLine)
{
    const TdmDocument document = documentOf(message(segment("<COMMENT>a&#10;b&#13;c&#9;d e</COMMENT>")));
    ASSERT_THAT(document.segments, SizeIs(1));
    EXPECT_THAT(textsOf(document.segments[0].metadata), ElementsAre("COMMENT=a b c d e"));
}

TEST(TdmDocument, WordsThatWouldBeginSomethingElseInTextAreNoMetadata)
{
    for (const std::string key : {"ANGLE_1", "MAG", "META_START", "META_STOP", "DATA_START", "DATA_STOP"}) {
        const TdmDocument document =
            documentOf(message(segment('<' + key + ">1</" + key + "><MODE>A</MODE>")));
        ASSERT_THAT(document.segments, SizeIs(1)) << key;
        EXPECT_THAT(textsOf(document.segments[0].metadata), ElementsAre("MODE=A"));
        EXPECT_THAT(document.others, ElementsAre(Pair(key, 1U)));
    }
    EXPECT_THAT(documentOf(message(segment("<a:>1</a:>"))).others, ElementsAre(Pair("", 1U)));
}

TEST(TdmDocument, MetadataBehindTheDataAreNone)
{
    const TdmDocument document = documentOf(
        message("<segment><data/><metadata><COMMENT>a</COMMENT><MODE>A</MODE></metadata></segment>"));
    ASSERT_THAT(document.segments, SizeIs(1));
    EXPECT_THAT(document.segments[0].metadata, IsEmpty());
    EXPECT_THAT(document.segments[0].comments, ElementsAre("a"));
    EXPECT_THAT(document.others, ElementsAre(Pair("MODE", 1U)));
}
