#include "formats/variable_star_tables.h"

#include "base/numbers.h"
#include "base/tokens.h"
#include "files/essentials.h"
#include "files/text_files.h"
#include "math/scalars.h"
#include "text/calendar.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <string_view>

namespace tavelinUtils {
namespace {

double mjdOf(const TRecLabelPervichka_File& mark)
{
    return mark.date + mark.time;
}

double jdOf(const TRecLabelPervichka_File& mark)
{
    return MJDtoJD(mark.date) + mark.time;
}

// The stars of a frame; none where the series has no such frame.
const std::vector<TLocPhotoBlob>& starsOf(const std::vector<std::vector<TLocPhotoBlob>>& series,
                                          std::size_t frame)
{
    static const std::vector<TLocPhotoBlob> none;
    return frame < series.size() ? series[frame] : none;
}

// V, C, K1, K2 and so on.
std::string starName(int index)
{
    switch (index) {
    case 0: return "V";
    case 1: return "C";
    default: return std::string("K").append(std::to_string(index - 1));
    }
}

TBrightnesEntry entryOf(std::string_view text)
{
    std::array<std::string_view, 5> items;
    cutParts(text, ';', items);
    return {toInt(items[0]), toInt(items[1]), toDouble(items[2]), toDouble(items[3]), toDouble(items[4])};
}

void appendEntry(TextBuffer& out, const TBrightnesEntry& entry)
{
    appendInt(out, entry.I1);
    out += ';';
    appendInt(out, entry.I2);
    for (const double value : {entry.D1, entry.D2, entry.D3}) {
        out += ';';
        appendFixed(out, value, 6);
    }
}

void appendFrame(TextBuffer& out, const TFrameBrightnes& frame)
{
    out += ExtractFileName(frame.name, Slash);
    out += ':';
    const char* separator = "";
    for (const TBrightnesEntry& entry : frame.entries) {
        out += separator;
        appendEntry(out, entry);
        separator = "\t";
    }
    out += '\n';
}

} // namespace

void SaveManyInstr(std::string path, const TrackVtorichka& track)
{
    TextBuffer text("JD+time\tm_cat\tmi_psf\tmi_strobe\tm_apert\tmi_apert\n");
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        appendCell(text, jdOf(mark), 10, '\t');
        appendCell(text, mark.m, 3, '\t');
        appendCell(text, mark.mInstr, 3, '\n');
    }
    writeText(path, text);
}

void SaveInstrVO(std::string path, const TrackVtorichka& track, double factor)
{
    TextBuffer text("JD\tmi_apert\n");
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        appendCell(text, jdOf(mark) * factor, 10, '\t');
        appendCell(text, mark.mInstr, 3, '\n');
    }
    writeText(path, text);
}

void smI(std::string path, std::vector<TLocPhotoBlob> blobs)
{
    TextBuffer text;
    for (const TLocPhotoBlob& blob : blobs) {
        appendCell(text, blob.Mark.Spare1, 5, '\n');
    }
    rewriteText(path, text);
}

void sVarSLightCurvesVO(std::string path, std::vector<TLocPhotoBlob> blobs, std::string timeLabel,
                        bool withHeader)
{
    TextBuffer text;
    if (withHeader) {
        text += timeLabel + "\tMag\tErrMag\tPathFit\n";
    }
    for (const TLocPhotoBlob& blob : blobs) {
        appendCell(text, mjdOf(blob.Mark), 7, '\t');
        appendCell(text, blob.Mark.mEnsemble, 5, '\t');
        appendCell(text, blob.Mark.Spare5, 5, '\t');
        text += ExtractFileName(blob.Head.PathFit, Slash);
        text += '\n';
    }
    rewriteText(path, text);
}

void lVarSLightCurvesVO(std::string path, bool withHeader, std::vector<TLocPhotoBlob>& blobs)
{
    const std::vector<std::string> lines = ReadFromFile(path);
    const std::size_t first = withHeader && !lines.empty() ? 1 : 0;
    blobs.resize(lines.size() - first);
    for (std::size_t i = 0; i < blobs.size(); ++i) {
        std::array<std::string_view, 2> items;
        cutParts(lines[first + i], '\t', items);
        const double time = toDouble(items[0]);
        TRecLabelPervichka_File& mark = blobs[i].Mark;
        mark.date = cutToInt(std::floor(time));
        mark.time = tavelinMath::Frac(time);
        mark.mEnsemble = toDouble(items[1]);
    }
}

void sVarSLightCurvesVE(std::string path, std::vector<TLocPhotoBlob> blobs, std::string timeLabel)
{
    TextBuffer text(timeLabel + "\tMag\n");
    for (const TLocPhotoBlob& blob : blobs) {
        appendCell(text, mjdOf(blob.Mark), 7, '\t');
        appendCell(text, blob.Mark.mEnsemble, 5, '\n');
    }
    rewriteText(path, text);
}

void sInstrMag(std::string path, double value, const std::vector<TFrameBrightnes>& frames)
{
    TextBuffer text;
    appendCell(text, value, 2, '\n');
    for (const TFrameBrightnes& frame : frames) {
        appendFrame(text, frame);
    }
    rewriteText(path, text);
}

void lInstrMag(std::string path, double& value, std::vector<TFrameBrightnes>& frames)
{
    const std::vector<std::string> lines = ReadFromFile(path);
    if (lines.empty()) {
        return;
    }
    value = toDouble(lines.front());
    if (lines.size() < 2) {
        return;
    }
    frames.resize(lines.size() - 1);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        std::array<std::string_view, 2> items;
        cutParts(lines[i + 1], ':', items);
        frames[i].name = items[0];
        PutInstrMag(std::string(items[1]), frames[i]);
    }
}

void PutInstrMag(std::string text, TFrameBrightnes& frame)
{
    frame.entries.clear();
    forEachToken(text, '\t', [&frame](std::string_view entry) { frame.entries.push_back(entryOf(entry)); });
}

void sFormatMuniwin(std::string path, std::vector<TLocPhotoBlob> objects,
                    std::vector<std::vector<TLocPhotoBlob>> series)
{
    TextBuffer text("JD\t");
    text += objects.empty() ? "" : objects.front().Mark.SpareText;
    text += '\t';
    for (const TLocPhotoBlob& star : starsOf(series, 0)) {
        text += star.Mark.KNAME;
        text += '\t';
    }
    text += '\n';
    for (std::size_t i = 0; i < objects.size(); ++i) {
        appendCell(text, mjdOf(objects[i].Mark), 7, '\t');
        appendCell(text, objects[i].Mark.Spare1, 5, '\t');
        for (const TLocPhotoBlob& star : starsOf(series, i)) {
            appendCell(text, star.Mark.Spare1, 5, '\t');
        }
        text += '\n';
    }
    rewriteText(path, text);
}

void sV_C_FormatMuniwin(std::string path, std::string filter, std::vector<TLocPhotoBlob> objects,
                        std::vector<std::vector<TLocPhotoBlob>> series)
{
    TextBuffer text("JD\t" + setHeadV_C(static_cast<int>(starsOf(series, 0).size()) + 1));
    text += "\nAperture: N * FWHM, Filter : " + filter + ", JD : geocentric\n";
    for (std::size_t i = 0; i < objects.size(); ++i) {
        appendCell(text, mjdOf(objects[i].Mark), 7, '\t');
        text += GetDataV_C(objects[i], starsOf(series, i));
        text += '\n';
    }
    rewriteText(path, text);
}

std::string setHeadV_C(int count)
{
    std::string header;
    for (int i = 0; i < count; ++i) {
        for (int j = i + 1; j < count; ++j) {
            header += starName(i) + "-" + starName(j) + "\t";
        }
    }
    return header;
}

std::string GetDataV_C(TLocPhotoBlob object, std::vector<TLocPhotoBlob> stars)
{
    std::vector<double> magnitudes{object.Mark.Spare1};
    for (const TLocPhotoBlob& star : stars) {
        magnitudes.push_back(star.Mark.Spare1);
    }
    TextBuffer data;
    for (std::size_t i = 0; i < magnitudes.size(); ++i) {
        for (std::size_t j = i + 1; j < magnitudes.size(); ++j) {
            appendCell(data, magnitudes[i] - magnitudes[j], 5, '\t');
        }
    }
    return data.str();
}

} // namespace tavelinUtils
