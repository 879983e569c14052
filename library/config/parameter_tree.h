// Parameter files: how the XML orders of the pipeline's tools are written and read.
//
//   <?xml version="1.0" ?>
//   <Fitting>
//       <Peaks>
//           <Peak>
//               <X>100</X>
//               <Y>200</Y>
//           </Peak>
//       </Peaks>
//   </Fitting>
//
// A writer is the document in one expression, a reader is a list of keys and their targets:
//
//   return saveParameters(path, branch("Fitting",
//       {branch("Peaks", {branch("Peak", {{"X", x}, {"Y", y}})})}));
//   readParameters(path, {{"ResPath", &ResPath}, {"FitsList", &FitsList, "string"}});

#pragma once

#include "../export.h"
#include "xml_document.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// The value of a key; none for an element that holds elements.
using ParameterValue = std::variant<std::monostate, std::string, bool, int, double>;

/// An attribute of an element; an empty name means none.
struct ParameterAttribute
{
    std::string name{};
    std::string value{};
};

/// An element of a parameter file, before the XML library takes it: it holds a value, or elements.
struct ParameterElement
{
    std::string name{};
    ParameterValue value{};
    ParameterAttribute attribute{};
    std::vector<ParameterElement> children{};
};

/// An element that holds others, in their order.
ParameterElement branch(std::string name, std::initializer_list<ParameterElement> children);

/// An element that holds one element named `item` for each text; without a text it is empty. No text may be
/// empty: the reader of such a list never returns.
ParameterElement textList(std::string name, std::string item, const std::vector<std::string>& texts);

/// Replaces the file with a document of the root. 0 if it was saved, otherwise 1. Values are written as
/// setTextNode writes them: doubles with six decimals, a bool as "true" or "false".
int saveParameters(const std::string& path, const ParameterElement& root);

/// The target of a key. An optional text distinguishes a missing key from an empty text.
using ParameterTarget =
    std::variant<std::string*, double*, std::optional<std::string>*, std::vector<std::string>*>;

/// A key and its target.
struct ParameterKey
{
    const char* key = "";
    ParameterTarget target{};
    const char* item = "string"; ///< the name of a list's elements
};

/// Reads the keys that are children of the file's first element, whatever its name. A key that is missing or
/// empty leaves its target; lists are appended to. False for a file that cannot be loaded, which leaves all
/// targets. Like GetList, it never returns from an empty element of a list.
bool readParameters(const std::string& path, std::initializer_list<ParameterKey> keys);

/// A loaded parameter file, for readers that fill a record.
class ParameterFile
{
public:
    /// Loads the file.
    explicit ParameterFile(const std::string& path);

    /// The first element of the document, whatever its name, as long as this object lives; a null pointer
    /// where the file could not be loaded.
    TiXmlElement* root();

private:
    TtavelinXmlDocument document;
    bool loaded;
};

} // namespace tavelinUtils
