// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The component's frame: lifecycle, error status, version.
#include "component/ErrorTexts.h"
#include "component/modQOR_File.h"
#include "platform/Desktop.h"

#include <QOR_File/QOR_File.h>

#include <utility>

using namespace qor;

namespace {

constexpr int MajorVersion = 1;
constexpr int MinorVersion = 5;

// What every posted error carries: the base of object errors and 10, and the application's name for the component.
constexpr std::uint32_t PostedErrorNumber = 0x8004000A;
constexpr std::u16string_view PostedErrorSource = u"QORshell";

std::u16string Decimal(std::int32_t value)
{
    const std::string digits = std::to_string(value);
    return {digits.begin(), digits.end()};
}

} // namespace

clsQOR_File::clsQOR_File() { Initialize(); }

ErrorStatusTypes clsQOR_File::ErrorStatus()
{
    // The shared status is not cleared, on purpose: it is reported until an added class writes it again.
    if (OwnErrorStatus == NoError) OwnErrorStatus = modQOR_File().SharedErrorStatus;
    return std::exchange(OwnErrorStatus, NoError);
}

void clsQOR_File::ErrorStatus(ErrorStatusTypes value)
{
    OwnErrorStatus = value;
    if (value == NoError) return;
    LastErrorText = u"Error (" + Decimal(value) + u"): ";
    LastErrorText += TextOfError(value);
    platform::PostError(PostedErrorNumber, PostedErrorSource, LastErrorText);
}

std::u16string clsQOR_File::GetLastErrorString() const { return LastErrorText; }

void clsQOR_File::Initialize() { InitializeDataBlockStorage(); }

float clsQOR_File::DLLversion() const { return MajorVersion + MinorVersion / 100.0F; }
