// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "server/members/FileArraysServer.h"

#include "server/Border.h"

#include <array>

namespace qor::server {
namespace {

HRESULT Refused(HRESULT reason)
{
    switch (reason) {
    case DISP_E_ARRAYISLOCKED: return Failed(reason, u"The array is in use");
    case E_OUTOFMEMORY: return Failed(reason, u"Out of memory");
    default: return Failed(reason, u"An array of numbers is expected");
    }
}

// Reads into new arrays and, when that succeeds, puts them into the client's variables. length gives their size.
template <std::size_t Count, class Length, class ReadArrays>
HRESULT Read(ReturnStatus* result, Length&& length, const std::array<VARIANT*, Count>& variables, ReadArrays&& read)
{
    return Guarded([&] {
        if (!result) return MissingArgument();
        *result = Failure;
        std::array<ArrayResult, Count> arrays;
        const auto count = static_cast<std::size_t>(length());
        for (std::size_t number = 0; number < Count; ++number) {
            const HRESULT prepared = arrays[number].Prepare(variables[number], count);
            if (FAILED(prepared)) return Refused(prepared);
        }
        *result = std::apply([&](const auto&... array) { return read(array.Values()...); }, arrays);
        if (*result == Failure) return S_OK;
        for (ArrayResult& array : arrays) {
            if (const HRESULT ready = array.MakeReady(); FAILED(ready)) {
                *result = Failure;
                return Refused(ready);
            }
        }
        for (ArrayResult& array : arrays) array.Deliver();
        return S_OK;
    });
}

template <std::size_t Count, class WriteArrays>
HRESULT Write(ReturnStatus* result, const std::array<const VARIANT*, Count>& values, WriteArrays&& write)
{
    return Guarded([&] {
        if (!result) return MissingArgument();
        *result = Failure;
        std::array<ArrayArgument, Count> arrays;
        for (std::size_t number = 0; number < Count; ++number) {
            const HRESULT taken = arrays[number].Take(*values[number]);
            if (FAILED(taken)) return Refused(taken);
        }
        *result = std::apply([&](const auto&... array) { return write(array.Values()...); }, arrays);
        return S_OK;
    });
}

using Numbers = std::span<const float>;
using Room = std::span<float>;

} // namespace

STDMETHODIMP FileArraysServer::ReadTraceSamples(LONG TraceNumber, VARIANT* RealValues, VARIANT* ImaginaryValues,
                                                ReturnStatus* result)
{
    if (!RealValues) return MissingArgument();
    return Read<2>(
        result, [&] { return arrays_.NumberOfSamples(); }, {RealValues, ImaginaryValues},
        [&](Room real, Room imaginary) { return arrays_.ReadTraceSamples(TraceNumber, real, imaginary); });
}

STDMETHODIMP FileArraysServer::WriteTraceSamples(LONG TraceNumber, VARIANT RealValues, VARIANT ImaginaryValues,
                                                 ReturnStatus* result)
{
    return Write<2>(result, {&RealValues, &ImaginaryValues}, [&](Numbers real, Numbers imaginary) {
        return arrays_.WriteTraceSamples(TraceNumber, real, imaginary);
    });
}

STDMETHODIMP FileArraysServer::ReadDataBlockXaxisValues(VARIANT* XaxisValues, ReturnStatus* result)
{
    if (!XaxisValues) return MissingArgument();
    return Read<1>(
        result, [&] { return arrays_.NumberOfSamples(); }, {XaxisValues},
        [&](Room values) { return arrays_.ReadDataBlockXaxisValues(values); });
}

STDMETHODIMP FileArraysServer::WriteDataBlockXaxisValues(VARIANT XaxisValues, ReturnStatus* result)
{
    return Write<1>(result, {&XaxisValues}, [&](Numbers values) { return arrays_.WriteDataBlockXaxisValues(values); });
}

STDMETHODIMP FileArraysServer::ReadShapeDOFvalues(LONG ShapeNumber, VARIANT* MagnitudeValues, VARIANT* PhaseValues,
                                                  ReturnStatus* result)
{
    if (!MagnitudeValues) return MissingArgument();
    return Read<2>(
        result, [&] { return arrays_.NumberOfDOFs(); }, {MagnitudeValues, PhaseValues},
        [&](Room magnitudes, Room phases) { return arrays_.ReadShapeDOFvalues(ShapeNumber, magnitudes, phases); });
}

STDMETHODIMP FileArraysServer::WriteShapeDOFvalues(LONG ShapeNumber, VARIANT MagnitudeValues, VARIANT PhaseValues,
                                                   ReturnStatus* result)
{
    return Write<2>(result, {&MagnitudeValues, &PhaseValues}, [&](Numbers magnitudes, Numbers phases) {
        return arrays_.WriteShapeDOFvalues(ShapeNumber, magnitudes, phases);
    });
}

STDMETHODIMP FileArraysServer::ReadStructureVertexPointCoordinates(VARIANT* Xcoords, VARIANT* Ycoords, VARIANT* Zcoords,
                                                                   ReturnStatus* result)
{
    if (!Xcoords || !Ycoords || !Zcoords) return MissingArgument();
    return Read<3>(
        result, [&] { return arrays_.NumberOfVertexPoints(); }, {Xcoords, Ycoords, Zcoords},
        [&](Room x, Room y, Room z) { return arrays_.ReadStructureVertexPointCoordinates(x, y, z); });
}

STDMETHODIMP FileArraysServer::WriteStructureVertexPointCoordinates(VARIANT Xcoords, VARIANT Ycoords, VARIANT Zcoords,
                                                                    ReturnStatus* result)
{
    return Write<3>(result, {&Xcoords, &Ycoords, &Zcoords}, [&](Numbers x, Numbers y, Numbers z) {
        return arrays_.WriteStructureVertexPointCoordinates(x, y, z);
    });
}

} // namespace qor::server
