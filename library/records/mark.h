// A mark: one measurement of an object on one frame.
//
// Vtorichka is the second stage of the processing, Pervichka the first; a mark is a record of the first.

#pragma once

#include "../export.h"
#include "enumerations.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

// No gaps between the fields, because arrays of the record take part in the layouts of the pipeline. Read and
// write the fields by value; bind no reference or pointer to one for longer than a statement.
#pragma pack(push, 1)

/// One mark. A carried field is copied with the mark and by the conversions of blob_conversions.h; no format
/// gives it a meaning of its own. A field without a unit is a number
/// of its own, an index or a word, or says so. -1.0 in RefValue1 to RefValue9 means unset.
struct TRecLabelPervichka_File
{
    tavelinUtils::BlobCode BlobCode = tavelinUtils::BlobCode::ok; ///< verdict on the blob
    double X_bf = 0;                                              ///< X on the frame before fitting, pixels
    double Y_bf = 0;                                              ///< Y before fitting, pixels
    double X_f = 0;                                               ///< X after fitting, pixels
    double Y_f = 0;                                               ///< Y after fitting, pixels
    int AuxInt1 = 0;                                              ///< carried
    int AuxInt2 = 0;                                              ///< carried
    TTypeBlob TypeBlob = TTypeBlob::prShort;                      ///< kind of blob
    bool AuxFlag = false;                                         ///< carried
    int AuxInt3 = 0;                                              ///< carried
    int iFRaw = 0;                  ///< the column iF as read; -1 after a conversion from a blob table
    int iF = 0;                     ///< index of the frame, from 0; the column shows it from 1
    int AuxInt4 = 0;                ///< carried; -1 after a conversion from a blob table
    int iB = 0;                     ///< index of the blob on its frame
    int AuxInt5 = 0;                ///< carried
    int LinkIndex = -1;             ///< index of a linked blob, -1 for none; carried
    std::vector<int> LinkList{};    ///< carried
    double SNRafit = 0;             ///< signal-to-noise ratio of the fitted amplitude
    double SNRasegm = 0;            ///< signal-to-noise ratio of the segment's amplitude
    double SNRpeak = 0;             ///< signal-to-noise ratio at the peak
    double FWHM = 0;                ///< full width at half maximum, pixels
    double SigFit = 0;              ///< sigma of the fit, pixels
    double RMSFit = 0;              ///< rms of the fit, ADU
    double SNcorrnotnorm = 0;       ///< measure of correlation, not normalised
    double corrnorm = 0;            ///< measure of correlation, normalised
    double Exc = 0;                 ///< eccentricity of the blob
    double Angle = 0;               ///< angle of the blob; the column names no unit
    double Length = 0;              ///< length of the blob; the column names no unit
    double Width = 0;               ///< width of the blob; the column names no unit
    double Radius = 0;              ///< radius of the blob; the column names no unit
    double A = 0;                   ///< fitted amplitude, the flux of mInstr; the column names no unit
    double Asegm = 0;               ///< amplitude of the segment; the column names no unit
    double Astrob = 0;              ///< amplitude of the strobe; the column names no unit
    double mInstr = 0;              ///< instrumental magnitude
    double mInstr1000 = 0;          ///< instrumental magnitude at the reference range, for satellites
    int date = 0;                   ///< whole day of the mid-time, MJD
    double time = 0;                ///< fraction of that day: date + time is the MJD
    int bjd = 0;                    ///< whole day of the barycentric time
    double time_bjd = 0;            ///< fraction of that day
    double RA = 0;                  ///< right ascension, degrees
    double DE = 0;                  ///< declination, degrees
    double AuxValue = 0;            ///< carried
    double m = 0;                   ///< magnitude; it may be negative
    double RefValue1 = -1.0;        ///< carried
    double RefValue2 = -1.0;        ///< carried
    double RefValue3 = -1.0;        ///< carried
    double RefValue4 = -1.0;        ///< calculated right ascension, degrees; or its residual
    double RefValue5 = -1.0;        ///< calculated declination, degrees; or its residual
    double RefValue6 = -1.0;        ///< third residual; no unit is given
    double RefValue7 = -1.0;        ///< carried
    double RefValue8 = -1.0;        ///< carried
    double RefValue9 = -1.0;        ///< carried
    int Tag1 = 0;                   ///< number of the blob's group where iICtoBlob sets it; else carried
    int Tag2 = 0;                   ///< carried
    int Tag3 = 0;                   ///< carried
    int Tag4 = 0;                   ///< carried
    std::string filtr = "R";        ///< letter of the photometric filter
    std::string mjd{};              ///< the column mjd as read; it sets neither date nor time
    std::string QRVID{};            ///< identifier in the catalogue of the processing
    double Spare1 = 0;              ///< instrumental magnitude of a star's light curve; else carried
    double mEnsemble = 0;           ///< ensemble magnitude
    double Spare2 = 0;              ///< magnitude of a check star in the AAVSO report; else carried
    double Spare3 = 0;              ///< magnitude of a comparison star in a light curve; else carried
    double mInstrComp = 0;          ///< instrumental magnitude of the comparison
    double Spare4 = 0;              ///< carried
    double Spare5 = 0;              ///< error of mEnsemble in a star's light curve, magnitudes; else carried
    std::string SpareText{};        ///< name of the star in a star's light curve; else carried
    std::string KNAME{};            ///< name of the check star
    std::string MTYPE = "DIF";      ///< word for the kind of magnitude
    std::string CNAME = "ENSEMBLE"; ///< name of the comparison star
    std::string CHART = "na";       ///< identifier of the chart
    double SpareTail = 0;           ///< distance to the object, in the unit of the reference range
};

#pragma pack(pop)

static_assert(sizeof(TRecLabelPervichka_File) == 17 * sizeof(int) + sizeof(bool) + 45 * sizeof(double) +
                                                     sizeof(std::vector<int>) + 8 * sizeof(std::string),
              "the fields follow each other without gaps");

/// The order of marks by time, as the sum of `date` and `time`. Marks of equal time keep their places only
/// in a stable sort.
inline bool SortTrackByTime(const TRecLabelPervichka_File& a, const TRecLabelPervichka_File& b)
{
    return a.date + a.time < b.date + b.time;
}

} // namespace tavelinUtils
