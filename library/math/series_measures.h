// Measures of a series: instrumental magnitudes, runs of frames, the geometry of a frame, groups in blobs.

#pragma once

#include "../export.h"
#include "../records/blob.h"

#include <vector>

namespace TAVELIN_API tavelinMath {

/// Fills the instrumental magnitudes of all marks: mInstr from A, and for tracks with a NORAD text
/// mInstr1000, which is mInstr at the reference range. The range and the distance in SpareTail have the same
/// unit, whichever that is. At a reference range of 0.0 mInstr1000 is mInstr; without a NORAD text it stays
/// as it was.
void CalcInstrMagnitude(std::vector<tavelinUtils::TrackVtorichka>& tracks, double referenceRange);

/// The instrumental magnitude of a flux, in magnitudes: 0 at a flux of 1e10, in whatever unit the amplitudes
/// have, and 0.0 for a flux of 0.
double cInstrumentMag(double flux);

/// What distance adds to a magnitude, in magnitudes: -5 times the decimal logarithm of range over reference
/// range, both in the same unit; 0.0 for a reference range of 0.
double cInstrumentMag_addbyrange(double range, double referenceRange);

/// Splits a series into runs of frames that belong together, by the pattern of the gaps in time: a frame
/// after a gap of at least `factor` times the one before it, a ratio, with a smaller one to follow, starts a
/// run. The first three frames and the last two start none, and a run has three frames before another starts.
/// `starts` and `ends` get the index of the first and of the last frame of each run, from 0; fewer than four
/// frames are one run, whose end is -1 where there are none. Where all frames make one run of more than 20
/// and `split` is set, it is split into runs of ten; the last takes the rest.
void SetSubSeries2(double factor, const std::vector<tavelinUtils::THeadBlobs>& frames, bool split,
                   std::vector<int>& starts, std::vector<int>& ends);

/// The time of frame i less that of frame j, in minutes; i and j are indexes from 0. 0 for a frame that the
/// list does not have.
double cdeltaMin(int i, int j, const std::vector<tavelinUtils::THeadBlobs>& frames);

/// The direction of the line between two points of a frame in degrees, 0 to 180, with Y turned upwards;
/// not-a-number for two equal points. Coordinates and the size of the frame are in pixels.
double cAngleBetweenPoints(double y1, double x1, double y2, double x2, int width, int height);

/// Distance and radial speed of a place in a range-Doppler picture of so many columns and rows. `a` times `c`
/// is the distance of one row and gives `distance` its unit; `f` is the carrier frequency and `b` the size of
/// a column in frequency, both in the same unit. The velocity is in metres per second.
void cDistAndVelo(int columns, int rows, double a, double f, double b, double c, double column, double row,
                  double& distance, double& velocity);

/// The time zone of a longitude in degrees, in whole hours, cut towards zero.
int CalcDeltaUTC(double longitude);

/// Carries the result of grouping into the blobs: Tag1 of each blob that a representative has as an entry
/// becomes the index of the representative, from 0. Entries of unknown frames and of blobs that a frame does
/// not have are skipped.
void iICtoBlob(const std::vector<tavelinUtils::TRepresent>& representatives,
               std::vector<tavelinUtils::THeadBlobs>& frames);

} // namespace tavelinMath
