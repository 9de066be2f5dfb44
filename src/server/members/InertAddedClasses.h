// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The added interfaces as clsQOR_File itself has them: empty on purpose. Their working members belong to objects of
// the classes ClassAdd_1 to ClassAdd_5.
#pragma once

#include "server/Interfaces.h"
#include "server/dispatch/Dispatched.h"
#include "server/members/Arguments.h"

namespace qor::server {

class InertAddedClasses : public Dispatched<_ClassAdd_1>,
                          public Dispatched<_ClassAdd_2>,
                          public Dispatched<_ClassAdd_3>,
                          public Dispatched<_ClassAdd_4>,
                          public Dispatched<_ClassAdd_5>
{
public:
    STDMETHODIMP get_TraceLinPower(LONG, TraceLinPowerFlags* value) override { return Nothing(value); }
    STDMETHODIMP put_TraceLinPower(LONG, TraceLinPowerFlags) override { return S_OK; }

    STDMETHODIMP get_DataBlockPeakRMS(DataBlockPeakRMSFlags* value) override { return Nothing(value); }
    STDMETHODIMP put_DataBlockPeakRMS(DataBlockPeakRMSFlags) override { return S_OK; }

    STDMETHODIMP get_TraceZaxisLabel(LONG, BSTR* value) override { return Nothing(value); }
    STDMETHODIMP put_TraceZaxisLabel(LONG, BSTR) override { return S_OK; }

    STDMETHODIMP get_StructureNumberOfQuadSurfaces(LONG* value) override { return Nothing(value); }
    STDMETHODIMP put_StructureNumberOfQuadSurfaces(LONG) override { return S_OK; }
    STDMETHODIMP ReadStructureQuadSurface(LONG*, LONG*, LONG*, LONG*, LONG*, LONG*, VARIANT_BOOL*,
                                          oReturnStatus* result) override
    {
        return Nothing(result);
    }
    STDMETHODIMP WriteStructureQuadSurface(LONG*, LONG*, LONG*, LONG*, LONG*, LONG*, VARIANT_BOOL*,
                                           oReturnStatus* result) override
    {
        return Nothing(result);
    }

    STDMETHODIMP get_XaxisUnits(XaxisUnitsAre* value) override { return Nothing(value); }
    STDMETHODIMP put_XaxisUnits(XaxisUnitsAre) override { return S_OK; }
    STDMETHODIMP get_DataBlockRPM(float* value) override { return Nothing(value); }
    STDMETHODIMP put_DataBlockRPM(float) override { return S_OK; }
    STDMETHODIMP get_DataBlockExponentialWindowDampingInHz(float* value) override { return Nothing(value); }
    STDMETHODIMP put_DataBlockExponentialWindowDampingInHz(float) override { return S_OK; }

private:
    // A result of 0; of a text the empty one, which is a null BSTR.
    template <class Target>
    static HRESULT Nothing(Target* value) noexcept
    {
        if (!value) return MissingArgument();
        *value = Target{};
        return S_OK;
    }
};

} // namespace qor::server
