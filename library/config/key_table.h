// Key tables: the keys of a section of an XML file as rows of key and member.
//
//   constexpr KeyRow<TCurves> lightCurveKeys[] = {
//       {"SetApertureSize", through<StrToTApertureSize, &TCurves::SetApertureSize>},
//       {"ApertureSize", &TCurves::ApertureSize},
//   };
//   readKeys(root->FirstChildElement("lightCurves"), lightCurveKeys, curves);
//
// A key that is missing leaves its member, so the member's initialiser is the default of the key.

#pragma once

#include "xml_document.h"

#include <cstddef>
#include <string>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

namespace tavelinUtils {

/// The target of a key: a member that takes its value as GetText reads it, a list of texts, or a function of
/// the text.
template <class Record>
using KeyTarget =
    std::variant<double Record::*, int Record::*, short Record::*, bool Record::*, std::string Record::*,
                 std::vector<std::string> Record::*, void (*)(Record& record, std::string text)>;

/// A key of a section and its target.
template <class Record>
struct KeyRow
{
    const char* key = "";
    KeyTarget<Record> target{};
    const char* item = "string"; ///< the name of a list's elements
};

/// A target whose member takes the text through a conversion, such as the StrTo functions for words.
template <auto convert, auto member>
constexpr auto through = [](auto& record, std::string text) { record.*member = convert(std::move(text)); };

/// Reads one key of a section into its target; a missing key leaves it.
template <class Record, class Target>
void readKey(TiXmlElement* section, const KeyRow<Record>& row, Target target, Record& record)
{
    if constexpr (std::is_same_v<Target, std::vector<std::string> Record::*>) {
        GetList(section, row.item, row.key, record.*target);
    } else if constexpr (std::is_member_object_pointer_v<Target>) {
        GetText(section, row.key, record.*target);
    } else {
        bool found = false;
        std::string text = GetTXT(section, row.key, found);
        if (found) {
            target(record, std::move(text));
        }
    }
}

/// Reads the keys that the section holds into the members of the record; lists are appended to. A null
/// pointer, for a missing section, changes nothing. Like GetList, it never returns from an empty element of a
/// list.
template <class Record, std::size_t count>
void readKeys(TiXmlElement* section, const KeyRow<Record> (&rows)[count], Record& record)
{
    if (section == nullptr) {
        return;
    }
    for (const KeyRow<Record>& row : rows) {
        std::visit([&](auto target) { readKey(section, row, target, record); }, row.target);
    }
}

} // namespace tavelinUtils
