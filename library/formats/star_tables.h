// Star tables of the astrometric reduction: catalogue stars, blobs, and which was matched with which.
//
// Text for people to look at, one line each, with tabs between the fields; nothing reads them back. The first
// entry of a representative names the measured blob, the second the catalogue star, both by their BlobIndex.
// A representative with fewer than two entries, or one whose index is not in its list, is skipped. All of
// them throw TavelinException with code 7 and the path for a file that cannot be written.

#pragma once

#include "../export.h"
#include "../records/blob.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Stars with their numbers, from 0: number, name, position in degrees and as text, magnitude.
void sStars(std::string path, const std::vector<TRecCat2>& stars);

/// The same with the index of the matched blob in place of the number; it is empty for a star without one,
/// and of several blobs the last counts. The indexes of blobs are written unchecked.
void sStars(std::string path, const std::vector<TRepresent>& representatives,
            const std::vector<TRecCat2>& stars);

/// Points with their numbers, from 0: number, X, Y and Value9 with one decimal.
void sBlobs(std::string path, const std::vector<TRecTRI>& points);

/// Reference stars, under a line of columns: the pixel position of each blob, then position in degrees, pixel
/// position and magnitude of its star.
void sRefStars(std::string path, std::vector<TRepresent>& representatives,
               const std::vector<TRecLabelPervichka_File>& blobs,
               const std::vector<TRecLabelPervichka_File>& stars);

} // namespace tavelinUtils
