// The numbers of a fitted blob by name; kinds, code and peaks are not among them.

#pragma once

#include "records/blob.h"

#include <utility>

inline constexpr std::pair<const char*, double tavelinUtils::VihodExt::*> fittedNumbers[] = {
    {"X", &tavelinUtils::VihodExt::X},
    {"Y", &tavelinUtils::VihodExt::Y},
    {"A", &tavelinUtils::VihodExt::A},
    {"Asegm", &tavelinUtils::VihodExt::Asegm},
    {"BackMean", &tavelinUtils::VihodExt::BackMean},
    {"BackSKO", &tavelinUtils::VihodExt::BackSKO},
    {"SNRafit", &tavelinUtils::VihodExt::SNRafit},
    {"SNRasegm", &tavelinUtils::VihodExt::SNRasegm},
    {"SNRpeak", &tavelinUtils::VihodExt::SNRpeak},
    {"Radius", &tavelinUtils::VihodExt::Radius},
    {"FWHM", &tavelinUtils::VihodExt::FWHM},
    {"SigFit", &tavelinUtils::VihodExt::SigFit},
    {"RMSratio", &tavelinUtils::VihodExt::RMSratio},
    {"AstrobCount", &tavelinUtils::VihodExt::AstrobCount},
    {"Width", &tavelinUtils::VihodExt::Width},
    {"Length", &tavelinUtils::VihodExt::Length},
    {"Angle", &tavelinUtils::VihodExt::Angle},
    {"Exc", &tavelinUtils::VihodExt::Exc},
    {"Ref1", &tavelinUtils::VihodExt::Ref1},
    {"Ref2", &tavelinUtils::VihodExt::Ref2},
    {"Tail1", &tavelinUtils::VihodExt::Tail1},
    {"Tail2", &tavelinUtils::VihodExt::Tail2},
    {"Tail3", &tavelinUtils::VihodExt::Tail3},
    {"Tail4", &tavelinUtils::VihodExt::Tail4},
    {"Tail5", &tavelinUtils::VihodExt::Tail5},
    {"SNcorrnotnorm", &tavelinUtils::VihodExt::SNcorrnotnorm},
    {"corrnorm", &tavelinUtils::VihodExt::corrnorm},
};

inline constexpr std::pair<const char*, int tavelinUtils::VihodExt::*> fittedIntegers[] = {
    {"Aux1", &tavelinUtils::VihodExt::Aux1},           {"Aux2", &tavelinUtils::VihodExt::Aux2},
    {"Aux3", &tavelinUtils::VihodExt::Aux3},           {"Tail6", &tavelinUtils::VihodExt::Tail6},
    {"LinkIndex", &tavelinUtils::VihodExt::LinkIndex}, {"BlobNumber", &tavelinUtils::VihodExt::BlobNumber},
    {"Index", &tavelinUtils::VihodExt::Index},
};
