#include "running/batch_plan.h"

#include "base/bytes.h"
#include "findings/finding.h"
#include "out/json.h"
#include "out/safe_file.h"
#include "task/template.h"

#include <cerrno>
#include <cstring>
#include <filesystem>

namespace companion {
namespace {

constexpr const char* planSchema = "tavelin.plan/1";

Json stampJson(const FileStamp& stamp)
{
    Json object = Json::object();
    setBytes(object, "path", stamp.path);
    return object.set("size", stamp.size).set("time", stamp.time);
}

Json pathJson(const std::string& path)
{
    Json object = Json::object();
    setBytes(object, "path", path);
    return object;
}

Json pathsJson(const std::vector<std::string>& paths)
{
    Json list = Json::list();
    for (const std::string& each : paths) {
        list.push(pathJson(each));
    }
    return list;
}

Json settingsJson(const std::map<std::string, std::string>& settings)
{
    Json list = Json::list();
    for (const auto& [key, value] : settings) {
        list.push(Json::object().set("key", key).set("value", pathJson(value)));
    }
    return list;
}

Json taskJson(const BatchTask& task)
{
    Json object = Json::object().set("number", task.number);
    object.set("name", pathJson(task.name)).set("group", pathJson(task.group));
    Json inputs = Json::list();
    for (const FileStamp& each : task.inputs) {
        inputs.push(stampJson(each));
    }
    object.set("inputs", inputs).set("folder", pathJson(task.folder)).set("result", pathJson(task.result));
    return object.set("outputs", task.outputs ? pathsJson(*task.outputs) : Json());
}

std::string pathOf(const JsonView& object)
{
    return bytesMember(object, "path");
}

std::vector<std::string> pathsIn(const JsonView& list)
{
    std::vector<std::string> paths;
    for (std::size_t i = 0; i < list.size(); ++i) {
        paths.push_back(pathOf(list[i]));
    }
    return paths;
}

FileStamp stampIn(const JsonView& object)
{
    return {pathOf(object), static_cast<std::uint64_t>(object["size"].integer()), object["time"].integer()};
}

BatchTask taskOf(const JsonView& object)
{
    BatchTask task;
    task.number = static_cast<std::size_t>(object["number"].integer());
    task.name = pathOf(object["name"]);
    task.group = pathOf(object["group"]);
    for (std::size_t i = 0; i < object["inputs"].size(); ++i) {
        task.inputs.push_back(stampIn(object["inputs"][i]));
    }
    task.folder = pathOf(object["folder"]);
    task.result = pathOf(object["result"]);
    if (object["outputs"].isList()) {
        task.outputs = pathsIn(object["outputs"]);
    }
    return task;
}

BatchPlan planOf(const JsonView& object)
{
    BatchPlan plan;
    plan.folder = pathOf(object["folder"]);
    plan.taskTemplate = pathOf(object["template"]);
    plan.patterns = pathsIn(object["patterns"]);
    plan.group = object["group"].text();
    const JsonView settings = object["settings"];
    for (std::size_t i = 0; i < settings.size(); ++i) {
        plan.settings[settings[i]["key"].text()] = pathOf(settings[i]["value"]);
    }
    plan.next = static_cast<std::size_t>(object["next"].integer());
    for (std::size_t i = 0; i < object["tasks"].size(); ++i) {
        plan.tasks.push_back(taskOf(object["tasks"][i]));
    }
    return plan;
}

// Numbers go up, up to the next one; each task has a name in tasks/ and an input.
bool isWhole(const BatchPlan& plan)
{
    std::size_t before = 0;
    for (const BatchTask& task : plan.tasks) {
        if (task.number <= before || task.name.empty() || task.name.find('/') != std::string::npos ||
            task.inputs.empty())
        {
            return false;
        }
        before = task.number;
    }
    return before < plan.next;
}

WrongUsage noPlan(const BatchFolder& folder, const std::string& problem)
{
    return {finding("V454", {{"path", folder.plan()}, {"problem", problem}})};
}

} // namespace

BatchFolder::BatchFolder(std::string path) : folder(std::move(path))
{
    while (folder.size() > 1 && folder.ends_with('/')) {
        folder.pop_back();
    }
}

std::string BatchFolder::receipt(std::size_t number) const
{
    return receipts() + '/' + numberText(number) + ".json";
}

std::string planText(const BatchPlan& plan)
{
    std::string text = Json::object()
                           .set("schema", planSchema)
                           .set("folder", pathJson(plan.folder))
                           .set("template", pathJson(plan.taskTemplate))
                           .set("patterns", pathsJson(plan.patterns))
                           .set("group", plan.group)
                           .set("settings", settingsJson(plan.settings))
                           .set("next", plan.next)
                           .set("tasks", Json::list())
                           .text();
    text.resize(text.size() - 2); // the end of the list, to which the tasks are added a line each
    for (const BatchTask& task : plan.tasks) {
        text += (&task == &plan.tasks.front() ? "\n" : ",\n") + taskJson(task).text();
    }
    return text + "]}\n";
}

BatchPlan readPlan(const BatchFolder& folder)
{
    tavelinUtils::FileBytes file;
    if (!tavelinUtils::readBytes(folder.plan(), file)) {
        throw WrongUsage{finding("V003", {{"file", folder.plan()}, {"what", std::strerror(errno)}})};
    }
    const ReadJson json(file.view());
    if (json.root() && json.root()["schema"].text() != planSchema) {
        throw noPlan(folder, "was made by another version");
    }
    BatchPlan plan = planOf(json.root());
    if (!json.root() || !isWhole(plan)) {
        throw noPlan(folder, "is damaged");
    }
    return plan;
}

SeenBatch seenBatch(const BatchFolder& folder, const BatchPlan& plan)
{
    namespace fs = std::filesystem;
    const fs::path from = (fs::canonical(folder.path()) / plan.folder).lexically_normal();
    if (fs::weakly_canonical(from) == fs::current_path()) {
        return {folder, ""};
    }
    return {BatchFolder(fs::canonical(folder.path())), from};
}

void writePlan(const BatchFolder& folder, const BatchPlan& plan)
{
    const std::string text = planText(plan);
    tavelinUtils::FileBytes old;
    if (tavelinUtils::readBytes(folder.plan(), old) && old.view() == text) {
        return;
    }
    SafeFile file(folder.plan(), true, {});
    file.write(text);
    file.commit();
}

} // namespace companion
