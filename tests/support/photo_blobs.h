// Blobs of the photometry.

#pragma once

#include "records/photo_blob.h"

#include <string>

/// A blob of that mark, from the frame of that path.
inline tavelinUtils::TLocPhotoBlob blob(const tavelinUtils::TRecLabelPervichka_File& mark,
                                        const std::string& pathFit = "")
{
    tavelinUtils::TLocPhotoBlob result;
    result.Head.PathFit = pathFit;
    result.Mark = mark;
    return result;
}

/// A blob of that instrumental magnitude.
inline tavelinUtils::TLocPhotoBlob star(double magnitude)
{
    return blob({.Spare1 = magnitude});
}
