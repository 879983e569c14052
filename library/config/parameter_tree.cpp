#include "config/parameter_tree.h"

#include <memory>
#include <type_traits>
#include <utility>

namespace tavelinUtils {
namespace {

// The element with its value or its children, owned until the caller links it.
std::unique_ptr<TiXmlElement> xmlOf(const ParameterElement& element)
{
    std::unique_ptr<TiXmlElement> xml;
    const auto make = [&](const auto& value) {
        if constexpr (std::is_same_v<std::decay_t<decltype(value)>, std::monostate>) {
            xml = std::make_unique<TiXmlElement>(element.name.c_str());
        } else {
            xml.reset(setTextNode(element.name, value, ""));
        }
    };
    std::visit(make, element.value);
    if (!element.attribute.name.empty()) {
        xml->SetAttribute(element.attribute.name.c_str(), element.attribute.value.c_str());
    }
    for (const ParameterElement& child : element.children) {
        xml->LinkEndChild(xmlOf(child).release());
    }
    return xml;
}

void readTarget(TiXmlElement* root, const ParameterKey& row, std::vector<std::string>& target)
{
    GetList(root, row.item, row.key, target);
}

void readTarget(TiXmlElement* root, const ParameterKey& row, std::optional<std::string>& target)
{
    bool found = false;
    std::string text = GetTXT(root, row.key, found);
    if (found) {
        target = std::move(text);
    }
}

template <class Value>
void readTarget(TiXmlElement* root, const ParameterKey& row, Value& target)
{
    GetText(root, row.key, target);
}

void readKey(TiXmlElement* root, const ParameterKey& row)
{
    std::visit([&](auto* target) { readTarget(root, row, *target); }, row.target);
}

} // namespace

ParameterElement branch(std::string name, std::initializer_list<ParameterElement> children)
{
    return {std::move(name), {}, {}, children};
}

ParameterElement textList(std::string name, std::string item, const std::vector<std::string>& texts)
{
    ParameterElement element{std::move(name)};
    element.children.reserve(texts.size());
    for (const std::string& text : texts) {
        element.children.push_back({item, text});
    }
    return element;
}

int saveParameters(const std::string& path, const ParameterElement& root)
{
    TtavelinXmlDocument document(path);
    document.LinkEndChild(std::make_unique<TiXmlDeclaration>("1.0", "", "").release());
    document.LinkEndChild(xmlOf(root).release());
    return document.SaveFile() ? 0 : 1;
}

ParameterFile::ParameterFile(const std::string& path) : document(path), loaded(document.LoadFile())
{
}

TiXmlElement* ParameterFile::root()
{
    return loaded ? document.FirstChildElement() : nullptr; // a broken file may be parsed in part
}

bool readParameters(const std::string& path, std::initializer_list<ParameterKey> keys)
{
    ParameterFile file(path);
    TiXmlElement* const root = file.root();
    if (root == nullptr) {
        return false;
    }
    for (const ParameterKey& row : keys) {
        readKey(root, row);
    }
    return true;
}

} // namespace tavelinUtils
