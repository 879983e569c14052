// Conversions of a test: the arguments of a conversion, and a run of it.

#pragma once

#include "conversion.h"

#include <string>

/// The arguments of a conversion, with the values that most tests use.
struct Conversion
{
    std::string path_in{};
    std::string out_dir{};
    std::string outputextension = ".txt";
    std::string inputformat = "mea";
    std::string outputformat = "mea";
    std::string originator = "observatory";
    std::string REFERENCE_FRAME = "ICRF";
    std::string PARTICIPANT_1 = "T9";
    bool autoname = false;

    tavelinUtils::TFuncRes run() const
    {
        return converter(path_in, out_dir, outputextension, inputformat, outputformat, originator,
                         REFERENCE_FRAME, PARTICIPANT_1, autoname);
    }
};
