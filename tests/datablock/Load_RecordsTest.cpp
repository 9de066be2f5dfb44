// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The loop over records, at the file's top level and in lists: which records it takes, how lists end and nest,
// and what the end of the file comes to.
#include "support/DataBlockFile.h"
#include "support/SameDocument.h"

#include <gtest/gtest.h>

namespace qor::test {
namespace {

RecordBytes NumberedTrace(int number) { return TraceBytes().Field(6, Int16(number)); }

// ---- traces ----------------------------------------------------------------------------------------------------

TEST(Load_Records, TracesOfAListAreNumberedInTheirOrder)
{
    const Loaded loaded = LoadBytes(SizedFile(3, 2)
                                        .Field(11)
                                        .Nested(NumberedTrace(7))
                                        .Nested(NumberedTrace(8))
                                        .Nested(NumberedTrace(9))
                                        .Field(12)
                                        .Build());

    EXPECT_EQ(loaded.status, Success);
    for (std::int32_t number = 1; number <= 3; ++number) {
        EXPECT_EQ(loaded.block.Traces[number].MeasurementType, 6 + number);
    }
}

TEST(Load_Records, TracesMayStandAtTheTopLevel)
{
    const Loaded loaded =
        LoadBytes(SizedFile(2, 2).Behind(NumberedTrace(7).Build() + NumberedTrace(8).Build()).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.Traces[2].MeasurementType, 8);
}

TEST(Load_Records, EveryListCountsItsTracesAnew)
{
    const Loaded loaded = LoadBytes(SizedFile(2, 2)
                                        .Field(11)
                                        .Nested(NumberedTrace(1))
                                        .Nested(NumberedTrace(2))
                                        .Field(12)
                                        .Behind(NumberedTrace(9).Build())
                                        .Build());

    EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 9);
    EXPECT_EQ(loaded.block.Traces[2].MeasurementType, 2);
}

TEST(Load_Records, FromVersion9OnATraceTooManyIsSkipped)
{
    for (const int version : {9, 12}) {
        const Loaded loaded = LoadBytes(SizedFile(1, 2)
                                            .Version(version)
                                            .Field(11)
                                            .Nested(NumberedTrace(7))
                                            .Nested(NumberedTrace(8))
                                            .Field(12)
                                            .Field(100, Int16(5))
                                            .Build());
        EXPECT_EQ(loaded.status, Success) << version;
        EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 7) << version;
        EXPECT_EQ(loaded.block.XaxisUnitsCode, 5) << version;
    }
}

TEST(Load_Records, BeforeVersion9ATraceTooManyIsAFailure)
{
    const Loaded loaded = LoadBytes(
        SizedFile(1, 2).Version(8).Field(11).Nested(NumberedTrace(7)).Nested(NumberedTrace(8)).Field(12).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 7);
}

TEST(Load_Records, ATraceTooManyOfWrongLengthEndsTheReading)
{
    const Loaded loaded = LoadBytes(SizedFile(0, 2).Behind(NumberedTrace(7).ClaimLength(-5).Build()).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
}

TEST(Load_Records, AFailedTraceFailsTheRecordThatHoldsIt)
{
    const Loaded loaded = LoadBytes(DataBlockFile()
                                        .Field(3, Int16(2))
                                        .Field(11)
                                        .Nested(TraceBytes().Field(4, Int32(-2)).Field(17))
                                        .Nested(NumberedTrace(8))
                                        .Field(12)
                                        .Field(2, Text(u"behind"))
                                        .Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.block.Traces[2].MeasurementType, 0);
    EXPECT_EQ(loaded.block.Label, u"");
    EXPECT_FALSE(loaded.block.DataBlockFromFile);
}

// ---- other records ---------------------------------------------------------------------------------------------

TEST(Load_Records, FromVersion9OnUnknownRecordsAreSkipped)
{
    const Bytes unknown = RecordBytes(4096).Field(3, Int16(9)).Build();

    const Loaded loaded = LoadBytes(SizedFile(1, 2)
                                        .Version(9)
                                        .Before(unknown)
                                        .Field(11)
                                        .Nested(RecordBytes(512).Field(1))
                                        .Nested(NumberedTrace(7))
                                        .Field(12)
                                        .Behind(unknown)
                                        .Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.NumberOfTraces, 1);
    EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 7);
}

TEST(Load_Records, BeforeVersion9UnknownWordsArePassedOver)
{
    const Loaded loaded = LoadBytes(SizedFile(0, 5).Version(8).Before(Int16(512) + Int16(-7)).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.NumberOfSamples, 5);
}

TEST(Load_Records, ZeroWordsArePassedOver)
{
    const Loaded loaded = LoadBytes(SizedFile(0, 5).Before(Int16(0) + Int16(0)).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.NumberOfSamples, 5);
}

TEST(Load_Records, SubRecordsAreReadPastEverywhere)
{
    for (const int version : {8, 12}) {
        const Bytes subRecord = RecordBytes(SubRecordType).Field(1, Int32(1)).Build();
        const Loaded loaded = LoadBytes(SizedFile(0, 5).Version(version).Before(subRecord).Behind(subRecord).Build());
        EXPECT_EQ(loaded.status, Success) << version;
        EXPECT_EQ(loaded.error, NoError) << version;
        EXPECT_EQ(loaded.block.NumberOfSamples, 5) << version;
    }
}

TEST(Load_Records, AFileOfAnotherKindHasNothingForADataBlock)
{
    const Bytes notes = RecordBytes(256).Field(1, Text(u"notes")).Build();
    const Bytes structure = RecordBytes(512).Field(1, Int16(1)).Nested(RecordBytes(768)).Build();

    const Loaded loaded = LoadBytes(DataBlockFile()
                                        .FirstLine("DUlmeerQOR Binary Structure File.")
                                        .WithoutRecord()
                                        .Behind(notes + structure)
                                        .Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(Difference(loaded.block, DataBlock()), "");
}

TEST(Load_Records, AnUnknownRecordOfWrongLengthEndsTheReading)
{
    for (const std::int64_t length : {-1, -4, -1000, INT32_MIN, INT32_MAX}) {
        const Loaded loaded = LoadBytes(SizedFile(0, 5).Behind(RecordBytes(4096).ClaimLength(length).Build()).Build());
        EXPECT_EQ(loaded.status, Failure) << length;
        EXPECT_EQ(loaded.error, InputFile_ReadFail) << length;
        EXPECT_EQ(loaded.block.NumberOfSamples, 5) << "what was read stays";
        EXPECT_TRUE(loaded.block.DataBlockFromFile);
    }
}

TEST(Load_Records, ASecondDataBlockRecordReplacesTheFirst)
{
    const Bytes second = RecordBytes(DataBlockType).Field(13, Text(u"Hz")).Build();

    const Loaded loaded = LoadBytes(SizedFile(3, 5).Field(2, Text(u"first")).Behind(second).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.Label, u"");
    EXPECT_EQ(loaded.block.NumberOfTraces, 0);
    EXPECT_EQ(loaded.block.XaxisUnits, u"Hz");
}

TEST(Load_Records, AFailedRecordEndsTheFile)
{
    const Bytes second = RecordBytes(DataBlockType).Field(2, Text(u"second")).Build();

    const Loaded loaded = LoadBytes(DataBlockFile().Field(4, Int32(1)).Behind(second).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.block.Label, u"");
}

TEST(Load_Records, AFailedRecordDoesNotUndoThatAnEarlierOneWasRead)
{
    const Bytes second = RecordBytes(DataBlockType).Field(4, Int32(1)).Build();

    const Loaded loaded = LoadBytes(SizedFile(0, 5).Behind(second).Build());

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_TRUE(loaded.block.DataBlockFromFile);
}

// ---- ends of lists ---------------------------------------------------------------------------------------------

TEST(Load_Records, EveryListEndEndsAnyList)
{
    for (const int end : {12, 28, 255}) {
        const Loaded loaded = LoadBytes(SizedFile(1, 2)
                                            .Field(11)
                                            .Nested(TraceBytes().Field(27).Field(end).Field(6, Int16(7)))
                                            .Field(end)
                                            .Field(100, Int16(5))
                                            .Build());
        EXPECT_EQ(loaded.status, Success) << end;
        EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 7) << end;
        EXPECT_EQ(loaded.block.XaxisUnitsCode, 5) << end;
    }
}

TEST(Load_Records, ListEndsEndTheTopLevelToo)
{
    for (const int end : {12, 28, 255}) {
        const Loaded loaded = LoadBytes(SizedFile(0, 5).Before(Int16(end)).WithoutEndMarker().Build());
        EXPECT_EQ(loaded.status, Success) << end;
        EXPECT_EQ(loaded.error, NoError) << end;
        EXPECT_EQ(loaded.block.NumberOfSamples, 0) << end;
    }
}

TEST(Load_Records, TheEndMarkerEndsAListToo)
{
    const Loaded loaded =
        LoadBytes(SizedFile(1, 2).Field(11).Nested(NumberedTrace(7)).Raw(Hex("AA AA")).Field(100, Int16(5)).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.XaxisUnitsCode, 5);
}

TEST(Load_Records, NothingIsReadBehindTheEndMarker)
{
    const Loaded loaded = LoadBytes(SizedFile(0, 5).Build() + RecordBytes(DataBlockType).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.NumberOfSamples, 5);
}

// ---- nesting ---------------------------------------------------------------------------------------------------

// Data Block records inside one another, so many lists deep.
RecordBytes BlockWithLists(int lists)
{
    RecordBytes record = RecordBytes(DataBlockType).Field(4, Int32(5));
    for (int i = 0; i < lists; ++i) {
        record = RecordBytes(DataBlockType).Field(11).Nested(record).Field(12).Field(2, Text(u"outer"));
    }
    return record;
}

Bytes FileWith(const RecordBytes& record) { return DataBlockFile().WithoutRecord().Before(record.Build()).Build(); }

TEST(Load_Records, AHundredListsMayStandInsideOneAnother)
{
    const Loaded loaded = LoadBytes(FileWith(BlockWithLists(100)));

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, NoError);
    EXPECT_EQ(loaded.block.NumberOfSamples, 5);
    EXPECT_EQ(loaded.block.Label, u"outer");
}

TEST(Load_Records, OneListMoreEndsTheReading)
{
    const Loaded loaded = LoadBytes(FileWith(BlockWithLists(101)));

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
    EXPECT_EQ(loaded.block.Label, u"");
}

TEST(Load_Records, ListsOfTracesCountAsWell)
{
    for (const int lists : {100, 101}) {
        RecordBytes trace = TraceBytes();
        for (int i = 1; i < lists; ++i) trace = TraceBytes().Field(27).Nested(trace).Field(28);
        const Loaded loaded = LoadBytes(SizedFile(1, 2).Field(11).Nested(trace).Field(12).Build());
        EXPECT_EQ(loaded.status, lists == 100 ? Success : Failure) << lists;
    }
}

TEST(Load_Records, ListsBehindOneAnotherAreNotDeep)
{
    DataBlockFile file = SizedFile(1, 2);
    for (int i = 0; i < 1000; ++i) file.Field(11).Nested(NumberedTrace(i)).Field(12);

    const Loaded loaded = LoadBytes(file.Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 999);
}

TEST(Load_Records, ADataBlockRecordInsideATraceTakesTheTraceAway)
{
    const RecordBytes inner = RecordBytes(DataBlockType).Field(3, Int16(2)).Field(4, Int32(3)).Field(2, Text(u"inner"));

    const Loaded loaded = LoadBytes(SizedFile(1, 2)
                                        .Field(11)
                                        .Nested(TraceBytes()
                                                    .Field(2, Text(u"before"))
                                                    .Field(27)
                                                    .Nested(inner)
                                                    .Field(28)
                                                    .Field(3, Text(u"dropped"))
                                                    .Field(17, Floats({1, 2, 3})))
                                        .Nested(NumberedTrace(7))
                                        .Field(12)
                                        .Field(13, Text(u"outer"))
                                        .Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.Label, u"inner");
    EXPECT_EQ(loaded.block.XaxisUnits, u"outer");
    EXPECT_EQ(loaded.block.NumberOfTraces, 2);
    EXPECT_EQ(loaded.block.Traces[1].Label, u"");
    EXPECT_EQ(loaded.block.Traces[1].DateAndTime, u"");
    EXPECT_EQ(loaded.block.Traces[1].RealSamples.Count(), 0);
    EXPECT_EQ(loaded.block.Traces[2].MeasurementType, 7) << "the list goes on in the new document";
}

TEST(Load_Records, ATraceInsideATraceIsItsOwnList)
{
    const Loaded loaded = LoadBytes(SizedFile(2, 2)
                                        .Field(11)
                                        .Nested(NumberedTrace(1))
                                        .Nested(TraceBytes()
                                                    .Field(27)
                                                    .Nested(NumberedTrace(7)) // number 1 of its list
                                                    .Nested(NumberedTrace(8)) // number 2, the one that is being read
                                                    .Field(28)
                                                    .Field(2, Text(u"outer")))
                                        .Field(12)
                                        .Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 7);
    EXPECT_EQ(loaded.block.Traces[2].MeasurementType, 8);
    EXPECT_EQ(loaded.block.Traces[2].Label, u"outer");
}

// ---- the end of the file ---------------------------------------------------------------------------------------

TEST(Load_Records, APreambleThatIsCutOffIsAnEmptyDocumentWithoutError)
{
    const Bytes whole = DataBlockFile().Build();
    for (std::ptrdiff_t size = 35; size < 51; ++size) {
        const Loaded loaded = LoadBytes(Bytes(whole.begin(), whole.begin() + size));
        EXPECT_EQ(loaded.status, Success) << size;
        EXPECT_EQ(loaded.error, NoError) << size;
        EXPECT_EQ(Difference(loaded.block, DataBlock()), "") << size;
    }
}

TEST(Load_Records, AFileThatEndsBehindItsPreambleSucceedsWithAnError)
{
    const Loaded loaded = LoadBytes(DataBlockFile().WithoutRecord().WithoutEndMarker().Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
}

TEST(Load_Records, AMissingEndMarkerIsSuccessWithAnError)
{
    const Loaded loaded = LoadBytes(SizedFile(0, 5).WithoutEndMarker().Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
    EXPECT_EQ(loaded.block.NumberOfSamples, 5);
    EXPECT_TRUE(loaded.block.DataBlockFromFile);
}

TEST(Load_Records, HalfAnEndMarkerIsNone)
{
    const Loaded loaded = LoadBytes(SizedFile(0, 5).WithoutEndMarker().Behind(Hex("AA")).Build());

    EXPECT_EQ(loaded.status, Success);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
}

TEST(Load_Records, ATypeCodeThatIsCutOffCountsAsTheEndWhateverItsByte)
{
    for (const char* const byte : {"00", "0C", "1C", "FF"}) { // each a list end, were a zero behind it
        const Loaded loaded = LoadBytes(SizedFile(0, 5).WithoutEndMarker().Behind(Hex(byte)).Build());
        EXPECT_EQ(loaded.status, Success) << byte;
        EXPECT_EQ(loaded.error, InputFile_ReadFail) << byte;
    }
}

TEST(Load_Records, ATagThatIsCutOffIsAFailureWhateverItsByte)
{
    const Bytes whole = SizedFile(0, 5).WithoutEndMarker().Build();
    for (const char* const byte : {"00", "0C", "FF"}) {
        const Loaded loaded = LoadBytes(Bytes(whole.begin(), whole.end() - 2) + Hex(byte));
        EXPECT_EQ(loaded.status, Failure) << byte;
        EXPECT_EQ(loaded.error, InputFile_ReadFail) << byte;
    }
}

TEST(Load_Records, TheEndOfTheFileInsideTheDataBlockRecordIsAFailure)
{
    const Bytes whole = SizedFile(0, 5).Field(2, Text(u"label")).WithoutEndMarker().Build();
    for (std::ptrdiff_t size = 53; size < std::ssize(whole); ++size) {
        const Loaded loaded = LoadBytes(Bytes(whole.begin(), whole.begin() + size));
        EXPECT_EQ(loaded.status, Failure) << size;
        EXPECT_EQ(loaded.error, InputFile_ReadFail) << size;
        EXPECT_FALSE(loaded.block.DataBlockFromFile) << size;
    }
}

TEST(Load_Records, TheEndOfTheFileInsideAListIsAFailure)
{
    const Bytes whole = SizedFile(1, 2).Field(11).Nested(NumberedTrace(7)).Build();
    // Without what follows the trace: closing tag and end marker.
    const Loaded loaded = LoadBytes(Bytes(whole.begin(), whole.end() - 4));

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
    EXPECT_EQ(loaded.block.Traces[1].MeasurementType, 7);
}

TEST(Load_Records, TheEndOfTheFileInsideATopLevelTraceIsAFailure)
{
    const Bytes whole = SizedFile(1, 2).Behind(NumberedTrace(7).Build()).Build();

    const Loaded loaded = LoadBytes(Bytes(whole.begin(), whole.end() - 3));

    EXPECT_EQ(loaded.status, Failure);
    EXPECT_EQ(loaded.error, InputFile_ReadFail);
    EXPECT_TRUE(loaded.block.DataBlockFromFile) << "the Data Block record was read";
}

TEST(Load_Records, AnUnknownRecordThatTheFileCutsOffIsSuccessWithAnError)
{
    for (const std::int64_t length : {3, 1000, 1000000}) {
        const Loaded loaded =
            LoadBytes(SizedFile(0, 5).WithoutEndMarker().Behind(RecordBytes(4096).ClaimLength(length).Build()).Build());
        EXPECT_EQ(loaded.status, Success) << length;
        EXPECT_EQ(loaded.error, InputFile_ReadFail) << length;
    }
}

} // namespace
} // namespace qor::test
