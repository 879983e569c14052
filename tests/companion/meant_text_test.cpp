// Lines that are as they are meant although they look a little like those that are mended.

#include "reading/meant_text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using companion::meantText;
using companion::MendUse;

std::string copyOf(const std::string& format, const std::string& text)
{
    return meantText(text, format, MendUse::copy).text;
}

const std::string report = "Measurements\n807\nconversion\n1\n\n\n#SSMAS   #INTER\nA\n"
                           "   Data        UT           CU           DE      RMS  m\n";

} // namespace

TEST(MeantText, MagnitudesOfSsmas)
{
    const std::string mark = "09.06.2016 05:56:24.00  16:47:17.48 -16.15.50.00 001 ";
    EXPECT_EQ(copyOf("ssmas", report + mark + "0-1.2\n"), report + mark + "-1.2\n");
    for (const char* magnitude : {"0-x\n", "0-\n", "0.12\n"}) {
        EXPECT_EQ(copyOf("ssmas", report + mark + magnitude), report + mark + magnitude);
    }
}

TEST(MeantText, MagnitudesOfATelegram)
{
    const std::string head = "MPC 807 A\n";
    const std::string mark = "090616 05562400 16471748 -16155070 ";
    EXPECT_EQ(copyOf("telegram", head + mark + "0010-2\nEND\n"), head + mark + "001-02\nEND\n");
    EXPECT_EQ(copyOf("telegram", head + mark + "0010-12\nEND\n"), head + mark + "001-12\nEND\n");
    EXPECT_EQ(copyOf("telegram", head + mark + "0010123\nEND\n"), head + mark + "001123\nEND\n");
    for (const char* magnitude : {"0010-x\nEND\n", "0010-123\nEND\n", "00101x3\nEND\n"}) {
        EXPECT_EQ(copyOf("telegram", head + mark + magnitude), head + mark + magnitude);
    }
}

TEST(MeantText, SecondsOfATelegramThatAreNotTen)
{
    const std::string text = "MPC 807 A\n090616 055601234 164701100 -161501010 001221\nEND\n";
    EXPECT_EQ(copyOf("telegram", text), text);
}

TEST(MeantText, ObservationsOutOfTheirColumns)
{
    const std::string front = "A0125 of Vega  C2016 06 11.34739 ";
    const std::string back = "         21.1 R      H21\n";
    const std::string place = "21 25 23.06 08 48 57.9 ";
    const std::string line = "     XL90E5A  C2016 06 11.34739 21 25 23.06 ";
    EXPECT_EQ(copyOf("mpc", line + "08 48 57.9          21.1 R      H21\n"),
              line + "+08 48 57.9          21.1 R      H21\n");
    for (const std::string& other : {line + "08 48 5\n", line + "08 48 57.9          21.1 R\n",
                                     line + "08 48 57.9          21 R      H21\n", front + place + back})
    {
        EXPECT_EQ(copyOf("mpc", other), other);
    }
}

TEST(MeantText, ATableOfLineEndsAlone)
{
    EXPECT_EQ(copyOf("table", "\n\n"), "\n\n");
}
