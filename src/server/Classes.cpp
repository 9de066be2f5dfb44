// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "server/Classes.h"

#include "server/ComObject.h"
#include "server/members/AddedClasses.h"
#include "server/members/FileServer.h"

#include <array>

namespace qor::server {
namespace {

// clsQOR_File implements the six interfaces that it declares, and the array interface for who asks for it.
using FileObject = ComObject<clsQOR_File, FileServer, _clsQOR_File, _ClassAdd_1, _ClassAdd_2, _ClassAdd_3, _ClassAdd_4,
                             _ClassAdd_5, IQOR_FileArrays>;

} // namespace

std::span<const CreatableClass> Classes()
{
    static const std::array classes = {
        CreatableClass{__uuidof(clsQOR_File), L"clsQOR_File", L"Data Block, Shape Table and Structure files",
                       FileObject::Create},
        CreatableClass{__uuidof(ClassAdd_1), L"ClassAdd_1", L"Linear or power quantity of a trace",
                       ComObject<ClassAdd_1, ClassAdd_1Server, _ClassAdd_1>::Create},
        CreatableClass{__uuidof(ClassAdd_2), L"ClassAdd_2", L"Peak or RMS display of a Data Block",
                       ComObject<ClassAdd_2, ClassAdd_2Server, _ClassAdd_2>::Create},
        CreatableClass{__uuidof(ClassAdd_3), L"ClassAdd_3", L"Z-axis label of a trace",
                       ComObject<ClassAdd_3, ClassAdd_3Server, _ClassAdd_3>::Create},
        CreatableClass{__uuidof(ClassAdd_4), L"ClassAdd_4", L"Quad surfaces of a Structure",
                       ComObject<ClassAdd_4, ClassAdd_4Server, _ClassAdd_4>::Create},
        CreatableClass{__uuidof(ClassAdd_5), L"ClassAdd_5", L"X-axis units, shaft speed and window of a Data Block",
                       ComObject<ClassAdd_5, ClassAdd_5Server, _ClassAdd_5>::Create},
        CreatableClass{__uuidof(QOR_FileArrays), L"QOR_FileArrays", L"Whole arrays of the documents",
                       ComObject<QOR_FileArrays, FileArraysServer, IQOR_FileArrays>::Create},
    };
    return classes;
}

std::span<const DescribedInterface> Interfaces()
{
    static const std::array interfaces = {
        DescribedInterface{__uuidof(_clsQOR_File), L"_clsQOR_File"},
        DescribedInterface{__uuidof(_ClassAdd_1), L"_ClassAdd_1"},
        DescribedInterface{__uuidof(_ClassAdd_2), L"_ClassAdd_2"},
        DescribedInterface{__uuidof(_ClassAdd_3), L"_ClassAdd_3"},
        DescribedInterface{__uuidof(_ClassAdd_4), L"_ClassAdd_4"},
        DescribedInterface{__uuidof(_ClassAdd_5), L"_ClassAdd_5"},
        DescribedInterface{__uuidof(IQOR_FileArrays), L"IQOR_FileArrays"},
    };
    return interfaces;
}

} // namespace qor::server
