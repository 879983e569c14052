#include "formats/fast_object_parameters.h"

#include "base/bytes.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "exchange/blob_files.h"
#include "exchange/record_io.h"
#include "files/essentials.h"
#include "files/text_files.h"
#include "files/text_reading.h"
#include "records/blob_conversions.h"
#include "text/number_text.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>

namespace tavelinUtils {
namespace {

constexpr std::string_view commentMark = "//";
constexpr std::string_view blobFilePrefix = "blobFast_";
constexpr std::string_view blobFileExtension = ".bin";

void readValue(int& value, std::string_view text)
{
    value = toInt(text);
}

void readValue(double& value, std::string_view text)
{
    value = toDouble(text);
}

void readValue(bool& value, std::string_view text)
{
    value = StrToBool(std::string(text));
}

void readValue(std::string& value, std::string_view text)
{
    value = text;
}

std::string textOf(int value)
{
    return IntToStr(value);
}

std::string textOf(double value)
{
    return FloatToStr(value);
}

std::string textOf(bool value)
{
    return BoolToStr(value);
}

const std::string& textOf(const std::string& value)
{
    return value;
}

// A line of the file: the member that it is read into and written from, and the comment after its value.
struct FastSearchLine
{
    void (*read)(TFastSearchParam& parameters, std::string_view text);
    void (*append)(std::string& out, const TFastSearchParam& parameters);
    std::string_view comment;
};

template <auto member>
constexpr FastSearchLine lineOf(std::string_view comment)
{
    return {[](TFastSearchParam& parameters, std::string_view text) { readValue(parameters.*member, text); },
            [](std::string& out, const TFastSearchParam& parameters) { out += textOf(parameters.*member); },
            comment};
}

// Lines 1 to 25; line 0 is the name. "Tress" and "velosity" are spelled so in all files of the kind.
constexpr FastSearchLine fastSearchLines[] = {
    lineOf<&TFastSearchParam::AllFrames>("All frames"),
    lineOf<&TFastSearchParam::TrackFrames>("Tress Num Frames for make track"),
    lineOf<&TFastSearchParam::TieFrames>("Num Frames for Tie"),
    lineOf<&TFastSearchParam::RejectFrames>("Num Frames for Reject Branch"),
    lineOf<&TFastSearchParam::MinSpeed>("Tress min speed"),
    lineOf<&TFastSearchParam::MaxSpeed>("Tress max speed"),
    lineOf<&TFastSearchParam::XYVariance>("Tress XY variance"),
    lineOf<&TFastSearchParam::MagVariance>("Tress mag variance"),
    lineOf<&TFastSearchParam::AngleMatch>("correspondence of the measurement angle and the trajectory angle"),
    lineOf<&TFastSearchParam::BlobAngleRMS>("Tress RMS angle of blobs for track"),
    lineOf<&TFastSearchParam::Strob2Res>("Tress RES. for Strob2"),
    lineOf<&TFastSearchParam::BlobLengthRMS>("Tress RMS for length blobs"),
    lineOf<&TFastSearchParam::FrameWidth>("frame width"),
    lineOf<&TFastSearchParam::FrameHeight>("frame height"),
    lineOf<&TFastSearchParam::Exposure>("exposure time"),
    lineOf<&TFastSearchParam::BlobLengthKoef>("Koef. length of blob"),
    lineOf<&TFastSearchParam::DubAngle>("residual angle for delete dubl track"),
    lineOf<&TFastSearchParam::DubVelocity>("residual velosity for delete dubl track"),
    lineOf<&TFastSearchParam::DubPosition>("residual position for delete dubl track"),
    lineOf<&TFastSearchParam::UseFindOrb>("useFind_Orb"),
    lineOf<&TFastSearchParam::ThreshResRADEC>("threshResRADEC"),
    lineOf<&TFastSearchParam::PathFindOrb>("pathFindOrb"),
    lineOf<&TFastSearchParam::PathOut>("pathOUT"),
    lineOf<&TFastSearchParam::PathLog>("pathLog"),
    lineOf<&TFastSearchParam::PathRes>("pathRes"),
};
constexpr std::size_t firstFastSearchLine = 1;
constexpr std::size_t firstBlobPathLine = firstFastSearchLine + std::size(fastSearchLines);

// A line of the file without comments; a null pointer for one that is not read.
using HOKLine = void (*)(TParHOK& parameters, std::string_view text);

template <auto member>
void readMember(TParHOK& parameters, std::string_view text)
{
    readValue(parameters.*member, text);
}

// Lines 0 to 23.
constexpr HOKLine hokLines[] = {
    readMember<&TParHOK::Name>,
    readMember<&TParHOK::Count>,
    readMember<&TParHOK::I1>,
    readMember<&TParHOK::I2>,
    readMember<&TParHOK::I4>,
    readMember<&TParHOK::I3>,
    readMember<&TParHOK::D5>,
    readMember<&TParHOK::I7>,
    readMember<&TParHOK::D1>,
    readMember<&TParHOK::I10>,
    readMember<&TParHOK::I9>,
    readMember<&TParHOK::I11>,
    readMember<&TParHOK::I6>,
    readMember<&TParHOK::I5>,
    readMember<&TParHOK::I12>,
    readMember<&TParHOK::D2>,
    readMember<&TParHOK::D6>,
    readMember<&TParHOK::D7>,
    readMember<&TParHOK::D4>,
    readMember<&TParHOK::I8>,
    [](TParHOK& parameters, std::string_view text) {
        parameters.D3 = toInt(text);
    }, // its fraction is not read
    readMember<&TParHOK::D8>,
    readMember<&TParHOK::Path>,
    nullptr,
};

TFastSearchParam parametersOf(const TPorogs& porogs)
{
    TFastSearchParam parameters;
    parameters.TieFrames = porogs.vo.TieFrames;
    parameters.RejectFrames = porogs.vo.RejectFrames;
    parameters.MinSpeed = porogs.vo.MinSpeed;
    parameters.MaxSpeed = porogs.vo.MaxSpeed;
    parameters.XYVariance = porogs.vo.dispersion_xy;
    parameters.MagVariance = porogs.vo.dispersion_mag;
    parameters.AngleMatch = porogs.vo.corr_meaangle_traangle;
    parameters.BlobAngleRMS = porogs.vo.rms_angle;
    parameters.Strob2Res = porogs.vo.Strob2Res;
    parameters.BlobLengthRMS = porogs.vo.BlobLengthRMS;
    parameters.BlobLengthKoef = porogs.vo.BlobLengthKoef;
    parameters.DubAngle = porogs.vo.DubAngle;
    parameters.DubVelocity = porogs.vo.DubVelocity;
    parameters.DubPosition = porogs.vo.DubPosition;
    parameters.UseFindOrb = porogs.vo.use_find_orb;
    parameters.ThreshResRADEC = porogs.vo.thresh_find_orb;
    parameters.PathFindOrb = porogs.exe.FindOrb;
    parameters.PathLog = porogs.input.PathLog;
    return parameters;
}

// The value of a line, cut as if the mark of a comment followed it: a "/" at the end is lost.
std::string_view valueOf(std::string_view line)
{
    const std::size_t end = line.find(commentMark);
    if (end == std::string_view::npos && line.ends_with('/')) {
        line.remove_suffix(1);
    }
    return line.substr(0, end);
}

std::vector<std::string_view> linesOf(const FileBytes& file)
{
    std::vector<std::string_view> lines;
    lines.reserve(countLines(file.view()));
    forEachLine(file.view(), [&lines](std::string_view line) { lines.push_back(line); });
    return lines;
}

// Calls read(element, line) for each element and the lines from the first on, as far as both go.
template <class Element, class Read>
void fill(std::vector<Element>& list, const std::vector<std::string_view>& lines, std::size_t first,
          Read read)
{
    for (std::size_t i = 0; i < list.size() && first + i < lines.size(); ++i) {
        read(list[i], lines[first + i]);
    }
}

} // namespace

void sParamFAST(std::string path, std::string name, std::string pathOut, std::string pathRes,
                const TPorogs& porogs, int allFrames, int width, int height, int trackFrames, double exposure,
                const std::vector<std::string>& paths)
{
    TFastSearchParam parameters = parametersOf(porogs);
    parameters.AllFrames = allFrames;
    parameters.TrackFrames = trackFrames;
    parameters.FrameWidth = width;
    parameters.FrameHeight = height;
    parameters.Exposure = exposure;
    parameters.PathOut = pathOut;
    parameters.PathRes = pathRes;
    std::string text = name + '\n';
    for (const FastSearchLine& line : fastSearchLines) {
        line.append(text, parameters);
        text += commentMark;
        text += line.comment;
        text += '\n';
    }
    for (std::size_t i = 0; i < paths.size(); ++i) {
        text += paths[i];
        text += commentMark;
        text += "path for " + std::to_string(i) + " frames blobs\n";
    }
    writeText(path, text);
}

void sParamFastObjTaVeLin2(std::string path, std::string name, std::string pathOut, std::string pathRes,
                           const TPorogs& porogs, const std::vector<THeadBlobs>& frames, int trackFrames,
                           std::vector<std::string>& paths)
{
    const std::string folder = ExtractPath(path);
    // A bare name lies in the current folder.
    const std::string blobFile = (folder == path ? "" : folder + Slash).append(blobFilePrefix);
    for (std::size_t i = 0; i < frames.size(); ++i) {
        paths.push_back((blobFile + std::to_string(i)).append(blobFileExtension));
        sBlobFastVO(paths.back(), TRecLabelPervichkaToTVOBlob(frames[i].Marks));
    }
    const THeadBlobs none;
    const TFitHead& first = frames.empty() ? none : frames.front();
    sParamFAST(path, name, pathOut, pathRes, porogs, static_cast<int>(frames.size()), first.Width,
               first.Height, trackFrames, first.Exposure, paths);
}

TFastSearchParam LTextParamForSearchFastAstroObj(std::string path)
{
    TFastSearchParam parameters;
    FileBytes file;
    if (!readText(path, file)) {
        return parameters;
    }
    const std::vector<std::string_view> lines = linesOf(file);
    const std::size_t end = std::min(lines.size(), firstBlobPathLine);
    for (std::size_t i = firstFastSearchLine; i < end; ++i) {
        fastSearchLines[i - firstFastSearchLine].read(parameters, valueOf(lines[i]));
    }
    parameters.BlobPaths.resize(headCount(parameters.AllFrames, file.size).value_or(0));
    fill(parameters.BlobPaths, lines, firstBlobPathLine,
         [](std::string& blobPath, std::string_view line) { blobPath = valueOf(line); });
    return parameters;
}

TParHOK lParHOKv2(std::string path)
{
    TParHOK parameters;
    FileBytes file;
    if (!readText(path, file)) {
        return parameters;
    }
    const std::vector<std::string_view> lines = linesOf(file);
    const std::size_t end = std::min(lines.size(), std::size(hokLines));
    for (std::size_t i = 0; i < end; ++i) {
        if (hokLines[i] != nullptr) {
            hokLines[i](parameters, lines[i]);
        }
    }
    parameters.Values.resize(headCount(parameters.Count, file.size).value_or(0));
    fill(parameters.Values, lines, std::size(hokLines),
         [](double& value, std::string_view line) { value = toDouble(line); });
    return parameters;
}

} // namespace tavelinUtils
