#include "formats/aavso.h"

#include "base/numbers.h"
#include "base/text_index.h"
#include "files/text_file.h"
#include "records/track_stream.h"
#include "text/calendar.h"
#include "text/number_text.h"

#include <cstddef>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view columnNames =
    "#NAME,DATE,MAG,MAGERR,FILTER,TRANS,MTYPE,CNAME,CMAG,KNAME,KMAG,AIRMASS,GROUP,CHART,NOTES\n";
constexpr std::string_view ensemble = "ENSEMBLE"; // whatever CNAME of a mark says
constexpr std::string_view notKnown = "na";

// The fields of a line that its mark does not hold, or not in this form.
struct Line
{
    std::string_view name;
    double date;
    std::string_view filter;
    std::string_view kind;
    std::string_view checkName;
    std::string_view checkMagnitude;
    std::string_view chart;
};

void appendHead(TextBuffer& out, std::string_view observerCode)
{
    out += "#TYPE=Extended\n#OBSCODE=";
    out += observerCode;
    out += "\n#SOFTWARE=Vomar\n#DELIM=,\n#DATE=JD\n#OBSTYPE=CCD\n";
    out += columnNames;
}

char* writeField(char* to, std::string_view field)
{
    return writeText(writeText(to, field), ',');
}

char* writeLine(char* to, const Line& line, double magnitude, double signalToNoise)
{
    to = writeField(to, line.name);
    to = writeCell(to, line.date, 7, ',');
    to = writeCell(to, magnitude, 3, ',');
    to = writeCell(to, 1.0 / signalToNoise, 4, ','); // "inf" for a signal of 0
    to = writeField(to, line.filter);
    to = writeField(to, "NO");
    to = writeField(to, line.kind);
    to = writeField(to, ensemble);
    to = writeField(to, notKnown); // CMAG
    to = writeField(to, line.checkName);
    to = writeField(to, line.checkMagnitude);
    to = writeField(to, notKnown); // AIRMASS
    to = writeField(to, notKnown); // GROUP
    to = writeField(to, line.chart);
    return writeText(writeText(to, notKnown), '\n'); // NOTES
}

void appendLine(TextBuffer& out, const Line& line, double magnitude, double signalToNoise)
{
    constexpr std::size_t numbersRoom = 5 * numberRoom(7); // for the fixed texts too
    const std::size_t texts = line.name.size() + line.filter.size() + line.kind.size() +
                              line.checkName.size() + line.checkMagnitude.size() + line.chart.size();
    out.endAt(writeLine(out.room(texts + numbersRoom), line, magnitude, signalToNoise));
}

// The filters of the first track's marks, row by row. Equal neighbours are one run.
class FilterRows
{
public:
    void add(std::string_view filter)
    {
        const std::size_t text = texts.numberOf(filter);
        if (runs.empty() || runs.back().text != text) {
            runs.push_back({text, rows});
        }
        runs.back().end = ++rows;
    }

    // Goes through the rows from the first on.
    class Walk
    {
    public:
        explicit Walk(const FilterRows& filterRows) : filters(filterRows)
        {
        }

        /// The filter of the next row; behind the last the given one.
        std::string_view next(std::string_view otherwise)
        {
            if (row == filters.rows) {
                return otherwise;
            }
            const Run& run = filters.runs[current];
            if (++row == run.end) {
                ++current;
            }
            return filters.texts[run.text];
        }

    private:
        const FilterRows& filters;
        std::size_t row = 0;
        std::size_t current = 0; // run
    };

private:
    struct Run
    {
        std::size_t text; // its number
        std::size_t end;  // the row behind the last
    };

    TextIndex texts;
    std::vector<Run> runs;
    std::size_t rows = 0;
};

} // namespace

struct AavsoSink::State
{
    void add(const TrackVtorichka& track)
    {
        if (!headed) {
            headed = true;
            appendHead(file.text(), track.ObsCode);
            for (const TRecLabelPervichka_File& mark : track.Marks) {
                filters.add(mark.filtr);
            }
        }
        addMarks(track);
    }

    void addMarks(const TrackVtorichka& track)
    {
        FilterRows::Walk rows(filters); // also for the tracks after the first
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            appendLine(file.text(),
                       {track.QRVName, MJDtoJD(mark.date) + mark.time, rows.next(mark.filtr), mark.MTYPE,
                        mark.KNAME, notKnown, mark.CHART},
                       mark.mEnsemble, mark.SNRpeak);
            file.writeFull();
        }
    }

    TextFile file;
    bool headed = false;
    FilterRows filters{};
};

AavsoSink::AavsoSink(std::string path) : state(new State{TextFile(std::move(path), PieceFile::Old::removed)})
{
}

AavsoSink::AavsoSink(AavsoSink&& other) noexcept = default;
AavsoSink::~AavsoSink() = default;

void AavsoSink::add(const TrackVtorichka& track)
{
    state->add(track);
}

bool AavsoSink::save()
{
    if (state->headed) {
        state->file.close();
    }
    return true;
}

void sAAVSO(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    writeAll(AavsoSink(path), tracks);
}

void sAAVSO(std::string path, std::string obsCode, std::string filter, std::string mType,
            std::vector<TLocPhotoBlob> objects, std::vector<std::vector<TLocPhotoBlob>> checkStars,
            std::string chart)
{
    TextFile file(path, PieceFile::Old::removed);
    TextBuffer& text = file.text();
    appendHead(text, obsCode);
    const bool named = !checkStars.empty() && !checkStars.front().empty();
    const std::string checkName = named ? checkStars.front().front().Mark.KNAME : "";
    for (std::size_t i = 0; i < objects.size(); ++i) {
        const TRecLabelPervichka_File& mark = objects[i].Mark;
        const bool checked = i < checkStars.size() && !checkStars[i].empty();
        const std::string checkMagnitude =
            checked ? Str9(checkStars[i].front().Mark.Spare2, 3) : std::string(notKnown);
        // An MJD, although the header says JD.
        appendLine(text,
                   {mark.SpareText, mark.date + mark.time, filter, mType, checkName, checkMagnitude, chart},
                   mark.mEnsemble, mark.SNRpeak);
        file.writeFull();
    }
    file.close();
}

} // namespace tavelinUtils
