// XML document access: loading and saving, reading values from elements, and making elements of values.
//
// One rule: a missing value changes nothing. Every setting has its default in its record, and the file only
// overrides it. No bounds are applied, and no conversion fails: a text that is no number gives 0.

#pragma once

#include "../export.h"

#include <string>
#include <vector>

#include <tinyxml.h>

namespace TAVELIN_API tavelinUtils {

/// Switches off the XML library's process-wide flag that condenses white space in values. Writes it only
/// where it is on, so that threads which find it off may work side by side.
void keepWhiteSpace();

/// An XML file. White space in values survives: construction calls keepWhiteSpace.
class TtavelinXmlDocument : public TiXmlDocument
{
public:
    /// Of the file at the path; reads nothing yet.
    explicit TtavelinXmlDocument(std::string path);

    /// Reads the file. False where it is no regular file, cannot be opened or read, is not well-formed, holds
    /// no element, or holds more than 1,000 nested levels or more than 10,000 attributes in one element. May
    /// be called once for a document.
    bool LoadFile();

    /// Whether LoadFile found a file whose content it could not get: that cannot be read to its end, or that
    /// the memory does not hold.
    bool readFailed() const
    {
        return unread;
    }

    /// Replaces the file with the document, in one write. False if that fails.
    bool SaveFile();

    std::string fileName; ///< the path that LoadFile reads and SaveFile writes

private:
    bool load();

    bool unread = false;
};

/// The first child of that name; a null pointer where it or its parent is missing.
TiXmlElement* childOf(TiXmlElement* parent, const std::string& name);

/// Reads the text of a child element: that of its first child node, whatever its kind. A child that is
/// missing, or holds no node, leaves the target as it was. A number is read from the front of the text;
/// integers are cut to 32 bits, `short` to 16, even if the target is wider. A bool is true for exactly
/// "true".
void GetText(TiXmlElement* parent, std::string key, std::string& target);
void GetText(TiXmlElement* parent, std::string key, double& target);
void GetText(TiXmlElement* parent, std::string key, int& target);
void GetText(TiXmlElement* parent, std::string key, short& target);
void GetText(TiXmlElement* parent, std::string key, long& target);
void GetText(TiXmlElement* parent, std::string key, unsigned long long& target);
void GetText(TiXmlElement* parent, std::string key, bool& target);

/// The same, and its attributes "min" and "max", each if present. An element without a node changes nothing
/// at all.
void GetText(TiXmlElement* parent, std::string key, double& target, double& min, double& max);
void GetText(TiXmlElement* parent, std::string key, int& target, int& min, int& max);
void GetText(TiXmlElement* parent, std::string key, short& target, short& min, short& max);

/// The same, and its attribute "list".
void GetText(TiXmlElement* parent, std::string key, std::string& target, std::string& list);
void GetText(TiXmlElement* parent, std::string key, short& target, std::string& list);

/// Reads an attribute of a child element, if present.
void GetAttr(TiXmlElement* parent, std::string key, std::string name, std::string& target);

/// Reads the attributes "min" and "max" of a child element, each if present, but not its text.
void GetAttrMinMax(TiXmlElement* parent, std::string key, double& min, double& max);
void GetAttrMinMax(TiXmlElement* parent, std::string key, int& min, int& max);
void GetAttrMinMax(TiXmlElement* parent, std::string key, short& min, short& max);

/// Appends the texts of the items below the child named by `list`. An item without any node is not skipped:
/// the walk stays on it and never returns.
void GetList(TiXmlElement* parent, std::string item, std::string list, std::vector<std::string>& target);

/// The text of a child element, and whether there is one; "" if there is none.
std::string GetTXT(TiXmlElement* parent, std::string key, bool& found);

/// A new element with one text node, for the caller to link: the text itself, "true" or "false", a decimal
/// integer, or a double with six decimals. A comment that is not empty becomes the attribute "comment".
TiXmlElement* setTextNode(std::string key, std::string value, std::string comment);
TiXmlElement* setTextNode(std::string key, const char* value, std::string comment);
TiXmlElement* setTextNode(std::string key, bool value, std::string comment);
TiXmlElement* setTextNode(std::string key, int value, std::string comment);
TiXmlElement* setTextNode(std::string key, double value, std::string comment);
TiXmlElement* setTextNode(std::string key, unsigned long value, std::string comment);

/// The same, linked as the last child of the parent.
void writeRecord(TiXmlElement*& parent, std::string key, std::string value, std::string comment);
void writeRecord(TiXmlElement*& parent, std::string key, const char* value, std::string comment);
void writeRecord(TiXmlElement*& parent, std::string key, bool value, std::string comment);
void writeRecord(TiXmlElement*& parent, std::string key, int value, std::string comment);
void writeRecord(TiXmlElement*& parent, std::string key, double value, std::string comment);

/// Never returns. For walks that stay on an element by contract: compilers may remove a loop without effect.
[[noreturn]] void stayForever();

} // namespace tavelinUtils
