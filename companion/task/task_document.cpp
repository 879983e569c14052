#include "task/task_document.h"

#include "base/bytes.h"
#include "config/xml_document.h"
#include "config/xml_nesting.h"
#include "out/characters.h"
#include "out/system_files.h"
#include "out/text.h"
#include "reading/input_files.h"
#include "task/key_table.h"

#include <libxml/parser.h>
#include <tinyxml.h>

#include <algorithm>
#include <cctype>
#include <cerrno>
#include <climits>
#include <cstring>
#include <filesystem>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace tavelinUtils;

namespace companion {
namespace {

SourcePlace placeOf(const TiXmlBase& node)
{
    return {static_cast<std::size_t>(std::max(node.Row(), 0)),
            static_cast<std::size_t>(std::max(node.Column(), 0))};
}

FirstNode kindOf(const TiXmlNode* node)
{
    if (node == nullptr) {
        return FirstNode::none;
    }
    switch (node->Type()) {
    case TiXmlNode::TINYXML_TEXT: return FirstNode::text;
    case TiXmlNode::TINYXML_COMMENT: return FirstNode::comment;
    case TiXmlNode::TINYXML_ELEMENT: return FirstNode::element;
    default: return FirstNode::other;
    }
}

// Deeper levels are not looked at: a document may have thousands.
DocumentKey keyOfElement(const TiXmlElement& element, bool withChildren)
{
    const TiXmlNode* const first = element.FirstChild();
    DocumentKey key{element.ValueStr(), placeOf(element), kindOf(first),
                    first == nullptr ? "" : first->ValueStr()};
    const TiXmlElement* child = withChildren ? element.FirstChildElement() : nullptr;
    for (; child != nullptr; child = child->NextSiblingElement()) {
        key.children.push_back(keyOfElement(*child, false));
    }
    return key;
}

std::vector<DocumentKey> keysIn(const TiXmlElement& parent)
{
    std::vector<DocumentKey> keys;
    for (const TiXmlElement* each = parent.FirstChildElement(); each != nullptr;
         each = each->NextSiblingElement())
    {
        keys.push_back(keyOfElement(*each, true));
    }
    return keys;
}

// The elements that GetSeriaAndObjects walks through.
std::vector<DocumentSeria> seriesIn(const TiXmlElement& root)
{
    std::vector<DocumentSeria> series;
    const TiXmlElement* const paths = root.FirstChildElement("paths");
    const TiXmlElement* each = paths == nullptr ? nullptr : paths->FirstChildElement("seria");
    for (; each != nullptr; each = each->NextSiblingElement("seria")) {
        series.push_back({placeOf(*each), each->FirstChild() == nullptr, keysIn(*each)});
    }
    return series;
}

// The walk begins where the first seria has an element, and stays on the first later one without any node.
std::size_t countOfEndlessSeria(const std::vector<DocumentSeria>& series)
{
    if (series.empty() || series.front().keys.empty()) {
        return 0;
    }
    return static_cast<std::size_t>(
        std::count_if(series.begin() + 1, series.end(), [](const auto& each) { return each.isEmpty; }));
}

bool hasTaskKey(const std::vector<DocumentKey>& keys)
{
    return std::any_of(keys.begin(), keys.end(),
                       [](const DocumentKey& key) { return keyOf(taskKeyTable(), key.name) != nullptr; });
}

// The element that holds the keys of a task that has none where they count.
const DocumentKey* holderOfDeepKeys(const std::vector<DocumentKey>& keys)
{
    const auto holder = std::find_if(keys.begin(), keys.end(),
                                     [](const DocumentKey& key) { return hasTaskKey(key.children); });
    return hasTaskKey(keys) || holder == keys.end() ? nullptr : &*holder;
}

// The word for an encoding of two or four bytes for each character, by the front of a text; empty for others.
std::string wideEncoding(std::string_view bytes)
{
    const auto begins = [bytes](std::string_view mark) { return bytes.substr(0, mark.size()) == mark; };
    using namespace std::string_view_literals;
    if (begins("\xFF\xFE\0\0"sv) || begins("\0\0\xFE\xFF"sv) || begins("<\0\0\0"sv) || begins("\0\0\0<"sv)) {
        return "UTF-32";
    }
    return begins("\xFF\xFE"sv) || begins("\xFE\xFF"sv) || begins("<\0"sv) || begins("\0<"sv) ? "UTF-16" : "";
}

// Whether a document type declaration outside all elements has an internal part.
bool hasInnerDoctype(std::string_view text)
{
    const std::size_t begin = text.find("<!DOCTYPE");
    const std::size_t bracket = text.find('[', begin);
    return begin != std::string_view::npos && bracket != std::string_view::npos &&
           text.substr(begin, bracket - begin).find('>') == std::string_view::npos;
}

SourcePlace placeIn(std::string_view text, std::size_t at)
{
    const std::string_view before = text.substr(0, at);
    const std::size_t lines = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n'));
    return {lines + 1, at - (before.rfind('\n') + 1) + 1}; // without a line feed the sum is 0
}

// What is wrong with a document, and where.
struct XmlFault
{
    std::string reason;
    SourcePlace place;
    bool isNothing = false; ///< only white space is left where an element should begin
};

bool isSpace(char c)
{
    return std::isspace(static_cast<unsigned char>(c)) != 0;
}

void keepFirstFault(void* context, xmlErrorPtr error)
{
    auto* const parser = static_cast<xmlParserCtxtPtr>(context);
    auto* const fault = static_cast<std::optional<XmlFault>*>(parser->_private);
    if (fault->has_value() || error->level < XML_ERR_ERROR) {
        return;
    }
    // There is no message where there was no memory for it; its length is 0 then.
    const int length = xmlStrlen(reinterpret_cast<const xmlChar*>(error->message));
    const std::string_view reason(error->message, static_cast<std::size_t>(length));
    *fault = XmlFault{printable(trimmed(reason, isSpace)),
                      {static_cast<std::size_t>(std::max(error->line, 0)),
                       static_cast<std::size_t>(std::max(error->int2, 0))},
                      error->code == XML_ERR_DOCUMENT_EMPTY && // found in the input
                          std::all_of(parser->input->cur, parser->input->end, isSpace)};
}

struct FreeParser
{
    void operator()(xmlParserCtxtPtr parser) const
    {
        xmlFreeParserCtxt(parser);
    }
};

// The first error that libxml2 finds. It opens nothing: neither the network nor the files of a declaration.
std::optional<XmlFault> firstXmlFault(std::string_view bytes)
{
    std::optional<XmlFault> fault;
    const std::unique_ptr<xmlParserCtxt, FreeParser> parser(xmlNewParserCtxt());
    if (parser == nullptr || bytes.size() > INT_MAX) {
        return fault;
    }
    constexpr std::string_view mark = "\xEF\xBB\xBF"; // a byte order mark is no part of the text
    if (bytes.substr(0, mark.size()) == mark) {
        bytes.remove_prefix(mark.size());
    }
    parser->_private = &fault;
    parser->sax->serror = keepFirstFault;
    xmlFreeDoc(xmlCtxtReadMemory(parser.get(), bytes.data(), static_cast<int>(bytes.size()), nullptr, nullptr,
                                 XML_PARSE_NONET));
    return fault;
}

// A document on its way from bytes to findings.
class Reading
{
public:
    Reading(std::string_view bytes, const std::string& path)
    {
        document.path = path;
        document.bytes = bytes;
        file.bytes = std::make_unique<char[]>(bytes.size() + FileBytes::spareBytes);
        file.size = bytes.size();
        std::copy(bytes.begin(), bytes.end(), file.bytes.get());
        normalizeLineEnds(file);
    }

    TaskDocument read()
    {
        const std::string encoding = wideEncoding(file.view());
        if (isBeyondLimits()) {
            return std::move(document);
        }
        parse();
        if (document.canBeLoaded) {
            lookAtKeys();
        } else if (!encoding.empty()) {
            add(finding("V012", {{"encoding", encoding}}));
        } else {
            explainFailure();
        }
        return std::move(document);
    }

private:
    void add(Finding found, SourcePlace place = {})
    {
        document.findings.push_back(findingAt(document, place, std::move(found)));
    }

    bool isBeyondLimits()
    {
        if (!goesBeyond(file.bytes.get(), deepestLevel, mostAttributesOfElement)) {
            return false;
        }
        const bool isTooNested = goesBeyond(file.bytes.get(), deepestLevel, INT_MAX);
        const std::string limit = isTooNested
                                      ? counted(deepestLevel, "nested level")
                                      : counted(mostAttributesOfElement, "attribute") + " in one element";
        add(finding("V014", {{"limit", limit}}));
        return true;
    }

    // As TtavelinXmlDocument does it, but with places: a tab is one column.
    void parse()
    {
        tavelinUtils::keepWhiteSpace();
        parsed.SetTabSize(1);
        parsed.Parse(file.bytes.get(), nullptr, TIXML_ENCODING_UNKNOWN);
        document.canBeLoaded = !parsed.Error() && parsed.RootElement() != nullptr;
    }

    void lookAtKeys()
    {
        const TiXmlElement& root = *parsed.FirstChildElement();
        document.root = placeOf(root);
        document.keys = keysIn(root);
        document.series = seriesIn(root);
        if (const DocumentKey* const holder = holderOfDeepKeys(document.keys)) {
            document.isTooDeep = true;
            add(finding("V016"), holder->place);
        }
        if (const std::size_t count = countOfEndlessSeria(document.series)) {
            const auto first = std::find_if(document.series.begin() + 1, document.series.end(),
                                            [](const auto& each) { return each.isEmpty; });
            document.walkEnds = false;
            add(finding("V230").times(count), first->place);
        }
    }

    void explainFailure()
    {
        const std::string_view text = file.view();
        if (parsed.RootElement() == nullptr && hasInnerDoctype(text)) {
            add(finding("V015"), placeIn(text, text.find("<!DOCTYPE")));
            return;
        }
        const XmlFault fault = firstXmlFault(text).value_or(ownFault());
        if (fault.isNothing) {
            add(finding("V013"));
        } else {
            add(finding("V011", {{"reason", fault.reason}}), fault.place);
        }
    }

    // What the tool's parser says where libxml2 finds no fault.
    XmlFault ownFault() const
    {
        if (!parsed.Error()) {
            return {"the parser of the tool finds no element in it", {}};
        }
        return {parsed.ErrorDesc(),
                {static_cast<std::size_t>(std::max(parsed.ErrorRow(), 0)),
                 static_cast<std::size_t>(std::max(parsed.ErrorCol(), 0))}};
    }

    TaskDocument document;
    FileBytes file;
    TiXmlDocument parsed;
};

// A task that cannot be read.
TaskDocument unreadable(const std::string& path, const std::string& reason)
{
    TaskDocument document;
    document.path = path;
    document.findings.push_back(finding("V010", {{"reason", reason}}).in(path));
    return document;
}

// A file in memory, so that the tool's reader sees the bytes that were looked at, and those of a pipe.
class MemoryFile
{
public:
    explicit MemoryFile(std::string_view bytes) : descriptor(memfd_create("task", MFD_CLOEXEC))
    {
        std::FILE* const file = descriptor < 0 ? nullptr : fdopen(dup(descriptor), "wb");
        const bool written = file != nullptr && fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size();
        if (file == nullptr || fclose(file) != 0 || !written) {
            throw std::runtime_error("no room for a task");
        }
    }
    ~MemoryFile()
    {
        close(descriptor);
    }
    MemoryFile(const MemoryFile&) = delete;
    MemoryFile& operator=(const MemoryFile&) = delete;

    std::string path() const
    {
        return "/proc/self/fd/" + std::to_string(descriptor);
    }

private:
    int descriptor;
};

// What a path leads to where it is no regular file; empty also where there is nothing.
std::string otherThanFile(const std::string& path)
{
    struct stat state = {};
    const bool isOther = stat(path.c_str(), &state) == 0 && !S_ISREG(state.st_mode);
    return isOther ? companion::kindOf(state) : "";
}

} // namespace

const DocumentKey* firstKey(const std::vector<DocumentKey>& keys, std::string_view name)
{
    const auto key =
        std::find_if(keys.begin(), keys.end(), [name](const DocumentKey& each) { return each.name == name; });
    return key == keys.end() ? nullptr : &*key;
}

const DocumentKey* TaskDocument::key(std::string_view name) const
{
    return firstKey(keys, name);
}

TaskDocument readTaskDocument(const std::string& path)
{
    // The tool loads no task from a pipe or a device: it would wait, or never come to an end.
    const std::string other = path == standardInput ? "" : otherThanFile(path);
    if (!other.empty()) {
        return unreadable(path, "it is " + other);
    }
    FileBytes file;
    errno = EIO; // for a read that fails and does not say why
    if (path == standardInput ? readBytes(stdin, file) : readBytes(path, file)) {
        TaskDocument document = taskDocumentOf(file.view(), path);
        std::error_code ignored;
        document.file = path == standardInput ? "" : std::filesystem::absolute(path, ignored).string();
        return document;
    }
    return unreadable(path, std::strerror(errno));
}

TaskDocument taskDocumentOf(std::string_view bytes, const std::string& path)
{
    return Reading(bytes, path).read();
}

TConvMea taskOf(const TaskDocument& document)
{
    TConvMea task;
    if (!document.canBeLoaded || !document.walkEnds || !ltaskconv(MemoryFile(document.bytes).path(), task)) {
        throw std::logic_error("a task that cannot be loaded is not looked at");
    }
    return task;
}

Finding atKey(const TaskDocument& document, Finding found, std::string_view key)
{
    const DocumentKey* const at = document.key(key);
    return findingAt(document, at == nullptr ? SourcePlace{} : at->place, std::move(found));
}

Finding atKeyOfSeria(const TaskDocument& document, Finding found, std::size_t seria, std::string_view key)
{
    const DocumentSeria& holder = document.series.at(seria);
    const DocumentKey* const at = firstKey(holder.keys, key);
    return findingAt(document, at == nullptr ? holder.place : at->place, std::move(found));
}

Finding findingAt(const TaskDocument& document, SourcePlace place, Finding found)
{
    return std::move(found).in(document.path).at(place.line, place.column);
}

} // namespace companion
