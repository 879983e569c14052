#include "formats/residual_report.h"

#include "base/last_answer.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/essentials.h"
#include "files/text_files.h"
#include "text/angle_text.h"
#include "text/date_text.h"
#include "text/number_text.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace tavelinUtils {
namespace {

constexpr std::string_view statisticsColumns = "mean\trms";
constexpr std::string_view markColumns =
    "dateTtime\tday\tsign\tresRA\tresDE\tfi\tlen\tRAoDec\tDEoDec\tRAo\tDEo\tRAc\tDEc\txo\tyo\txc\tyc";
constexpr std::string_view noSign = "         ";
constexpr std::string_view largeSign = "    !    ";
constexpr double largeResidual = 2.0; // arcseconds
constexpr double arcseconds = 3600.0;
constexpr std::size_t usualLineLength = 240;

void appendStatistics(TextBuffer& out, std::string_view label, double mean, double rms)
{
    out += label;
    appendCell(out, mean, 2, '\t');
    appendCell(out, rms, 2, '\n');
}

void appendPosition(TextBuffer& out, double rightAscension, double declination)
{
    appendRA(out, rightAscension, 3, ":");
    out += '\t';
    appendDE(out, declination, 2, ":");
    out += '\t';
}

// Seventeen fields, each followed by a tab, the last one too.
void appendMark(TextBuffer& out, const TRecLabelPervichka_File& mark, DateTexts& dates)
{
    // Without the cosine of the declination, and not wrapped at 360 degrees.
    const double residualRA = arcseconds * (mark.RA - mark.RefValue4);
    const double residualDE = arcseconds * (mark.DE - mark.RefValue5);
    const bool isLarge = std::abs(residualRA) > largeResidual || std::abs(residualDE) > largeResidual;
    appendDate(out, dates, mark.date, "-");
    out += 'T';
    appendTime(out, mark.time, 6, ":");
    out += '\t';
    appendCell(out, mark.time, 10, '\t');
    out += isLarge ? largeSign : noSign;
    out += '\t';
    appendCell(out, residualRA, 2, '\t');
    appendCell(out, residualDE, 2, '\t');
    appendCell(out, mark.Angle, 2, '\t');
    appendCell(out, mark.Length, 2, '\t');
    appendCell(out, mark.RA, 10, '\t');
    appendCell(out, mark.DE, 10, '\t');
    appendPosition(out, mark.RA, mark.DE);
    appendPosition(out, mark.RefValue4, mark.RefValue5);
    for (const double pixels : {double{mark.X_f}, double{mark.Y_f}, double{mark.X_bf}, double{mark.Y_bf}}) {
        out += FloatToStr(pixels);
        out += '\t';
    }
    out += '\n';
}

std::string residualsOf(const TrackVtorichka& track)
{
    TextBuffer text;
    text.reserve((track.Marks.size() + 2) * usualLineLength);
    text += statisticsColumns;
    text += '\n';
    appendStatistics(text, "RA: ", track.DispX, track.LymX);
    appendStatistics(text, "DE: ", track.DispY, track.LymY);
    text += markColumns;
    text += '\n';
    DateTexts dates;
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        appendMark(text, mark, dates);
    }
    return text.str();
}

// The part of the source's path that names the set of measurements; empty in a shorter path.
std::string_view setOf(std::string_view sourceFile)
{
    std::array<std::string_view, 7> parts;
    cutParts(sourceFile, Slash.front(), parts);
    return parts.back();
}

std::string pathOf(const std::string& folder, const std::string& name, const TrackVtorichka& track)
{
    const TRecLabelPervichka_File& first = track.Marks.front();
    std::string path = folder + Slash + track.NORAD + " " + MJDToDate(first.date, "-") + " " +
                       DayToTime(first.time, 0, "-") + "_etalon-" + ExtractFileName(track.ResidFile, Slash) +
                       "_result-";
    path += setOf(track.SourceFile);
    return path + "_" + name + ".resid";
}

// A mean above 0 has a sign, one of 0 has none.
void appendMean(TextBuffer& out, std::string_view label, double mean, double rms)
{
    out += label;
    if (mean > 0.0) {
        out += '+';
    }
    appendCell(out, mean, 2, '\t');
    appendCell(out, rms, 2, '\t');
}

void appendSummary(TextBuffer& out, const TrackVtorichka& track, const std::string& path)
{
    out += "NObs: ";
    out += std::to_string(track.Marks.size());
    appendMean(out, "\tRA\t", track.DispX, track.LymX);
    appendMean(out, "DE\t", track.DispY, track.LymY);
    out += ExtractFileName(path, Slash);
    out += '\n';
}

} // namespace

void SaveResidAMU(std::string folder, std::string name, const std::vector<TrackVtorichka>& tracks)
{
    TextBuffer summary(name);
    summary += '\t';
    summary += statisticsColumns;
    summary += '\n';
    for (std::size_t i = 0; i < tracks.size(); ++i) {
        const TrackVtorichka& track = tracks[i];
        if (track.Marks.empty()) {
            continue;
        }
        const std::string path = pathOf(folder, name, track);
        writeText(path, residualsOf(track));
        appendSummary(summary, track, path);
        if (i + 1 < tracks.size() && tracks[i + 1].NORAD != track.NORAD) {
            summary += '\n';
        }
    }
    writeText(folder + Slash + name + ".result", summary);
}

} // namespace tavelinUtils
