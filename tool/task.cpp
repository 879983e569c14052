#include "task.h"

#include "base/numbers.h"
#include "base/tokens.h"
#include "config/key_table.h"

#include <string_view>
#include <utility>

namespace tavelinUtils {
namespace {

// "3;0;7" excludes the marks 0 and 7 of track 3.
TExcludBlobs exclusionOf(std::string_view item)
{
    TExcludBlobs exclusion;
    bool first = true;
    forEachToken(item, ';', [&](std::string_view number) {
        if (std::exchange(first, false)) {
            exclusion.object = toInt(number);
        } else {
            exclusion.blobs.push_back(toInt(number));
        }
    });
    return exclusion;
}

std::vector<TExcludBlobs> exclusionsOf(const std::string& text)
{
    std::vector<TExcludBlobs> exclusions;
    forEachToken(text, ' ', [&exclusions](std::string_view item) {
        if (!item.empty()) {
            exclusions.push_back(exclusionOf(item));
        }
    });
    return exclusions;
}

constexpr KeyRow<TSeria2> seriaKeys[] = {
    {"path", &TSeria2::path},
    {"filtr", &TSeria2::filter}, // the key is spelled so
    {"telescope", &TSeria2::telescope},
    {"excludes", through<exclusionsOf, &TSeria2::excludes>},
};

constexpr KeyRow<TConvMea> taskKeys[] = {
    {"path_in", &TConvMea::path_in},
    {"out_dir", &TConvMea::out_dir},
    {"outputextension", &TConvMea::outputextension},
    {"inputformat", &TConvMea::inputformat},
    {"outputformat", &TConvMea::outputformat},
    {"originator", &TConvMea::originator},
    {"REFERENCE_FRAME", &TConvMea::REFERENCE_FRAME},
    {"PARTICIPANT_1", &TConvMea::PARTICIPANT_1},
    {"autoname", &TConvMea::autoname},
    {"longname", &TConvMea::longname},
    {"autoTelescope", &TConvMea::autoTelescope},
    {"whatSave", &TConvMea::whatSave},
    {"interval", &TConvMea::interval},
    {"toSeparateFile", &TConvMea::toSeparateFile},
    {"object", &TConvMea::object},
    {"path_res", &TConvMea::path_res},
};

} // namespace

std::vector<TSeria2> GetSeriaAndObjects(TiXmlElement* parent, std::string key)
{
    std::vector<TSeria2> series;
    TiXmlElement* const list = parent == nullptr ? nullptr : parent->FirstChildElement(key.c_str());
    TiXmlElement* element = list == nullptr ? nullptr : list->FirstChildElement("seria");
    if (element == nullptr || element->FirstChildElement() == nullptr) {
        return series;
    }
    for (; element != nullptr; element = element->NextSiblingElement("seria")) {
        if (element->FirstChild() == nullptr) {
            stayForever(); // only an element with content leads on to the next
        }
        readKeys(element, seriaKeys, series.emplace_back());
    }
    return series;
}

bool ltaskconv(std::string path, TConvMea& task)
{
    TtavelinXmlDocument document(path);
    if (!document.LoadFile()) {
        return false;
    }
    TiXmlElement* const root = document.FirstChildElement();
    readKeys(root, taskKeys, task);
    task.paths = GetSeriaAndObjects(root, "paths");
    return true;
}

} // namespace tavelinUtils
