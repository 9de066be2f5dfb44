// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "server/members/ArrayArguments.h"

#include "platform/Memory.h"
#include "server/dispatch/VariantConversion.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <oleauto.h>
#include <utility>

namespace qor::server {
namespace {

// Declared with its size: it can only be filled.
constexpr USHORT NotToBeReplaced = FADF_AUTO | FADF_STATIC | FADF_EMBEDDED | FADF_FIXEDSIZE;

SAFEARRAY* ArrayOf(const VARIANT& value)
{
    if ((value.vt & VT_BYREF) == 0) return value.parray;
    return value.pparray ? *value.pparray : nullptr;
}

VARTYPE ElementType(VARTYPE type) { return static_cast<VARTYPE>(type & VT_TYPEMASK); }

// One dimension, or two of which one is 1: the elements stand in the same order.
bool IsOneRow(const SAFEARRAY& array)
{
    return array.cDims == 1 ||
           (array.cDims == 2 && (array.rgsabound[0].cElements <= 1 || array.rgsabound[1].cElements <= 1));
}

std::size_t CountOf(const SAFEARRAY& array)
{
    std::size_t count = 1;
    for (USHORT dimension = 0; dimension < array.cDims; ++dimension) count *= array.rgsabound[dimension].cElements;
    return count;
}

// Elements as wide as type says, and memory for them.
bool HoldsElements(const SAFEARRAY& array, VARTYPE type)
{
    const std::size_t width = type == VT_VARIANT ? sizeof(VARIANT) : WidthOf(type);
    return array.cbElements == width && (array.pvData || CountOf(array) == 0);
}

HRESULT NumberOf(const VARIANT& element, float& number)
{
    VARIANT converted;
    VariantInit(&converted);
    const HRESULT result = Convert(converted, element, VT_R4, LOCALE_USER_DEFAULT);
    if (SUCCEEDED(result)) number = converted.fltVal;
    return result;
}

// The element of simple type that stands at place.
HRESULT NumberAt(const std::byte* place, VARTYPE type, std::size_t width, float& number)
{
    VARIANT element{};
    element.vt = type;
    std::memcpy(&element.lVal, place, width);
    return NumberOf(element, number);
}

HRESULT ConvertElements(const SAFEARRAY& array, VARTYPE type, std::vector<float>& numbers)
{
    const auto* place = static_cast<const std::byte*>(array.pvData);
    const std::size_t width = array.cbElements;
    const bool isVariant = type == VT_VARIANT;
    numbers.resize(CountOf(array));
    for (float& number : numbers) {
        const HRESULT converted = isVariant ? NumberOf(*reinterpret_cast<const VARIANT*>(place), number)
                                            : NumberAt(place, type, width, number);
        if (FAILED(converted)) return converted;
        place += width;
    }
    return S_OK;
}

bool Fits(double number) { return !std::isfinite(number) || std::abs(number) <= std::numeric_limits<float>::max(); }

// As many numbers as an array of a document has at most. What claims more is a count that nothing stands behind.
constexpr std::size_t MostNumbers = std::numeric_limits<std::int32_t>::max() / sizeof(float);

SAFEARRAY* NewArray(VARTYPE type, std::size_t count)
{
    const std::uint64_t width = type == VT_VARIANT ? sizeof(VARIANT) : WidthOf(type);
    if (count > MostNumbers || count * width > platform::UsableMemory()) return nullptr;
    return SafeArrayCreateVector(type, 0, static_cast<ULONG>(count));
}

// Stores numbers as elements of an array of single, double or variants.
void Store(std::span<const float> numbers, VARTYPE type, void* elements)
{
    if (type == VT_R4) {
        std::copy(numbers.begin(), numbers.end(), static_cast<float*>(elements));
    } else if (type == VT_R8) {
        std::copy(numbers.begin(), numbers.end(), static_cast<double*>(elements));
    } else {
        auto* variant = static_cast<VARIANT*>(elements);
        for (const float number : numbers) {
            VariantClear(variant);
            variant->vt = VT_R4;
            variant->fltVal = number;
            ++variant;
        }
    }
}

} // namespace

ArrayArgument::~ArrayArgument()
{
    if (opened_) SafeArrayUnaccessData(opened_);
}

HRESULT ArrayArgument::Take(const VARIANT& value)
{
    VARIANT* direct = FollowedVariant(const_cast<VARIANT*>(&value)); // which is only looked at
    if (!direct) return DISP_E_TYPEMISMATCH;
    if (direct->vt == VT_EMPTY || IsLeftOut(direct)) return S_OK;
    if ((direct->vt & VT_ARRAY) != 0) return TakeArray(ArrayOf(*direct));
    converted_.resize(1);
    values_ = converted_;
    return NumberOf(*direct, converted_.front());
}

HRESULT ArrayArgument::TakeArray(SAFEARRAY* array)
{
    if (!array) return S_OK;
    VARTYPE type = VT_EMPTY;
    if (FAILED(SafeArrayGetVartype(array, &type)) || !IsOneRow(*array) || !HoldsElements(*array, type))
        return DISP_E_TYPEMISMATCH;
    void* elements = nullptr;
    if (FAILED(SafeArrayAccessData(array, &elements))) return DISP_E_ARRAYISLOCKED;
    opened_ = array;
    const std::size_t count = CountOf(*array);
    if (type == VT_R4) {
        values_ = {static_cast<const float*>(elements), count};
        return S_OK;
    }
    if (type == VT_R8) {
        const std::span numbers(static_cast<const double*>(elements), count);
        if (!std::all_of(numbers.begin(), numbers.end(), Fits)) return DISP_E_TYPEMISMATCH;
        converted_.resize(count);
        std::transform(numbers.begin(), numbers.end(), converted_.begin(),
                       [](double number) { return static_cast<float>(number); });
    } else if (const HRESULT converted = ConvertElements(*array, type, converted_); FAILED(converted)) {
        return converted;
    }
    values_ = converted_;
    return S_OK;
}

ArrayResult::~ArrayResult()
{
    if (!array_) return;
    SafeArrayUnaccessData(array_);
    SafeArrayDestroy(array_);
}

HRESULT ArrayResult::Prepare(VARIANT* variable, std::size_t count)
{
    if (IsLeftOut(variable)) return S_OK;
    variable_ = FollowedVariant(variable);
    if (!variable_) return DISP_E_TYPEMISMATCH;
    const VARTYPE held = ElementType(variable_->vt);
    const bool holdsArray = (variable_->vt & VT_ARRAY) != 0;
    const bool usable = held == VT_R4 || held == VT_R8 || held == VT_VARIANT;
    if ((variable_->vt & VT_BYREF) != 0 && !(holdsArray && usable && variable_->pparray)) return DISP_E_TYPEMISMATCH;
    if (holdsArray && usable) type_ = held;
    array_ = NewArray(VT_R4, count);
    void* elements = nullptr;
    if (!array_ || FAILED(SafeArrayAccessData(array_, &elements))) return E_OUTOFMEMORY;
    values_ = {static_cast<float*>(elements), count};
    return S_OK;
}

HRESULT ArrayResult::MakeReady()
{
    if (!variable_) return S_OK;
    const SAFEARRAY* const present = Present();
    if (IsFilledInPlace(present))
        return IsOneRow(*present) && CountOf(*present) == values_.size() && HoldsElements(*present, type_)
                   ? S_OK
                   : DISP_E_TYPEMISMATCH;
    if (present && present->cLocks > 0) return DISP_E_ARRAYISLOCKED;
    if (type_ == VT_R4) return S_OK;
    SAFEARRAY* const other = NewArray(type_, values_.size());
    if (!other) return E_OUTOFMEMORY;
    Store(values_, type_, other->pvData);
    SafeArrayUnaccessData(array_);
    SafeArrayDestroy(std::exchange(array_, other));
    SafeArrayLock(array_); // as the other was, for the destructor
    return S_OK;
}

void ArrayResult::Deliver()
{
    if (!variable_) return;
    SAFEARRAY* const present = Present();
    if (IsFilledInPlace(present)) {
        Store(values_, type_, present->pvData);
        return;
    }
    SafeArrayUnaccessData(array_);
    if (IsReference()) {
        if (present) SafeArrayDestroy(present);
        *variable_->pparray = std::exchange(array_, nullptr);
        return;
    }
    VariantClear(variable_);
    variable_->vt = static_cast<VARTYPE>(VT_ARRAY | type_);
    variable_->parray = std::exchange(array_, nullptr);
}

bool ArrayResult::IsReference() const { return (variable_->vt & VT_BYREF) != 0; }

SAFEARRAY* ArrayResult::Present() const { return (variable_->vt & VT_ARRAY) != 0 ? ArrayOf(*variable_) : nullptr; }

bool ArrayResult::IsFilledInPlace(const SAFEARRAY* present) const
{
    return IsReference() && present && (present->fFeatures & NotToBeReplaced) != 0;
}

} // namespace qor::server
