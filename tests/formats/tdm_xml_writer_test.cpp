#include "formats/tdm_xml.h"

#include "config/xml_document.h"

#include "support/failed_writes.h"
#include "support/locales.h"
#include "support/measured_marks.h"
#include "support/sexagesimal.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdio>
#include <string>
#include <vector>

#include <tinyxml.h>

using namespace tavelinUtils;

namespace {

using Marks = std::vector<TRecLabelPervichka_File>;
using Tracks = std::vector<TrackVtorichka>;

using Writer = bool (*)(std::string, const Tracks&);

std::string written(Writer writer, const Tracks& tracks)
{
    return writtenBy([&](const std::string& path) { EXPECT_TRUE(writer(path, tracks)); });
}

// The texts of a mark, and of a segment, as a document should have them.
struct MarkTexts
{
    std::string epoch;
    std::string RA;
    std::string DE;
    std::string m;
};

struct SegmentTexts
{
    std::string telescope;
    std::string name;
    std::string frame;
    std::vector<MarkTexts> marks;
};

TiXmlElement* branch(const char* name, const std::vector<TiXmlElement*>& children)
{
    auto* const element = new TiXmlElement(name);
    for (TiXmlElement* const child : children) {
        element->LinkEndChild(child);
    }
    return element;
}

TiXmlElement* text(const char* name, const std::string& value)
{
    return setTextNode(name, value, "");
}

TiXmlElement* header(const std::string& originator)
{
    return branch("header", {text("CREATION_DATE", "0-00-00T00:00:00"), text("ORIGINATOR", originator)});
}

std::string printed(const TiXmlDeclaration& declaration, TiXmlElement* root)
{
    const TemporaryFolder folder;
    TtavelinXmlDocument document(folder / "expected.xml");
    document.LinkEndChild(new TiXmlDeclaration(declaration));
    document.LinkEndChild(root);
    EXPECT_TRUE(document.SaveFile());
    return bytesOf(folder / "expected.xml");
}

// What TinyXML prints for the document of sTDMPOLxml.
std::string expectedOfThreeObservations(const std::string& originator,
                                        const std::vector<SegmentTexts>& segments)
{
    TiXmlElement* const body = branch("body", {});
    for (const SegmentTexts& segment : segments) {
        TiXmlElement* const data = branch("data", {});
        for (const MarkTexts& mark : segment.marks) {
            data->LinkEndChild(branch("observation", {text("EPOCH", mark.epoch), text("ANGLE_1", mark.RA)}));
            data->LinkEndChild(branch("observation", {text("EPOCH", mark.epoch), text("ANGLE_2", mark.DE)}));
            data->LinkEndChild(branch("observation", {text("EPOCH", mark.epoch), text("MAG", mark.m)}));
        }
        body->LinkEndChild(branch(
            "segment",
            {branch("metadata",
                    {text("TIME_SYSTEM", "UTC"), text("START_TIME", segment.marks.front().epoch),
                     text("STOP_TIME", segment.marks.back().epoch), text("PARTICIPANT_1", segment.telescope),
                     text("PARTICIPANT_2", segment.name), text("MODE", "SEQUENTIAL"), text("PATH", "2,1"),
                     text("ANGLE_TYPE", "RADEC"), text("REFERENCE_FRAME", segment.frame)}),
             data}));
    }
    TiXmlElement* const root = branch("tdm", {header(originator), body});
    root->SetAttribute("id", "CCSDS_TDM_VERS");
    root->SetAttribute("version", "2.0");
    return printed(TiXmlDeclaration("1.0", "UTF-8", ""), root);
}

// What TinyXML prints for the document of sTDMxml.
std::string expectedOfOneObservation(const std::string& originator, const std::vector<SegmentTexts>& segments)
{
    TiXmlElement* const body = branch("body", {});
    for (const SegmentTexts& segment : segments) {
        TiXmlElement* const data = branch("data", {});
        for (const MarkTexts& mark : segment.marks) {
            data->LinkEndChild(branch("observation", {text("ANGLE_1", mark.epoch + " " + mark.RA),
                                                      text("ANGLE_2", mark.epoch + " " + mark.DE),
                                                      text("MAG", mark.epoch + " " + mark.m)}));
        }
        body->LinkEndChild(branch(
            "segment", {branch("metadata",
                               {text("TIME_SYSTEM", "UTC"), text("START_TIME", segment.marks.front().epoch),
                                text("STOP_TIME", segment.marks.back().epoch),
                                text("PARTICIPANT_1", segment.telescope), text("PARTICIPANT_2", segment.name),
                                text("MODE", "SEQUENTIAL"), text("PATH", "2, 1"), text("ANGLE_TYPE", "RADEC"),
                                text("REFERENCE_FRAME", segment.frame), text("MAG_TYPE", "APPARENT")}),
                        data}));
    }
    return printed(TiXmlDeclaration("1.0", "", ""), branch("tdm", {header(originator), body}));
}

const Writer bothWriters[] = {sTDMPOLxml, sTDMxml};

} // namespace

TEST(TdmXmlWriter, ThreeObservationsForEachMark)
{
    TrackVtorichka track = trackNamed(
        "12345", {theMark(),
                  {.date = 60001, .time = day(1, 2, 3.456), .RA = 187.51234567, .DE = 45.25, .m = -1.23456}});
    track.originator = "MPC";
    track.telescope = "K88";
    track.REFERENCE_FRAME = "EME2000";
    EXPECT_EQ(written(sTDMPOLxml, {track}), R"(<?xml version="1.0" encoding="UTF-8" ?>
<tdm id="CCSDS_TDM_VERS" version="2.0">
    <header>
        <CREATION_DATE>0-00-00T00:00:00</CREATION_DATE>
        <ORIGINATOR>MPC</ORIGINATOR>
    </header>
    <body>
        <segment>
            <metadata>
                <TIME_SYSTEM>UTC</TIME_SYSTEM>
                <START_TIME>2023-02-25T12:00:00.00000</START_TIME>
                <STOP_TIME>2023-02-26T01:02:03.45600</STOP_TIME>
                <PARTICIPANT_1>K88</PARTICIPANT_1>
                <PARTICIPANT_2>12345</PARTICIPANT_2>
                <MODE>SEQUENTIAL</MODE>
                <PATH>2,1</PATH>
                <ANGLE_TYPE>RADEC</ANGLE_TYPE>
                <REFERENCE_FRAME>EME2000</REFERENCE_FRAME>
            </metadata>
            <data>
                <observation>
                    <EPOCH>2023-02-25T12:00:00.00000</EPOCH>
                    <ANGLE_1>15.0000000</ANGLE_1>
                </observation>
                <observation>
                    <EPOCH>2023-02-25T12:00:00.00000</EPOCH>
                    <ANGLE_2>-0.5000000</ANGLE_2>
                </observation>
                <observation>
                    <EPOCH>2023-02-25T12:00:00.00000</EPOCH>
                    <MAG>9.5000</MAG>
                </observation>
                <observation>
                    <EPOCH>2023-02-26T01:02:03.45600</EPOCH>
                    <ANGLE_1>187.5123457</ANGLE_1>
                </observation>
                <observation>
                    <EPOCH>2023-02-26T01:02:03.45600</EPOCH>
                    <ANGLE_2>45.2500000</ANGLE_2>
                </observation>
                <observation>
                    <EPOCH>2023-02-26T01:02:03.45600</EPOCH>
                    <MAG>-1.2346</MAG>
                </observation>
            </data>
        </segment>
    </body>
</tdm>
)");
}

TEST(TdmXmlWriter, OneObservationForEachMark)
{
    TrackVtorichka track = trackNamed(
        "12345", {theMark(),
                  {.date = 60001, .time = day(1, 2, 3.456), .RA = 187.51234567, .DE = 45.25, .m = -1.23456}});
    track.originator = "MPC";
    track.telescope = "K88";
    track.REFERENCE_FRAME = "EME2000";
    EXPECT_EQ(written(sTDMxml, {track}), R"(<?xml version="1.0" ?>
<tdm>
    <header>
        <CREATION_DATE>0-00-00T00:00:00</CREATION_DATE>
        <ORIGINATOR>MPC</ORIGINATOR>
    </header>
    <body>
        <segment>
            <metadata>
                <TIME_SYSTEM>UTC</TIME_SYSTEM>
                <START_TIME>2023-02-25T12:00:00.00000</START_TIME>
                <STOP_TIME>2023-02-26T01:02:03.45600</STOP_TIME>
                <PARTICIPANT_1>K88</PARTICIPANT_1>
                <PARTICIPANT_2>12345</PARTICIPANT_2>
                <MODE>SEQUENTIAL</MODE>
                <PATH>2, 1</PATH>
                <ANGLE_TYPE>RADEC</ANGLE_TYPE>
                <REFERENCE_FRAME>EME2000</REFERENCE_FRAME>
                <MAG_TYPE>APPARENT</MAG_TYPE>
            </metadata>
            <data>
                <observation>
                    <ANGLE_1>2023-02-25T12:00:00.00000 15.0000000</ANGLE_1>
                    <ANGLE_2>2023-02-25T12:00:00.00000 -0.5000000</ANGLE_2>
                    <MAG>2023-02-25T12:00:00.00000 9.5000</MAG>
                </observation>
                <observation>
                    <ANGLE_1>2023-02-26T01:02:03.45600 187.5123457</ANGLE_1>
                    <ANGLE_2>2023-02-26T01:02:03.45600 45.2500000</ANGLE_2>
                    <MAG>2023-02-26T01:02:03.45600 -1.2346</MAG>
                </observation>
            </data>
        </segment>
    </body>
</tdm>
)");
}

TEST(TdmXmlWriter, EmptyListGivesADocumentWithAnEmptyBody)
{
    EXPECT_EQ(written(sTDMPOLxml, {}), R"(<?xml version="1.0" encoding="UTF-8" ?>
<tdm id="CCSDS_TDM_VERS" version="2.0">
    <header>
        <CREATION_DATE>0-00-00T00:00:00</CREATION_DATE>
        <ORIGINATOR></ORIGINATOR>
    </header>
    <body />
</tdm>
)");
    EXPECT_EQ(written(sTDMxml, {}), R"(<?xml version="1.0" ?>
<tdm>
    <header>
        <CREATION_DATE>0-00-00T00:00:00</CREATION_DATE>
        <ORIGINATOR></ORIGINATOR>
    </header>
    <body />
</tdm>
)");
    EXPECT_EQ(written(sTDMPOLxml, {}), expectedOfThreeObservations("", {}));
    EXPECT_EQ(written(sTDMxml, {}), expectedOfOneObservation("", {}));
}

TEST(TdmXmlWriter, SegmentsFollowEachOtherUnderTheOriginatorOfTheFirst)
{
    TrackVtorichka first = trackNamed("A", {theMark()});
    first.originator = "O1";
    first.NORAD = "28884";
    TrackVtorichka second = trackNamed("A", {{.date = 51544, .time = 0.25, .RA = 0.0, .DE = 90.0, .m = 0.0}});
    second.originator = "O2";
    second.telescope = "T2";
    second.REFERENCE_FRAME = "B1950";
    const std::vector<SegmentTexts> segments = {
        {"telescope", "A", "ICRF", {{"2023-02-25T12:00:00.00000", "15.0000000", "-0.5000000", "9.5000"}}},
        {"T2", "A", "B1950", {{"2000-01-01T06:00:00.00000", "0.0000000", "90.0000000", "0.0000"}}},
    };
    EXPECT_EQ(written(sTDMPOLxml, {first, second}), expectedOfThreeObservations("O1", segments));
    EXPECT_EQ(written(sTDMxml, {first, second}), expectedOfOneObservation("O1", segments));
}

TEST(TdmXmlWriter, TrackWithoutMarksHasNoSegment)
{
    TrackVtorichka empty = trackNamed("E", {});
    empty.originator = "O1";
    const TrackVtorichka full = trackNamed("A", {theMark()});
    const SegmentTexts segment = {
        "telescope", "A", "ICRF", {{"2023-02-25T12:00:00.00000", "15.0000000", "-0.5000000", "9.5000"}}};
    const Tracks tracks = {empty, full, empty, empty, full, empty};
    EXPECT_EQ(written(sTDMPOLxml, tracks), expectedOfThreeObservations("O1", {segment, segment}));
    EXPECT_EQ(written(sTDMxml, tracks), expectedOfOneObservation("O1", {segment, segment}));
    EXPECT_EQ(written(sTDMPOLxml, {empty, empty}), expectedOfThreeObservations("O1", {}));
    EXPECT_EQ(written(sTDMxml, {empty, empty}), expectedOfOneObservation("O1", {}));
}

TEST(TdmXmlWriter, TextsAreEscaped)
{
    TrackVtorichka track = trackNamed("<R&D> \"a\" 'b'", {{.date = 60000}});
    track.originator = "A & B";
    track.telescope = "1 < 2 > 0";
    track.REFERENCE_FRAME = "\"ICRF\"";
    const std::string bytes = written(sTDMPOLxml, {track});
    for (const char* part :
         {"<ORIGINATOR>A &amp; B</ORIGINATOR>", "<PARTICIPANT_1>1 &lt; 2 &gt; 0</PARTICIPANT_1>",
          "<PARTICIPANT_2>&lt;R&amp;D&gt; &quot;a&quot; &apos;b&apos;</PARTICIPANT_2>",
          "<REFERENCE_FRAME>&quot;ICRF&quot;</REFERENCE_FRAME>"})
    {
        EXPECT_NE(bytes.find(part), std::string::npos) << part;
    }
}

TEST(TdmXmlWriter, TextsStandAsTinyXmlPrintsThem)
{
    for (const char* name : {"",         " ",        "  two  blanks  ",
                             "&",        "&&",       "&amp;",
                             "&#65;",    "&#x41;",   "&#x41",
                             "a&#x",     "<",        "]]>",
                             "<!--x-->", "\t",       "\n",
                             "a\r\nb",   "\x01\x1f", "\x7f",
                             "\xC3\x9C", "\xFF\xFE", "'\"",
                             "2008 TC3"})
    {
        SCOPED_TRACE(name);
        TrackVtorichka track = trackNamed(name, {theMark()});
        track.originator = name;
        track.telescope = name;
        track.REFERENCE_FRAME = name;
        const std::vector<SegmentTexts> segments = {
            {name, name, name, {{"2023-02-25T12:00:00.00000", "15.0000000", "-0.5000000", "9.5000"}}}};
        EXPECT_EQ(written(sTDMPOLxml, {track}), expectedOfThreeObservations(name, segments));
        EXPECT_EQ(written(sTDMxml, {track}), expectedOfOneObservation(name, segments));
    }
}

TEST(TdmXmlWriter, EpochsCarryAndNumbersAreRounded)
{
    const TrackVtorichka track = trackNamed(
        "A",
        {{.date = 60000, .time = day(12, 34, 59.999996), .RA = 359.99999999, .DE = -0.00000004, .m = 9.99996},
         {.date = 60000, .time = day(23, 59, 59.999996), .RA = 0.00000006, .DE = -90.0, .m = -0.0},
         {.date = 0, .time = day(12, 0, 9.996), .RA = 9.96, .DE = 9.94, .m = -1.2},
         {.date = 2147483647, .time = 0.5, .RA = -15.0, .DE = 10.0, .m = 10.0}});
    const std::vector<SegmentTexts> segments = {
        {"telescope",
         "A",
         "ICRF",
         {{"2023-02-25T12:35:00.00000", "360.0000000", "-0.0000000", "10.0000"},
          {"2023-02-25T00:00:00.00000", "0.0000001", "-90.0000000", "-0.0000"},
          {"1858-11-17T12:00:09.99600", "9.9600000", "9.9400000", "-1.2000"},
          {"0-00-00T12:00:00.00000", "-15.0000000", "10.0000000", "10.0000"}}}};
    EXPECT_EQ(written(sTDMPOLxml, {track}), expectedOfThreeObservations("observatory", segments));
    EXPECT_EQ(written(sTDMxml, {track}), expectedOfOneObservation("observatory", segments));
}

TEST(TdmXmlWriter, ListOfManyMarks)
{
    constexpr int count = 20000;
    TrackVtorichka track = trackNamed("A & B", {});
    std::vector<SegmentTexts> segments = {{"telescope", "A & B", "ICRF", {}}};
    for (int i = 0; i < count; ++i) {
        const int second = i * 4;
        track.Marks.push_back({.date = 60000 + i % 3,
                               .time = day(second / 3600, second / 60 % 60, second % 60),
                               .RA = i * 0.01,
                               .DE = -i * 0.001,
                               .m = i * 0.0005});
        const ReferenceLocale reference;
        char epoch[100];
        char RA[100];
        char DE[100];
        char m[100];
        std::snprintf(epoch, sizeof epoch, "2023-02-%02dT%02d:%02d:%02d.00000", 25 + i % 3, second / 3600,
                      second / 60 % 60, second % 60);
        std::snprintf(RA, sizeof RA, "%.7f", i * 0.01);
        std::snprintf(DE, sizeof DE, "%.7f", -i * 0.001);
        std::snprintf(m, sizeof m, "%.4f", i * 0.0005);
        segments[0].marks.push_back({epoch, RA, DE, m});
    }
    EXPECT_TRUE(written(sTDMPOLxml, {track}) == expectedOfThreeObservations("observatory", segments));
    EXPECT_TRUE(written(sTDMxml, {track}) == expectedOfOneObservation("observatory", segments));
}

TEST(TdmXmlWriter, ManyTracks)
{
    const TrackVtorichka track = trackNamed("A", {theMark()});
    const SegmentTexts segment = {
        "telescope", "A", "ICRF", {{"2023-02-25T12:00:00.00000", "15.0000000", "-0.5000000", "9.5000"}}};
    const Tracks tracks(2000, track);
    const std::vector<SegmentTexts> segments(2000, segment);
    EXPECT_TRUE(written(sTDMPOLxml, tracks) == expectedOfThreeObservations("observatory", segments));
    EXPECT_TRUE(written(sTDMxml, tracks) == expectedOfOneObservation("observatory", segments));
}

TEST(TdmXmlWriter, FileIsReplaced)
{
    const TemporaryFolder folder;
    for (const Writer writer : bothWriters) {
        makeFile(folder / "a.xml", std::string(10000, 'x'));
        EXPECT_TRUE(writer(folder / "a.xml", {}));
        EXPECT_EQ(bytesOf(folder / "a.xml"), written(writer, {}));
    }
}

TEST(TdmXmlWriter, FailedWriteGivesFalse)
{
    const Tracks tracks = {trackNamed("A", {{.date = 60000}})};
    for (const Writer writer : bothWriters) {
        forUnwritablePaths([&](const std::string& path) {
            EXPECT_FALSE(writer(path, tracks));
            EXPECT_FALSE(writer(path, {}));
        });
    }
}

TEST(TdmXmlWriter, CondensingOfBlanksIsOffBehindIt)
{
    const TemporaryFolder folder;
    for (const auto write : {sTDMxml, sTDMPOLxml}) {
        TiXmlBase::SetCondenseWhiteSpace(true);
        EXPECT_TRUE(write(folder / "a.xml", {}));
        EXPECT_FALSE(TiXmlBase::IsWhiteSpaceCondensed());
    }
}

namespace {

// What a sink leaves of tracks that all come in the same memory.
template <class Sink>
std::string writtenOneByOne(const Tracks& tracks)
{
    return writtenBy([&](const std::string& path) {
        Sink sink(path);
        TrackVtorichka reused;
        for (const TrackVtorichka& track : tracks) {
            reused = track;
            sink.add(reused);
        }
        EXPECT_TRUE(sink.save());
    });
}

} // namespace

TEST(TdmXmlSink, BodyIsDecidedAtTheFirstMark)
{
    TrackVtorichka empty = trackNamed("E", {});
    empty.originator = "O1";
    const TrackVtorichka full = trackNamed("A", {theMark()});
    const SegmentTexts segment = {
        "telescope", "A", "ICRF", {{"2023-02-25T12:00:00.00000", "15.0000000", "-0.5000000", "9.5000"}}};
    const Tracks late = {empty, empty, full};
    const Tracks never = {empty, empty};
    EXPECT_EQ(writtenOneByOne<TdmXmlSink>(late), expectedOfThreeObservations("O1", {segment}));
    EXPECT_EQ(writtenOneByOne<TdmMarkXmlSink>(late), expectedOfOneObservation("O1", {segment}));
    EXPECT_EQ(writtenOneByOne<TdmXmlSink>(never), expectedOfThreeObservations("O1", {}));
    EXPECT_EQ(writtenOneByOne<TdmMarkXmlSink>(never), expectedOfOneObservation("O1", {}));
}

TEST(TdmXmlSink, WithoutATrackItWritesADocument)
{
    EXPECT_EQ(writtenOneByOne<TdmXmlSink>({}), expectedOfThreeObservations("", {}));
    EXPECT_EQ(writtenOneByOne<TdmMarkXmlSink>({}), expectedOfOneObservation("", {}));
}

TEST(TdmXmlSink, NothingIsOpenedBeforeItIsSaved)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "old");
    TdmXmlSink sink(folder / "a.xml");
    const TrackVtorichka track = trackNamed("A", {theMark()});
    sink.add(track);
    EXPECT_EQ(bytesOf(folder / "a.xml"), "old");
    EXPECT_TRUE(sink.save());
    EXPECT_EQ(bytesOf(folder / "a.xml"), written(sTDMPOLxml, {track}));
}

TEST(TdmXmlSink, MegabytesGoOutBeforeItIsSaved)
{
    const TemporaryFolder folder;
    TdmXmlSink sink(folder / "a.xml");
    TrackVtorichka track = trackNamed("A", {});
    track.Marks.assign(3000, theMark());
    sink.add(track);
    EXPECT_EQ(bytesOf(folder / "a.xml").size(), std::size_t{1} << 20);
    EXPECT_TRUE(sink.save());
    const MarkTexts mark = {"2023-02-25T12:00:00.00000", "15.0000000", "-0.5000000", "9.5000"};
    const SegmentTexts segment = {"telescope", "A", "ICRF", std::vector<MarkTexts>(3000, mark)};
    EXPECT_TRUE(bytesOf(folder / "a.xml") == expectedOfThreeObservations("observatory", {segment}));
}

TEST(TdmXmlSink, FailureInTheMiddleIsToldAtTheEnd)
{
    TrackVtorichka track = trackNamed("A", {});
    track.Marks.assign(6000, theMark());
    forUnwritablePaths([&](const std::string& path) {
        TdmXmlSink sink(path);
        EXPECT_NO_THROW(sink.add(track));
        EXPECT_FALSE(sink.save());
    });
}
