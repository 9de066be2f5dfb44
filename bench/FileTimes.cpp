// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "FileTimes.h"

#include <algorithm>
#include <cstring>
#include <malloc.h>
#include <utility>

namespace qor::bench {

void ReturnFreedMemory() { malloc_trim(0); }

Party PlainWrite(const SavedFile& file)
{
    const auto write = [&, path = file.path + ".plain"] {
        WritePlain(path, file.bytes);
        return true;
    };
    return SavingTo(file.path + ".plain", write,
                    [&, path = file.path + ".plain"] { return BytesOf(path) == file.bytes; });
}

Party PlainRead(SavedFile& file)
{
    const auto read = [&] {
        ReadPlain(file.path, file.target);
        return true;
    };
    return {read, [&] { return file.target == file.bytes; }};
}

Party PlainCopy(SavedFile& file)
{
    return {[&] {
        std::memcpy(file.target.data(), file.bytes.data(), file.bytes.size());
        benchmark::ClobberMemory();
        return true;
    }};
}

Party FreshRead(const SavedFile& file)
{
    const auto memory = std::make_shared<std::unique_ptr<std::byte[]>>();
    const auto read = [&, memory] {
        memory->reset(new std::byte[file.bytes.size()]); // not zeroed
        ReadPlain(file.path, {memory->get(), file.bytes.size()});
        return true;
    };
    const auto holds = [&, memory] { return std::equal(file.bytes.begin(), file.bytes.end(), memory->get()); };
    return Loading(read, holds, [memory] { memory->reset(); });
}

Party Saving(const SavedFile& file, std::function<bool()> save)
{
    return SavingTo(file.fresh, std::move(save), [&] { return BytesOf(file.fresh) == file.bytes; });
}

Party SavingTo(const std::string& path, std::function<bool()> save, std::function<bool()> holds)
{
    return {std::move(save), std::move(holds), [path] { Delete(path); }};
}

Party Loading(std::function<bool()> load, std::function<bool()> holds, std::function<void()> release)
{
    return {std::move(load), std::move(holds), [release = std::move(release)] {
                release();
                ReturnFreedMemory();
            }};
}

} // namespace qor::bench
