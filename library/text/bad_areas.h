// Bad areas of a frame: the setting that lists rectangles, "(1;2-30;40)(5;6-70;80)".

#pragma once

#include "../export.h"
#include "../results/result.h"

#include <string>
#include <vector>

namespace TAVELIN_API tavelinUtils {

/// A rectangle of pixels between two corners.
struct TBadAreaFrame
{
    int X1 = 0;
    int Y1 = 0;
    int X2 = 0;
    int Y2 = 0;
};

/// The rectangles of a setting, each in parentheses: two corners with a "-" between them, each two integers
/// with a ";". An entry of another form is left out and clears the flag, which the caller sets to true first.
/// An empty text has no rectangles.
std::vector<TBadAreaFrame> ParsBadAreaFrame(std::string text, bool& ok);

/// Sets code 142 in the result, with the code's text and the name of the setting as comment, if the setting
/// holds an entry of a wrong form; otherwise the result stays as it was.
void CheckBadAreaFrame(std::string name, std::string text, TFuncRes& result);

} // namespace tavelinUtils
