// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A thread's documents for tests of single calls: filled in one go, and compared as a whole.
#pragma once

#include "server/ComClient.h"
#include "windows/SameEverywhere.h"

namespace qor::test {

// An apartment, an object of each class, and a folder. The documents are those of SameEverywhere.h.
class Documents
{
public:
    Documents()
    {
        Fill();
        file.OutputDataBlockFile(Path(u"block.blk"));
        file.OutputStructureFile(Path(u"body.str"));
    }

    void Fill()
    {
        FillDataBlock<ComClient>(file);
        FillShapeTable<ComClient>(file);
        FillStructure<ComClient>(file);
        file.ErrorStatus(NoError);
    }

    std::u16string Path(const std::u16string& name) const { return (folder_ / name).u16string(); }
    std::wstring WidePath(const wchar_t* name) const { return (folder_ / name).wstring(); }

    // Of the error, and of everything that the documents' files hold.
    std::uint64_t Bits()
    {
        Checksum sum;
        sum.Add(std::int32_t{file.ErrorStatus()});
        sum.Add(std::int32_t{file.DataBlock_TraceDataFormat()});
        sum.Add(std::int32_t{file.OutputDataBlockFile(Path(u"is.blk"))});
        sum.Add(std::int32_t{file.OutputShapeTableFile(Path(u"is.shp"))});
        sum.Add(std::int32_t{file.OutputStructureFile(Path(u"is.str"))});
        for (const char16_t* name : {u"is.blk", u"is.shp", u"is.str"})
            for (const char byte : BytesOf(folder_ / name)) sum.Add(std::int32_t{byte});
        return sum.Value();
    }

private:
    Apartment apartment_;
    Folder folder_{u"QOR_File documents "};

public:
    ComClient::File file;
    ComClient::ClassAdd_1 add1;
    ComClient::ClassAdd_2 add2;
    ComClient::ClassAdd_3 add3;
    ComClient::ClassAdd_4 add4;
    ComClient::ClassAdd_5 add5;
    Held<IQOR_FileArrays> arrays = Create<QOR_FileArrays, IQOR_FileArrays>();

    // The default interfaces of all classes.
    std::vector<IDispatch*> Objects() const
    {
        return {file.Get(), add1.Get(), add2.Get(), add3.Get(), add4.Get(), add5.Get(), arrays.Get()};
    }
};

} // namespace qor::test
