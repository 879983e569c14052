// Files of blobs: fitted records, stars of the light catalogue, compact marks, fast objects, Hough tracks.
//
// A file without a count holds as many records as fit into its size; a remainder at its end is lost. Gaps of
// the records are zero in every file.

#pragma once

#include "../export.h"
#include "../records/blob.h"
#include "../records/disk_records.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Writes fitted blobs, 272 bytes each. Throws TavelinException with code 7 and the path if the file can't be
/// written. The form for VihodExt converts each record.
void SaveToFile(std::string path, const std::vector<VihodFullBranch_file>& records);
void SaveToFile(std::string path, const std::vector<VihodExt>& records);

/// Reads fitted blobs; empty for a file that can't be opened. The second form numbers the blobs by their
/// places in the file, and each of its records counts two peaks.
std::vector<VihodFullBranch_file> lVihodFullBranch_file(std::string path);
std::vector<VihodExt> LoadFromFile(std::string path);

/// Writes stars of the light catalogue, 56 bytes each. A file that can't be written is skipped in silence.
void sRecCatLight(std::string path, const std::vector<TRecCatLight>& stars);

/// Reads stars of the light catalogue; empty for a file that can't be opened.
std::vector<TRecCatLight> lRecCatLight(std::string path);

/// Writes compact marks, 56 bytes each. A file that can't be written is skipped in silence.
void sBlobFastVO(std::string path, const std::vector<TVOBlobFile>& blobs);

/// Reads compact marks; empty for a file that can't be opened.
std::vector<TVOBlobFile> lBlobFastVO(std::string path);

/// Writes the blobs of fast objects: a count, then for each object a count and 8 bytes a blob. Returns 0, or
/// 1 when the file can't be written.
int SaveFastObj(std::string path, const std::vector<TBranch>& objects);

/// Reads the blobs of fast objects. The list gets the counted size. Returns 0, and 2 for a file that is
/// missing or can't be opened, or whose count is refused; the list is then as it was.
int LoadObjects(std::string path, std::vector<TBranch>& objects);

/// Writes positions and amplitudes, 24 bytes each. A file that can't be written is skipped in silence.
void sXYAdbl(std::string path, const std::vector<TXYAdbl>& positions);

/// Writes the blobs of Hough tracks: a count, then for each track a count and 8 bytes a blob. Returns 0, or
/// 1 when the file can't be written.
int sHoughtInd(std::string path, const std::vector<THOKTrack>& tracks);

/// Writes the strobes of Hough tracks: the five values of each, 40 bytes. Returns 0, or 1 when the file can't
/// be written.
int sHoughtStrob(std::string path, const std::vector<THOKTrack>& tracks);

} // namespace tavelinUtils
