#include "reading/schema_validation.h"

#include "out/characters.h"

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace companion {
namespace {

struct FreeDocument
{
    void operator()(xmlDoc* document) const
    {
        xmlFreeDoc(document);
    }
};
struct FreeSchema
{
    void operator()(xmlSchema* schema) const
    {
        xmlSchemaFree(schema);
    }
};
struct FreeSchemaParser
{
    void operator()(xmlSchemaParserCtxt* parser) const
    {
        xmlSchemaFreeParserCtxt(parser);
    }
};
struct FreeValidation
{
    void operator()(xmlSchemaValidCtxt* validation) const
    {
        xmlSchemaFreeValidCtxt(validation);
    }
};

// Takes the messages of the library.
struct Messages
{
    std::string path;
    const std::function<void(Finding)>& found;

    void take(const xmlError& error) const
    {
        const std::string_view text = trimmed(std::string_view(error.message), " \n");
        const auto line = static_cast<std::size_t>(std::max(error.line, 0));
        found(finding("V440", {{"message", std::string(text)}}).in(path).at(line, 0));
    }
};

void takeMessage(void* messages, xmlErrorPtr error)
{
    static_cast<const Messages*>(messages)->take(*error);
}

// Takes what the library says of any document while it is there.
class AllMessages
{
public:
    explicit AllMessages(Messages& messages)
    {
        xmlSetStructuredErrorFunc(&messages, takeMessage);
    }
    ~AllMessages()
    {
        xmlSetStructuredErrorFunc(nullptr, nullptr);
    }
    AllMessages(const AllMessages&) = delete;
    AllMessages& operator=(const AllMessages&) = delete;
};

using DocumentPointer = std::unique_ptr<xmlDoc, FreeDocument>;

// A document; for one that is none a null pointer, and the last message.
DocumentPointer parsed(const std::string& path, const std::function<void(Finding)>& found)
{
    Finding last = finding("V440", {{"message", "cannot be read"}}).in(path);
    const std::function<void(Finding)> keep = [&last](Finding each) { last = std::move(each); };
    Messages messages{path, keep};
    const AllMessages ofDocument(messages);
    DocumentPointer document(xmlReadFile(path.c_str(), nullptr, XML_PARSE_NONET));
    if (document == nullptr) {
        found(std::move(last));
    }
    return document;
}

} // namespace

struct XmlSchema::State
{
    std::unique_ptr<xmlSchema, FreeSchema> schema;
};

XmlSchema::XmlSchema(const std::string& path) : state(new State)
{
    xmlSetExternalEntityLoader(xmlNoNetExternalEntityLoader);
    const std::unique_ptr<xmlSchemaParserCtxt, FreeSchemaParser> parser(xmlSchemaNewParserCtxt(path.c_str()));
    std::string reason = "is no XML schema";
    const std::function<void(Finding)> last = [&reason](const Finding& each) { reason = each.text; };
    Messages messages{path, last};
    const AllMessages ofDocument(messages); // the library would print them
    xmlSchemaSetParserStructuredErrors(parser.get(), takeMessage, &messages);
    state->schema.reset(xmlSchemaParse(parser.get()));
    if (state->schema == nullptr) {
        throw WrongUsage{finding("V003", {{"file", path}, {"what", reason}})};
    }
}

XmlSchema::~XmlSchema() = default;

void XmlSchema::validate(const std::string& path, const std::function<void(Finding)>& found) const
{
    Messages messages{path, found};
    const DocumentPointer document = parsed(path, found);
    if (document == nullptr) {
        return;
    }
    const std::unique_ptr<xmlSchemaValidCtxt, FreeValidation> validation(
        xmlSchemaNewValidCtxt(state->schema.get()));
    xmlSchemaSetValidStructuredErrors(validation.get(), takeMessage, &messages);
    xmlSchemaValidateDoc(validation.get(), document.get());
}

} // namespace companion
