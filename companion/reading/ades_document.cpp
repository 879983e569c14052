#include "reading/ades_document.h"

#include "base/tokens.h"
#include "receivers/ades_fields.h"
#include "receivers/mpc_rules.h"

#include <algorithm>

namespace companion {
namespace {

bool has(const std::vector<AdesElement>& elements, std::string_view name)
{
    return std::any_of(elements.begin(), elements.end(),
                       [name](const AdesElement& each) { return each.name == name; });
}

bool isNotForSubmission(std::string_view name)
{
    const auto names = adesNotForSubmission();
    return std::find(names.begin(), names.end(), name) != names.end();
}

// Whether the elements that identify are those of an alternative.
bool isAlternative(std::string_view alternative, const std::vector<AdesElement>& elements)
{
    std::size_t matched = 0;
    bool isComplete = true;
    tavelinUtils::forEachToken(alternative, ' ', [&](std::string_view word) {
        const bool isOptional = word.ends_with('?');
        const bool isThere = has(elements, word.substr(0, word.size() - (isOptional ? 1 : 0)));
        matched += isThere ? 1U : 0U;
        isComplete = isComplete && (isThere || isOptional);
    });
    std::size_t identifying = 0;
    for (const AdesElement& each : elements) {
        const AdesField* const field = adesField(each.name);
        identifying += field != nullptr && field->need == AdesNeed::identification ? 1U : 0U;
    }
    return isComplete && matched == identifying;
}

bool isOfPerson(const std::string& parent, const std::string& name)
{
    return name == "name" && (parent == "submitter" || parent == "observers" || parent == "measurers");
}

} // namespace

void AdesDocument::tell(const AdesElement& at, const std::string& element, const std::string& rule)
{
    out.addAt({at.line, at.lineText, at.lineText}, "V380", at.stretch,
              {{"element", element}, {"rule", rule}});
}

void AdesDocument::warn(const AdesElement& at, const std::string& what)
{
    out.addAt({at.line, at.lineText, at.lineText}, "V382", at.stretch, {{"what", what}});
}

void AdesDocument::size(std::size_t bytes)
{
    constexpr std::size_t largest = std::size_t{512} * 1024 * 1024;
    if (bytes > largest) {
        out.addOfFile("V382", {{"what", "the file is above 512 MB"}});
    }
}

void AdesDocument::version(const AdesElement& element)
{
    if (element.text != adesVersion) {
        tell(element, "version",
             "is \"" + element.text + "\", where " + std::string(adesVersion) + " is wanted");
    }
}

void AdesDocument::openBlock()
{
    seen.clear();
    station.clear();
}

void AdesDocument::context(const std::string& parent, const AdesElement& element)
{
    const AdesContextField* const field = adesContextField(parent, element.name);
    if (field == nullptr) {
        tell(element, element.name, "is no element of " + parent);
        return;
    }
    const std::string path = parent + '/' + element.name;
    if (!field->repeated && std::find(seen.begin(), seen.end(), path) != seen.end()) {
        tell(element, element.name, "stands twice in " + parent);
    }
    seen.push_back(path);
    if (field->type != nullptr && !adesTakes(*field->type, element.text)) {
        tell(element, element.name, "is \"" + element.text + "\": " + field->type->rule);
    }
    if (element.name == "mpcCode") {
        station = element.text;
    }
    if (isOfPerson(parent, element.name) && !isPersonName(element.text)) {
        out.addAt({element.line, element.lineText, element.lineText}, "V320", element.stretch,
                  {{"what", "the name \"" + element.text + "\" is not written as \"J. R. Tolkien\""}});
    }
}

void AdesDocument::closeContext(const AdesElement& at)
{
    const auto isSeen = [this](const std::string& path) {
        return std::find(seen.begin(), seen.end(), path) != seen.end();
    };
    for (const AdesContextField& field : adesContext()) {
        const std::string parent = field.parent;
        const bool hasParent = parent == "obsContext" || isSeen("obsContext/" + parent);
        if (field.demanded && hasParent && !isSeen(parent + '/' + field.name)) {
            tell(at, field.name, "is missing in " + parent);
        }
    }
}

void AdesDocument::observation(const std::vector<AdesElement>& elements, const AdesElement& at, bool inOrder)
{
    for (std::size_t i = 0; i < elements.size(); ++i) {
        checkName(elements[i], inOrder, std::span(elements).first(i));
    }
    checkIdentification(elements, at);
    checkGroups(elements, at);
    for (const AdesElement& element : elements) {
        checkText(element);
    }
    checkStation(elements);
    checkTime(elements);
}

namespace {

// A time without its Z and the zeros at its end, which say nothing.
std::string withoutZeros(std::string_view time)
{
    std::string moment(time.substr(0, time.find('Z')));
    if (moment.find('.') != std::string::npos) {
        moment.erase(moment.find_last_not_of('0') + 1);
        moment.erase(moment.find_last_not_of('.') + 1);
    }
    return moment;
}

} // namespace

// Of two positions of an object at one time the schema says nothing.
void AdesDocument::checkTime(const std::vector<AdesElement>& elements)
{
    constexpr std::string_view identifications[] = {"permID", "provID", "artSat", "trkSub"};
    const AdesElement* time = nullptr;
    std::string object;
    for (const AdesElement& element : elements) {
        const bool names = std::find(std::begin(identifications), std::end(identifications), element.name) !=
                           std::end(identifications);
        object = object.empty() && names ? element.text : object;
        time = element.name == "obsTime" ? &element : time;
    }
    if (time == nullptr || object.empty()) {
        return;
    }
    if (!times.insert(station + ' ' + object + ' ' + withoutZeros(time->text))) {
        out.addAt({time->line, time->lineText, time->lineText}, "V381", time->stretch,
                  {{"element", time->name},
                   {"word", time->text},
                   {"why", "is the time of another position of the object"}});
    }
}

void AdesDocument::checkName(const AdesElement& element, bool inOrder, std::span<const AdesElement> before)
{
    const AdesField* const field = adesField(element.name);
    if (field == nullptr) {
        tell(element, element.name,
             isNotForSubmission(element.name) ? "is not for submissions" : "is no element of ADES");
        return;
    }
    for (const AdesElement& each : before) {
        const AdesField* const other = adesField(each.name);
        if (other == field) {
            tell(element, element.name, "stands twice");
            break;
        }
        if (inOrder && other != nullptr && other > field) {
            tell(element, element.name, "stands out of order, behind " + each.name);
            break;
        }
    }
}

void AdesDocument::checkIdentification(const std::vector<AdesElement>& elements, const AdesElement& at)
{
    const auto alternatives = adesIdentifications();
    const bool isOne = std::any_of(alternatives.begin(), alternatives.end(),
                                   [&](const char* each) { return isAlternative(each, elements); });
    if (!isOne) {
        tell(at, "the identification",
             "is none of: permID, provID, artSat, trkSub, where provID may stand beside "
             "permID, and trkSub beside each");
    }
}

void AdesDocument::checkGroups(const std::vector<AdesElement>& elements, const AdesElement& at)
{
    const auto hasOf = [&elements](AdesNeed need) {
        return std::any_of(elements.begin(), elements.end(), [need](const AdesElement& each) {
            const AdesField* const field = adesField(each.name);
            return field != nullptr && field->need == need;
        });
    };
    const bool hasLocation = hasOf(AdesNeed::location) || hasOf(AdesNeed::locationDetail);
    const bool hasPhotometry = hasOf(AdesNeed::photometry) || hasOf(AdesNeed::photometryDetail);
    for (const AdesField& field : adesOptical()) {
        const bool isWanted = field.need == AdesNeed::demanded ||
                              (field.need == AdesNeed::location && hasLocation) ||
                              (field.need == AdesNeed::photometry && hasPhotometry);
        if (isWanted && !has(elements, field.name)) {
            const char* const beside = field.need == AdesNeed::location     ? "is missing in the location"
                                       : field.need == AdesNeed::photometry ? "is missing in the photometry"
                                                                            : "is missing";
            tell(at, field.name, beside);
        }
    }
}

void AdesDocument::checkText(const AdesElement& element)
{
    const AdesField* const field = adesField(element.name);
    if (field == nullptr) {
        return;
    }
    if (!adesTakes(*field->type, element.text)) {
        tell(element, element.name, "is \"" + element.text + "\": " + field->type->rule);
        return;
    }
    if (field->words != nullptr) {
        const AdesWordState state = adesWordState(*field->words, element.text);
        if (state == AdesWordState::unlisted || state == AdesWordState::refused) {
            out.addAt(
                {element.line, element.lineText, element.lineText}, "V381", element.stretch,
                {{"element", element.name},
                 {"word", element.text},
                 {"why", state == AdesWordState::unlisted ? "is not in the list" : "is not for new work"}});
        }
    }
    if (element.name == "permID" && element.text.starts_with('0')) {
        warn(element, "permID " + element.text + " begins with a zero");
    }
}

void AdesDocument::checkStation(const std::vector<AdesElement>& elements)
{
    for (const AdesElement& element : elements) {
        if (element.name == "stn" && !station.empty() && element.text != station) {
            warn(element, "stn is " + element.text + ", and mpcCode of the block is " + station);
        }
    }
}

} // namespace companion
