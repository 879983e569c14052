#include "tracks.h"

#include "head_fields.h"

#include <cstring>
#include <string>
#include <utility>
#include <vector>

#include <pybind11/numpy.h>

namespace py = pybind11;

namespace python {
namespace {

using tavelinUtils::TInterBlob;

// Keeps a record while an array is there.
py::capsule ownerOf(const std::shared_ptr<TrackRecord>& record)
{
    return py::capsule(new std::shared_ptr<TrackRecord>(record),
                       [](void* owner) { delete static_cast<std::shared_ptr<TrackRecord>*>(owner); });
}

py::dtype markType()
{
    py::list names;
    py::list formats;
    py::list offsets;
    for (const NumberField& field : numberFields()) {
        names.append(field.name);
        formats.append(field.format);
        offsets.append(field.offset);
    }
    return py::dtype(names, formats, offsets, sizeof(Mark));
}

py::array marksOf(const Track& track)
{
    if (!track.record->hasArrays()) {
        track.changeable();
    }
    const auto count = static_cast<py::ssize_t>(track.record->markCount());
    const auto step = static_cast<py::ssize_t>(sizeof(Mark));
    return py::array(markType(), {count}, {step}, track.record->exposedMarks(), ownerOf(track.record));
}

bool isNumber(const std::string& name)
{
    for (const NumberField& field : numberFields()) {
        if (name == field.name) {
            return true;
        }
    }
    return false;
}

void setMarks(Track& track, const py::array& marks)
{
    const py::object names = marks.dtype().attr("names");
    if (names.is_none() || marks.ndim() != 1) {
        throw py::type_error("marks are an array of one dimension whose type has names");
    }
    track.record = track.record->withMarks(static_cast<std::size_t>(marks.size()));
    const py::array own = marksOf(track);
    for (const py::handle name : names) {
        if (isNumber(bytesOf(name))) {
            own[name] = marks[name];
        }
    }
}

void resize(Track& track, std::size_t count)
{
    track.record = track.record->withMarks(count);
}

Track copyOf(const Track& track)
{
    return {track.record->withMarks(track.record->markCount())};
}

MarkOfTrack markAt(const Track& track, py::ssize_t index)
{
    const auto count = static_cast<py::ssize_t>(track.record->markCount());
    const py::ssize_t place = index < 0 ? index + count : index;
    if (place < 0 || place >= count) {
        throw py::index_error("the track has " + std::to_string(count) + " marks");
    }
    return {track.record, static_cast<std::size_t>(place)};
}

std::vector<std::string> bytesOfAll(const py::iterable& texts)
{
    std::vector<std::string> all;
    for (const py::handle each : texts) {
        all.push_back(bytesOf(each));
    }
    return all;
}

py::list textsOfMarks(const Track& track, const Text& name)
{
    const std::size_t field = textPlace(name.bytes);
    py::list texts;
    for (std::size_t mark = 0; mark < track.record->markCount(); ++mark) {
        texts.append(textOf(track.record->text(mark, field)));
    }
    return texts;
}

// All texts are there before the first is set: those of a caller's own list can change the track.
void setTextsOfMarks(const Track& track, const Text& name, const py::iterable& texts)
{
    const std::size_t field = textPlace(name.bytes);
    std::vector<std::string> all = bytesOfAll(texts);
    if (all.size() != track.record->markCount()) {
        throw py::value_error("there must be a text for each mark");
    }
    track.changeable().setTexts(field, std::move(all));
}

template <auto list>
py::list lines(const Track& track)
{
    py::list texts;
    for (const std::string& each : track.record->rest().*list) {
        texts.append(textOf(each));
    }
    return texts;
}

template <auto list>
void setLines(const Track& track, const py::iterable& texts)
{
    std::vector<std::string> all = bytesOfAll(texts);
    track.changeable().rest().*list = std::move(all);
}

py::array interBlobsOf(const Track& track)
{
    std::vector<TInterBlob>& list = track.record->rest().InterBlobs;
    return py::array_t<TInterBlob>(static_cast<py::ssize_t>(list.size()), list.data(), ownerOf(track.record));
}

void setInterBlobs(Track& track, const py::array_t<TInterBlob, py::array::c_style>& entries)
{
    auto changed = track.record->withMarks(track.record->markCount());
    changed->rest().InterBlobs.assign(entries.data(), entries.data() + entries.size());
    track.record = std::move(changed);
}

std::string shown(const Track& track)
{
    return "<tavelin.Track " + std::string(py::repr(textOf(track.record->rest().QRVName))) + ", " +
           std::to_string(track.record->markCount()) + " marks>";
}

template <auto member>
void defineResiduals(py::class_<Track>& type, const char* name, const char* meaning)
{
    type.def_property(
        name, [](const Track& track) { return residualsOf(track.record->rest().*member); },
        [](const Track& track, const py::dict& values) {
            setResiduals(track.changeable().rest().*member, values);
        },
        meaning);
}

void defineHead(py::class_<Track>& type)
{
    for (const HeadField& field : headFields()) {
        type.def_property(
            field.name, [field](const Track& track) { return field.get(track.record->rest()); },
            [field](const Track& track, py::handle value) { field.set(track.changeable().rest(), value); },
            field.meaning);
    }
    type.def_property(
        "MPCHeader", [](const Track& track) { return headerOf(track.record->rest()); },
        [](const Track& track, const py::dict& header) { setHeader(track.changeable().rest(), header); },
        "the texts of a report's header lines by their keywords; those that are not set stay");
    defineResiduals<&TrackVtorichka::ResidFirst>(
        type, "ResidFirst", "residuals against the first reference, numbers and lists; carried");
    defineResiduals<&TrackVtorichka::ResidSecond>(
        type, "ResidSecond", "residuals against the second reference, numbers and lists; carried");
}

void defineMarks(py::class_<Track>& type)
{
    type.def_property(
        "marks", marksOf, setMarks,
        "the numbers of the marks as an array over their memory; an array that is set is copied, and texts "
        "of marks stay where they are");
    type.def("mark", markAt, py::arg("index"),
             "A mark with its texts; a negative index counts from the end.");
    type.def("texts", textsOfMarks, py::arg("name"), "A text of each mark.");
    type.def("set_texts", setTextsOfMarks, py::arg("name"), py::arg("texts"), "Sets a text of each mark.");
    type.def("resize", resize, py::arg("count"),
             "Gives the track so many marks in memory of its own: arrays made before show the old marks.");
    type.def("__len__", [](const Track& track) { return track.record->markCount(); });
}

void defineLists(py::class_<Track>& type)
{
    type.def_property("Candidates", lines<&TrackVtorichka::Candidates>, setLines<&TrackVtorichka::Candidates>,
                      "the column Candidates, a text for each mark where a table filled it");
    type.def_property("Cast", lines<&TrackVtorichka::Cast>, setLines<&TrackVtorichka::Cast>,
                      "the column Cast, a text for each mark where a table filled it");
    type.def_property(
        "InterBlobs", interBlobsOf, setInterBlobs,
        "what inter-frame measurements add, an array over their memory; one that is set is copied");
}

template <class Value>
void defineNumber(py::class_<MarkOfTrack>& type, const NumberField& field)
{
    const auto get = [offset = field.offset](const MarkOfTrack& mark) {
        Value value;
        std::memcpy(&value, mark.record->numbersOf(mark.place) + offset, sizeof(value));
        return value;
    };
    const auto set = [offset = field.offset](const MarkOfTrack& mark, Value value) {
        std::memcpy(mark.record->numbersOf(mark.place) + offset, &value, sizeof(value));
    };
    type.def_property(field.name, get, set, field.meaning);
}

void defineNumbers(py::class_<MarkOfTrack>& type)
{
    for (const NumberField& field : numberFields()) {
        if (field.size == sizeof(double)) {
            defineNumber<double>(type, field);
        } else if (field.size == sizeof(int)) {
            defineNumber<int>(type, field);
        } else {
            defineNumber<bool>(type, field);
        }
    }
}

void defineTexts(py::class_<MarkOfTrack>& type)
{
    for (std::size_t field = 0; field < textFields().size(); ++field) {
        type.def_property(
            textFields()[field].name,
            [field](const MarkOfTrack& mark) { return textOf(mark.record->text(mark.place, field)); },
            [field](const MarkOfTrack& mark, const Text& text) {
                Track{mark.record}.changeable().setText(mark.place, field, text.bytes);
            },
            textFields()[field].meaning);
    }
}

// Name, unit and meaning of each number, as the tables of the package are made of them.
py::list numbersOfMarks()
{
    py::list rows;
    for (const NumberField& field : numberFields()) {
        rows.append(py::make_tuple(field.name, field.unit, field.meaning));
    }
    return rows;
}

template <class Fields>
py::list namesOf(const Fields& fields)
{
    py::list rows;
    for (const auto& field : fields) {
        rows.append(py::make_tuple(field.name, field.meaning));
    }
    return rows;
}

} // namespace

TrackRecord& Track::changeable() const
{
    if (record->writers > 0) {
        throw py::buffer_error("the track is being written on another thread");
    }
    return *record;
}

void defineTracks(py::module_& module)
{
    PYBIND11_NUMPY_DTYPE(TInterBlob, m_MPC, Value2, Value3);
    py::class_<Track> track(module, "Track", "The track of one object: its head and its marks.");
    track.def(py::init<>(), "A track without marks.");
    track.def("copy", copyOf, "The same track in memory of its own.");
    track.def("__copy__", copyOf);
    track.def(
        "__deepcopy__", [](const Track& self, const py::dict&) { return copyOf(self); }, py::arg("memo"));
    track.def("__repr__", shown);
    defineHead(track);
    defineMarks(track);
    defineLists(track);
    py::class_<MarkOfTrack> mark(module, "Mark", "A mark of a track: one measurement on one frame.");
    defineNumbers(mark);
    defineTexts(mark);
    module.def("mark_numbers", numbersOfMarks, "Name, unit and meaning of each number of a mark.");
    module.def(
        "mark_texts", [] { return namesOf(textFields()); }, "Name and meaning of each text of a mark.");
    module.def(
        "head_fields", [] { return namesOf(headFields()); }, "Name and meaning of each field of a head.");
}

} // namespace python
