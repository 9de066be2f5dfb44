// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Saving and loading where a system really refuses: disks that are full or read-only, folders without permission, and
// names that stand for something else than a file.
#include "faults/Operations.h"
#include "support/SmallDisk.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

namespace qor::test {
namespace {

namespace fs = std::filesystem;

// A kind of document: how it is saved, loaded where it can be, and what these come to without a file.
struct Kind {
    const char* name;
    ReturnStatus (clsQOR_File::*save)(std::u16string_view);
    ReturnStatus (clsQOR_File::*load)(std::u16string_view); // null where there is none
    ReturnStatus notLoaded;
    ReturnStatus notWritten;

    friend std::ostream& operator<<(std::ostream& stream, const Kind& of) { return stream << of.name; }
};

constexpr Kind Kinds[] = {
    {"DataBlock", &clsQOR_File::OutputDataBlockFile, &clsQOR_File::InputDataBlockFile, Failure, Failure},
    {"ShapeTable", &clsQOR_File::OutputShapeTableFile, nullptr, Failure, Failure},
    // The Structure's reader and writer keep silent, as published.
    {"Structure", &clsQOR_File::OutputStructureFile, &clsQOR_File::InputStructureFile, Success, Success},
};

const std::vector<std::uint8_t> BytesOfKept = {'k', 'e', 'p', 't'};

class RealFiles : public testing::TestWithParam<Kind>
{
protected:
    const Kind& kind = GetParam();
    TemporaryFolder folder;
    World world{folder};

    void SetUp() override { Fill(world); }

    ReturnStatus Save(const fs::path& path) { return (world.file.*kind.save)(Utf16(path)); }

    // Nothing there can be saved to or loaded from; the documents to be saved stay, the one to be loaded is empty.
    void ExpectNoFile(const fs::path& path)
    {
        Fill(world);
        const State before = StateOf(world);
        EXPECT_EQ(Save(path), Failure) << path;
        EXPECT_EQ(world.file.ErrorStatus(), NoError) << path;
        EXPECT_EQ(StateOf(world), before) << path;
        ExpectNotLoaded(path);
    }
    void ExpectNotLoaded(const fs::path& path)
    {
        if (!kind.load) return;
        EXPECT_EQ((world.file.*kind.load)(Utf16(path)), kind.notLoaded) << path;
        EXPECT_EQ(world.file.ErrorStatus(), NoError) << path;
        const State loaded = StateOf(world);
        world.file.Initialize();
        const State empty = StateOf(world);
        const std::string part = kind.load == &clsQOR_File::InputStructureFile ? "Structure" : "Data Block";
        for (const auto& [name, fields] : loaded) {
            EXPECT_TRUE(!name.starts_with(part) || fields == empty.at(name)) << name;
        }
    }
    // A file that was not completed says so, to an object whose documents are lost; those to be saved are filled again.
    void ExpectNotWhole(const fs::path& path, bool isWhole)
    {
        if (!kind.load || isWhole) return;
        clsQOR_File other;
        EXPECT_EQ((other.*kind.load)(Utf16(path)), Failure);
        EXPECT_EQ(other.ErrorStatus(), InputFile_ReadFail);
        FillLarge();
    }
    void FillLarge()
    {
        Fill(world);
        world.file.DataBlock_NumberOfSamples(6000);
        world.file.ShapeTable_NumberOfDOFs(100);
        world.file.ShapeTable_NumberOfShapes(100);
        world.file.Structure_NumberOfVertexPoints(800);
    }
    // What went wrong before leaves nothing behind that is in the way.
    void ExpectSaved(const fs::path& path)
    {
        Fill(world);
        EXPECT_EQ(Save(path), Success) << path;
        EXPECT_GT(fs::file_size(path), 100U);
        if (kind.load) {
            EXPECT_EQ((world.file.*kind.load)(Utf16(path)), Success);
        }
        EXPECT_EQ(world.file.ErrorStatus(), NoError);
    }
};

// ---- names -------------------------------------------------------------------------------------------------------

TEST_P(RealFiles, AreNoFolders)
{
    fs::create_directory(folder / "folder");
    ExpectNoFile(folder / "folder");
    ExpectNoFile(folder / "folder/");
    EXPECT_TRUE(fs::is_directory(folder / "folder"));
}

TEST_P(RealFiles, AreNoDevices)
{
    for (const char* device : {"/dev/full", "/dev/zero", "/dev/null"}) ExpectNoFile(device);
}

// Opening one would wait for its other end.
TEST_P(RealFiles, AreNoPipes)
{
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    ExpectNoFile(pipe);
    EXPECT_TRUE(fs::is_fifo(pipe));
}

TEST_P(RealFiles, AreNoSockets)
{
    const fs::path path = folder / "socket";
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.string().size(), sizeof address.sun_path);
    path.string().copy(address.sun_path, sizeof address.sun_path - 1);
    const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_EQ(bind(listening, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    ExpectNoFile(path);
    close(listening);
}

TEST_P(RealFiles, HaveNoNamesThatAreTooLong)
{
    ExpectNoFile(folder / std::string(300, 'n'));
    std::string path = (folder / "").string();
    while (path.size() < 5000) path += "folder/../";
    ExpectNoFile(path + "file");
    ExpectNoFile(folder / std::string(5000, 'n'));
}

TEST_P(RealFiles, AreNotBelowAFile)
{
    WriteBytes(folder / "file", {'k', 'e', 'p', 't'});
    ExpectNoFile(folder / "file" / "below");
    ExpectNoFile(folder / "missing" / "below");
    EXPECT_EQ(fs::file_size(folder / "file"), 4U);
}

TEST_P(RealFiles, TakeThePlaceOfALinkThatLeadsNowhere)
{
    for (const auto& [link, target] : {std::pair{"dangling", "missing"}, std::pair{"looping", "looping"}}) {
        fs::create_symlink(target, folder / link);
        ExpectNotLoaded(folder / link);
        ExpectSaved(folder / link);
        EXPECT_FALSE(fs::is_symlink(folder / link)) << link;
    }
    EXPECT_FALSE(fs::exists(folder / "missing"));
}

// ---- disks -------------------------------------------------------------------------------------------------------

// With every room from none to enough.
TEST_P(RealFiles, OnAFullDiskFailAndCanBeSavedOnceThereIsRoom)
{
    FillLarge();
    const State before = StateOf(world);
    ASSERT_EQ(Save(folder / "whole"), Success);
    const auto whole = BytesOf(folder / "whole");
    ASSERT_GT(whole.size(), 60'000U);
    SmallDisk disk("size=256k");
    if (!disk.Mounted()) GTEST_SKIP() << "this system lets nobody mount a disk";

    for (std::size_t room = 0; room <= 20; ++room) {
        disk.FillUpTo(4096 * room);
        const ReturnStatus status = Save(disk / "file");
        const auto written = BytesOf(disk / "file");
        EXPECT_EQ(status, written == whole ? Success : kind.notWritten) << room;
        EXPECT_EQ(written == whole, 4096 * room >= whole.size()) << room << ", " << written.size() << " bytes";
        EXPECT_EQ(world.file.ErrorStatus(), NoError);
        EXPECT_EQ(StateOf(world), before) << room;
        EXPECT_LE(written.size(), whole.size());
        ExpectNotWhole(disk / "file", written == whole);
        fs::remove(disk / "file");
    }
    disk.FillUpTo(0);
    EXPECT_EQ(Save(disk / "file"), kind.notWritten);
    disk.Clear();
    ASSERT_EQ(Save(disk / "file"), Success);
    EXPECT_EQ(BytesOf(disk / "file"), whole);
}

TEST_P(RealFiles, OnAReadOnlyDiskStayAsTheyAre)
{
    SmallDisk disk("size=256k");
    if (!disk.Mounted()) GTEST_SKIP() << "this system lets nobody mount a disk";
    WriteBytes(disk / "kept", {'k', 'e', 'p', 't'});
    ASSERT_TRUE(disk.MakeReadOnly());
    const State before = StateOf(world);

    EXPECT_EQ(Save(disk / "kept"), Failure);
    EXPECT_EQ(Save(disk / "new"), Failure);
    EXPECT_EQ(world.file.ErrorStatus(), NoError);

    EXPECT_EQ(StateOf(world), before);
    EXPECT_EQ(BytesOf(disk / "kept"), BytesOfKept);
    EXPECT_FALSE(fs::exists(disk / "new"));
}

// No number of files left, though there is room for bytes.
TEST_P(RealFiles, OnADiskThatTakesNoMoreFilesAreNotMade)
{
    SmallDisk disk("size=256k,nr_inodes=2");
    if (!disk.Mounted()) GTEST_SKIP() << "this system lets nobody mount a disk";
    WriteBytes(disk / "other", {'x'});
    ExpectNoFile(disk / "new");
    fs::remove(disk / "other");
    ExpectSaved(disk / "new");
}

// ---- permissions -------------------------------------------------------------------------------------------------

// Permissions do not bind root.
class AsNobody
{
public:
    AsNobody() : isOther_(self_ != 0 || seteuid(65534) == 0) {}
    ~AsNobody()
    {
        if (self_ == 0 && seteuid(0) != 0) std::abort();
    }
    AsNobody(const AsNobody&) = delete;
    AsNobody& operator=(const AsNobody&) = delete;

    bool IsOther() const { return isOther_; }

private:
    const uid_t self_ = geteuid();
    const bool isOther_;
};

TEST_P(RealFiles, InAForbiddenFolderStayAsTheyAre)
{
    const fs::path closed = folder / "closed";
    const fs::path kept = closed / "kept";
    fs::create_directory(closed);
    WriteBytes(kept, {'k', 'e', 'p', 't'});
    fs::permissions(folder / "", fs::perms::all);
    const State before = StateOf(world);
    for (const fs::perms mode : {fs::perms(0555), fs::perms(0)}) {
        fs::permissions(kept, fs::perms(0));
        fs::permissions(closed, mode);
        {
            const AsNobody nobody;
            if (!nobody.IsOther()) GTEST_SKIP() << "this system has no other users";
            EXPECT_EQ(Save(kept), Failure);
            EXPECT_EQ(Save(closed / "new"), Failure);
            EXPECT_EQ(world.file.ErrorStatus(), NoError);
        }
        EXPECT_EQ(StateOf(world), before);
        {
            const AsNobody nobody;
            ExpectNotLoaded(kept);
        }
        fs::permissions(closed, fs::perms::all);
        fs::permissions(kept, fs::perms::all);
        EXPECT_EQ(BytesOf(kept), BytesOfKept);
        EXPECT_FALSE(fs::exists(closed / "new"));
        Fill(world);
    }
}

INSTANTIATE_TEST_SUITE_P(Of, RealFiles, testing::ValuesIn(Kinds),
                         [](const auto& kind) { return std::string(kind.param.name); });

} // namespace
} // namespace qor::test
