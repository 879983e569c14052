#include "exchange/pixel_files.h"

#include "base/bytes.h"
#include "base/stored_index.h"
#include "exchange/record_io.h"
#include "files/essentials.h"
#include "results/code_table.h"

#include <algorithm>
#include <cstddef>

namespace tavelinUtils {
namespace {

constexpr int notRead = 1;

// The part of a pixel, and of the position of an object, that a file holds.
struct StoredPlace
{
    int X = 0;
    int Y = 0;
};

// The part of a segment's head that a file holds.
struct StoredSegment
{
    int X = 0;
    int Y = 0;
    double Value = 0;
};

static_assert(sizeof(StoredSegment) == 16);

void writeObject(RecordWriter& file, const TObjKontur& object)
{
    file.writeCount(object.Area.size());
    file.write(StoredPlace{object.X, object.Y});
    for (const pixel& point : object.Area) {
        file.write(StoredPlace{point.X, point.Y});
    }
}

// False where the file ends with the object's count.
bool readObject(RecordReader& file, TObjKontur& object)
{
    const std::size_t pixels = file.readCount();
    StoredPlace place{object.X, object.Y};
    file.read(place);
    object.X = place.X;
    object.Y = place.Y;
    if (!file.believes(pixels, sizeof(StoredPlace))) {
        return false;
    }
    object.Area.resize(pixels);
    for (pixel& point : object.Area) {
        if (file.atEnd()) {
            return false;
        }
        StoredPlace stored{point.X, point.Y};
        file.read(stored);
        point.X = stored.X;
        point.Y = stored.Y;
    }
    return true;
}

// False where the rest of the file cannot hold the points.
bool readSegment(RecordReader& file, DTSegment& segment)
{
    const std::size_t points = file.readCount();
    StoredSegment head{segment.X, segment.Y, segment.Value};
    file.read(head);
    segment.X = head.X;
    segment.Y = head.Y;
    segment.Value = head.Value;
    if (!file.believes(points, sizeof(TSegmentPoint))) {
        return false;
    }
    segment.Points.resize(points);
    file.read(segment.Points);
    return true;
}

} // namespace

int sBadPix(std::string path, const std::vector<pixel>& pixels)
{
    RecordWriter file(path);
    for (const pixel& bad : pixels) {
        file.write(StoredPlace{bad.X, bad.Y});
    }
    return resultOf(file.close());
}

int lBadPix(std::string path, std::vector<pixel>& pixels)
{
    pixels.clear();
    std::vector<StoredPlace> places;
    if (!readRecords(path, places)) {
        return notRead;
    }
    pixels.reserve(places.size());
    for (const StoredPlace& place : places) {
        pixels.push_back({place.X, place.Y, 0, 0});
    }
    return 0;
}

// A file that can't be written is skipped: the stages that read it go on without it.
void SaveSegment(std::string path, std::vector<DTSegment>& segments)
{
    RecordWriter file(path);
    file.writeCount(segments.size());
    for (const DTSegment& segment : segments) {
        file.writeCount(segment.Points.size());
        file.write(StoredSegment{segment.X, segment.Y, segment.Value});
        file.write(segment.Points);
    }
    file.close();
}

void LoadSegment(std::string path, std::vector<DTSegment>& segments)
{
    RecordReader file(path);
    const auto count = file.readHeadCount();
    if (!file.isOpen() || !count) {
        return;
    }
    segments.resize(*count);
    for (DTSegment& segment : segments) {
        if (file.atEnd() || !readSegment(file, segment)) {
            break;
        }
    }
}

void SavePixelObj(std::string path, std::vector<TObjKontur>& objects)
{
    RecordWriter file(path);
    file.writeCount(objects.size());
    for (const TObjKontur& object : objects) {
        writeObject(file, object);
    }
    file.close(); // the stages that read it go on without it
    objects.shrink_to_fit();
}

void SavePixelObj(std::string path, std::vector<VihodExt>& blobs, std::vector<TObjKontur>& objects)
{
    const TObjKontur empty;
    RecordWriter file(path);
    file.writeCount(blobs.size());
    for (const VihodExt& blob : blobs) {
        const TObjKontur* const object = elementAt(objects, blob.Index);
        writeObject(file, object == nullptr ? empty : *object);
    }
    file.close(); // the stages that read it go on without it
}

int LoadPixelObj(std::string path, std::vector<TObjKontur>& objects)
{
    if (!FileExists(path)) {
        objects.shrink_to_fit();
        return 0;
    }
    RecordReader file(path);
    const auto count = file.readHeadCount();
    if (!file.isOpen() || !count) {
        return notRead;
    }
    objects.resize(*count);
    for (TObjKontur& object : objects) {
        if (file.atEnd() || !readObject(file, object)) {
            break;
        }
    }
    return 0;
}

std::vector<double> ReadArrayFromFileDbl(std::string path, int n)
{
    const OpenFile file = openForReading(path);
    if (!file) {
        throwErrCode(resultCode::unreadableFile, path);
    }
    std::vector<double> values(static_cast<std::size_t>(std::max(n, 0)));
    const std::size_t count = std::fread(values.data(), sizeof(double), values.size(), file.get());
    if (count < values.size()) {
        values[count] = 0; // a file that ends within a number leaves bytes of it there
    }
    return values;
}

} // namespace tavelinUtils
