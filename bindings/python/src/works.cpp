#include "works.h"

#include "record_fields.h"

#include "command/subcommand.h"
#include "task/task_document.h"

#include "conversion.h"
#include "file_names.h"
#include "multi_report.h"
#include "results/code_table.h"
#include "task.h"

#include <mutex>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <pybind11/stl.h>

namespace py = pybind11;

namespace python {
namespace {

using tavelinUtils::TConvMea;
using tavelinUtils::TExcludBlobs;
using tavelinUtils::TFuncRes;
using tavelinUtils::TSeria2;

constexpr RecordField<TConvMea> taskFields[] = {
    recordField<&TConvMea::autoname>("autoname", "files are named after telescope, object and time"),
    recordField<&TConvMea::longname>("longname", "names of a report's files are long ones"),
    recordField<&TConvMea::autoTelescope>("autoTelescope",
                                          "the telescope is that of the settings of a series"),
    recordField<&TConvMea::object>(
        "object", "the one track of the first series that whatSave \"object\" keeps, from 0"),
    recordField<&TConvMea::interval>("interval", "minutes between marks at which \"eachgroup\" cuts a track"),
    recordField<&TConvMea::path_in>("path_in", "the file that is converted"),
    recordField<&TConvMea::out_dir>("out_dir", "the folder of the output, which must exist"),
    recordField<&TConvMea::outputextension>("outputextension", "the suffix of the files"),
    recordField<&TConvMea::inputformat>("inputformat", "the word of the input's format"),
    recordField<&TConvMea::outputformat>("outputformat", "the word of the output's format"),
    recordField<&TConvMea::originator>("originator", "the originator of all tracks"),
    recordField<&TConvMea::path_res>("path_res", "the result file of the tool; not written here"),
    recordField<&TConvMea::REFERENCE_FRAME>("REFERENCE_FRAME", "the reference frame of all tracks"),
    recordField<&TConvMea::PARTICIPANT_1>("PARTICIPANT_1", "the telescope of all tracks"),
    recordField<&TConvMea::whatSave>("whatSave", "\"object\" keeps one track of a report"),
    recordField<&TConvMea::toSeparateFile>("toSeparateFile", "how a report is divided among files"),
};

constexpr RecordField<TSeria2> seriesFields[] = {
    recordField<&TSeria2::path>("path", "the track table"),
    recordField<&TSeria2::filter>("filter", "the photometric filter"),
    recordField<&TSeria2::telescope>("telescope", "the telescope"),
};

using Excludes = std::vector<std::pair<int, std::vector<int>>>;

Excludes excludesOf(const TSeria2& series)
{
    Excludes all;
    for (const TExcludBlobs& each : series.excludes) {
        all.emplace_back(each.object, each.blobs);
    }
    return all;
}

void setExcludes(TSeria2& series, const Excludes& excludes)
{
    series.excludes.clear();
    for (const auto& [object, blobs] : excludes) {
        series.excludes.push_back({object, blobs});
    }
}

// Where a document stops the tool, its findings say why: the first error is thrown.
TConvMea loadTask(const Path& path)
{
    const companion::TaskDocument document = companion::readTaskDocument(path.bytes);
    if (document.canBeLoaded && document.walkEnds) {
        return companion::taskOf(document);
    }
    for (const companion::Finding& found : document.findings) {
        if (found.severity == companion::Severity::error) {
            throw companion::WrongUsage{companion::Finding(found).in(path.bytes)};
        }
    }
    tavelinUtils::throwErrCode(tavelinUtils::resultCode::unopenedFile, path.bytes);
}

// A folder that does not exist is none, as the tool takes it.
TFuncRes run(TConvMea task, TFuncRes (*work)(const TConvMea& task))
{
    const py::gil_scoped_release others;
    task.out_dir = outputFolder(task);
    return work(task);
}

TFuncRes convert(const TConvMea& task)
{
    return run(task, [](const TConvMea& whole) { return converter(whole); });
}

TFuncRes report(const TConvMea& task)
{
    return run(task, [](const TConvMea& whole) { return CreateMultiReport(whole); });
}

// Runs the command in this process. Its parts were made for one run at a time.
py::tuple command(const std::vector<Path>& arguments)
{
    static std::mutex oneAtATime;
    std::vector<std::string> words;
    words.reserve(arguments.size());
    for (const Path& argument : arguments) {
        words.push_back(argument.bytes);
    }
    std::ostringstream out;
    std::ostringstream err;
    int status = 0;
    {
        const py::gil_scoped_release others;
        const std::lock_guard<std::mutex> lock(oneAtATime);
        status = companion::runCommand(words, {out, err, {}});
    }
    return py::make_tuple(status, textOf(out.str()), textOf(err.str()));
}

void defineTask(py::module_& module)
{
    py::class_<TSeria2> series(module, "Series", "One series of a report.");
    series.def(py::init<>());
    defineFields(series, seriesFields);
    series.def_property("excludes", excludesOf, setExcludes,
                        "tracks and their marks that are left out, both counted from 0");
    py::class_<TConvMea> task(module, "Task", "What one run of the tool is to do.");
    task.def(py::init<>());
    defineFields(task, taskFields);
    task.def_readwrite("paths", &TConvMea::paths, "the series of a report: a list, to be set as a whole");
}

} // namespace

void defineWorks(py::module_& module)
{
    defineTask(module);
    py::class_<TFuncRes>(module, "Result", "How a work ended.")
        .def_readonly("code", &TFuncRes::Code, "0 for success")
        .def_property_readonly(
            "comment", [](const TFuncRes& result) { return textOf(result.Comment); }, "the text of the code")
        .def_property_readonly(
            "description", [](const TFuncRes& result) { return textOf(result.Description); },
            "what it is about: the paths of files, a \";\" after each of a report");
    module.def("load_task", loadTask, py::arg("path"), "The task of a file.");
    module.def("convert", convert, py::arg("task"), "Converts one file.");
    module.def("report", report, py::arg("task"), "Makes a report of several series.");
    module.def("command", command, py::arg("arguments"), "Runs the command: status, output and messages.");
}

} // namespace python
