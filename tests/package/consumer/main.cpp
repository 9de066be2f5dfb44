// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Saves a document and loads it again; fails when it is another one then.
#include <QOR_File/QOR_File.h>

#include <cstdio>

int main()
{
    clsQOR_File file;
    file.DataBlock_NumberOfTraces(2);
    file.DataBlock_NumberOfSamples(3);
    file.Trace_Label(2, u"Accelerometer");
    file.WriteTraceSampleValue(2, 3, 1.25F, 0);
    if (file.OutputDataBlockFile(u"consumer.blk") == Failure) return 1;

    file.Initialize();
    if (file.InputDataBlockFile(u"consumer.blk") == Failure) return 2;
    float real = 0;
    float imaginary = 0;
    if (file.ReadTraceSampleValue(2, 3, real, imaginary) == Failure || real != 1.25F) return 3;
    if (file.Trace_Label(2) != u"Accelerometer") return 4;
    std::puts("saved and loaded");
    return 0;
}
