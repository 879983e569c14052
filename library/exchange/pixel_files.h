// Files of pixels: bad pixels, segments, objects with their areas, bare doubles.

#pragma once

#include "../export.h"
#include "../records/blob.h"
#include "../records/pixel.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Writes bad pixels: int32 X and Y each, without a count. Returns 0, or 1 when the file can't be written.
int sBadPix(std::string path, const std::vector<pixel>& pixels);

/// Replaces the list with bad pixels; only X and Y are set. Returns 0, and 1 with an empty list for a file
/// that can't be opened.
int lBadPix(std::string path, std::vector<pixel>& pixels);

/// Writes segments: a count, then for each the number of its points, its head of 16 bytes and 16 bytes a
/// point. A file that can't be written is skipped in silence. The list is not changed.
void SaveSegment(std::string path, std::vector<DTSegment>& segments);

/// Reads segments. The list gets the counted size; it stays as it was where the file can't be opened or its
/// count is refused.
void LoadSegment(std::string path, std::vector<DTSegment>& segments);

/// Writes objects with their areas: a count, then for each the number of its pixels, its X and Y, and X and Y
/// of each pixel. Values are not stored. A file that can't be written is skipped in silence. The list
/// releases unused capacity.
void SavePixelObj(std::string path, std::vector<TObjKontur>& objects);

/// The same for the objects that fitted blobs refer to, in the order of the blobs. A blob whose Index is
/// outside the list gets an empty object, so that blobs and objects keep their places.
void SavePixelObj(std::string path, std::vector<VihodExt>& blobs, std::vector<TObjKontur>& objects);

/// Reads objects with their areas. The list gets the counted size. Returns 0, also for a file that does not
/// exist, whose list stays but releases unused capacity; and 1 for a file that can't be opened or whose count
/// is refused.
int LoadPixelObj(std::string path, std::vector<TObjKontur>& objects);

/// The first n doubles of a file; what the file lacks is 0, and an n below 1 gives none. Throws
/// TavelinException with code 5 and the path when the file can't be opened.
std::vector<double> ReadArrayFromFileDbl(std::string path, int n);

} // namespace tavelinUtils
