// Memo of one conversion: its last answer, returned while the same question is asked again.

#pragma once

#include "same_text.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

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

/// Date texts of whole MJDs, all in the one form of their writer. Remembers a month of nights, for objects
/// whose marks are not night after night.
class DateTexts
{
public:
    /// The text of a date: a remembered one, otherwise convert(date).
    template <class Convert>
    const std::string& answerTo(int date, Convert convert)
    {
        return last.answerTo(date, [&](int night) { return remembered(night, convert); });
    }

private:
    using Night = LastAnswer<int, std::string>;

    template <class Convert>
    std::string remembered(int date, Convert convert)
    {
        constexpr std::size_t month = 32;
        if (!asked) {
            asked = true; // most files have one night
            return convert(date);
        }
        nights.resize(month);
        return nights[static_cast<unsigned>(date) % month].answerTo(date, convert);
    }

    Night last;
    bool asked = false;
    std::vector<Night> nights;
};

/// Whole MJDs of date texts, all in the one form of their reader.
class DayNumbers : public LastAnswer<std::string, int>
{
};

} // namespace tavelinUtils
