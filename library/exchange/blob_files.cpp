#include "exchange/blob_files.h"

#include "exchange/record_io.h"
#include "records/blob_conversions.h"
#include "results/code_table.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace tavelinUtils {
namespace {

constexpr int notRead = 2;

// Copies whose gaps are zero, whatever the gaps of the records hold.
VihodFullBranch_file imageOf(VihodFullBranch_file record)
{
    const VihodFullBranch_file blank;
    std::copy(std::begin(blank.Gap80), std::end(blank.Gap80), record.Gap80);
    std::copy(std::begin(blank.Gap140), std::end(blank.Gap140), record.Gap140);
    std::copy(std::begin(blank.Gap180), std::end(blank.Gap180), record.Gap180);
    std::copy(std::begin(blank.Gap204), std::end(blank.Gap204), record.Gap204);
    return record;
}

VihodFullBranch_file imageOf(const VihodExt& record)
{
    return VihodExt_To_VihodFullBranch(record);
}

TVOBlobFile imageOf(TVOBlobFile record)
{
    const TVOBlobFile blank;
    std::copy(std::begin(blank.Gap44), std::end(blank.Gap44), record.Gap44);
    return record;
}

template <class Record>
bool writeImages(const std::string& path, const std::vector<Record>& records)
{
    RecordWriter file(path);
    for (const Record& record : records) {
        file.write(imageOf(record));
    }
    return file.close();
}

template <class Record>
void saveFitted(const std::string& path, const std::vector<Record>& records)
{
    if (!writeImages(path, records)) {
        throwErrCode(resultCode::unopenedFile, path);
    }
}

// The blobs of each object or track, after their counts.
template <class Record>
int writeBlobLists(const std::string& path, const std::vector<Record>& records)
{
    RecordWriter file(path);
    file.writeCount(records.size());
    for (const Record& record : records) {
        file.writeCount(record.Items.size());
        file.write(record.Items);
    }
    return resultOf(file.close());
}

// False where the rest of the file cannot hold the blobs.
bool readBlobs(RecordReader& file, TBranch& object)
{
    const std::size_t blobs = file.readCount();
    if (!file.believes(blobs, sizeof(TIndFrBl))) {
        return false;
    }
    object.Items.resize(blobs);
    file.read(object.Items);
    return true;
}

template <class Record>
std::vector<Record> recordsOf(const std::string& path)
{
    std::vector<Record> records;
    readRecords(path, records); // a file that can't be read is an empty list
    return records;
}

} // namespace

void SaveToFile(std::string path, const std::vector<VihodFullBranch_file>& records)
{
    saveFitted(path, records);
}

void SaveToFile(std::string path, const std::vector<VihodExt>& records)
{
    saveFitted(path, records);
}

std::vector<VihodFullBranch_file> lVihodFullBranch_file(std::string path)
{
    return recordsOf<VihodFullBranch_file>(path);
}

std::vector<VihodExt> LoadFromFile(std::string path)
{
    return VihodFullBranch_To_Res_Sav(recordsOf<VihodFullBranch_file>(path));
}

void sRecCatLight(std::string path, const std::vector<TRecCatLight>& stars)
{
    writeRecords(path, stars); // the stages that read it go on without it
}

std::vector<TRecCatLight> lRecCatLight(std::string path)
{
    return recordsOf<TRecCatLight>(path);
}

void sBlobFastVO(std::string path, const std::vector<TVOBlobFile>& blobs)
{
    writeImages(path, blobs); // the stages that read it go on without it
}

std::vector<TVOBlobFile> lBlobFastVO(std::string path)
{
    return recordsOf<TVOBlobFile>(path);
}

int SaveFastObj(std::string path, const std::vector<TBranch>& objects)
{
    return writeBlobLists(path, objects);
}

int LoadObjects(std::string path, std::vector<TBranch>& objects)
{
    RecordReader file(path);
    const auto count = file.readHeadCount();
    if (!file.isOpen() || !count) {
        return notRead;
    }
    objects.resize(*count);
    for (TBranch& object : objects) {
        if (file.atEnd() || !readBlobs(file, object)) {
            break;
        }
    }
    return 0;
}

void sXYAdbl(std::string path, const std::vector<TXYAdbl>& positions)
{
    writeRecords(path, positions); // the stages that read it go on without it
}

int sHoughtInd(std::string path, const std::vector<THOKTrack>& tracks)
{
    return writeBlobLists(path, tracks);
}

int sHoughtStrob(std::string path, const std::vector<THOKTrack>& tracks)
{
    RecordWriter file(path);
    for (const THOKTrack& track : tracks) {
        file.write(std::array{track.Value1, track.Value2, track.Value3, track.Value4, track.Value5});
    }
    return resultOf(file.close());
}

} // namespace tavelinUtils
