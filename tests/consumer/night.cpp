#include "night.h"

#include <tavelin/formats/mea.h>

std::string firstName(const std::string& path)
{
    return tavelinUtils::plMEATrack(path, "").front().QRVName;
}
