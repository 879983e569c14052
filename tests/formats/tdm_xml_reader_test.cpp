#include "formats/tdm_xml.h"

#include "support/measured_marks.h"
#include "support/places.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

#include <tinyxml.h>

using namespace tavelinUtils;

namespace {

using Marks = std::vector<TRecLabelPervichka_File>;
using Tracks = std::vector<TrackVtorichka>;

// A document that the reader is made for, around the children of "segment".
std::string messageOf(const std::string& segment)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n<tdm><header/><body><segment>" + segment +
           "</segment></body></tdm>";
}

// The tracks of a file that holds the bytes; checks that it could be loaded.
Tracks readBytes(const std::string& bytes)
{
    Tracks tracks;
    EXPECT_TRUE(readBy([&tracks](const std::string& path) { return lTDMxml(path, tracks); }, bytes)) << bytes;
    EXPECT_EQ(tracks.size(), 1u) << bytes;
    tracks.resize(1);
    return tracks;
}

// The marks of "data" with these children.
Marks readMarks(const std::string& observations)
{
    return readBytes(messageOf("<data>" + observations + "</data>"))[0].Marks;
}

// The marks of an element with these children, after those that are there already.
void collect(const std::string& children, const std::string& tag, Marks& marks)
{
    TiXmlDocument document;
    document.Parse(("<data>" + children + "</data>").c_str());
    ASSERT_FALSE(document.Error()) << children;
    GetTDMObservations(document.FirstChildElement(), tag, marks);
}

void expectReadHead(const TrackVtorichka& track, const std::string& NORAD)
{
    expectHead(track, {"observatory", "telescope", "", NORAD});
}

const std::string angle1 =
    "<observation><EPOCH>2023-02-25T12:00:00.00000</EPOCH><ANGLE_1>15.0</ANGLE_1></observation>";
const std::string angle2 =
    "<observation><EPOCH>2023-02-25T12:00:00.00000</EPOCH><ANGLE_2>-0.5</ANGLE_2></observation>";
const std::string mag = "<observation><EPOCH>2023-02-25T12:00:00.00000</EPOCH><MAG>9.5</MAG></observation>";

} // namespace

TEST(TdmXmlReader, SegmentIsATrackWhoseNameIsItsNorad)
{
    const TrackVtorichka track =
        readBytes(messageOf("<metadata><TIME_SYSTEM>TAI</TIME_SYSTEM><PARTICIPANT_1>K88</PARTICIPANT_1>"
                            "<PARTICIPANT_2>12345</PARTICIPANT_2><REFERENCE_FRAME>EME2000</REFERENCE_FRAME>"
                            "</metadata><data>" +
                            angle1 + angle2 + mag + "</data>"))[0];
    expectReadHead(track, "12345");
    ASSERT_EQ(track.Marks.size(), 1u);
    expectTheMark(track.Marks[0]);
}

TEST(TdmXmlReader, TrackIsAppended)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml",
             messageOf("<metadata><PARTICIPANT_2>new</PARTICIPANT_2></metadata><data>" + mag + "</data>"));
    Tracks tracks = {trackNamed("old", {{.date = 1}})};
    EXPECT_TRUE(lTDMxml(folder / "a.xml", tracks));
    EXPECT_TRUE(lTDMxml(folder / "a.xml", tracks));
    ASSERT_EQ(tracks.size(), 3u);
    EXPECT_EQ(tracks[0].QRVName, "old");
    ASSERT_EQ(tracks[0].Marks.size(), 1u);
    EXPECT_EQ(measured(tracks[0].Marks[0]).date, 1);
    for (std::size_t i = 1; i < 3; ++i) {
        expectReadHead(tracks[i], "new");
        ASSERT_EQ(tracks[i].Marks.size(), 1u);
        expectMark(tracks[i].Marks[0], {60000, 0.5, 0.0, 0.0, 9.5});
    }
}

TEST(TdmXmlReader, FileThatCannotBeLoadedLeavesTheList)
{
    const TemporaryFolder folder;
    std::string nested;
    for (int i = 0; i < 10001; ++i) {
        nested += "<a>";
    }
    const std::string whole = messageOf("<data>" + angle1 + angle2 + mag + "</data>");
    std::vector<std::string> paths = {folder / "missing.xml", folder.path()};
    for (const std::string& bytes :
         {std::string(), std::string("\n"), std::string("no XML"), std::string("<?xml version=\"1.0\" ?>\n"),
          std::string("<?xml version=\"1.0\" ?>\n<!-- nothing -->\n"), std::string("<tdm><body></tdm>"),
          std::string("<tdm"), whole.substr(0, whole.size() - 3), whole.substr(0, whole.size() / 2), nested})
    {
        paths.push_back(folder / (std::to_string(paths.size()) + ".xml"));
        makeFile(paths.back(), bytes);
    }
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        Tracks tracks = {trackNamed("old", {{.date = 1}})};
        EXPECT_FALSE(lTDMxml(path, tracks));
        ASSERT_EQ(tracks.size(), 1u);
        EXPECT_EQ(tracks[0].QRVName, "old");
        EXPECT_EQ(tracks[0].Marks.size(), 1u);
    }
}

TEST(TdmXmlReader, WhatIsMissingIsAbsent)
{
    for (const std::string& bytes :
         {std::string("<tdm/>"), std::string("<tdm><header/></tdm>"), std::string("<tdm><body/></tdm>"),
          std::string("<tdm>text</tdm>"), std::string("<tdm><body><segment/></body></tdm>"),
          std::string("<tdm><segment><data>") + mag + "</data></segment></tdm>", // no body
          std::string("<body><segment><data>") + mag + "</data></segment></body>",
          std::string("<tdm><body><data>") + mag + "</data></body></tdm>", // no segment
          messageOf("<metadata/><data/>"), messageOf("<metadata/>"), messageOf("<data/>"), messageOf(mag)})
    { // no data
        SCOPED_TRACE(bytes);
        const TrackVtorichka track = readBytes(bytes)[0];
        expectReadHead(track, "");
        EXPECT_TRUE(track.Marks.empty());
    }
}

TEST(TdmXmlReader, MetadataAndDataDoNotNeedEachOther)
{
    const TrackVtorichka named =
        readBytes(messageOf("<metadata><PARTICIPANT_2>12345</PARTICIPANT_2></metadata>"))[0];
    expectReadHead(named, "12345");
    EXPECT_TRUE(named.Marks.empty());

    const TrackVtorichka marked = readBytes(messageOf("<data>" + angle1 + angle2 + mag + "</data>"))[0];
    expectReadHead(marked, "");
    ASSERT_EQ(marked.Marks.size(), 1u);
    expectTheMark(marked.Marks[0]);

    // Their order is free.
    const TrackVtorichka turned = readBytes(
        messageOf("<data>" + mag + "</data><metadata><PARTICIPANT_2>12345</PARTICIPANT_2></metadata>"))[0];
    expectReadHead(turned, "12345");
    EXPECT_EQ(turned.Marks.size(), 1u);
}

TEST(TdmXmlReader, RootMayHaveAnyName)
{
    const TrackVtorichka track = readBytes("<!-- c --><ndm><body><segment><metadata><PARTICIPANT_2>12345"
                                           "</PARTICIPANT_2></metadata></segment></body></ndm>")[0];
    expectReadHead(track, "12345");
}

TEST(TdmXmlReader, OnlyTheFirstOfEachElementIsRead)
{
    const std::string later = "<observation><EPOCH>2000-01-01T06:00:00</EPOCH><MAG>1.0</MAG></observation>";
    const std::string other =
        "<metadata><PARTICIPANT_2>no</PARTICIPANT_2></metadata><data>" + later + "</data>";
    const std::string segment =
        "<metadata><PARTICIPANT_2>yes</PARTICIPANT_2><PARTICIPANT_2>no</PARTICIPANT_2>"
        "</metadata><data>" +
        angle1 + angle2 + mag + "</data>" + other;
    const TrackVtorichka track =
        readBytes("<tdm><body><segment>" + segment + "</segment><segment>" + other +
                  "</segment></body><body><segment>" + other + "</segment></body></tdm>")[0];
    expectReadHead(track, "yes");
    ASSERT_EQ(track.Marks.size(), 1u);
    expectTheMark(track.Marks[0]);
}

TEST(TdmXmlReader, NameWithoutTextIsEmpty)
{
    for (const char* metadata : {"<metadata></metadata>", "<metadata><PARTICIPANT_2/></metadata>",
                                 "<metadata><PARTICIPANT_2></PARTICIPANT_2></metadata>",
                                 "<metadata><PARTICIPANT_2>   </PARTICIPANT_2></metadata>",
                                 "<metadata><participant_2>x</participant_2></metadata>",
                                 "<metadata><x><PARTICIPANT_2>x</PARTICIPANT_2></x></metadata>"})
    {
        SCOPED_TRACE(metadata);
        expectReadHead(readBytes(messageOf(metadata))[0], "");
    }
}

TEST(TdmXmlReader, BlanksOfANameSurvive)
{
    TiXmlBase::SetCondenseWhiteSpace(true);
    const TrackVtorichka track =
        readBytes(messageOf("<metadata><PARTICIPANT_2>  TRACK   NUMBER \n 1 </PARTICIPANT_2></metadata>"))[0];
    expectReadHead(track, "  TRACK   NUMBER \n 1 ");
    EXPECT_FALSE(TiXmlBase::IsWhiteSpaceCondensed());
}

TEST(TdmXmlReader, EntitiesOfANameAreRead)
{
    const TrackVtorichka track = readBytes(messageOf("<metadata><PARTICIPANT_2>&lt;R&amp;D&gt; &quot;a&quot; "
                                                     "&apos;b&apos; &#65;</PARTICIPANT_2></metadata>"))[0];
    expectReadHead(track, "<R&D> \"a\" 'b' A");
}

TEST(TdmXmlObservations, ValuesBuildUpToAMark)
{
    const Marks marks = readMarks(angle1 + angle2 + mag + angle1 + angle2 + mag);
    ASSERT_EQ(marks.size(), 2u);
    expectTheMark(marks[0]);
    expectTheMark(marks[1]);
}

TEST(TdmXmlObservations, OneElementMayHoldEverything)
{
    const Marks marks = readMarks("<observation><MAG>9.5</MAG><ANGLE_2>-0.5</ANGLE_2><ANGLE_1>15.0</ANGLE_1>"
                                  "<EPOCH>2023-02-25T12:00:00</EPOCH></observation>");
    ASSERT_EQ(marks.size(), 1u);
    expectTheMark(marks[0]);
}

TEST(TdmXmlObservations, OnlyAMagnitudeMakesAMark)
{
    EXPECT_TRUE(readMarks("").empty());
    EXPECT_TRUE(readMarks("<observation/>").empty());
    EXPECT_TRUE(readMarks(angle1 + angle2).empty());
    EXPECT_TRUE(readMarks(angle1 + angle2 + "<observation><MAG/></observation>").empty());
    EXPECT_TRUE(readMarks(angle1 + angle2 + "<observation><MAG>  </MAG></observation>").empty());
    EXPECT_EQ(readMarks(mag + angle1 + angle2).size(), 1u);
}

TEST(TdmXmlObservations, WhatAnElementDoesNotSayStays)
{
    const Marks marks =
        readMarks("<observation><MAG>1.0</MAG></observation>" + angle1 +
                  "<observation><MAG>2.0</MAG></observation>" + angle2 +
                  "<observation><MAG>3.0</MAG></observation>"
                  "<observation><EPOCH>2000-01-01T06:00:00</EPOCH></observation>"
                  "<observation><MAG>4.0</MAG></observation>"
                  "<observation><EPOCH/><ANGLE_1></ANGLE_1><ANGLE_2/><MAG>5.0</MAG></observation>");
    ASSERT_EQ(marks.size(), 5u);
    expectMark(marks[0], {0, 0.0, 0.0, 0.0, 1.0});
    expectMark(marks[1], {60000, 0.5, 15.0, 0.0, 2.0});
    expectMark(marks[2], {60000, 0.5, 15.0, -0.5, 3.0});
    expectMark(marks[3], {51544, 0.25, 15.0, -0.5, 4.0});
    expectMark(marks[4], {51544, 0.25, 15.0, -0.5, 5.0});
}

TEST(TdmXmlObservations, EpochIsThatOfTheLastElement)
{
    const Marks marks =
        readMarks("<observation><EPOCH>2000-01-01T06:00:00</EPOCH><ANGLE_1>15.0</ANGLE_1></observation>"
                  "<observation><EPOCH>2000-01-02T06:00:00</EPOCH><ANGLE_2>-0.5</ANGLE_2></observation>" +
                  mag);
    ASSERT_EQ(marks.size(), 1u);
    expectTheMark(marks[0]);
}

TEST(TdmXmlObservations, EpochOfMoreThanTwoPartsIsReadByItsFirstTwo)
{
    for (const char* epoch : {"2000-01-01T06:00:00UTC", "2000-01-01T06:00:00T56"}) {
        SCOPED_TRACE(epoch);
        const Marks marks =
            readMarks(mag + "<observation><EPOCH>" + epoch + "</EPOCH><MAG>1.0</MAG></observation>");
        ASSERT_EQ(marks.size(), 2u);
        expectMark(marks[1], {51544, 0.25, 0.0, 0.0, 1.0});
    }
}

TEST(TdmXmlObservations, EpochOfOnePartLeavesDateAndTime)
{
    for (const char* epoch : {"2000-01-01", "T", "2000-01-01T", "2000-01-01 06:00:00"}) {
        SCOPED_TRACE(epoch);
        const Marks marks =
            readMarks(mag + "<observation><EPOCH>" + epoch + "</EPOCH><MAG>1.0</MAG></observation>");
        ASSERT_EQ(marks.size(), 2u);
        expectMark(marks[1], {60000, 0.5, 0.0, 0.0, 1.0});
    }
}

TEST(TdmXmlObservations, EpochOfADayOfTheYearHasATimeAndNoDate)
{
    const Marks marks =
        readMarks("<observation><EPOCH>2005-159T12:00:00</EPOCH><MAG>1.0</MAG></observation>");
    ASSERT_EQ(marks.size(), 1u);
    expectMark(marks[0], {0, 0.5, 0.0, 0.0, 1.0});
}

TEST(TdmXmlObservations, MagnitudeIsCompleteAboveMinus1000)
{
    const struct
    {
        const char* text;
        bool complete;
        double m;
    } rows[] = {
        {"9.5", true, 9.5},    {"0", true, 0.0},
        {"-1.2", true, -1.2},  {"-999.9999", true, -999.9999},
        {"abc", true, 0.0},    {" 9.5mag", true, 9.5},
        {"+9.5", true, 9.5},   {"-1000.0", false, 0.0},
        {"-1000", false, 0.0}, {"-1000.0001", false, 0.0},
        {"-1e9", false, 0.0},  {"nan", false, 0.0},
    };
    for (const auto& [text, complete, m] : rows) {
        SCOPED_TRACE(text);
        const Marks marks =
            readMarks(angle1 + angle2 + "<observation><EPOCH>2023-02-25T12:00:00.00000</EPOCH><MAG>" + text +
                      "</MAG></observation>");
        ASSERT_EQ(marks.size(), complete ? 1u : 0u);
        if (complete) {
            expectMark(marks[0], {60000, 0.5, 15.0, -0.5, m});
        }
    }
}

TEST(TdmXmlObservations, MarkBehindOneThatIsNotCompleteIsTaken)
{
    const Marks marks = readMarks(angle1 + "<observation><MAG>-1000.0</MAG></observation>" + angle2 + mag);
    ASSERT_EQ(marks.size(), 1u);
    expectTheMark(marks[0]);
}

TEST(TdmXmlObservations, TextsThatAreNoNumbersAre0)
{
    const Marks marks = readMarks(angle1 + angle2 +
                                  "<observation><ANGLE_1>x</ANGLE_1></observation>"
                                  "<observation><ANGLE_2>12x</ANGLE_2></observation>" +
                                  mag);
    ASSERT_EQ(marks.size(), 1u);
    expectMark(marks[0], {60000, 0.5, 0.0, 12.0, 9.5});
}

TEST(TdmXmlObservations, OtherChildrenArePassedOver)
{
    const Marks marks =
        readMarks("<COMMENT>c</COMMENT><!-- c -->" + angle1 + "<Observation><MAG>1</MAG></Observation>" +
                  angle2 + "<x>" + mag + "</x>text" + mag);
    ASSERT_EQ(marks.size(), 1u);
    expectTheMark(marks[0]);
}

TEST(TdmXmlObservations, TagIsChosen)
{
    Marks marks;
    collect(mag + "<o><MAG>1.0</MAG></o>" + mag + "<o><MAG>2.0</MAG></o>", "o", marks);
    ASSERT_EQ(marks.size(), 2u);
    expectMark(marks[0], {0, 0.0, 0.0, 0.0, 1.0});
    expectMark(marks[1], {0, 0.0, 0.0, 0.0, 2.0});
}

TEST(TdmXmlObservations, MarksAreAppended)
{
    Marks marks = {{.date = 1, .RA = 99.0, .m = 5.0}};
    collect(mag, "observation", marks);
    collect("<observation><MAG>1.0</MAG></observation>", "observation", marks);
    ASSERT_EQ(marks.size(), 3u);
    EXPECT_EQ(measured(marks[0]).m, 5.0);
    // Each call begins anew: nothing stays of the list or of the call before.
    expectMark(marks[1], {60000, 0.5, 0.0, 0.0, 9.5});
    expectMark(marks[2], {0, 0.0, 0.0, 0.0, 1.0});
}

TEST(TdmXmlObservations, NullPointerHasNoChildren)
{
    Marks marks = {{.m = 5.0}};
    GetTDMObservations(nullptr, "observation", marks);
    EXPECT_EQ(marks.size(), 1u);
}

TEST(TdmXml, FirstSegmentOfThreeObservationsComesBack)
{
    TrackVtorichka first =
        trackNamed("<R&D> 1", {theMark(),
                               {.date = 60001, .time = 0.25, .RA = 187.5, .DE = 45.25, .m = -1.2},
                               {.date = 60002, .m = -1000.0}});
    first.originator = "MPC";
    first.telescope = "K88";
    first.REFERENCE_FRAME = "EME2000";
    const TemporaryFolder folder;
    ASSERT_TRUE(sTDMPOLxml(folder / "a.xml", {first, trackNamed("B", {{.date = 1}})}));
    Tracks tracks;
    ASSERT_TRUE(lTDMxml(folder / "a.xml", tracks));
    ASSERT_EQ(tracks.size(), 1u);
    expectReadHead(tracks[0], "<R&D> 1");
    ASSERT_EQ(tracks[0].Marks.size(), 2u);
    expectMark(tracks[0].Marks[0], {60000, 0.5, 15.0, -0.5, 9.5});
    expectMark(tracks[0].Marks[1], {60001, 0.25, 187.5, 45.25, -1.2});
}

// The year in front of each value is what is read of it.
TEST(TdmXml, ShapeOfOneObservationIsNotMadeForTheReader)
{
    const TemporaryFolder folder;
    ASSERT_TRUE(sTDMxml(folder / "a.xml", {trackNamed("A", {theMark()})}));
    Tracks tracks;
    ASSERT_TRUE(lTDMxml(folder / "a.xml", tracks));
    ASSERT_EQ(tracks.size(), 1u);
    expectReadHead(tracks[0], "A");
    ASSERT_EQ(tracks[0].Marks.size(), 1u);
    expectMark(tracks[0].Marks[0], {0, 0.0, 2023.0, 2023.0, 2023.0});
}

TEST(TdmXml, EmptyDocumentComesBackAsADefaultTrack)
{
    const TemporaryFolder folder;
    for (const auto writer : {&sTDMPOLxml, &sTDMxml}) {
        ASSERT_TRUE(writer(folder / "a.xml", {}));
        Tracks tracks;
        ASSERT_TRUE(lTDMxml(folder / "a.xml", tracks));
        ASSERT_EQ(tracks.size(), 1u);
        expectReadHead(tracks[0], "");
        EXPECT_TRUE(tracks[0].Marks.empty());
    }
}

TEST(TdmXmlOfOthers, FrequenciesAreNoMarks)
{
    Tracks tracks;
    EXPECT_TRUE(lTDMxml(fixture("tdm_xml/frequencies.xml"), tracks));
    ASSERT_EQ(tracks.size(), 1u);
    expectReadHead(tracks[0], "MYSC");
    EXPECT_TRUE(tracks[0].Marks.empty());
}

TEST(TdmXmlOfOthers, AnglesWithoutMagnitudesAreNoMarks)
{
    Tracks tracks;
    EXPECT_TRUE(lTDMxml(fixture("tdm_xml/two_segments.xml"), tracks));
    ASSERT_EQ(tracks.size(), 1u);
    expectReadHead(tracks[0], "SAT");
    EXPECT_TRUE(tracks[0].Marks.empty());
}

TEST(TdmXmlOfOthers, MessageWithoutParticipants)
{
    const TrackVtorichka track = readBytes(R"(<?xml version="1.0" encoding="UTF-8"?>
<tdm xmlns:xsi="http://www.w3.org/2001/XMLSchema-instance" id="CCSDS_TDM_VERS" version="1.0">
  <header>
    <COMMENT>c</COMMENT>
    <CREATION_DATE>2005-06-10T15:45:00.000</CREATION_DATE>
    <ORIGINATOR>NASA</ORIGINATOR>
  </header>
  <body>
    <segment>
      <metadata>
        <TIME_SYSTEM>UTC</TIME_SYSTEM>
      </metadata>
      <data>
        <observation>
          <EPOCH>2005-06-08T12:00:00.000</EPOCH>
          <MAG>11.5</MAG>
        </observation>
      </data>
    </segment>
  </body>
</tdm>
)")[0];
    expectReadHead(track, "");
    ASSERT_EQ(track.Marks.size(), 1u);
    expectMark(track.Marks[0], {53529, 0.5, 0.0, 0.0, 11.5});
}

TEST(TdmXmlOfOthers, DocumentThatIsNoMessage)
{
    const TrackVtorichka track = readBytes("<?xml version=\"1.0\"?>\n"
                                           "<!DOCTYPE foo SYSTEM \"file:./not-a-real-file.xml\">\n"
                                           "<foo>bar</foo>\n")[0];
    expectReadHead(track, "");
    EXPECT_TRUE(track.Marks.empty());
}
