// Records of frames and of what was found on them.
//
// A blob is one detected object on one frame. Each stage of the pipeline keeps blobs in a record of its own;
// the mark is the form common to all.

#pragma once

#include "../export.h"
#include "pixel.h"
#include "track.h"

#include <cstddef>
#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// The head of a frame.
struct TFitHead
{
    int FrameNumber = 0;      ///< number of the frame in its series
    int date = 0;             ///< whole day of the mid-time, MJD
    double time = 0;          ///< fraction of that day
    int Width = 0;            ///< pixels
    int Height = 0;           ///< pixels
    double Exposure = 0;      ///< seconds
    std::string Instrument{}; ///< carried into the note of a light curve
    std::string Filter{};     ///< carried into the note of a light curve
    std::string PathFit{};    ///< path of the frame's file
    double CRVAL1 = 0;        ///< right ascension of the centre of the plate solution, degrees
    double CRVAL2 = 0;        ///< declination of the centre of the plate solution, degrees
    double CD[4] = {};        ///< matrix of the plate solution, in the order of its file
};

/// A frame with the marks on it.
struct THeadBlobs : TFitHead
{
    std::vector<TRecLabelPervichka_File> Marks{}; ///< the blobs of the frame
};

// The doubles of the table follow a single 32-bit code, so without gaps they are unaligned. Read and write
// the fields by value; bind no reference or pointer to one for longer than a statement.
#pragma pack(push, 1)

/// The flat form of a mark that travels in blob tables. A field has the meaning and the unit of the mark's
/// field of the same name.
struct TBlobTable
{
    BlobCode Code = BlobCode::ok; ///< BlobCode of the mark
    double X_bf = 0;              ///< pixels
    double Y_bf = 0;              ///< pixels
    double X_f = 0;               ///< pixels
    double Y_f = 0;               ///< pixels
    int AuxInt1 = 0;              ///< carried
    int AuxInt2 = 0;              ///< carried
    int TypeBlob = 0;             ///< number of the kind
    int AuxInt3 = 0;              ///< carried
    int LinkIndex = 0;            ///< carried
    double SNRafit = 0;           ///< signal-to-noise ratio
    double SNRasegm = 0;          ///< signal-to-noise ratio
    double SNRpeak = 0;           ///< signal-to-noise ratio
    double FWHM = 0;              ///< pixels
    double SigFit = 0;            ///< pixels
    double RMSFit = 0;            ///< ADU
    double SNcorrnotnorm = 0;     ///< measure of correlation
    double corrnorm = 0;          ///< measure of correlation
    double Exc = 0;               ///< eccentricity
    double Angle = 0;             ///< no unit is given
    double Length = 0;            ///< no unit is given
    double Width = 0;             ///< no unit is given
    double Radius = 0;            ///< no unit is given
    double A = 0;                 ///< no unit is given
    double Asegm = 0;             ///< no unit is given
    double Astrob = 0;            ///< no unit is given
    double RA = 0;                ///< degrees
    double AuxValue = 0;          ///< carried; between the coordinates here, after them in the mark
    double DE = 0;                ///< degrees
    double m = 0;                 ///< magnitudes
    double RefValue1 = 0;         ///< carried
    double RefValue2 = 0;         ///< carried
    double RefValue3 = 0;         ///< carried
    double RefValue4 = 0;         ///< degrees, or a residual
    double RefValue5 = 0;         ///< degrees, or a residual
    double RefValue6 = 0;         ///< a residual
    double RefValue7 = 0;         ///< carried
    double RefValue8 = 0;         ///< carried
    double RefValue9 = 0;         ///< carried
    int Tag1 = 0;                 ///< number of a group; else carried
    int Tag2 = 0;                 ///< carried
    int Tag3 = 0;                 ///< carried
    int Tag4 = 0;                 ///< carried
};

#pragma pack(pop)

static_assert(sizeof(TBlobTable) == 10 * sizeof(int) + 33 * sizeof(double),
              "the fields follow each other without gaps");

/// A blob of a group.
struct TIndVK
{
    int FrameNumber = 0; ///< number of the blob's frame
    int BlobIndex = 0;   ///< index of the blob on that frame
    int Third = 0;       ///< no file of representatives keeps it
};

static_assert(sizeof(TIndVK) == 12);

/// One star or object that stands for a group of blobs across frames.
struct TRepresent
{
    double X = 0;                ///< position; no unit is given
    double Y = 0;                ///< position; no unit is given
    double Value = 0;            ///< the column mFcat of SaveIndIC; else carried
    int Index = -1;              ///< carried; SaveIndIC reports whether it is below 0
    std::vector<TIndVK> Items{}; ///< the blobs of the group
};

/// A point of a segment.
struct TSegmentPoint
{
    int X = 0;        ///< pixels
    int Y = 0;        ///< pixels
    double Value = 0; ///< brightness of the pixel
};

static_assert(sizeof(TSegmentPoint) == 16);

/// A connected segment of pixels.
struct DTSegment
{
    int X = 0;                           ///< position, pixels
    int Y = 0;                           ///< position, pixels
    double Value = 0;                    ///< carried
    std::vector<TSegmentPoint> Points{}; ///< its pixels
};

/// One object with its outline.
struct TObjKontur
{
    int Kind = 0;                 ///< 1: the stored centre is used if it is set
    int X = 0;                    ///< position, pixels
    int Y = 0;                    ///< position, pixels
    double Value = 0;             ///< carried
    double ValueA = 0;            ///< a brightness; no unit is given
    std::vector<pixel> Contour{}; ///< the outline
    std::vector<pixel> Area{};    ///< all pixels
    int Index = 0;                ///< position in its list
    double XWeight = 0;           ///< stored centre, weighted by brightness, X, pixels
    double YWeight = 0;           ///< stored centre, weighted by brightness, Y, pixels
    double XMean = 0;             ///< stored centre, plain, X, pixels
    double YMean = 0;             ///< stored centre, plain, Y, pixels
    double ValueB = 0;            ///< takes ValueA where it is 0
    double Width = 0;             ///< measured width, pixels
    double Length = 0;            ///< measured length, pixels
    double Angle = 0;             ///< measured direction of the major axis, degrees
    double Exc = 0;               ///< measured eccentricity
};

/// A peak of a fitted blob. Each one that is built gets a number of its own; a copy keeps that of its
/// source. The counter is a plain one: peaks are built on one thread.
struct TRecPeak
{
    inline static int idCounter = 0; ///< the next number

    int id = nextId();  ///< the number that the counter gave
    int BlobNumber = 0; ///< number of the blob

private:
    // After the highest number comes the lowest.
    static int nextId()
    {
        const int id = idCounter;
        idCounter = static_cast<int>(static_cast<unsigned>(idCounter) + 1U);
        return id;
    }
};

/// A fitted blob as the stages work with it; `VihodFullBranch_file` is its form on disk. Building one counts
/// two peaks. Where the mark has a field of the same name, meaning and unit are those of that field.
struct VihodExt
{
    double X = 0;                            ///< pixels
    double Y = 0;                            ///< pixels
    double A = 0;                            ///< fitted amplitude; no unit is given
    double Asegm = 0;                        ///< amplitude of the segment; no unit is given
    double BackMean = 0;                     ///< carried
    double BackSKO = 0;                      ///< carried
    double SNRafit = 0;                      ///< signal-to-noise ratio of A
    double SNRasegm = 0;                     ///< signal-to-noise ratio of Asegm
    double SNRpeak = 0;                      ///< signal-to-noise ratio at the peak
    double Radius = 0;                       ///< radius of the blob; no unit is given
    double FWHM = 0;                         ///< pixels
    double SigFit = 0;                       ///< pixels
    double RMSratio = 0;                     ///< rms of the fit in units of A
    int Aux1 = 0;                            ///< carried
    int Aux2 = 0;                            ///< carried
    int Aux3 = 0;                            ///< carried
    double AstrobCount = 0;                  ///< becomes Astrob of the mark; a whole number on disk
    TPeakType PeakType{};                    ///< kind of peak
    TTypeBlob TypeBlob = TTypeBlob::prShort; ///< kind of blob
    double Width = 0;                        ///< width of the blob; no unit is given
    double Length = 0;                       ///< length of the blob; no unit is given
    double Angle = 0;                        ///< angle of the blob; no unit is given
    double Exc = 0;                          ///< eccentricity
    double Ref1 = 0;                         ///< carried
    double Ref2 = 0;                         ///< carried
    tavelinUtils::BlobCode BlobCode = tavelinUtils::BlobCode::ok; ///< verdict on the blob
    double Tail1 = 0;                                             ///< carried
    double Tail2 = 0;                                             ///< carried
    double Tail3 = 0;                                             ///< carried
    double Tail4 = 0;                                             ///< carried
    double Tail5 = 0;                                             ///< carried
    int Tail6 = 0;                                                ///< carried
    int LinkIndex = 0;                                            ///< carried
    double SNcorrnotnorm = 0;                                     ///< measure of correlation, not normalised
    double corrnorm = 0;                                          ///< measure of correlation, normalised
    int BlobNumber = 0;                                           ///< number of the blob
    TRecPeak Peak1{}; ///< first peak; it has the number of the blob
    TRecPeak Peak2{}; ///< second peak
    int Index = 0;    ///< position of the blob's object in the list of TObjKontur
};

/// A star of a catalogue.
struct TRecCat2
{
    double RA = 0;      ///< degrees
    double DE = 0;      ///< degrees
    double m = 0;       ///< magnitudes
    std::string Name{}; ///< name of the star
};

/// A point of a blob list.
struct TRecTRI
{
    double X = 0;      ///< pixels
    double Y = 0;      ///< pixels
    double Value3 = 0; ///< carried
    double Value4 = 0; ///< carried
    double Value5 = 0; ///< carried
    double Value6 = 0; ///< carried
    double Value7 = 0; ///< carried
    double Value8 = 0; ///< carried
    double Value9 = 0; ///< carried; the third column of a blob list
};

/// A comparison star.
struct TComparStar
{
    double A = 0; ///< amplitude; no unit is given
};

/// The fitted position of an object.
struct TFittObject
{
    double X = 0;  ///< pixels
    double Y = 0;  ///< pixels
    int Index = 0; ///< position in the list of TObjKontur
};

/// A blob of a track.
struct TIndFrBl
{
    int FrameNumber = 0; ///< number of the blob's frame
    int BlobIndex = 0;   ///< index of the blob on that frame
};

static_assert(sizeof(TIndFrBl) == 8);

/// The blobs of a fast object.
struct TBranch
{
    std::vector<TIndFrBl> Items{}; ///< one for each blob
};

/// A track of the Hough search.
struct THOKTrack
{
    double Value1 = 0;             ///< first value of the strobe; carried
    double Value2 = 0;             ///< second value of the strobe; carried
    double Value3 = 0;             ///< third value of the strobe; carried
    double Value4 = 0;             ///< fourth value of the strobe; carried
    double Value5 = 0;             ///< fifth value of the strobe; carried
    std::vector<TIndFrBl> Items{}; ///< its blobs
};

static_assert(offsetof(THOKTrack, Value1) == 0 && offsetof(THOKTrack, Items) == 40,
              "a file of strobes takes the first 40 bytes");

} // namespace tavelinUtils
