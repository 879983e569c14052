#include "out/finding_json.h"
#include "out/json.h"

#include <gtest/gtest.h>

#include <limits>
#include <sstream>
#include <string>

namespace {

using namespace companion;

TEST(Json, KeysKeepTheirOrder)
{
    EXPECT_EQ(Json::object().set("b", 1).set("a", "x").set("c", true).set("d", Json()).text(),
              R"({"b":1,"a":"x","c":true,"d":null})");
}

TEST(Json, NumbersThatAreNoneAreNamed)
{
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_EQ(Json::list()
                  .push(1.5)
                  .push(std::numeric_limits<double>::quiet_NaN())
                  .push(infinity)
                  .push(-infinity)
                  .text(),
              R"([1.5,"nan","inf","-inf"])");
}

TEST(Json, BytesThatAreNotUtf8AreReplacedAndGivenInBase16)
{
    Json object = Json::object();
    setBytes(object, "file", "n\xe9.mea");
    EXPECT_EQ(object.text(), "{\"file\":\"n\xef\xbf\xbd.mea\",\"bytes\":\"6ee92e6d6561\"}");
}

TEST(Json, TextsAreEscaped)
{
    EXPECT_EQ(Json("a\"b\\c\n\x01").text(), R"("a\"b\\c\n\u0001")");
}

TEST(Json, CopiesAreValues)
{
    Json first = Json::list();
    const Json second = first;
    first.push(1);
    EXPECT_EQ(second.text(), "[]");
}

TEST(JsonDocument, StartsWithItsSchemaAndEndsWithALineFeed)
{
    std::ostringstream stream;
    JsonDocument document(stream, "tavelin.check/1");
    document.openList("tasks");
    document.element(Json::object().set("task", "a.xml"));
    document.element(1);
    document.closeList();
    document.set("exit", 0);
    document.finish();
    EXPECT_EQ(stream.str(),
              "{\"schema\":\"tavelin.check/1\",\"tasks\":[{\"task\":\"a.xml\"},1],\"exit\":0}\n");
}

TEST(JsonDocument, ListMayBeEmpty)
{
    std::ostringstream stream;
    JsonDocument document(stream, "tavelin.check/1");
    document.openList("tasks");
    document.closeList();
    document.set("exit", 0);
    document.finish();
    EXPECT_EQ(stream.str(), "{\"schema\":\"tavelin.check/1\",\"tasks\":[],\"exit\":0}\n");
}

TEST(FindingJson, HasTheMembersThatAreKnown)
{
    Finding found = finding("V005", {{"file", "a"}}).in("t.xml").at(3, 5).times(2);
    FindingPlace place;
    place.line = 7;
    place.column = 1;
    place.length = 4;
    place.field = "declination";
    found.places.push_back(place);
    EXPECT_EQ(
        findingJson(found).text(),
        R"({"code":"V005","severity":"error","file":"t.xml","line":3,"column":5,"text":"a is the input itself",)"
        R"("count":2,"places":[{"line":7,"column":1,"length":4,"field":"declination"}]})");
}

TEST(FindingJson, MarkOfATask)
{
    Finding found = finding("V013").in("t.xml");
    FindingPlace place;
    place.mark = {2, "night", 0, "Z6433", 1, "2010-11-06T04:30:13.824"};
    found.places.push_back(place);
    EXPECT_EQ(findingJson(found).text().substr(findingJson(found).text().find("\"places\"")),
              R"("places":[{"series":2,"folder":"night","track":0,"object":"Z6433","mark":1,)"
              R"("time":"2010-11-06T04:30:13.824"}]})");
}

TEST(ReadJson, ValuesAreFoundByKeyAndPlace)
{
    const ReadJson json(R"({"a":[1,-2,"x\u00e9"],"b":{"c":true},"d":9223372036854775807,"e":null})");
    const JsonView root = json.root();
    EXPECT_EQ(root.size(), 4U);
    EXPECT_EQ(root["a"].size(), 3U);
    EXPECT_TRUE(root["a"].isList());
    EXPECT_EQ(root["a"][1].integer(), -2);
    EXPECT_EQ(root["a"][2].text(), "x\xC3\xA9");
    EXPECT_TRUE(root["b"]["c"].isTrue());
    EXPECT_EQ(root["d"].integer(), 9223372036854775807);
    EXPECT_EQ(root["b"].value().text(), R"({"c":true})");
}

TEST(ReadJson, WhatIsMissingOrOfAnotherKindIsEmpty)
{
    const ReadJson json(R"({"a":"1","b":[2.5]})");
    const JsonView root = json.root();
    EXPECT_FALSE(root["c"]["d"][7]);
    EXPECT_EQ(root["a"].integer(5), 5);
    EXPECT_EQ(root["b"][0].integer(5), 5);
    EXPECT_EQ(root["b"].text(), "");
    EXPECT_FALSE(root["a"].isList());
    EXPECT_FALSE(root["a"].isTrue());
    EXPECT_EQ(root["c"].value().text(), "null");
    EXPECT_FALSE(root["a"][0]);
    EXPECT_FALSE(root["b"][1]);
    EXPECT_EQ(root["a"].size(), 0U);
    EXPECT_FALSE(root["c"].isList());
    EXPECT_FALSE(root["c"].isTrue());
}

TEST(ReadJson, WhatIsFalseIsNotTrue)
{
    EXPECT_FALSE(ReadJson("false").root().isTrue());
}

TEST(ReadJson, TextThatIsNoJsonHasNoValue)
{
    for (const char* const text : {"", "{", "{\"a\":}", "{} x"}) {
        EXPECT_FALSE(ReadJson(text).root()) << text;
    }
}

TEST(JsonLeaves, ANumberThatNoDoubleHoldsIsAFault)
{
    EXPECT_EQ(jsonLeaves(R"({"a":[1e999]})").fault, "has a number that is too large");
    EXPECT_EQ(jsonLeaves("-1e30800000000000").fault, "has a number that is too large");
    EXPECT_EQ(jsonLeaves(R"({"a":[1e308]})").fault, "");
}

TEST(JsonLeaves, AFaultHasItsPlace)
{
    EXPECT_EQ(jsonLeaves("").fault, "is not well-formed JSON in line 1, column 1");
    EXPECT_EQ(jsonLeaves("{\n  \"a\": ]}").fault, "is not well-formed JSON in line 2, column 8");
}

TEST(ReadJson, BytesComeBackAsTheyWere)
{
    for (const std::string text : {"plain", "caf\xE9", "\xC3\xBC"}) {
        Json object = Json::object();
        setBytes(object, "path", text);
        const ReadJson json(object.text());
        EXPECT_EQ(bytesMember(json.root(), "path"), text);
    }
}

} // namespace
