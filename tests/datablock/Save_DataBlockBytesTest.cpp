// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The writer of Data Block files: exact bytes. The hex is that of the layout, typed field by field.
#include "datablock/Saving.h"

namespace qor::test {
namespace {

TEST(SaveDataBlock, AnEmptyDocumentIsTheseBytes)
{
    const Bytes expected = Hex(R"(
    44 55 6C 6D 65 65 72 51 4F 52 20 42 69 6E 61 72 // DUlmeerQOR Binar
    79 20 44 61 74 61 42 6C 6F 63 6B 20 46 69 6C 65 // y DataBlock File
    2E 0D 0A // . and the line end
    0C 00 // version 12
    00 00  00 00  00 00  00 00  00 00  00 00  00 00 // reserved
    00 08  64 01 00 00 // Data Block record, 356 bytes
    01 00  01 00 // tag 1
    03 00  00 00 // tag 3
    04 00  00 00 00 00 // tag 4
    14 00  01 00 // tag 20
    13 00  00 00 // tag 19
    06 00  01 00 // tag 6
    07 00  00 00 00 00 // tag 7
    08 00  00 00 00 00 // tag 8
    15 00  12 00 00 00 // tag 21: 18 characters
          44 00  61 00  74 00  61 00  20 00  42 00  6C 00  6F 00  63 00  6B 00
          20 00  68 00  69 00  73 00  74 00  6F 00  72 00  79 00
    16 00  00 00 // tag 22
    17 00  00 00 00 00 // tag 23
    18 00  00 00 // tag 24
    19 00  00 00 // tag 25
    1A 00  00 00 // tag 26
    1B 00  00 00 // tag 27
    1C 00  BB 04 // tag 28
    1D 00  04 00 // tag 29
    1E 00  00 00 A0 41 // tag 30
    20 00  25 05 // tag 32
    24 00  01 00 // tag 36
    25 00  01 00 // tag 37
    26 00  01 00 // tag 38
    27 00  BB 04 // tag 39
    28 00  04 00 // tag 40
    29 00  FF FF // tag 41
    2A 00  FF FF // tag 42
    2B 00  FF FF // tag 43
    2C 00  FF FF // tag 44
    2D 00  FF FF // tag 45
    2E 00  FF FF // tag 46
    0E 00  FF FF FF 00 // tag 14
    0F 00  FF FF FF 00 // tag 15
    10 00  FF 00 00 00 // tag 16
    30 00  FF 00 00 00 // tag 48
    11 00  00 00 FF 00 // tag 17
    12 00  E0 E0 E0 00 // tag 18
    31 00  00 00 // tag 49
    32 00  00 00 // tag 50
    33 00  01 00 00 00 // tag 51
    34 00  01 00 00 00 // tag 52
    35 00  FF FF // tag 53
    36 00  01 00 00 00 // tag 54
    37 00  01 00 00 00 // tag 55
    38 00  01 00 00 00 // tag 56
    39 00  00 00 // tag 57
    3A 00  00 00 // tag 58
    49 00  00 00 // tag 73
    4A 00  00 00 // tag 74
    4B 00  00 00 // tag 75
    4C 00  DD 04 // tag 76
    4D 00  00 00 // tag 77
    4E 00  00 00 // tag 78
    4F 00  00 00 // tag 79
    50 00  00 00 // tag 80
    51 00  00 00 // tag 81
    52 00  00 00 // tag 82
    53 00  00 00 // tag 83
    54 00  00 00 // tag 84
    55 00  00 00 // tag 85
    56 00  00 00 // tag 86
    57 00  00 00 // tag 87
    58 00  00 00 // tag 88
    59 00  00 00 // tag 89
    5A 00  00 00 // tag 90
    5B 00  00 00 // tag 91
    5C 00  00 00 // tag 92
    5E 00  00 00 00 00 // tag 94
    5F 00  00 00 00 00 // tag 95
    60 00  00 00 // tag 96
    61 00  00 00 // tag 97
    FF 00 // closing tag
    AA AA // end marker
)");

    const Saved saved = Save(DataBlock());

    EXPECT_EQ(saved.status, Success);
    EXPECT_EQ(saved.error, NoError);
    EXPECT_EQ(saved.bytes, expected);
}

// Gives every kept value its tag as value, 16 bits wide or 32.
void NumberKeptValues(DataBlock& block)
{
    for (std::size_t tag = 1; tag < block.Kept.size(); ++tag) block.Kept[tag] = static_cast<std::uint32_t>(tag);
}

DataBlockFile& AddRange(DataBlockFile& file, int first, int last, Bytes (*value)(int))
{
    for (int tag = first; tag <= last; ++tag) file.Field(tag, value(tag));
    return file;
}

Bytes Wide(int value) { return Int32(value); }

TEST(SaveDataBlock, AFullHeaderHasItsFieldsInTheOrderOfExistingFiles)
{
    DataBlock block;
    NumberKeptValues(block);
    block.Label = u"L";
    block.XaxisUnits = u"Hz";
    block.Notes = u"N";
    block.KeptText = u"T";
    block.NumberOfSamples = 2;
    block.DataFormat = ComplexFormat;
    block.XaxisSpacing = XaxisSpacing_Octave;
    Fill(block, block.Xaxis, {0.5F, 4});
    block.PeakRMS = 1247;
    block.XaxisUnitsCode = 7;
    block.ExponentialWindowDampingInHz = 0.25F;
    block.RPM = 3000;
    block.DataBlockFromFile = true;
    block.AuxiliaryTrace.emplace();
    Fill(block, *block.AuxiliaryTrace, {{1, 2}, {3, 4}});
    block.AuxiliaryTraces.resize(2);
    Fill(block, block.AuxiliaryTraces[0], {{5, 6}, {7, 8}});
    Fill(block, block.AuxiliaryTraces[1], {{9, 10}, {11, 12}});

    DataBlockFile file;
    file.Field(1, Int16(1)).Field(2, Text(u"L")).Field(13, Text(u"Hz"));
    file.Field(3, Int16(0)).Field(4, Int32(2)).Field(20, Int16(2)).Field(19, Int16(19)).Field(6, Int16(3));
    file.Field(10, Floats({0.5F, 4})).Field(21, Text(u"N")).Field(22, Int16(22)).Field(23, Int32(23));
    AddRange(file, 24, 29, Int16).Field(30, Int32(30)).Field(32, Int16(32)).Field(67, Int32(67)).Field(68, Int32(68));
    AddRange(file, 36, 46, Int16).Field(14, Int32(14)).Field(15, Int32(15)).Field(16, Int32(16));
    file.Field(48, Int32(48)).Field(17, Int32(17)).Field(18, Int32(18)).Field(49, Int16(49)).Field(50, Int16(50));
    file.Field(51, Int32(51)).Field(52, Int32(52)).Field(53, Int16(53));
    AddRange(file, 54, 56, Wide).Field(57, Int16(57)).Field(58, Int16(58));
    file.Field(59, Text(u"T")).Field(60, Int32(60)).Field(61, Int16(61)).Field(63, Int16(63)).Field(62, Int16(62));
    file.Field(64, Int16(64)).Field(65, Floats({1, 2, 3, 4}));
    file.Field(99, Int16(2) + Floats({5, 6, 7, 8, 9, 10, 11, 12})).Field(72, Int32(67));
    AddRange(file, 73, 75, Int16).Field(76, Int16(1247));
    AddRange(file, 77, 92, Int16).Field(93, Int32(68)).Field(94, Int32(94)).Field(95, Int32(95));
    file.Field(96, Int16(96))
        .Field(97, Int16(97))
        .Field(100, Int16(7))
        .Field(123, Float(0.25F))
        .Field(160, Float(3000));

    EXPECT_EQ(Save(block).bytes, file.Build());
}

TEST(SaveDataBlock, AFullTraceHasItsFieldsInTheOrderOfExistingFiles)
{
    DataBlock block;
    SetSizes(block, 1, 2, ComplexFormat);
    Trace& trace = block.Traces.Edit(1);
    Fill(block, trace.ComplexSamples, {{1, 2}, {3, 4}});
    Fill(block, trace.SecondComplexSamples, {{5, 6}, {7, 8}});
    trace.Label = u"L";
    trace.DateAndTime = u"D";
    trace.DegreesOfFreedom = u"1Z";
    trace.MeasurementUnits = u"g";
    trace.ZaxisLabel = u"z";
    trace.KeptText1 = u"k1";
    trace.KeptText2 = u"k2";
    trace.DataSVT = 5;
    trace.MeasurementType = 4;
    trace.LinPower = 1;
    trace.KeptArray = {10, 11, 12, 13, 14, 15, 16};
    for (std::size_t tag = 1; tag < trace.Kept.size(); ++tag) trace.Kept[tag] = static_cast<std::uint32_t>(tag);
    trace.SubRecords = {{1, 2, 3, 4, 5, 6}, {0xFFFFFFFF, 8, 9, 10, 11, 12}};

    RecordBytes expected = TraceBytes();
    expected.Field(2, Text(u"L")).Field(3, Text(u"D")).Field(23, Text(u"1Z")).Field(24, Text(u"g"));
    expected.Field(17, Floats({1, 2, 3, 4})).Field(27);
    for (const auto& values : {std::vector<int>{1, 2, 3, 4, 5, 6}, std::vector<int>{-1, 8, 9, 10, 11, 12}}) {
        RecordBytes subRecord(SubRecordType);
        int tag = 1;
        for (const int value : values) subRecord.Field(tag++, Int32(value));
        expected.Nested(subRecord);
    }
    expected.Field(28).Field(25, Int32(25)).Field(26, Int16(26)).Field(22, Int16(22)).Field(30, Int16(5));
    expected.Field(6, Int16(4)).Field(31, Int16(31));
    for (int tag = 33; tag <= 40; ++tag) expected.Field(tag, Int32(tag));
    expected.Field(29, Text(u"z"));
    expected.Field(32, Int32(10) + Int32(11) + Int32(12) + Int32(13) + Int32(14) + Int32(15) + Int32(16));
    expected.Field(41, Floats({5, 6, 7, 8})).Field(42, Text(u"k1")).Field(43, Text(u"k2"));
    expected.Field(44, Int16(1)).Field(45, Int16(45));
    const Bytes list = Int16(11) + expected.Build() + Int16(12);

    const Bytes bytes = Save(block).bytes;

    EXPECT_NE(std::search(bytes.begin(), bytes.end(), list.begin(), list.end()), bytes.end());
}

} // namespace
} // namespace qor::test
