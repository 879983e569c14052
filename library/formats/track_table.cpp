#include "formats/track_table.h"

#include "base/bytes.h"
#include "base/last_answer.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "files/essentials.h"
#include "files/text_files.h"
#include "text/date_text.h"
#include "text/number_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <string_view>
#include <type_traits>
#include <utility>

namespace tavelinUtils {
namespace {

constexpr std::string_view version = "v2";
constexpr std::string_view trackEnd = "---";
constexpr std::string_view satelliteColumns =
    "N:Int\tNBl:Int\tdate:Date\ttime:Time\tnoradid:Text\tRA:Float:deg\tDE:Float:degt\tDraw:Bool"; // "degt" is
                                                                                                  // so

// A mark being read or written, with what stands beside it.
struct Reading
{
    TrackVtorichka& track;
    TRecLabelPervichka_File& mark;
    TInterBlob& interBlob;
    DayNumbers& days;
};
struct Writing
{
    const TrackVtorichka& track;
    const TRecLabelPervichka_File& mark;
    const TInterBlob& interBlob;
    DateTexts& dates;
};

// A column: its description, who writes it, who reads it, and whether it is one of the head's, which stand on
// every line of a track.
struct TableColumn
{
    std::string_view description;
    void (*write)(std::string& out, const Writing& from);
    void (*read)(const Reading& to, std::string_view field);
    bool ofHead = false;

    constexpr std::string_view name() const
    {
        return description.substr(0, description.find(':'));
    }
};

// Any value of a record as a field: a double with decimals, an integer, a text.
template <int decimals, class Value>
void appendValue(std::string& out, const Value& value)
{
    if constexpr (std::is_same_v<Value, double>) {
        appendFixed(out, value, decimals);
    } else if constexpr (std::is_same_v<Value, int>) {
        appendInt(out, value);
    } else {
        out += value;
    }
}

template <class Value>
Value valueOf(std::string_view field)
{
    if constexpr (std::is_same_v<Value, double>) {
        return toDouble(field);
    } else if constexpr (std::is_same_v<Value, int>) {
        return toInt(field);
    } else {
        return Value(field);
    }
}

template <class Record, class Value>
Value memberType(Value Record::*);

template <auto member>
using MemberType = decltype(memberType(member));

template <auto member, int decimals = 0>
constexpr TableColumn ofMark(std::string_view description)
{
    return {description,
            [](std::string& out, const Writing& from) { appendValue<decimals>(out, from.mark.*member); },
            [](const Reading& to, std::string_view field) {
                to.mark.*member = valueOf<MemberType<member>>(field);
            }};
}

template <auto member, int decimals = 0>
constexpr TableColumn ofTrack(std::string_view description)
{
    return {description,
            [](std::string& out, const Writing& from) { appendValue<decimals>(out, from.track.*member); },
            [](const Reading& to, std::string_view field) {
                to.track.*member = valueOf<MemberType<member>>(field);
            },
            true};
}

// A text that stands for other tools and is never read back.
constexpr TableColumn zero(std::string_view description)
{
    return {description, [](std::string& out, const Writing&) { out += '0'; }, nullptr};
}

constexpr TableColumn notTold(std::string_view description)
{
    return {description, [](std::string& out, const Writing&) { out += "na"; }, nullptr};
}

// A frame is shown from 1 and held from 0; the difference wraps around as the integers do.
int shifted(int number, unsigned by)
{
    return static_cast<int>(static_cast<unsigned>(number) + by);
}

using Mark = TRecLabelPervichka_File;
using Head = THeadTrVtor;

// The standard header, in its order.
constexpr TableColumn standardColumns[] = {
    ofTrack<&Head::N>("N:Int"),
    {"NBl:Int", [](std::string& out, const Writing& from) { out += std::to_string(from.track.Marks.size()); },
     nullptr},
    ofTrack<&Head::QRVName>("QRVName:Text"),
    {"date:Date",
     [](std::string& out, const Writing& from) { appendDate(out, from.dates, from.mark.date, "-"); },
     [](const Reading& to, std::string_view field) {
         to.mark.date =
             to.days.answerTo(field, [](std::string_view day) { return DateToMJD(std::string(day), "-"); });
     }},
    {"time:Time", [](std::string& out, const Writing& from) { appendTime(out, from.mark.time, 7, ":"); },
     [](const Reading& to, std::string_view field) { to.mark.time = timeToDay(field, ':'); }},
    {"mjd:Float:day",
     [](std::string& out, const Writing& from) { appendFixed(out, from.mark.date + from.mark.time, 12); },
     [](const Reading& to, std::string_view field) { to.mark.mjd = field; }}, // a text: it sets no time
    ofMark<&Mark::RA, 6>("RA:Float:deg"),
    ofMark<&Mark::DE, 6>("DE:Float:deg"),
    ofMark<&Mark::m, 4>("m:Float:mag"),
    ofTrack<&Head::m_m, 3>("m_m:Float:mag"),
    ofTrack<&Head::m_rms, 2>("m_rms:Float:mag"),
    ofMark<&Mark::mInstr, 4>("mInstr:Float:mag"),
    ofMark<&Mark::mInstr1000, 4>("mInstr1000:Float:mag"),
    {"m_MPC:Float:mag",
     [](std::string& out, const Writing& from) { appendFixed(out, from.interBlob.m_MPC, 2); },
     [](const Reading& to, std::string_view field) { to.interBlob.m_MPC = toDouble(field); }},
    ofTrack<&Head::MPCChecker>("MPCChecker:Text"),
    ofTrack<&Head::NORAD>("NORAD:Text"),
    ofMark<&Mark::X_bf, 2>("X_bf:Float:pix"),
    ofMark<&Mark::Y_bf, 2>("Y_bf:Float:pix"),
    ofMark<&Mark::X_f, 2>("X_f:Float:pix"),
    ofMark<&Mark::Y_f, 2>("Y_f:Float:pix"),
    {"FindOrb:Float:arcsec",
     [](std::string& out, const Writing& from) { appendFixed(out, from.track.FindOrb, 2); },
     nullptr}, // a table's residual of the orbit fit is not taken over
    ofTrack<&Head::LymX, 2>("LymX:Float"),
    ofTrack<&Head::LymY, 2>("LymY:Float"),
    ofTrack<&Head::LymXY, 2>("LymXY:Float"),
    ofTrack<&Head::DispX, 4>("DispX:Float:pix"),
    ofTrack<&Head::DispY, 4>("DispY:Float:pix"),
    ofTrack<&Head::DispXY, 4>("DispXY:Float:pix"),
    ofTrack<&Head::X0, 2>("X0:Float:pix"),
    ofTrack<&Head::Y0, 2>("Y0:Float:pix"),
    ofTrack<&Head::Vx, 3>("Vx:Float:pix/fr"),
    ofTrack<&Head::Vy, 3>("Vy:Float:pix/fr"),
    ofTrack<&Head::V, 5>("V:Float:arcsec/min"),
    ofTrack<&Head::PA, 3>("PA:Float:deg"),
    ofTrack<&Head::V_ra, 3>("V_ra:Float:arcsec/min"),
    ofTrack<&Head::V_de, 3>("V_de:Float:arcsec/min"),
    ofMark<&Mark::SNcorrnotnorm, 2>("SNcorrnotnorm:Float"),
    ofMark<&Mark::corrnorm, 2>("corrnorm:Float"),
    ofMark<&Mark::A, 2>("A:Float"),
    ofMark<&Mark::Asegm, 2>("Asegm:Float"),
    ofMark<&Mark::Astrob, 2>("Astrob:Float"),
    ofMark<&Mark::SNRafit, 2>("SNRafit:Float"),
    ofMark<&Mark::SNRasegm, 2>("SNRasegm:Float"),
    ofMark<&Mark::SNRpeak, 2>("SNRpeak:Float"),
    ofMark<&Mark::FWHM, 2>("FWHM:Float:pix"),
    ofMark<&Mark::Radius, 2>("Radius:Float"),
    ofMark<&Mark::SigFit, 2>("SigFit:Float:pix"),
    ofMark<&Mark::RMSFit, 4>("RMSFit:Float:ADU"),
    ofMark<&Mark::Angle, 2>("Angle:Float"),
    ofTrack<&Head::Angle_rms, 2>("Angle_rms:Float"),
    ofMark<&Mark::Exc, 2>("Exc:Float"),
    ofMark<&Mark::Length, 2>("Length:Float"),
    ofTrack<&Head::Length_rms, 2>("Length_rms:Float"),
    ofMark<&Mark::Width, 2>("Width:Float"),
    {"iF:Int", [](std::string& out, const Writing& from) { appendInt(out, shifted(from.mark.iF, 1)); },
     [](const Reading& to, std::string_view field) {
         const int number = toInt(field);
         to.mark.iFRaw = number;
         to.mark.iF = shifted(number, ~0U);
     }},
    ofMark<&Mark::iB>("iB:Int"),
    ofMark<&Mark::QRVID>("QRVID:Text"),
    {"TrMade:Text", [](std::string& out, const Writing& from) { out += HowMakeToStr(from.track.TrMade); },
     [](const Reading& to, std::string_view field) { to.track.TrMade = StrToHowMake(std::string(field)); },
     true},
    zero("NEORatio:Float"),
    zero("AccurRaDe:Float:arcsec"),
    zero("MPC_RMS:Float"),
    zero("HA:Float"),
    {"Draw:Bool", [](std::string& out, const Writing&) { out += '1'; }, nullptr},
};

// Further columns of headers of one's own.
constexpr TableColumn furtherColumns[] = {
    {"time_bjd", [](std::string& out, const Writing& from) { appendTime(out, from.mark.time_bjd, 7, ":"); },
     nullptr},
    // The whole day alone: the fraction is not added, unlike mjd.
    {"bjd", [](std::string& out, const Writing& from) { appendFixed(out, from.mark.bjd, 12); }, nullptr},
    ofMark<&Mark::mEnsemble, 4>("mEnsemble"),
    ofMark<&Mark::mInstrComp, 4>("mInstrComp"),
    ofTrack<&Head::NORAD>("noradid"),
    ofMark<&Mark::filtr>("filtr"),
    ofMark<&Mark::MTYPE>("MTYPE"),
    ofMark<&Mark::CNAME>("CNAME"),
    ofMark<&Mark::KNAME>("KNAME"),
    ofMark<&Mark::CHART>("CHART"),
    notTold("CMAG"),
    notTold("KMAG"),
};

// Columns that are only read: Name before QRVName, so that QRVName wins where both are there, and the speeds
// after V_ra and V_de, so that these win. In the same way noradid wins over NORAD.
constexpr TableColumn readFirst[] = {ofTrack<&Head::QRVName>("Name")};
constexpr TableColumn readLast[] = {ofTrack<&Head::V_ra, 3>("mRA"), ofTrack<&Head::V_de, 3>("mDE")};

// Cuts a line at tabs; one that ends in a tab has an empty last field. Returns how many fields there are; the
// list keeps them in front and only grows.
std::size_t cutFields(std::string_view line, std::vector<std::string_view>& fields)
{
    std::size_t count = 0;
    std::size_t begin = 0;
    const auto keep = [&](std::size_t end) {
        if (count == fields.size()) {
            fields.resize(count * 2 + 1);
        }
        fields[count++] = line.substr(begin, end - begin);
        begin = end + 1;
    };
    forEachSeparator(line, '\t', keep);
    keep(line.size());
    return count;
}

// The names of a header's columns; an empty header has none.
std::vector<std::string> columnNames(std::string_view header)
{
    std::vector<std::string> names;
    if (!header.empty()) {
        std::vector<std::string_view> descriptions;
        descriptions.resize(cutFields(header, descriptions));
        for (const std::string_view description : descriptions) {
            names.emplace_back(description.substr(0, description.find(':')));
        }
    }
    return names;
}

// Where a column that is read stands in a line.
struct ReadColumn
{
    std::size_t place;
    void (*read)(const Reading& to, std::string_view field);
};

// The columns of a header that something reads, of the head or of the marks, in the order of reading.
std::vector<ReadColumn> readColumns(const std::vector<std::string>& names, bool ofHead)
{
    std::vector<ReadColumn> columns;
    const auto look = [&](const auto& rows) {
        for (const TableColumn& row : rows) {
            const bool isWanted = row.read != nullptr && row.ofHead == ofHead;
            const int place = isWanted ? GetDataID(names, std::string(row.name())) : -1;
            if (place >= 0) {
                columns.push_back({static_cast<std::size_t>(place), row.read});
            }
        }
    };
    look(readFirst);
    look(standardColumns);
    look(furtherColumns);
    look(readLast);
    return columns;
}

// Reads the lines of a track, of which there is one for each mark.
class TrackLines
{
public:
    explicit TrackLines(std::string_view header) : TrackLines(columnNames(header))
    {
    }

    void read(const std::string_view* lines, std::size_t count, TrackVtorichka& track)
    {
        track.Marks.reserve(count);
        track.InterBlobs.resize(count);
        std::size_t fieldCount = 0;
        for (std::size_t i = 0; i < count; ++i) {
            track.Marks.emplace_back();
            fieldCount = cutFields(lines[i], fields);
            readFields(markColumns, fieldCount, track, i);
        }
        track.NMarks = static_cast<int>(count);
        if (count == 0) {
            return;
        }
        // The last line wins, and so it is read alone where it has all that the head wants.
        if (fieldCount > lastHeadPlace) {
            readFields(headColumns, fieldCount, track, count - 1);
        } else {
            for (std::size_t i = 0; i < count; ++i) {
                readFields(headColumns, cutFields(lines[i], fields), track, i);
            }
        }
    }

private:
    explicit TrackLines(const std::vector<std::string>& names)
        : markColumns(readColumns(names, false)), headColumns(readColumns(names, true))
    {
        for (const ReadColumn& column : headColumns) {
            lastHeadPlace = std::max(lastHeadPlace, column.place);
        }
    }

    void readFields(const std::vector<ReadColumn>& columns, std::size_t fieldCount, TrackVtorichka& track,
                    std::size_t index)
    {
        const Reading to{track, track.Marks[index], track.InterBlobs[index], days};
        for (const ReadColumn& column : columns) {
            if (column.place < fieldCount) {
                column.read(to, fields[column.place]);
            }
        }
    }

    std::vector<ReadColumn> markColumns;
    std::vector<ReadColumn> headColumns;
    std::size_t lastHeadPlace = 0;
    std::vector<std::string_view> fields;
    DayNumbers days;
};

std::vector<TrackVtorichka> tracksOf(const std::vector<std::string_view>& lines)
{
    const std::size_t headerLine = !lines.empty() && lines[0] == version ? 1 : 0;
    if (lines.size() <= headerLine) {
        return {};
    }
    std::vector<TrackVtorichka> tracks;
    const auto ends = static_cast<std::size_t>(std::count(lines.begin(), lines.end(), trackEnd));
    tracks.reserve(std::max<std::size_t>(ends, 1));
    TrackLines reading(lines[headerLine]);
    std::size_t first = headerLine + 1;
    for (std::size_t i = first; i < lines.size(); ++i) {
        if (lines[i] == trackEnd) {
            reading.read(&lines[first], i - first, tracks.emplace_back());
            first = i + 1;
        }
    }
    // What stands behind the last end belongs to no track, unless the file has none.
    if (tracks.empty() && first < lines.size()) {
        reading.read(&lines[first], lines.size() - first, tracks.emplace_back());
    }
    return tracks;
}

const TableColumn* columnNamed(std::string_view name)
{
    const auto named = [name](const TableColumn& row) { return row.name() == name; };
    const auto* const standard = std::find_if(std::begin(standardColumns), std::end(standardColumns), named);
    if (standard != std::end(standardColumns)) {
        return standard;
    }
    const auto* const further = std::find_if(std::begin(furtherColumns), std::end(furtherColumns), named);
    return further == std::end(furtherColumns) ? nullptr : further;
}

std::string textAt(const std::vector<std::string>& texts, std::size_t index)
{
    return index < texts.size() ? texts[index] : "";
}

// Writes the lines of tracks under one header.
class TrackWriter
{
public:
    explicit TrackWriter(std::string_view header) : names(columnNames(header))
    {
        for (const std::string& name : names) {
            columns.push_back(columnNamed(name));
        }
    }

    void append(std::string& out, const TrackVtorichka& track, const std::string& name, int number)
    {
        for (std::size_t i = 0; i < track.Marks.size(); ++i) {
            fetchAhead(track.Marks, i);
            for (std::size_t column = 0; column < names.size(); ++column) {
                appendField(out, column, track, i, name, number);
            }
            out += '\n';
        }
    }

    /// What the column gives without a name and number from outside.
    static void appendData(std::string& out, const TableColumn* column, const TrackVtorichka& track,
                           std::size_t index, DateTexts& dates)
    {
        static const TRecLabelPervichka_File newMark;
        static const TInterBlob newBlob;
        if (column == nullptr) {
            out += '0';
        } else {
            column->write(out, {track, index < track.Marks.size() ? track.Marks[index] : newMark,
                                index < track.InterBlobs.size() ? track.InterBlobs[index] : newBlob, dates});
        }
        out += '\t';
    }

private:
    void appendField(std::string& out, std::size_t column, const TrackVtorichka& track, std::size_t index,
                     const std::string& name, int number)
    {
        const std::string& title = names[column];
        if (title == "N") {
            appendInt(out, number);
            out += '\t';
        } else if (title == "QRVName" || title == "Name") {
            out += name;
            out += '\t';
        } else if (title == "Candidates") {
            out += textAt(track.Candidates, index);
            out += '\t';
        } else if (title == "Cast") {
            out += textAt(track.Cast, index); // no tab: the column stands last
        } else {
            appendData(out, columns[column], track, index, dates);
        }
    }

    std::vector<std::string> names;
    std::vector<const TableColumn*> columns; // a null pointer for a name that is not known
    DateTexts dates;
};

std::string shownName(const TrackVtorichka& track, const std::string& givenName, const std::string& source,
                      const std::string& prefix, const std::string& suffix, int number, bool longName)
{
    constexpr std::size_t shortName = 7;
    if (!givenName.empty()) {
        return givenName;
    }
    if (!longName && track.QRVName.size() > shortName) {
        return track.QRVName.substr(1, shortName + 1);
    }
    if (track.TrMade == THowMakeTr::GSOHO || track.TrMade == THowMakeTr::MOSKH) {
        return CalcSecondNameSat(number, prefix);
    }
    return CalcSecondName(source, number, prefix, suffix);
}

std::string headLines(const std::string& header)
{
    std::string lines(version);
    lines += '\n';
    lines += header.empty() ? getHeadTrack() : header;
    lines += '\n';
    return lines;
}

std::string atLeast(std::size_t digits, int number)
{
    std::string text = IntToStr(number);
    if (text.size() < digits) {
        text.insert(0, digits - text.size(), '0');
    }
    return text;
}

} // namespace

std::vector<TrackVtorichka> lListTrack(const std::vector<std::string>& lines)
{
    return tracksOf({lines.begin(), lines.end()});
}

std::vector<TrackVtorichka> lListTrack(std::string path)
{
    FileBytes file;
    if (!readBytes(path, file)) {
        return {};
    }
    std::vector<std::string_view> lines;
    forEachLine(file.view(), [&lines](std::string_view line) { lines.push_back(line); });
    std::vector<TrackVtorichka> tracks = tracksOf(lines);
    for (TrackVtorichka& track : tracks) {
        track.SourceFile = path;
    }
    return tracks;
}

void sListTrack(std::string path, std::string source, std::string prefix,
                const std::vector<TrackVtorichka>& tracks, std::string suffix, bool longName, bool rewrite,
                std::string header)
{
    std::string text = headLines(header);
    TrackWriter writer(header);
    for (const TrackVtorichka& track : tracks) {
        const std::string name = shownName(track, track.QRVName, source, prefix, suffix, track.N, longName);
        writer.append(text, track, name, track.N);
        text += trackEnd;
        text += '\n';
    }
    if (rewrite) {
        rewriteText(path, text);
    } else {
        appendText(path, text);
    }
}

void sTrack(std::string path, std::string source, std::string prefix, std::string suffix, int number,
            bool longName, const TrackVtorichka& track, std::string givenName, std::string header,
            bool /*flag*/)
{
    std::string text;
    const std::string name = shownName(track, givenName, source, prefix, suffix, number, longName);
    TrackWriter(header).append(text, track, name, number);
    if (!text.empty()) {
        appendText(path, text); // a track without marks opens nothing
    }
}

void sHeadTrack(std::string path, bool flag, std::string header)
{
    if (flag) {
        appendText(path, headLines(header));
    }
}

void sHeadSatTrack(std::string path)
{
    Write(path, std::vector<std::string>{std::string(version), std::string(satelliteColumns)});
}

std::string getHeadTrack()
{
    std::string header;
    for (const TableColumn& column : standardColumns) {
        header += header.empty() ? "" : "\t";
        header += column.description;
    }
    return header;
}

std::string GetDataTrack(THeadTrack column, const TrackVtorichka& track, int index)
{
    std::string text;
    DateTexts dates;
    const std::size_t mark = index < 0 ? track.Marks.size() : static_cast<std::size_t>(index);
    TrackWriter::appendData(text, columnNamed(column.Name), track, mark, dates);
    return text;
}

std::string CalcSecondName(std::string path, int number, std::string prefix, std::string suffix)
{
    if (prefix.empty() && suffix.empty()) {
        prefix = "A";
    }
    const std::string folder = ExtractPath(path);
    const std::size_t tail = std::min<std::size_t>(number > 99 ? 1 : 2, folder.size());
    std::string name = std::move(prefix);
    appendTwoDigits(name, number);
    return name + suffix + folder.substr(folder.size() - tail);
}

std::string CalcSecondNameSat(int number, std::string prefix)
{
    return prefix + atLeast(3, number);
}

TCasts StrToCast(std::string text)
{
    TCasts cast;
    if (!text.empty()) {
        std::array<std::string_view, 3> items;
        cutParts(text, ';', items);
        cast.JD = toDouble(items[0]);
        cast.RA = toDouble(items[1]);
        cast.DE = toDouble(items[2]);
    }
    return cast;
}

} // namespace tavelinUtils
