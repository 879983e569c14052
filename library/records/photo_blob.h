// One star on one frame, in the branch of variable stars.

#pragma once

#include "../export.h"
#include "blob.h"

namespace TAVELIN_API tavelinUtils {

/// A star's mark with the head of its frame. SpareText of the mark is the star's name, KNAME that of its
/// comparison star, Spare1 its instrumental magnitude for the V-C tables, mEnsemble its ensemble magnitude,
/// Spare5 the error of that; date and time are its epoch.
struct TLocPhotoBlob
{
    TFitHead Head{};                ///< the frame
    TRecLabelPervichka_File Mark{}; ///< the star on it
};

} // namespace tavelinUtils
