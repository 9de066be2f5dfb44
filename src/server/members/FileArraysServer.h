// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The members of IQOR_FileArrays: a client's arrays, and one call of the component.
#pragma once

#include "server/Interfaces.h"
#include "server/dispatch/Dispatched.h"
#include "server/members/ArrayArguments.h"

#include <QOR_File/FileArrays.h>

namespace qor::server {

class FileArraysServer : public Dispatched<IQOR_FileArrays>
{
public:
    // The documents of the thread as they are stored.
    FileArraysServer() = default;
    // The documents as an object sees them.
    explicit FileArraysServer(FileArrays arrays) : arrays_(arrays) {}

    STDMETHODIMP ReadTraceSamples(LONG TraceNumber, VARIANT* RealValues, VARIANT* ImaginaryValues,
                                  ReturnStatus* result) override;
    STDMETHODIMP WriteTraceSamples(LONG TraceNumber, VARIANT RealValues, VARIANT ImaginaryValues,
                                   ReturnStatus* result) override;
    STDMETHODIMP ReadDataBlockXaxisValues(VARIANT* XaxisValues, ReturnStatus* result) override;
    STDMETHODIMP WriteDataBlockXaxisValues(VARIANT XaxisValues, ReturnStatus* result) override;
    STDMETHODIMP ReadShapeDOFvalues(LONG ShapeNumber, VARIANT* MagnitudeValues, VARIANT* PhaseValues,
                                    ReturnStatus* result) override;
    STDMETHODIMP WriteShapeDOFvalues(LONG ShapeNumber, VARIANT MagnitudeValues, VARIANT PhaseValues,
                                     ReturnStatus* result) override;
    STDMETHODIMP ReadStructureVertexPointCoordinates(VARIANT* Xcoords, VARIANT* Ycoords, VARIANT* Zcoords,
                                                     ReturnStatus* result) override;
    STDMETHODIMP WriteStructureVertexPointCoordinates(VARIANT Xcoords, VARIANT Ycoords, VARIANT Zcoords,
                                                      ReturnStatus* result) override;

private:
    FileArrays arrays_;
};

} // namespace qor::server
