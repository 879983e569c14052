// What a file says of itself where its values are none.

#include "reading/file_info.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace {

using companion::FileInfo;
using testing::ElementsAre;

FileInfo infoOf(const std::string& format, const std::string& bytes)
{
    return readBy([&format](const std::string& path) { return companion::fileInfo(path, format, 100, true); },
                  bytes);
}

} // namespace

TEST(FileInfo, MagnitudesThatAreNoneDoNotCount)
{
    const FileInfo info = infoOf("table", "QRVName\tdate\ttime\tRA\tDE\tm\n"
                                          "A\t2025-02-23\t12:00:00\t15\t-0.5\t9.5\n"
                                          "A\t2025-02-23\t12:00:01\t15\t-0.5\tinf\n"
                                          "A\t2025-02-23\t12:00:02\t15\t-0.5\tnan\n"
                                          "A\t2025-02-23\t12:00:03\t15\t-0.5\t0\n---\n");
    EXPECT_EQ(info.brightest, 9.5);
    EXPECT_EQ(info.faintest, 9.5);
}

TEST(FileInfo, TracksOfAReportHaveTheNamesOfTheirObjects)
{
    const FileInfo info =
        infoOf("mpc", "     K24Y04R  C2025 02 23.51234 12 30 12.34 +01 20 30.1          18.5 G      L01\n");
    ASSERT_EQ(info.tracks.size(), 1U);
    EXPECT_EQ(info.tracks[0].object, "K24Y04R");
}

TEST(FileInfo, FramesThatAMessageNames)
{
    EXPECT_THAT(infoOf("tdm", "CCSDS_TDM_VERS = 2.0\nMETA_START\nREFERENCE_FRAME = ICRF\nMETA_STOP\n"
                              "META_START\nREFERENCE_FRAME =\nMETA_STOP\n")
                    .frames,
                ElementsAre("ICRF"));
}
