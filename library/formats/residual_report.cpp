#include "formats/residual_report.h"

#include "base/last_answer.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/essentials.h"
#include "files/text_file.h"
#include "records/track_stream.h"
#include "text/angle_text.h"
#include "text/date_text.h"
#include "text/number_text.h"
#include "text/written_text.h"

#include <array>
#include <cmath>
#include <optional>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view statisticsColumns = "mean\trms";
constexpr std::string_view markColumns =
    "dateTtime\tday\tsign\tresRA\tresDE\tfi\tlen\tRAoDec\tDEoDec\tRAo\tDEo\tRAc\tDEc\txo\tyo\txc\tyc";
constexpr std::string_view noSign = "         ";
constexpr std::string_view largeSign = "    !    ";
constexpr double largeResidual = 2.0; // arcseconds
constexpr double arcseconds = 3600.0;

void appendStatistics(TextBuffer& out, std::string_view label, double mean, double rms)
{
    out += label;
    appendCell(out, mean, 2, '\t');
    appendCell(out, rms, 2, '\n');
}

void appendPosition(TextBuffer& out, double rightAscension, double declination)
{
    appendRA(out, rightAscension, 3, ':');
    out += '\t';
    appendDE(out, declination, 2, ':');
    out += '\t';
}

// Seventeen fields, each followed by a tab, the last one too.
void appendMark(TextBuffer& out, const TRecLabelPervichka_File& mark, DateTexts& dates)
{
    // Without the cosine of the declination, and not wrapped at 360 degrees.
    const double residualRA = arcseconds * (mark.RA - mark.RefValue4);
    const double residualDE = arcseconds * (mark.DE - mark.RefValue5);
    const bool isLarge = std::abs(residualRA) > largeResidual || std::abs(residualDE) > largeResidual;
    appendDate(out, dates, mark.date, '-');
    out += 'T';
    appendTime(out, mark.time, 6, ':');
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

void writeResiduals(const std::string& path, const TrackVtorichka& track)
{
    TextFile file(path);
    file.text() += statisticsColumns;
    file.text() += '\n';
    appendStatistics(file.text(), "RA: ", track.DispX, track.LymX);
    appendStatistics(file.text(), "DE: ", track.DispY, track.LymY);
    file.text() += markColumns;
    file.text() += '\n';
    DateTexts dates;
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        appendMark(file.text(), mark, dates);
        file.writeFull();
    }
    file.close();
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

struct ResidualReportSink::State
{
    void add(const TrackVtorichka& track)
    {
        if (lastNorad && *lastNorad != track.NORAD) {
            summary += '\n'; // so that the tracks of one object stand together
        }
        lastNorad.reset();
        if (!track.Marks.empty()) {
            const std::string path = pathOf(folder, name, track);
            writeResiduals(path, track);
            appendSummary(summary, track, path);
            lastNorad = track.NORAD;
        }
    }

    std::string folder;
    std::string name;
    TextBuffer summary{};
    std::optional<std::string> lastNorad{}; // of the track before, where that has a line
};

ResidualReportSink::ResidualReportSink(std::string folder, std::string name)
    : state(new State{std::move(folder), std::move(name)})
{
    state->summary += state->name;
    state->summary += '\t';
    state->summary += statisticsColumns;
    state->summary += '\n';
}

ResidualReportSink::ResidualReportSink(ResidualReportSink&& other) noexcept = default;
ResidualReportSink::~ResidualReportSink() = default;

void ResidualReportSink::add(const TrackVtorichka& track)
{
    state->add(track);
}

bool ResidualReportSink::save()
{
    TextFile file(state->folder + Slash + state->name + ".result");
    file.text() += state->summary;
    file.close();
    return true;
}

void SaveResidAMU(std::string folder, std::string name, const std::vector<TrackVtorichka>& tracks)
{
    writeAll(ResidualReportSink(folder, name), tracks);
}

} // namespace tavelinUtils
