#include "track_record.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace python {
namespace {

const Mark& newMark()
{
    static const Mark mark;
    return mark;
}

// A mark by its memory: Mark has no alignment of its own.
std::byte* bytesOfMark(Mark& mark)
{
    void* const place = &mark;
    return static_cast<std::byte*>(place);
}

const std::byte* bytesOfMark(const Mark& mark)
{
    const void* const place = &mark;
    return static_cast<const std::byte*>(place);
}

bool isBefore(const KeptText& a, std::pair<std::size_t, std::size_t> place)
{
    return std::pair(a.mark, a.field) < place;
}

} // namespace

// The texts of marks that arrays show own no memory, and must not be asked.
TrackRecord::~TrackRecord()
{
    if (isExposed) {
        makeMarksNew();
    }
}

void TrackRecord::makeMarksNew()
{
    for (Mark& mark : track.Marks) {
        ::new (static_cast<void*>(&mark)) Mark;
    }
}

TrackVtorichka& TrackRecord::toFill(bool marksBringTexts)
{
    hasTexts = marksBringTexts;
    return track;
}

TrackVtorichka& TrackRecord::toRefill(bool marksBringTexts)
{
    if (isExposed) {
        makeMarksNew();
    } else if (isChanged) {
        track.Marks.clear();
    }
    kept.clear();
    isExposed = false;
    isChanged = false;
    return toFill(marksBringTexts);
}

// A text is moved out whether or not it is kept: what stays owns no memory that could be lost.
void TrackRecord::keepTexts()
{
    for (std::size_t place = 0; place < track.Marks.size(); ++place) {
        for (std::size_t field = 0; field < textFields().size(); ++field) {
            const auto member = textFields()[field].text;
            std::string text = std::move(track.Marks[place].*member);
            if (text != newMark().*member) {
                kept.push_back({place, field, std::move(text)});
            }
        }
    }
}

std::byte* TrackRecord::exposedMarks()
{
    if (!isExposed && hasTexts) {
        keepTexts();
    }
    isExposed = true;
    void* const begin = track.Marks.data();
    return static_cast<std::byte*>(begin);
}

std::byte* TrackRecord::numbersOf(std::size_t mark)
{
    isChanged = true;
    return bytesOfMark(track.Marks[mark]);
}

std::vector<KeptText>::const_iterator TrackRecord::keptAt(std::size_t mark, std::size_t field) const
{
    return std::lower_bound(kept.begin(), kept.end(), std::pair(mark, field), isBefore);
}

std::string TrackRecord::text(std::size_t mark, std::size_t field) const
{
    const auto member = textFields()[field].text;
    if (!isExposed) {
        return track.Marks[mark].*member;
    }
    const auto found = keptAt(mark, field);
    const bool isKept = found != kept.end() && found->mark == mark && found->field == field;
    return isKept ? found->text : newMark().*member;
}

void TrackRecord::setText(std::size_t mark, std::size_t field, std::string text)
{
    isChanged = true;
    if (!isExposed) {
        hasTexts = true;
        track.Marks[mark].*textFields()[field].text = std::move(text);
        return;
    }
    auto place = kept.begin() + (keptAt(mark, field) - kept.cbegin());
    if (place == kept.end() || place->mark != mark || place->field != field) {
        place = kept.insert(place, {mark, field, {}});
    }
    place->text = std::move(text);
}

void TrackRecord::setTexts(std::size_t field, std::vector<std::string> texts)
{
    isChanged = true;
    hasTexts = true;
    std::erase_if(kept, [field](const KeptText& each) { return each.field == field; });
    const auto member = textFields()[field].text;
    for (std::size_t mark = 0; mark < texts.size(); ++mark) {
        if (!isExposed) {
            track.Marks[mark].*member = std::move(texts[mark]);
        } else if (texts[mark] != newMark().*member) {
            kept.push_back({mark, field, std::move(texts[mark])});
        }
    }
    std::sort(kept.begin(), kept.end(),
              [](const KeptText& a, const KeptText& b) { return isBefore(a, std::pair(b.mark, b.field)); });
}

const TrackVtorichka& TrackRecord::whole(WritingRoom& room) const
{
    if (!isExposed) {
        return track;
    }
    if (room.hasTexts) {
        room.track.Marks.clear();
    }
    copyTo(room.track, track.Marks.size());
    room.hasTexts = !kept.empty();
    return room.track;
}

std::shared_ptr<TrackRecord> TrackRecord::withMarks(std::size_t count) const
{
    auto other = std::make_shared<TrackRecord>();
    TrackVtorichka& copy = other->toFill(isExposed ? !kept.empty() : hasTexts);
    copyTo(copy, std::min(count, markCount()));
    copy.Marks.resize(count);
    return other;
}

// Of the marks of the copy the texts are those of new ones.
void TrackRecord::copyTo(TrackVtorichka& copy, std::size_t marks) const
{
    static_cast<tavelinUtils::THeadTrVtor&>(copy) = track;
    copy.InterBlobs = track.InterBlobs;
    copy.Candidates = track.Candidates;
    copy.Cast = track.Cast;
    copy.Marks.resize(marks);
    for (std::size_t place = 0; place < marks; ++place) {
        if (isExposed) {
            copyNumbers(bytesOfMark(track.Marks[place]), bytesOfMark(copy.Marks[place]));
        } else {
            copy.Marks[place] = track.Marks[place];
        }
    }
    for (auto each = kept.begin(); each != kept.end() && each->mark < marks; ++each) {
        copy.Marks[each->mark].*textFields()[each->field].text = each->text;
    }
}

} // namespace python
