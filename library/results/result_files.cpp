#include "results/result_files.h"

#include "base/bytes.h"
#include "config/xml_document.h"
#include "files/essentials.h"
#include "results/code_table.h"
#include "text/number_text.h"

#include <utility>

namespace tavelinUtils {
namespace {

bool wantsDocument(const std::string& path)
{
    const std::string extension = GetFileExt(path);
    return extension == ".xml" || extension == ".result";
}

std::string logLine(const std::string& stamp, const TFuncRes& result)
{
    return stamp + " Code=" + IntToStr(result.Code) + "//" + result.Comment + "//" + result.Description +
           "\n";
}

TiXmlElement* resultElement(const TFuncRes& result)
{
    auto* element = new TiXmlElement("Result");
    writeRecord(element, "Code", result.Code, "");
    writeRecord(element, "Comment", result.Comment, "");
    writeRecord(element, "Description", result.Description, "");
    writeRecord(element, "Date", NowToDateTime(" "), "");
    return element;
}

void readResult(TiXmlElement* element, TFuncRes& result)
{
    GetText(element, "Code", result.Code);
    // Comment and Description change places here; those who read result files count on it.
    GetText(element, "Comment", result.Description);
    GetText(element, "Description", result.Comment);
}

} // namespace

void SaveLogCode(std::string path, TFuncRes result)
{
    if (!DirectoryExists(ExtractPath(path))) {
        return;
    }
    if (wantsDocument(path)) {
        sResXML(path, result); // a result that cannot be saved leaves no trace
    } else {
        sResTXT(path, result);
    }
}

void SaveLogCode(std::string path, int code, std::string comment, std::string description)
{
    SaveLogCode(path, TFuncRes{code, comment, description, {}});
}

void SaveLogCode(std::string path, std::vector<TFuncRes> results)
{
    if (wantsDocument(path)) {
        sResXML(path, results); // a result that cannot be saved leaves no trace
    } else {
        sResTXT(path, results);
    }
}

void sResTXT(std::string path, TFuncRes result)
{
    sResTXT(path, std::vector<TFuncRes>{std::move(result)});
}

void sResTXT(std::string path, std::vector<TFuncRes> results)
{
    const std::string stamp = NowToDateTime(" ");
    std::string lines;
    for (const TFuncRes& result : results) {
        lines += logLine(stamp, result);
    }
    writeBytes(path, "a", lines); // a log that cannot be opened is skipped in silence
}

int sResXML(std::string path, TFuncRes result)
{
    return sResXML(path, std::vector<TFuncRes>{std::move(result)});
}

int sResXML(std::string path, std::vector<TFuncRes> results)
{
    TtavelinXmlDocument document(path);
    document.LinkEndChild(new TiXmlDeclaration("1.0", "", ""));
    auto* list = new TiXmlElement("ResultsList");
    document.LinkEndChild(list);
    for (const TFuncRes& result : results) {
        list->LinkEndChild(resultElement(result));
    }
    return document.SaveFile() ? 1 : 0;
}

TFuncRes lResXML(std::string path)
{
    if (!FileExists(path)) {
        return GetErrCode(resultCode::noResultFile, path);
    }
    TtavelinXmlDocument document(path);
    if (!document.LoadFile()) {
        return GetErrCode(resultCode::unreadableFile, path);
    }
    TFuncRes result = GetErrCode(resultCode::success, "");
    TiXmlElement* element = document.FirstChildElement()->FirstChildElement("Result");
    for (; element != nullptr; element = element->NextSiblingElement("Result")) {
        readResult(element, result);
    }
    return result;
}

std::vector<TFuncRes> lArrResXML(std::string path)
{
    if (!FileExists(path)) {
        return {GetErrCode(resultCode::noResultFile, path)};
    }
    TtavelinXmlDocument document(path);
    if (!document.LoadFile()) {
        return {GetErrCode(resultCode::unopenedFile, path)};
    }
    std::vector<TFuncRes> results;
    TiXmlElement* const list = document.FirstChildElement("ResultsList");
    TiXmlElement* element = list == nullptr ? nullptr : list->FirstChildElement("Result");
    for (; element != nullptr; element = element->NextSiblingElement("Result")) {
        results.push_back(GetErrCode(resultCode::success, ""));
        readResult(element, results.back());
    }
    return results;
}

void slog(std::string path, std::string text)
{
    if (!path.empty()) {
        writeBytes(path, "a", NowToDateTime(" ") + " " + text + "\n"); // as in sResTXT
    }
}

} // namespace tavelinUtils
