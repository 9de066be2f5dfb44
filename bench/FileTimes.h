// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Times saving and loading beside plain writes and reads of the same bytes, and looks at what came of it.
#pragma once

#include "Figures.h"
#include "PlainFile.h"

namespace qor::bench {

// A file that has been saved, and its bytes in memory that has been touched.
struct SavedFile {
    explicit SavedFile(const std::string& savedPath)
        : path(savedPath),
          fresh(path + ".new"),
          freshReference(path + ".reference"),
          bytes(BytesOf(path)),
          target(bytes.size(), std::byte{1})
    {}

    void WriteReference() const { WritePlain(freshReference, bytes); }
    void ReadReference() { ReadPlain(path, target); }

    std::string path;
    std::string fresh;          // the new file of each save
    std::string freshReference; // and of each plain write
    std::vector<std::byte> bytes;
    std::vector<std::byte> target;
};

// Saves to file.fresh beside a reference that writes file.freshReference. What was just given back is warm: a virtual
// machine may have to ask its host for memory that lay idle, which takes longer than all that is measured. So both
// files are made once before.
template <class Save, class Reference>
void TimeSave(benchmark::State& state, const SavedFile& file, Save save, Reference reference)
{
    for (auto each : state) {
        (void)each;
        WritePlain(file.fresh, file.bytes);
        WritePlain(file.freshReference, file.bytes);
        Delete(file.fresh);
        Delete(file.freshReference);
        bool saved = false;
        TimeBeside(
            state, [&] { saved = save(); }, reference);
        if (!saved || BytesOf(file.fresh) != file.bytes || BytesOf(file.freshReference) != file.bytes)
            state.SkipWithError("wrong bytes");
        Delete(file.fresh);
        Delete(file.freshReference);
    }
}

// Loads beside a plain read into memory in use. The document's memory is new, but warm as above.
template <class Load, class Empty, class Holds>
void TimeLoad(benchmark::State& state, SavedFile& file, Load load, Empty empty, Holds holds)
{
    for (auto each : state) {
        (void)each;
        load();
        empty();
        bool loaded = false;
        TimeBeside(
            state, [&] { loaded = load(); }, [&] { file.ReadReference(); });
        if (!loaded || !holds()) state.SkipWithError("wrong document");
        if (file.target != file.bytes) state.SkipWithError("wrong bytes");
        empty();
    }
}

} // namespace qor::bench
