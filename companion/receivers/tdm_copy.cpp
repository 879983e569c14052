#include "receivers/tdm_copy.h"

#include "out/xml_text.h"
#include "receivers/tdm_rules.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <set>
#include <string_view>
#include <utility>

using tavelinUtils::THeadTrVtor;
using tavelinUtils::TRecLabelPervichka_File;

namespace companion {
namespace {

// As fine as the finest of our sources.
constexpr int timeDecimals = 7;
constexpr int angleDecimals = 8;
constexpr int magnitudeDecimals = 4;
constexpr std::size_t longestValue = 230; // the longest line has 254 characters, with its key

// A line of a message, or an element.
using Line = std::pair<std::string_view, std::string>;

struct Record
{
    std::string epoch;
    std::vector<Line> values;
};

struct Segment
{
    std::vector<Line> metadata;
    std::vector<Record> records;
};

struct Message
{
    std::string creationDate;
    std::string originator;
    std::vector<Segment> segments;
};

void appendKey(std::string& out, std::string_view key, const std::string& value)
{
    out.append(key).append(" = ").append(value) += '\n';
}

void appendSegment(std::string& out, const Segment& segment)
{
    out += "META_START\n";
    for (const auto& [key, value] : segment.metadata) {
        appendKey(out, key, value);
    }
    out += "META_STOP\nDATA_START\n";
    for (const Record& record : segment.records) {
        for (const auto& [key, value] : record.values) {
            appendKey(out, key, record.epoch + ' ' + value);
        }
    }
    out += "DATA_STOP\n";
}

std::string textOf(const Message& message)
{
    std::string out;
    appendKey(out, "CCSDS_TDM_VERS", "2.0");
    appendKey(out, "CREATION_DATE", message.creationDate);
    appendKey(out, "ORIGINATOR", message.originator);
    for (const Segment& segment : message.segments) {
        appendSegment(out, segment);
    }
    return out;
}

void appendElement(std::string& out, int depth, std::string_view key, const std::string& value)
{
    out.append(static_cast<std::size_t>(depth) * 2, ' ').append("<").append(key).append(">");
    out.append(xmlText(value)).append("</").append(key).append(">\n");
}

void appendXmlSegment(std::string& out, const Segment& segment)
{
    out += "    <segment>\n      <metadata>\n";
    for (const auto& [key, value] : segment.metadata) {
        appendElement(out, 4, key, value);
    }
    out += "      </metadata>\n      <data>\n";
    for (const Record& record : segment.records) {
        for (const auto& [key, value] : record.values) {
            out += "        <observation>\n";
            appendElement(out, 5, "EPOCH", record.epoch);
            appendElement(out, 5, key, value);
            out += "        </observation>\n";
        }
    }
    out += "      </data>\n    </segment>\n";
}

std::string xmlOf(const Message& message)
{
    std::string out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
                      "<tdm xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\"\n"
                      "     xsi:noNamespaceSchemaLocation=\"https://sanaregistry.org/r/ndmxml_unqualified/"
                      "ndmxml-2.0.0-master-2.0.xsd\"\n"
                      "     id=\"CCSDS_TDM_VERS\" version=\"2.0\">\n  <header>\n";
    appendElement(out, 2, "CREATION_DATE", message.creationDate);
    appendElement(out, 2, "ORIGINATOR", message.originator);
    out += "  </header>\n  <body>\n";
    for (const Segment& segment : message.segments) {
        appendXmlSegment(out, segment);
    }
    return out + "  </body>\n</tdm>\n";
}

Finding keyFault(const char* key, const std::string& why)
{
    return finding("V342", {{"key", key}, {"why", why}});
}

// A text on one line; blanks and control characters in a row are one blank.
std::string onOneLine(const std::string& text)
{
    std::string line;
    for (const char c : text) {
        const bool isBlank = c == ' ' || static_cast<unsigned char>(c) < 0x20;
        if (!isBlank) {
            line += c;
        } else if (!line.empty() && line.back() != ' ') {
            line += ' ';
        }
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

// The texts of a segment's metadata.
struct Head
{
    std::string telescope;
    std::string object;
    std::string frame;
};

class TdmCopier
{
public:
    TdmCopier(const std::vector<CopyTrack>& theTracks, const CopySettings& theSettings, TdmForm theForm)
        : tracks(theTracks), settings(theSettings), form(theForm), tally(theTracks, theSettings)
    {
    }

    Copy make()
    {
        message.creationDate = settings.creationDate;
        for (std::size_t track = 0; track < tracks.size(); ++track) {
            addTrack(track);
        }
        std::string text;
        if (!message.segments.empty()) {
            text = form == TdmForm::text ? textOf(message) : xmlOf(message);
        }
        return copyOf(std::move(text), tally, tracks);
    }

private:
    void addTrack(std::size_t number)
    {
        const CopyTrack& track = tracks[number];
        const Head head{mended(number, telescopeOf(track)), mended(number, track.track.QRVName),
                        frameOf(number)};
        if (!isTaken(number, head)) {
            return;
        }
        takeOriginator(track, head.telescope);
        std::vector<std::string> bands; // in the order of their first marks
        std::map<std::string, std::vector<std::size_t>> marks;
        for (std::size_t mark = 0; mark < track.marks.size(); ++mark) {
            if (isPossible({number, mark})) {
                const std::string band = isBright(settings, track, mark) ? bandOf(track, mark) : "";
                if (marks[band].empty()) {
                    bands.push_back(band);
                }
                marks[band].push_back(mark);
            }
        }
        for (const std::string& band : bands) {
            addSegment(number, head, marks[band]);
        }
    }

    // The file's own words but for those that stand for nothing.
    static std::string telescopeOf(const CopyTrack& track)
    {
        static const THeadTrVtor unset;
        const std::string& station = track.observatory->station;
        const std::string& own = track.track.telescope;
        return own.empty() || own == unset.telescope ? station : own;
    }

    void takeOriginator(const CopyTrack& track, const std::string& telescope)
    {
        static const THeadTrVtor unset;
        if (message.originator.empty()) {
            const std::string own = onOneLine(track.track.originator);
            message.originator = own.empty() || own == unset.originator ? telescope : own;
        }
    }

    std::string mended(std::size_t number, const std::string& text)
    {
        std::string line = onOneLine(text);
        if (line != text) {
            tally.mend("a name is on one line, without blanks at its ends", tracks[number].marks.size());
        }
        return line;
    }

    std::string frameOf(std::size_t number)
    {
        const std::string& frame = tracks[number].track.REFERENCE_FRAME;
        if (frame == "J2000") {
            tally.mend("the frame J2000 is EME2000", tracks[number].marks.size());
            return "EME2000";
        }
        return frame;
    }

    bool isTaken(std::size_t number, const Head& head)
    {
        const bool isFrame = form == TdmForm::xml ? isTdmSchemaFrame(head.frame) : isTdmFrame(head.frame);
        if (head.telescope.empty()) {
            tally.refuseTrack(number, notKnown("the telescope", "--station"));
        } else if (!isFrame) {
            const std::string why = "has the value \"" + head.frame + "\", which is no frame of the standard";
            tally.refuseTrack(number, keyFault("REFERENCE_FRAME", why));
        } else if (head.object.empty()) {
            tally.refuseTrack(number, keyFault("PARTICIPANT_2", "has no value"));
        } else if (!isText(head.telescope) || !isText(head.object)) {
            tally.refuseTrack(number, keyFault(isText(head.telescope) ? "PARTICIPANT_2" : "PARTICIPANT_1",
                                               "has more than ASCII characters, or too many"));
        } else {
            return true;
        }
        return false;
    }

    static bool isText(const std::string& text)
    {
        return text.size() <= longestValue &&
               std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
    }

    bool isPossible(const CopyPlace& place)
    {
        const CopyTrack& track = tracks[place.track];
        const TRecLabelPervichka_File& mark = track.track.Marks[place.mark];
        const char* key = nullptr;
        if (mark.date < -600000 || mark.date > 2'900'000 || !(std::abs(mark.time) < 2.0)) {
            key = "EPOCH";
        } else if (!isRightAscension(mark.RA)) {
            key = "ANGLE_1";
        } else if (!isDeclination(mark.DE)) {
            key = "ANGLE_2";
        } else if (isBright(settings, track, place.mark) && !(std::abs(mark.m) < 1e6)) {
            key = "MAG";
        }
        if (key != nullptr) {
            tally.refuse(place, finding("V344", {{"key", key}, {"what", "no number that it takes"}}));
        }
        return key == nullptr;
    }

    void addSegment(std::size_t number, const Head& head, std::vector<std::size_t> marks)
    {
        const CopyTrack& track = tracks[number];
        sortMarks(track, marks);
        Segment segment;
        for (const std::size_t mark : marks) {
            const std::string epoch = epochText(momentOf(track.track.Marks[mark]), timeDecimals);
            if (!epochs.insert({head.telescope + '\n' + head.object, epoch}).second) {
                tally.refuse({number, mark},
                             finding("V344", {{"key", "ANGLE_1"}, {"what", "the time " + epoch + " twice"}}));
                continue;
            }
            segment.records.push_back(recordOf(track, mark, epoch));
        }
        if (!segment.records.empty()) {
            segment.metadata = metadataOf(head, segment.records);
            message.segments.push_back(std::move(segment));
        }
    }

    void sortMarks(const CopyTrack& track, std::vector<std::size_t>& marks)
    {
        const auto isEarlier = [&track](std::size_t a, std::size_t b) {
            const auto moment = [&track](std::size_t mark) {
                return roundedMoment(momentOf(track.track.Marks[mark]), 86400 * powerOfTen(timeDecimals));
            };
            return moment(a) < moment(b);
        };
        if (!std::is_sorted(marks.begin(), marks.end(), isEarlier)) {
            std::stable_sort(marks.begin(), marks.end(), isEarlier);
            tally.mend("the marks are in the order of time", marks.size());
        }
    }

    Record recordOf(const CopyTrack& track, std::size_t number, const std::string& epoch)
    {
        const TRecLabelPervichka_File& mark = track.track.Marks[number];
        Record record{epoch,
                      {{"ANGLE_1", exactCircle(mark.RA, angleDecimals)},
                       {"ANGLE_2", exactDecimal(mark.DE, angleDecimals)}}};
        if (isBright(settings, track, number)) {
            record.values.emplace_back("MAG", exactDecimal(mark.m, magnitudeDecimals));
        } else if (!settings.leavesMagnitudesOut) {
            tally.mend("there is no line for a magnitude that is none");
        }
        tellMended(mark, record);
        return record;
    }

    void tellMended(const TRecLabelPervichka_File& mark, const Record& record)
    {
        const bool isRoundedUp = mark.RA > 359.0 && record.values.front().second.starts_with("0.");
        if (mark.RA >= 360.0 || mark.RA < 0.0 || isRoundedUp) {
            tally.mend("a right ascension is brought to below 360 degrees");
        }
        if (mark.time < 1.0 && record.epoch.substr(0, 10) != dayText(mark.date, '-')) {
            tally.mend("the time is carried into the next day");
        }
    }

    static std::vector<Line> metadataOf(const Head& head, const std::vector<Record>& records)
    {
        return {{"TIME_SYSTEM", "UTC"},
                {"START_TIME", records.front().epoch},
                {"STOP_TIME", records.back().epoch},
                {"PARTICIPANT_1", head.telescope},
                {"PARTICIPANT_2", head.object},
                {"MODE", "SEQUENTIAL"},
                {"PATH", "2,1"},
                {"ANGLE_TYPE", "RADEC"},
                {"REFERENCE_FRAME", head.frame}};
    }

    const std::vector<CopyTrack>& tracks;
    const CopySettings& settings;
    TdmForm form;
    CopyTally tally;
    Message message{};
    std::set<std::pair<std::string, std::string>> epochs{}; // of each telescope and object
};

} // namespace

Copy tdmCopy(const std::vector<CopyTrack>& tracks, const CopySettings& settings, TdmForm form)
{
    return TdmCopier(tracks, settings, form).make();
}

} // namespace companion
