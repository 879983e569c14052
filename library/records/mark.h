// A mark: one measurement of an object on one frame.
//
// Vtorichka is the second stage of the processing, Pervichka the first; a mark is a record of the first.

#pragma once

#include "enumerations.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tavelinUtils {

// Byte-packed, because arrays of it take part in the layouts of the pipeline. Read and write the fields by
// value; bind no reference or pointer to one beyond a statement.
#pragma pack(push, 1)

/// One mark. Coordinates on the frame are in pixels, right ascension and declination in degrees,
/// brightness in magnitudes; the time of a mark is `date` + `time`, a whole MJD day and its fraction. An
/// unset calculated value is -1.0. The fields Aux*, Link*, Tag*, Spare* and RefValue1 to RefValue3 and
/// RefValue7 to RefValue9 are only carried.
struct TRecLabelPervichka_File
{
    tavelinUtils::BlobCode BlobCode = tavelinUtils::BlobCode::ok;
    double X_bf = 0; ///< before fitting
    double Y_bf = 0;
    double X_f = 0; ///< after fitting
    double Y_f = 0;
    int AuxInt1 = 0;
    int AuxInt2 = 0;
    TTypeBlob TypeBlob = TTypeBlob::prShort;
    bool AuxFlag = false;
    int AuxInt3 = 0;
    int iFRaw = 0; ///< the column iF as read; -1 after a conversion from a blob table
    int iF = 0;    ///< frame, from 0; the column shows it from 1
    int AuxInt4 = 0;
    int iB = 0; ///< blob within the frame
    int AuxInt5 = 0;
    int LinkIndex = -1;
    std::vector<int> LinkList{};
    double SNRafit = 0;
    double SNRasegm = 0;
    double SNRpeak = 0;
    double FWHM = 0;   ///< pixels
    double SigFit = 0; ///< pixels
    double RMSFit = 0; ///< ADU
    double SNcorrnotnorm = 0;
    double corrnorm = 0;
    double Exc = 0;
    double Angle = 0;
    double Length = 0;
    double Width = 0;
    double Radius = 0;
    double A = 0;      ///< fitted amplitude
    double Asegm = 0;  ///< amplitude of the segment
    double Astrob = 0; ///< amplitude of the strobe
    double mInstr = 0;
    double mInstr1000 = 0;
    int date = 0;
    double time = 0;
    int bjd = 0; ///< barycentric time: whole day and fraction
    double time_bjd = 0;
    double RA = 0;
    double DE = 0;
    double AuxValue = 0;
    double m = 0;
    double RefValue1 = -1.0;
    double RefValue2 = -1.0;
    double RefValue3 = -1.0;
    double RefValue4 = -1.0; ///< calculated right ascension, or its residual
    double RefValue5 = -1.0; ///< calculated declination, or its residual
    double RefValue6 = -1.0; ///< third residual
    double RefValue7 = -1.0;
    double RefValue8 = -1.0;
    double RefValue9 = -1.0;
    int Tag1 = 0;
    int Tag2 = 0;
    int Tag3 = 0;
    int Tag4 = 0;
    std::string filtr = "R"; ///< photometric filter
    std::string mjd{};       ///< the text of a column; it sets neither date nor time
    std::string QRVID{};
    double Spare1 = 0;
    double mEnsemble = 0;
    double Spare2 = 0;
    double Spare3 = 0;
    double mInstrComp = 0;
    double Spare4 = 0;
    double Spare5 = 0;
    std::string SpareText{};
    std::string KNAME{};            ///< check star
    std::string MTYPE = "DIF";      ///< kind of magnitude
    std::string CNAME = "ENSEMBLE"; ///< comparison star
    std::string CHART = "na";
    double SpareTail = 0; ///< distance to the object
};

#pragma pack(pop)

static_assert(sizeof(TRecLabelPervichka_File) == 17 * sizeof(int) + sizeof(bool) + 45 * sizeof(double) +
                                                     sizeof(std::vector<int>) + 8 * sizeof(std::string),
              "the fields follow each other without gaps");

/// Asks the memory for the measured fields of a mark some places ahead. A mark spans a dozen cache lines, of
/// which a writer wants three: without this it waits for each of them.
inline void fetchAhead(const std::vector<TRecLabelPervichka_File>& marks, std::size_t index)
{
    constexpr std::size_t ahead = 4;
    if (index + ahead < marks.size()) {
        const auto* const mark = reinterpret_cast<const char*>(&marks[index + ahead]);
        __builtin_prefetch(mark + offsetof(TRecLabelPervichka_File, date));
        __builtin_prefetch(mark + offsetof(TRecLabelPervichka_File, m));
        __builtin_prefetch(mark + offsetof(TRecLabelPervichka_File, filtr));
    }
}

/// The order of marks by time, as the sum of `date` and `time`. Marks of equal time keep their places only
/// in a stable sort.
inline bool SortTrackByTime(const TRecLabelPervichka_File& a, const TRecLabelPervichka_File& b)
{
    return a.date + a.time < b.date + b.time;
}

} // namespace tavelinUtils
