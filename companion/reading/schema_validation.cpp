#include "reading/schema_validation.h"

#include "out/characters.h"

#include <libxml/parser.h>
#include <libxml/xmlschemas.h>

#include <algorithm>
#include <string_view>

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
struct FreeParser
{
    void operator()(xmlParserCtxt* parser) const
    {
        xmlFreeParserCtxt(parser);
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

void ignoreMessage(void* /*nobody*/, xmlErrorPtr /*error*/)
{
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
    const std::unique_ptr<xmlParserCtxt, FreeParser> parser(xmlNewParserCtxt());
    xmlSetStructuredErrorFunc(nullptr, ignoreMessage);
    const std::unique_ptr<xmlDoc, FreeDocument> document(
        xmlCtxtReadFile(parser.get(), path.c_str(), nullptr, XML_PARSE_NONET | XML_PARSE_NOERROR));
    xmlSetStructuredErrorFunc(nullptr, nullptr);
    if (document == nullptr) {
        const xmlError* const error = xmlCtxtGetLastError(parser.get());
        if (error != nullptr) {
            messages.take(*error);
        }
        return;
    }
    const std::unique_ptr<xmlSchemaValidCtxt, FreeValidation> validation(
        xmlSchemaNewValidCtxt(state->schema.get()));
    xmlSchemaSetValidStructuredErrors(validation.get(), takeMessage, &messages);
    xmlSchemaValidateDoc(validation.get(), document.get());
}

} // namespace companion
