// Tracks and marks as Python objects.

#pragma once

#include "track_record.h"

#include <cstddef>
#include <memory>

#include <pybind11/pybind11.h>

namespace python {

/// A track as a Python object. Arrays and marks share its record; a track that grows takes another one.
struct Track
{
    std::shared_ptr<TrackRecord> record = std::make_shared<TrackRecord>();

    /// The record, to be changed. Throws BufferError while a writer on another thread is at work on it.
    TrackRecord& changeable() const;
};

/// A mark of a track as a Python object.
struct MarkOfTrack
{
    std::shared_ptr<TrackRecord> record;
    std::size_t place;
};

/// Adds both classes to the module.
void defineTracks(pybind11::module_& module);

} // namespace python
