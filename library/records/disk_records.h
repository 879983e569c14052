// Records that files store byte by byte: what the tools of the pipeline exchange.
//
// Integers have 32 bits, floats are IEEE 754, all in the machine's little-endian order. A gap is a member of
// its own, so that no byte of a record is left to the compiler; the writers put zero there whatever it holds.

#pragma once

#include "../export.h"

#include <bit>
#include <cstddef>

namespace TAVELIN_API tavelinUtils {

static_assert(std::endian::native == std::endian::little, "the files hold the bytes of the records");

/// A fitted blob as the fitting branch stores it. Kinds and codes are plain numbers here.
struct VihodFullBranch_file
{
    double X = 0;                 ///< pixels
    double Y = 0;                 ///< pixels
    double A = 0;                 ///< fitted amplitude; no unit is given
    double Asegm = 0;             ///< amplitude of the segment; no unit is given
    double BackMean = 0;          ///< carried
    double BackSKO = 0;           ///< carried
    double SNRafit = 0;           ///< signal-to-noise ratio of A
    double SNRasegm = 0;          ///< signal-to-noise ratio of Asegm
    double SNRpeak = 0;           ///< signal-to-noise ratio at the peak
    double Radius = 0;            ///< radius of the blob; no unit is given
    unsigned char Gap80[16] = {}; ///< zero
    double FWHM = 0;              ///< pixels
    double SigFit = 0;            ///< pixels
    double RMSratio = 0;          ///< rms of the fit in units of A
    int Aux1 = 0;                 ///< carried
    int Aux2 = 0;                 ///< carried
    int Aux3 = 0;                 ///< carried
    int AstrobCount = 0;          ///< becomes Astrob of the mark
    int PeakType = 0;             ///< number of the kind of peak
    unsigned char Gap140[4] = {}; ///< zero
    double Width = 0;             ///< width of the blob; no unit is given
    double Length = 0;            ///< length of the blob; no unit is given
    double Angle = 0;             ///< angle of the blob; no unit is given
    double Exc = 0;               ///< eccentricity
    int TypeBlob = 0;             ///< number of the kind of blob
    unsigned char Gap180[4] = {}; ///< zero
    double Ref1 = 0;              ///< carried
    double Ref2 = 0;              ///< carried
    int BlobCode = 0;             ///< number of the verdict on the blob
    unsigned char Gap204[4] = {}; ///< zero
    double Tail1 = 0;             ///< carried
    double Tail2 = 0;             ///< carried
    double Tail3 = 0;             ///< carried
    double Tail4 = 0;             ///< carried
    double Tail5 = 0;             ///< carried
    int Tail6 = 0;                ///< carried
    int LinkIndex = 0;            ///< carried
    double SNcorrnotnorm = 0;     ///< measure of correlation, not normalised
    double corrnorm = 0;          ///< measure of correlation, normalised
};

static_assert(sizeof(VihodFullBranch_file) == 272);
static_assert(offsetof(VihodFullBranch_file, X) == 0 && offsetof(VihodFullBranch_file, Y) == 8);
static_assert(offsetof(VihodFullBranch_file, A) == 16 && offsetof(VihodFullBranch_file, Asegm) == 24);
static_assert(offsetof(VihodFullBranch_file, BackMean) == 32 &&
              offsetof(VihodFullBranch_file, BackSKO) == 40);
static_assert(offsetof(VihodFullBranch_file, SNRafit) == 48 &&
              offsetof(VihodFullBranch_file, SNRasegm) == 56);
static_assert(offsetof(VihodFullBranch_file, SNRpeak) == 64 && offsetof(VihodFullBranch_file, Radius) == 72);
static_assert(offsetof(VihodFullBranch_file, Gap80) == 80 && offsetof(VihodFullBranch_file, FWHM) == 96);
static_assert(offsetof(VihodFullBranch_file, SigFit) == 104 &&
              offsetof(VihodFullBranch_file, RMSratio) == 112);
static_assert(offsetof(VihodFullBranch_file, Aux1) == 120 && offsetof(VihodFullBranch_file, Aux2) == 124);
static_assert(offsetof(VihodFullBranch_file, Aux3) == 128 &&
              offsetof(VihodFullBranch_file, AstrobCount) == 132);
static_assert(offsetof(VihodFullBranch_file, PeakType) == 136 &&
              offsetof(VihodFullBranch_file, Gap140) == 140);
static_assert(offsetof(VihodFullBranch_file, Width) == 144 && offsetof(VihodFullBranch_file, Length) == 152);
static_assert(offsetof(VihodFullBranch_file, Angle) == 160 && offsetof(VihodFullBranch_file, Exc) == 168);
static_assert(offsetof(VihodFullBranch_file, TypeBlob) == 176 &&
              offsetof(VihodFullBranch_file, Gap180) == 180);
static_assert(offsetof(VihodFullBranch_file, Ref1) == 184 && offsetof(VihodFullBranch_file, Ref2) == 192);
static_assert(offsetof(VihodFullBranch_file, BlobCode) == 200 &&
              offsetof(VihodFullBranch_file, Gap204) == 204);
static_assert(offsetof(VihodFullBranch_file, Tail1) == 208 && offsetof(VihodFullBranch_file, Tail2) == 216);
static_assert(offsetof(VihodFullBranch_file, Tail3) == 224 && offsetof(VihodFullBranch_file, Tail4) == 232);
static_assert(offsetof(VihodFullBranch_file, Tail5) == 240 && offsetof(VihodFullBranch_file, Tail6) == 248);
static_assert(offsetof(VihodFullBranch_file, LinkIndex) == 252);
static_assert(offsetof(VihodFullBranch_file, SNcorrnotnorm) == 256);
static_assert(offsetof(VihodFullBranch_file, corrnorm) == 264);

/// A mark in the compact form of the secondary processing.
struct TVOBlobFile
{
    float X_bf = 0;              ///< pixels
    float Y_bf = 0;              ///< pixels
    float RA = 0;                ///< degrees
    float DE = 0;                ///< degrees
    float Length = 0;            ///< as in the mark; no unit is given
    float Width = 0;             ///< as in the mark; no unit is given
    float Angle = 0;             ///< as in the mark; no unit is given
    float Exc = 0;               ///< eccentricity
    float SNRasegm = 0;          ///< signal-to-noise ratio of Asegm
    float m = 0;                 ///< magnitudes
    int date = 0;                ///< whole day, MJD
    unsigned char Gap44[4] = {}; ///< zero
    double time = 0;             ///< fraction of that day
};

static_assert(sizeof(TVOBlobFile) == 56);
static_assert(offsetof(TVOBlobFile, X_bf) == 0 && offsetof(TVOBlobFile, Y_bf) == 4);
static_assert(offsetof(TVOBlobFile, RA) == 8 && offsetof(TVOBlobFile, DE) == 12);
static_assert(offsetof(TVOBlobFile, Length) == 16 && offsetof(TVOBlobFile, Width) == 20);
static_assert(offsetof(TVOBlobFile, Angle) == 24 && offsetof(TVOBlobFile, Exc) == 28);
static_assert(offsetof(TVOBlobFile, SNRasegm) == 32 && offsetof(TVOBlobFile, m) == 36);
static_assert(offsetof(TVOBlobFile, date) == 40 && offsetof(TVOBlobFile, Gap44) == 44);
static_assert(offsetof(TVOBlobFile, time) == 48);

/// A star of the light catalogue.
struct TRecCatLight
{
    double RA = 0;                  ///< degrees
    double DE = 0;                  ///< degrees
    double X = 0;                   ///< pixels
    double Y = 0;                   ///< pixels
    double m = 0;                   ///< magnitudes
    unsigned char Carried[16] = {}; ///< no gap: kept as it is, in memory and on disk
};

static_assert(sizeof(TRecCatLight) == 56);
static_assert(offsetof(TRecCatLight, RA) == 0 && offsetof(TRecCatLight, DE) == 8);
static_assert(offsetof(TRecCatLight, X) == 16 && offsetof(TRecCatLight, Y) == 24);
static_assert(offsetof(TRecCatLight, m) == 32 && offsetof(TRecCatLight, Carried) == 40);

/// A position and an amplitude.
struct TXYAdbl
{
    double X = 0; ///< position; no unit is given
    double Y = 0; ///< position; no unit is given
    double A = 0; ///< amplitude; no unit is given
};

static_assert(sizeof(TXYAdbl) == 24);
static_assert(offsetof(TXYAdbl, X) == 0 && offsetof(TXYAdbl, Y) == 8 && offsetof(TXYAdbl, A) == 16);

} // namespace tavelinUtils
