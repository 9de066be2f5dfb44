// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// The component's frame: lifecycle, error status, version.
#include "component/ErrorTexts.h"
#include "component/ObjectState.h"
#include "component/Version.h"
#include "component/WithoutMemory.h"
#include "component/modQOR_File.h"
#include "platform/Desktop.h"

#include <QOR_File/QOR_File.h>

#include <new>
#include <utility>

using namespace qor;

namespace {

// What every posted error carries: the base of object errors and 10, and the application's name for the component.
constexpr std::uint32_t PostedErrorNumber = 0x8004000A;
constexpr std::u16string_view PostedErrorSource = u"QORshell";

std::u16string Decimal(std::int32_t value)
{
    const std::string digits = std::to_string(value);
    return {digits.begin(), digits.end()};
}

} // namespace

const char* RuntimeFault::what() const noexcept { return number_ == Overflow ? "Overflow" : "Subscript out of range"; }

clsQOR_File::clsQOR_File() : state_(std::make_unique<State>()) { Initialize(); }
clsQOR_File::~clsQOR_File() = default;

ErrorStatusTypes clsQOR_File::ErrorStatus()
{
    // The shared status is not cleared, on purpose: it is reported until an added class writes it again.
    if (state_->OwnErrorStatus == NoError) state_->OwnErrorStatus = modQOR_File().SharedErrorStatus;
    return std::exchange(state_->OwnErrorStatus, NoError);
}

void clsQOR_File::ErrorStatus(ErrorStatusTypes value)
{
    state_->OwnErrorStatus = value;
    if (value == NoError) return;
    try {
        std::u16string text = u"Error (" + Decimal(value) + u"): ";
        text += TextOfError(value);
        state_->LastErrorText = std::move(text);
    } catch (const std::bad_alloc&) {
        return; // the code stands, the text stays that of an earlier error
    }
    platform::PostError(PostedErrorNumber, PostedErrorSource, state_->LastErrorText);
}

std::u16string clsQOR_File::GetLastErrorString() const
{
    return IfMemoryAllows([&] { return state_->LastErrorText; });
}

void clsQOR_File::Initialize()
{
    InitializeDataBlockStorage();
    InitializeShapeTableStorage();
    InitializeStructureStorage();
}

float clsQOR_File::DLLversion() const { return QOR_FILE_MAJOR + QOR_FILE_MINOR / 100.0F; }
