#include "made_inputs.h"

#include "formats/track_table.h"

#include <algorithm>
#include <charconv>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace {

// Digits that look like measured ones.
struct Digits
{
    unsigned state = 12345;

    unsigned below(unsigned limit)
    {
        state = state * 1664525U + 1013904223U;
        return (state >> 8) % limit;
    }
};

struct Sexagesimal
{
    unsigned whole, minutes, seconds, fraction; // of four digits
};

struct Measurement
{
    unsigned long object;
    bool opensFile;
    bool opensObject;
    unsigned day;
    Sexagesimal time;
    Sexagesimal ra;
    bool negative;
    Sexagesimal de;
    unsigned magnitude, hundredths;
};

// The file that is made. What is appended goes out in large pieces.
class MadeFile
{
public:
    explicit MadeFile(const std::string& path) : file(path)
    {
        text.reserve(pieceSize + lineRoom);
    }

    void append(std::string_view words)
    {
        text += words;
    }

    // A number with leading zeros to the width.
    void append(unsigned long number, std::size_t width)
    {
        char digits[20];
        const auto end = std::to_chars(std::begin(digits), std::end(digits), number).ptr;
        const auto size = static_cast<std::size_t>(end - digits);
        text.append(width - std::min(width, size), '0');
        text.append(digits, size);
    }

    // Its numbers with something between them, the fraction cut to so many digits.
    void append(const Sexagesimal& value, std::string_view between, std::string_view point,
                std::size_t fractionDigits)
    {
        append(value.whole, 2);
        append(between);
        append(value.minutes, 2);
        append(between);
        append(value.seconds, 2);
        append(point);
        append(fractionDigits == 2 ? value.fraction / 100 : value.fraction, fractionDigits);
    }

    void endOfMark()
    {
        if (text.size() >= pieceSize) {
            writeOut();
        }
    }

    void close()
    {
        writeOut();
        file.close();
        if (!file) {
            throw std::runtime_error("no input could be made");
        }
    }

private:
    static constexpr std::size_t pieceSize = 1024 * 1024;
    static constexpr std::size_t lineRoom = 4096;

    void writeOut()
    {
        file.write(text.data(), static_cast<std::streamsize>(text.size()));
        text.clear();
    }

    std::ofstream file;
    std::string text;
};

void writeMea(MadeFile& file, const Measurement& m)
{
    if (m.opensFile) {
        file.append("T1 2000.0 UTC\n");
    }
    file.append(m.object, 5);
    file.append("   ");
    file.append(m.day, 2);
    file.append("0223 ");
    file.append(m.time, "", "", 4);
    file.append(" ");
    file.append(m.ra, "", "", 4);
    file.append(m.negative ? " -" : " +");
    file.append(m.de, "", "", 4);
    file.append(" 001 ");
    file.append(m.magnitude, 2);
    file.append(".");
    file.append(m.hundredths, 2);
    file.append("\n");
}

void writeTelegram(MadeFile& file, const Measurement& m)
{
    if (m.opensObject) {
        file.append(m.opensFile ? "observatory T1 " : "END\n\nobservatory T1 ");
        file.append(m.object, 5);
        file.append("\n");
    }
    file.append(m.day, 2);
    file.append("0223 ");
    file.append(m.time, "", "", 2);
    file.append(" ");
    file.append(m.ra, "", "", 2);
    file.append(m.negative ? " -" : " +");
    file.append(m.de, "", "", 2);
    file.append(" 001");
    file.append(m.magnitude, 2);
    file.append(m.hundredths / 10, 1);
    file.append("\n");
}

void openTdmSegment(MadeFile& file, const Measurement& m)
{
    file.append(m.opensFile
                    ? "CCSDS_TDM_VERS = 1.0\nCREATION_DATE = 0-00-00T00:00:00\nORIGINATOR = observatory\n"
                    : "DATA_STOP\n");
    file.append("META_START\nTIME_SYSTEM = UTC\nPARTICIPANT_1 = T1\nPARTICIPANT_2 = ");
    file.append(m.object, 5);
    file.append("\nMODE = SEQUENTIAL\nPATH = 2,1\nANGLE_TYPE = RADEC\nREFERENCE_FRAME = ICRF\nMETA_STOP\n"
                "DATA_START\n");
}

void appendTdmEpoch(MadeFile& file, std::string_view key, const Measurement& m)
{
    file.append(key);
    file.append(" = 2023-02-");
    file.append(m.day, 2);
    file.append("T");
    file.append(m.time, ":", ".", 4);
    file.append("0 ");
}

void writeTdm(MadeFile& file, const Measurement& m)
{
    if (m.opensObject) {
        openTdmSegment(file, m);
    }
    appendTdmEpoch(file, "ANGLE_1", m);
    file.append(m.ra.whole * 15, 1);
    file.append(".");
    file.append(m.ra.fraction, 4);
    file.append("123\n");
    appendTdmEpoch(file, "ANGLE_2", m);
    file.append(m.negative ? "-" : "");
    file.append(m.de.whole, 1);
    file.append(".");
    file.append(m.de.fraction, 4);
    file.append("123\n");
    appendTdmEpoch(file, "MAG", m);
    file.append(m.magnitude, 1);
    file.append(".");
    file.append(m.hundredths, 2);
    file.append("00\n");
}

void openSsmasBlock(MadeFile& file, const Measurement& m)
{
    file.append(m.opensFile ? "Measurements\nT1\nconversion\n" : "");
    file.append(m.object + 1, 1);
    file.append("\n\n#SSMAS   #INTER\n");
    file.append(m.object, 5);
    file.append(" ");
    file.append(m.object, 5);
    file.append("\n   Data        UT           CU           DE      RMS  m\n");
}

void writeSsmas(MadeFile& file, const Measurement& m)
{
    if (m.opensObject) {
        openSsmasBlock(file, m);
    }
    file.append(m.day, 2);
    file.append(".02.2023 ");
    file.append(m.time, ":", ".", 2);
    file.append("  ");
    file.append(m.ra, ":", ".", 2);
    file.append(m.negative ? " -" : " ");
    file.append(m.de, ".", ".", 2);
    file.append(" 001 ");
    file.append(m.magnitude, 2);
    file.append(".");
    file.append(m.hundredths / 10, 1);
    file.append("\n");
}

constexpr struct
{
    std::string_view word;
    void (*write)(MadeFile&, const Measurement&);
    std::string_view end; // of the file
} inputFormats[] = {
    {"mea", writeMea, ""},
    {"telegram", writeTelegram, "END\n\n"},
    {"tdm", writeTdm, ""},
    {"ssmas", writeSsmas, ""},
};

Sexagesimal madeAngle(Digits& digits, unsigned limit)
{
    const unsigned whole = digits.below(limit);
    const unsigned minutes = digits.below(60);
    const unsigned seconds = digits.below(60);
    return {whole, minutes, seconds, digits.below(10000)};
}

// Gives the next mark everything but its object.
void measure(Digits& digits, Measurement& made)
{
    made.time = madeAngle(digits, 24);
    made.ra = madeAngle(digits, 24);
    made.negative = digits.below(2) == 0;
    made.de = madeAngle(digits, 90);
    made.magnitude = 5 + digits.below(17);
    made.hundredths = digits.below(100);
}

tavelinUtils::TrackVtorichka madeTrack(Digits& digits, long marks, int date)
{
    const auto fraction = [&digits] { return digits.below(1000000) * 1e-6; };
    tavelinUtils::TrackVtorichka track;
    track.V = fraction();
    track.m_m = 15 + fraction();
    track.Marks.resize(static_cast<std::size_t>(marks));
    track.InterBlobs.resize(track.Marks.size());
    double time = fraction() * 0.5;
    for (std::size_t i = 0; i < track.Marks.size(); ++i) {
        auto& mark = track.Marks[i];
        mark.date = date;
        mark.time = time += i == track.Marks.size() / 2 ? 0.1 : 0.001;
        mark.RA = fraction() * 360;
        mark.DE = fraction() * 180 - 90;
        mark.m = 15 + fraction() * 5;
        mark.SNRpeak = 10 + fraction();
        mark.mEnsemble = 15 + fraction();
        mark.X_f = fraction() * 4096;
        mark.Y_f = fraction() * 4096;
        mark.iF = static_cast<int>(digits.below(100));
    }
    return track;
}

} // namespace

void makeInput(const std::string& path, const std::string& word, long marks, long objects, bool mixed)
{
    const auto* const format = std::find_if(std::begin(inputFormats), std::end(inputFormats),
                                            [&word](const auto& row) { return row.word == word; });
    if (format == std::end(inputFormats)) {
        throw std::logic_error("no input is made in the format " + word);
    }
    MadeFile file(path);
    Digits digits;
    Measurement made{};
    for (long i = 0; i < marks; ++i) {
        const auto object = static_cast<unsigned long>(mixed ? i % objects : i * objects / marks);
        made.opensFile = i == 0;
        made.opensObject = i == 0 || object != made.object;
        made.object = object;
        made.day = 1 + static_cast<unsigned>(i / 500 % 28);
        measure(digits, made);
        format->write(file, made);
        file.endOfMark();
    }
    file.append(format->end);
    file.close();
}

void makeTrackTable(const std::string& path, long number, long tracks, long marksOfATrack, long names)
{
    Digits digits{12345 + static_cast<unsigned>(number)};
    std::vector<tavelinUtils::TrackVtorichka> list;
    for (long i = 0; i < tracks; ++i) {
        list.push_back(madeTrack(digits, marksOfATrack, 60000 + static_cast<int>(number)));
        list.back().QRVName = "K" + std::to_string(1000000 + (number * tracks + i) % names);
        list.back().MPCChecker = list.back().QRVName;
        list.back().N = static_cast<int>(i);
    }
    tavelinUtils::sListTrack(path, path, "", list, "", true, true, tavelinUtils::getHeadTrack());
}
