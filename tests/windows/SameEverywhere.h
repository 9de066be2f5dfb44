// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Documents and conversions whose results must be the same bits everywhere: in the native library, in the cross-built
// one, and through the component library of each word size. Here stand both what is done and what must come of it.
// Client names the types to do it with: File, and ClassAdd_1 to ClassAdd_5, with the members of QOR_File.h.
#pragma once

#include "windows/Checksum.h"

#include <utility>

namespace qor::test {

// Of all bytes of the files of the documents below.
inline constexpr std::uint64_t DataBlockFileBits = 0xFCAC1267EAE1FB56;
inline constexpr std::uint64_t ShapeTableFileBits = 0xCC0A6AA8DF8A7F91;
inline constexpr std::uint64_t StructureFileBits = 0x2B3ECDE051806A1F;
// Of what is read of these files.
inline constexpr std::uint64_t ReadDataBlockBits = 0x33B93990C5A2011E;
inline constexpr std::uint64_t ReadStructureBits = 0xAAC4C606570204F2;
// Of conversions. The system's own sine, cosine and arctangent give them too where they are accurate.
inline constexpr std::uint64_t RealAndImaginaryBits = 0xF9FB4E2D50AC4F7B;
inline constexpr std::uint64_t MagnitudeAndPhaseBits = 0xDF3A72341BE764D0;

// ---- documents -----------------------------------------------------------------------------------------------

inline constexpr std::int32_t Traces = 6;
inline constexpr std::int32_t Shapes = 5;
// Samples, DOFs and vertex points of a document.
inline constexpr std::int32_t Length = 64;

// Beyond Latin, and beyond 16 bits.
inline std::u16string Named(std::u16string_view what, std::int32_t number)
{
    const std::string digits = std::to_string(number);
    return std::u16string(what) + u" \u00B5\u0416\u4E2D\U0001F50A " + std::u16string(digits.begin(), digits.end());
}

template <class Client>
void FillDataBlock(typename Client::File& file)
{
    file.InitializeDataBlockStorage();
    file.DataBlock_TraceDataFormat(DataFormat_MgnitudePhase);
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    file.DataBlock_NumberOfSamples(Length);
    file.DataBlock_NumberOfTraces(Traces);
    file.DataBlock_Label(Named(u"Block", 1));
    file.DataBlock_Notes(Named(u"Notes", 2));
    file.DataBlock_XaxisUnits(u"Hz");
    typename Client::ClassAdd_2().DataBlockPeakRMS(DisplayRMS);
    typename Client::ClassAdd_5().XaxisUnits(XAxisIsOrder);
    typename Client::ClassAdd_5().DataBlockRPM(2950.5F);
    typename Client::ClassAdd_5().DataBlockExponentialWindowDampingInHz(0.125F);
    for (std::int32_t trace = 1; trace <= Traces; ++trace) {
        file.Trace_Label(trace, Named(u"Trace", trace));
        file.Trace_DateAndTime(trace, u"2026-02-28 23:59:59");
        file.Trace_DegreesOfFreedom(trace, Named(u"1Z:3Z", trace));
        file.Trace_MeasurementType(trace, trace % 2 == 0 ? DB_MeasurementIsFRF : DB_MeasurementIsStrain);
        file.Trace_MeasurementUnits(trace, u"(m/s\u00B2)/N");
        file.Trace_DataSVT(trace, DataIsScalar);
        typename Client::ClassAdd_1().TraceLinPower(trace, MeasurementIsPower);
        typename Client::ClassAdd_3().TraceZaxisLabel(trace, Named(u"Z", trace));
        for (std::int32_t sample = 1; sample <= Length; ++sample) {
            const auto number = static_cast<float>(trace * sample);
            file.WriteTraceSampleValue(trace, sample, number / 7, 15 * number);
        }
    }
    for (std::int32_t sample = 1; sample <= Length; ++sample)
        file.WriteDataBlockXaxisValue(sample, static_cast<float>(sample * sample) / 3);
}

template <class Client>
void FillShapeTable(typename Client::File& file)
{
    file.InitializeShapeTableStorage();
    file.ShapeTable_Label(Named(u"Modes", 1));
    file.ShapeTable_Notes(Named(u"Notes", 2));
    file.ShapeTable_NumberOfShapes(Shapes);
    file.ShapeTable_NumberOfDOFs(Length);
    for (std::int32_t shape = 1; shape <= Shapes; ++shape) {
        file.Shape_Label(shape, Named(u"Shape", shape));
        file.Shape_Ordinate(shape, 12.34F * static_cast<float>(shape));
        file.Shape_Damping(shape, 0.1F * static_cast<float>(shape));
        file.Shape_DateAndTime(shape, u"2026-02-28");
        file.Shape_OrdinateUnits(shape, u" Hz ");
        for (std::int32_t dof = 1; dof <= Length; ++dof) {
            const auto number = static_cast<float>(shape * dof);
            file.WriteShapeDOFvalue(shape, dof, number / 7, 15 * number);
        }
    }
    for (std::int32_t dof = 1; dof <= Length; ++dof) {
        file.DOF_Label(dof, Named(u"DOF", dof));
        file.DOF_DegreesOfFreedom(dof, u"3Z");
        file.DOF_DataSVT(dof, DataIsTensor);
        file.DOF_MeasurementType(dof, ST_MeasurementIsResidue);
        file.DOF_MeasurementUnits(dof, u"m/N");
    }
}

template <class Client>
void FillStructure(typename Client::File& file)
{
    file.InitializeStructureStorage();
    file.Structure_Label(Named(u"Body", 1));
    file.Structure_Notes(Named(u"Notes", 2));
    file.Structure_NumberOfVertexPoints(Length);
    for (std::int32_t point = 1; point <= Length; ++point) {
        const auto number = static_cast<float>(point);
        file.WriteStructureVertexPoint(point, Named(u"P", point), number / 3, -number / 7, number * 1e-20F,
                                       point * 0x010203, point % 2 == 0);
        file.WriteStructureVertexPointTransform(point, Yaxis, number / 9, 1, -1);
        file.WriteStructureVertexPointInformation(point, point % 5, Cylindrical, Zaxis, number / 11);
    }
    typename Client::ClassAdd_4 quads;
    for (std::int32_t point = 1; point < Length; ++point) {
        file.WriteStructureEdgeLine(-1, point, point + 1, point, point % 3 == 0);
        file.WriteStructureSurfaceTriangle(-1, point, point + 1, 1, -point, true);
        quads.WriteStructureQuadSurface(-1, point, point + 1, 1, Length, point, false);
    }
}

// Of an object that has its own error status clean.
template <class Client>
std::uint64_t BitsOfDataBlock(typename Client::File& file)
{
    Checksum sum;
    sum.Add(file.DataBlock_Label());
    sum.Add(file.DataBlock_Notes());
    sum.Add(file.DataBlock_XaxisUnits());
    sum.Add(std::int32_t{typename Client::ClassAdd_2().DataBlockPeakRMS()});
    sum.Add(std::int32_t{typename Client::ClassAdd_5().XaxisUnits()});
    sum.Add(typename Client::ClassAdd_5().DataBlockRPM());
    sum.Add(typename Client::ClassAdd_5().DataBlockExponentialWindowDampingInHz());
    for (std::int32_t trace = 1; trace <= file.DataBlock_NumberOfTraces(); ++trace) {
        sum.Add(file.Trace_Label(trace));
        sum.Add(file.Trace_DateAndTime(trace));
        sum.Add(file.Trace_DegreesOfFreedom(trace));
        sum.Add(std::int32_t{file.Trace_MeasurementType(trace)});
        sum.Add(file.Trace_MeasurementUnits(trace));
        sum.Add(std::int32_t{typename Client::ClassAdd_1().TraceLinPower(trace)});
        sum.Add(typename Client::ClassAdd_3().TraceZaxisLabel(trace));
        for (const auto format : {DataFormat_RealImaginary, DataFormat_MgnitudePhase}) {
            file.DataBlock_TraceDataFormat(format);
            for (std::int32_t sample = 1; sample <= file.DataBlock_NumberOfSamples(); ++sample) {
                float first = 0;
                float second = 0;
                file.ReadTraceSampleValue(trace, sample, first, second);
                sum.Add(first);
                sum.Add(second);
            }
        }
    }
    for (std::int32_t sample = 1; sample <= file.DataBlock_NumberOfSamples(); ++sample) {
        float x = 0;
        file.ReadDataBlockXaxisValue(sample, x);
        sum.Add(x);
    }
    sum.Add(std::int32_t{file.ErrorStatus()});
    return sum.Value();
}

template <class Client>
std::uint64_t BitsOfStructure(typename Client::File& file)
{
    Checksum sum;
    sum.Add(file.Structure_Label());
    sum.Add(file.Structure_Notes());
    std::int32_t corners[4] = {};
    std::int32_t color = 0;
    typename Client::Truth bold = false;
    const auto addElement = [&] {
        for (const std::int32_t corner : corners) sum.Add(corner);
        sum.Add(color);
        sum.Add(std::int32_t{Client::Number(bold)});
    };
    for (std::int32_t point = 1; point <= file.Structure_NumberOfVertexPoints(); ++point) {
        std::u16string label;
        float x = 0;
        float y = 0;
        float z = 0;
        file.ReadStructureVertexPoint(point, label, x, y, z, color, bold);
        sum.Add(label);
        for (const float coordinate : {x, y, z}) sum.Add(coordinate);
        addElement();
        for (const AxisNumbers axis : {Xaxis, Yaxis, Zaxis}) {
            file.ReadStructureVertexPointTransform(point, axis, x, y, z);
            for (const float coordinate : {x, y, z}) sum.Add(coordinate);
        }
    }
    for (std::int32_t line = 1; line <= file.Structure_NumberOfEdgeLines(); ++line) {
        file.ReadStructureEdgeLine(line, corners[0], corners[1], color, bold);
        addElement();
    }
    for (std::int32_t triangle = 1; triangle <= file.Structure_NumberOfSurfaceTriangles(); ++triangle) {
        file.ReadStructureSurfaceTriangle(triangle, corners[0], corners[1], corners[2], color, bold);
        addElement();
    }
    typename Client::ClassAdd_4 quads;
    for (std::int32_t quad = 1; quad <= quads.StructureNumberOfQuadSurfaces(); ++quad) {
        quads.ReadStructureQuadSurface(quad, corners[0], corners[1], corners[2], corners[3], color, bold);
        addElement();
    }
    sum.Add(std::int32_t{file.ErrorStatus()});
    return sum.Value();
}

// ---- conversions ---------------------------------------------------------------------------------------------

// Multiples of 15 degrees, where results are exact or nearly 0, and others, up to many turns.
template <class Use>
void ForEachPhase(Use use)
{
    for (int degrees = -720; degrees <= 720; degrees += 15) {
        use(static_cast<float>(degrees));
        use(static_cast<float>(degrees) + 0.0009765625F);
        use(static_cast<float>(degrees) - 0.0009765625F);
    }
    for (int i = 0; i < 100; ++i) use(static_cast<float>(i * i * i) * 1.37F);
}

template <class File>
std::uint64_t BitsOfRealAndImaginary(const File& file)
{
    Checksum sum;
    for (const float magnitude : {0.0F, 1e-30F, 1e-7F, 0.1F, 1.0F, 3.14159F, 12345.678F, 3e38F}) {
        ForEachPhase([&](float phase) {
            sum.Add(file.GetRealValueFrom(magnitude, phase));
            sum.Add(file.GetImaginaryValueFrom(magnitude, phase));
        });
    }
    return sum.Value();
}

template <class File>
std::uint64_t BitsOfMagnitudeAndPhase(const File& file)
{
    constexpr float parts[] = {0.0F,       1e-38F, 1e-20F, 0.001F,   0.5F,  1.0F,
                               1.0000001F, 2.5F,   100.0F, 65536.0F, 1e20F, 3e38F};
    Checksum sum;
    for (const float re : parts) {
        for (const float im : parts) {
            for (const auto& [real, imaginary] : {std::pair(re, im), {-re, im}, {re, -im}, {-re, -im}}) {
                sum.Add(file.GetMagnitudeValueFrom(real, imaginary));
                sum.Add(file.GetPhaseValueFrom(real, imaginary, false));
                sum.Add(file.GetPhaseValueFrom(real, imaginary, true));
                sum.Add(file.GetPhaseValueFrom(double{real}, double{imaginary}, false)); // a quotient in double
            }
        }
    }
    return sum.Value();
}

} // namespace qor::test
