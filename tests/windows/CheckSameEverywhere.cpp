// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Files, what is read of them, and conversions, to the last bit.
#include "Check.h"

#include <QOR_File/QOR_File.h>

#include "windows/SameEverywhere.h"

namespace qor::test {
namespace {

struct Library {
    using File = clsQOR_File;
    using ClassAdd_1 = ::ClassAdd_1;
    using ClassAdd_2 = ::ClassAdd_2;
    using ClassAdd_3 = ::ClassAdd_3;
    using ClassAdd_4 = ::ClassAdd_4;
    using ClassAdd_5 = ::ClassAdd_5;
    using Truth = Bool16;
    static std::int16_t Number(Truth truth) { return truth.value; }
};

} // namespace

void CheckSameEverywhere()
{
    const Folder folder(u"QOR_File same ");
    const auto path = [&](const char* name) { return (folder / name).u16string(); };
    clsQOR_File file;
    FillDataBlock<Library>(file);
    FillShapeTable<Library>(file);
    FillStructure<Library>(file);
    file.OutputDataBlockFile(path("block.blk"));
    file.OutputShapeTableFile(path("modes.shp"));
    file.OutputStructureFile(path("body.str"));
    CheckEqual(ChecksumOf(path("block.blk")), DataBlockFileBits,
               "a Data Block file has the bytes of every other build");
    CheckEqual(ChecksumOf(path("modes.shp")), ShapeTableFileBits, "so has a Shape Table file");
    CheckEqual(ChecksumOf(path("body.str")), StructureFileBits, "so has a Structure file");

    clsQOR_File reader;
    reader.InputDataBlockFile(path("block.blk"));
    reader.InputStructureFile(path("body.str"));
    CheckEqual(BitsOfDataBlock<Library>(reader), ReadDataBlockBits, "a Data Block is read with the same values");
    CheckEqual(BitsOfStructure<Library>(reader), ReadStructureBits, "so is a Structure");

    CheckEqual(BitsOfRealAndImaginary(file), RealAndImaginaryBits, "real and imaginary parts have the same bits");
    CheckEqual(BitsOfMagnitudeAndPhase(file), MagnitudeAndPhaseBits, "so have magnitudes and phases");
}

} // namespace qor::test
