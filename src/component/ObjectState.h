// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What each clsQOR_File has for itself, beside the documents that it shares with the others of its thread.
#pragma once

#include "datablock/SampleAccess.h"
#include "fileio/RecordReader.h"
#include "platform/File.h"
#include "shapetable/ShapeTableLayout.h"
#include "structure/Structure.h"

#include <QOR_File/QOR_File.h>

#include <chrono>
#include <memory>
#include <utility>

namespace qor {

// A file that is open for reading records.
struct OpenRecordFile {
    explicit OpenRecordFile(platform::File opened) : file(std::move(opened)), records(file) {}

    platform::File file;
    RecordReader records;
};

} // namespace qor

struct clsQOR_File::State {
    std::chrono::system_clock::time_point CreationTime = std::chrono::system_clock::now();

    ErrorStatusTypes OwnErrorStatus = NoError;
    std::u16string LastErrorText;

    Bool16 TraceDataAllocated = false;
    Bool16 XaxisAllocated = false;
    DataBlock_DataFormatTypes PublicDataFormat = DataFormat_Undefined;
    qor::ComplexView View() const
    {
        return PublicDataFormat == DataFormat_MgnitudePhase ? qor::ComplexView::MagnitudePhase
                                                            : qor::ComplexView::RealImaginary;
    }

    qor::ShapeTableTexts ShapeTexts;
    qor::ShapeTableCounts ShapeCounts;

    qor::StructureTexts StructureTexts;
    std::int16_t FileVersion = 0; // of the file that was read last, of either kind
    // A Structure file that was refused stays open until the object opens another file.
    std::unique_ptr<qor::OpenRecordFile> RefusedFile;
};

inline ReturnStatus clsQOR_File::Report(ReturnStatus status, ErrorStatusTypes error)
{
    if (error != NoError) ErrorStatus(error);
    return status;
}
