// The fields of a mark, marks compared by each of them, and what conversions make of kinds and codes.

#pragma once

#include "records/mark.h"

#include <gtest/gtest.h>

#include <climits>
#include <cstddef>
#include <string>
#include <vector>

using Mark = tavelinUtils::TRecLabelPervichka_File;

/// A field of a mark, its first byte in the record and its value in a new mark.
template <class Value, class Shown = Value>
struct MarkField
{
    const char* name;
    Value Mark::*member;
    std::ptrdiff_t place;
    Shown value;
};

inline constexpr MarkField<double> markNumbers[] = {
    {"X_bf", &Mark::X_bf, 4, 0.0},
    {"Y_bf", &Mark::Y_bf, 12, 0.0},
    {"X_f", &Mark::X_f, 20, 0.0},
    {"Y_f", &Mark::Y_f, 28, 0.0},
    {"SNRafit", &Mark::SNRafit, 101, 0.0},
    {"SNRasegm", &Mark::SNRasegm, 109, 0.0},
    {"SNRpeak", &Mark::SNRpeak, 117, 0.0},
    {"FWHM", &Mark::FWHM, 125, 0.0},
    {"SigFit", &Mark::SigFit, 133, 0.0},
    {"RMSFit", &Mark::RMSFit, 141, 0.0},
    {"SNcorrnotnorm", &Mark::SNcorrnotnorm, 149, 0.0},
    {"corrnorm", &Mark::corrnorm, 157, 0.0},
    {"Exc", &Mark::Exc, 165, 0.0},
    {"Angle", &Mark::Angle, 173, 0.0},
    {"Length", &Mark::Length, 181, 0.0},
    {"Width", &Mark::Width, 189, 0.0},
    {"Radius", &Mark::Radius, 197, 0.0},
    {"A", &Mark::A, 205, 0.0},
    {"Asegm", &Mark::Asegm, 213, 0.0},
    {"Astrob", &Mark::Astrob, 221, 0.0},
    {"mInstr", &Mark::mInstr, 229, 0.0},
    {"mInstr1000", &Mark::mInstr1000, 237, 0.0},
    {"time", &Mark::time, 249, 0.0},
    {"time_bjd", &Mark::time_bjd, 261, 0.0},
    {"RA", &Mark::RA, 269, 0.0},
    {"DE", &Mark::DE, 277, 0.0},
    {"AuxValue", &Mark::AuxValue, 285, 0.0},
    {"m", &Mark::m, 293, 0.0},
    {"RefValue1", &Mark::RefValue1, 301, -1.0},
    {"RefValue2", &Mark::RefValue2, 309, -1.0},
    {"RefValue3", &Mark::RefValue3, 317, -1.0},
    {"RefValue4", &Mark::RefValue4, 325, -1.0},
    {"RefValue5", &Mark::RefValue5, 333, -1.0},
    {"RefValue6", &Mark::RefValue6, 341, -1.0},
    {"RefValue7", &Mark::RefValue7, 349, -1.0},
    {"RefValue8", &Mark::RefValue8, 357, -1.0},
    {"RefValue9", &Mark::RefValue9, 365, -1.0},
    {"Spare1", &Mark::Spare1, 485, 0.0},
    {"mEnsemble", &Mark::mEnsemble, 493, 0.0},
    {"Spare2", &Mark::Spare2, 501, 0.0},
    {"Spare3", &Mark::Spare3, 509, 0.0},
    {"mInstrComp", &Mark::mInstrComp, 517, 0.0},
    {"Spare4", &Mark::Spare4, 525, 0.0},
    {"Spare5", &Mark::Spare5, 533, 0.0},
    {"SpareTail", &Mark::SpareTail, 701, 0.0},
};

inline constexpr MarkField<int> markIntegers[] = {
    {"AuxInt1", &Mark::AuxInt1, 36, 0},
    {"AuxInt2", &Mark::AuxInt2, 40, 0},
    {"AuxInt3", &Mark::AuxInt3, 49, 0},
    {"iFRaw", &Mark::iFRaw, 53, 0},
    {"iF", &Mark::iF, 57, 0},
    {"AuxInt4", &Mark::AuxInt4, 61, 0},
    {"iB", &Mark::iB, 65, 0},
    {"AuxInt5", &Mark::AuxInt5, 69, 0},
    {"LinkIndex", &Mark::LinkIndex, 73, -1},
    {"date", &Mark::date, 245, 0},
    {"bjd", &Mark::bjd, 257, 0},
    {"Tag1", &Mark::Tag1, 373, 0},
    {"Tag2", &Mark::Tag2, 377, 0},
    {"Tag3", &Mark::Tag3, 381, 0},
    {"Tag4", &Mark::Tag4, 385, 0},
};

inline constexpr MarkField<std::string, const char*> markTexts[] = {
    {"filtr", &Mark::filtr, 389, "R"},        {"mjd", &Mark::mjd, 421, ""},
    {"QRVID", &Mark::QRVID, 453, ""},         {"SpareText", &Mark::SpareText, 541, ""},
    {"KNAME", &Mark::KNAME, 573, ""},         {"MTYPE", &Mark::MTYPE, 605, "DIF"},
    {"CNAME", &Mark::CNAME, 637, "ENSEMBLE"}, {"CHART", &Mark::CHART, 669, "na"},
};

/// Checks every field, so that a conversion which fills too much is seen as well.
inline void expectSame(const Mark& mark, const Mark& expected)
{
    EXPECT_EQ(static_cast<int>(tavelinUtils::BlobCode(mark.BlobCode)),
              static_cast<int>(tavelinUtils::BlobCode(expected.BlobCode)));
    EXPECT_EQ(static_cast<int>(tavelinUtils::TTypeBlob(mark.TypeBlob)),
              static_cast<int>(tavelinUtils::TTypeBlob(expected.TypeBlob)));
    EXPECT_EQ(bool(mark.AuxFlag), bool(expected.AuxFlag));
    EXPECT_EQ(std::vector<int>(mark.LinkList), std::vector<int>(expected.LinkList));
    for (const auto& field : markNumbers) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ(double(mark.*field.member), double(expected.*field.member));
    }
    for (const auto& field : markIntegers) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ(int(mark.*field.member), int(expected.*field.member));
    }
    for (const auto& field : markTexts) {
        SCOPED_TRACE(field.name);
        EXPECT_EQ(std::string(mark.*field.member), std::string(expected.*field.member));
    }
}

inline int codeOf(const Mark& mark)
{
    return static_cast<int>(tavelinUtils::BlobCode(mark.BlobCode));
}

inline int kindOf(const Mark& mark)
{
    return static_cast<int>(tavelinUtils::TTypeBlob(mark.TypeBlob));
}

/// An integer before a conversion, and after it.
struct Pair
{
    int from;
    int to;
};

/// Kinds of blobs before and after a way through an integer.
inline constexpr Pair kinds[] = {{-2, -1}, {-1, -1}, {0, 0},  {1, 1},   {2, 2},        {3, -1},      {4, -1},
                                 {5, -1},  {6, 6},   {7, -1}, {99, -1}, {INT_MAX, -1}, {INT_MIN, -1}};

/// Codes that nothing changes.
inline constexpr int keptCodes[] = {-1, 0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 99};
