// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
#include "tools/console/OutputFile.h"

#include "platform/Unicode.h"
#include "tools/console/Console.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <random>
#include <unistd.h>

namespace qor::tool {
namespace {

namespace fs = std::filesystem;

constexpr int Interruptions[] = {SIGINT, SIGTERM, SIGHUP};

// The file to remove when the process is interrupted: a plain array, which a signal handler may look at.
std::array<char, 4096> removedWhenInterrupted;

extern "C" void RemoveAndEnd(int signal)
{
    if (removedWhenInterrupted[0] != 0) unlink(removedWhenInterrupted.data());
    static_cast<void>(std::signal(signal, SIG_DFL));
    static_cast<void>(std::raise(signal));
}

void RemoveWhenInterrupted(const std::string& path)
{
    if (path.size() >= removedWhenInterrupted.size()) return;
    std::memcpy(removedWhenInterrupted.data(), path.c_str(), path.size() + 1);
    for (const int signal : Interruptions) {
        // One that is ignored, as under nohup, stays so.
        if (std::signal(signal, &RemoveAndEnd) == SIG_IGN) static_cast<void>(std::signal(signal, SIG_IGN));
    }
}

fs::path TemporaryBeside(const fs::path& path)
{
    std::random_device random;
    fs::path name;
    do name = path.parent_path() / fmt::format(".qor-{:08x}.tmp", random());
    while (fs::exists(fs::symlink_status(name)));
    return name;
}

} // namespace

OutputFile::OutputFile(const std::string& path, bool replaceExisting)
    : shownPath_(path), path_(path), replaceExisting_(replaceExisting)
{
    std::error_code ignored;
    const auto status = fs::symlink_status(path_, ignored);
    if (fs::exists(status) && !replaceExisting) throw FileError(path, "exists already; --force replaces it");
    if (fs::is_symlink(status)) {
        // What the link leads to is what is replaced.
        const fs::path target = fs::weakly_canonical(path_, ignored);
        if (!ignored) path_ = target;
    }
    const auto targetStatus = fs::status(path_, ignored);
    if (fs::is_directory(targetStatus)) throw FileError(path, "is a folder");
    if (fs::exists(targetStatus) && !fs::is_regular_file(targetStatus)) throw FileError(path, "is not a regular file");
    if (!path_.has_filename()) throw FileError(path, "is not the name of a file");

    temporary_ = TemporaryBeside(path_);
    errno = 0;
    if (const auto name = platform::FromUtf8(temporary_.string())) {
        RemoveWhenInterrupted(temporary_.string());
        if (auto file = platform::File::Replace(*name)) file_.emplace(std::move(*file));
    }
    if (!file_) throw FileError(path, LastSystemError("cannot be made"));
    if (fs::exists(targetStatus)) fs::permissions(temporary_, targetStatus.permissions(), ignored);
}

OutputFile::~OutputFile()
{
    if (temporary_.empty()) return;
    std::error_code ignored;
    fs::remove(temporary_, ignored);
    removedWhenInterrupted[0] = 0;
}

void OutputFile::Append(std::string_view text)
{
    errno = 0;
    if (file_->WriteAt(file_->Size(), std::as_bytes(std::span(text)))) return;
    throw FileError(shownPath_, LastSystemError("cannot be written"));
}

void OutputFile::Commit()
{
    errno = 0;
    if (!file_->Close()) throw FileError(shownPath_, LastSystemError("cannot be completed"));
    std::error_code error;
    if (!replaceExisting_) {
        // Unlike renaming, linking never takes the place of a file that appeared meanwhile.
        fs::create_hard_link(temporary_, path_, error);
        if (!error) return; // the destructor takes the temporary name away
        if (fs::exists(fs::symlink_status(path_))) throw FileError(shownPath_, "exists already; --force replaces it");
    }
    fs::rename(temporary_, path_, error); // also where the file system has no links
    if (error) throw FileError(shownPath_, error.message());
    temporary_.clear();
    removedWhenInterrupted[0] = 0;
}

} // namespace qor::tool
