// The measured values of marks: what a reader made of a mark, and what the marks of a published night are.

#pragma once

#include "records/mark.h"

#include <gtest/gtest.h>

#include <iosfwd>
#include <string>
#include <vector>

/// The five measured values of a mark. The fields of a mark are packed, so that no expectation can refer to
/// them; these are copies.
struct Measured
{
    int date;    // MJD
    double time; // fraction of the day
    double RA;   // degrees
    double DE;   // degrees
    double m;

    bool operator==(const Measured&) const = default;
};

/// For the messages of failed expectations.
std::ostream& operator<<(std::ostream& out, const Measured& values);

/// The measured values of a mark.
Measured measured(const tavelinUtils::TRecLabelPervichka_File& mark);

/// Whether the values are the expected ones, each number within the 4 units in the last place of
/// EXPECT_DOUBLE_EQ. For what must be exact there is EXPECT_EQ.
testing::AssertionResult isAbout(const Measured& values, const Measured& expected);

/// Checks that the measured values are about those, the filter is that, and everything else is as
/// constructed.
void expectMark(const tavelinUtils::TRecLabelPervichka_File& mark, const Measured& expected,
                const std::string& filtr = "R");

/// The mark that most tracks of the tests hold: noon of MJD 60000, 1 h, -30', 9.5 mag.
tavelinUtils::TRecLabelPervichka_File theMark();

/// Checks for that mark, and that everything else is as constructed.
void expectTheMark(const tavelinUtils::TRecLabelPervichka_File& mark);

/// A mark of the published nights.
struct PublishedMark
{
    std::string object;
    std::string night; // "K88_20240120": station and date
    Measured values;
};

/// The marks of all published nights; those of an object in the order of time.
std::vector<PublishedMark> publishedMarks();

/// The marks of one published night.
std::vector<PublishedMark> publishedMarks(const std::string& night);

/// How far the marks of a format may lie from the published ones.
struct Tolerance
{
    double time; // seconds
    double RA;   // seconds of time
    double DE;   // arcseconds
    double m;
};

/// Checks that the marks are the published ones. The published values are rounded to nine decimals.
void expectPublished(const std::vector<tavelinUtils::TRecLabelPervichka_File>& marks,
                     const std::vector<PublishedMark>& published, const Tolerance& tolerance);
