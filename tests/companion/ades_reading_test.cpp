// Observations of ADES as tracks.

#include "reading/ades_reading.h"

#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using companion::TrueTrack;
using testing::ElementsAre;
using testing::IsEmpty;

struct Read
{
    std::vector<std::string> objects{};
    std::vector<std::string> findings{}; // "3 V140"
};

Read readOf(const std::string& format, const std::string& bytes)
{
    return readBy(
        [&format](const std::string& path) {
            Read read;
            const auto outcome = companion::readAdes(path, format, [&read](const TrueTrack& track) {
                read.objects.push_back(track.track.QRVName + ' ' + track.station);
            });
            for (const companion::Finding& each : outcome.findings) {
                read.findings.push_back(std::to_string(each.line) + ' ' + each.code.text());
            }
            return read;
        },
        bytes);
}

std::string observation(const std::string& kind, const std::string& name)
{
    return '<' + kind + ">\n<permID>" + name +
           "</permID><stn>568</stn><obsTime>2025-02-23T12:17:46Z</obsTime>" +
           (kind == "optical" ? "<ra>187.5</ra><dec>1.3</dec>" : "") + "</" + kind + ">\n";
}

std::string document(const std::string& observations)
{
    return "<ades version=\"2022\"><obsBlock><obsData>\n" + observations + "</obsData></obsBlock></ades>\n";
}

} // namespace

TEST(AdesReading, TextsMayBeOfSeveralParts)
{
    const Read read = readOf("ades.xml", document(observation("optical", "4<![CDATA[3]]><![CDATA[]]>3")));
    EXPECT_THAT(read.objects, ElementsAre("433 568"));
    EXPECT_THAT(read.findings, IsEmpty());
}

TEST(AdesReading, OfOtherKindsOfObservationsNoneHasAPlace)
{
    for (const char* kind : {"radar", "offset", "occultation"}) {
        const Read read = readOf("ades.xml", document(observation("optical", "1") + observation(kind, "2")));
        EXPECT_THAT(read.objects, ElementsAre("1 568"));
        EXPECT_THAT(read.findings, ElementsAre("4 V140")) << kind;
    }
}

TEST(AdesReading, ADocumentThatEndsTooEarlyHasTheObservationsBefore)
{
    const Read read = readOf("ades.xml", "<ades>\n" + observation("optical", "1"));
    EXPECT_THAT(read.objects, ElementsAre("1 568"));
    ASSERT_EQ(read.findings.size(), 1U);
    EXPECT_THAT(read.findings[0], testing::EndsWith(" V380"));
    EXPECT_THAT(readOf("ades.xml", "").findings, ElementsAre("1 V380"));
}

TEST(AdesReading, RowsOfABrokenEncodingAreNotRead)
{
    const std::string rows = "# version=2022\npermID|obsTime|ra|dec|stn\n";
    const std::string row = "433|2025-02-23T12:17:46Z|187.5|1.3|568\n";
    EXPECT_THAT(readOf("ades.psv", rows + row).objects, ElementsAre("433 568"));
    const Read broken = readOf("ades.psv", rows + '\0' + row);
    EXPECT_THAT(broken.objects, IsEmpty());
    EXPECT_THAT(broken.findings, ElementsAre("0 V101"));
}
