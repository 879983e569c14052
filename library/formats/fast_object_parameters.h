// Parameters of the search for fast objects: a text file of one value per line, known by their line numbers.
//
//   night
//   4//All frames
//   3//Tress Num Frames for make track
//   ...
//   /data/tmp/blobFast_0.bin//path for 0 frames blobs

#pragma once

#include "../config/settings.h"
#include "../export.h"
#include "../records/blob.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// The values of a parameter file, in the order of its lines, the first of which is a free text.
struct TFastSearchParam
{
    int AllFrames = 0;   ///< how many frames there are; the size of BlobPaths
    int TrackFrames = 0; ///< least number of frames for a track
    int TieFrames = 0;
    int RejectFrames = 0;
    double MinSpeed = 0;
    double MaxSpeed = 0;
    double XYVariance = 0;
    double MagVariance = 0;
    double AngleMatch = 0;   ///< between a measured angle and that of the trajectory
    double BlobAngleRMS = 0; ///< among the blobs of a track
    double Strob2Res = 0;
    double BlobLengthRMS = 0;
    int FrameWidth = 0; ///< pixels
    int FrameHeight = 0;
    double Exposure = 0; ///< seconds
    double BlobLengthKoef = 0;
    double DubAngle = 0; ///< residuals below which one of two tracks goes, as in the next two
    double DubVelocity = 0;
    double DubPosition = 0;
    bool UseFindOrb = false;
    double ThreshResRADEC = 0.1;
    std::string PathFindOrb{};
    std::string PathOut{};
    std::string PathLog{};
    std::string PathRes{};
    std::vector<std::string> BlobPaths{}; ///< the blob file of each frame
    double AngleUpper = 360.0;            ///< no line sets these two
    double AngleLower = -360.0;
};

/// The values of a parameter file without comments. Nothing here interprets them: they are numbered within
/// their types, and the lines of the file have another order.
struct TParHOK
{
    std::string Name{};
    std::string Path{};
    int I1 = 0;
    int I2 = 0;
    int I3 = 0;
    int I4 = 0;
    int I5 = 0;
    int I6 = 0;
    int I7 = 0;
    int I8 = 0;
    int I9 = 0;
    int I10 = 0;
    double D1 = 0;
    double D2 = 0;
    double D3 = 0; ///< a whole number in the file
    double D4 = 0;
    double D5 = 0;
    double D6 = 0;
    int Count = 0; ///< the size of Values
    int I11 = 0;
    int I12 = 0;
    double D7 = 0;
    double D8 = 0;
    std::vector<double> Values{};
};

/// Replaces the file by the parameters of a search: the arguments, and thresholds and paths of the settings.
/// Each value is followed by its comment, except the name, which is the first line. Throws TavelinException
/// with code 7 and the path for a file that cannot be written.
void sParamFAST(std::string path, std::string name, std::string pathOut, std::string pathRes,
                const TPorogs& porogs, int allFrames, int width, int height, int trackFrames, double exposure,
                const std::vector<std::string>& paths);

/// Writes the marks of each frame to "blobFast_<number>.bin" in the folder of the path, numbered from 0,
/// appends the paths of these files to the list, and writes the parameters with the list. Width, height and
/// exposure are those of the first frame, 0 where there is none. A file of blobs that cannot be written is
/// not reported; the parameters throw as sParamFAST does.
void sParamFastObjTaVeLin2(std::string path, std::string name, std::string pathOut, std::string pathRes,
                           const TPorogs& porogs, const std::vector<THeadBlobs>& frames, int trackFrames,
                           std::vector<std::string>& paths);

/// Reads the parameters that sParamFAST writes. A value ends at the first "//" of its line, so a text that
/// holds one is cut there, and one that ends in "/" loses it. BlobPaths has as many entries as AllFrames
/// says, whatever the file holds: those without a line are empty, lines beyond them are not read. It stays
/// empty where AllFrames is negative, or above both 65,536 and the size of the file. A number that is none is
/// 0, and what a file is too short for keeps its default; so does all of a missing one.
TFastSearchParam LTextParamForSearchFastAstroObj(std::string path);

/// Reads a parameter file without comments. Values has as many entries as Count says, by the same rules.
TParHOK lParHOKv2(std::string path);

} // namespace tavelinUtils
