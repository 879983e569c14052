// Measures of a series: instrumental magnitudes, runs of frames, the geometry of a frame, groups in blobs.

#pragma once

#include "../records/blob.h"

#include <vector>

namespace tavelinMath {

/// Fills the instrumental magnitudes of all marks: mInstr from A, and for tracks with a NORAD text
/// mInstr1000, which is mInstr brought to the reference range by the distance in SpareTail. A reference range
/// of 0.0 brings nothing: mInstr1000 is mInstr. Without a NORAD text mInstr1000 stays as it was.
void CalcInstrMagnitude(std::vector<tavelinUtils::TrackVtorichka>& tracks, double referenceRange);

/// The instrumental magnitude of a flux, 0 at 1e10; 0.0 for a flux of 0.
double cInstrumentMag(double flux);

/// What distance adds to a magnitude against a reference range: -5 times the decimal logarithm of their
/// ratio; 0.0 for a reference range of 0.
double cInstrumentMag_addbyrange(double range, double referenceRange);

/// Cuts a series into runs of frames that belong together, by the pattern of the gaps in time: a frame behind
/// a gap of at least `factor` times the one before it, with a smaller one to follow, starts a run. The first
/// three frames and the last two start none, and a run has three frames before another starts. The lists give
/// the first and the last frame of each run, from 0; fewer than four frames are one run, whose end is -1
/// where there are none. Where all frames make one run of more than 20 and `split` is set, it is cut into
/// runs of ten; the last takes the rest.
void SetSubSeries2(double factor, const std::vector<tavelinUtils::THeadBlobs>& frames, bool split,
                   std::vector<int>& starts, std::vector<int>& ends);

/// The time of frame i less that of frame j, in minutes; 0 for a frame that the list does not have.
double cdeltaMin(int i, int j, const std::vector<tavelinUtils::THeadBlobs>& frames);

/// The direction of the line between two points of a frame in degrees, 0 to 180, with Y turned upwards;
/// not-a-number for two equal points.
double cAngleBetweenPoints(double y1, double x1, double y2, double x2, int width, int height);

/// Distance and radial speed of a place in a range-Doppler picture: `a` and `c` scale the rows, `f` is the
/// carrier frequency, `b` the size of a column in frequency.
void cDistAndVelo(int columns, int rows, double a, double f, double b, double c, double column, double row,
                  double& distance, double& velocity);

/// The time zone of a longitude in degrees, in whole hours, cut towards zero.
int CalcDeltaUTC(double longitude);

/// Carries the result of grouping into the blobs: Tag1 of each blob that a representative has as an entry
/// becomes the number of the representative, from 0. Entries of unknown frames and of blobs that a frame does
/// not have are passed over.
void iICtoBlob(const std::vector<tavelinUtils::TRepresent>& representatives,
               std::vector<tavelinUtils::THeadBlobs>& frames);

} // namespace tavelinMath
