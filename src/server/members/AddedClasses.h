// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The added classes, whose members work on the documents of the thread.
#pragma once

#include "server/Interfaces.h"
#include "server/dispatch/Dispatched.h"
#include "server/members/Arguments.h"

namespace qor::server {

class ClassAdd_1Server : public Dispatched<_ClassAdd_1>
{
public:
    STDMETHODIMP get_TraceLinPower(LONG TraceNumber, TraceLinPowerFlags* value) override
    {
        return Get(value, [&] { return class_.TraceLinPower(TraceNumber); });
    }

    STDMETHODIMP put_TraceLinPower(LONG TraceNumber, TraceLinPowerFlags value) override
    {
        return Do([&] { class_.TraceLinPower(TraceNumber, value); });
    }

private:
    ClassAdd_1 class_;
};

class ClassAdd_2Server : public Dispatched<_ClassAdd_2>
{
public:
    STDMETHODIMP get_DataBlockPeakRMS(DataBlockPeakRMSFlags* value) override
    {
        return Get(value, [&] { return class_.DataBlockPeakRMS(); });
    }

    STDMETHODIMP put_DataBlockPeakRMS(DataBlockPeakRMSFlags value) override
    {
        return Do([&] { class_.DataBlockPeakRMS(value); });
    }

private:
    ClassAdd_2 class_;
};

class ClassAdd_3Server : public Dispatched<_ClassAdd_3>
{
public:
    STDMETHODIMP get_TraceZaxisLabel(LONG TraceNumber, BSTR* value) override
    {
        return Get(value, [&] { return class_.TraceZaxisLabel(TraceNumber); });
    }

    STDMETHODIMP put_TraceZaxisLabel(LONG TraceNumber, BSTR value) override
    {
        return Do([&] { class_.TraceZaxisLabel(TraceNumber, TextOf(value)); });
    }

private:
    ClassAdd_3 class_;
};

class ClassAdd_4Server : public Dispatched<_ClassAdd_4>
{
public:
    STDMETHODIMP get_StructureNumberOfQuadSurfaces(LONG* value) override
    {
        return Get(value, [&] { return class_.StructureNumberOfQuadSurfaces(); });
    }

    STDMETHODIMP put_StructureNumberOfQuadSurfaces(LONG value) override
    {
        return Do([&] { class_.StructureNumberOfQuadSurfaces(value); });
    }

    STDMETHODIMP ReadStructureQuadSurface(LONG* QuadSurfaceNumber, LONG* CornerVertex1Point, LONG* CornerVertex2Point,
                                          LONG* CornerVertex3Point, LONG* CornerVertex4Point, LONG* QuadSurfaceColor,
                                          VARIANT_BOOL* QuadSurfaceBold, oReturnStatus* result) override
    {
        return Call(class_, &ClassAdd_4::ReadStructureQuadSurface, result, QuadSurfaceNumber, CornerVertex1Point,
                    CornerVertex2Point, CornerVertex3Point, CornerVertex4Point, QuadSurfaceColor, QuadSurfaceBold);
    }

    STDMETHODIMP WriteStructureQuadSurface(LONG* QuadSurfaceNumber, LONG* CornerVertex1Point, LONG* CornerVertex2Point,
                                           LONG* CornerVertex3Point, LONG* CornerVertex4Point, LONG* QuadSurfaceColor,
                                           VARIANT_BOOL* QuadSurfaceBold, oReturnStatus* result) override
    {
        return Call(class_, &ClassAdd_4::WriteStructureQuadSurface, result, QuadSurfaceNumber, CornerVertex1Point,
                    CornerVertex2Point, CornerVertex3Point, CornerVertex4Point, Optional{QuadSurfaceColor},
                    Optional{QuadSurfaceBold});
    }

private:
    ClassAdd_4 class_;
};

class ClassAdd_5Server : public Dispatched<_ClassAdd_5>
{
public:
    STDMETHODIMP get_XaxisUnits(XaxisUnitsAre* value) override
    {
        return Get(value, [&] { return class_.XaxisUnits(); });
    }

    STDMETHODIMP put_XaxisUnits(XaxisUnitsAre value) override
    {
        return Do([&] { class_.XaxisUnits(value); });
    }

    STDMETHODIMP get_DataBlockRPM(float* value) override
    {
        return Get(value, [&] { return class_.DataBlockRPM(); });
    }

    STDMETHODIMP put_DataBlockRPM(float value) override
    {
        return Do([&] { class_.DataBlockRPM(value); });
    }

    STDMETHODIMP get_DataBlockExponentialWindowDampingInHz(float* value) override
    {
        return Get(value, [&] { return class_.DataBlockExponentialWindowDampingInHz(); });
    }

    STDMETHODIMP put_DataBlockExponentialWindowDampingInHz(float value) override
    {
        return Do([&] { class_.DataBlockExponentialWindowDampingInHz(value); });
    }

private:
    ClassAdd_5 class_;
};

} // namespace qor::server
