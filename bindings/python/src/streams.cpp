#include "streams.h"

#include "errors.h"
#include "record_fields.h"
#include "tracks.h"

#include "reading/signatures.h"
#include "task/format_suffixes.h"

#include "format_words.h"
#include "formats/element_sets.h"
#include "formats/horizons.h"
#include "formats/mea.h"
#include "formats/mpc_report.h"
#include "formats/ssmas.h"
#include "formats/tdm.h"
#include "formats/tdm_xml.h"
#include "formats/telegram.h"
#include "formats/track_table.h"
#include "results/code_table.h"

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include <pybind11/stl.h>

namespace py = pybind11;

namespace python {
namespace {

using tavelinUtils::TTLEstr;

// A source of any format, as records/track_stream.h tells of sources.
class AnySource
{
public:
    virtual ~AnySource() = default;
    virtual std::size_t count() const = 0;
    virtual bool next(TrackVtorichka& track) = 0;
    virtual bool refill(TrackVtorichka& track) = 0;
};

template <class Source>
class SourceOf : public AnySource
{
public:
    explicit SourceOf(Source opened) : source(std::move(opened))
    {
    }
    std::size_t count() const override
    {
        return source.count();
    }
    bool next(TrackVtorichka& track) override
    {
        return source.next(track);
    }
    bool refill(TrackVtorichka& track) override
    {
        return source.refill(track);
    }

private:
    Source source;
};

// The tracks of a format that is read whole.
class ListSource
{
public:
    explicit ListSource(std::vector<TrackVtorichka> allTracks) : tracks(std::move(allTracks))
    {
    }
    std::size_t count() const
    {
        return tracks.size() - place;
    }
    bool next(TrackVtorichka& track)
    {
        if (count() == 0) {
            return false;
        }
        track = std::move(tracks[place++]);
        return true;
    }
    bool refill(TrackVtorichka& track)
    {
        return next(track);
    }

private:
    std::vector<TrackVtorichka> tracks;
    std::size_t place = 0;
};

ListSource tdmXmlSource(const std::string& path)
{
    std::vector<TrackVtorichka> tracks;
    if (!tavelinUtils::lTDMxml(path, tracks)) {
        tavelinUtils::throwErrCode(tavelinUtils::resultCode::unreadableFile, path);
    }
    return ListSource(std::move(tracks));
}

// A file without an end of the ephemeris has its marks all the same.
ListSource horizonsSource(const std::string& path)
{
    std::vector<TrackVtorichka> tracks(1);
    tavelinUtils::lHorizons(path, tracks.front());
    if (tracks.front().Marks.empty()) {
        tracks.clear();
    }
    return ListSource(std::move(tracks));
}

using Opened = std::unique_ptr<AnySource>;
using Name = const std::string&;

template <class Source>
Opened opened(Source source)
{
    return std::make_unique<SourceOf<Source>>(std::move(source));
}

// A format that is read.
struct ReadFormat
{
    const char* word;
    bool marksBringTexts; // its reader sets texts of marks
    Opened (*open)(Name path, Name originator);
};

constexpr ReadFormat readFormats[] = {
    {"mea", false,
     [](Name path, Name originator) { return opened(tavelinUtils::MeaSource(path, originator)); }},
    {"telegram", false, [](Name path, Name) { return opened(tavelinUtils::TelegramSource(path)); }},
    {"tdm", false, [](Name path, Name) { return opened(tavelinUtils::TdmSource(path)); }},
    {"ssmas", false,
     [](Name path, Name originator) { return opened(tavelinUtils::SsmasSource(path, originator)); }},
    {"mpc", true, [](Name path, Name) { return opened(tavelinUtils::MpcReportSource(path)); }},
    {"table", true, [](Name path, Name) { return opened(tavelinUtils::TrackTableSource(path)); }},
    {"tdm.xml", false, [](Name path, Name) { return opened(tdmXmlSource(path)); }},
    {"horizons", false, [](Name path, Name) { return opened(horizonsSource(path)); }},
};

const ReadFormat& readFormat(const std::string& word)
{
    for (const ReadFormat& format : readFormats) {
        if (word == format.word) {
            return format;
        }
    }
    throw py::value_error("no tracks are read from the format \"" + word + "\"");
}

// What a reader throws for a line is told with the line.
Opened openedFile(const ReadFormat& format, Name path, Name originator)
{
    std::string why;
    try {
        const py::gil_scoped_release others;
        return format.open(path, originator);
    } catch (const std::out_of_range& error) {
        why = error.what();
    } catch (const std::length_error& error) {
        why = error.what();
    }
    throwFormatError(path, format.word, why);
}

// Sets a flag while it lives.
class Turn
{
public:
    explicit Turn(bool& flag) : isTaken(flag)
    {
        isTaken = true;
    }
    ~Turn()
    {
        isTaken = false;
    }
    Turn(const Turn&) = delete;
    Turn& operator=(const Turn&) = delete;

private:
    bool& isTaken;
};

// The tracks of a file, one after the other.
class TrackStream
{
public:
    TrackStream(const Text& word, const Path& path, const Text& originator, bool reuse)
        : format(&readFormat(word.bytes)), source(openedFile(*format, path.bytes, originator.bytes)),
          isReusing(reuse)
    {
    }

    // A hint, which nobody has while a track is being taken.
    std::size_t count() const
    {
        return isAtWork ? 0 : source->count();
    }

    // Throws StopIteration after the last track, and ValueError while another thread takes one.
    Track next()
    {
        if (isAtWork) {
            throw py::value_error("the next track is being read on another thread");
        }
        Track track{isReusing ? freeRecord() : std::make_shared<TrackRecord>()};
        const Turn mine(isAtWork);
        if (!fill(*track.record)) {
            throw py::stop_iteration();
        }
        return track;
    }

private:
    bool fill(TrackRecord& record)
    {
        const py::gil_scoped_release others;
        const bool bringsTexts = format->marksBringTexts;
        return isReusing ? source->refill(record.toRefill(bringsTexts))
                         : source->next(record.toFill(bringsTexts));
    }

    // A record that nobody holds. The caller's variables mostly hold the last one until the next is there, so
    // that two take turns.
    std::shared_ptr<TrackRecord> freeRecord()
    {
        for (std::shared_ptr<TrackRecord>& record : records) {
            if (record.use_count() == 1) {
                return record;
            }
        }
        turn = 1 - turn;
        return records[turn] = std::make_shared<TrackRecord>();
    }

    const ReadFormat* format;
    Opened source;
    bool isReusing;
    bool isAtWork = false;
    std::array<std::shared_ptr<TrackRecord>, 2> records{};
    std::size_t turn = 0;
};

// Writes a message as the tool does, but a failure is told.
TrackSink tdmXmlSink(Name path)
{
    const auto sink = std::make_shared<tavelinUtils::TdmXmlSink>(path);
    return {[sink](const TrackVtorichka& track) { sink->add(track); },
            [sink, path] {
                if (!sink->save()) {
                    tavelinUtils::throwErrCode(tavelinUtils::resultCode::unopenedFile, path);
                }
            }};
}

TrackSink sinkOf(Name word, Name path)
{
    if (word == "table") {
        // Without a header the lines of the marks would be empty.
        return anySink(
            tavelinUtils::TrackTableSink(path, "", "", "", true, true, tavelinUtils::getHeadTrack()));
    }
    if (word == "tdm.xml") {
        return tdmXmlSink(path);
    }
    const FormatWord* const row = formatWord(formatOpticMea_to_int(word));
    if (row == nullptr) {
        throw py::value_error("no tracks are written in the format \"" + word + "\"");
    }
    return row->write(path);
}

// Marks a record as being written, so that nobody changes it meanwhile.
class Writing
{
public:
    explicit Writing(TrackRecord& written) : record(written)
    {
        ++record.writers;
    }
    ~Writing()
    {
        --record.writers;
    }
    Writing(const Writing&) = delete;
    Writing& operator=(const Writing&) = delete;

private:
    TrackRecord& record;
};

void writeTracks(const Path& path, const py::iterable& tracks, const Text& word)
{
    const TrackSink sink = sinkOf(word.bytes, path.bytes);
    WritingRoom room;
    for (const py::handle each : tracks) {
        const Track track = valueOf<Track>(each);
        const Writing mine(*track.record);
        const py::gil_scoped_release others;
        sink.add(track.record->whole(room));
    }
    const py::gil_scoped_release others;
    sink.save();
}

// A format and how sure it is, of 100 points; None where nothing fits.
py::object recognise(const Path& path)
{
    companion::Recognition found;
    {
        const py::gil_scoped_release others;
        found = companion::recognisedFile(path.bytes);
    }
    return py::make_tuple(textOf(found.format), found.points);
}

std::optional<std::string> formatOfSuffix(const Path& path)
{
    const companion::FormatSuffix* const row = companion::formatSuffixOf(path.bytes);
    return row == nullptr ? std::nullopt : std::optional<std::string>(row->word);
}

py::list readElements(const Path& path)
{
    std::vector<TTLEstr> sets;
    {
        const py::gil_scoped_release others;
        sets = tavelinUtils::l3LEstr(path.bytes);
    }
    py::list all;
    for (const TTLEstr& set : sets) {
        all.append(py::make_tuple(textOf(set.Line0), textOf(set.Line1), textOf(set.Line2)));
    }
    return all;
}

void writeElements(const Path& path, const std::vector<std::array<Text, 3>>& sets)
{
    std::vector<TTLEstr> all;
    all.reserve(sets.size());
    for (const auto& [name, first, second] : sets) {
        all.push_back({name.bytes, first.bytes, second.bytes});
    }
    const py::gil_scoped_release others;
    tavelinUtils::s3LEstr(path.bytes, all);
}

py::list wordsOfReadFormats()
{
    py::list words;
    for (const ReadFormat& format : readFormats) {
        words.append(format.word);
    }
    return words;
}

} // namespace

void defineStreams(py::module_& module)
{
    py::class_<TrackStream>(module, "TrackStream", "The tracks of a file, one after the other.")
        .def(py::init<const Text&, const Path&, const Text&, bool>(), py::arg("format"), py::arg("path"),
             py::arg("originator"), py::arg("reuse"), "Reads the file to its end.")
        .def("__iter__", [](py::object self) { return self; })
        .def("__next__", &TrackStream::next)
        .def("__length_hint__", &TrackStream::count, "How many tracks are to come.");
    module.def("write_tracks", writeTracks, py::arg("path"), py::arg("tracks"), py::arg("format"),
               "Replaces the file by the tracks.");
    module.def("recognise", recognise, py::arg("path"),
               "The format of a file by its content, and points of 100.");
    module.def("format_of_suffix", formatOfSuffix, py::arg("path"),
               "The format that a path's suffix asks for.");
    module.def("read_elements", readElements, py::arg("path"), "The element sets of a file.");
    module.def("write_elements", writeElements, py::arg("path"), py::arg("sets"),
               "Replaces the file by the sets.");
    module.def("read_formats", wordsOfReadFormats, "The words of the formats that are read.");
}

} // namespace python
