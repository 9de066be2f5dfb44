// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "server/Border.h"

#include "platform/Desktop.h"

#include <QOR_File/QOR_File.h>

#include <exception>
#include <new>
#include <string>
#include <xmmintrin.h>

namespace qor::server {
namespace {

// The platform's run-time faults, as automation clients know them: number 9 is 0x800A0009.
constexpr std::uint32_t RuntimeFaultBase = 0x800A0000;
constexpr std::u16string_view Source = u"QOR_File";

// All exceptions masked, round to nearest, small numbers kept; the low bits are flags that any operation sets.
constexpr unsigned VectorSettings = 0x1F80;
constexpr unsigned VectorFlags = 0x3F;
// The masks of the x87 stack, through which a 32-bit function returns its float.
constexpr unsigned short StackMasks = 0x3F;

unsigned short StackControl() noexcept
{
    unsigned short control = 0;
    __asm__ volatile("fnstcw %0" : "=m"(control));
    return control;
}

void SetStackControl(unsigned short control) noexcept { __asm__ volatile("fnclex\n\tfldcw %0" : : "m"(control)); }

} // namespace

HRESULT Failed(HRESULT result, std::u16string_view description) noexcept
{
    platform::PostError(static_cast<std::uint32_t>(result), Source, description);
    return result;
}

HRESULT FailedByException() noexcept
{
    try {
        throw;
    } catch (const RuntimeFault& fault) {
        const std::string_view text = fault.what(); // of plain letters, and short
        std::u16string description;
        try {
            description.assign(text.begin(), text.end());
        } catch (const std::bad_alloc&) {
            description.clear();
        }
        const auto number = RuntimeFaultBase + static_cast<std::uint32_t>(fault.Number());
        return Failed(static_cast<HRESULT>(number), description);
    } catch (const std::bad_alloc&) {
        return Failed(E_OUTOFMEMORY, u"Out of memory");
    } catch (...) {
        return Failed(E_UNEXPECTED, u"Unexpected fault");
    }
}

HRESULT MissingArgument() noexcept { return Failed(E_POINTER, u"An argument is a null pointer"); }

OwnArithmetic::OwnArithmetic() noexcept : vector_(_mm_getcsr()), stack_(StackControl())
{
    if ((vector_ & ~VectorFlags) != VectorSettings) _mm_setcsr(VectorSettings);
    if ((stack_ & StackMasks) != StackMasks) SetStackControl(static_cast<unsigned short>(stack_ | StackMasks));
}

OwnArithmetic::~OwnArithmetic()
{
    // What our own operations flagged must not trap in the client.
    if ((vector_ & ~VectorFlags) != VectorSettings) _mm_setcsr(vector_);
    if ((stack_ & StackMasks) != StackMasks) SetStackControl(stack_);
}

} // namespace qor::server
