#include "config/key_table.h"

#include "support/child_process.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace tavelinUtils;

namespace {

enum class Colour : int
{
    unknown = 7,
    red = 1
};

Colour colourOf(std::string word)
{
    return word == "red" ? Colour::red : Colour::unknown;
}

struct Lamp
{
    double power = 1.5;
    int count = 2;
    short floor = 3;
    bool on = true;
    std::string name = "lamp";
    std::vector<std::string> rooms{};
    Colour colour{};
    std::string calls{}; ///< one letter for each call of a function of the table
};

void countA(Lamp& lamp, std::string text)
{
    lamp.calls += "a(" + text + ")";
}

void countB(Lamp& lamp, std::string text)
{
    lamp.calls += "b(" + text + ")";
}

constexpr KeyRow<Lamp> lampKeys[] = {
    {"Power", &Lamp::power},
    {"Count", &Lamp::count},
    {"Floor", &Lamp::floor},
    {"On", &Lamp::on},
    {"Name", &Lamp::name},
    {"Rooms", &Lamp::rooms},
    {"Colour", through<colourOf, &Lamp::colour>},
    {"A", countA},
    {"B", countB},
};

constexpr KeyRow<Lamp> roomsByPath[] = {{"Rooms", &Lamp::rooms, "path"}};

/// Reads the inside of a section by the rows into a lamp.
template <std::size_t count>
void read(const std::string& inside, const KeyRow<Lamp> (&rows)[count], Lamp& lamp)
{
    TiXmlBase::SetCondenseWhiteSpace(false);
    TiXmlDocument document;
    document.Parse(("<section>" + inside + "</section>").c_str());
    ASSERT_FALSE(document.Error()) << inside;
    readKeys(document.FirstChildElement(), rows, lamp);
}

Lamp lampOf(const std::string& inside)
{
    Lamp lamp;
    read(inside, lampKeys, lamp);
    return lamp;
}

void expectUntouched(const Lamp& lamp)
{
    EXPECT_EQ(lamp.power, 1.5);
    EXPECT_EQ(lamp.count, 2);
    EXPECT_EQ(lamp.floor, 3);
    EXPECT_TRUE(lamp.on);
    EXPECT_EQ(lamp.name, "lamp");
    EXPECT_EQ(lamp.rooms, std::vector<std::string>{});
    EXPECT_EQ(lamp.colour, Colour{});
    EXPECT_EQ(lamp.calls, "");
}

} // namespace

TEST(KeyTable, EveryKindOfTarget)
{
    const Lamp lamp = lampOf("<Power>60.25</Power><Count>12</Count><Floor>-4</Floor><On>false</On>"
                             "<Name>desk lamp</Name><Rooms><string>one</string><string>two</string></Rooms>"
                             "<Colour>red</Colour><A>x</A>");
    EXPECT_EQ(lamp.power, 60.25);
    EXPECT_EQ(lamp.count, 12);
    EXPECT_EQ(lamp.floor, -4);
    EXPECT_FALSE(lamp.on);
    EXPECT_EQ(lamp.name, "desk lamp");
    EXPECT_EQ(lamp.rooms, (std::vector<std::string>{"one", "two"}));
    EXPECT_EQ(lamp.colour, Colour::red);
    EXPECT_EQ(lamp.calls, "a(x)");
}

TEST(KeyTable, AMissingSectionChangesNothing)
{
    Lamp lamp;
    readKeys(nullptr, lampKeys, lamp);
    expectUntouched(lamp);
}

TEST(KeyTable, AMissingKeyLeavesItsMember)
{
    expectUntouched(lampOf(""));
    expectUntouched(lampOf("<power>2</power><Other>3</Other><In><Count>9</Count></In>"));
}

TEST(KeyTable, AnEmptyKeyLeavesItsMemberAndCallsNothing)
{
    expectUntouched(lampOf("<Power/><Count></Count><Floor/><On/><Name/><Rooms/><Colour/><A/><B></B>"));
    expectUntouched(lampOf("<Name>  </Name><Colour> </Colour><A>\n</A>"));
}

TEST(KeyTable, AnEmptyCdataSectionIsAValue)
{
    const Lamp lamp = lampOf("<Power><![CDATA[]]></Power><Count><![CDATA[]]></Count><On><![CDATA[]]></On>"
                             "<Name><![CDATA[]]></Name><Colour><![CDATA[]]></Colour><A><![CDATA[]]></A>");
    EXPECT_EQ(lamp.power, 0.0);
    EXPECT_EQ(lamp.count, 0);
    EXPECT_FALSE(lamp.on);
    EXPECT_EQ(lamp.name, "");
    EXPECT_EQ(lamp.colour, Colour::unknown);
    EXPECT_EQ(lamp.calls, "a()");
}

TEST(KeyTable, ATextThatIsNoNumberIsZero)
{
    const Lamp lamp = lampOf("<Power>much</Power><Count>many</Count><Floor>top</Floor><On>TRUE</On>");
    EXPECT_EQ(lamp.power, 0.0);
    EXPECT_EQ(lamp.count, 0);
    EXPECT_EQ(lamp.floor, 0);
    EXPECT_FALSE(lamp.on);
}

TEST(KeyTable, IntegersAreCutToTheirMembers)
{
    const Lamp lamp = lampOf("<Count>4294967297</Count><Floor>65537</Floor>");
    EXPECT_EQ(lamp.count, 1);
    EXPECT_EQ(lamp.floor, 1);
}

TEST(KeyTable, OfTwoKeysTheFirstCounts)
{
    const Lamp lamp = lampOf("<Count>1</Count><Count>2</Count><Rooms><string>one</string></Rooms>"
                             "<Rooms><string>two</string></Rooms><A>x</A><A>y</A>");
    EXPECT_EQ(lamp.count, 1);
    EXPECT_EQ(lamp.rooms, std::vector<std::string>{"one"});
    EXPECT_EQ(lamp.calls, "a(x)");
}

TEST(KeyTable, KeysAreReadInTheOrderOfTheTable)
{
    EXPECT_EQ(lampOf("<B>2</B><A>1</A>").calls, "a(1)b(2)");
}

TEST(KeyTable, AWordGoesThroughItsConversion)
{
    EXPECT_EQ(lampOf("<Colour>red</Colour>").colour, Colour::red);
    EXPECT_EQ(lampOf("<Colour> red</Colour>").colour, Colour::unknown);
    EXPECT_EQ(lampOf("<Colour>blue</Colour>").colour, Colour::unknown);
}

TEST(KeyTable, ListsAreAppendedTo)
{
    Lamp lamp;
    lamp.rooms = {"hall"};
    read("<Rooms><string>one</string><other>no</other><string>two</string></Rooms>", lampKeys, lamp);
    EXPECT_EQ(lamp.rooms, (std::vector<std::string>{"hall", "one", "two"}));
    read("<Rooms><string>three</string></Rooms>", lampKeys, lamp);
    EXPECT_EQ(lamp.rooms, (std::vector<std::string>{"hall", "one", "two", "three"}));
}

TEST(KeyTable, ItemsOfAListHaveTheNameOfTheRow)
{
    const std::string rooms = "<Rooms><string>one</string><path>two</path></Rooms>";
    Lamp lamp;
    read(rooms, roomsByPath, lamp);
    EXPECT_EQ(lamp.rooms, std::vector<std::string>{"two"});
    EXPECT_EQ(lampOf(rooms).rooms, std::vector<std::string>{"one"});
}

TEST(KeyTable, AListOfOtherItemsLeavesTheMember)
{
    EXPECT_EQ(lampOf("<Rooms><path>one</path>text</Rooms>").rooms, std::vector<std::string>{});
    EXPECT_EQ(lampOf("<Rooms>one</Rooms>").rooms, std::vector<std::string>{});
}

TEST(KeyTable, AnEmptyItemOfAListNeverReturns)
{
    for (const char* inside :
         {"<Rooms><string/></Rooms>", "<Rooms><string>one</string><string></string></Rooms>"})
    {
        SCOPED_TRACE(inside);
        const ChildEnd end = runInChild([inside] { lampOf(inside); }, endlessAfter);
        EXPECT_TRUE(end.timedOut);
    }
}
