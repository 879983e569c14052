#include "math/scalars.h"

#include <cmath>
#include <limits>

namespace tavelinMath {

double Frac(const double& x)
{
    constexpr double wholeFromHere = 4503599627370496.0; // 2 to the power 52
    if (std::abs(x) >= wholeFromHere) {
        return x - x;
    }
    return x - std::floor(x);
}

bool IsNumber(const std::string& text)
{
    return !text.empty() && text.find_first_not_of("-+.,0123456789") == std::string::npos;
}

int cutToInt(double x)
{
    if (std::isnan(x)) {
        return 0;
    }
    if (x <= std::numeric_limits<int>::min()) {
        return std::numeric_limits<int>::min();
    }
    if (x >= std::numeric_limits<int>::max()) {
        return std::numeric_limits<int>::max();
    }
    return static_cast<int>(x);
}

} // namespace tavelinMath
