#include "formats/track_table_columns.h"

#include "base/numbers.h"
#include "base/tokens.h"
#include "text/date_text.h"
#include "text/written_text.h"

#include <algorithm>
#include <bit>
#include <iterator>
#include <span>
#include <type_traits>

namespace tavelinUtils {
namespace {

// The field of a record's value: a double with that many decimals, an integer or a text.
template <int decimals, class Value>
void appendValue(TextBuffer& out, const Value& value)
{
    if constexpr (std::is_same_v<Value, double>) {
        appendFixed(out, value, decimals);
    } else if constexpr (std::is_same_v<Value, int>) {
        appendInt(out, value);
    } else {
        out += value;
    }
}

template <class Record, class Value>
Value memberType(Value Record::*);

template <auto member>
using MemberType = decltype(memberType(member));

Slot slotOf(double value)
{
    return std::bit_cast<Slot>(value);
}

// Two integers share a slot.
Slot slotOf(int low, int high = 0)
{
    return Slot{static_cast<std::uint32_t>(high)} << 32 | static_cast<std::uint32_t>(low);
}

int lowOf(Slot slot)
{
    return static_cast<int>(static_cast<std::uint32_t>(slot));
}

int highOf(Slot slot)
{
    return static_cast<int>(static_cast<std::uint32_t>(slot >> 32));
}

template <class Value>
Slot readValue(std::string_view field, const FieldReading& with, Slot last)
{
    if constexpr (std::is_same_v<Value, double>) {
        return slotOf(toDouble(field));
    } else if constexpr (std::is_same_v<Value, int>) {
        return slotOf(toInt(field));
    } else {
        return with.texts.keep(field, last);
    }
}

Slot keepValue(const std::string& text, KeptTexts& texts, Slot last)
{
    return texts.keep(text, last);
}

template <class Number>
Slot keepValue(Number number, KeptTexts& /*texts*/, Slot /*last*/)
{
    return slotOf(number);
}

template <auto member, class Record>
void restoreValue(Record& record, Slot slot, const KeptTexts& texts)
{
    using Value = MemberType<member>;
    if constexpr (std::is_same_v<Value, std::string>) {
        record.*member = texts[slot];
    } else if constexpr (std::is_same_v<Value, int>) {
        record.*member = lowOf(slot);
    } else {
        record.*member = std::bit_cast<Value>(slot);
    }
}

template <auto member>
constexpr MarkValue markValue(decltype(MarkValue::read) read = readValue<MemberType<member>>)
{
    return {read,
            [](const MarkToKeep& from, KeptTexts& texts, Slot last) {
                return keepValue(from.mark.*member, texts, last);
            },
            [](const MarkToRestore& to, Slot slot, const KeptTexts& texts) {
                restoreValue<member>(to.mark, slot, texts);
            }};
}

template <auto member>
constexpr HeadValue headValue = {
    readValue<MemberType<member>>,
    [](const THeadTrVtor& from, KeptTexts& texts, Slot last) { return keepValue(from.*member, texts, last); },
    restoreValue<member, THeadTrVtor>};

template <auto member, int decimals = 0>
constexpr TableColumn ofMark(std::string_view description)
{
    return {description,
            [](TextBuffer& out, const MarkToWrite& from) { appendValue<decimals>(out, from.mark.*member); },
            markValue<member>()};
}

template <auto member, int decimals = 0>
constexpr TableColumn ofTrack(std::string_view description)
{
    return {description,
            [](TextBuffer& out, const MarkToWrite& from) { appendValue<decimals>(out, from.track.*member); },
            {},
            headValue<member>};
}

// Other tools expect the column.
void writeZero(TextBuffer& out, const MarkToWrite& /*from*/)
{
    out += '0';
}

void writeNotAvailable(TextBuffer& out, const MarkToWrite& /*from*/)
{
    out += "na";
}

// Another name of a column, under which it is read but not written.
template <auto member>
constexpr TableColumn readOnly(std::string_view description)
{
    return {description, writeZero, {}, headValue<member>};
}

// The name that the writer gives the track, which need not be its own.
constexpr TableColumn nameOfTrack(std::string_view description)
{
    return {description,
            [](TextBuffer& out, const MarkToWrite& from) { out += from.name; },
            {},
            headValue<&THeadTrVtor::QRVName>};
}

// The table counts frames from 1, the mark from 0; the difference wraps around as integers do.
int shifted(int number, unsigned by)
{
    return static_cast<int>(static_cast<unsigned>(number) + by);
}

std::string_view textAt(const std::vector<std::string>& texts, std::size_t index)
{
    return index < texts.size() ? texts[index] : std::string_view();
}

using Mark = TRecLabelPervichka_File;
using Head = THeadTrVtor;

// Columns that GetDataTrack does not know. Name is read before QRVName, which so wins where a line has both.
constexpr TableColumn lineColumns[] = {
    nameOfTrack("Name"),
    {"Candidates",
     [](TextBuffer& out, const MarkToWrite& from) { out += textAt(from.track.Candidates, from.index); }},
    // No tab follows: the column is the last of its line.
    {"Cast",
     [](TextBuffer& out, const MarkToWrite& from) { out += textAt(from.track.Cast, from.index); },
     {},
     {},
     false},
};

// The standard header, in its order.
constexpr TableColumn standardColumns[] = {
    {"N:Int",
     [](TextBuffer& out, const MarkToWrite& from) { appendInt(out, from.number); },
     {},
     headValue<&Head::N>},
    {"NBl:Int",
     [](TextBuffer& out, const MarkToWrite& from) { out += std::to_string(from.track.Marks.size()); }},
    nameOfTrack("QRVName:Text"),
    {"date:Date",
     [](TextBuffer& out, const MarkToWrite& from) { appendDate(out, from.dates, from.mark.date, '-'); },
     // AuxInt1 is carried and has no column of its own.
     {[](std::string_view field, const FieldReading& with, Slot) {
          return slotOf(with.days.answerTo(
              field, [](std::string_view day) { return DateToMJD(std::string(day), "-"); }));
      },
      [](const MarkToKeep& from, KeptTexts&, Slot) { return slotOf(from.mark.date, from.mark.AuxInt1); },
      [](const MarkToRestore& to, Slot slot, const KeptTexts&) {
          to.mark.date = lowOf(slot);
          to.mark.AuxInt1 = highOf(slot);
      }}},
    {"time:Time", [](TextBuffer& out, const MarkToWrite& from) { appendTime(out, from.mark.time, 7, ':'); },
     markValue<&Mark::time>(
         [](std::string_view field, const FieldReading&, Slot) { return slotOf(timeToDay(field, ':')); })},
    {"mjd:Float:day",
     [](TextBuffer& out, const MarkToWrite& from) { appendFixed(out, from.mark.date + from.mark.time, 12); },
     markValue<&Mark::mjd>()}, // a text: it sets no time
    ofMark<&Mark::RA, 6>("RA:Float:deg"),
    ofMark<&Mark::DE, 6>("DE:Float:deg"),
    ofMark<&Mark::m, 4>("m:Float:mag"),
    ofTrack<&Head::m_m, 3>("m_m:Float:mag"),
    ofTrack<&Head::m_rms, 2>("m_rms:Float:mag"),
    ofMark<&Mark::mInstr, 4>("mInstr:Float:mag"),
    ofMark<&Mark::mInstr1000, 4>("mInstr1000:Float:mag"),
    {"m_MPC:Float:mag",
     [](TextBuffer& out, const MarkToWrite& from) { appendFixed(out, from.interBlob.m_MPC, 2); },
     {readValue<double>,
      [](const MarkToKeep& from, KeptTexts&, Slot) { return slotOf(from.interBlob.m_MPC); },
      [](const MarkToRestore& to, Slot slot, const KeptTexts&) {
          to.interBlob.m_MPC = std::bit_cast<double>(slot);
      }}},
    ofTrack<&Head::MPCChecker>("MPCChecker:Text"),
    ofTrack<&Head::NORAD>("NORAD:Text"),
    ofMark<&Mark::X_bf, 2>("X_bf:Float:pix"),
    ofMark<&Mark::Y_bf, 2>("Y_bf:Float:pix"),
    ofMark<&Mark::X_f, 2>("X_f:Float:pix"),
    ofMark<&Mark::Y_f, 2>("Y_f:Float:pix"),
    // Not read: the residual of an orbit fit does not outlive the fit.
    {"FindOrb:Float:arcsec",
     [](TextBuffer& out, const MarkToWrite& from) { appendFixed(out, from.track.FindOrb, 2); }},
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
    {"iF:Int",
     [](TextBuffer& out, const MarkToWrite& from) { appendInt(out, shifted(from.mark.iF, 1)); },
     {[](std::string_view field, const FieldReading&, Slot) {
          const int number = toInt(field);
          return slotOf(shifted(number, ~0U), number);
      },
      [](const MarkToKeep& from, KeptTexts&, Slot) { return slotOf(from.mark.iF, from.mark.iFRaw); },
      [](const MarkToRestore& to, Slot slot, const KeptTexts&) {
          to.mark.iF = lowOf(slot);
          to.mark.iFRaw = highOf(slot);
      }}},
    ofMark<&Mark::iB>("iB:Int"),
    ofMark<&Mark::QRVID>("QRVID:Text"),
    {"TrMade:Text",
     [](TextBuffer& out, const MarkToWrite& from) { out += HowMakeToStr(from.track.TrMade); },
     {},
     {[](std::string_view field, const FieldReading&, Slot) {
          return slotOf(static_cast<int>(StrToHowMake(std::string(field))));
      },
      [](const Head& from, KeptTexts&, Slot) { return slotOf(static_cast<int>(from.TrMade)); },
      [](Head& to, Slot slot, const KeptTexts&) { to.TrMade = static_cast<THowMakeTr>(lowOf(slot)); }}},
    {"NEORatio:Float", writeZero},
    {"AccurRaDe:Float:arcsec", writeZero},
    {"MPC_RMS:Float", writeZero},
    {"HA:Float", writeZero},
    {"Draw:Bool", [](TextBuffer& out, const MarkToWrite&) { out += '1'; }},
};

// Columns of other headers. They are read after the standard ones, so that noradid wins over NORAD, and mRA
// and mDE over V_ra and V_de.
constexpr TableColumn furtherColumns[] = {
    {"time_bjd",
     [](TextBuffer& out, const MarkToWrite& from) { appendTime(out, from.mark.time_bjd, 7, ':'); }},
    // Unlike in mjd, the fraction of the day is not added.
    {"bjd", [](TextBuffer& out, const MarkToWrite& from) { appendFixed(out, from.mark.bjd, 12); }},
    ofMark<&Mark::mEnsemble, 4>("mEnsemble"),
    ofMark<&Mark::mInstrComp, 4>("mInstrComp"),
    ofTrack<&Head::NORAD>("noradid"),
    ofMark<&Mark::filtr>("filtr"),
    ofMark<&Mark::MTYPE>("MTYPE"),
    ofMark<&Mark::CNAME>("CNAME"),
    ofMark<&Mark::KNAME>("KNAME"),
    ofMark<&Mark::CHART>("CHART"),
    {"CMAG", writeNotAvailable},
    {"KMAG", writeNotAvailable},
    readOnly<&Head::V_ra>("mRA"),
    readOnly<&Head::V_de>("mDE"),
};

constexpr TableColumn unknownColumn = {"", writeZero};

const TableColumn* columnNamed(std::span<const TableColumn> columns, std::string_view name)
{
    const auto found = std::find_if(columns.begin(), columns.end(),
                                    [name](const TableColumn& column) { return column.name() == name; });
    return found == columns.end() ? nullptr : &*found;
}

// The names of a header's columns.
std::vector<std::string_view> columnNames(std::string_view header)
{
    std::vector<std::string_view> names;
    names.resize(splitFields(header, names));
    std::transform(names.begin(), names.end(), names.begin(), nameIn);
    return names;
}

// Adds the columns that are read and whose name is among those of the header.
void addColumnsToRead(ColumnsToRead& added, std::span<const TableColumn> columns,
                      const std::vector<std::string_view>& names)
{
    for (const TableColumn& column : columns) {
        const auto field = std::find(names.begin(), names.end(), column.name());
        if (!column.isRead() || field == names.end()) {
            continue;
        }
        auto& list = column.ofHead.read != nullptr ? added.ofHead : added.ofMarks;
        list.push_back({static_cast<std::size_t>(field - names.begin()), &column});
    }
}

} // namespace

MarkToWrite markToWrite(const TrackVtorichka& track, std::size_t index, std::string_view name, int number,
                        DateTexts& dates)
{
    static const TRecLabelPervichka_File newMark;
    static const TInterBlob newBlob;
    return {track,
            index,
            index < track.Marks.size() ? track.Marks[index] : newMark,
            index < track.InterBlobs.size() ? track.InterBlobs[index] : newBlob,
            name,
            number,
            dates};
}

std::size_t splitFields(std::string_view line, std::vector<std::string_view>& fields)
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

ColumnsToRead columnsToRead(std::string_view header)
{
    const std::vector<std::string_view> names = columnNames(header);
    ColumnsToRead columns;
    addColumnsToRead(columns, lineColumns, names);
    addColumnsToRead(columns, standardColumns, names);
    addColumnsToRead(columns, furtherColumns, names);
    return columns;
}

const TableColumn& columnOfTrack(std::string_view name)
{
    if (const TableColumn* const standard = columnNamed(standardColumns, name)) {
        return *standard;
    }
    const TableColumn* const further = columnNamed(furtherColumns, name);
    return further != nullptr ? *further : unknownColumn;
}

std::vector<const TableColumn*> columnsOfMarks(std::string_view names)
{
    std::vector<const TableColumn*> columns;
    forEachToken(names, ' ', [&columns](std::string_view name) {
        const TableColumn& column = columnOfTrack(name);
        const bool isNew = std::find(columns.begin(), columns.end(), &column) == columns.end();
        if (column.ofMark.read != nullptr && isNew) {
            columns.push_back(&column);
        }
    });
    return columns;
}

std::vector<const TableColumn*> columnsToWrite(std::string_view header)
{
    std::vector<const TableColumn*> columns;
    if (header.empty()) {
        return columns;
    }
    for (const std::string_view name : columnNames(header)) {
        const TableColumn* const ofLine = columnNamed(lineColumns, name);
        columns.push_back(ofLine != nullptr ? ofLine : &columnOfTrack(name));
    }
    return columns;
}

std::vector<const TableColumn*> knownColumns()
{
    std::vector<const TableColumn*> columns;
    const auto append = [&columns](std::span<const TableColumn> rows) {
        std::transform(rows.begin(), rows.end(), std::back_inserter(columns),
                       [](const TableColumn& row) { return &row; });
    };
    append(standardColumns);
    append(lineColumns);
    append(furtherColumns);
    return columns;
}

std::string standardHeader()
{
    std::string header;
    for (const TableColumn& column : standardColumns) {
        header += header.empty() ? "" : "\t";
        header += column.description;
    }
    return header;
}

} // namespace tavelinUtils
