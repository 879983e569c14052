// Tables of the variable-star branch: instrumental magnitudes, light curves of one star, V-C tables.
//
// The V-C tables are those of the Muniwin program. Some times are Julian dates and some Modified ones,
// whatever the column is called: each function says which. Unless a function says otherwise, a file that
// cannot be written is not reported.

#pragma once

#include "../export.h"
#include "../records/photo_blob.h"
#include "../records/track.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// An object's brightness on one frame, among those of a frame.
struct TBrightnesEntry
{
    int I1 = 0;
    int I2 = 0;
    double D1 = 0;
    double D2 = 0;
    double D3 = 0;
};

/// The brightness list of one frame.
struct TFrameBrightnes
{
    std::string name{}; ///< the frame's file
    std::vector<TBrightnesEntry> entries{};
};

/// Replaces the file by Julian date, magnitude and instrumental magnitude of each mark: three fields,
/// although the column line names six. Throws TavelinException with code 7 and the path for a file that
/// cannot be written.
void SaveManyInstr(std::string path, const TrackVtorichka& track);

/// Replaces the file by Julian date, times the factor, and instrumental magnitude of each mark. Throws as the
/// one above.
void SaveInstrVO(std::string path, const TrackVtorichka& track, double factor);

/// Replaces the file by the instrumental magnitude Spare1 of each star.
void smI(std::string path, std::vector<TLocPhotoBlob> blobs);

/// Replaces the file by MJD, ensemble magnitude, its error Spare5 and frame of each blob, below a column
/// line that the label opens, or without one.
void sVarSLightCurvesVO(std::string path, std::vector<TLocPhotoBlob> blobs, std::string timeLabel,
                        bool withHeader);

/// Reads time and ensemble magnitude of such a table into the list, which gets as many blobs as there are
/// data lines; none for a missing file. Text that is no number counts as 0.
void lVarSLightCurvesVO(std::string path, bool withHeader, std::vector<TLocPhotoBlob>& blobs);

/// Replaces the file by MJD and ensemble magnitude of each blob, below a column line that the label opens.
void sVarSLightCurvesVE(std::string path, std::vector<TLocPhotoBlob> blobs, std::string timeLabel);

/// Replaces the file by the value and a line for each frame: its file's name, ":", and its entries.
void sInstrMag(std::string path, double value, const std::vector<TFrameBrightnes>& frames);

/// Reads such a file into the value and the list. A missing file leaves both, one line alone leaves the
/// list.
void lInstrMag(std::string path, double& value, std::vector<TFrameBrightnes>& frames);

/// Reads the entries of a frame, "1;2;0.5;0.25;0.125" with a tab between them.
void PutInstrMag(std::string text, TFrameBrightnes& frame);

/// Replaces the file by MJD and Spare1 of the object and of each star of its frame. A frame without stars
/// leaves their columns away.
void sFormatMuniwin(std::string path, std::vector<TLocPhotoBlob> objects,
                    std::vector<std::vector<TLocPhotoBlob>> series);

/// Replaces the file by MJD and the differences of GetDataV_C, below a line that setHeadV_C names for the
/// stars of the first frame.
void sV_C_FormatMuniwin(std::string path, std::string filter, std::vector<TLocPhotoBlob> objects,
                        std::vector<std::vector<TLocPhotoBlob>> series);

/// The names of the differences between so many stars, V, C, K1, K2 and so on, each followed by a tab:
/// "V-C\tV-K1\tC-K1\t" for three.
std::string setHeadV_C(int count);

/// The differences of Spare1 between the object and the stars, in the order of those names.
std::string GetDataV_C(TLocPhotoBlob object, std::vector<TLocPhotoBlob> stars);

} // namespace tavelinUtils
