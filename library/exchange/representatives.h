// Files of representatives: the members of each in one file, their positions in another.
//
//   int32 frames, int32 count; for each: int32 index, int32 n, then n times int32 frame, int32 blob
//   two doubles X and Y for each, without a count
//
// A reader leaves everything as it was if the file does not exist.

#pragma once

#include "../export.h"
#include "../records/blob.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// Writes the members. The third number of an entry is not stored, and neither are X, Y, Value and Index:
/// the stored index is the position in the list. Returns 0, or 1 when the file can't be written.
int sIndVKBin(std::string path, int frames, const std::vector<TRepresent>& representatives);

/// Reads the members. The list gets the counted size, and the stored index of each record says which
/// representative its entries go to, whatever their order in the file; an index outside the list is skipped
/// with its entries. Returns 0, also for a file that does not exist, and 1 for one that can't be opened or
/// whose count is refused; frames and list are then as they were.
int lIndVKBin(std::string path, int& frames, std::vector<TRepresent>& representatives);

/// Writes the positions. Returns 0, or 1 when the file can't be written.
int sXYIndVKBin(std::string path, const std::vector<TRepresent>& representatives);

/// Reads the positions into the representatives that the list holds, so it runs after lIndVKBin. Returns 0,
/// also for a file that does not exist, and 1 for one that can't be opened.
int lXYIndVKBin(std::string path, std::vector<TRepresent>& representatives);

/// Writes both files: the members to the path, the positions to the path with the extension ".XY".
void psIndVKBin(std::string path, int frames, const std::vector<TRepresent>& representatives);

/// Reads both files. Does nothing if the file of members does not exist.
void plIndVKBin(std::string path, int& frames, std::vector<TRepresent>& representatives);

} // namespace tavelinUtils
