#include "base/tokens.h"
#include "receivers/ades_fields.h"
#include "schema/xml_schemas.h"
#include "schema/xsd_text.h"

#include <algorithm>
#include <array>
#include <set>
#include <vector>

namespace companion {
namespace {

using tavelinUtils::forEachToken;

std::vector<std::string> wordList(const char* text)
{
    std::vector<std::string> words;
    forEachToken(text, ' ', [&words](std::string_view word) { words.emplace_back(word); });
    return words;
}

// Of numbers: texts and times have types of their own.
const char* baseOf(AdesKind kind)
{
    switch (kind) {
    case AdesKind::decimal: return "xs:decimal";
    case AdesKind::number: return "xs:double";
    default: return "xs:integer";
    }
}

std::string widthPattern(const AdesType& type)
{
    return type.signIsWide ? "[+\\-]?.{1," + std::to_string(type.longest - 1) + '}'
                           : ".{1," + std::to_string(type.longest) + '}';
}

void writeRange(XsdText& xsd, const AdesType& type)
{
    if (type.least != nullptr) {
        xsd.empty(type.takesLeast ? "minInclusive" : "minExclusive", {{"value", type.least}});
    }
    if (type.most != nullptr) {
        xsd.empty(type.takesMost ? "maxInclusive" : "maxExclusive", {{"value", type.most}});
    }
}

// A text has its length as a facet; of a number the width is a second pattern, in a step of its own, since
// the patterns of one step are alternatives.
void writeType(XsdText& xsd, const AdesType& type)
{
    xsd.open("simpleType", {{"name", type.name}});
    xsd.documentation(type.rule);
    if (type.kind == AdesKind::text) {
        xsd.open("restriction", {{"base", "xs:string"}});
        xsd.empty("maxLength", {{"value", std::to_string(type.longest)}});
    } else {
        xsd.open("restriction");
        xsd.open("simpleType");
        xsd.open("restriction", {{"base", baseOf(type.kind)}});
        xsd.empty("pattern", {{"value", widthPattern(type)}});
        xsd.close();
        xsd.close();
    }
    xsd.empty("pattern", {{"value", type.pattern}});
    writeRange(xsd, type);
    xsd.close();
    xsd.close();
}

// A moment of the calendar, or one in a leap second, which no calendar of XML Schema has.
void writeTimeType(XsdText& xsd, const AdesType& type)
{
    xsd.pattern("commonTime", "xs:dateTime", type.pattern);
    xsd.pattern("leapSecond", "xs:token", adesLeapSecondPattern());
    xsd.open("simpleType", {{"name", type.name}});
    xsd.documentation(type.rule);
    xsd.empty("union", {{"memberTypes", "commonTime leapSecond"}});
    xsd.close();
}

// The words of an element: those that are listed and may be sent.
void writeWordType(XsdText& xsd, const AdesField& field)
{
    std::vector<std::string> words = wordList(field.words->forNewWork);
    const std::vector<std::string> historic = wordList(field.words->historic);
    words.insert(words.end(), historic.begin(), historic.end());
    const std::string note = "Not for new observations: " + std::string(field.words->historic) + '.';
    const std::string name = std::string(field.name) + "Words";
    if (!field.words->isLetters) {
        xsd.words(name, words, note);
        return;
    }
    std::string letters;
    for (const std::string& word : words) {
        letters += word;
    }
    xsd.pattern(name, field.type->name, '[' + letters + "]+", note);
}

std::string typeOf(const AdesField& field)
{
    return field.words == nullptr ? field.type->name : std::string(field.name) + "Words";
}

std::string documentationOf(const AdesField& field)
{
    const std::string unit = field.unit;
    return field.meaning + (unit.empty() ? "" : ", in " + unit);
}

void writeField(XsdText& xsd, const AdesField& field, bool demanded)
{
    xsd.element(field.name, typeOf(field), demanded, false, documentationOf(field));
}

void writeIdentification(XsdText& xsd)
{
    xsd.open("choice");
    for (const char* alternative : adesIdentifications()) {
        xsd.open("sequence");
        for (std::string name : wordList(alternative)) {
            const bool demanded = name.back() != '?';
            name.resize(name.size() - (demanded ? 0 : 1));
            writeField(xsd, *adesField(name), demanded);
        }
        xsd.close();
    }
    xsd.close();
}

// The head of a group is demanded where the group is there.
bool isInGroup(AdesNeed need)
{
    return need == AdesNeed::location || need == AdesNeed::locationDetail || need == AdesNeed::photometry ||
           need == AdesNeed::photometryDetail;
}

bool isHead(AdesNeed need)
{
    return need == AdesNeed::location || need == AdesNeed::photometry;
}

// Both groups stand together in the order of the fields, and something else stands between them.
void writeOptical(XsdText& xsd)
{
    xsd.open("complexType", {{"name", "opticalObservation"}});
    xsd.open("sequence");
    writeIdentification(xsd);
    bool inGroup = false;
    for (const AdesField& field : adesOptical()) {
        if (field.need == AdesNeed::identification) {
            continue;
        }
        if (isInGroup(field.need) != inGroup) {
            inGroup = !inGroup;
            inGroup ? xsd.open("sequence", {{"minOccurs", "0"}}) : xsd.close();
        }
        writeField(xsd, field, field.need == AdesNeed::demanded || isHead(field.need));
    }
    xsd.close();
    xsd.close();
}

void writeContextChildren(XsdText& xsd, std::string_view parent)
{
    const auto rows = adesContext();
    const auto isChild = [parent](const AdesContextField& row) { return row.parent == parent; };
    const bool repeats = std::any_of(
        rows.begin(), rows.end(), [&](const AdesContextField& row) { return isChild(row) && row.repeated; });
    xsd.open("complexType");
    xsd.open(repeats ? "sequence" : "all");
    for (const AdesContextField& row : rows) {
        if (!isChild(row)) {
            continue;
        }
        if (row.type != nullptr) {
            xsd.element(row.name, row.type->name, row.demanded, row.repeated);
        } else {
            xsd.openElement(row.name, row.demanded, false);
            writeContextChildren(xsd, row.name);
            xsd.close();
        }
    }
    xsd.close();
    xsd.close();
}

void writeDocument(XsdText& xsd)
{
    xsd.openElement("ades", true, false);
    xsd.open("complexType");
    xsd.open("sequence");
    xsd.openElement("obsBlock", true, true, "Observations of one station.");
    xsd.open("complexType");
    xsd.open("sequence");
    xsd.openElement("obsContext", true, false, "What holds for all observations of the block.");
    writeContextChildren(xsd, "obsContext");
    xsd.close();
    xsd.openElement("obsData", true, false);
    xsd.open("complexType");
    xsd.open("sequence");
    xsd.element("optical", "opticalObservation", true, true);
    for (int i = 0; i < 7; ++i) {
        xsd.close();
    }
    xsd.open("attribute", {{"name", "version"}, {"use", "required"}});
    xsd.open("simpleType");
    xsd.open("restriction", {{"base", "xs:string"}});
    xsd.empty("enumeration", {{"value", std::string(adesVersion)}});
    for (int i = 0; i < 5; ++i) {
        xsd.close();
    }
}

void writeTypes(XsdText& xsd)
{
    std::set<const AdesType*> written;
    const auto write = [&](const AdesType* type) {
        if (type == nullptr || !written.insert(type).second) {
            return;
        }
        type->kind == AdesKind::time ? writeTimeType(xsd, *type) : writeType(xsd, *type);
    };
    for (const AdesContextField& row : adesContext()) {
        write(row.type);
    }
    for (const AdesField& field : adesOptical()) {
        if (field.words == nullptr || field.words->isLetters) {
            write(field.type);
        }
        if (field.words != nullptr) {
            writeWordType(xsd, field);
        }
    }
}

} // namespace

std::string adesSchema(std::string_view /*name*/)
{
    XsdText xsd(
        {"ADES 2022 as observatories submit it: blocks of optical observations. Observations of other",
         "kinds are not described. Unlike the receiver's own schema this one knows the lists of words.",
         "Made by tavelin schema ades."});
    writeDocument(xsd);
    writeOptical(xsd);
    writeTypes(xsd);
    return xsd.text();
}

} // namespace companion
