// Result documents: any bytes give results, which are read again as they were written, and the nesting of a
// document is never told too low.

#include "config/xml_document.h"
#include "config/xml_nesting.h"
#include "results/result_files.h"
#include "written_bytes.h"

#include <algorithm>
#include <climits>
#include <string>
#include <vector>

namespace {

// How deep the elements of a tree go; walks without recursion.
int depthOf(const TiXmlNode& document)
{
    int depth = 0;
    int deepest = 0;
    const TiXmlNode* node = document.FirstChildElement();
    while (node != nullptr) {
        deepest = std::max(deepest, depth + 1);
        if (const TiXmlNode* const child = node->FirstChildElement()) {
            node = child;
            ++depth;
            continue;
        }
        while (node != &document && node->NextSiblingElement() == nullptr) {
            node = node->Parent();
            --depth;
        }
        node = node == &document ? nullptr : node->NextSiblingElement();
    }
    return deepest;
}

void checkWritten(std::vector<tavelinUtils::TFuncRes> results)
{
    std::erase_if(results, [](const tavelinUtils::TFuncRes& each) {
        return !isPlainText(each.Comment) || !isPlainText(each.Description);
    });
    const WrittenFile copy(
        bytesWritten([&](const std::string& path) { mustHold(sResXML(path, results) == 1); }));
    const auto again = tavelinUtils::lArrResXML(copy.path());
    // The reader lets Comment and Description change places.
    const auto isRead = [](const auto& a, const auto& b) {
        return a.Code == b.Code && a.Comment == b.Description && a.Description == b.Comment;
    };
    mustHold(std::equal(again.begin(), again.end(), results.begin(), results.end(), isRead));
}

void checkNesting(const std::uint8_t* bytes, std::size_t size)
{
    std::string text(reinterpret_cast<const char*>(bytes), size);
    text.append(8, '\0');
    if (tavelinUtils::goesBeyond(text.c_str(), 1000, INT_MAX)) {
        return;
    }
    TiXmlDocument document;
    document.SetTabSize(0);
    document.Parse(text.c_str(), nullptr, TIXML_ENCODING_UNKNOWN);
    const int depth = depthOf(document);
    mustHold(depth <= 1000);
    mustHold(depth == 0 || tavelinUtils::goesBeyond(text.c_str(), depth - 1, INT_MAX));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const InputFile file(bytes, size);
    tavelinUtils::lResXML(file.path());
    checkWritten(tavelinUtils::lArrResXML(file.path()));
    checkNesting(bytes, size);
    return 0;
}
