// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Values of a document as whole arrays: what the published members read and write one by one, in one call.
#pragma once

#include <QOR_File/QOR_File.h>

#include <span>

// Each member does what the published member for one element does for the numbers 1 to the count, in that order: the
// same checks, error codes and conversions, to the last bit. But all checks come first, so that a call that fails
// leaves arrays and document as they were.
//
// An array has exactly as many elements as the document; any other is refused with the code of a number beyond the
// last. Where the document has none, the code is that of number 1. An element that a count allows but the document does
// not hold, as after reading a damaged file, stays as passed when reading and is not stored when writing.
class FileArrays
{
public:
    // The documents of this thread as they are stored: complex samples as real and imaginary part, the counts those of
    // the records, the X axis as it is. An error is left as the thread's shared error status, as the added classes do;
    // the next call that succeeds clears it.
    FileArrays() = default;
    // The documents as the object sees them, which must live longer: its view of complex samples, its counts of shapes
    // and DOFs, its X axis, its error status.
    explicit FileArrays(clsQOR_File& file);

    // What the arrays are to be sized by. Never negative; after reading a damaged file perhaps more than is there.
    std::int32_t NumberOfSamples() const;
    std::int32_t NumberOfDOFs() const;
    std::int32_t NumberOfVertexPoints() const;

    // All samples of a trace, as ReadTraceSampleValue and WriteTraceSampleValue. ImaginaryValues may be empty: not
    // wanted when reading, zeros when writing. An array of another length: SampleIndexError.
    ReturnStatus ReadTraceSamples(std::int32_t TraceNumber, std::span<float> RealValues,
                                  std::span<float> ImaginaryValues);
    ReturnStatus WriteTraceSamples(std::int32_t TraceNumber, std::span<const float> RealValues,
                                   std::span<const float> ImaginaryValues);

    // All X values. Unlike ReadDataBlockXaxisValue, reading serves uniform spacing too, by
    // DataBlock_XaxisStart + (SampleNumber - 1) * DataBlock_XaxisIncrement in double, then rounded. An array of another
    // length: SampleIndexError.
    ReturnStatus ReadDataBlockXaxisValues(std::span<float> XaxisValues);
    ReturnStatus WriteDataBlockXaxisValues(std::span<const float> XaxisValues);

    // All values of a shape, as ReadShapeDOFvalue and WriteShapeDOFvalue. PhaseValues may be empty: not wanted when
    // reading, zeros when writing. An array of another length: DOFIndexError.
    ReturnStatus ReadShapeDOFvalues(std::int32_t ShapeNumber, std::span<float> MagnitudeValues,
                                    std::span<float> PhaseValues);
    ReturnStatus WriteShapeDOFvalues(std::int32_t ShapeNumber, std::span<const float> MagnitudeValues,
                                     std::span<const float> PhaseValues);

    // The coordinates of all vertex points. Written as by WriteStructureVertexPoint with the label, color and boldness
    // that each point has; so the local axes become those of the Structure. An array of another length:
    // VertexPointIndexError.
    ReturnStatus ReadStructureVertexPointCoordinates(std::span<float> X, std::span<float> Y, std::span<float> Z);
    ReturnStatus WriteStructureVertexPointCoordinates(std::span<const float> X, std::span<const float> Y,
                                                      std::span<const float> Z);

private:
    struct View;

    View Seen() const;
    ReturnStatus Report(ReturnStatus status, ErrorStatusTypes error);
    ReturnStatus Report(ErrorStatusTypes error);

    clsQOR_File* file_ = nullptr;
};
