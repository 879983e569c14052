#include "records/track.h"

#include "support/mark_fields.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

using namespace tavelinUtils;

namespace {

using Head = THeadTrVtor;

constexpr bool cleared = true;
constexpr bool kept = false;

struct Number
{
    const char* name;
    double Head::*member;
    double value;    // of a new head
    bool isComputed; // cleared by SetNilHeadTrack
};

const Number numbers[] = {
    {"HeadValue1", &Head::HeadValue1, 0.0, cleared},
    {"HeadValue2", &Head::HeadValue2, 0.0, cleared},
    {"HeadValue3", &Head::HeadValue3, 0.0, kept},
    {"X0", &Head::X0, 0.0, kept},
    {"Y0", &Head::Y0, 0.0, kept},
    {"Vx", &Head::Vx, 0.0, kept},
    {"Vy", &Head::Vy, 0.0, kept},
    {"HeadValue4", &Head::HeadValue4, 0.0, kept},
    {"HeadValue5", &Head::HeadValue5, 0.0, kept},
    {"HeadValue6", &Head::HeadValue6, 0.0, kept},
    {"HeadValue7", &Head::HeadValue7, 0.0, kept},
    {"HeadValue8", &Head::HeadValue8, 0.0, kept},
    {"V_ra", &Head::V_ra, 0.0, kept},
    {"V_de", &Head::V_de, 0.0, kept},
    {"V", &Head::V, 0.0, kept},
    {"HeadValue9", &Head::HeadValue9, 0.0, kept},
    {"DispX", &Head::DispX, 0.0, cleared},
    {"DispY", &Head::DispY, 0.0, cleared},
    {"DispXY", &Head::DispXY, 0.0, cleared},
    {"HeadValue10", &Head::HeadValue10, 0.0, cleared},
    {"HeadValue11", &Head::HeadValue11, 0.0, cleared},
    {"LymX", &Head::LymX, 0.0, cleared},
    {"LymY", &Head::LymY, 0.0, cleared},
    {"LymXY", &Head::LymXY, 0.0, cleared},
    {"m_m", &Head::m_m, 0.0, cleared},
    {"m_rms", &Head::m_rms, 0.0, cleared},
    {"PA", &Head::PA, 0.0, cleared},
    {"HeadValue12", &Head::HeadValue12, 0.0, cleared},
    {"Angle_rms", &Head::Angle_rms, 0.0, cleared},
    {"Length_rms", &Head::Length_rms, 0.0, cleared},
    {"HeadValue13", &Head::HeadValue13, 0.0, kept},
    {"HeadValue14", &Head::HeadValue14, 0.0, kept},
    {"HeadValue15", &Head::HeadValue15, 0.0, kept},
    {"HeadValue16", &Head::HeadValue16, 0.0, kept},
    {"HeadValue17", &Head::HeadValue17, 0.0, kept},
    {"HeadValue18", &Head::HeadValue18, 0.0, kept},
    {"HeadValue19", &Head::HeadValue19, 0.0, kept},
    {"HeadValue20", &Head::HeadValue20, 0.0, kept},
    {"HeadValue21", &Head::HeadValue21, 0.0, kept},
    {"HeadValue22", &Head::HeadValue22, 0.0, kept},
    {"HeadValue23", &Head::HeadValue23, 0.0, kept},
    {"HeadValue24", &Head::HeadValue24, 0.0, kept},
    {"FindOrb", &Head::FindOrb, 999.0, kept},
};

struct Text
{
    const char* name;
    std::string Head::*member;
    const char* value; // of a new head
};

const Text texts[] = {
    {"QRVName", &Head::QRVName, ""},
    {"NORAD", &Head::NORAD, ""},
    {"MPCChecker", &Head::MPCChecker, ""},
    {"HeadText1", &Head::HeadText1, ""},
    {"HeadText2", &Head::HeadText2, ""},
    {"HeadText3", &Head::HeadText3, ""},
    {"telescope", &Head::telescope, "telescope"},
    {"originator", &Head::originator, "observatory"},
    {"REFERENCE_FRAME", &Head::REFERENCE_FRAME, "ICRF"},
    {"Series", &Head::Series, ""},
    {"ObsCode", &Head::ObsCode, "aavso"},
    {"SourceFile", &Head::SourceFile, ""},
    {"ResidFile", &Head::ResidFile, ""},
};

struct HeaderText
{
    const char* name;
    std::string TMPCReportHeader::*member;
    const char* value; // of a new header
};

const HeaderText headerTexts[] = {
    {"COD", &TMPCReportHeader::COD, "500"}, {"CON", &TMPCReportHeader::CON, ""},
    {"OBS", &TMPCReportHeader::OBS, ""},    {"MEA", &TMPCReportHeader::MEA, ""},
    {"COM", &TMPCReportHeader::COM, ""},    {"TEL", &TMPCReportHeader::TEL, ""},
    {"ACK", &TMPCReportHeader::ACK, ""},    {"AC2", &TMPCReportHeader::AC2, ""},
    {"NET", &TMPCReportHeader::NET, ""},
};

std::vector<const void*> placesOf(const Head& head)
{
    return {&head.QRVName,     &head.NORAD,       &head.MPCChecker,
            &head.HeadText1,   &head.HeadText2,   &head.HeadText3,
            &head.telescope,   &head.originator,  &head.REFERENCE_FRAME,
            &head.Series,      &head.HeadValue1,  &head.HeadValue2,
            &head.HeadValue3,  &head.X0,          &head.Y0,
            &head.Vx,          &head.Vy,          &head.HeadValue4,
            &head.HeadValue5,  &head.ResidFirst,  &head.HeadValue6,
            &head.HeadValue7,  &head.HeadValue8,  &head.V_ra,
            &head.V_de,        &head.V,           &head.HeadValue9,
            &head.ResidSecond, &head.DispX,       &head.DispY,
            &head.DispXY,      &head.HeadValue10, &head.HeadValue11,
            &head.LymX,        &head.LymY,        &head.LymXY,
            &head.m_m,         &head.m_rms,       &head.PA,
            &head.HeadValue12, &head.Angle_rms,   &head.Length_rms,
            &head.HeadValue13, &head.HeadValue14, &head.HeadValue15,
            &head.HeadValue16, &head.HeadValue17, &head.HeadValue18,
            &head.HeadValue19, &head.HeadValue20, &head.HeadValue21,
            &head.HeadValue22, &head.HeadValue23, &head.HeadValue24,
            &head.FindOrb,     &head.N,           &head.NMarks,
            &head.TrMade,      &head.HeadInt,     &head.MPCHeader,
            &head.ObsCode,     &head.SourceFile,  &head.ResidFile};
}

std::vector<const void*> placesOf(const TMPCReportHeader& header)
{
    return {&header.COD, &header.CON, &header.OBS, &header.MEA,      &header.COM,        &header.TEL,
            &header.ACK, &header.AC2, &header.NET, &header.HeaderOn, &header.HeaderFlag2};
}

// Longer than what a string holds within itself.
std::string longText(const std::string& name)
{
    return name + " of a track that was filled by hand";
}

TTrackResid residuals(double first)
{
    TTrackResid resid;
    resid.Value1 = first;
    resid.Value2 = first + 1;
    resid.Value3 = first + 2;
    resid.Value4 = first + 3;
    resid.List1 = std::vector<double>{first};
    resid.List2 = std::vector<double>{first, 2.0};
    resid.List3 = std::vector<double>{first, 2.0, 3.0};
    resid.List4 = std::vector<double>{first, 2.0, 3.0, 4.0};
    return resid;
}

void expectResiduals(const TTrackResid& resid, double first)
{
    EXPECT_EQ(resid.Value1, first);
    EXPECT_EQ(resid.Value2, first + 1);
    EXPECT_EQ(resid.Value3, first + 2);
    EXPECT_EQ(resid.Value4, first + 3);
    EXPECT_EQ(resid.List1, (std::vector<double>{first}));
    EXPECT_EQ(resid.List2, (std::vector<double>{first, 2.0}));
    EXPECT_EQ(resid.List3, (std::vector<double>{first, 2.0, 3.0}));
    EXPECT_EQ(resid.List4, (std::vector<double>{first, 2.0, 3.0, 4.0}));
}

void expectNoResiduals(const TTrackResid& resid)
{
    EXPECT_EQ(resid.Value1, 0.0);
    EXPECT_EQ(resid.Value2, 0.0);
    EXPECT_EQ(resid.Value3, 0.0);
    EXPECT_EQ(resid.Value4, 0.0);
    EXPECT_TRUE(resid.List1.empty());
    EXPECT_TRUE(resid.List2.empty());
    EXPECT_TRUE(resid.List3.empty());
    EXPECT_TRUE(resid.List4.empty());
}

void expectNewHead(const Head& head)
{
    for (const Text& text : texts) {
        EXPECT_EQ(head.*text.member, text.value) << text.name;
    }
    for (const Number& number : numbers) {
        EXPECT_EQ(head.*number.member, number.value) << number.name;
    }
    for (const HeaderText& text : headerTexts) {
        EXPECT_EQ(head.MPCHeader.*text.member, text.value) << text.name;
    }
    EXPECT_TRUE(head.MPCHeader.HeaderOn);
    EXPECT_FALSE(head.MPCHeader.HeaderFlag2);
    expectNoResiduals(head.ResidFirst);
    expectNoResiduals(head.ResidSecond);
    EXPECT_EQ(head.N, 0);
    EXPECT_EQ(head.NMarks, 0);
    EXPECT_EQ(static_cast<int>(head.TrMade), 0);
    EXPECT_EQ(head.HeadInt, 0);
}

void expectNewTrack(const TrackVtorichka& track)
{
    expectNewHead(track);
    EXPECT_TRUE(track.Marks.empty());
    EXPECT_TRUE(track.InterBlobs.empty());
    EXPECT_TRUE(track.Candidates.empty());
    EXPECT_TRUE(track.Cast.empty());
}

// A track that has no field like a new one.
TrackVtorichka filledTrack()
{
    TrackVtorichka track;
    for (const Text& text : texts) {
        track.*text.member = longText(text.name);
    }
    double value = 0.5;
    for (const Number& number : numbers) {
        track.*number.member = value;
        value += 1.0;
    }
    for (const HeaderText& text : headerTexts) {
        track.MPCHeader.*text.member = longText(text.name);
    }
    track.MPCHeader.HeaderOn = false;
    track.MPCHeader.HeaderFlag2 = true;
    track.ResidFirst = residuals(11.0);
    track.ResidSecond = residuals(22.0);
    track.N = 31;
    track.NMarks = 32;
    track.TrMade = THowMakeTr::HOUGH;
    track.HeadInt = 33;
    TRecLabelPervichka_File mark;
    mark.date = 60000;
    mark.filtr = "V";
    mark.LinkList = std::vector<int>{7};
    track.Marks = {mark, TRecLabelPervichka_File{}};
    track.InterBlobs = {TInterBlob{.m_MPC = 17.5, .Value2 = 1.0, .Value3 = 2.0}};
    track.Candidates = std::vector<std::string>{longText("a"), "b"};
    track.Cast = std::vector<std::string>{longText("c"), "d", "e"};
    return track;
}

// The fields that SetNilHeadTrack leaves.
void expectKeptFields(const TrackVtorichka& track)
{
    for (const Text& text : texts) {
        EXPECT_EQ(track.*text.member, longText(text.name)) << text.name;
    }
    double value = 0.5;
    for (const Number& number : numbers) {
        if (!number.isComputed) {
            EXPECT_EQ(track.*number.member, value) << number.name;
        }
        value += 1.0;
    }
    for (const HeaderText& text : headerTexts) {
        EXPECT_EQ(track.MPCHeader.*text.member, longText(text.name)) << text.name;
    }
    EXPECT_FALSE(track.MPCHeader.HeaderOn);
    EXPECT_TRUE(track.MPCHeader.HeaderFlag2);
    expectResiduals(track.ResidFirst, 11.0);
    expectResiduals(track.ResidSecond, 22.0);
    EXPECT_EQ(track.NMarks, 32);
    ASSERT_EQ(track.Marks.size(), 2U);
    expectSame(track.Marks[0], {.LinkList = {7}, .date = 60000, .filtr = "V"});
    expectSame(track.Marks[1], {});
    ASSERT_EQ(track.InterBlobs.size(), 1U);
    EXPECT_EQ(track.InterBlobs[0].m_MPC, 17.5);
    EXPECT_EQ(track.InterBlobs[0].Value2, 1.0);
    EXPECT_EQ(track.InterBlobs[0].Value3, 2.0);
    EXPECT_EQ(track.Candidates, (std::vector<std::string>{longText("a"), "b"}));
    EXPECT_EQ(track.Cast, (std::vector<std::string>{longText("c"), "d", "e"}));
}

void expectFilled(const TrackVtorichka& track)
{
    expectKeptFields(track);
    double value = 0.5;
    for (const Number& number : numbers) {
        EXPECT_EQ(track.*number.member, value) << number.name;
        value += 1.0;
    }
    EXPECT_EQ(track.N, 31);
    EXPECT_EQ(track.HeadInt, 33);
    EXPECT_EQ(static_cast<int>(track.TrMade), 2);
}

TrackVtorichka checkedAs(const std::string& name)
{
    TrackVtorichka track;
    track.MPCChecker = name;
    return track;
}

bool isBefore(const std::string& a, const std::string& b)
{
    return SortTrackByName(checkedAs(a), checkedAs(b));
}

std::string headText(const Head& head)
{
    return head.QRVName + "/" + head.telescope;
}

} // namespace

TEST(Track, NewHeadHasItsDefaults)
{
    expectNewHead(Head{});
}

TEST(Track, NewTrackHasADefaultHeadAndEmptyLists)
{
    expectNewTrack(TrackVtorichka{});
    expectNewTrack(std::vector<TrackVtorichka>(2)[1]);
    TrackVtorichka track = filledTrack();
    track = TrackVtorichka{};
    expectNewTrack(track);
}

TEST(Track, FieldsOfAHeadStandInOrder)
{
    const Head head;
    const std::vector<const void*> places = placesOf(head);
    EXPECT_EQ(places.size(), 63U);
    EXPECT_EQ(places.front(), &head);
    EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
}

TEST(Track, FieldsOfAReportHeaderStandInOrder)
{
    const TMPCReportHeader header;
    const std::vector<const void*> places = placesOf(header);
    EXPECT_EQ(places.size(), 11U);
    EXPECT_EQ(places.front(), &header);
    EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
}

TEST(Track, ListsFollowTheHeadInOrder)
{
    const TrackVtorichka track;
    const std::vector<const void*> places = {static_cast<const Head*>(&track),
                                             &track.ResidFile,
                                             &track.Marks,
                                             &track.InterBlobs,
                                             &track.Candidates,
                                             &track.Cast};
    EXPECT_EQ(places.front(), &track);
    EXPECT_TRUE(std::is_sorted(places.begin(), places.end()));
}

TEST(Track, PassesWhereAHeadIsExpected)
{
    EXPECT_TRUE((std::is_convertible_v<TrackVtorichka*, Head*>));
    TrackVtorichka track = trackNamed("12345", {});
    track.telescope = "T1";
    EXPECT_EQ(headText(track), "12345/T1");
    Head& head = track;
    head.QRVName = "54321";
    EXPECT_EQ(track.QRVName, "54321");
}

TEST(Track, IsAPlainValue)
{
    EXPECT_FALSE(std::is_polymorphic_v<TrackVtorichka>);
    EXPECT_TRUE(std::is_copy_constructible_v<TrackVtorichka>);
    EXPECT_TRUE(std::is_copy_assignable_v<TrackVtorichka>);
    EXPECT_TRUE(std::is_nothrow_move_constructible_v<TrackVtorichka>) << "lists of tracks grow by moving";
}

TEST(Track, CopyOwnsItsMarksAndTexts)
{
    TrackVtorichka original = filledTrack();
    const TrackVtorichka copy = original;
    expectFilled(copy);
    original.Marks[0].filtr = "B";
    original.Marks[0].LinkList = std::vector<int>{};
    original.ResidFirst.List4[3] = -1.0;
    original.Candidates[0] = "";
    original = TrackVtorichka{};
    expectFilled(copy);
}

TEST(Track, AssignmentTakesEveryFieldAndTheLists)
{
    const TrackVtorichka filled = filledTrack();
    TrackVtorichka assigned = trackNamed("12345", std::vector<TRecLabelPervichka_File>(5));
    assigned = filled;
    expectFilled(assigned);
    assigned = TrackVtorichka{};
    expectFilled(filled);
}

TEST(Track, MoveTakesEveryField)
{
    TrackVtorichka original = filledTrack();
    const TRecLabelPervichka_File* const marks = original.Marks.data();
    TrackVtorichka moved = std::move(original);
    expectFilled(moved);
    EXPECT_EQ(moved.Marks.data(), marks) << "the marks change their owner and not their place";
    TrackVtorichka assigned;
    assigned = std::move(moved);
    expectFilled(assigned);
}

TEST(Track, NewReportHeaderHasItsDefaults)
{
    const TMPCReportHeader header;
    for (const HeaderText& text : headerTexts) {
        EXPECT_EQ(header.*text.member, text.value) << text.name;
    }
    EXPECT_TRUE(header.HeaderOn);
    EXPECT_FALSE(header.HeaderFlag2);
}

TEST(Track, NewResidualsAreZeroAndEmpty)
{
    expectNoResiduals(TTrackResid{});
}

TEST(Track, ResidualsOwnTheirLists)
{
    TTrackResid original = residuals(3.0);
    const TTrackResid copy = original;
    original.List1.clear();
    original.List4[0] = 0.0;
    original = TTrackResid{};
    expectResiduals(copy, 3.0);
}

TEST(Track, NewInterBlobHasNoMagnitudeAndUnsetValues)
{
    const TInterBlob blob;
    EXPECT_EQ(blob.m_MPC, 0.0);
    EXPECT_EQ(blob.Value2, -1.0);
    EXPECT_EQ(blob.Value3, -1.0);
    EXPECT_EQ(sizeof(TInterBlob), 24U);

    TrackVtorichka track;
    track.InterBlobs.resize(2);
    EXPECT_EQ(track.InterBlobs[1].m_MPC, 0.0);
    EXPECT_EQ(track.InterBlobs[1].Value2, -1.0);
    EXPECT_EQ(track.InterBlobs[1].Value3, -1.0);
}

TEST(Track, NewCastIsZero)
{
    const TCasts cast;
    EXPECT_EQ(cast.RA, 0.0);
    EXPECT_EQ(cast.DE, 0.0);
    EXPECT_EQ(cast.JD, 0.0);
    EXPECT_EQ(sizeof(TCasts), 24U);
    const auto& [first, second, third] = TCasts{.RA = 1.0, .DE = 2.0, .JD = 3.0};
    EXPECT_EQ(first, 1.0);
    EXPECT_EQ(second, 2.0);
    EXPECT_EQ(third, 3.0);
}

// Clearing.

TEST(SetNilHeadTrack, ClearsTheComputedPart)
{
    TrackVtorichka track = filledTrack();
    SetNilHeadTrack(track);
    int count = 0;
    for (const Number& number : numbers) {
        if (number.isComputed) {
            EXPECT_EQ(track.*number.member, 0.0) << number.name;
            ++count;
        }
    }
    EXPECT_EQ(count, 16) << "fourteen from DispX to Length_rms, HeadValue1 and HeadValue2";
    EXPECT_EQ(track.N, 0);
    EXPECT_EQ(track.HeadInt, 0);
}

TEST(SetNilHeadTrack, LeavesTheTrackAsMadeByHand)
{
    TrackVtorichka track = filledTrack();
    SetNilHeadTrack(track);
    EXPECT_EQ(static_cast<int>(track.TrMade), 5);
    EXPECT_EQ(HowMakeToStr(track.TrMade), "MANUA");

    TrackVtorichka fresh;
    SetNilHeadTrack(fresh);
    EXPECT_EQ(static_cast<int>(fresh.TrMade), 5);
    fresh.TrMade = THowMakeTr::STROB;
    expectNewTrack(fresh);
}

TEST(SetNilHeadTrack, LeavesEverythingElse)
{
    TrackVtorichka track = filledTrack();
    SetNilHeadTrack(track);
    expectKeptFields(track);
    SetNilHeadTrack(track);
    expectKeptFields(track);
}

// Order by name, and counts.

TEST(TrackOrder, ComparesTheBytesOfTheCheckedName)
{
    const struct
    {
        const char* first;
        const char* second;
    } rows[] = {
        {"abc", "abd"}, {"ab", "abc"}, {"", "a"}, {"B", "a"}, {"10", "9"}, {"Z", "\xc3\xa9"}, {" a", "a"},
    };
    for (const auto& [first, second] : rows) {
        SCOPED_TRACE(std::string(first) + " before " + second);
        EXPECT_TRUE(isBefore(first, second));
        EXPECT_FALSE(isBefore(second, first));
    }
    EXPECT_FALSE(isBefore("abc", "abc"));
    EXPECT_FALSE(isBefore("", ""));
}

TEST(TrackOrder, OtherNamesDoNotCount)
{
    TrackVtorichka a = checkedAs("a");
    TrackVtorichka b = checkedAs("b");
    a.QRVName = "z";
    a.NORAD = "z";
    b.QRVName = "a";
    b.NORAD = "a";
    EXPECT_TRUE(SortTrackByName(a, b));
    EXPECT_FALSE(SortTrackByName(b, a));
}

TEST(TrackCount, AddsTheMarksOfAllTracks)
{
    using Marks = std::vector<TRecLabelPervichka_File>;
    EXPECT_EQ(countMarks({}), 0U);
    EXPECT_EQ(countMarks({trackNamed("a", {})}), 0U);
    EXPECT_EQ(countMarks({trackNamed("a", Marks(2)), trackNamed("b", {}), trackNamed("c", Marks(3))}), 5U);
}
