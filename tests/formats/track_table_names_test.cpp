#include "formats/track_table_names.h"

#include "formats/track_table.h"

#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

using Track = TrackVtorichka;
using Tracks = std::vector<TrackVtorichka>;
using Mark = TRecLabelPervichka_File;

} // namespace

TEST(TrackTableNames, NamesInTheLines)
{
    const struct
    {
        std::string given, qrvName;
        bool longName;
        THowMakeTr made;
        int number;
        std::string prefix, suffix, written;
    } rows[] = {
        {"given", "ABCDEFGHIJ", false, THowMakeTr::GSOHO, 7, "P", "S", "given"},
        {"a given long name", "A", true, THowMakeTr::STROB, 7, "", "", "a given long name"},
        {"", "ABCDEFGH", false, THowMakeTr::STROB, 7, "", "", "BCDEFGH"},
        {"", "ABCDEFGHI", false, THowMakeTr::STROB, 7, "", "", "BCDEFGHI"},
        {"", "ABCDEFGHIJKL", false, THowMakeTr::STROB, 7, "P", "S", "BCDEFGHI"},
        {"", "ABCDEFGHIJKL", false, THowMakeTr::GSOHO, 7, "", "", "BCDEFGHI"},
        {"", "ABCDEFGHIJKL", true, THowMakeTr::STROB, 7, "", "", "A0725"},
        {"", "ABCDEFGHIJKL", true, THowMakeTr::GSOHO, 7, "P", "S", "P007"},
        {"", "ABCDEFG", false, THowMakeTr::STROB, 7, "", "", "A0725"},
        {"", "ABCDEFG", true, THowMakeTr::STROB, 7, "", "", "A0725"},
        {"", "", false, THowMakeTr::STROB, 7, "", "", "A0725"},
        {"", "", false, THowMakeTr::SFAST, 12, "P", "", "P1225"},
        {"", "", false, THowMakeTr::HOUGH, 12, "", "S", "12S25"},
        {"", "", false, THowMakeTr::GSOHO, 12, "P", "S", "P012"},
        {"", "", false, THowMakeTr::MOSKH, 7, "", "", "007"},
        {"", "", false, THowMakeTr::MANUA, 123, "P", "S", "P123S5"},
        {"", "", false, THowMakeTr::STACK, 7, "", "", "A0725"},
        {"", "", false, THowMakeTr::UNKNO, 7, "", "", "A0725"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.given + "," + row.qrvName + "," + std::to_string(int(row.made)));
        Track track = trackNamed(row.qrvName, {Mark()});
        track.TrMade = row.made;
        track.N = 99;
        for (const bool flag : {false, true}) {
            const TemporaryFolder folder;
            sTrack(folder / "a.txt", "/data/night25/t.txt", row.prefix, row.suffix, row.number, row.longName,
                   track, row.given, "QRVName:Text\tN:Int\tName:Text", flag);
            EXPECT_EQ(bytesOf(folder / "a.txt"),
                      row.written + "\t" + std::to_string(row.number) + "\t" + row.written + "\t\n");
        }
    }
}

TEST(TrackTableNames, TracksHaveTheirOwnNumbersAndNames)
{
    Track longNamed = trackNamed("ABCDEFGHIJKL", {Mark()});
    longNamed.N = 3;
    longNamed.TrMade = THowMakeTr::GSOHO;
    Track nameless = trackNamed("", {Mark()});
    nameless.N = 8;
    Track satellite = nameless;
    satellite.TrMade = THowMakeTr::MOSKH;
    const Tracks tracks = {longNamed, nameless, satellite};

    const TemporaryFolder folder;
    for (const bool longName : {false, true}) {
        sListTrack(folder / "a.txt", "/data/night25/t.txt", "P", tracks, "S", longName, true,
                   "N\tName\tQRVName");
        EXPECT_EQ(bytesOf(folder / "a.txt"), "v2\nN\tName\tQRVName\n"
                                             "3\tABCDEFGHIJKL\tABCDEFGHIJKL\t\n---\n"
                                             "8\tP08S25\tP08S25\t\n---\n"
                                             "8\tP008\tP008\t\n---\n");
    }
}

TEST(TrackTableNames, ShortNames)
{
    const struct
    {
        std::string path;
        int number;
        std::string prefix, suffix, name;
    } rows[] = {
        {"/data/night25/t.txt", 7, "", "", "A0725"},
        {"/data/night25/t.txt", 0, "", "", "A0025"},
        {"/data/night25/t.txt", 9, "", "", "A0925"},
        {"/data/night25/t.txt", 10, "", "", "A1025"},
        {"/data/night25/t.txt", 99, "", "", "A9925"},
        {"/data/night25/t.txt", 100, "", "", "A1005"},
        {"/data/night25/t.txt", 1234, "", "", "A12345"},
        {"/data/night25/t.txt", -3, "", "", "A0-325"},
        {"/data/night25/t.txt", 7, "B", "", "B0725"},
        {"/data/night25/t.txt", 7, "", "z", "07z25"},
        {"/data/night25/t.txt", 7, "B", "z", "B07z25"},
        {"/data/night25/t.txt", 100, "Bc", "yz", "Bc100yz5"},
        {"/data/night25/", 7, "", "", "A0725"},
        {"/data/night25", 7, "", "", "A07ta"},
        {"c:\\data\\night25\\t.txt", 7, "", "", "A0725"},
        {"t.txt", 7, "", "", "A07xt"},
        {"t.txt", 100, "", "", "A100t"},
        {"5/t.txt", 7, "", "", "A075"},
        {"5/t.txt", 100, "", "", "A1005"},
        {"/t.txt", 7, "", "", "A07"},
        {"", 7, "", "", "A07"},
        {"", 100, "", "", "A100"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path + " " + std::to_string(row.number));
        EXPECT_EQ(CalcSecondName(row.path, row.number, row.prefix, row.suffix), row.name);
    }
}

TEST(TrackTableNames, ShortNamesOfSatellites)
{
    const struct
    {
        int number;
        std::string prefix, name;
    } rows[] = {{0, "S", "S000"},  {1, "S", "S001"},     {9, "S", "S009"},        {10, "S", "S010"},
                {99, "S", "S099"}, {100, "S", "S100"},   {999, "S", "S999"},      {1000, "S", "S1000"},
                {7, "", "007"},    {54321, "", "54321"}, {7, "long-", "long-007"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(CalcSecondNameSat(row.number, row.prefix), row.name);
    }
}
