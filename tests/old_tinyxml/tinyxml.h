// A TinyXML as old as its faults: it never comes to an end of the one document, and stops at the other.

#pragma once

#include <cstdlib>
#include <cstring>

enum TiXmlEncoding
{
    TIXML_ENCODING_UTF8
};

class TiXmlDocument
{
public:
    const char* Parse(const char* text, void* /*data*/, TiXmlEncoding /*encoding*/)
    {
        if (std::strncmp(text, "<?xml", 5) == 0) {
            std::abort();
        }
        for (volatile bool isStuck = true; isStuck;) {
        }
        return nullptr;
    }
};
