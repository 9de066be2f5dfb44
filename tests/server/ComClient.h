// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The registered library behind the member names of the C++ library, called early bound. So the documents that the
// native build is tested with can be made through it.
#pragma once

#include "server/Client.h"

#include <string>
#include <string_view>

namespace qor::test {

class Text
{
public:
    explicit Text(std::u16string_view text)
        : text_(SysAllocStringLen(reinterpret_cast<const wchar_t*>(text.data()), static_cast<UINT>(text.size())))
    {}
    Text() = default;
    ~Text() { SysFreeString(text_); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;

    BSTR Get() const { return text_; }
    BSTR* Out() { return &text_; }
    std::u16string Content() const
    {
        return std::u16string(reinterpret_cast<const char16_t*>(text_), SysStringLen(text_));
    }

private:
    BSTR text_ = nullptr;
};

class ComClient
{
    template <class Class, class Interface>
    class Object
    {
    public:
        Interface* Get() const { return object_.Get(); }

    protected:
        template <class... Parameters, class... Given>
        void Do(HRESULT (STDMETHODCALLTYPE Interface::*member)(Parameters...), Given... given) const
        {
            EXPECT_HRESULT_SUCCEEDED((object_.Get()->*member)(given...));
        }
        template <class... Parameters, class... Given>
        std::u16string TextFrom(HRESULT (STDMETHODCALLTYPE Interface::*member)(Parameters...), Given... given) const
        {
            Text text;
            Do(member, given..., text.Out());
            return text.Content();
        }
        template <class Result, class... Parameters, class... Given>
        Result From(HRESULT (STDMETHODCALLTYPE Interface::*member)(Parameters...), Given... given) const
        {
            Result result{};
            Do(member, given..., &result);
            return result;
        }

        Held<Interface> object_ = Create<Class, Interface>();
    };

    static VARIANT_BOOL Truth16(bool truth) { return truth ? VARIANT_TRUE : VARIANT_FALSE; }
    static LONG* Out(std::int32_t& number) { return reinterpret_cast<LONG*>(&number); }

public:
    using Truth = VARIANT_BOOL;
    static std::int16_t Number(Truth truth) { return truth; }

#define QOR_TEXT(name)                                                                                                 \
    std::u16string name() const { return TextFrom(&Interface::get_##name); }                                           \
    void name(std::u16string_view value) { Do(&Interface::put_##name, Text(value).Get()); }
#define QOR_VALUE(type, name)                                                                                          \
    type name() const { return static_cast<type>(From<Abi<type>>(&Interface::get_##name)); }                           \
    void name(type value) { Do(&Interface::put_##name, static_cast<Abi<type>>(value)); }
#define QOR_TEXT_OF(name)                                                                                              \
    std::u16string name(std::int32_t number) const { return TextFrom(&Interface::get_##name, LONG{number}); }          \
    void name(std::int32_t number, std::u16string_view value)                                                          \
    {                                                                                                                  \
        Do(&Interface::put_##name, LONG{number}, Text(value).Get());                                                   \
    }
#define QOR_VALUE_OF(type, name)                                                                                       \
    type name(std::int32_t number) const                                                                               \
    {                                                                                                                  \
        return static_cast<type>(From<Abi<type>>(&Interface::get_##name, LONG{number}));                               \
    }                                                                                                                  \
    void name(std::int32_t number, type value)                                                                         \
    {                                                                                                                  \
        Do(&Interface::put_##name, LONG{number}, static_cast<Abi<type>>(value));                                       \
    }

    template <class Type>
    using Abi = std::conditional_t<std::is_same_v<Type, std::int32_t>, LONG, Type>;

    class File : public Object<clsQOR_File, _clsQOR_File>
    {
        using Interface = _clsQOR_File;

    public:
        QOR_TEXT(DataBlock_Label)
        QOR_TEXT(DataBlock_Notes)
        QOR_TEXT(DataBlock_XaxisUnits)
        QOR_VALUE(std::int32_t, DataBlock_NumberOfSamples)
        QOR_VALUE(std::int32_t, DataBlock_NumberOfTraces)
        QOR_VALUE(DataBlock_DataFormatTypes, DataBlock_TraceDataFormat)
        QOR_VALUE(DataBlock_XaxisSpacingTypes, DataBlock_XaxisSpacing)
        QOR_VALUE(ErrorStatusTypes, ErrorStatus)
        QOR_TEXT_OF(Trace_Label)
        QOR_TEXT_OF(Trace_DateAndTime)
        QOR_TEXT_OF(Trace_DegreesOfFreedom)
        QOR_TEXT_OF(Trace_MeasurementUnits)
        QOR_VALUE_OF(DataBlock_MeasurementTypes, Trace_MeasurementType)
        QOR_VALUE_OF(SVTvalues, Trace_DataSVT)
        QOR_TEXT(ShapeTable_Label)
        QOR_TEXT(ShapeTable_Notes)
        QOR_VALUE(std::int32_t, ShapeTable_NumberOfShapes)
        QOR_VALUE(std::int32_t, ShapeTable_NumberOfDOFs)
        QOR_TEXT_OF(Shape_Label)
        QOR_TEXT_OF(Shape_DateAndTime)
        QOR_TEXT_OF(Shape_OrdinateUnits)
        QOR_VALUE_OF(float, Shape_Ordinate)
        QOR_VALUE_OF(float, Shape_Damping)
        QOR_TEXT_OF(DOF_Label)
        QOR_TEXT_OF(DOF_DegreesOfFreedom)
        QOR_TEXT_OF(DOF_MeasurementUnits)
        QOR_VALUE_OF(SVTvalues, DOF_DataSVT)
        QOR_VALUE_OF(ShapeTable_MeasurementTypes, DOF_MeasurementType)
        QOR_TEXT(Structure_Label)
        QOR_TEXT(Structure_Notes)
        QOR_VALUE(std::int32_t, Structure_NumberOfVertexPoints)
        QOR_VALUE(std::int32_t, Structure_NumberOfEdgeLines)
        QOR_VALUE(std::int32_t, Structure_NumberOfSurfaceTriangles)

        void Initialize() { Do(&Interface::Initialize); }
        void InitializeDataBlockStorage() { Do(&Interface::InitializeDataBlockStorage); }
        void InitializeShapeTableStorage() { Do(&Interface::InitializeShapeTableStorage); }
        void InitializeStructureStorage() { Do(&Interface::InitializeStructureStorage); }

        ReturnStatus OutputDataBlockFile(std::u16string_view path)
        {
            return From<ReturnStatus>(&Interface::OutputDataBlockFile, Text(path).Get());
        }
        ReturnStatus OutputShapeTableFile(std::u16string_view path)
        {
            return From<ReturnStatus>(&Interface::OutputShapeTableFile, Text(path).Get());
        }
        ReturnStatus OutputStructureFile(std::u16string_view path)
        {
            return From<ReturnStatus>(&Interface::OutputStructureFile, Text(path).Get());
        }
        ReturnStatus InputDataBlockFile(std::u16string_view path)
        {
            Text text(path);
            return From<ReturnStatus>(&Interface::InputDataBlockFile, text.Out());
        }
        ReturnStatus InputStructureFile(std::u16string_view path)
        {
            Text text(path);
            return From<ReturnStatus>(&Interface::InputStructureFile, text.Out());
        }

        ReturnStatus ReadTraceSampleValue(std::int32_t trace, std::int32_t sample, float& first, float& second)
        {
            return From<ReturnStatus>(&Interface::ReadTraceSampleValue, Out(trace), Out(sample), &first, &second);
        }
        ReturnStatus WriteTraceSampleValue(std::int32_t trace, std::int32_t sample, float first, float second)
        {
            return From<ReturnStatus>(&Interface::WriteTraceSampleValue, Out(trace), Out(sample), &first, &second);
        }
        ReturnStatus ReadDataBlockXaxisValue(std::int32_t sample, float& x)
        {
            return From<ReturnStatus>(&Interface::ReadDataBlockXaxisValue, Out(sample), &x);
        }
        ReturnStatus WriteDataBlockXaxisValue(std::int32_t sample, float x)
        {
            return From<ReturnStatus>(&Interface::WriteDataBlockXaxisValue, Out(sample), &x);
        }
        ReturnStatus ReadShapeDOFvalue(std::int32_t shape, std::int32_t dof, float& magnitude, float& phase)
        {
            return From<ReturnStatus>(&Interface::ReadShapeDOFvalue, Out(shape), Out(dof), &magnitude, &phase);
        }
        ReturnStatus WriteShapeDOFvalue(std::int32_t shape, std::int32_t dof, float magnitude, float phase)
        {
            return From<ReturnStatus>(&Interface::WriteShapeDOFvalue, Out(shape), Out(dof), &magnitude, &phase);
        }

        float GetMagnitudeValueFrom(float real, float imaginary) const
        {
            return From<float>(&Interface::GetMagnitudeValueFrom, &real, &imaginary);
        }
        float GetRealValueFrom(float magnitude, float phase) const
        {
            return From<float>(&Interface::GetRealValueFrom, &magnitude, &phase);
        }
        float GetImaginaryValueFrom(float magnitude, float phase) const
        {
            return From<float>(&Interface::GetImaginaryValueFrom, &magnitude, &phase);
        }
        float GetPhaseValueFrom(_variant_t real, _variant_t imaginary, bool as360) const
        {
            VARIANT_BOOL truth = Truth16(as360);
            return From<float>(&Interface::GetPhaseValueFrom, static_cast<VARIANT*>(&real),
                               static_cast<VARIANT*>(&imaginary), &truth);
        }

        ReturnStatus WriteStructureVertexPoint(std::int32_t point, std::u16string_view label, float x, float y, float z,
                                               std::int32_t color, bool bold)
        {
            Text text(label);
            VARIANT_BOOL truth = Truth16(bold);
            return From<ReturnStatus>(&Interface::WriteStructureVertexPoint, Out(point), text.Out(), &x, &y, &z,
                                      Out(color), &truth);
        }
        ReturnStatus ReadStructureVertexPoint(std::int32_t point, std::u16string& label, float& x, float& y, float& z,
                                              std::int32_t& color, Truth& bold)
        {
            Text text(label);
            const auto status = From<ReturnStatus>(&Interface::ReadStructureVertexPoint, Out(point), text.Out(), &x, &y,
                                                   &z, Out(color), &bold);
            label = text.Content();
            return status;
        }
        ReturnStatus WriteStructureVertexPointTransform(std::int32_t point, AxisNumbers axis, float x, float y, float z)
        {
            return From<ReturnStatus>(&Interface::WriteStructureVertexPointTransform, Out(point), &axis, &x, &y, &z);
        }
        ReturnStatus ReadStructureVertexPointTransform(std::int32_t point, AxisNumbers axis, float& x, float& y,
                                                       float& z)
        {
            return From<ReturnStatus>(&Interface::ReadStructureVertexPointTransform, Out(point), &axis, &x, &y, &z);
        }
        ReturnStatus WriteStructureVertexPointInformation(std::int32_t point, std::int32_t center, PointTypes type,
                                                          AxisNumbers normal, float area)
        {
            return From<ReturnStatus>(&Interface::WriteStructureVertexPointInformation, Out(point), Out(center), &type,
                                      &normal, &area);
        }
        ReturnStatus WriteStructureEdgeLine(std::int32_t line, std::int32_t start, std::int32_t end, std::int32_t color,
                                            bool bold)
        {
            VARIANT_BOOL truth = Truth16(bold);
            return From<ReturnStatus>(&Interface::WriteStructureEdgeLine, Out(line), Out(start), Out(end), Out(color),
                                      &truth);
        }
        ReturnStatus ReadStructureEdgeLine(std::int32_t line, std::int32_t& start, std::int32_t& end,
                                           std::int32_t& color, Truth& bold)
        {
            return From<ReturnStatus>(&Interface::ReadStructureEdgeLine, Out(line), Out(start), Out(end), Out(color),
                                      &bold);
        }
        ReturnStatus WriteStructureSurfaceTriangle(std::int32_t triangle, std::int32_t start, std::int32_t middle,
                                                   std::int32_t end, std::int32_t color, bool bold)
        {
            VARIANT_BOOL truth = Truth16(bold);
            return From<ReturnStatus>(&Interface::WriteStructureSurfaceTriangle, Out(triangle), Out(start), Out(middle),
                                      Out(end), Out(color), &truth);
        }
        ReturnStatus ReadStructureSurfaceTriangle(std::int32_t triangle, std::int32_t& start, std::int32_t& middle,
                                                  std::int32_t& end, std::int32_t& color, Truth& bold)
        {
            return From<ReturnStatus>(&Interface::ReadStructureSurfaceTriangle, Out(triangle), Out(start), Out(middle),
                                      Out(end), Out(color), &bold);
        }
    };

    class ClassAdd_1 : public Object<::ClassAdd_1, _ClassAdd_1>
    {
        using Interface = _ClassAdd_1;

    public:
        QOR_VALUE_OF(TraceLinPowerFlags, TraceLinPower)
    };

    class ClassAdd_2 : public Object<::ClassAdd_2, _ClassAdd_2>
    {
        using Interface = _ClassAdd_2;

    public:
        QOR_VALUE(DataBlockPeakRMSFlags, DataBlockPeakRMS)
    };

    class ClassAdd_3 : public Object<::ClassAdd_3, _ClassAdd_3>
    {
        using Interface = _ClassAdd_3;

    public:
        QOR_TEXT_OF(TraceZaxisLabel)
    };

    class ClassAdd_4 : public Object<::ClassAdd_4, _ClassAdd_4>
    {
        using Interface = _ClassAdd_4;

    public:
        QOR_VALUE(std::int32_t, StructureNumberOfQuadSurfaces)

        oReturnStatus WriteStructureQuadSurface(std::int32_t quad, std::int32_t corner1, std::int32_t corner2,
                                                std::int32_t corner3, std::int32_t corner4, std::int32_t color,
                                                bool bold)
        {
            VARIANT_BOOL truth = Truth16(bold);
            return From<oReturnStatus>(&Interface::WriteStructureQuadSurface, Out(quad), Out(corner1), Out(corner2),
                                       Out(corner3), Out(corner4), Out(color), &truth);
        }
        oReturnStatus ReadStructureQuadSurface(std::int32_t quad, std::int32_t& corner1, std::int32_t& corner2,
                                               std::int32_t& corner3, std::int32_t& corner4, std::int32_t& color,
                                               Truth& bold)
        {
            return From<oReturnStatus>(&Interface::ReadStructureQuadSurface, Out(quad), Out(corner1), Out(corner2),
                                       Out(corner3), Out(corner4), Out(color), &bold);
        }
    };

    class ClassAdd_5 : public Object<::ClassAdd_5, _ClassAdd_5>
    {
        using Interface = _ClassAdd_5;

    public:
        QOR_VALUE(XaxisUnitsAre, XaxisUnits)
        QOR_VALUE(float, DataBlockRPM)
        QOR_VALUE(float, DataBlockExponentialWindowDampingInHz)
    };

#undef QOR_TEXT
#undef QOR_VALUE
#undef QOR_TEXT_OF
#undef QOR_VALUE_OF
};

} // namespace qor::test
