// The fields of a head, and heads compared by each of them.

#pragma once

#include "records/track.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <iterator>
#include <string>

namespace headFields {

using Head = tavelinUtils::THeadTrVtor;
using Header = tavelinUtils::TMPCReportHeader;

inline constexpr double Head::*numbers[] = {
    &Head::HeadValue1,  &Head::HeadValue2,  &Head::HeadValue3,  &Head::X0,          &Head::Y0,
    &Head::Vx,          &Head::Vy,          &Head::HeadValue4,  &Head::HeadValue5,  &Head::HeadValue6,
    &Head::HeadValue7,  &Head::HeadValue8,  &Head::V_ra,        &Head::V_de,        &Head::V,
    &Head::HeadValue9,  &Head::DispX,       &Head::DispY,       &Head::DispXY,      &Head::HeadValue10,
    &Head::HeadValue11, &Head::LymX,        &Head::LymY,        &Head::LymXY,       &Head::m_m,
    &Head::m_rms,       &Head::PA,          &Head::HeadValue12, &Head::Angle_rms,   &Head::Length_rms,
    &Head::HeadValue13, &Head::HeadValue14, &Head::HeadValue15, &Head::HeadValue16, &Head::HeadValue17,
    &Head::HeadValue18, &Head::HeadValue19, &Head::HeadValue20, &Head::HeadValue21, &Head::HeadValue22,
    &Head::HeadValue23, &Head::HeadValue24, &Head::FindOrb};

inline constexpr std::string Head::*texts[] = {
    &Head::QRVName,   &Head::NORAD,      &Head::MPCChecker, &Head::HeadText1, &Head::HeadText2,
    &Head::HeadText3, &Head::telescope,  &Head::originator, &Head::Series,    &Head::REFERENCE_FRAME,
    &Head::ObsCode,   &Head::SourceFile, &Head::ResidFile};

inline constexpr std::string Header::*headerTexts[] = {&Header::COD, &Header::CON, &Header::OBS,
                                                       &Header::MEA, &Header::COM, &Header::TEL,
                                                       &Header::ACK, &Header::AC2, &Header::NET};

inline constexpr double tavelinUtils::TTrackResid::*residuals[] = {
    &tavelinUtils::TTrackResid::Value1, &tavelinUtils::TTrackResid::Value2,
    &tavelinUtils::TTrackResid::Value3, &tavelinUtils::TTrackResid::Value4};

} // namespace headFields

/// Checks the residuals, which no format fills: their lists are empty.
inline void expectSameResiduals(const tavelinUtils::TTrackResid& residuals,
                                const tavelinUtils::TTrackResid& expected)
{
    for (const auto member : headFields::residuals) {
        EXPECT_EQ(residuals.*member, expected.*member);
    }
    EXPECT_TRUE(residuals.List1.empty() && residuals.List2.empty());
    EXPECT_TRUE(residuals.List3.empty() && residuals.List4.empty());
}

/// Checks every field of a head. Where one differs, the message has its place in the lists above.
inline void expectSameHead(const tavelinUtils::THeadTrVtor& head, const tavelinUtils::THeadTrVtor& expected)
{
    for (std::size_t i = 0; i < std::size(headFields::numbers); ++i) {
        EXPECT_EQ(head.*headFields::numbers[i], expected.*headFields::numbers[i]) << "number " << i;
    }
    for (std::size_t i = 0; i < std::size(headFields::texts); ++i) {
        EXPECT_EQ(head.*headFields::texts[i], expected.*headFields::texts[i]) << "text " << i;
    }
    for (std::size_t i = 0; i < std::size(headFields::headerTexts); ++i) {
        EXPECT_EQ(head.MPCHeader.*headFields::headerTexts[i], expected.MPCHeader.*headFields::headerTexts[i])
            << "text " << i << " of the header";
    }
    EXPECT_EQ(head.MPCHeader.HeaderOn, expected.MPCHeader.HeaderOn);
    EXPECT_EQ(head.MPCHeader.HeaderFlag2, expected.MPCHeader.HeaderFlag2);
    EXPECT_EQ(head.N, expected.N);
    EXPECT_EQ(head.NMarks, expected.NMarks);
    EXPECT_EQ(head.TrMade, expected.TrMade);
    EXPECT_EQ(head.HeadInt, expected.HeadInt);
    expectSameResiduals(head.ResidFirst, expected.ResidFirst);
    expectSameResiduals(head.ResidSecond, expected.ResidSecond);
}
