// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The members of _clsQOR_File on Shape Tables.
#pragma once

#include "server/members/DataBlockServer.h"

namespace qor::server {

class ShapeTableServer : public DataBlockServer
{
public:
    STDMETHODIMP InitializeShapeTableStorage() override
    {
        return Do([&] { file_.InitializeShapeTableStorage(); });
    }

    STDMETHODIMP OutputShapeTableFile(BSTR ShapeTable_FilePathName, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::OutputShapeTableFile, result, ShapeTable_FilePathName);
    }

    STDMETHODIMP ReadShapeDOFvalue(LONG* ShapeNumber, LONG* DOFnumber, float* MagnitudeValue, float* PhaseValue,
                                   ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::ReadShapeDOFvalue, result, ShapeNumber, DOFnumber, MagnitudeValue, PhaseValue);
    }

    STDMETHODIMP get_Shape_Damping(LONG ShapeNumber, float* value) override
    {
        return Get(value, [&] { return file_.Shape_Damping(ShapeNumber); });
    }

    STDMETHODIMP put_Shape_Damping(LONG ShapeNumber, float value) override
    {
        return Do([&] { file_.Shape_Damping(ShapeNumber, value); });
    }

    STDMETHODIMP get_ShapeTable_Label(BSTR* value) override
    {
        return Get(value, [&] { return file_.ShapeTable_Label(); });
    }

    STDMETHODIMP put_ShapeTable_Label(BSTR value) override
    {
        return Do([&] { file_.ShapeTable_Label(TextOf(value)); });
    }

    STDMETHODIMP get_ShapeTable_Notes(BSTR* value) override
    {
        return Get(value, [&] { return file_.ShapeTable_Notes(); });
    }

    STDMETHODIMP put_ShapeTable_Notes(BSTR value) override
    {
        return Do([&] { file_.ShapeTable_Notes(TextOf(value)); });
    }

    STDMETHODIMP get_ShapeTable_NumberOfDOFs(LONG* value) override
    {
        return Get(value, [&] { return file_.ShapeTable_NumberOfDOFs(); });
    }

    STDMETHODIMP put_ShapeTable_NumberOfDOFs(LONG value) override
    {
        return Do([&] { file_.ShapeTable_NumberOfDOFs(value); });
    }

    STDMETHODIMP get_ShapeTable_NumberOfShapes(LONG* value) override
    {
        return Get(value, [&] { return file_.ShapeTable_NumberOfShapes(); });
    }

    STDMETHODIMP put_ShapeTable_NumberOfShapes(LONG value) override
    {
        return Do([&] { file_.ShapeTable_NumberOfShapes(value); });
    }

    STDMETHODIMP get_DOF_DataSVT(LONG DOFnumber, SVTvalues* value) override
    {
        return Get(value, [&] { return file_.DOF_DataSVT(DOFnumber); });
    }

    STDMETHODIMP put_DOF_DataSVT(LONG DOFnumber, SVTvalues value) override
    {
        return Do([&] { file_.DOF_DataSVT(DOFnumber, value); });
    }

    STDMETHODIMP get_DOF_DegreesOfFreedom(LONG DOFnumber, BSTR* value) override
    {
        return Get(value, [&] { return file_.DOF_DegreesOfFreedom(DOFnumber); });
    }

    STDMETHODIMP put_DOF_DegreesOfFreedom(LONG DOFnumber, BSTR value) override
    {
        return Do([&] { file_.DOF_DegreesOfFreedom(DOFnumber, TextOf(value)); });
    }

    STDMETHODIMP get_DOF_Label(LONG DOFnumber, BSTR* value) override
    {
        return Get(value, [&] { return file_.DOF_Label(DOFnumber); });
    }

    STDMETHODIMP put_DOF_Label(LONG DOFnumber, BSTR value) override
    {
        return Do([&] { file_.DOF_Label(DOFnumber, TextOf(value)); });
    }

    STDMETHODIMP get_DOF_MeasurementType(LONG DOFnumber, ShapeTable_MeasurementTypes* value) override
    {
        return Get(value, [&] { return file_.DOF_MeasurementType(DOFnumber); });
    }

    STDMETHODIMP put_DOF_MeasurementType(LONG DOFnumber, ShapeTable_MeasurementTypes value) override
    {
        return Do([&] { file_.DOF_MeasurementType(DOFnumber, value); });
    }

    STDMETHODIMP get_DOF_MeasurementUnits(LONG DOFnumber, BSTR* value) override
    {
        return Get(value, [&] { return file_.DOF_MeasurementUnits(DOFnumber); });
    }

    STDMETHODIMP put_DOF_MeasurementUnits(LONG DOFnumber, BSTR value) override
    {
        return Do([&] { file_.DOF_MeasurementUnits(DOFnumber, TextOf(value)); });
    }

    STDMETHODIMP get_Shape_DateAndTime(LONG ShapeNumber, BSTR* value) override
    {
        return Get(value, [&] { return file_.Shape_DateAndTime(ShapeNumber); });
    }

    STDMETHODIMP put_Shape_DateAndTime(LONG ShapeNumber, BSTR value) override
    {
        return Do([&] { file_.Shape_DateAndTime(ShapeNumber, TextOf(value)); });
    }

    STDMETHODIMP get_Shape_Ordinate(LONG ShapeNumber, float* value) override
    {
        return Get(value, [&] { return file_.Shape_Ordinate(ShapeNumber); });
    }

    STDMETHODIMP put_Shape_Ordinate(LONG ShapeNumber, float value) override
    {
        return Do([&] { file_.Shape_Ordinate(ShapeNumber, value); });
    }

    STDMETHODIMP get_Shape_OrdinateUnits(LONG ShapeNumber, BSTR* value) override
    {
        return Get(value, [&] { return file_.Shape_OrdinateUnits(ShapeNumber); });
    }

    STDMETHODIMP put_Shape_OrdinateUnits(LONG ShapeNumber, BSTR value) override
    {
        return Do([&] { file_.Shape_OrdinateUnits(ShapeNumber, TextOf(value)); });
    }

    STDMETHODIMP get_Shape_Label(LONG ShapeNumber, BSTR* value) override
    {
        return Get(value, [&] { return file_.Shape_Label(ShapeNumber); });
    }

    STDMETHODIMP put_Shape_Label(LONG ShapeNumber, BSTR value) override
    {
        return Do([&] { file_.Shape_Label(ShapeNumber, TextOf(value)); });
    }

    STDMETHODIMP WriteShapeDOFvalue(LONG* ShapeNumber, LONG* DOFnumber, float* MagnitudeValue, float* PhaseValue,
                                    ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::WriteShapeDOFvalue, result, ShapeNumber, DOFnumber, MagnitudeValue,
                    PhaseValue);
    }
};

} // namespace qor::server
