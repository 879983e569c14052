// Parses the two documents that a TinyXML without its published fixes does not survive: with "end" the first,
// which stops it at an assertion (CVE-2023-34194), without it the second, in which it never comes to an end
// (CVE-2021-42260).

#include <tinyxml.h>

int main(int argc, char** /*argv*/)
{
    static const char endInDeclaration[] = "<?xml \0\0\0";
    static const char zeroInCharacter[] = "<a>\xEFx\0<b/></a>\0\0\0";
    TiXmlDocument document;
    document.Parse(argc > 1 ? endInDeclaration : zeroInCharacter, nullptr, TIXML_ENCODING_UTF8);
    return 0;
}
