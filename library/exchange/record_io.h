// Files of bare records, one after the other, with a count in front or with none.
//
// Such a file has no magic number, no version and no checksum. A file of other records is misread; a file
// that ends early leaves the rest of the records as constructed.

#pragma once

#include "../base/bytes.h"

#include <cstddef>
#include <cstdio>
#include <cstring>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

namespace tavelinUtils {

/// A count up to this one is believed whatever the size of the file.
inline constexpr std::size_t trustedCount = 65536;

/// A count at the head of a file of a given size in bytes: 0 for a negative one, nothing for one that is
/// refused because no file of that size can hold so many records.
inline std::optional<std::size_t> headCount(int count, std::size_t fileSize)
{
    const std::size_t size = count < 0 ? 0 : static_cast<std::size_t>(count);
    return size > trustedCount && size > fileSize ? std::nullopt : std::optional(size);
}

/// A file of records that is being written.
class RecordWriter
{
public:
    explicit RecordWriter(const std::string& path) : file(openFile(path, "wb")), good(file != nullptr)
    {
    }

    /// Appends the bytes of a record. Does nothing if the file could not be opened.
    template <class Record>
    void write(const Record& record)
    {
        static_assert(std::is_trivially_copyable_v<Record>);
        good = good && std::fwrite(&record, sizeof record, 1, file.get()) == 1;
    }

    template <class Record>
    void write(const std::vector<Record>& records)
    {
        for (const Record& record : records) {
            write(record);
        }
    }

    /// Appends the number of elements of a list.
    void writeCount(std::size_t count)
    {
        write(static_cast<int>(count));
    }

    /// Closes the file. False when opening, writing or closing failed.
    bool close()
    {
        return file && std::fclose(file.release()) == 0 && good;
    }

private:
    OpenFile file;
    bool good;
};

/// The result of a writer: 0, or 1 for a file that could not be written.
inline int resultOf(bool written)
{
    return written ? 0 : 1;
}

/// A file of records with counts, read from its front.
class RecordReader
{
public:
    explicit RecordReader(const std::string& path) : opened(readBytes(path, file)), rest(file.view())
    {
    }

    /// False if the file cannot be opened or read.
    bool isOpen() const
    {
        return opened;
    }

    /// Reads the next record. If the file ends within it, the record stays as it is, and so do all that
    /// follow.
    template <class Record>
    void read(Record& record)
    {
        static_assert(std::is_trivially_copyable_v<Record>);
        if (rest.size() < sizeof record) {
            rest = {};
            return;
        }
        std::memcpy(&record, rest.data(), sizeof record);
        rest.remove_prefix(sizeof record);
    }

    /// Reads as many elements as the list has, or as the file holds.
    template <class Record>
    void read(std::vector<Record>& records)
    {
        for (Record& record : records) {
            if (rest.empty()) {
                return;
            }
            read(record);
        }
    }

    /// The count at the head of the file, by the rule of headCount; 0 if the file is too short for it.
    std::optional<std::size_t> readHeadCount()
    {
        int count = 0;
        read(count);
        return headCount(count, file.size);
    }

    /// The next count in the file: 0 for a negative or a missing one.
    std::size_t readCount()
    {
        int count = 0;
        read(count);
        return count < 0 ? 0 : static_cast<std::size_t>(count);
    }

    /// Whether to believe a count of records at this position in the file. A large count that exceeds the
    /// rest of the file is not believed; a small one always is.
    bool believes(std::size_t count, std::size_t sizeOfRecord) const
    {
        return count <= trustedCount || count <= rest.size() / sizeOfRecord;
    }

    /// Whether the file has nothing more to read.
    bool atEnd() const
    {
        return rest.empty();
    }

private:
    FileBytes file{};
    bool opened;
    std::string_view rest;
};

/// Reads a file of records without a count; a remainder at its end that is shorter than a record is left out.
/// False where the file cannot be opened or read; the records are then as they were.
template <class Record>
bool readRecords(const std::string& path, std::vector<Record>& records)
{
    static_assert(std::is_trivially_copyable_v<Record>);
    const OpenFile file = openForReading(path);
    if (!file) {
        return false;
    }
    std::vector<Record> read(sizeOf(file.get()) / sizeof(Record));
    const std::size_t count = std::fread(read.data(), sizeof(Record), read.size(), file.get());
    if (std::ferror(file.get()) != 0) {
        return false;
    }
    read.resize(count);
    records = std::move(read);
    return true;
}

/// Writes a file of records without a count. False if that fails.
template <class Record>
bool writeRecords(const std::string& path, const std::vector<Record>& records)
{
    RecordWriter file(path);
    file.write(records);
    return file.close();
}

} // namespace tavelinUtils
