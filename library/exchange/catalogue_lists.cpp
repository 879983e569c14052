#include "exchange/catalogue_lists.h"

#include "base/bytes.h"
#include "base/lines.h"
#include "base/numbers.h"
#include "base/tokens.h"
#include "config/key_table.h"
#include "files/text_files.h"
#include "files/text_reading.h"
#include "text/number_text.h"

#include <array>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <type_traits>
#include <variant>

namespace tavelinUtils {
namespace {

using VsxField = std::variant<double TVSX::*, std::string TVSX::*>;

struct VsxColumn
{
    std::string_view description;
    VsxField field;
};

// The columns between the running number and the drawing mark, which nothing reads.
constexpr VsxColumn vsxColumns[] = {
    {"type:Text", &TVSX::type},     {"Name:Text", &TVSX::Name},         {"AUID:Text", &TVSX::AUID},
    {"RA:Float:deg", &TVSX::RA},    {"DE:Float:deg", &TVSX::DE},        {"X:Float:pix", &TVSX::X},
    {"Y:Float:pix", &TVSX::Y},      {"Const:Text", &TVSX::Const},       {"VarType:Text", &TVSX::VarType},
    {"Period:Text", &TVSX::Period}, {"MagRange:Text", &TVSX::MagRange},
};
constexpr std::size_t firstVsxColumn = 1;
constexpr std::string_view versionMark = "v2";
constexpr double unknownMagnitude = -1000.0;
constexpr std::size_t usualLineLength = 120;

// The columns of a short list, from its first on.
constexpr VsxField shortColumns[] = {
    &TVSX::RA,    &TVSX::DE,      &TVSX::type,   &TVSX::Name,     &TVSX::AUID,
    &TVSX::Const, &TVSX::VarType, &TVSX::Period, &TVSX::MagRange,
};

// The keys of a star in an answer; its two magnitudes become one text.
constexpr KeyRow<TVSX> answerKeys[] = {
    {"Name", &TVSX::Name},
    {"AUID", &TVSX::AUID},
    {"RA2000", &TVSX::RA},
    {"Declination2000", &TVSX::DE},
    {"ProperMotionRA", &TVSX::ProperMotionRA},
    {"ProperMotionDec", &TVSX::ProperMotionDec},
    {"VariabilityType", &TVSX::VarType},
    {"Period", &TVSX::Period},
    {"SpectralType", &TVSX::type},
    {"Category", &TVSX::Category},
    {"OID", &TVSX::OID},
    {"Constellation", &TVSX::Const},
};

constexpr std::string_view noMagnitude = "Nan";

// The fields of a line; those beyond its end are empty.
template <std::size_t count>
std::array<std::string_view, count> fieldsOf(std::string_view line)
{
    std::array<std::string_view, count> fields{};
    cutParts(line, '\t', fields);
    return fields;
}

// A record for every line after the head lines.
template <class Read>
auto recordsOf(const std::string& path, std::size_t headLines, Read read)
{
    std::vector<decltype(read(std::string_view{}))> records;
    FileBytes file;
    if (readText(path, file)) {
        std::size_t number = 0;
        forEachLine(file.view(), [&](std::string_view line) {
            if (number++ >= headLines) {
                records.push_back(read(line));
            }
        });
    }
    return records;
}

void readField(TVSX& star, VsxField field, std::string_view text)
{
    if (const auto number = std::get_if<double TVSX::*>(&field)) {
        star.*(*number) = toDouble(text);
    } else {
        star.*std::get<std::string TVSX::*>(field) = text;
    }
}

void appendField(std::string& out, const TVSX& star, VsxField field)
{
    if (const auto number = std::get_if<double TVSX::*>(&field)) {
        out += FloatToStr(star.*(*number));
    } else {
        out += star.*std::get<std::string TVSX::*>(field);
    }
}

TVSX starOf(std::string_view line)
{
    const auto fields = fieldsOf<firstVsxColumn + std::size(vsxColumns)>(line);
    TVSX star;
    star.Mag = unknownMagnitude;
    for (std::size_t i = 0; i < std::size(vsxColumns); ++i) {
        readField(star, vsxColumns[i].field, fields[firstVsxColumn + i]);
    }
    return star;
}

TVSX starOfShortLine(std::string_view line)
{
    const auto fields = fieldsOf<std::size(shortColumns)>(line);
    TVSX star;
    for (std::size_t i = 0; i < std::size(shortColumns); ++i) {
        readField(star, shortColumns[i], fields[i]);
    }
    return star;
}

TVSX starOfAnswer(TiXmlElement* object)
{
    TVSX star;
    readKeys(object, answerKeys, star);
    std::string brightest;
    std::string faintest;
    GetText(object, "MaxMag", brightest);
    GetText(object, "MinMag", faintest);
    star.MagRange = brightest.append("-").append(faintest);
    return star;
}

// Exactly this word: any other is read as a number, and there "nan" counts in any case of letters.
double magnitudeOf(std::string_view text)
{
    return text == noMagnitude ? 0.0 : toDouble(text);
}

TRecVSP comparisonStarOf(std::string_view line)
{
    constexpr std::size_t firstBand = 6;
    constexpr std::size_t bands = std::extent_v<decltype(TRecVSP::Mags)>;
    const auto fields = fieldsOf<firstBand + bands + 1>(line);
    TRecVSP star;
    star.Label = fields[1];
    star.AUID = fields[2];
    star.RA = toDouble(fields[3]);
    star.DE = toDouble(fields[4]);
    star.Text = fields[5];
    for (std::size_t band = 0; band < bands; ++band) {
        star.Mags[band] = magnitudeOf(fields[firstBand + band]);
    }
    star.Closing = fields[firstBand + bands];
    return star;
}

TAAVSOvsp requestedStarOf(std::string_view line)
{
    constexpr std::size_t firstBand = 5;
    constexpr std::size_t bands = std::extent_v<decltype(TAAVSOvsp::Mags)>;
    const auto fields = fieldsOf<firstBand + bands + 1>(line);
    TAAVSOvsp star;
    star.RA = toDouble(fields[0]);
    star.DE = toDouble(fields[1]);
    star.Text1 = fields[2];
    star.Text2 = fields[3];
    star.Text3 = fields[4];
    for (std::size_t band = 0; band < bands; ++band) {
        star.Mags[band] = toDouble(fields[firstBand + band]);
    }
    star.Closing = fields[firstBand + bands];
    return star;
}

TNameSat namesOf(std::string_view line)
{
    const auto fields = fieldsOf<3>(line);
    return {toInt(fields[0]), std::string(fields[1]), std::string(fields[2])};
}

} // namespace

std::string getHeadVSX()
{
    std::string head = "N:Int";
    for (const VsxColumn& column : vsxColumns) {
        head += '\t';
        head += column.description;
    }
    return head + "\tDraw:Bool";
}

void SaveVSX(std::string path, const std::vector<TVSX>& stars)
{
    std::string text = getHeadVSX();
    text.reserve((stars.size() + 2) * usualLineLength);
    text += '\n';
    text += versionMark;
    text += '\n';
    for (std::size_t i = 0; i < stars.size(); ++i) {
        text += std::to_string(i + 1);
        for (const VsxColumn& column : vsxColumns) {
            text += '\t';
            appendField(text, stars[i], column.field);
        }
        text += "\t1\n";
    }
    writeText(path, text);
}

std::vector<TVSX> LoadVSX(std::string path)
{
    return recordsOf(path, 2, starOf);
}

void lListVSX(std::string path, std::vector<TVSX>& stars)
{
    stars = recordsOf(path, 1, starOfShortLine);
}

bool LoadVSXQuerry(std::string path, std::vector<TVSX>& stars)
{
    TtavelinXmlDocument document(path);
    if (!document.LoadFile()) {
        return false;
    }
    GetVSXObjects(document.FirstChildElement(), stars);
    return true;
}

void GetVSXObjects(const TiXmlElement* root, std::vector<TVSX>& stars)
{
    if (root == nullptr) {
        return;
    }
    for (const TiXmlElement* object = root->FirstChildElement("VSXObject"); object != nullptr;
         object = object->NextSiblingElement("VSXObject"))
    {
        stars.push_back(starOfAnswer(const_cast<TiXmlElement*>(object))); // it is only read
    }
}

std::vector<TRecVSP> lVSP(std::string path)
{
    return recordsOf(path, 2, comparisonStarOf);
}

void lListAAVSOvsp(std::string path, std::vector<TAAVSOvsp>& stars)
{
    stars = recordsOf(path, 0, requestedStarOf);
}

std::vector<TNameSat> lNameSat(std::string path)
{
    return recordsOf(path, 0, namesOf);
}

} // namespace tavelinUtils
