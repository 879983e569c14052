// Documents and schemas that are none.

#include "reading/schema_validation.h"

#include "support/child_process.h"
#include "support/temporary_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using companion::Finding;
using companion::XmlSchema;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string schema = "<xs:schema xmlns:xs=\"http://www.w3.org/2001/XMLSchema\">\n"
                           "<xs:element name=\"a\" type=\"xs:integer\"/>\n</xs:schema>\n";

// Lines and codes of what is said of a document.
std::vector<std::string> toldOf(const std::string& document, const std::string& name = "a.xml")
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xsd", schema);
    makeFile(folder / "a.xml", document);
    std::vector<std::string> told;
    XmlSchema(folder / "a.xsd").validate(folder / name, [&](const Finding& found) {
        told.push_back(std::to_string(found.line) + ' ' + found.code.text());
        EXPECT_EQ(found.file, folder / name);
        EXPECT_EQ(found.text.find('\n'), std::string::npos);
    });
    return told;
}

} // namespace

TEST(SchemaValidation, MessagesHaveTheirLines)
{
    EXPECT_THAT(toldOf("<a>1</a>"), IsEmpty());
    EXPECT_THAT(toldOf("<!-- -->\n<a>x</a>"), ElementsAre("2 V440"));
    EXPECT_THAT(toldOf("<a>\n</b>"), ElementsAre("2 V440"));
    EXPECT_THAT(toldOf("<a>1</a>", "missing.xml"), ElementsAre("0 V440"));
}

TEST(SchemaValidation, FilesThatAreNoSchema)
{
    const TemporaryFolder folder;
    makeFile(folder / "other.xsd", "<a/>");
    makeFile(folder / "broken.xsd", "<xs:schema");
    for (const char* name : {"missing.xsd", "other.xsd", "broken.xsd"}) {
        const ChildEnd end = runInChild(
            [&folder, name] { EXPECT_THROW(XmlSchema(folder / name), companion::WrongUsage) << name; }, 10.0);
        EXPECT_EQ(end.exitStatus, 0);
        EXPECT_EQ(end.output, ""); // the library itself prints nothing
    }
}
