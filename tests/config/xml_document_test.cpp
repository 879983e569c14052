#include "config/xml_document.h"

#include "support/broken_files.h"
#include "support/child_process.h"
#include "support/failed_writes.h"
#include "support/system_faults.h"
#include "support/temporary_folder.h"
#include "support/texts.h"
#include "support/xml_documents.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <string>
#include <type_traits>
#include <vector>

#include <malloc.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace tavelinUtils;

namespace {

using Texts = std::vector<std::string>;

bool loads(const std::string& bytes)
{
    return Loaded(bytes).loads;
}

/// Loads the bytes in a child process, so that an overflow of the stack ends only that one.
ChildEnd loadInChild(const std::string& bytes)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", bytes);
    return runInChild(
        [&folder] {
            TtavelinXmlDocument document(folder / "a.xml");
            _exit(document.LoadFile() ? 1 : 2);
        },
        60);
}

void expectLoadsInChild(const std::string& bytes, bool expected)
{
    const ChildEnd end = loadInChild(bytes);
    EXPECT_FALSE(end.timedOut);
    EXPECT_EQ(end.signal, 0);
    EXPECT_EQ(end.exitStatus, expected ? 1 : 2) << end.output.substr(0, 500);
}

std::string withAttributes(int count)
{
    std::string text = "<a";
    for (int i = 0; i < count; ++i) {
        text += " x" + std::to_string(i) + "='1'";
    }
    return text + "/>";
}

} // namespace

TEST(XmlDocument, KeepsItsPathAndSwitchesCondensingOff)
{
    TiXmlBase::SetCondenseWhiteSpace(true);
    const TtavelinXmlDocument document("some/path.xml");
    EXPECT_EQ(document.fileName, "some/path.xml");
    EXPECT_STREQ(document.Value(), "some/path.xml");
    EXPECT_FALSE(TiXmlBase::IsWhiteSpaceCondensed());
    EXPECT_EQ(document.FirstChild(), nullptr);
    static_assert(std::is_base_of_v<TiXmlDocument, TtavelinXmlDocument>);
    static_assert(!std::is_convertible_v<std::string, TtavelinXmlDocument>);
}

TEST(XmlDocument, CondensingStaysOffAfterLoading)
{
    const Loaded file("<R><K>  a  b  </K></R>");
    ASSERT_TRUE(file.loads);
    EXPECT_FALSE(TiXmlBase::IsWhiteSpaceCondensed());
    EXPECT_EQ(valueOf<std::string>("  a  b  ", ""), "  a  b  ");
}

TEST(XmlDocument, LoadsElementsInTheirOrder)
{
    const Loaded file("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<!-- a comment -->\n"
                      "<task>\n  <one>1</one>\n  <two a=\"x\" b='y'/>\n</task>\n");
    ASSERT_TRUE(file.loads);
    ASSERT_NE(file.root(), nullptr);
    EXPECT_STREQ(file.root()->Value(), "task");
    const TiXmlElement* one = file.root()->FirstChildElement();
    ASSERT_NE(one, nullptr);
    EXPECT_STREQ(one->Value(), "one");
    EXPECT_STREQ(one->GetText(), "1");
    const TiXmlElement* two = one->NextSiblingElement();
    ASSERT_NE(two, nullptr);
    EXPECT_STREQ(two->Attribute("a"), "x");
    EXPECT_STREQ(two->Attribute("b"), "y");
    EXPECT_EQ(two->NextSiblingElement(), nullptr);
}

TEST(XmlDocument, LoadsWhatTheLibraryTakes)
{
    const std::string documents[] = {
        "<a/>",
        "<a></a>",
        "  \r\n\t<a/>\n\n",
        "\xef\xbb\xbf<a/>",
        "<a/><b/>",
        "<a/>text behind",
        "<!DOCTYPE a><a/>",
        "<!-- <b> --><a/>",
        "<a><![CDATA[ <b> ]]></a>",
        "<a b='<c>'/>",
        "<a b=c/>",
        "<a b=/>",
        "<a><?target data?></a>",
        "<a>&unknown;</a>",
        "<a>a > b</a>",
    };
    for (const std::string& document : documents) {
        EXPECT_TRUE(loads(document)) << document;
    }
}

TEST(XmlDocument, MissingFilesAndFoldersDoNotLoad)
{
    const TemporaryFolder folder;
    for (const std::string& path :
         {folder / "missing.xml", folder / "missing/a.xml", folder.path(), std::string()})
    {
        SCOPED_TRACE(path);
        TtavelinXmlDocument document(path);
        EXPECT_FALSE(document.LoadFile());
        EXPECT_EQ(document.FirstChildElement(), nullptr);
    }
    EXPECT_FALSE(exists(folder / "missing.xml"));
}

// The address sanitizer ends the process itself where memory runs out.
#if !defined(VOMAR_SANITIZED)
namespace {

void limitMemory(std::size_t bytes)
{
    const rlimit limit{bytes, bytes};
    setrlimit(RLIMIT_AS, &limit);
}

std::size_t memoryInUse()
{
    return std::stoul(bytesOf("/proc/self/statm")) * static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
}

} // namespace

TEST(XmlDocument, FileThatTheMemoryDoesNotHoldDoesNotLoadAndIsTold)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<root/>");
    std::filesystem::resize_file(folder / "a.xml", std::uintmax_t{1} << 31);
    expectTrueInChild([&folder] {
        limitMemory(std::size_t{1} << 30);
        TtavelinXmlDocument document(folder / "a.xml");
        return !document.LoadFile() && document.readFailed();
    });
}

TEST(XmlDocument, DocumentThatTheMemoryDoesNotHoldAsTextIsNotSavedAndItsFileStays)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "old");
    expectTrueInChild([&folder] {
        TtavelinXmlDocument document(folder / "a.xml");
        document.LinkEndChild(setTextNode("a", std::string(std::size_t{400} << 20, 'x'), ""));
        limitMemory(std::size_t{1} << 30);
        return !document.SaveFile();
    });
    EXPECT_EQ(bytesOf(folder / "a.xml"), "old");
}

// Whether it is the library's text of a value that finds no memory, the piece that is printed or the text of
// all.
TEST(XmlDocument, IsSavedWholeOrNotAtAllWhateverMemoryThereIs)
{
    const TemporaryFolder folder;
    const std::string value(std::size_t{7} << 20, 'x');
    std::size_t saved = 0;
    std::size_t refused = 0;
    for (std::size_t more = 2; more <= 48; more += 2) {
        makeFile(folder / "a.xml", "old");
        const int status = statusOfChild([&] {
            mallopt(M_MMAP_THRESHOLD, 1 << 17); // what earlier tests have given back is not used again
            TtavelinXmlDocument document(folder / "a.xml");
            document.LinkEndChild(setTextNode("a", value, ""));
            limitMemory(memoryInUse() + (more << 20));
            _exit(document.SaveFile() ? 2 : 3);
        });
        const bool isSaved = status == 2 << 8;
        EXPECT_TRUE(isSaved || status == 3 << 8) << more << ": " << status;
        EXPECT_EQ(bytesOf(folder / "a.xml") == "<a>" + value + "</a>\n", isSaved) << more;
        EXPECT_EQ(bytesOf(folder / "a.xml") == "old", !isSaved) << more;
        ++(isSaved ? saved : refused);
    }
    EXPECT_GT(saved, 0u);
    EXPECT_GT(refused, 0u);
}
#endif

TEST(XmlDocument, FileThatGoesBeforeItIsOpenedDoesNotLoad)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<root/>");
    const int status = statusOfChild([&folder] {
        TtavelinXmlDocument document(folder / "a.xml");
        setFaults({{SYS_openat, ENOENT}});
        _exit(document.LoadFile() || document.readFailed() ? 1 : 0);
    });
    EXPECT_EQ(status, 0);
}

TEST(XmlDocument, DocumentsWithoutAnElementDoNotLoad)
{
    const std::string documents[] = {
        "",
        " ",
        "\n\r\n\t",
        "text",
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>",
        "<?xml version=\"1.0\"?>\n",
        "<!-- a comment -->",
        "<?xml version=\"1.0\"?><!-- a comment -->\n",
        "<!DOCTYPE a>",
        "\xef\xbb\xbf",
        "\xef\xbb\xbf<?xml version=\"1.0\"?>",
        "<?target data?>",
        "< a/>",
        std::string("\0", 1),
        std::string("\0<a/>", 5),
        std::string("\x7f"
                    "ELF\x02\x01\x01\0\0",
                    9),
        std::string(5000, '\xff'),
        "<",
        "</a>",
    };
    for (const std::string& document : documents) {
        EXPECT_FALSE(loads(document)) << document;
    }
}

TEST(XmlDocument, BrokenDocumentsDoNotLoad)
{
    const std::string documents[] = {
        "<a>",      "<a><b></a>",        "<a></b>",      "<a b='1' b='2'/>", "<a b='1>",
        "<a b/>",   "<a><![CDATA[x</a>", "<a><!-- </a>", "<a>&lt;",          "<a/",
        "<a b='1'", "<a><b/>",           "<a>text",      "<a></a",           "<a></",
    };
    for (const std::string& document : documents) {
        EXPECT_FALSE(loads(document)) << document;
    }
}

TEST(XmlDocument, NoPrefixOfADocumentLoads)
{
    const std::string document =
        "<?xml version=\"1.0\"?><!-- c --><task a='1'><K min=\"2\">t&amp;x</K><![CDATA[y]]><e/></task>";
    EXPECT_TRUE(loads(document));
    for (std::size_t length = 0; length < document.size(); ++length) {
        EXPECT_FALSE(loads(document.substr(0, length))) << document.substr(0, length);
    }
}

TEST(XmlDocument, ZeroByteEndsTheDocument)
{
    EXPECT_TRUE(loads(std::string("<a/>\0<b>", 8)));
    EXPECT_FALSE(loads(std::string("<a>\0</a>", 8)));
    EXPECT_FALSE(loads(std::string("<a>1</a\0>", 9)));
    const Loaded file(std::string("<R><K>1</K></R>\0<R><K>2</K></R>", 31));
    ASSERT_TRUE(file.loads);
    EXPECT_EQ(file.root()->NextSibling(), nullptr);
}

TEST(XmlDocument, LeadByteOfALetterAsLastByteReadsNothingBehindTheFile)
{
    for (const std::string lead : {"\xc3", "\xe0", "\xef", "\xf0", "\xf4", "\xff"}) {
        SCOPED_TRACE(static_cast<int>(static_cast<unsigned char>(lead[0])));
        for (const std::string declaration : {"", "<?xml version='1.0'?>", "\xef\xbb\xbf"}) {
            for (const std::string front :
                 {"", "<", "<a", "<a>", "<a>x", "<a b", "<a b=", "<a b='", "<a b='1'", "<!--", "<a><![CDATA[",
                  "<?", "<!", "<a>&", "</", "<a></a"})
            {
                EXPECT_FALSE(loads(declaration + front + lead)) << declaration << front;
            }
        }
        EXPECT_TRUE(loads("<a/>" + lead));
    }
}

TEST(XmlDocument, LineEndsOfBothKindsReadAsLineFeeds)
{
    const Loaded file("<?xml version=\"1.0\"?>\r\n<R>\r\n  <K>one\r\ntwo\rthree\nfour</K>\r\n  <L "
                      "a=\"x\r\ny\"/>\r\n</R>\r\n");
    ASSERT_TRUE(file.loads);
    std::string text;
    GetText(file.root(), "K", text);
    EXPECT_EQ(text, "one\ntwo\nthree\nfour");
    std::string attribute;
    GetAttr(file.root(), "L", "a", attribute);
    EXPECT_EQ(attribute, "x\ny");
}

TEST(XmlDocument, ThousandLevelsLoadAndOneMoreDoesNot)
{
    expectLoadsInChild(nested(999), true);
    expectLoadsInChild(nested(1000), true);
    expectLoadsInChild(nested(1001), false);
}

TEST(XmlDocument, VeryDeepDocumentsAreRefusedBeforeTheStackOverflows)
{
    expectLoadsInChild(nested(100000), false);
    expectLoadsInChild(repeated("<a>", 1000000), false);
    expectLoadsInChild("<?xml version=\"1.0\"?>\n<!-- c -->\n" + repeated("<a b='1'>\n ", 100000), false);
    expectLoadsInChild("\xef\xbb\xbf" + repeated("<a>x", 100000), false);
    // The entity goes from its "&" to its ";" and takes the end tag in.
    expectLoadsInChild(repeated("<a>&#x</a>&#x41;", 200000), false);
}

TEST(XmlDocument, LevelsThatAreClosedDoNotCount)
{
    expectLoadsInChild("<r>" + repeated("<a><b/></a>", 30000) + "</r>", true);
    expectLoadsInChild("<r>" + nested(999) + nested(999) + "</r>", true);
    expectLoadsInChild(
        "<r><!--" + repeated("<a>", 20000) + "--><![CDATA[" + repeated("<a>", 20000) + "]]></r>", true);
}

TEST(XmlDocument, TenThousandAttributesLoadAndOneMoreDoesNot)
{
    EXPECT_TRUE(loads(withAttributes(10000)));
    EXPECT_FALSE(loads(withAttributes(10001)));
    EXPECT_FALSE(loads("<r><x/>" + withAttributes(10001) + "</r>"));
    EXPECT_TRUE(loads("<r>" + withAttributes(6000) + withAttributes(6000) + "</r>"));
}

TEST(XmlDocument, ManyAttributesAreRefusedInTime)
{
    expectLoadsInChild(withAttributes(1000000), false);
}

// A device need not end, and a pipe without a writer need not begin.
TEST(XmlDocument, WhatIsNoRegularFileIsAFailedLoadAtOnce)
{
    const TemporaryFolder folder;
    ASSERT_EQ(mkfifo((folder / "pipe.xml").c_str(), 0600), 0);
    for (const std::string& path :
         {folder.path(), folder / "pipe.xml", std::string("/dev/zero"), std::string("/dev/null")})
    {
        SCOPED_TRACE(path);
        expectTrueInChild([&path] {
            TtavelinXmlDocument document(path);
            return !document.LoadFile() && !document.readFailed();
        });
    }
}

TEST(XmlDocument, FileThatCannotBeReadToItsEndFailsAndTellsIt)
{
    TtavelinXmlDocument document(brokenFile);
    EXPECT_FALSE(document.LoadFile());
    EXPECT_TRUE(document.readFailed());
}

TEST(XmlDocument, BrokenAndMissingDocumentsWereRead)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", "<a>");
    TtavelinXmlDocument broken(folder / "a.xml");
    EXPECT_FALSE(broken.LoadFile());
    EXPECT_FALSE(broken.readFailed());
    TtavelinXmlDocument missing(folder / "b.xml");
    EXPECT_FALSE(missing.LoadFile());
    EXPECT_FALSE(missing.readFailed());
}

TEST(XmlDocument, SavesWhatWasLoaded)
{
    const Loaded file(
        "<?xml version='1.0' encoding='UTF-8'?><task a='1' b='\"'><K>a &lt; b</K><!--c--><e></e>"
        "<deep><L>  x </L></deep></task>");
    ASSERT_TRUE(file.loads);
    file.document->fileName = file.folder / "b.xml";
    EXPECT_TRUE(file.document->SaveFile());
    EXPECT_EQ(bytesOf(file.folder / "b.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\" ?>\n"
                                              "<task a=\"1\" b='&quot;'>\n"
                                              "    <K>a &lt; b</K>\n"
                                              "    <!--c-->\n"
                                              "    <e />\n"
                                              "    <deep>\n"
                                              "        <L>  x </L>\n"
                                              "    </deep>\n"
                                              "</task>\n");
}

TEST(XmlDocument, SavesTheBytesOfTheLibrary)
{
    const std::string documents[] = {
        "<a/>",
        "\xef\xbb\xbf<a><b>\xd1\x81</b></a>",
        "<?xml version='1.0' encoding='ISO-8859-1' standalone='yes'?><a>\xe9&#233;</a>",
        "<a>text<b/>more<c>x</c></a>",
        "<a><![CDATA[ <x> & ]]></a>",
        "<!DOCTYPE a><a b='\"' c=\"'\">\x01&#x0A;</a><!--end-->",
        "<a><?target data?></a><b/>",
    };
    for (const std::string& text : documents) {
        SCOPED_TRACE(text);
        const Loaded file(text);
        ASSERT_TRUE(file.loads);
        file.document->fileName = file.folder / "ours.xml";
        EXPECT_TRUE(file.document->SaveFile());
        std::FILE* stream = std::fopen((file.folder / "library.xml").c_str(), "w");
        ASSERT_NE(stream, nullptr);
        EXPECT_TRUE(static_cast<const TiXmlDocument&>(*file.document).SaveFile(stream));
        EXPECT_EQ(std::fclose(stream), 0);
        EXPECT_EQ(bytesOf(file.folder / "ours.xml"), bytesOf(file.folder / "library.xml"));
    }
}

TEST(XmlDocument, SavingReplacesTheFile)
{
    const TemporaryFolder folder;
    makeFile(folder / "a.xml", std::string(3000, 'x'));
    TtavelinXmlDocument document(folder / "a.xml");
    document.LinkEndChild(new TiXmlElement("R"));
    EXPECT_TRUE(document.SaveFile());
    EXPECT_EQ(bytesOf(folder / "a.xml"), "<R />\n");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

TEST(XmlDocument, SavingIsFalseWhereTheFileCannotBeWritten)
{
    forUnwritablePaths([](const std::string& path) {
        TtavelinXmlDocument document(path);
        document.LinkEndChild(new TiXmlElement("R"));
        EXPECT_FALSE(document.SaveFile());
    });
    TtavelinXmlDocument document("");
    document.LinkEndChild(new TiXmlElement("R"));
    EXPECT_FALSE(document.SaveFile());
}

TEST(XmlDocument, LargeDocumentComesBackAsItWent)
{
    const TemporaryFolder folder;
    {
        TtavelinXmlDocument document(folder / "a.xml");
        auto* root = new TiXmlElement("R");
        document.LinkEndChild(root);
        for (int i = 0; i < 20000; ++i) {
            writeRecord(root, "K", i, "");
        }
        ASSERT_TRUE(document.SaveFile());
    }
    TtavelinXmlDocument document(folder / "a.xml");
    ASSERT_TRUE(document.LoadFile());
    Texts items;
    TiXmlElement holder("holder");
    holder.InsertEndChild(*document.FirstChildElement());
    GetList(&holder, "K", "R", items);
    ASSERT_EQ(items.size(), 20000u);
    EXPECT_EQ(items.front(), "0");
    EXPECT_EQ(items.back(), "19999");
}

TEST(XmlEncoding, DeclaredEncodingTellsWhatAByteIs)
{
    struct Row
    {
        std::string head, text, expected;
    };
    const std::string mark = "\xef\xbb\xbf";
    const std::string plain = "<?xml version='1.0'?>";
    const std::string utf8 = "<?xml version='1.0' encoding='UTF-8'?>";
    const std::string latin1 = "<?xml version='1.0' encoding='ISO-8859-1'?>";
    const Row rows[] = {
        {utf8, "\xd1\x81", "\xd1\x81"}, {utf8, "&#233;", "\xc3\xa9"},
        {utf8, "&#xE9;", "\xc3\xa9"},   {utf8, "\xe2\x82\xac", "\xe2\x82\xac"},
        {plain, "&#233;", "\xc3\xa9"},  {mark, "&#233;", "\xc3\xa9"},
        {latin1, "caf\xe9", "caf\xe9"}, {latin1, "\xe0\xf0\xff", "\xe0\xf0\xff"},
        {latin1, "&#233;", "\xe9"},     {latin1, "\xd1\x81", "\xd1\x81"},
        {"", "caf\xe9", "caf\xe9"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.head + row.text);
        const Loaded file(row.head + "<R a='" + row.text + "'><K>" + row.text + "</K></R>");
        ASSERT_TRUE(file.loads);
        std::string text;
        GetText(file.root(), "K", text);
        EXPECT_EQ(text, row.expected);
        EXPECT_STREQ(file.root()->Attribute("a"), row.expected.c_str());
    }
}

// In a document of UTF-8 the byte begins a letter of three and takes the end tag's first two in.
TEST(XmlEncoding, ByteOfLatin1BeforeATagBreaksADocumentOfUtf8)
{
    EXPECT_FALSE(loads("<?xml version='1.0' encoding='UTF-8'?><R><K>caf\xe9</K></R>"));
    EXPECT_FALSE(loads("<?xml version='1.0'?><R><K>caf\xe9</K></R>"));
}
