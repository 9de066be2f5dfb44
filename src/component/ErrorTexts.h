// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The message texts of the error codes. A code without a row reads "Undefined error", on purpose also some
// declared ones: AllocationError, the codes for storage that is not allocated, the quad-surface index.
#pragma once

#include <QOR_File/Enumerations.h>

#include <algorithm>
#include <iterator>
#include <string_view>

namespace qor {

struct ErrorText {
    ErrorStatusTypes code;
    std::u16string_view text;
};

inline constexpr ErrorText ErrorTexts[] = {
    {OutputFile_GeneralError, u"Output file general error"},
    {OutputFile_FileExits, u"Output file exists error"},
    {OutputFile_OpenFail, u"Output file open error"},
    {OutputFile_WriteFail, u"Output file write error"},
    // "Output" is the published wording of the input-file errors too.
    {inputFile_GeneralError, u"Output file general error"},
    {InputFile_FileDoesNotExit, u"Output file does not exist error"},
    {inputFile_OpenFail, u"Output file open error"},
    {InputFile_ReadFail, u"Output file read error"},
    {TraceIndexError, u"Trace Index error"},
    {SampleIndexError, u"Sample Index error"},
    {AxisNumberError, u"Axis Number error"},
    {CenterPointOverflow, u"Invalid Center Point error"},
    {ShapeIndexError, u"Shape Index error"},
    {DOFIndexError, u"DOF Index error"},
    {VertexPointIndexError, u"VertexPoint Index error"},
    {EdgeLineIndexError, u"EdgeLine Index error"},
    {SurfaceTriangleIndexError, u"SurfaceTriangle Index error"},
};

constexpr bool IsAscending(const ErrorText* first, const ErrorText* last)
{
    return std::is_sorted(first, last, [](const ErrorText& a, const ErrorText& b) { return a.code < b.code; });
}
static_assert(IsAscending(std::begin(ErrorTexts), std::end(ErrorTexts)));

constexpr std::u16string_view TextOfError(ErrorStatusTypes code)
{
    for (const ErrorText& row : ErrorTexts) {
        if (row.code == code) return row.text;
    }
    return u"Undefined error";
}

} // namespace qor
