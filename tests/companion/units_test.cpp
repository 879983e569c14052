#include "out/progress.h"
#include "out/units.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <sstream>

namespace {

using namespace std::chrono_literals;
using companion::Console;
using companion::durationOf;
using companion::durationText;
using companion::memoryOf;
using companion::memoryText;
using companion::Progress;
using companion::ProgressStyle;

TEST(Units, DurationsThatAreTaken)
{
    EXPECT_EQ(durationOf("90"), 90s);
    EXPECT_EQ(durationOf("90s"), 90s);
    EXPECT_EQ(durationOf("10m"), 10min);
    EXPECT_EQ(durationOf("2h"), 2h);
    EXPECT_EQ(durationOf("1d"), 24h);
    EXPECT_EQ(durationOf("250ms"), 250ms);
    EXPECT_EQ(durationOf("1.5h"), 90min);
    EXPECT_EQ(durationOf("0.001"), 1ms);
    EXPECT_EQ(durationOf("10000d"), 240000h);
}

TEST(Units, DurationsThatAreRefused)
{
    for (const char* text : {"",       "s",    "-1s",  "+1s",  "1 h",
                             " 1",     "1y",   "1H",   "0",    "0s",
                             "1e3",    "inf",  "nan",  "0x10", "1h30m",
                             "10001d", "1,5h", "1..5", ".5h",  "99999999999999999999999999"})
    {
        EXPECT_EQ(durationOf(text), std::nullopt) << text;
    }
}

TEST(Units, SecondsAndArcseconds)
{
    using companion::arcsecondsOf;
    using companion::secondsOf;
    EXPECT_EQ(secondsOf("0"), 0.0);
    EXPECT_EQ(secondsOf("0.00001"), 0.00001);
    EXPECT_EQ(secondsOf("5ms"), 0.005);
    EXPECT_EQ(secondsOf("1.5m"), 90.0);
    EXPECT_EQ(arcsecondsOf("0.5"), 0.5);
    EXPECT_EQ(arcsecondsOf("500mas"), 0.5);
    EXPECT_EQ(arcsecondsOf("2arcsec"), 2.0);
    EXPECT_EQ(arcsecondsOf("2arcmin"), 120.0);
    EXPECT_EQ(arcsecondsOf("1deg"), 3600.0);
    for (const char* text : {"", "-1", "s", "mas", "1 s", "1,5", "nan", "inf", "1x"}) {
        EXPECT_EQ(secondsOf(text), std::nullopt) << text;
        EXPECT_EQ(arcsecondsOf(text), std::nullopt) << text;
    }
}

TEST(Units, DurationsAreShownInTheLargestUnitThatFits)
{
    EXPECT_EQ(durationText(90s), "90 s");
    EXPECT_EQ(durationText(1h), "1 h");
    EXPECT_EQ(durationText(300ms), "300 ms");
    EXPECT_EQ(durationText(48h), "2 d");
}

TEST(Units, AmountsOfMemoryThatAreTaken)
{
    EXPECT_EQ(memoryOf("1000"), 1000u);
    EXPECT_EQ(memoryOf("1K"), 1024u);
    EXPECT_EQ(memoryOf("500M"), 500u << 20);
    EXPECT_EQ(memoryOf("2G"), std::uint64_t{2} << 30);
    EXPECT_EQ(memoryOf("1.5G"), std::uint64_t{3} << 29);
    EXPECT_EQ(memoryOf("1T"), std::uint64_t{1} << 40);
}

TEST(Units, AmountsOfMemoryThatAreRefused)
{
    for (const char* text :
         {"", "M", "-1M", "1 M", "1m", "1MB", "1MiB", "0", "1e9", "inf", "8388608T", "1,5G"}) {
        EXPECT_EQ(memoryOf(text), std::nullopt) << text;
    }
}

TEST(Units, AmountsOfMemoryAreShownInTheLargestUnitThatFits)
{
    EXPECT_EQ(memoryText(500u << 20), "500M");
    EXPECT_EQ(memoryText(1000), "1000");
    EXPECT_EQ(memoryText(1536u << 20), "1536M");
}

// Progress with a clock that the test sets.
class Work
{
public:
    explicit Work(ProgressStyle style) : console{none, shown}
    {
        console.look.progress = style;
    }

    std::ostringstream none;
    std::ostringstream shown;
    Console console;
    Progress::Clock::time_point time{};
    Progress progress{console, "task", 200, [this] { return time; }};
};

TEST(Progress, ShortWorkShowsNone)
{
    Work work(ProgressStyle::bar);
    work.time += 900ms;
    work.progress.at(100);
    EXPECT_EQ(work.shown.str(), "");
}

TEST(Progress, BarIsShownAtMostTenTimesASecondAndWiped)
{
    Work work(ProgressStyle::bar);
    for (std::size_t done = 0; done < 200; ++done) {
        work.time += 10ms;
        work.progress.at(done);
    }
    const std::string text = work.shown.str();
    EXPECT_THAT(text, testing::HasSubstr("] 99 of 200 tasks"));
    EXPECT_LE(std::count(text.begin(), text.end(), '\r'), 11);
    work.progress.wipe();
    const std::string wiped = work.shown.str().substr(text.size());
    EXPECT_EQ(wiped, '\r' + std::string(wiped.size() - 2, ' ') + '\r');
}

TEST(Progress, BarThatWasWipedComesBack)
{
    Work work(ProgressStyle::bar);
    work.time += 2s;
    work.progress.at(10);
    work.progress.wipe();
    work.shown.str("");
    work.time += 50ms;
    work.progress.at(10);
    EXPECT_EQ(work.shown.str(), "");
    work.time += 100ms;
    work.progress.at(10);
    EXPECT_THAT(work.shown.str(), testing::HasSubstr("] 10 of 200 tasks"));
    work.shown.str("");
    work.time += 1s;
    work.progress.at(10);
    EXPECT_EQ(work.shown.str(), "");
}

TEST(Progress, PlainLinesComeEachTenthAndEachHalfMinute)
{
    Work work(ProgressStyle::plain);
    work.time += 2s;
    for (std::size_t done = 0; done <= 200; ++done) {
        work.progress.at(done);
    }
    EXPECT_THAT(work.shown.str(), testing::StartsWith("20 of 200 tasks\n40 of 200 tasks\n"));
    EXPECT_THAT(work.shown.str(), testing::EndsWith("\n200 of 200 tasks\n"));
    work.shown.str("");
    work.time += 31s;
    work.progress.at(200);
    EXPECT_EQ(work.shown.str(), "200 of 200 tasks\n");
}

TEST(Progress, NoneIsNone)
{
    Work work(ProgressStyle::none);
    work.time += 1h;
    work.progress.at(100);
    EXPECT_EQ(work.shown.str(), "");
}

} // namespace
