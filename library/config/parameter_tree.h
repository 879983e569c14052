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
// A writer is the document in one expression, a reader is a list of keys and of what they fill:
//
//   return saveParameters(path, branch("Fitting",
//       {branch("Peaks", {branch("Peak", {{"X", x}, {"Y", y}})})}));
//   readParameters(path, {{"ResPath", &ResPath}, {"FitsList", &FitsList, "string"}});

#pragma once

#include "xml_document.h"

#include <initializer_list>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace tavelinUtils {

/// The value of a key; none for an element that holds elements.
using ParameterValue = std::variant<std::monostate, std::string, bool, int, double>;

/// An attribute of an element; there is none where the name is empty.
struct ParameterAttribute
{
    std::string name{};
    std::string value{};
};

/// An element of a parameter file, not yet in the hands of the XML library: it holds a value, or elements.
struct ParameterElement
{
    std::string name{};
    ParameterValue value{};
    ParameterAttribute attribute{};
    std::vector<ParameterElement> children{};
};

/// An element that holds others, in their order.
ParameterElement branch(std::string name, std::initializer_list<ParameterElement> children);

/// An element that holds one element named by the item for each text; without a text it stands empty. No text
/// may be empty: the reader of such a list never returns.
ParameterElement textList(std::string name, std::string item, const std::vector<std::string>& texts);

/// Replaces the file by a document of the root. 0 where it was saved, 1 where not. Values go in as
/// setTextNode makes them: doubles with six decimals, a bool as "true" or "false".
int saveParameters(const std::string& path, const ParameterElement& root);

/// What a key fills. An optional text tells a missing key from an empty text.
using ParameterTarget =
    std::variant<std::string*, double*, std::optional<std::string>*, std::vector<std::string>*>;

/// A key and what it fills.
struct ParameterKey
{
    const char* key = "";
    ParameterTarget target{};
    const char* item = "string"; ///< the name of a list's elements
};

/// Reads those of the keys that are children of the file's first element, whatever its name. A key that is
/// missing or empty leaves its target; lists are appended to. False for a file that cannot be loaded, which
/// leaves all targets. Does not return from an empty element of a list, as GetList doesn't.
bool readParameters(const std::string& path, std::initializer_list<ParameterKey> keys);

/// A parameter file, loaded, for those who read its keys into a record.
class ParameterFile
{
public:
    explicit ParameterFile(const std::string& path);

    /// The first element of the document, whatever its name, as long as this object lives; a null pointer
    /// where the file could not be loaded.
    TiXmlElement* root();

private:
    TtavelinXmlDocument document;
    bool loaded;
};

} // namespace tavelinUtils
