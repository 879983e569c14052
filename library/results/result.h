// The result of an operation, and the exception of those that cannot return one.

#pragma once

#include "../export.h"

#include <exception>
#include <string>
#include <utility>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// How an operation ended. A new record reports success.
struct TFuncRes
{
    int Code = 0;                     ///< 0 for success; code_table.h names the others
    std::string Comment = "OK";       ///< the text of the code, or one set by hand
    std::string Description = "OK";   ///< what the result is about, usually a path or a name
    std::vector<std::string> Details; ///< further lines of the operation; no result file shows them
};

/// Thrown by functions that return something other than a result and cannot go on. Built from a result: its
/// comment becomes the message, its description the comment.
class TavelinException : public std::exception
{
public:
    /// Made of a message, a comment and a code.
    TavelinException(const std::string& text, const std::string& about, int number)
        : code(number), message(text), comment(about)
    {
    }

    /// The message.
    const char* what() const noexcept override
    {
        return message.c_str();
    }
    /// What the failure is about, usually a path or a name.
    std::string getComment() const
    {
        return comment;
    }
    /// The code of the result; code_table.h names them.
    int getCode() const
    {
        return code;
    }

private:
    int code;
    std::string message;
    std::string comment;
};

static_assert(sizeof(TavelinException) == 80, "other modules of the pipeline count on the layout");

} // namespace tavelinUtils
