// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "faults/Operations.h"

namespace qor::test {
namespace {

// A name that ends as folders do, so that a file that is missing has one that is there.
void FillWithFolder(World& world)
{
    Fill(world);
    WriteBytes(std::filesystem::path(world.target) += '\\', {});
}

} // namespace

const std::vector<Operation>& ComponentOperations()
{
    static const std::vector<Operation> operations = {
        {"RuntimeFault::RuntimeFault", Fill,
         [](World&) { return Number(RuntimeFault(RuntimeFault::Overflow).Number()); }, NeverAsks},
        {"RuntimeFault::what", Fill,
         [](World&) { return Number(std::string_view(RuntimeFault(RuntimeFault::Overflow).what()).size()); },
         NeverAsks},
        {"RuntimeFault::Number", Fill, [](World&) { return Number(RuntimeFault(RuntimeFault::Overflow).Number()); },
         NeverAsks},

        {"clsQOR_File::clsQOR_File, and so the end of the documents", Fill,
         [](World& w) {
             w.other.emplace();
             return Number(w.other->ErrorStatus());
         },
         Throws},
        {"clsQOR_File::~clsQOR_File",
         [](World& w) {
             w.other.emplace();
             Fill(w);
         },
         Sets([](World& w) { w.other.reset(); }), NeverAsks},

        {"clsQOR_File::ErrorStatus get", Fill, [](World& w) { return Number(w.file.ErrorStatus()); }, NeverAsks},
        {"clsQOR_File::ErrorStatus set", Fill, Sets([](World& w) { w.file.ErrorStatus(SampleIndexError); }),
         KeepsOldErrorText},
        {"clsQOR_File::ErrorStatus set to none", Fill, Sets([](World& w) { w.file.ErrorStatus(NoError); }), NeverAsks},
        {"clsQOR_File::GetLastErrorString", Fill, [](World& w) { return Text(w.file.GetLastErrorString()); },
         ComesToNothing},
        {"clsQOR_File::Initialize", Fill, Sets([](World& w) { w.file.Initialize(); }), NeverAsks},
        {"clsQOR_File::DLLversion", Fill, [](World& w) { return Number(w.file.DLLversion()); }, NeverAsks},

        // Path names.
        {"clsQOR_File::GetDOS_FilePathName", Fill, [](World& w) { return Text(w.file.GetDOS_FilePathName(w.path)); },
         ComesToNothing, FindsNoName},
        {"clsQOR_File::GetDOS_FilePathName of a missing file in a folder", FillWithFolder,
         [](World& w) { return Text(w.file.GetDOS_FilePathName(w.missing)); }, ComesToNothing, FindsNoFolder},
        {"clsQOR_File::GetFileName", Fill,
         [](World& w) { return Text(w.file.GetFileName(u"C:\\folder\\a file with a long name.blk")); }, ComesToNothing},
        {"clsQOR_File::GetFilePath", Fill,
         [](World& w) { return Text(w.file.GetFilePath(u"C:\\a folder with a long name\\file.blk")); }, ComesToNothing},
        {"clsQOR_File::PathNamesEqual", Fill,
         [](World& w) { return Number(w.file.PathNamesEqual(w.path, u"another file")); }, ComesToNothing, FindsNoName},
        {"clsQOR_File::PathNamesEqual of a missing file in a folder", FillWithFolder,
         [](World& w) { return Number(w.file.PathNamesEqual(w.missing, w.missingToo)); }, ComesToNothing,
         FindsNoFolder},
        {"clsQOR_File::PathNamesEqual of equal texts", Fill,
         [](World& w) { return Number(w.file.PathNamesEqual(w.path, w.path)); }, NeverAsks},

        {"FileArrays::FileArrays", Fill, [](World&) { return Number(FileArrays().NumberOfSamples()); }, NeverAsks},
        {"FileArrays::FileArrays of an object", Fill,
         [](World& w) { return Number(FileArrays(w.file).NumberOfSamples()); }, NeverAsks},
    };
    return operations;
}

} // namespace qor::test
