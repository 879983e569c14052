#include "errors.h"
#include "numerics.h"
#include "streams.h"
#include "texts.h"
#include "tracks.h"
#include "works.h"

#include "version.h"

PYBIND11_MODULE(_tavelin, module)
{
    module.doc() = "The library below the package tavelin.";
    module.attr("version") = tavelinUtils::version;
    python::defineErrors();
    python::defineTracks(module);
    python::defineStreams(module);
    python::defineWorks(module);
    python::defineNumerics(module);
    python::defineTexts(module);
}
