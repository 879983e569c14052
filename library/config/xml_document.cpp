#include "config/xml_document.h"

#include "base/bytes.h"
#include "base/numbers.h"
#include "config/xml_nesting.h"
#include "text/number_text.h"

#include <cerrno>
#include <chrono>
#include <cstdio>
#include <memory>
#include <thread>

namespace tavelinUtils {
namespace {

// The value of an element's first child node; a null pointer if the element is missing or empty.
const char* valueIn(const TiXmlElement* element)
{
    const TiXmlNode* const node = element == nullptr ? nullptr : element->FirstChild();
    return node == nullptr ? nullptr : node->Value();
}

void convert(const char* text, std::string& target)
{
    target = text;
}

void convert(const char* text, double& target)
{
    target = toDouble(text);
}

// Cut to 32 bits first, even if the target is wider.
template <class Integer>
void convert(const char* text, Integer& target)
{
    target = static_cast<Integer>(toInt(text));
}

void convert(const char* text, bool& target)
{
    target = StrToBool(text);
}

template <class Target>
void readText(TiXmlElement* parent, const std::string& key, Target& target)
{
    if (const char* const text = valueIn(childOf(parent, key))) {
        convert(text, target);
    }
}

template <class Target>
void readTextAndList(TiXmlElement* parent, const std::string& key, Target& target, std::string& list)
{
    if (valueIn(childOf(parent, key)) != nullptr) {
        GetText(parent, key, target);
        GetAttr(parent, key, "list", list);
    }
}

template <class Target>
void readAttribute(const TiXmlElement* element, const char* name, Target& target)
{
    const char* const text = element == nullptr ? nullptr : element->Attribute(name);
    if (text != nullptr) {
        convert(text, target);
    }
}

template <class Number>
void readMinMax(const TiXmlElement* element, Number& min, Number& max)
{
    readAttribute(element, "min", min);
    readAttribute(element, "max", max);
}

template <class Number>
void readBounded(TiXmlElement* parent, const std::string& key, Number& target, Number& min, Number& max)
{
    const TiXmlElement* const element = childOf(parent, key);
    if (const char* const text = valueIn(element)) {
        convert(text, target);
        readMinMax(element, min, max);
    }
}

// A stream's own writer, which a lack of memory makes fail.
ssize_t appendToText(void* text, const char* bytes, std::size_t size)
{
    try {
        static_cast<std::string*>(text)->append(bytes, size);
        return static_cast<ssize_t>(size);
    } catch (const std::exception&) {
        errno = ENOMEM;
        return 0;
    }
}

template <class Value>
void linkRecord(TiXmlElement* parent, std::string key, Value value, std::string comment)
{
    parent->LinkEndChild(setTextNode(std::move(key), value, std::move(comment)));
}

} // namespace

void keepWhiteSpace()
{
    if (TiXmlBase::IsWhiteSpaceCondensed()) {
        TiXmlBase::SetCondenseWhiteSpace(false);
    }
}

TtavelinXmlDocument::TtavelinXmlDocument(std::string path) : TiXmlDocument(path.c_str()), fileName(path)
{
    keepWhiteSpace();
}

bool TtavelinXmlDocument::LoadFile()
{
    try {
        return load();
    } catch (const std::exception&) {
        unread = true; // a file too large for the memory
        return false;
    }
}

bool TtavelinXmlDocument::load()
{
    // A device need not end, and a pipe need not begin.
    if (!isRegular(fileName)) {
        return false;
    }
    const OpenFile stream = openForReading(fileName);
    FileBytes file;
    unread = stream != nullptr && !readBytes(stream.get(), file);
    if (stream == nullptr || unread) {
        return false;
    }
    normalizeLineEnds(file);
    // The library parses by recursion: deeper documents would overflow the stack. And it compares every two
    // attributes of an element.
    if (goesBeyond(file.bytes.get(), deepestLevel, mostAttributesOfElement)) {
        return false;
    }
    Clear();
    SetTabSize(0); // rows and columns of errors are not needed
    Parse(file.bytes.get(), nullptr, TIXML_ENCODING_UNKNOWN);
    return !Error() && RootElement() != nullptr;
}

// The file is not opened before the whole text is there.
bool TtavelinXmlDocument::SaveFile()
{
    try {
        std::string text;
        OpenFile memory(fopencookie(&text, "w", {nullptr, appendToText, nullptr, nullptr}));
        if (memory == nullptr) {
            return false;
        }
        TiXmlDocument::SaveFile(memory.get());
        std::fflush(memory.get());
        return std::ferror(memory.get()) == 0 && writeBytes(fileName, "w", text);
    } catch (const std::exception&) {
        return false; // the library makes texts of its own as it prints
    }
}

TiXmlElement* childOf(TiXmlElement* parent, const std::string& name)
{
    return parent == nullptr ? nullptr : parent->FirstChildElement(name.c_str());
}

void GetText(TiXmlElement* parent, std::string key, std::string& target)
{
    readText(parent, key, target);
}

void GetText(TiXmlElement* parent, std::string key, double& target)
{
    readText(parent, key, target);
}

void GetText(TiXmlElement* parent, std::string key, int& target)
{
    readText(parent, key, target);
}

void GetText(TiXmlElement* parent, std::string key, short& target)
{
    readText(parent, key, target);
}

void GetText(TiXmlElement* parent, std::string key, long& target)
{
    readText(parent, key, target);
}

void GetText(TiXmlElement* parent, std::string key, unsigned long long& target)
{
    readText(parent, key, target);
}

void GetText(TiXmlElement* parent, std::string key, bool& target)
{
    readText(parent, key, target);
}

void GetText(TiXmlElement* parent, std::string key, double& target, double& min, double& max)
{
    readBounded(parent, key, target, min, max);
}

void GetText(TiXmlElement* parent, std::string key, int& target, int& min, int& max)
{
    readBounded(parent, key, target, min, max);
}

void GetText(TiXmlElement* parent, std::string key, short& target, short& min, short& max)
{
    readBounded(parent, key, target, min, max);
}

void GetText(TiXmlElement* parent, std::string key, std::string& target, std::string& list)
{
    readTextAndList(parent, key, target, list);
}

void GetText(TiXmlElement* parent, std::string key, short& target, std::string& list)
{
    readTextAndList(parent, key, target, list);
}

void GetAttr(TiXmlElement* parent, std::string key, std::string name, std::string& target)
{
    readAttribute(childOf(parent, key), name.c_str(), target);
}

void GetAttrMinMax(TiXmlElement* parent, std::string key, double& min, double& max)
{
    readMinMax(childOf(parent, key), min, max);
}

void GetAttrMinMax(TiXmlElement* parent, std::string key, int& min, int& max)
{
    readMinMax(childOf(parent, key), min, max);
}

void GetAttrMinMax(TiXmlElement* parent, std::string key, short& min, short& max)
{
    readMinMax(childOf(parent, key), min, max);
}

void GetList(TiXmlElement* parent, std::string item, std::string list, std::vector<std::string>& target)
{
    const TiXmlElement* const holder = childOf(parent, list);
    const TiXmlElement* each = holder == nullptr ? nullptr : holder->FirstChildElement(item.c_str());
    for (; each != nullptr; each = each->NextSiblingElement(item.c_str())) {
        const char* const text = valueIn(each);
        if (text == nullptr) {
            stayForever(); // only an item with content leads to the next
        }
        target.emplace_back(text);
    }
}

std::string GetTXT(TiXmlElement* parent, std::string key, bool& found)
{
    const char* const text = valueIn(childOf(parent, key));
    found = text != nullptr;
    return found ? text : "";
}

TiXmlElement* setTextNode(std::string key, std::string value, std::string comment)
{
    auto element = std::make_unique<TiXmlElement>(key.c_str());
    element->LinkEndChild(new TiXmlText(value.c_str()));
    if (!comment.empty()) {
        element->SetAttribute("comment", comment.c_str());
    }
    return element.release();
}

TiXmlElement* setTextNode(std::string key, const char* value, std::string comment)
{
    return setTextNode(std::move(key), std::string(value), std::move(comment));
}

TiXmlElement* setTextNode(std::string key, bool value, std::string comment)
{
    return setTextNode(std::move(key), BoolToStr(value), std::move(comment));
}

TiXmlElement* setTextNode(std::string key, int value, std::string comment)
{
    return setTextNode(std::move(key), IntToStr(value), std::move(comment));
}

TiXmlElement* setTextNode(std::string key, double value, std::string comment)
{
    return setTextNode(std::move(key), Str9(value, 6), std::move(comment));
}

TiXmlElement* setTextNode(std::string key, unsigned long value, std::string comment)
{
    return setTextNode(std::move(key), std::to_string(value), std::move(comment));
}

void writeRecord(TiXmlElement*& parent, std::string key, std::string value, std::string comment)
{
    linkRecord(parent, key, std::move(value), comment);
}

void writeRecord(TiXmlElement*& parent, std::string key, const char* value, std::string comment)
{
    linkRecord(parent, key, value, comment);
}

void writeRecord(TiXmlElement*& parent, std::string key, bool value, std::string comment)
{
    linkRecord(parent, key, value, comment);
}

void writeRecord(TiXmlElement*& parent, std::string key, int value, std::string comment)
{
    linkRecord(parent, key, value, comment);
}

void writeRecord(TiXmlElement*& parent, std::string key, double value, std::string comment)
{
    linkRecord(parent, key, value, comment);
}

void stayForever()
{
    for (;;) {
        std::this_thread::sleep_for(std::chrono::hours(1));
    }
}

} // namespace tavelinUtils
