#include "companion/xmllint.h"

#include "schema/schemas.h"
#include "support/child_process.h"
#include "support/temporary_folder.h"

#include <gtest/gtest.h>

std::string refusalByXmllint(const std::string& schema, const std::string& document)
{
    const TemporaryFolder folder;
    makeFile(folder / "schema.xsd", companion::schemaOf(schema)->text());
    makeFile(folder / "document.xml", document);
    const ChildEnd end = runProgram(
        "/usr/bin/env", {"xmllint", "--noout", "--nonet", "--schema", "schema.xsd", "document.xml"},
        folder.path());
    constexpr int notValid = 3;
    EXPECT_TRUE(end.exitStatus == 0 || end.exitStatus == notValid) << end.output;
    return end.exitStatus == 0 ? "" : end.output.substr(0, end.output.find('\n'));
}

std::string withReplaced(const std::string& text, const std::string& piece, const std::string& other)
{
    const std::size_t place = text.find(piece);
    EXPECT_NE(place, std::string::npos) << piece;
    EXPECT_EQ(text.find(piece, place + 1), std::string::npos) << piece;
    return place == std::string::npos ? text
                                      : text.substr(0, place) + other + text.substr(place + piece.size());
}
