// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Data Block files: saved, loaded, replaced, damaged.
#include "Check.h"

#include <QOR_File/QOR_File.h>

#include <filesystem>

namespace qor::test {
namespace {

namespace fs = std::filesystem;

// All bytes of the saved document below. The same on every system, so any change of it is one of the format.
constexpr std::uint64_t SavedBytes = 0x0FCDBE832D537BBF;

void Fill(clsQOR_File& file)
{
    file.Initialize();
    file.DataBlock_Label(u"Steel beam \u00B5m");
    file.DataBlock_TraceDataFormat(DataFormat_RealImaginary);
    file.DataBlock_XaxisSpacing(XaxisSpacing_NonUniform);
    file.DataBlock_NumberOfSamples(50'000); // some traces pass the writer's buffer by
    file.DataBlock_NumberOfTraces(3);
    for (std::int32_t trace = 1; trace <= 3; ++trace) {
        file.Trace_DegreesOfFreedom(trace, u"1Z:3Z");
        file.Trace_MeasurementType(trace, DB_MeasurementIsFRF);
        for (std::int32_t sample = 1; sample <= 50'000; ++sample)
            file.WriteTraceSampleValue(trace, sample, static_cast<float>(sample), static_cast<float>(trace));
    }
    for (std::int32_t sample = 1; sample <= 50'000; ++sample)
        file.WriteDataBlockXaxisValue(sample, static_cast<float>(sample) * 0.25F);
}

bool HoldsWhatFillWrote(clsQOR_File& file)
{
    if (file.DataBlock_NumberOfTraces() != 3 || file.DataBlock_NumberOfSamples() != 50'000) return false;
    if (file.DataBlock_Label() != u"Steel beam \u00B5m" || file.Trace_DegreesOfFreedom(3) != u"1Z:3Z") return false;
    for (std::int32_t trace = 1; trace <= 3; ++trace) {
        for (std::int32_t sample = 1; sample <= 50'000; ++sample) {
            float real = 0;
            float imaginary = 0;
            float x = 0;
            file.ReadTraceSampleValue(trace, sample, real, imaginary);
            file.ReadDataBlockXaxisValue(sample, x);
            if (real != static_cast<float>(sample) || imaginary != static_cast<float>(trace)) return false;
            if (x != static_cast<float>(sample) * 0.25F) return false;
        }
    }
    return true;
}

void CheckRoundTrip(const fs::path& path)
{
    clsQOR_File file;
    Fill(file);
    Check(file.OutputDataBlockFile(path.u16string()) == Success, "a document is saved");
    CheckEqual(ChecksumOf(path), SavedBytes, "its bytes are those of every other system");

    file.Initialize();
    Check(file.InputDataBlockFile(path.u16string()) == Success, "it is loaded");
    Check(HoldsWhatFillWrote(file), "and holds what was saved");

    file.Initialize();
    file.DataBlock_NumberOfSamples(2);
    file.DataBlock_NumberOfTraces(1);
    Check(file.OutputDataBlockFile(path.u16string()) == Success && fs::file_size(path) < 2000,
          "a save replaces the file that stood there");
}

void CheckFaults(const Folder& folder)
{
    clsQOR_File file;
    Check(file.InputDataBlockFile((folder / "missing.blk").u16string()) == Failure, "a missing file is refused");
    Check(file.ErrorStatus() == NoError, "without a code");
    Check(!fs::exists(folder / "missing.blk"), "and not made");

    fs::create_directory(folder / "folder.blk");
    Check(file.InputDataBlockFile((folder / "folder.blk").u16string()) == Failure, "a folder is not read");
    Check(file.OutputDataBlockFile((folder / "folder.blk").u16string()) == Failure, "and not replaced");
    Check(fs::is_directory(folder / "folder.blk"), "but stays");
    Check(file.OutputDataBlockFile((folder / "none/of.blk").u16string()) == Failure, "a missing folder is not made");

    const fs::path cut = folder / "cut.blk";
    Fill(file);
    Check(file.OutputDataBlockFile(cut.u16string()) == Success, "a document is saved once more");
    fs::resize_file(cut, fs::file_size(cut) / 2);
    Check(file.InputDataBlockFile(cut.u16string()) == Failure, "a file that was cut is refused");
    Check(file.ErrorStatus() == InputFile_ReadFail, "with the code of a damaged file");
    Check(file.DataBlock_NumberOfTraces() == 3, "what was read of it stays");
}

// Nothing that the system names, but no file either, may stop the caller.
void CheckDevices()
{
#ifdef _WIN32
    const char16_t* const device = u"NUL";
#else
    const char16_t* const device = u"/dev/null";
#endif
    clsQOR_File file;
    Check(file.InputDataBlockFile(device) == Failure, "a device is not read");
    Check(file.OutputDataBlockFile(device) == Failure, "and not written");
}

} // namespace

void CheckFiles()
{
    const Folder folder(u"QOR_File \u00FC\u4E2D ");
    CheckRoundTrip(folder / "measured.blk");
    CheckFaults(folder);
    CheckDevices();
}

} // namespace qor::test
