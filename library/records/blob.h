// Records of frames and of what was found on them.
//
// A blob is one detected object on one frame. Each stage of the pipeline keeps blobs in a record of its own;
// the mark is the form common to all.

#pragma once

#include "pixel.h"
#include "track.h"

#include <cstddef>
#include <string>
#include <vector>

namespace tavelinUtils {

/// The head of a frame.
struct TFitHead
{
    int FrameNumber = 0;
    int date = 0;    ///< whole MJD of the mid-time
    double time = 0; ///< and its fraction of the day
    int Width = 0;   ///< pixels
    int Height = 0;
    double Exposure = 0; ///< seconds
    std::string Instrument{};
    std::string Filter{};
    std::string PathFit{}; ///< the frame's file
    double CRVAL1 = 0;     ///< centre of the plate solution, degrees
    double CRVAL2 = 0;
    double CD[4] = {}; ///< matrix of the plate solution
};

/// A frame with the marks on it.
struct THeadBlobs : TFitHead
{
    std::vector<TRecLabelPervichka_File> Marks{};
};

// The doubles of the table stand behind a single 32-bit code, so without gaps they are unaligned. Read and
// write the fields by value; bind no reference or pointer to one beyond a statement.
#pragma pack(push, 1)

/// The flat form of a mark that travels in blob tables. Fields are those of the mark of the same name.
struct TBlobTable
{
    BlobCode Code = BlobCode::ok;
    double X_bf = 0;
    double Y_bf = 0;
    double X_f = 0;
    double Y_f = 0;
    int AuxInt1 = 0;
    int AuxInt2 = 0;
    int TypeBlob = 0;
    int AuxInt3 = 0;
    int LinkIndex = 0;
    double SNRafit = 0;
    double SNRasegm = 0;
    double SNRpeak = 0;
    double FWHM = 0;
    double SigFit = 0;
    double RMSFit = 0;
    double SNcorrnotnorm = 0;
    double corrnorm = 0;
    double Exc = 0;
    double Angle = 0;
    double Length = 0;
    double Width = 0;
    double Radius = 0;
    double A = 0;
    double Asegm = 0;
    double Astrob = 0;
    double RA = 0;
    double AuxValue = 0; ///< between the coordinates here, behind them in the mark
    double DE = 0;
    double m = 0;
    double RefValue1 = 0;
    double RefValue2 = 0;
    double RefValue3 = 0;
    double RefValue4 = 0;
    double RefValue5 = 0;
    double RefValue6 = 0;
    double RefValue7 = 0;
    double RefValue8 = 0;
    double RefValue9 = 0;
    int Tag1 = 0;
    int Tag2 = 0;
    int Tag3 = 0;
    int Tag4 = 0;
};

#pragma pack(pop)

static_assert(sizeof(TBlobTable) == 10 * sizeof(int) + 33 * sizeof(double),
              "the fields follow each other without gaps");

/// A blob of a group: its frame and its place there.
struct TIndVK
{
    int FrameNumber = 0;
    int BlobIndex = 0;
    int Third = 0; ///< no file of representatives keeps it
};

static_assert(sizeof(TIndVK) == 12);

/// One star or object that stands for a group of blobs across frames.
struct TRepresent
{
    double X = 0;
    double Y = 0;
    double Value = 0;
    int Index = -1;
    std::vector<TIndVK> Items{};
};

/// A point of a segment.
struct TSegmentPoint
{
    int X = 0;
    int Y = 0;
    double Value = 0;
};

static_assert(sizeof(TSegmentPoint) == 16);

/// A connected segment of pixels.
struct DTSegment
{
    int X = 0;
    int Y = 0;
    double Value = 0;
    std::vector<TSegmentPoint> Points{};
};

/// One object with its outline.
struct TObjKontur
{
    int Kind = 0; ///< 1: the stored centre is used if it is set
    int X = 0;    ///< position, pixels
    int Y = 0;
    double Value = 0;
    double ValueA = 0;            ///< a brightness
    std::vector<pixel> Contour{}; ///< the outline
    std::vector<pixel> Area{};    ///< all pixels
    int Index = 0;                ///< position in its list
    double XWeight = 0;           ///< the stored centre: weighted by brightness, and plain
    double YWeight = 0;
    double XMean = 0;
    double YMean = 0;
    double ValueB = 0; ///< takes ValueA where it is 0
    double Width = 0;  ///< the measured shape, pixels and degrees
    double Length = 0;
    double Angle = 0;
    double Exc = 0;
};

/// A peak of a fitted blob. Each one that is built gets a number of its own; a copy keeps that of its
/// source. The counter is a plain one: peaks are built on one thread.
struct TRecPeak
{
    inline static int idCounter = 0;

    int id = nextId();
    int BlobNumber = 0;

private:
    // Goes on at the lowest number behind the highest.
    static int nextId()
    {
        const int id = idCounter;
        idCounter = static_cast<int>(static_cast<unsigned>(idCounter) + 1U);
        return id;
    }
};

/// A fitted blob as the stages work with it; `VihodFullBranch_file` is its form on disk. Building one counts
/// two peaks.
struct VihodExt
{
    double X = 0; ///< pixels
    double Y = 0;
    double A = 0;
    double Asegm = 0;
    double BackMean = 0;
    double BackSKO = 0;
    double SNRafit = 0;
    double SNRasegm = 0;
    double SNRpeak = 0;
    double Radius = 0;
    double FWHM = 0;
    double SigFit = 0;
    double RMSratio = 0;
    int Aux1 = 0;
    int Aux2 = 0;
    int Aux3 = 0;
    double AstrobCount = 0;
    TPeakType PeakType{};
    TTypeBlob TypeBlob = TTypeBlob::prShort;
    double Width = 0;
    double Length = 0;
    double Angle = 0;
    double Exc = 0;
    double Ref1 = 0;
    double Ref2 = 0;
    tavelinUtils::BlobCode BlobCode = tavelinUtils::BlobCode::ok;
    double Tail1 = 0;
    double Tail2 = 0;
    double Tail3 = 0;
    double Tail4 = 0;
    double Tail5 = 0;
    int Tail6 = 0;
    int LinkIndex = 0;
    double SNcorrnotnorm = 0;
    double corrnorm = 0;
    int BlobNumber = 0;
    TRecPeak Peak1{};
    TRecPeak Peak2{};
    int Index = 0; ///< position of the blob's object in the list of TObjKontur
};

/// A star of a catalogue.
struct TRecCat2
{
    double RA = 0; ///< degrees
    double DE = 0;
    double m = 0;
    std::string Name{};
};

/// A point of a blob list.
struct TRecTRI
{
    double X = 0; ///< pixels
    double Y = 0;
    double Value3 = 0;
    double Value4 = 0;
    double Value5 = 0;
    double Value6 = 0;
    double Value7 = 0;
    double Value8 = 0;
    double Value9 = 0;
};

/// A comparison star.
struct TComparStar
{
    double A = 0; ///< amplitude
};

/// The fitted position of an object.
struct TFittObject
{
    double X = 0;
    double Y = 0;
    int Index = 0; ///< position in the list of TObjKontur
};

/// A blob of a track: its frame and its place there.
struct TIndFrBl
{
    int FrameNumber = 0;
    int BlobIndex = 0;
};

static_assert(sizeof(TIndFrBl) == 8);

/// The blobs of a fast object.
struct TBranch
{
    std::vector<TIndFrBl> Items{};
};

/// A track of the Hough search: the five values of its strobe, and its blobs.
struct THOKTrack
{
    double Value1 = 0;
    double Value2 = 0;
    double Value3 = 0;
    double Value4 = 0;
    double Value5 = 0;
    std::vector<TIndFrBl> Items{};
};

static_assert(offsetof(THOKTrack, Value1) == 0 && offsetof(THOKTrack, Items) == 40,
              "a file of strobes takes the first 40 bytes");

} // namespace tavelinUtils
