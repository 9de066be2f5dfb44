// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// clsQOR_File as clients see it. The members of each document stand in a layer of their own below.
#pragma once

#include "server/members/FileArraysServer.h"
#include "server/members/InertAddedClasses.h"
#include "server/members/StructureServer.h"

namespace qor::server {

class FileServer : public StructureServer, public InertAddedClasses, public FileArraysServer
{
public:
    FileServer() : FileArraysServer(FileArrays(file_)) {}

    STDMETHODIMP get_ErrorStatus(ErrorStatusTypes* value) override
    {
        return Get(value, [&] { return file_.ErrorStatus(); });
    }

    STDMETHODIMP put_ErrorStatus(ErrorStatusTypes value) override
    {
        return Do([&] { file_.ErrorStatus(value); });
    }

    STDMETHODIMP GetDOS_FilePathName(BSTR FilePathName, BSTR* result) override
    {
        return Call(file_, &clsQOR_File::GetDOS_FilePathName, result, FilePathName);
    }

    STDMETHODIMP GetFileName(BSTR* FilePathName, BSTR* result) override
    {
        return Call(file_, &clsQOR_File::GetFileName, result, FilePathName);
    }

    STDMETHODIMP GetFilePath(BSTR* FilePathName, BSTR* result) override
    {
        return Call(file_, &clsQOR_File::GetFilePath, result, FilePathName);
    }

    STDMETHODIMP GetLastErrorString(BSTR* result) override
    {
        return Call(file_, &clsQOR_File::GetLastErrorString, result);
    }

    STDMETHODIMP Initialize() override
    {
        return Do([&] { file_.Initialize(); });
    }

    STDMETHODIMP PathNamesEqual(BSTR FilePathName1, BSTR FilePathName2, VARIANT_BOOL* result) override
    {
        return Call(file_, &clsQOR_File::PathNamesEqual, result, FilePathName1, FilePathName2);
    }

    STDMETHODIMP get_DLLversion(float* value) override
    {
        return Get(value, [&] { return file_.DLLversion(); });
    }
};

} // namespace qor::server
