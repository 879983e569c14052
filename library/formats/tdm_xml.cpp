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
    std::string_view attributes; // of the root
    std::string_view path;
    std::string_view magnitudeType;
    bool observationPerValue;
};
// An observation for each value.
constexpr Shape valueShape{"<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n",
                           " id=\"CCSDS_TDM_VERS\" version=\"2.0\"", "2,1", "", true};
// An observation for each mark.
constexpr Shape markShape{"<?xml version=\"1.0\" ?>\n", "", "2, 1", "APPARENT", false};

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

    /// A line before all elements.
    void declare(std::string_view declaration)
    {
        text += declaration;
    }

    void begin(std::string_view name, std::string_view attributes = "")
    {
        beginLine(name);
        text += attributes;
        text += ">\n";
        ++depth;
    }

    void end(std::string_view name)
    {
        --depth;
        indent();
        endElement(name);
    }

    /// An element without anything in it.
    void empty(std::string_view name)
    {
        beginLine(name);
        text += " />\n";
    }

    void element(std::string_view name, std::string_view value)
    {
        beginLine(name);
        text += '>';
        text += value;
        endElement(name);
    }

    /// An element of a number, with a text before it.
    void number(std::string_view name, std::string_view before, double value, int decimals)
    {
        beginLine(name);
        text += '>';
        text += before;
        appendFixed(text, value, decimals);
        endElement(name);
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

    void indent()
    {
        constexpr std::size_t columnsOfALevel = 4;
        text.append(depth * columnsOfALevel, ' ');
    }

    void beginLine(std::string_view name)
    {
        indent();
        text += '<';
        text += name;
    }

    void endElement(std::string_view name)
    {
        text += "</";
        text += name;
        text += ">\n";
    }

    void flush()
    {
        complete = complete && file && std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
        text.clear();
    }

    OpenFile file;
    std::string text;
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
    std::string epoch;
    appendEpoch(epoch, dates, mark.date, mark.time);
    return epoch;
}

void writeHeader(DocumentFile& file, const std::vector<TrackVtorichka>& tracks)
{
    file.begin("header");
    file.element("CREATION_DATE", zeroCreationDate());
    file.element("ORIGINATOR", tracks.empty() ? "" : escaped(tracks.front().originator));
    file.end("header");
}

void writeMetadata(DocumentFile& file, const TrackVtorichka& track, const Shape& shape, DateTexts& dates)
{
    file.begin("metadata");
    file.element("TIME_SYSTEM", "UTC");
    file.element("START_TIME", epochOf(track.Marks.front(), dates));
    file.element("STOP_TIME", epochOf(track.Marks.back(), dates));
    file.element("PARTICIPANT_1", escaped(track.telescope));
    file.element("PARTICIPANT_2", escaped(track.QRVName));
    file.element("MODE", "SEQUENTIAL");
    file.element("PATH", shape.path);
    file.element("ANGLE_TYPE", "RADEC");
    file.element("REFERENCE_FRAME", escaped(track.REFERENCE_FRAME));
    if (!shape.magnitudeType.empty()) {
        file.element("MAG_TYPE", shape.magnitudeType);
    }
    file.end("metadata");
}

// One value with its epoch beside it.
void writeValue(DocumentFile& file, std::string_view epoch, std::string_view name, double value, int decimals)
{
    file.begin("observation");
    file.element("EPOCH", epoch);
    file.number(name, "", value, decimals);
    file.end("observation");
}

// An observation for each value of a mark.
void writeValues(DocumentFile& file, std::string_view epoch, const TRecLabelPervichka_File& mark)
{
    writeValue(file, epoch, "ANGLE_1", mark.RA, 7);
    writeValue(file, epoch, "ANGLE_2", mark.DE, 7);
    writeValue(file, epoch, "MAG", mark.m, 4);
}

// One observation of a mark, with the epoch before each value.
void writeMark(DocumentFile& file, std::string& epoch, const TRecLabelPervichka_File& mark)
{
    epoch += ' ';
    file.begin("observation");
    file.number("ANGLE_1", epoch, mark.RA, 7);
    file.number("ANGLE_2", epoch, mark.DE, 7);
    file.number("MAG", epoch, mark.m, 4);
    file.end("observation");
}

void writeData(DocumentFile& file, const TrackVtorichka& track, const Shape& shape, DateTexts& dates)
{
    file.begin("data");
    std::string epoch;
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
    file.end("data");
}

void writeBody(DocumentFile& file, const std::vector<TrackVtorichka>& tracks, const Shape& shape)
{
    if (countMarks(tracks) == 0) {
        file.empty("body");
        return;
    }
    DateTexts dates;
    file.begin("body");
    for (const TrackVtorichka& track : tracks) {
        if (!track.Marks.empty()) {
            file.begin("segment");
            writeMetadata(file, track, shape, dates);
            writeData(file, track, shape, dates);
            file.end("segment");
        }
    }
    file.end("body");
}

bool saveDocument(const std::string& path, const std::vector<TrackVtorichka>& tracks, const Shape& shape)
{
    TiXmlBase::SetCondenseWhiteSpace(false); // as every reader and writer of XML files leaves the library
    DocumentFile file(path);
    file.declare(shape.declaration);
    file.begin("tdm", shape.attributes);
    writeHeader(file, tracks);
    writeBody(file, tracks, shape);
    file.end("tdm");
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
    TiXmlElement* each = childOf(element, tagName.c_str());
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
