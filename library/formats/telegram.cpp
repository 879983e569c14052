#include "formats/telegram.h"

#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/text_index.h"
#include "base/tokens.h"
#include "files/text_file.h"
#include "formats/track_gathering.h"
#include "formats/watched_lines.h"
#include "text/angle_text.h"
#include "text/date_text.h"
#include "text/written_text.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view blockEnd = "END";

// The texts of a head, by their numbers.
struct BlockHead
{
    std::uint32_t originator;
    std::uint32_t telescope;
    std::uint32_t object;
};

// The texts of all heads. Each of a head has an index of its own, so that it is mostly the text of the head
// before.
struct HeadTexts
{
    TextIndex originators;
    TextIndex telescopes;
    TextIndex objects;
};

std::uint32_t numberOf(std::string_view text, TextIndex& texts)
{
    return static_cast<std::uint32_t>(texts.numberOf(text));
}

// The head of a track that no head line has opened.
BlockHead newHead(HeadTexts& texts)
{
    const THeadTrVtor head;
    return {numberOf(head.originator, texts.originators), numberOf(head.telescope, texts.telescopes),
            numberOf(head.QRVName, texts.objects)};
}

// What a head line is read into.
struct ReadHead
{
    HeadTexts& texts;
    BlockHead head;
};

// What a mark's line is read into.
struct ReadMark
{
    DayNumbers& days;
    MeasuredMark mark;
};

// What a mark's line is written from.
struct WrittenMark
{
    const TRecLabelPervichka_File& mark;
    DateTexts& dates;
};

// The field of a magnitude: three characters that are no part of it, then the tenths. The reader ignores
// what follows the sixth character.
constexpr std::string_view magnitudePrefix = "001";
constexpr Field tenths{4, 3};

// A negative magnitude gets the "0" too: 0010-12.
char* writeMagnitude(char* to, double m)
{
    return writePackedByValue(writeText(to, magnitudePrefix), m, 1);
}

// The head line of a block, its fields with one blank between them.
//
//   originator   as it is
//   telescope    as it is
//   object       as it is
constexpr TokenField<ReadHead, TrackVtorichka> headFields[] = {
    {[](ReadHead& to, std::string_view text) { to.head.originator = numberOf(text, to.texts.originators); },
     [](char* to, const TrackVtorichka& from) { return writeText(to, from.originator); }},
    {[](ReadHead& to, std::string_view text) { to.head.telescope = numberOf(text, to.texts.telescopes); },
     [](char* to, const TrackVtorichka& from) { return writeText(to, from.telescope); }},
    {[](ReadHead& to, std::string_view text) { to.head.object = numberOf(text, to.texts.objects); },
     [](char* to, const TrackVtorichka& from) { return writeText(to, from.QRVName); }},
};

// A mark's line, its fields with one blank between them.
//
//   date        6           DDMMYY
//   time        8           HHMMSSss, rounded
//   RA          8           HHMMSSss
//   DE          8, 9        sign (of a negative one only) DDMMSSss
//   magnitude   6 or more   001 and tenths of a magnitude, MMm
constexpr TokenField<ReadMark, WrittenMark> markFields[] = {
    {[](ReadMark& to, std::string_view text) { to.mark.date = to.days.answerTo(text, packedDate); },
     [](char* to, const WrittenMark& from) {
         return writeText(to, from.dates.answerTo(int{from.mark.date}, MJDToDateMEA));
     }},
    {[](ReadMark& to, std::string_view text) { to.mark.time = packedTime(text); },
     [](char* to, const WrittenMark& from) { return writeTimeMEA(to, from.mark.time, 2, true); }},
    {[](ReadMark& to, std::string_view text) { to.mark.RA = packedRA(text); },
     [](char* to, const WrittenMark& from) { return writePackedRA(to, from.mark.RA, 2); }},
    {[](ReadMark& to, std::string_view text) { to.mark.DE = packedDE(text); },
     [](char* to, const WrittenMark& from) { return writePackedDE(to, from.mark.DE, 2); }},
    {[](ReadMark& to, std::string_view text) { to.mark.m = toDouble(cut(text, tenths)) / 10.0; },
     [](char* to, const WrittenMark& from) { return writeMagnitude(to, from.mark.m); }},
};

// The room of a mark's line.
constexpr std::size_t lineRoom = std::size(markFields) * sexagesimalRoom;

// What is kept of a telegram.
struct KeptBlocks
{
    HeadTexts texts;
    TrackSequence<BlockHead> sequence;
};

// Takes the lines of a telegram one after the other.
//
// The marks of a block are kept at once, and become a track when the block is closed: those of a block that
// nothing closes are in no track.
template <class Watch = Unwatched>
class TelegramLines
{
public:
    explicit TelegramLines(KeptBlocks& blocks, Watch lineWatch = {})
        : kept(blocks), watch(lineWatch), headOfNoBlock(newHead(kept.texts))
    {
    }

    void add(std::string_view line)
    {
        watch.take([this, line] { takeLine(line); });
    }

    // After the last line.
    void finish()
    {
        watch.loseWaiting(PassedReason::unclosedBlock);
    }

private:
    using Tokens = std::array<std::string_view, std::size(markFields)>;

    // The number of fields alone says what a line is. A blank at its end is one more, empty field.
    void takeLine(std::string_view line)
    {
        switch (cutParts(line, ' ', tokens)) {
        case std::size(headFields): open(); break;
        case std::size(markFields): addMark(line); break;
        case 1:
            if (!tokens[0].empty()) {
                close();
                break;
            }
            [[fallthrough]];
        default: watch.passed(line, PassedReason::wordCount);
        }
    }

    // A second head line overwrites the head and keeps the marks.
    void open()
    {
        ReadHead read{kept.texts, {}};
        readFields<headFields>(tokens, read);
        head = read.head;
        inBlock = true;
        watch.waits(LineFate::head);
    }

    void addMark(std::string_view line)
    {
        if (!inBlock) {
            watch.passed(line, PassedReason::outsideBlock);
            return;
        }
        ReadMark read{days, {}};
        readFields<markFields>(tokens, read);
        kept.sequence.addWaitingMark(read.mark);
        watch.waits(LineFate::mark);
    }

    void close()
    {
        kept.sequence.addTrack(head);
        kept.sequence.beginLastTrackAt(blockBegin);
        blockBegin = kept.sequence.markCount();
        head = headOfNoBlock;
        inBlock = false;
        watch.settleWaiting();
        watch.end();
    }

    KeptBlocks& kept;
    [[no_unique_address]] Watch watch;
    const BlockHead headOfNoBlock;
    BlockHead head = headOfNoBlock;
    bool inBlock = false;
    std::size_t blockBegin = 0; // its first mark
    DayNumbers days;
    Tokens tokens; // of the line, here so that none clears them
};

} // namespace

struct TAVELIN_INTERNAL TelegramSource::Store
{
    KeptBlocks kept{};

    bool next(TrackVtorichka& track, OldMarks old);
};

bool TelegramSource::Store::next(TrackVtorichka& track, OldMarks old)
{
    return kept.sequence.next(track, old, [this](TrackVtorichka& filled, const BlockHead& head) {
        const HeadTexts& texts = kept.texts;
        filled.originator = texts.originators[head.originator];
        filled.telescope = texts.telescopes[head.telescope];
        filled.QRVName = texts.objects[head.object];
        filled.NORAD = texts.objects[head.object];
    });
}

TelegramSource::TelegramSource(std::string path) : store(new Store)
{
    takeFile(path, TelegramLines(store->kept), store->kept);
}

TelegramSource::TelegramSource(std::string path, LineWatch& watch) : store(new Store)
{
    takeFile(path, TelegramLines(store->kept, Watched(watch)), store->kept);
}

TelegramSource::TelegramSource(const std::vector<std::string>& lines) : store(new Store)
{
    takeList(lines, TelegramLines(store->kept));
}

TelegramSource::TelegramSource(const std::vector<std::string>& lines, LineWatch& watch) : store(new Store)
{
    takeList(lines, TelegramLines(store->kept, Watched(watch)));
}

TelegramSource::TelegramSource(TelegramSource&& other) noexcept = default;
TelegramSource::~TelegramSource() = default;

std::size_t TelegramSource::count() const
{
    return store->kept.sequence.count();
}

bool TelegramSource::next(TrackVtorichka& track)
{
    return store->next(track, OldMarks::renewed);
}

bool TelegramSource::refill(TrackVtorichka& track)
{
    return store->next(track, OldMarks::kept);
}

struct TelegramSink::State
{
    TextFile file;
    bool hasTracks = false;
    DateTexts dates{};
};

TelegramSink::TelegramSink(std::string path) : state(new State{TextFile(std::move(path))})
{
}

TelegramSink::TelegramSink(TelegramSink&& other) noexcept = default;
TelegramSink::~TelegramSink() = default;

void TelegramSink::add(const TrackVtorichka& track)
{
    state->hasTracks = true;
    TextBuffer& text = state->file.text();
    char* const to = text.room(track.originator.size() + track.telescope.size() + track.QRVName.size() +
                               std::size(headFields));
    text.endAt(writeText(writeFields<headFields>(to, track), '\n'));
    for (const TRecLabelPervichka_File& mark : track.Marks) {
        char* const line = text.room(lineRoom);
        text.endAt(writeText(writeFields<markFields>(line, WrittenMark{mark, state->dates}), '\n'));
        state->file.writeFull();
    }
    text += blockEnd;
    text += "\n\n";
    state->file.writeFull(); // there may be many tracks without marks
}

bool TelegramSink::save()
{
    if (state->hasTracks) {
        state->file.close();
    }
    return true;
}

std::vector<TrackVtorichka> lTelegramma(const std::vector<std::string>& lines)
{
    return allTracks(TelegramSource(lines));
}

std::vector<TrackVtorichka> lTelegramma(std::string path)
{
    return allTracks(TelegramSource(path));
}

std::vector<TrackVtorichka> lTelegramma(const std::vector<std::string>& lines, LineWatch& watch)
{
    return allTracks(TelegramSource(lines, watch));
}

std::vector<TrackVtorichka> lTelegramma(std::string path, LineWatch& watch)
{
    return allTracks(TelegramSource(path, watch));
}

void sTelegramma(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    writeAll(TelegramSink(path), tracks);
}

} // namespace tavelinUtils
