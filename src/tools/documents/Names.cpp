// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/documents/Names.h"

#include <fmt/format.h>

#include <algorithm>

namespace qor::tool {
namespace {

struct TypeName {
    DataBlock_MeasurementTypes type;
    std::string_view name;
};

constexpr TypeName TypeNames[] = {
    {DB_MeasurementIsUndefined, "Undefined"},
    {DB_MeasurementIsTimeResponse, "TimeResponse"},
    {DB_MeasurementIsAPS, "APS"},
    {DB_MeasurementIsCrossSpectrum, "CrossSpectrum"},
    {DB_MeasurementIsFRF, "FRF"},
    {DB_MeasurementIsTransmissibility, "Transmissibility"},
    {DB_MeasurementIsCoherence, "Coherence"},
    {DB_MeasurementIsAutoCorrelation, "AutoCorrelation"},
    {DB_MeasurementIsCrossCorrelation, "CrossCorrelation"},
    {DB_MeasurementIsPSD, "PSD"},
    {DB_MeasurementIsLinearSpectrum, "LinearSpectrum"},
    {DB_MeasurementIsIRF, "IRF"},
    {DB_MeasurementIsODS_FRF, "ODS_FRF"},
    {DB_MeasurementIsIntensity, "Intensity"},
    {DB_MeasurementIsPI_Index, "PI_Index"},
    {DB_MeasurementIsSPL, "SPL"},
    {DB_MeasurementIsSoundPower, "SoundPower"},
    {DB_MeasurementIsReal, "Real"},
    {DB_MeasurementIsComplex, "Complex"},
    {DB_MeasurementIsOrderTrack, "OrderTrack"},
    {DB_MeasurementIsESD, "ESD"},
    {DB_MeasurementIsParticleVelocity, "ParticleVelocity"},
    {DB_MeasurementIsStrain, "Strain"},
    {DB_MeasurementIsStress, "Stress"},
    {DB_MeasurementIsTemperature, "Temperature"},
};

// What DOFs of a Shape Table may hold beyond what traces hold.
struct ShapeTypeName {
    ShapeTable_MeasurementTypes type;
    std::string_view name;
};

constexpr ShapeTypeName ShapeTypeNames[] = {
    {ST_MeasurementIsODS, "ODS"},
    {ST_MeasurementIsResidue, "Residue"},
    {ST_MeasurementIsUnitModalMass, "UnitModalMass"},
};

struct UnitsName {
    XaxisUnitsAre code;
    std::string_view name;
};

// The first row of a code is the name that is shown.
constexpr UnitsName UnitsNames[] = {
    {XAxisIsHz, "Hz"},        {XAxisIsCPM, "CPM"},       {XAxisIsRPM, "RPM"},
    {XAxislIsSec, "s"},       {XAxislIsSec, "sec"},      {XAxislIsSec, "second"},
    {XAxislIsSec, "seconds"}, {XAxisIsMillisec, "ms"},   {XAxisIsMillisec, "msec"},
    {XAxisIsMicrosec, "us"},  {XAxisIsMicrosec, "usec"}, {XAxisIsMicrosec, "µs"}, // micro sign
    {XAxisIsMicrosec, "μs"},                                                      // Greek letter
    {XAxisIsOrder, "order"},  {XAxisIsOrder, "orders"},
};

std::string CodeName(std::int32_t code) { return fmt::format("code {}", code); }

// In small letters, without blanks, - and _.
std::string Essence(std::string_view name)
{
    std::string essence;
    for (const char letter : name) {
        if (letter == ' ' || letter == '-' || letter == '_') continue;
        essence += letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    return essence;
}

} // namespace

std::string MeasurementTypeName(std::int32_t type)
{
    const auto* row = std::ranges::find(TypeNames, type, [](const TypeName& each) { return std::int32_t{each.type}; });
    return row != std::end(TypeNames) ? std::string(row->name) : CodeName(type);
}

std::string ShapeMeasurementTypeName(std::int32_t type)
{
    const auto* row =
        std::ranges::find(ShapeTypeNames, type, [](const ShapeTypeName& each) { return std::int32_t{each.type}; });
    return row != std::end(ShapeTypeNames) ? std::string(row->name) : MeasurementTypeName(type);
}

std::string DataSVTName(std::int32_t kind)
{
    switch (kind) {
    case DataIsVector: return "Vector";
    case DataIsScalar: return "Scalar";
    case DataIsTensor: return "Tensor";
    case DataIsRotation: return "Rotation";
    case DataIsVectorReference: return "VectorReference";
    case DataIsScalarReference: return "ScalarReference";
    default: return CodeName(kind);
    }
}

std::string PointTypeName(std::int32_t type)
{
    switch (type) {
    case Rectangular: return "Rectangular";
    case Cylindrical: return "Cylindrical";
    case Spherical: return "Spherical";
    case Machine: return "Machine";
    default: return CodeName(type);
    }
}

std::string AxisName(std::int32_t axis)
{
    switch (axis) {
    case Xaxis: return "X";
    case Yaxis: return "Y";
    case Zaxis: return "Z";
    default: return CodeName(axis);
    }
}

std::optional<DataBlock_MeasurementTypes> MeasurementTypeOf(std::string_view name)
{
    const auto* row =
        std::ranges::find(TypeNames, Essence(name), [](const TypeName& each) { return Essence(each.name); });
    if (row == std::end(TypeNames)) return std::nullopt;
    return row->type;
}

std::string MeasurementTypeNames()
{
    std::string names;
    for (const TypeName& each : TypeNames) {
        if (!names.empty()) names += ", ";
        names += each.name;
    }
    return names;
}

std::string SpacingName(std::int32_t spacing)
{
    switch (spacing) {
    case XaxisSpacing_Uniform: return "uniform";
    case XaxisSpacing_NonUniform: return "non-uniform";
    case XaxisSpacing_Octave: return "octave";
    default: return fmt::format("spacing code {}", spacing);
    }
}

std::string DataFormatName(std::int32_t format)
{
    switch (format) {
    case 1: return "real";
    case 2: return "complex";
    default: return fmt::format("real (code {})", format);
    }
}

XaxisUnitsAre XaxisUnitsCodeOf(std::string_view units)
{
    const auto* row =
        std::ranges::find(UnitsNames, Essence(units), [](const UnitsName& each) { return Essence(each.name); });
    return row != std::end(UnitsNames) ? row->code : NullX_AxisLabel;
}

std::string_view XaxisUnitsName(std::int32_t code)
{
    const auto* row =
        std::ranges::find(UnitsNames, code, [](const UnitsName& each) { return std::int32_t{each.code}; });
    return row != std::end(UnitsNames) ? row->name : std::string_view();
}

} // namespace qor::tool
