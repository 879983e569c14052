// The rules for messages against the schemas that are published for them: a document that a schema refuses
// has a finding. Good documents are spoilt at each of their elements in each way that a schema can speak of.

#include "config/xml_document.h"
#include "reading/lint.h"
#include "reading/schema_validation.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

#include <cctype>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace {

using companion::Finding;
using companion::XmlSchema;

std::string schemaPath(const std::string& version)
{
    return std::string(VOMAR_PROJECT) + "/tests/fixtures/schemas/ndmxml-" + version + "/tdm-root.xsd";
}

class TdmSchemas : public testing::Test
{
protected:
    // What a schema says of the document: "" where it takes it.
    std::string refusal(const XmlSchema& schema) const
    {
        std::string text;
        schema.validate(path, [&text](const Finding& found) { text += found.text + '\n'; });
        return text;
    }

    std::size_t findings() const
    {
        companion::LintSettings settings;
        settings.reader = false;
        settings.person = false;
        settings.receiver = "ccsds";
        std::size_t count = 0;
        companion::lintFile(path, "tdm.xml", settings, [&count](const Finding&) { ++count; });
        return count;
    }

    void expectAgreement(const std::string& document, const std::string& what)
    {
        makeFile(path, document);
        const std::string byOld = refusal(old);
        const std::string byPresent = refusal(present);
        ++documents;
        if (byOld.empty() && byPresent.empty()) {
            return;
        }
        ++refused;
        // The older schema has a list of time systems, the present one takes any.
        const bool isOpen = byPresent.empty() && byOld.find("'TIME_SYSTEM'") != std::string::npos;
        if (!isOpen) {
            EXPECT_GT(findings(), 0u) << what << '\n' << byOld << byPresent;
        }
    }

    const TemporaryFolder folder;
    const std::string path = folder / "document.xml";
    const XmlSchema old{schemaPath("2.0.0")};
    const XmlSchema present{schemaPath("4.0.0")};
    std::size_t documents = 0;
    std::size_t refused = 0;
};

std::string fixtureText(const std::string& name)
{
    return bytesOf(std::string(VOMAR_PROJECT) + "/tests/" + name);
}

// All elements, in the order of the document.
void collect(TiXmlElement& element, std::vector<TiXmlElement*>& all)
{
    all.push_back(&element);
    for (TiXmlElement* child = element.FirstChildElement(); child != nullptr;
         child = child->NextSiblingElement()) {
        collect(*child, all);
    }
}

bool isLeaf(const TiXmlElement& element)
{
    return element.FirstChildElement() == nullptr;
}

// A way to spoil an element. It says whether it did.
struct Spoiling
{
    std::string name;
    std::function<bool(TiXmlElement&)> apply;
};

Spoiling withText(const std::string& text)
{
    return {"text \"" + text + '"', [text](TiXmlElement& element) {
                if (!isLeaf(element)) {
                    return false;
                }
                element.Clear();
                element.LinkEndChild(new TiXmlText(text.c_str()));
                return true;
            }};
}

Spoiling withTextOf(const std::string& name, const std::function<std::string(std::string)>& change)
{
    return {name, [change](TiXmlElement& element) {
                const char* const text = element.GetText();
                if (!isLeaf(element) || text == nullptr) {
                    return false;
                }
                return withText(change(text)).apply(element);
            }};
}

std::vector<Spoiling> ofTexts()
{
    std::vector<Spoiling> all;
    for (const char* text : {"",
                             "x",
                             "0",
                             "-1",
                             "-0.5",
                             "1.5",
                             "1e3",
                             "1e400",
                             "NaN",
                             "INF",
                             "101",
                             "-180.5",
                             "-360.5",
                             "360",
                             "7,1",
                             "1,2,",
                             "2025-2-3T12:00:00",
                             "2025-02-23 12:00:00",
                             "2025-02-23T12:00",
                             "2025-02-23T12:00:00+01",
                             "9999999999999",
                             "YES",
                             "J2000",
                             "TOD_EARTH",
                             "ITRF1993",
                             "UTM",
                             "TCG"})
    {
        all.push_back(withText(text));
    }
    all.push_back(withTextOf("first letter in lower case", [](std::string text) {
        text[0] = static_cast<char>(std::tolower(static_cast<unsigned char>(text[0])));
        return text;
    }));
    all.push_back(withTextOf("blank in front", [](const std::string& text) { return ' ' + text; }));
    all.push_back(withTextOf("blank behind", [](const std::string& text) { return text + ' '; }));
    all.push_back(withTextOf("blank inside", [](std::string text) { return text.insert(1, " "); }));
    all.push_back(withTextOf("unit", [](const std::string& text) { return text + " [deg]"; }));
    return all;
}

std::vector<Spoiling> ofElements()
{
    const auto isRoot = [](const TiXmlElement& element) { return element.Parent()->ToElement() == nullptr; };
    return {
        {"left out",
         [isRoot](TiXmlElement& element) {
             return !isRoot(element) && element.Parent()->RemoveChild(&element);
         }},
        {"twice",
         [isRoot](TiXmlElement& element) {
             return !isRoot(element) && element.Parent()->InsertAfterChild(&element, element) != nullptr;
         }},
        {"behind the next",
         [isRoot](TiXmlElement& element) {
             TiXmlElement* const next = element.NextSiblingElement();
             return !isRoot(element) && next != nullptr &&
                    element.Parent()->InsertAfterChild(next, element) != nullptr &&
                    element.Parent()->RemoveChild(&element);
         }},
        {"with another name",
         [](TiXmlElement& element) {
             element.SetValue(element.ValueStr() + "_7");
             return true;
         }},
        {"with a name in small letters",
         [](TiXmlElement& element) {
             std::string name = element.Value();
             name[0] = static_cast<char>(name[0] ^ 0x20);
             element.SetValue(name);
             return true;
         }},
        {"with an element inside",
         [](TiXmlElement& element) { return element.LinkEndChild(new TiXmlElement("COMMENT")) != nullptr; }},
        {"with a text inside",
         [](TiXmlElement& element) {
             return !isLeaf(element) && element.LinkEndChild(new TiXmlText("text")) != nullptr;
         }},
        {"with an attribute",
         [](TiXmlElement& element) {
             element.SetAttribute("units", "km");
             return true;
         }},
        {"with another id",
         [](TiXmlElement& element) {
             element.SetAttribute("id", "x");
             return true;
         }},
        {"of another version", [](TiXmlElement& element) {
             element.SetAttribute("version", "1.0");
             return true;
         }}};
}

std::string printed(const TiXmlDocument& document)
{
    TiXmlPrinter printer;
    printer.SetIndent("");
    document.Accept(&printer);
    return printer.Str();
}

// The elements to be spoilt, by their number: of those that are alike two.
std::vector<std::size_t> elementsToSpoil(const std::string& text)
{
    TiXmlDocument document;
    document.Parse(text.c_str());
    std::vector<TiXmlElement*> elements;
    collect(*document.RootElement(), elements);
    std::map<std::string, int> alike;
    std::vector<std::size_t> numbers;
    for (std::size_t i = 0; i < elements.size(); ++i) {
        std::string name = elements[i]->Value();
        if (name.size() > 2 && name[name.size() - 2] == '_' && name.back() >= '2' && name.back() <= '5' &&
            !name.starts_with("ANGLE") && !name.starts_with("CORRECTION"))
        {
            name.back() = 'n';
        }
        if (++alike[name] <= 2) {
            numbers.push_back(i);
        }
    }
    return numbers;
}

// The document with one of its elements spoilt; empty where that element cannot be so.
std::string spoilt(const std::string& text, std::size_t number, const Spoiling& spoiling, std::string& name)
{
    TiXmlDocument document;
    document.Parse(text.c_str());
    std::vector<TiXmlElement*> elements;
    collect(*document.RootElement(), elements);
    name = elements[number]->ValueStr() + ' ' + spoiling.name;
    return spoiling.apply(*elements[number]) ? printed(document) : "";
}

} // namespace

TEST_F(TdmSchemas, TakeWhatHasNoFinding)
{
    for (const char* good : {"fixtures/tdm_xml/all_metadata.xml", "fixtures/tdm_xml/all_data.xml",
                             "fixtures/tdm_xml/frequencies.xml"})
    {
        makeFile(path, fixtureText(good));
        EXPECT_EQ(refusal(old) + refusal(present), "") << good;
        EXPECT_EQ(findings(), 0u) << good;
    }
    // These are messages of version 1.0, and one of the tool without a date.
    for (const char* other :
         {"fixtures/tdm_xml/two_segments.xml", "runs/mea_to_tdm_xml/expected/night.tdm.xml"}) {
        expectAgreement(fixtureText(other), other);
    }
    EXPECT_EQ(refused, 2u);
}

#ifdef VOMAR_SANITIZED
constexpr std::size_t stepOfDocuments = 5; // they take longer there
#else
constexpr std::size_t stepOfDocuments = 1;
#endif

TEST_F(TdmSchemas, RefuseNothingThatHasNoFinding)
{
    std::vector<Spoiling> spoilings = ofElements();
    for (Spoiling& each : ofTexts()) {
        spoilings.push_back(std::move(each));
    }
    std::size_t made = 0;
    for (const char* fixture : {"fixtures/tdm_xml/all_metadata.xml", "fixtures/tdm_xml/all_data.xml"}) {
        const std::string good = fixtureText(fixture);
        const std::vector<std::size_t> numbers = elementsToSpoil(good);
        for (const Spoiling& spoiling : spoilings) {
            for (const std::size_t number : numbers) {
                std::string name;
                const std::string document = spoilt(good, number, spoiling, name);
                if (!document.empty() && ++made % stepOfDocuments == 0) {
                    expectAgreement(document, name);
                }
            }
        }
    }
    RecordProperty("documents", std::to_string(documents));
    RecordProperty("refused", std::to_string(refused));
    EXPECT_GT(documents, 4000u / stepOfDocuments);
    EXPECT_GT(refused, 2000u / stepOfDocuments);
}
