// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The members of _clsQOR_File on Structures.
#pragma once

#include "server/members/ShapeTableServer.h"

namespace qor::server {

class StructureServer : public ShapeTableServer
{
public:
    STDMETHODIMP WriteStructureVertexPointInformation(LONG* VertexPointNumber, LONG* CenterPointNumber,
                                                      PointTypes* PointType, AxisNumbers* NormalAxis, float* Area,
                                                      ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::WriteStructureVertexPointInformation, result, VertexPointNumber,
                    CenterPointNumber, Optional{PointType}, Optional{NormalAxis}, Optional{Area});
    }

    STDMETHODIMP WriteStructureVertexPointTransform(LONG* VertexPointNumber, AxisNumbers* AxisNumber, float* AxisEnd_X,
                                                    float* AxisEnd_Y, float* AxisEnd_Z, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::WriteStructureVertexPointTransform, result, VertexPointNumber, AxisNumber,
                    AxisEnd_X, AxisEnd_Y, AxisEnd_Z);
    }

    STDMETHODIMP ReadStructureVertexPointInformation(LONG* VertexPointNumber, LONG* CenterPointNumber,
                                                     PointTypes* TransformType, AxisNumbers* NormalAxis, float* Area,
                                                     ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::ReadStructureVertexPointInformation, result, VertexPointNumber,
                    CenterPointNumber, Optional{TransformType}, Optional{NormalAxis}, Optional{Area});
    }

    STDMETHODIMP ReadStructureVertexPointTransform(LONG* VertexPointNumber, AxisNumbers* AxisNumber, float* AxisEnd_X,
                                                   float* AxisEnd_Y, float* AxisEnd_Z, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::ReadStructureVertexPointTransform, result, VertexPointNumber, AxisNumber,
                    AxisEnd_X, AxisEnd_Y, AxisEnd_Z);
    }

    STDMETHODIMP InitializeStructureStorage() override
    {
        return Do([&] { file_.InitializeStructureStorage(); });
    }

    STDMETHODIMP InputStructureFile(BSTR* FilePathName, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::InputStructureFile, result, FilePathName);
    }

    STDMETHODIMP OutputStructureFile(BSTR Structure_FilePathName, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::OutputStructureFile, result, Structure_FilePathName);
    }

    STDMETHODIMP ReadStructureEdgeLine(LONG* EdgeLineNumber, LONG* StartVertexPoint, LONG* EndVertexPoint,
                                       LONG* EdgeLineColor, VARIANT_BOOL* EdgeLineBold, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::ReadStructureEdgeLine, result, EdgeLineNumber, StartVertexPoint,
                    EndVertexPoint, EdgeLineColor, EdgeLineBold);
    }

    STDMETHODIMP ReadStructureSurfaceTriangle(LONG* SurfaceTriangleNumber, LONG* StartVertexPoint,
                                              LONG* MiddleVertexPoint, LONG* EndVertexPoint, LONG* SurfaceTriangleColor,
                                              VARIANT_BOOL* SurfaceTriangleBold, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::ReadStructureSurfaceTriangle, result, SurfaceTriangleNumber, StartVertexPoint,
                    MiddleVertexPoint, EndVertexPoint, SurfaceTriangleColor, SurfaceTriangleBold);
    }

    STDMETHODIMP ReadStructureVertexPoint(LONG* VertexPointNumber, BSTR* VertexPointLabel, float* VertexPointXcoord,
                                          float* VertexPointYcoord, float* VertexPointZcoord, LONG* VertexPointColor,
                                          VARIANT_BOOL* VertexPointBold, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::ReadStructureVertexPoint, result, VertexPointNumber, VertexPointLabel,
                    VertexPointXcoord, VertexPointYcoord, VertexPointZcoord, VertexPointColor, VertexPointBold);
    }

    STDMETHODIMP get_Structure_Label(BSTR* value) override
    {
        return Get(value, [&] { return file_.Structure_Label(); });
    }

    STDMETHODIMP put_Structure_Label(BSTR value) override
    {
        return Do([&] { file_.Structure_Label(TextOf(value)); });
    }

    STDMETHODIMP get_Structure_Notes(BSTR* value) override
    {
        return Get(value, [&] { return file_.Structure_Notes(); });
    }

    STDMETHODIMP put_Structure_Notes(BSTR value) override
    {
        return Do([&] { file_.Structure_Notes(TextOf(value)); });
    }

    STDMETHODIMP get_Structure_NumberOfEdgeLines(LONG* value) override
    {
        return Get(value, [&] { return file_.Structure_NumberOfEdgeLines(); });
    }

    STDMETHODIMP put_Structure_NumberOfEdgeLines(LONG value) override
    {
        return Do([&] { file_.Structure_NumberOfEdgeLines(value); });
    }

    STDMETHODIMP get_Structure_NumberOfSurfaceTriangles(LONG* value) override
    {
        return Get(value, [&] { return file_.Structure_NumberOfSurfaceTriangles(); });
    }

    STDMETHODIMP put_Structure_NumberOfSurfaceTriangles(LONG value) override
    {
        return Do([&] { file_.Structure_NumberOfSurfaceTriangles(value); });
    }

    STDMETHODIMP get_Structure_NumberOfVertexPoints(LONG* value) override
    {
        return Get(value, [&] { return file_.Structure_NumberOfVertexPoints(); });
    }

    STDMETHODIMP put_Structure_NumberOfVertexPoints(LONG value) override
    {
        return Do([&] { file_.Structure_NumberOfVertexPoints(value); });
    }

    STDMETHODIMP WriteStructureEdgeLine(LONG* EdgeLineNumber, LONG* StartVertexPoint, LONG* EndVertexPoint,
                                        LONG* EdgeLineColor, VARIANT_BOOL* EdgeLineBold, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::WriteStructureEdgeLine, result, EdgeLineNumber, StartVertexPoint,
                    EndVertexPoint, Optional{EdgeLineColor}, Optional{EdgeLineBold});
    }

    STDMETHODIMP WriteStructureSurfaceTriangle(LONG* SurfaceTriangleNumber, LONG* StartVertexPoint,
                                               LONG* MiddleVertexPoint, LONG* EndVertexPoint,
                                               LONG* SurfaceTriangleColor, VARIANT_BOOL* SurfaceTriangleBold,
                                               ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::WriteStructureSurfaceTriangle, result, SurfaceTriangleNumber, StartVertexPoint,
                    MiddleVertexPoint, EndVertexPoint, Optional{SurfaceTriangleColor}, Optional{SurfaceTriangleBold});
    }

    STDMETHODIMP WriteStructureVertexPoint(LONG* VertexPointNumber, BSTR* VertexPointLabel, float* VertexPointXcoord,
                                           float* VertexPointYcoord, float* VertexPointZcoord, LONG* VertexPointColor,
                                           VARIANT_BOOL* VertexPointBold, ReturnStatus* result) override
    {
        return Call(file_, &clsQOR_File::WriteStructureVertexPoint, result, VertexPointNumber, VertexPointLabel,
                    VertexPointXcoord, VertexPointYcoord, VertexPointZcoord, Optional{VertexPointColor},
                    Optional{VertexPointBold});
    }
};

} // namespace qor::server
