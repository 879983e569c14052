#include "out/html.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using namespace companion;

TEST(Html, CharactersOfMarkupAreEscaped)
{
    EXPECT_EQ(escaped("a<b>&\"'c"), "a&lt;b&gt;&amp;&quot;&#39;c");
    EXPECT_EQ(escaped("&lt;"), "&amp;lt;");
    EXPECT_EQ(escaped("\xc3\x9c\xe2\x82\xac\xf0\x9f\x9a\x80"), "\xc3\x9c\xe2\x82\xac\xf0\x9f\x9a\x80");
}

TEST(Html, BytesThatAPageMustNotHoldAreShownByTheirNumbers)
{
    EXPECT_EQ(escaped("\xe9"), "\\xE9");
    EXPECT_EQ(escaped(std::string("a\0\x1b\x7f", 4)), "a\\x00\\x1B\\x7F");
    EXPECT_EQ(escaped("\xc2\x80\xc2\x9f"), "\\xC2\\x80\\xC2\\x9F");
    EXPECT_EQ(escaped("\xef\xbf\xbe\xef\xbf\xbf\xef\xb7\x90"),
              "\\xEF\\xBF\\xBE\\xEF\\xBF\\xBF\\xEF\\xB7\\x90");
    EXPECT_EQ(escaped("\xf0\x9f\xbf\xbe"), "\\xF0\\x9F\\xBF\\xBE");
}

TEST(Html, NeighboursOfWhatAPageMustNotHoldStay)
{
    for (const std::string text : {"\xc2\xa0", "\xef\xbf\xbd", "\xef\xb7\x8f", "\xef\xb7\xb0",
                                   "\xf0\x9f\xbf\xbd", "\xf0\x9e\xbf\xbe", "\xee\xbf\xbe"})
    {
        EXPECT_EQ(escaped(text), text);
    }
}

TEST(Html, ElementsEndInTheOrderOfTheirBlocks)
{
    Html page;
    {
        const Html::Element list = page.in("ul", {{"class", "a\"b"}});
        const Html::Element item = page.in("li");
        page.add("b", {}, "1 < 2");
        page.text(" & 3");
    }
    page.addAlone("meta", {{"charset", "utf-8"}});
    EXPECT_EQ(page.bytes(), "<ul class=\"a&quot;b\"><li><b>1 &lt; 2</b> &amp; 3</li>\n</ul>\n"
                            "<meta charset=\"utf-8\">\n");
}

TEST(Html, NamesKeepTheirDirectionToThemselves)
{
    Html page;
    page.name("\xe2\x80\xae<x>");
    EXPECT_EQ(page.bytes(), "<bdi>\xe2\x80\xae&lt;x&gt;</bdi>");
}

} // namespace
