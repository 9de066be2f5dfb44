// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Threads that meet, and what they do with an object.
#pragma once

#include "server/Client.h"
#include "windows/Meeting.h"

#include <thread>
#include <vector>

namespace qor::test {

// Runs work on a thread of its own, to its end.
template <class Work>
void OnThread(Work work)
{
    std::thread(work).join();
}

// Runs work(number) on as many threads at once, each in an apartment of its own.
template <class Work>
void OnThreads(int count, Work work)
{
    std::vector<std::thread> threads;
    for (int number = 1; number <= count; ++number)
        threads.emplace_back([&work, number] {
            const Apartment apartment;
            work(number);
        });
    for (std::thread& thread : threads) thread.join();
}

// Fills documents of all three kinds; number tells them apart.
inline void Fill(_clsQOR_File& file, int number)
{
    EXPECT_HRESULT_SUCCEEDED(file.put_DataBlock_NumberOfTraces(number));
    EXPECT_HRESULT_SUCCEEDED(file.put_DataBlock_NumberOfSamples(1000));
    LONG trace = number;
    LONG sample = 1000;
    float real = static_cast<float>(number);
    float imaginary = 0;
    ReturnStatus status = Failure;
    EXPECT_HRESULT_SUCCEEDED(file.WriteTraceSampleValue(&trace, &sample, &real, &imaginary, &status));
    EXPECT_EQ(status, Success);
    EXPECT_HRESULT_SUCCEEDED(file.put_ShapeTable_NumberOfShapes(number));
    EXPECT_HRESULT_SUCCEEDED(file.put_ShapeTable_NumberOfDOFs(100));
    EXPECT_HRESULT_SUCCEEDED(file.put_Structure_NumberOfVertexPoints(100 * number));
}

// Whether they are those that Fill made.
inline bool Holds(_clsQOR_File& file, int number)
{
    LONG traces = 0;
    LONG shapes = 0;
    LONG points = 0;
    file.get_DataBlock_NumberOfTraces(&traces);
    file.get_ShapeTable_NumberOfShapes(&shapes);
    file.get_Structure_NumberOfVertexPoints(&points);
    LONG trace = number;
    LONG sample = 1000;
    float real = 0;
    float imaginary = 1;
    ReturnStatus status = Failure;
    file.ReadTraceSampleValue(&trace, &sample, &real, &imaginary, &status);
    return traces == number && shapes == number && points == 100 * number && status == Success &&
           real == static_cast<float>(number) && imaginary == 0;
}

// A call that ends, inside the library, with a C++ exception. It arrives as a failed call.
inline HRESULT CallThatThrows(_clsQOR_File& file)
{
    LONG append = -1;
    BSTR label = nullptr;
    float x = 0;
    float y = 0;
    float z = 0;
    LONG color = 0;
    VARIANT_BOOL bold = VARIANT_FALSE;
    ReturnStatus status = Failure;
    return file.WriteStructureVertexPoint(&append, &label, &x, &y, &z, &color, &bold, &status);
}

// A late-bound call, for which the library reads its type library.
inline HRESULT CallByName(_clsQOR_File& file, const wchar_t* name, VARIANT& result)
{
    std::wstring copy = name;
    LPOLESTR member = copy.data();
    DISPID id = DISPID_UNKNOWN;
    if (const HRESULT found = file.GetIDsOfNames(IID_NULL, &member, 1, LOCALE_USER_DEFAULT, &id); FAILED(found))
        return found;
    DISPPARAMS none{};
    return file.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_PROPERTYGET, &none, &result, nullptr, nullptr);
}

} // namespace qor::test
