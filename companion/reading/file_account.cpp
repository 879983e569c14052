#include "reading/file_account.h"

namespace companion {

FileAccount& FileAccount::operator+=(const FileAccount& other)
{
    lines += other.lines;
    head += other.head;
    blank += other.blank;
    marks += other.marks;
    parts += other.parts;
    ends += other.ends;
    passed += other.passed;
    lost += other.lost;
    refused += other.refused;
    tracks += other.tracks;
    marksRead += other.marksRead;
    repeated += other.repeated;
    return *this;
}

} // namespace companion
