#include "task.h"

#include "base/numbers.h"
#include "base/tokens.h"

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

TSeria2 seriaOf(TiXmlElement* element)
{
    TSeria2 seria;
    std::string excludes;
    GetText(element, "path", seria.path);
    GetText(element, "filtr", seria.filter); // the key is spelled so
    GetText(element, "telescope", seria.telescope);
    GetText(element, "excludes", excludes);
    seria.excludes = exclusionsOf(excludes);
    return seria;
}

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
            stayForever(); // the step to the next element belongs to one with content
        }
        series.push_back(seriaOf(element));
    }
    return series;
}

bool ltaskconv(std::string path, TConvMea& task)
{
    TtavelinXmlDocument document(path);
    TiXmlBase::SetCondenseWhiteSpace(false);
    if (!document.LoadFile()) {
        return false;
    }
    TiXmlElement* const root = document.FirstChildElement();
    GetText(root, "path_in", task.path_in);
    GetText(root, "out_dir", task.out_dir);
    GetText(root, "outputextension", task.outputextension);
    GetText(root, "inputformat", task.inputformat);
    GetText(root, "outputformat", task.outputformat);
    GetText(root, "originator", task.originator);
    GetText(root, "REFERENCE_FRAME", task.REFERENCE_FRAME);
    GetText(root, "PARTICIPANT_1", task.PARTICIPANT_1);
    GetText(root, "autoname", task.autoname);
    GetText(root, "longname", task.longname);
    GetText(root, "autoTelescope", task.autoTelescope);
    GetText(root, "whatSave", task.whatSave);
    GetText(root, "interval", task.interval);
    GetText(root, "toSeparateFile", task.toSeparateFile);
    GetText(root, "object", task.object);
    GetText(root, "path_res", task.path_res);
    task.paths = GetSeriaAndObjects(root, "paths");
    return true;
}

} // namespace tavelinUtils
