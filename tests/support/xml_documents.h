// XML documents of a test, loaded from a file.

#pragma once

#include "config/xml_document.h"

#include "support/temporary_folder.h"
#include "support/texts.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

/// A document of the bytes, loaded from a file.
class Loaded
{
public:
    explicit Loaded(const std::string& bytes)
    {
        makeFile(folder / "a.xml", bytes);
        document = std::make_unique<tavelinUtils::TtavelinXmlDocument>(folder / "a.xml");
        loads = document->LoadFile();
    }
    TiXmlElement* root() const
    {
        return document->FirstChildElement();
    }

    TemporaryFolder folder;
    std::unique_ptr<tavelinUtils::TtavelinXmlDocument> document;
    bool loads = false;
};

/// An element <R><K>...</K></R> and the value that GetText makes of its K.
template <class Value>
Value valueOf(const std::string& text, Value value)
{
    const Loaded file("<R><K>" + text + "</K></R>");
    EXPECT_TRUE(file.loads) << text;
    tavelinUtils::GetText(file.root(), "K", value);
    return value;
}

/// An element as the library prints it.
inline std::string printed(const TiXmlElement& element)
{
    TiXmlPrinter printer;
    element.Accept(&printer);
    return printer.CStr();
}

/// Elements of that many levels, one in the other.
inline std::string nested(int levels)
{
    return repeated("<a>", levels) + repeated("</a>", levels);
}
