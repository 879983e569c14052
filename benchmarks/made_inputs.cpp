#include "made_inputs.h"

#include "formats/track_table.h"

#include <cstdio>
#include <fstream>
#include <map>
#include <stdexcept>

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
    long object;
    bool opensFile;
    bool opensObject;
    unsigned day;
    Sexagesimal time;
    Sexagesimal ra;
    char sign;
    Sexagesimal de;
    unsigned magnitude, hundredths;
};

template <class... Values>
void print(std::ofstream& file, const char* format, Values... values)
{
    char text[320];
    const int size = std::snprintf(text, sizeof text, format, values...);
    file.write(text, size);
}

void writeMea(std::ofstream& file, const Measurement& m)
{
    if (m.opensFile) {
        file << "T1 2000.0 UTC\n";
    }
    print(file, "%05ld   %02u0223 %02u%02u%02u%04u %02u%02u%02u%04u %c%02u%02u%02u%04u 001 %02u.%02u\n",
          m.object, m.day, m.time.whole, m.time.minutes, m.time.seconds, m.time.fraction, m.ra.whole,
          m.ra.minutes, m.ra.seconds, m.ra.fraction, m.sign, m.de.whole, m.de.minutes, m.de.seconds,
          m.de.fraction, m.magnitude, m.hundredths);
}

void writeTelegram(std::ofstream& file, const Measurement& m)
{
    if (m.opensObject) {
        print(file, "%sobservatory T1 %05ld\n", m.opensFile ? "" : "END\n\n", m.object);
    }
    print(file, "%02u0223 %02u%02u%02u%02u %02u%02u%02u%02u %c%02u%02u%02u%02u 001%02u%u\n", m.day,
          m.time.whole, m.time.minutes, m.time.seconds, m.time.fraction / 100, m.ra.whole, m.ra.minutes,
          m.ra.seconds, m.ra.fraction / 100, m.sign, m.de.whole, m.de.minutes, m.de.seconds,
          m.de.fraction / 100, m.magnitude, m.hundredths / 10);
}

void writeTdm(std::ofstream& file, const Measurement& m)
{
    if (m.opensFile) {
        file << "CCSDS_TDM_VERS = 1.0\nCREATION_DATE = 0-00-00T00:00:00\nORIGINATOR = observatory\n";
    }
    if (m.opensObject) {
        print(
            file,
            "%sMETA_START\nTIME_SYSTEM = UTC\nPARTICIPANT_1 = T1\nPARTICIPANT_2 = %05ld\nMODE = SEQUENTIAL\n"
            "PATH = 2,1\nANGLE_TYPE = RADEC\nREFERENCE_FRAME = ICRF\nMETA_STOP\nDATA_START\n",
            m.opensFile ? "" : "DATA_STOP\n", m.object);
    }
    char epoch[64];
    std::snprintf(epoch, sizeof epoch, "2023-02-%02uT%02u:%02u:%02u.%04u0", m.day, m.time.whole,
                  m.time.minutes, m.time.seconds, m.time.fraction);
    print(file, "ANGLE_1 = %s %u.%04u123\nANGLE_2 = %s %s%u.%04u123\nMAG = %s %u.%02u00\n", epoch,
          m.ra.whole * 15, m.ra.fraction, epoch, m.sign == '-' ? "-" : "", m.de.whole, m.de.fraction, epoch,
          m.magnitude, m.hundredths);
}

void writeSsmas(std::ofstream& file, const Measurement& m)
{
    if (m.opensFile) {
        file << "Measurements\nT1\nconversion\n";
    }
    if (m.opensObject) {
        print(
            file,
            "%ld\n\n#SSMAS   #INTER\n%05ld %05ld\n   Data        UT           CU           DE      RMS  m\n",
            m.object + 1, m.object, m.object);
    }
    print(file, "%02u.02.2023 %02u:%02u:%02u.%02u  %02u:%02u:%02u.%02u %s%02u.%02u.%02u.%02u 001 %02u.%u\n",
          m.day, m.time.whole, m.time.minutes, m.time.seconds, m.time.fraction / 100, m.ra.whole,
          m.ra.minutes, m.ra.seconds, m.ra.fraction / 100, m.sign == '-' ? "-" : "", m.de.whole, m.de.minutes,
          m.de.seconds, m.de.fraction / 100, m.magnitude, m.hundredths / 10);
}

} // namespace

void makeInput(const std::string& path, const std::string& word, long marks, long objects)
{
    const std::map<std::string, void (*)(std::ofstream&, const Measurement&)> writers{
        {"mea", writeMea}, {"telegram", writeTelegram}, {"tdm", writeTdm}, {"ssmas", writeSsmas}};
    const auto write = writers.at(word);
    std::ofstream file(path);
    Digits digits;
    const auto angle = [&digits](unsigned limit) {
        const unsigned whole = digits.below(limit);
        const unsigned minutes = digits.below(60);
        const unsigned seconds = digits.below(60);
        return Sexagesimal{whole, minutes, seconds, digits.below(10000)};
    };
    Measurement made{};
    for (long i = 0; i < marks; ++i) {
        const long object = i * objects / marks;
        made.opensFile = i == 0;
        made.opensObject = i == 0 || object != made.object;
        made.object = object;
        made.day = 1 + static_cast<unsigned>(i / 500 % 28);
        made.time = angle(24);
        made.ra = angle(24);
        made.sign = digits.below(2) == 0 ? '-' : '+';
        made.de = angle(90);
        made.magnitude = 5 + digits.below(17);
        made.hundredths = digits.below(100);
        write(file, made);
    }
    file << (word == "telegram" ? "END\n\n" : "");
    file.close();
    if (!file) {
        throw std::runtime_error("no input could be made");
    }
}

void makeTrackTable(const std::string& path, long number, long tracks, long marksOfATrack, long names)
{
    Digits digits{12345 + static_cast<unsigned>(number)};
    std::vector<tavelinUtils::TrackVtorichka> list(static_cast<std::size_t>(tracks));
    const auto fraction = [&digits] { return digits.below(1000000) * 1e-6; };
    for (long i = 0; i < tracks; ++i) {
        auto& track = list[static_cast<std::size_t>(i)];
        track.QRVName = "K" + std::to_string(1000000 + (number * tracks + i) % names);
        track.MPCChecker = track.QRVName;
        track.N = static_cast<int>(i);
        track.V = fraction();
        track.m_m = 15 + fraction();
        track.Marks.resize(static_cast<std::size_t>(marksOfATrack));
        track.InterBlobs.resize(track.Marks.size());
        double time = fraction() * 0.5;
        for (auto& mark : track.Marks) {
            mark.date = 60000 + static_cast<int>(number);
            mark.time = time += 0.001;
            mark.RA = fraction() * 360;
            mark.DE = fraction() * 180 - 90;
            mark.m = 15 + fraction() * 5;
            mark.SNRpeak = 10 + fraction();
            mark.mEnsemble = 15 + fraction();
            mark.X_f = fraction() * 4096;
            mark.Y_f = fraction() * 4096;
            mark.iF = static_cast<int>(digits.below(100));
        }
    }
    tavelinUtils::sListTrack(path, path, "", list, "", true, true, tavelinUtils::getHeadTrack());
}
