#include "command/task_operands.h"

#include <set>

namespace companion {

std::vector<std::string> taskOperands(const Arguments& arguments)
{
    std::vector<std::string> tasks;
    std::set<std::string> known;
    for (const std::string& path : arguments.operands()) {
        if (known.insert(path).second) {
            tasks.push_back(path);
        }
    }
    return tasks;
}

} // namespace companion
