// What a reader made of a mark, and what the marks of a published night are.

#pragma once

#include "records/mark.h"

#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

/// Checks the five measured values of a mark, and that everything else is as constructed.
inline void expectMark(const tavelinUtils::TRecLabelPervichka_File& mark, int date, double time, double RA,
                       double DE, double m)
{
    EXPECT_EQ(int(mark.date), date);
    EXPECT_DOUBLE_EQ(double(mark.time), time);
    EXPECT_DOUBLE_EQ(double(mark.RA), RA);
    EXPECT_DOUBLE_EQ(double(mark.DE), DE);
    EXPECT_DOUBLE_EQ(double(mark.m), m);

    EXPECT_EQ(int(mark.iF), 0);
    EXPECT_EQ(int(mark.iB), 0);
    EXPECT_EQ(int(mark.LinkIndex), -1);
    EXPECT_EQ(double(mark.X_f), 0.0);
    EXPECT_EQ(double(mark.mInstr), 0.0);
    EXPECT_EQ(int(mark.bjd), 0);
    EXPECT_EQ(double(mark.time_bjd), 0.0);
    EXPECT_EQ(double(mark.AuxValue), 0.0);
    EXPECT_EQ(double(mark.RefValue1), -1.0);
    EXPECT_EQ(double(mark.RefValue9), -1.0);
    EXPECT_EQ(std::string(mark.filtr), "R");
    EXPECT_EQ(std::string(mark.mjd), "");
    EXPECT_EQ(std::string(mark.QRVID), "");
    EXPECT_EQ(std::string(mark.MTYPE), "DIF");
    EXPECT_EQ(std::string(mark.CNAME), "ENSEMBLE");
    EXPECT_EQ(std::string(mark.CHART), "na");
}

/// A mark of a published night; its angles in degrees.
struct PublishedMark
{
    int date;
    double time;
    double RA;
    double DE;
    double m;
};

/// The marks of a station's night, in the order of time.
inline std::vector<PublishedMark> publishedMarks(const std::string& station, const std::string& night)
{
    std::vector<PublishedMark> marks;
    std::istringstream lines(bytesOf(std::string(VOMAR_FIXTURES) + "/mea_nights/truth.csv"));
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(line, "object,mjd,ra_deg,dec_deg,mag,band,station,night,source");
    while (std::getline(lines, line)) {
        std::vector<std::string> cells;
        std::istringstream row(line);
        for (std::string cell; std::getline(row, cell, ',');) {
            cells.push_back(cell);
        }
        if (cells.size() == 9 && cells[6] == station && cells[7] == night) {
            const std::string& mjd = cells[1];
            marks.push_back({std::stoi(mjd), std::stod("0" + mjd.substr(mjd.find('.'))), std::stod(cells[2]),
                             std::stod(cells[3]), std::stod(cells[4])});
        }
    }
    return marks;
}

/// How far the marks of a format may lie from the published ones.
struct Tolerance
{
    double time; // seconds
    double RA;   // seconds of time
    double DE;   // arcseconds
    double m;
};

/// Checks that the marks are the published ones. The published values are rounded to nine decimals.
inline void expectPublished(const std::vector<tavelinUtils::TRecLabelPervichka_File>& marks,
                            const std::vector<PublishedMark>& published, const Tolerance& tolerance)
{
    constexpr double rounding = 1e-9;
    ASSERT_EQ(marks.size(), published.size());
    for (std::size_t i = 0; i < published.size(); ++i) {
        SCOPED_TRACE("mark " + std::to_string(i));
        EXPECT_EQ(int(marks[i].date), published[i].date);
        EXPECT_NEAR(double(marks[i].time), published[i].time, tolerance.time / 86400.0 + rounding);
        EXPECT_NEAR(double(marks[i].RA), published[i].RA, tolerance.RA / 240.0 + rounding);
        EXPECT_NEAR(double(marks[i].DE), published[i].DE, tolerance.DE / 3600.0 + rounding);
        EXPECT_NEAR(double(marks[i].m), published[i].m, tolerance.m + rounding);
    }
}
