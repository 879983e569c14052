// Memo of one conversion: its last answer, returned while the same question is asked again.

#pragma once

#include "same_text.h"

#include <string>
#include <string_view>

namespace tavelinUtils {

/// Remembers the last answer of a costly conversion. Neighbouring marks share their night, so the calendar
/// runs once for each new date.
template <class Question, class Answer>
class LastAnswer
{
public:
    /// The answer to a question: the remembered one if the last call asked the same, otherwise
    /// convert(question).
    template <class Asked, class Convert>
    const Answer& answerTo(const Asked& question, Convert convert)
    {
        if (!known || !isSame(question, lastQuestion)) {
            answer = convert(question);
            lastQuestion = Question(question);
            known = true;
        }
        return answer;
    }

private:
    static bool isSame(int a, int b)
    {
        return a == b;
    }
    static bool isSame(std::string_view a, std::string_view b)
    {
        return isSameText(a, b);
    }

    bool known = false;
    Question lastQuestion{};
    Answer answer{};
};

/// Date texts of whole MJDs, all in the one form of their writer.
class DateTexts : public LastAnswer<int, std::string>
{
};

/// Whole MJDs of date texts, all in the one form of their reader.
class DayNumbers : public LastAnswer<std::string, int>
{
};

} // namespace tavelinUtils
