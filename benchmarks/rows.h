// Rows of the table that a measurement prints: what was measured, and what is asked.

#pragma once

#include <string>
#include <vector>

/// What is asked of a figure. A figure for which no better one is wanted has the same twice.
struct Asked
{
    double atMost;
    double wanted;
    double reached = 0; ///< what stands where that is above what is asked: it must not become worse
};

struct Figure
{
    std::string what;
    double measured;
    Asked asked;

    bool above() const;

    /// Above what is asked, or what is reached, by more than a quarter.
    bool farAbove() const;

    /// So far above it that no load of the machine explains it.
    bool beyondDoubt() const;
};

struct Row
{
    std::string name;
    std::string tool; // time with its unit; empty where the figures say all
    std::string yardstick;
    std::vector<Figure> figures;

    /// Whether one of its figures is.
    bool farAbove() const;
    bool beyondDoubt() const;
};

/// A number with commas between its thousands.
std::string grouped(long number);

/// A number with decimals and its unit.
std::string withUnit(double number, int decimals, const std::string& unit);

void printHead();

/// Prints a line for each figure of the row, and "above" after those that are above what is asked.
void print(const Row& row);
