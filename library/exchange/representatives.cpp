#include "exchange/representatives.h"

#include "base/stored_index.h"
#include "exchange/record_io.h"
#include "files/essentials.h"
#include "files/paths.h"

#include <cstddef>

namespace tavelinUtils {
namespace {

constexpr int notRead = 1;

// The part of an entry that a file of members holds.
struct StoredEntry
{
    int frame = 0;
    int blob = 0;
};

// The part of a representative that a file of positions holds.
struct StoredPosition
{
    double X = 0;
    double Y = 0;
};

std::string positionsPath(const std::string& path)
{
    return ChangeFileExt(path, ".XY");
}

void readEntries(RecordReader& file, std::size_t count, std::vector<TIndVK>& entries)
{
    entries.resize(count);
    for (TIndVK& entry : entries) {
        if (file.atEnd()) {
            return;
        }
        StoredEntry stored{entry.FrameNumber, entry.BlobIndex};
        file.read(stored);
        entry.FrameNumber = stored.frame;
        entry.BlobIndex = stored.blob;
    }
}

// False where the rest of the file cannot hold the entries.
bool readMembers(RecordReader& file, std::vector<TRepresent>& representatives)
{
    int index = -1;
    file.read(index);
    const std::size_t entries = file.readCount();
    if (!file.believes(entries, sizeof(StoredEntry))) {
        return false;
    }
    // The stored index decides, not the order in the file.
    TRepresent nowhere;
    TRepresent* const representative = elementAt(representatives, index);
    readEntries(file, entries, (representative == nullptr ? nowhere : *representative).Items);
    return true;
}

} // namespace

int sIndVKBin(std::string path, int frames, const std::vector<TRepresent>& representatives)
{
    RecordWriter file(path);
    file.write(frames);
    file.writeCount(representatives.size());
    int index = 0;
    for (const TRepresent& representative : representatives) {
        file.write(index++);
        file.writeCount(representative.Items.size());
        for (const TIndVK& entry : representative.Items) {
            file.write(StoredEntry{entry.FrameNumber, entry.BlobIndex});
        }
    }
    return resultOf(file.close());
}

int lIndVKBin(std::string path, int& frames, std::vector<TRepresent>& representatives)
{
    if (!FileExists(path)) {
        return 0;
    }
    RecordReader file(path);
    int storedFrames = frames;
    file.read(storedFrames);
    const auto count = file.readHeadCount();
    if (!file.isOpen() || !count) {
        return notRead;
    }
    frames = storedFrames;
    representatives.resize(*count);
    std::size_t left = *count;
    while (left != 0 && !file.atEnd() && readMembers(file, representatives)) {
        --left;
    }
    return 0;
}

int sXYIndVKBin(std::string path, const std::vector<TRepresent>& representatives)
{
    RecordWriter file(path);
    for (const TRepresent& representative : representatives) {
        file.write(StoredPosition{representative.X, representative.Y});
    }
    return resultOf(file.close());
}

int lXYIndVKBin(std::string path, std::vector<TRepresent>& representatives)
{
    if (!FileExists(path)) {
        return 0;
    }
    std::vector<StoredPosition> positions;
    if (!readRecords(path, positions)) {
        return notRead;
    }
    for (std::size_t i = 0; i < positions.size() && i < representatives.size(); ++i) {
        representatives[i].X = positions[i].X;
        representatives[i].Y = positions[i].Y;
    }
    return 0;
}

// The pair has no result: a file that can't be written or read is skipped.
void psIndVKBin(std::string path, int frames, const std::vector<TRepresent>& representatives)
{
    sIndVKBin(path, frames, representatives);
    sXYIndVKBin(positionsPath(path), representatives);
}

void plIndVKBin(std::string path, int& frames, std::vector<TRepresent>& representatives)
{
    if (!FileExists(path)) {
        return;
    }
    lIndVKBin(path, frames, representatives);
    lXYIndVKBin(positionsPath(path), representatives);
}

} // namespace tavelinUtils
