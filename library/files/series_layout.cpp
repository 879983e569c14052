#include "files/series_layout.h"

#include "files/essentials.h"
#include "files/file_search.h"
#include "files/text_files.h"
#include "text/number_text.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <vector>

namespace tavelinUtils {
namespace {

// This name, whatever the settings say in tavelinFolder: a path is read without the settings of its series.
constexpr std::string_view serviceFolder = "tavelin";

constexpr std::string_view configurationExtension = ".conf";
constexpr std::string_view configurationRoots[] = {"<root>", "<TaVeLin>"};
constexpr std::size_t fewestConfigurationLines = 3;

// The components of a path before its first service folder; none where there is no such folder.
std::vector<std::string> componentsOfSeria(const std::string& path)
{
    std::vector<std::string> components;
    Pars9(path, components, Slash);
    const auto service = std::find(components.begin(), components.end(), serviceFolder);
    components.erase(service == components.end() ? components.begin() : service, components.end());
    return components;
}

bool isConfigurationRoot(const std::string& line)
{
    return std::find(std::begin(configurationRoots), std::end(configurationRoots), line) !=
           std::end(configurationRoots);
}

bool isConfiguration(const std::string& path)
{
    const std::vector<std::string> lines = ReadFromFile(path);
    return lines.size() >= fewestConfigurationLines &&
           (isConfigurationRoot(lines[0]) || isConfigurationRoot(lines[1]));
}

} // namespace

std::string GetIDFrame(std::string path, TExtension extension)
{
    const std::string name = replace(ExtractFileName(path, Slash), extension.fqrvPrefix, "");
    return replace(name, extension.stepPrefix, "");
}

std::string GetFNStep(const TPorogs& porogs, std::string path)
{
    const TExtension& extension = porogs.extension;
    const std::string frame = ExtractFileName(replace(path, extension.fqrvPrefix, ""), Slash);
    const std::string name = ExtractFileName(replace(frame, extension.stepPrefix, ""), Slash);
    return ExtractPath(path) + Slash + extension.stepPrefix + name;
}

std::string GetSeriaName(std::string path)
{
    const std::vector<std::string> components = componentsOfSeria(path);
    return components.empty() ? "" : components.back();
}

std::string GetSeriaPath(std::string path)
{
    std::string seria;
    for (const std::string& component : componentsOfSeria(path)) {
        seria += component + Slash;
    }
    return seria;
}

std::string GetSeriaConfig(std::string seriesPath)
{
    std::vector<std::string> files;
    FindFile(seriesPath, "", std::string(configurationExtension), files);
    if (files.size() == 1) {
        return files.front(); // not read: the only configuration needs no test
    }
    const auto configuration = std::find_if(files.begin(), files.end(), isConfiguration);
    return configuration == files.end() ? "" : *configuration;
}

} // namespace tavelinUtils
