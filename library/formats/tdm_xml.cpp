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
constexpr Shape valueShape{"<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n",
                           "<tdm id=\"CCSDS_TDM_VERS\" version=\"2.0\">\n", "2,1", "", true};
constexpr Shape markShape{"<?xml version=\"1.0\" ?>\n", "<tdm>\n", "2, 1", "APPARENT", false};

// Collects a document in pieces of a size that stays in the processor's memory.
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

    std::string text;

    /// Hands a full piece on.
    void flushFull()
    {
        if (text.size() >= pieceLength) {
            flush();
        }
    }

    /// Hands the rest on; false where anything failed.
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
        complete = complete && file && std::fwrite(text.data(), 1, text.size(), file.get()) == text.size();
        text.clear();
    }

    OpenFile file;
    bool complete = true;
};

void appendIndented(std::string& out, std::size_t depth, std::string_view line)
{
    constexpr std::size_t indent = 4;
    out.append(depth * indent, ' ');
    out += line;
}

void appendElement(std::string& out, std::size_t depth, std::string_view name, std::string_view text)
{
    appendIndented(out, depth, "<");
    out += name;
    out += '>';
    out += text;
    out += "</";
    out += name;
    out += ">\n";
}

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

void appendHeader(std::string& out, const std::vector<TrackVtorichka>& tracks)
{
    appendIndented(out, 1, "<header>\n");
    appendElement(out, 2, "CREATION_DATE", zeroCreationDate());
    appendElement(out, 2, "ORIGINATOR", tracks.empty() ? "" : escaped(tracks.front().originator));
    appendIndented(out, 1, "</header>\n");
}

void appendMetadata(std::string& out, const TrackVtorichka& track, const Shape& shape, DateTexts& dates)
{
    appendIndented(out, 3, "<metadata>\n");
    appendElement(out, 4, "TIME_SYSTEM", "UTC");
    appendElement(out, 4, "START_TIME", epochOf(track.Marks.front(), dates));
    appendElement(out, 4, "STOP_TIME", epochOf(track.Marks.back(), dates));
    appendElement(out, 4, "PARTICIPANT_1", escaped(track.telescope));
    appendElement(out, 4, "PARTICIPANT_2", escaped(track.QRVName));
    appendElement(out, 4, "MODE", "SEQUENTIAL");
    appendElement(out, 4, "PATH", shape.path);
    appendElement(out, 4, "ANGLE_TYPE", "RADEC");
    appendElement(out, 4, "REFERENCE_FRAME", escaped(track.REFERENCE_FRAME));
    if (!shape.magnitudeType.empty()) {
        appendElement(out, 4, "MAG_TYPE", shape.magnitudeType);
    }
    appendIndented(out, 3, "</metadata>\n");
}

constexpr std::string_view observationBegin = "                <observation>\n";
constexpr std::string_view observationEnd = "                </observation>\n";

void appendValue(std::string& out, std::string_view name, std::string_view before, double value, int decimals)
{
    constexpr std::string_view indented = "                    <";
    out += indented;
    out += name;
    out += '>';
    out += before;
    appendFixed(out, value, decimals);
    out += "</";
    out += name;
    out += ">\n";
}

// One value with its epoch beside it.
void appendValueObservation(std::string& out, std::string_view epoch, std::string_view name, double value,
                            int decimals)
{
    out += observationBegin;
    appendElement(out, 5, "EPOCH", epoch);
    appendValue(out, name, "", value, decimals);
    out += observationEnd;
}

void appendValues(std::string& out, std::string_view epoch, const TRecLabelPervichka_File& mark)
{
    appendValueObservation(out, epoch, "ANGLE_1", mark.RA, 7);
    appendValueObservation(out, epoch, "ANGLE_2", mark.DE, 7);
    appendValueObservation(out, epoch, "MAG", mark.m, 4);
}

// All values of a mark, each with the epoch in front.
void appendMark(std::string& out, std::string& epoch, const TRecLabelPervichka_File& mark)
{
    epoch += ' ';
    out += observationBegin;
    appendValue(out, "ANGLE_1", epoch, mark.RA, 7);
    appendValue(out, "ANGLE_2", epoch, mark.DE, 7);
    appendValue(out, "MAG", epoch, mark.m, 4);
    out += observationEnd;
}

void appendSegment(DocumentFile& file, const TrackVtorichka& track, const Shape& shape, DateTexts& dates)
{
    std::string& out = file.text;
    appendIndented(out, 2, "<segment>\n");
    appendMetadata(out, track, shape, dates);
    appendIndented(out, 3, "<data>\n");
    std::string epoch;
    for (std::size_t i = 0; i < track.Marks.size(); ++i) {
        fetchAhead(track.Marks, i);
        const TRecLabelPervichka_File& mark = track.Marks[i];
        epoch.clear();
        appendEpoch(epoch, dates, mark.date, mark.time);
        if (shape.observationPerValue) {
            appendValues(out, epoch, mark);
        } else {
            appendMark(out, epoch, mark);
        }
        file.flushFull();
    }
    appendIndented(out, 3, "</data>\n");
    appendIndented(out, 2, "</segment>\n");
}

bool saveDocument(const std::string& path, const std::vector<TrackVtorichka>& tracks, const Shape& shape)
{
    TiXmlBase::SetCondenseWhiteSpace(false); // as whoever writes or reads an XML file leaves the library
    DocumentFile file(path);
    file.text += shape.declaration;
    file.text += shape.root;
    appendHeader(file.text, tracks);
    if (countMarks(tracks) == 0) {
        appendIndented(file.text, 1, "<body />\n");
    } else {
        DateTexts dates;
        appendIndented(file.text, 1, "<body>\n");
        for (const TrackVtorichka& track : tracks) {
            if (!track.Marks.empty()) {
                appendSegment(file, track, shape, dates);
            }
        }
        appendIndented(file.text, 1, "</body>\n");
    }
    file.text += "</tdm>\n";
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
    MeasuredMark mark; // lives across the observations: what one does not say stays
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
