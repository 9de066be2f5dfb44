// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// A small disk in memory, seen by this process and those that it starts.
#pragma once

#include "support/TemporaryFolder.h"

#include <sched.h>
#include <sys/mount.h>
#include <sys/statvfs.h>
#include <unistd.h>

namespace qor::test {

class SmallDisk
{
public:
    // With options as mount takes them for a tmpfs. Not mounted where the system does not let us.
    explicit SmallDisk(const char* options)
    {
        static const bool own = HasOwnMounts();
        mounted_ = own && mount("none", (folder_ / "").c_str(), "tmpfs", 0, options) == 0;
    }
    ~SmallDisk()
    {
        if (mounted_) umount2((folder_ / "").c_str(), MNT_DETACH);
    }
    SmallDisk(const SmallDisk&) = delete;
    SmallDisk& operator=(const SmallDisk&) = delete;

    bool Mounted() const { return mounted_; }
    std::filesystem::path operator/(std::string_view name) const { return folder_ / name; }

    bool MakeReadOnly() { return mount("none", (folder_ / "").c_str(), nullptr, MS_REMOUNT | MS_RDONLY, nullptr) == 0; }
    // Takes all room but so many bytes.
    void FillUpTo(std::size_t room)
    {
        Clear();
        const std::size_t free = FreeBytes();
        WriteBytes(folder_ / "filler", std::vector<std::uint8_t>(free > room ? free - room : 0, 'f'));
    }
    void Clear() { std::filesystem::remove(folder_ / "filler"); }

private:
    std::size_t FreeBytes() const
    {
        struct statvfs status {};
        if (statvfs((folder_ / "").c_str(), &status) != 0) return 0;
        return status.f_bfree * status.f_frsize;
    }

    // Nothing that is mounted is to be seen outside. Who is not root becomes it, as far as mounts go.
    static bool HasOwnMounts()
    {
        const std::string user = std::to_string(geteuid());
        const std::string group = std::to_string(getegid());
        const bool isRoot = geteuid() == 0;
        if (unshare(isRoot ? CLONE_NEWNS : CLONE_NEWUSER | CLONE_NEWNS) != 0) return false;
        if (!isRoot) {
            std::ofstream("/proc/self/setgroups") << "deny";
            std::ofstream("/proc/self/uid_map") << "0 " << user << " 1";
            std::ofstream("/proc/self/gid_map") << "0 " << group << " 1";
        }
        return mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0;
    }

    TemporaryFolder folder_;
    bool mounted_ = false;
};

} // namespace qor::test
