#include "formats/tdm_xml.h"

#include "base/bytes.h"
#include "base/last_answer.h"
#include "base/numbers.h"
#include "config/xml_document.h"
#include "formats/tdm.h"
#include "formats/track_gathering.h"
#include "text/date_text.h"

#include <cstddef>
#include <cstdio>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

// The documents have a fixed shape and are long, so they are printed directly, as the XML library prints
// its trees: a tree of elements takes many times the memory of the marks that it is made of.

// What the two shapes differ in.
struct Shape
{
    std::string_view declaration;
    std::string_view root;
    std::string_view path;
    std::string_view magnitudeType;
    bool observationPerValue;
};
// An observation for each value.
constexpr Shape valueShape{"<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n",
                           "<tdm id=\"CCSDS_TDM_VERS\" version=\"2.0\">\n", "2,1", "", true};
// An observation for each mark.
constexpr Shape markShape{"<?xml version=\"1.0\" ?>\n", "<tdm>\n", "2, 1", "APPARENT", false};

// The texts of an element, in one piece each: there are twelve lines for every mark. They have the blanks of
// the deepest level, of which a line takes as many as its own depth needs.
class Element
{
public:
    explicit constexpr Element(std::string_view name)
    {
        for (const std::string_view part : {blanks, std::string_view("<"), name, std::string_view(">")}) {
            put(part, open, openSize);
        }
        for (const std::string_view part : {blanks, std::string_view("</"), name, std::string_view(">\n")}) {
            put(part, close, closeSize);
        }
    }

    /// "<name>" at a depth, with its blanks.
    constexpr std::string_view begin(std::size_t depth) const
    {
        return std::string_view(open, openSize).substr(blanks.size() - depth * columnsOfALevel);
    }

    /// "</name>" and the end of the line, at a depth.
    constexpr std::string_view end(std::size_t depth) const
    {
        return std::string_view(close, closeSize).substr(blanks.size() - depth * columnsOfALevel);
    }

    /// The same after a value.
    constexpr std::string_view end() const
    {
        return end(0);
    }

private:
    static constexpr std::size_t columnsOfALevel = 4;
    static constexpr std::string_view blanks = "                    ";

    static constexpr void put(std::string_view part, char* text, std::size_t& size)
    {
        for (const char character : part) {
            text[size++] = character;
        }
    }

    char open[48] = {};
    char close[48] = {};
    std::size_t openSize = 0;
    std::size_t closeSize = 0;
};

namespace element {
constexpr Element header("header");
constexpr Element creationDate("CREATION_DATE");
constexpr Element originator("ORIGINATOR");
constexpr Element body("body");
constexpr Element segment("segment");
constexpr Element metadata("metadata");
constexpr Element timeSystem("TIME_SYSTEM");
constexpr Element startTime("START_TIME");
constexpr Element stopTime("STOP_TIME");
constexpr Element participant1("PARTICIPANT_1");
constexpr Element participant2("PARTICIPANT_2");
constexpr Element mode("MODE");
constexpr Element path("PATH");
constexpr Element angleType("ANGLE_TYPE");
constexpr Element referenceFrame("REFERENCE_FRAME");
constexpr Element magnitudeType("MAG_TYPE");
constexpr Element data("data");
constexpr Element observation("observation");
constexpr Element epoch("EPOCH");
constexpr Element angle1("ANGLE_1");
constexpr Element angle2("ANGLE_2");
constexpr Element magnitude("MAG");
} // namespace element

// Prints a document line by line and knows how deep each element is. Writes pieces of a
// size that stays in the processor's caches.
class DocumentFile
{
public:
    explicit DocumentFile(const std::string& path) : file(openFile(path, "w"))
    {
        if (file) {
            std::setvbuf(file.get(), nullptr, _IONBF, 0);
            text.reserve(pieceLength + longestAddition);
        }
    }

    /// The lines before the first element, and the root's own.
    void beginRoot(std::string_view declaration, std::string_view root)
    {
        text += declaration;
        text += root;
        ++depth;
    }

    void endRoot()
    {
        text += "</tdm>\n";
    }

    void begin(const Element& element)
    {
        text += element.begin(depth);
        text += '\n';
        ++depth;
    }

    void end(const Element& element)
    {
        --depth;
        text += element.end(depth);
    }

    /// An element without anything in it.
    void empty(const Element& element)
    {
        text += element.begin(depth);
        text.shorten(text.size() - 1);
        text += " />\n";
    }

    void value(const Element& element, std::string_view value)
    {
        text += element.begin(depth);
        text += value;
        text += element.end();
    }

    /// An element of a number, with a text before it.
    void number(const Element& element, std::string_view before, double value, int decimals)
    {
        text += element.begin(depth);
        text += before;
        appendFixed(text, value, decimals);
        text += element.end();
    }

    /// Writes a full piece out.
    void flushFull()
    {
        if (text.size() >= pieceLength) {
            flush();
        }
    }

    /// Writes the rest out and closes the file; false where anything failed.
    bool close()
    {
        flush();
        return file && std::fclose(file.release()) == 0 && complete;
    }

private:
    static constexpr std::size_t pieceLength = std::size_t{1} << 20;
    static constexpr std::size_t longestAddition = std::size_t{1} << 12;

    void flush()
    {
        complete =
            complete && file && std::fwrite(text.view().data(), 1, text.size(), file.get()) == text.size();
        text.clear();
    }

    OpenFile file;
    TextBuffer text;
    std::size_t depth = 0;
    bool complete = true;
};

// A text that comes from outside, escaped as the library does it.
std::string escaped(const std::string& text)
{
    std::string out;
    TiXmlBase::EncodeString(text, &out);
    return out;
}

std::string epochOf(const TRecLabelPervichka_File& mark, DateTexts& dates)
{
    TextBuffer epoch;
    appendEpoch(epoch, dates, mark.date, mark.time);
    return epoch.str();
}

void writeHeader(DocumentFile& file, const std::vector<TrackVtorichka>& tracks)
{
    file.begin(element::header);
    file.value(element::creationDate, zeroCreationDate());
    file.value(element::originator, tracks.empty() ? "" : escaped(tracks.front().originator));
    file.end(element::header);
}

void writeMetadata(DocumentFile& file, const TrackVtorichka& track, const Shape& shape, DateTexts& dates)
{
    file.begin(element::metadata);
    file.value(element::timeSystem, "UTC");
    file.value(element::startTime, epochOf(track.Marks.front(), dates));
    file.value(element::stopTime, epochOf(track.Marks.back(), dates));
    file.value(element::participant1, escaped(track.telescope));
    file.value(element::participant2, escaped(track.QRVName));
    file.value(element::mode, "SEQUENTIAL");
    file.value(element::path, shape.path);
    file.value(element::angleType, "RADEC");
    file.value(element::referenceFrame, escaped(track.REFERENCE_FRAME));
    if (!shape.magnitudeType.empty()) {
        file.value(element::magnitudeType, shape.magnitudeType);
    }
    file.end(element::metadata);
}

// One value with its epoch beside it.
void writeValue(DocumentFile& file, std::string_view epoch, const Element& valueElement, double value,
                int decimals)
{
    file.begin(element::observation);
    file.value(element::epoch, epoch);
    file.number(valueElement, "", value, decimals);
    file.end(element::observation);
}

// An observation for each value of a mark.
void writeValues(DocumentFile& file, std::string_view epoch, const TRecLabelPervichka_File& mark)
{
    writeValue(file, epoch, element::angle1, mark.RA, 7);
    writeValue(file, epoch, element::angle2, mark.DE, 7);
    writeValue(file, epoch, element::magnitude, mark.m, 4);
}

// One observation of a mark, with the epoch before each value.
void writeMark(DocumentFile& file, TextBuffer& epoch, const TRecLabelPervichka_File& mark)
{
    epoch += ' ';
    file.begin(element::observation);
    file.number(element::angle1, epoch, mark.RA, 7);
    file.number(element::angle2, epoch, mark.DE, 7);
    file.number(element::magnitude, epoch, mark.m, 4);
    file.end(element::observation);
}

void writeData(DocumentFile& file, const TrackVtorichka& track, const Shape& shape, DateTexts& dates)
{
    file.begin(element::data);
    TextBuffer epoch;
    for (std::size_t i = 0; i < track.Marks.size(); ++i) {
        fetchAhead(track.Marks, i);
        const TRecLabelPervichka_File& mark = track.Marks[i];
        epoch.clear();
        appendEpoch(epoch, dates, mark.date, mark.time);
        if (shape.observationPerValue) {
            writeValues(file, epoch, mark);
        } else {
            writeMark(file, epoch, mark);
        }
        file.flushFull();
    }
    file.end(element::data);
}

void writeBody(DocumentFile& file, const std::vector<TrackVtorichka>& tracks, const Shape& shape)
{
    if (countMarks(tracks) == 0) {
        file.empty(element::body);
        return;
    }
    DateTexts dates;
    file.begin(element::body);
    for (const TrackVtorichka& track : tracks) {
        if (!track.Marks.empty()) {
            file.begin(element::segment);
            writeMetadata(file, track, shape, dates);
            writeData(file, track, shape, dates);
            file.end(element::segment);
        }
    }
    file.end(element::body);
}

bool saveDocument(const std::string& path, const std::vector<TrackVtorichka>& tracks, const Shape& shape)
{
    TiXmlBase::SetCondenseWhiteSpace(false); // as every reader and writer of XML files leaves the library
    DocumentFile file(path);
    file.beginRoot(shape.declaration, shape.root);
    writeHeader(file, tracks);
    writeBody(file, tracks, shape);
    file.endRoot();
    return file.close();
}

std::size_t countObservations(TiXmlElement* element, const char* name)
{
    std::size_t count = 0;
    for (TiXmlElement* each = childOf(element, name); each != nullptr; each = each->NextSiblingElement(name))
    {
        if (each->FirstChildElement("MAG") != nullptr) {
            ++count;
        }
    }
    return count;
}

} // namespace

bool sTDMPOLxml(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    return saveDocument(path, tracks, valueShape);
}

bool sTDMxml(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    return saveDocument(path, tracks, markShape);
}

void GetTDMObservations(TiXmlElement* element, std::string tagName,
                        std::vector<TRecLabelPervichka_File>& marks)
{
    constexpr double noMagnitude = -1000.0;
    marks.reserve(marks.size() + countObservations(element, tagName.c_str()));
    DayNumbers days;
    std::string epoch;
    MeasuredMark mark; // kept across the observations: one without a value has that of those before it
    mark.m = noMagnitude;
    TiXmlElement* each = childOf(element, tagName);
    for (; each != nullptr; each = each->NextSiblingElement(tagName.c_str())) {
        GetText(each, "EPOCH", epoch);
        GetText(each, "ANGLE_1", mark.RA);
        GetText(each, "ANGLE_2", mark.DE);
        GetText(each, "MAG", mark.m);
        if (mark.m > noMagnitude) {
            readEpoch(epoch, days, mark.date, mark.time);
            setMeasured(marks.emplace_back(), mark);
            mark.m = noMagnitude;
        }
    }
}

bool lTDMxml(std::string path, std::vector<TrackVtorichka>& tracks)
{
    TtavelinXmlDocument document(path);
    if (!document.LoadFile()) {
        return false;
    }
    TiXmlElement* const segment = childOf(childOf(document.FirstChildElement(), "body"), "segment");
    TrackVtorichka track;
    // Into NORAD and not into QRVName: the key-value form does it the other way.
    GetText(childOf(segment, "metadata"), "PARTICIPANT_2", track.NORAD);
    GetTDMObservations(childOf(segment, "data"), "observation", track.Marks);
    tracks.push_back(std::move(track));
    return true;
}

} // namespace tavelinUtils
