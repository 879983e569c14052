// The last answer of a costly conversion, kept for the next question.

#pragma once

#include <string>

namespace tavelinUtils {

/// Keeps the last answer of a costly conversion. Neighbouring marks share their night, so that the calendar
/// runs once for each new date.
template <class Question, class Answer>
class LastAnswer
{
public:
    /// The answer to a question: the kept one where the question is that of the last call.
    template <class Asked, class Convert>
    const Answer& answerTo(const Asked& question, Convert convert)
    {
        if (!known || question != lastQuestion) {
            answer = convert(question);
            lastQuestion = Question(question);
            known = true;
        }
        return answer;
    }

private:
    bool known = false;
    Question lastQuestion{};
    Answer answer{};
};

/// Texts of whole MJDs, in the one form of the writer that keeps them.
class DateTexts : public LastAnswer<int, std::string>
{
};

/// Whole MJDs of date texts, in the one form of the reader that keeps them.
class DayNumbers : public LastAnswer<std::string, int>
{
};

} // namespace tavelinUtils
