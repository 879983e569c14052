#include "formats/tdm_xml.h"

#include "base/bytes.h"
#include "base/last_answer.h"
#include "base/numbers.h"
#include "config/xml_document.h"
#include "formats/tdm.h"
#include "formats/track_gathering.h"
#include "records/track_stream.h"
#include "text/date_text.h"
#include "text/written_text.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

// The documents have a fixed shape and are long, so they are printed directly, as the XML library prints
// its trees: a tree of elements takes many times the memory of the marks that it is made of.

// A part of a document as it is printed, with a `*` in the place of each value.
template <std::size_t values>
class Form
{
public:
    explicit constexpr Form(std::string_view text)
    {
        for (std::size_t place = 0; place < values; ++place) {
            const std::size_t end = text.find('*');
            texts[place] = text.substr(0, end);
            text = text.substr(end + 1); // does not compile where a value is missing
        }
        texts[values] = text;
    }

    /// The text before the value of that place, or after the last value.
    constexpr std::string_view operator[](std::size_t place) const
    {
        return texts[place];
    }

private:
    std::string_view texts[values + 1];
};

// What the two shapes differ in. The values are the same, in the same order.
struct Shape
{
    Form<2> head;     // creation date, originator
    Form<5> metadata; // epochs of the first and the last mark, telescope, object, frame
    Form<6> mark;     // right ascension, declination, magnitude, each after the epoch
};

// An observation for each value.
constexpr Shape valueShape{Form<2>(R"(<?xml version="1.0" encoding="UTF-8" ?>
<tdm id="CCSDS_TDM_VERS" version="2.0">
    <header>
        <CREATION_DATE>*</CREATION_DATE>
        <ORIGINATOR>*</ORIGINATOR>
    </header>
)"),
                           Form<5>(R"(        <segment>
            <metadata>
                <TIME_SYSTEM>UTC</TIME_SYSTEM>
                <START_TIME>*</START_TIME>
                <STOP_TIME>*</STOP_TIME>
                <PARTICIPANT_1>*</PARTICIPANT_1>
                <PARTICIPANT_2>*</PARTICIPANT_2>
                <MODE>SEQUENTIAL</MODE>
                <PATH>2,1</PATH>
                <ANGLE_TYPE>RADEC</ANGLE_TYPE>
                <REFERENCE_FRAME>*</REFERENCE_FRAME>
            </metadata>
            <data>
)"),
                           Form<6>(R"(                <observation>
                    <EPOCH>*</EPOCH>
                    <ANGLE_1>*</ANGLE_1>
                </observation>
                <observation>
                    <EPOCH>*</EPOCH>
                    <ANGLE_2>*</ANGLE_2>
                </observation>
                <observation>
                    <EPOCH>*</EPOCH>
                    <MAG>*</MAG>
                </observation>
)")};

// An observation for each mark.
constexpr Shape markShape{Form<2>(R"(<?xml version="1.0" ?>
<tdm>
    <header>
        <CREATION_DATE>*</CREATION_DATE>
        <ORIGINATOR>*</ORIGINATOR>
    </header>
)"),
                          Form<5>(R"(        <segment>
            <metadata>
                <TIME_SYSTEM>UTC</TIME_SYSTEM>
                <START_TIME>*</START_TIME>
                <STOP_TIME>*</STOP_TIME>
                <PARTICIPANT_1>*</PARTICIPANT_1>
                <PARTICIPANT_2>*</PARTICIPANT_2>
                <MODE>SEQUENTIAL</MODE>
                <PATH>2, 1</PATH>
                <ANGLE_TYPE>RADEC</ANGLE_TYPE>
                <REFERENCE_FRAME>*</REFERENCE_FRAME>
                <MAG_TYPE>APPARENT</MAG_TYPE>
            </metadata>
            <data>
)"),
                          Form<6>(R"(                <observation>
                    <ANGLE_1>* *</ANGLE_1>
                    <ANGLE_2>* *</ANGLE_2>
                    <MAG>* *</MAG>
                </observation>
)")};

constexpr std::string_view segmentEnd = "            </data>\n"
                                        "        </segment>\n";
constexpr std::string_view bodyBegin = "    <body>\n";
constexpr std::string_view bodyEnd = "    </body>\n";
constexpr std::string_view emptyBody = "    <body />\n";
constexpr std::string_view rootEnd = "</tdm>\n";

// A text that comes from outside, escaped as the library does it.
void appendEscaped(TextBuffer& out, const std::string& text)
{
    std::string escaped;
    TiXmlBase::EncodeString(text, &escaped);
    out += escaped;
}

void appendHead(TextBuffer& out, const Form<2>& form, const std::string& originator)
{
    out += form[0];
    out += zeroCreationDate();
    out += form[1];
    appendEscaped(out, originator);
    out += form[2];
}

void appendMetadata(TextBuffer& out, const Form<5>& form, const TrackVtorichka& track, DateTexts& dates)
{
    const TRecLabelPervichka_File& first = track.Marks.front();
    const TRecLabelPervichka_File& last = track.Marks.back();
    out += form[0];
    appendEpoch(out, dates, first.date, first.time);
    out += form[1];
    appendEpoch(out, dates, last.date, last.time);
    out += form[2];
    appendEscaped(out, track.telescope);
    out += form[3];
    appendEscaped(out, track.QRVName);
    out += form[4];
    appendEscaped(out, track.REFERENCE_FRAME);
    out += form[5];
}

void appendMark(TextBuffer& out, const Form<6>& form, const TRecLabelPervichka_File& mark, DateTexts& dates)
{
    TextBuffer epoch;
    appendEpoch(epoch, dates, mark.date, mark.time);
    out += form[0];
    out += epoch;
    out += form[1];
    appendFixed(out, mark.RA, 7);
    out += form[2];
    out += epoch;
    out += form[3];
    appendFixed(out, mark.DE, 7);
    out += form[4];
    out += epoch;
    out += form[5];
    appendFixed(out, mark.m, 4);
    out += form[6];
}

// A document that is written track after track. Its originator is that of the first track; its body is known
// to hold something at the first mark.
class MessageFile
{
public:
    MessageFile(std::string path, const Shape& documentShape)
        : file(std::move(path), PieceFile::Old::replaced), shape(documentShape)
    {
    }

    void add(const TrackVtorichka& track)
    {
        head(track.originator);
        if (track.Marks.empty()) {
            return;
        }
        beginBody();
        appendMetadata(file.text(), shape.metadata, track, dates);
        for (const TRecLabelPervichka_File& mark : track.Marks) {
            appendMark(file.text(), shape.mark, mark, dates);
            file.writeFull(); // save gives what fails here
        }
        file.text() += segmentEnd;
    }

    bool save()
    {
        keepWhiteSpace(); // as every reader and writer of XML files leaves the library
        head("");
        file.text() += bodyBegun ? bodyEnd : emptyBody;
        file.text() += rootEnd;
        return file.close();
    }

private:
    void head(const std::string& originator)
    {
        if (!headed) {
            headed = true;
            appendHead(file.text(), shape.head, originator);
        }
    }

    void beginBody()
    {
        if (!bodyBegun) {
            bodyBegun = true;
            file.text() += bodyBegin;
        }
    }

    PieceFile file;
    const Shape& shape;
    DateTexts dates;
    bool headed = false;
    bool bodyBegun = false;
};

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

struct TdmXmlSink::State
{
    MessageFile file;
};

TdmXmlSink::TdmXmlSink(std::string path) : state(new State{{std::move(path), valueShape}})
{
}

TdmXmlSink::TdmXmlSink(TdmXmlSink&& other) noexcept = default;
TdmXmlSink::~TdmXmlSink() = default;

void TdmXmlSink::add(const TrackVtorichka& track)
{
    state->file.add(track);
}

bool TdmXmlSink::save()
{
    return state->file.save();
}

struct TdmMarkXmlSink::State
{
    MessageFile file;
};

TdmMarkXmlSink::TdmMarkXmlSink(std::string path) : state(new State{{std::move(path), markShape}})
{
}

TdmMarkXmlSink::TdmMarkXmlSink(TdmMarkXmlSink&& other) noexcept = default;
TdmMarkXmlSink::~TdmMarkXmlSink() = default;

void TdmMarkXmlSink::add(const TrackVtorichka& track)
{
    state->file.add(track);
}

bool TdmMarkXmlSink::save()
{
    return state->file.save();
}

bool sTDMPOLxml(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    return writeAll(TdmXmlSink(path), tracks);
}

bool sTDMxml(std::string path, const std::vector<TrackVtorichka>& tracks)
{
    return writeAll(TdmMarkXmlSink(path), tracks);
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
