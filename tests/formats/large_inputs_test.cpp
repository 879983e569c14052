// Inputs that do not fit in one piece of a reader: lines on the border of two pieces, lines that are longer
// than a piece, files that end on a border, files that are no regular file.

#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/telegram.h"
#include "formats/track_table.h"

#include "support/locales.h"
#include "support/measured_marks.h"
#include "support/temporary_folder.h"
#include "support/tracks.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace tavelinUtils;

namespace {

using Tracks = std::vector<TrackVtorichka>;

constexpr std::size_t kilobyte = 1024;
constexpr std::size_t megabyte = kilobyte * kilobyte;

// A format of an object named A and of others whose name is set as "@". Line ends are set as "|".
struct Format
{
    const char* what;
    Tracks (*read)(const std::string& path);
    const char* front;
    const char*
        filler; // begins a line of any length, which gives no mark, or a mark of which only m is known
    bool fillerIsAMark;
    const char* markStart; // before the magnitude
    const char* markEnd;
    int width; // of the magnitude, its point included where it has one
    int decimals;
    const char* back;
    const char* other; // another object, or a header line, with one mark
};

const Format formats[] = {
    {"mea", [](const std::string& path) { return plMEATrack(path, "O"); }, "T1 2000.0 UTC|", "no mark ",
     false, "A 250223 1200000000 0100000000 -0030000000 001 ", "|", 5, 2, "",
     "@ 250223 1200000000 0100000000 -0030000000 001 09.50|"},
    {"telegram", [](const std::string& path) { return lTelegramma(path); }, "O T1 A|", "two ", false,
     "250223 12000000 01000000 -00300000 001", "|", 3, 0, "END|",
     "END|O T1 @|250223 12000000 01000000 -00300000 001095|"},
    {"tdm", [](const std::string& path) { return lTDM(path); }, "META_START|PARTICIPANT_2 = A|",
     "COMMENT = ", false,
     "ANGLE_1 = 2023-02-25T12:00:00 15.0|ANGLE_2 = 2023-02-25T12:00:00 -0.5|MAG = 2023-02-25T12:00:00 ", "|",
     5, 2, "DATA_STOP|", "META_START|PARTICIPANT_2 = @|MAG = 2023-02-25T12:00:00 9.5|"},
    {"ssmas", [](const std::string& path) { return lckako_meas(path, "O"); },
     "Measurements|T1|conversion|1||#SSMAS   #INTER|A A|", "a a a a a a a ", false,
     "25.02.2023 12:00:00.00  01:00:00.00 -00.30.00.00 001 ", "|", 5, 2, "",
     "2|@ 5|25.02.2023 12:00:00.00  01:00:00.00 -00.30.00.00 001 09.5|"},
    {"track table", [](const std::string& path) { return lListTrack(path); },
     "v2|x:Text\tdate:Date\ttime:Time\tRA:Float\tDE:Float\tQRVName:Text\tm:Float|", "", true,
     "x\t2023-02-25\t12:00:00\t15.0\t-0.5\tA\t", "|", 5, 2, "---|",
     "---|x\t2023-02-25\t12:00:00\t15.0\t-0.5\t@\t9.5|"},
    {"mpc", [](const std::string& path) { return lMPC(path); }, "COD 500|", "COM ", false,
     "           A  C2023 02 25.50000 01 00 00.00 -00 30 00.0          ", " R      500|", 4, 1, "",
     "CON @|           B  C2023 02 25.50000 01 00 00.00 -00 30 00.0          09.5 R      500|"},
};

std::string withEnds(const std::string& text, const std::string& lineEnd)
{
    std::string lines;
    for (const char character : text) {
        character == '|' ? lines += lineEnd : lines += character;
    }
    return lines;
}

// The magnitude of a mark by its number, in the units of its last digit.
int digitsOf(int number)
{
    return 100 + number % 900;
}

double magnitudeOf(const Format& format, int number)
{
    const int tenths = format.decimals == 2 ? 100 : 10;
    return static_cast<double>(digitsOf(number)) / tenths;
}

std::string markText(const Format& format, int number)
{
    const ReferenceLocale reference;
    char magnitude[20];
    if (format.decimals == 0) {
        std::snprintf(magnitude, sizeof magnitude, "%0*d", format.width, digitsOf(number));
    } else {
        std::snprintf(magnitude, sizeof magnitude, "%0*.*f", format.width, format.decimals,
                      magnitudeOf(format, number));
    }
    return format.markStart + std::string(magnitude) + format.markEnd;
}

std::string fillerLine(const Format& format, std::size_t length)
{
    return format.filler + std::string(length, 'x');
}

// Lines of a kilobyte each and one of the rest, of that length together.
std::string fillerText(const Format& format, std::size_t length, const std::string& lineEnd, int& lines)
{
    const std::size_t least = fillerLine(format, 0).size() + lineEnd.size();
    std::string text;
    for (lines = 1; length - text.size() > 2 * kilobyte; ++lines) {
        text += fillerLine(format, kilobyte - least) + lineEnd;
    }
    return text + fillerLine(format, length - text.size() - least) + lineEnd;
}

bool isMpc(const Format& format)
{
    return format.what == std::string("mpc");
}

// Checks for the one track of the marks, the first of which may be those of filling lines.
void expectMarks(const Format& format, const Tracks& tracks, int fillers, int marks)
{
    ASSERT_EQ(tracks.size(), 1u);
    const auto& read = tracks[0].Marks;
    const int first = format.fillerIsAMark ? fillers : 0;
    ASSERT_EQ(static_cast<int>(read.size()), first + marks);
    EXPECT_EQ(isMpc(format) ? tracks[0].MPCChecker : tracks[0].QRVName, "A");
    for (int i = 0; i < marks; ++i) {
        const auto& mark = read[static_cast<std::size_t>(first + i)];
        EXPECT_EQ(measured(mark), (Measured{60000, 0.5, 15.0, -0.5, magnitudeOf(format, i)})) << i;
    }
}

constexpr int marksAtTheBorder = 6;

std::string sixMarks(const Format& format)
{
    std::string text;
    for (int i = 0; i < marksAtTheBorder; ++i) {
        text += markText(format, i);
    }
    return text;
}

// A file of which only the end changes from one reading to the next.
class GrowingFile
{
public:
    explicit GrowingFile(const std::string& start) : length(start.size())
    {
        makeFile(path(), start);
    }

    std::string path() const
    {
        return folder / "a";
    }

    void setEnd(const std::string& end) const
    {
        std::filesystem::resize_file(path(), length);
        std::ofstream(path(), std::ios::binary | std::ios::app) << end;
    }

private:
    TemporaryFolder folder;
    std::size_t length;
};

// Reads files in which the border lies at each byte of the lines of a mark: one of the third and fourth of
// six.
void expectAnyBorder(const Format& format, std::size_t border, const std::string& lineEnd)
{
    SCOPED_TRACE(format.what + std::string(" at ") + std::to_string(border));
    const std::string front = withEnds(format.front, lineEnd);
    const std::string marks = withEnds(sixMarks(format), lineEnd);
    const std::string back = withEnds(format.back, lineEnd);
    const std::size_t period = withEnds(markText(format, 0), lineEnd).size();
    const std::size_t lastFiller = fillerLine(format, 0).size() + lineEnd.size();
    int fillers = 0;
    const GrowingFile file(
        front + fillerText(format, border - front.size() - lastFiller - 4 * period, lineEnd, fillers));
    for (std::size_t shift = 0; shift <= period; ++shift) {
        file.setEnd(fillerLine(format, shift) + lineEnd + marks + back);
        expectMarks(format, format.read(file.path()), fillers + 1, marksAtTheBorder);
    }
}

// A file of that length, the last bytes of which are marks. Without the last line feed where it is cut.
void expectLength(const Format& format, std::size_t length, std::size_t cut)
{
    SCOPED_TRACE(format.what + std::string(" of ") + std::to_string(length));
    const TemporaryFolder folder;
    const std::string front = withEnds(format.front, "\n");
    const std::string end = withEnds(sixMarks(format) + format.back, "\n");
    int fillers = 0;
    std::string bytes =
        front + fillerText(format, length + cut - front.size() - end.size(), "\n", fillers) + end;
    bytes.resize(bytes.size() - cut);
    EXPECT_EQ(bytes.size(), length);
    makeFile(folder / "a", bytes);
    expectMarks(format, format.read(folder / "a"), fillers, marksAtTheBorder);
}

const std::string longName(400 * kilobyte, 'n');

std::string named(const std::string& text)
{
    const std::size_t place = text.find('@');
    return place == std::string::npos ? text : text.substr(0, place) + longName + text.substr(place + 1);
}

// Checks for another object of the long name; an MPC report has the name in its header. Its first mark is the
// usual one.
void expectLongName(const Format& format, const TrackVtorichka& track)
{
    EXPECT_TRUE((isMpc(format) ? track.MPCHeader.CON : track.QRVName) == longName);
    EXPECT_EQ(track.MPCChecker, isMpc(format) ? "B" : "");
    ASSERT_FALSE(track.Marks.empty());
    EXPECT_EQ(measured(track.Marks.front()), measured(theMark()));
}

// Reads a file of four megabytes with long lines in its middle and at its end.
void expectLongLines(const Format& format, const std::string& lineEnd, bool lastLineEnds)
{
    SCOPED_TRACE(format.what);
    const TemporaryFolder folder;
    int fillers = 0;
    const std::string filler = fillerText(format, 3 * megabyte / 2, lineEnd, fillers);
    const std::string other = named(withEnds(format.other, lineEnd));
    std::string bytes = withEnds(format.front, lineEnd) + filler + withEnds(sixMarks(format), lineEnd) +
                        other + filler + other + withEnds(format.back, lineEnd);
    if (!lastLineEnds) {
        bytes.resize(bytes.size() - lineEnd.size());
    }
    makeFile(folder / "a", bytes);
    Tracks tracks = format.read(folder / "a");
    const bool gathers = isMpc(format) || format.what == std::string("mea");
    ASSERT_EQ(tracks.size(), gathers ? 2u : 3u);
    for (std::size_t i = 1; i < tracks.size(); ++i) {
        expectLongName(format, tracks[i]);
    }
    const std::size_t further = format.fillerIsAMark ? static_cast<std::size_t>(fillers) : 0;
    EXPECT_EQ(tracks[1].Marks.size(), gathers ? 2 : 1 + further);
    tracks.resize(1);
    expectMarks(format, tracks, fillers, marksAtTheBorder);
}

// Reads bytes that another thread writes into a pipe.
Tracks readThroughAPipe(const Format& format, const std::string& bytes)
{
    const TemporaryFolder folder;
    const std::string path = folder / "pipe";
    EXPECT_EQ(mkfifo(path.c_str(), 0600), 0);
    const auto ignored = std::signal(SIGPIPE, SIG_IGN);
    std::thread writer([&path, &bytes] { std::ofstream(path, std::ios::binary) << bytes; });
    Tracks tracks = format.read(path);
    close(open(path.c_str(), O_RDONLY | O_NONBLOCK)); // lets go a writer that nobody has read from
    writer.join();
    std::signal(SIGPIPE, ignored);
    return tracks;
}

} // namespace

TEST(LargeInputs, BorderAtAnyByteOfALine)
{
    for (const Format& format : formats) {
        for (const std::size_t border : {4 * kilobyte, 64 * kilobyte, 256 * kilobyte}) {
            expectAnyBorder(format, border, "\n");
        }
    }
}

TEST(LargeInputs, BorderAtAnyByteOfALineOrOfItsEndOfTwoBytes)
{
    for (const Format& format : formats) {
        for (const std::size_t border : {4 * kilobyte, 64 * kilobyte, 256 * kilobyte}) {
            expectAnyBorder(format, border, "\r\n");
        }
    }
}

TEST(LargeInputs, BorderOfAMegabyteAtAnyByteOfALine)
{
    for (const Format& format : formats) {
        expectAnyBorder(format, megabyte, "\t\r\n");
    }
}

TEST(LargeInputs, FileEndsAtABorder)
{
    for (const Format& format : formats) {
        for (const std::size_t border : {64 * kilobyte, 256 * kilobyte, megabyte}) {
            for (const std::size_t cut : {std::size_t{0}, std::size_t{1}}) {
                expectLength(format, border - 1, cut);
                expectLength(format, border, cut);
                expectLength(format, border + 1, cut);
            }
        }
    }
}

TEST(LargeInputs, LinesOf400Kilobytes)
{
    for (const Format& format : formats) {
        expectLongLines(format, "\n", true);
        expectLongLines(format, "\r\n", false);
    }
}

TEST(LargeInputs, FirstLineOf400Kilobytes)
{
    const struct
    {
        std::size_t format;
        const char* front;
        std::string THeadTrVtor::*member;
    } rows[] = {
        {0, "@ 2000.0 UTC|", &THeadTrVtor::telescope},
        {1, "@ T1 A|", &THeadTrVtor::originator},
        {2, "ORIGINATOR = @|META_START|PARTICIPANT_2 = A|", &THeadTrVtor::originator},
        {3, "|@|||||A 5|", &THeadTrVtor::telescope},
        {4, "x:Text\tdate:Date\ttime:Time\tRA:Float\tDE:Float\tQRVName:Text\tm:Float\tMPCChecker:@|",
         &THeadTrVtor::QRVName},
        {5, "CON @|", &THeadTrVtor::MPCChecker},
    };
    for (const auto& row : rows) {
        const Format& format = formats[row.format];
        SCOPED_TRACE(format.what);
        const Tracks tracks = readBy(format.read, named(withEnds(row.front, "\n")) +
                                                      withEnds(sixMarks(format) + format.back, "\n"));
        expectMarks(format, tracks, 0, marksAtTheBorder);
        ASSERT_EQ(tracks.size(), 1u);
        EXPECT_TRUE(tracks[0].*row.member == (row.format < 4 ? longName : "A"));
        EXPECT_TRUE(tracks[0].MPCHeader.CON == (row.format == 5 ? longName : ""));
    }
}

TEST(LargeInputs, Pipes)
{
    for (const Format& format : formats) {
        SCOPED_TRACE(format.what);
        int fillers = 0;
        const std::string filler = fillerText(format, megabyte + 12345, "\n", fillers);
        const std::string bytes = withEnds(format.front, "\n") + filler + withEnds(sixMarks(format), "\n") +
                                  withEnds(format.back, "\n");
        expectMarks(format, readThroughAPipe(format, bytes), fillers, marksAtTheBorder);
    }
}
