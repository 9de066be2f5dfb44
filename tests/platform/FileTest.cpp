// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// Files by UTF-16 path: regular ones only, and nothing of an earlier file of the same name.
#include "platform/File.h"
#include "support/TemporaryFolder.h"

#include <gtest/gtest.h>
#include <string>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/un.h>
#include <unistd.h>

namespace qor::platform {
namespace {

using test::BytesOf;
using test::Utf16;
using test::WriteBytes;

std::vector<std::uint8_t> Letters(std::string_view text) { return {text.begin(), text.end()}; }

std::string ReadText(File& file, std::uint64_t offset, std::size_t count)
{
    std::string text(count, '?');
    text.resize(file.ReadAt(offset, std::as_writable_bytes(std::span(text))));
    return text;
}

bool WriteText(File& file, std::uint64_t offset, std::string_view text)
{
    return file.WriteAt(offset, std::as_bytes(std::span(text)));
}

class FileTest : public testing::Test
{
protected:
    test::TemporaryFolder folder;
    const std::filesystem::path path = folder / "file";
};

// ---- reading -------------------------------------------------------------------------------------------------

TEST_F(FileTest, IsReadFromAnyOffset)
{
    WriteBytes(path, Letters("0123456789"));
    auto file = File::OpenForReading(Utf16(path));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Size(), 10U);
    EXPECT_EQ(ReadText(*file, 0, 10), "0123456789");
    EXPECT_EQ(ReadText(*file, 7, 2), "78");
    EXPECT_EQ(ReadText(*file, 3, 1), "3");
}

TEST_F(FileTest, GivesWhatThereIsAtItsEnd)
{
    WriteBytes(path, Letters("0123456789"));
    auto file = File::OpenForReading(Utf16(path));
    ASSERT_TRUE(file);
    EXPECT_EQ(ReadText(*file, 8, 5), "89");
    EXPECT_EQ(ReadText(*file, 10, 5), "");
    EXPECT_EQ(ReadText(*file, 1'000'000, 5), "");
    EXPECT_EQ(ReadText(*file, 0, 0), "");
}

TEST_F(FileTest, OpenedForReadingIsNotWritten)
{
    WriteBytes(path, Letters("kept"));
    auto file = File::OpenForReading(Utf16(path));
    ASSERT_TRUE(file);
    EXPECT_FALSE(WriteText(*file, 0, "lost"));
    EXPECT_EQ(BytesOf(path), Letters("kept"));
}

TEST_F(FileTest, ThatIsMissingIsNotOpenedAndNotMade)
{
    EXPECT_FALSE(File::OpenForReading(Utf16(path)));
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(FileTest, HasItsNameInAnyScript)
{
    const std::u16string name = Utf16(folder / "") + std::u16string{0x00E4, 0x4E2D, 0xD83D, 0xDE00};
    auto file = File::Replace(name);
    ASSERT_TRUE(file);
    ASSERT_TRUE(WriteText(*file, 0, "x"));
    EXPECT_EQ(BytesOf(folder / "\xC3\xA4\xE4\xB8\xAD\xF0\x9F\x98\x80"), Letters("x"));
    EXPECT_TRUE(File::OpenForReading(name));
}

// ---- replacing -------------------------------------------------------------------------------------------------

TEST_F(FileTest, IsMadeNewAndEmpty)
{
    auto file = File::Replace(Utf16(path));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Size(), 0U);
    EXPECT_TRUE(std::filesystem::is_regular_file(path));
}

TEST_F(FileTest, KeepsNothingOfTheOneItReplaces)
{
    WriteBytes(path, Letters("a longer file than the new one"));
    auto file = File::Replace(Utf16(path));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->Size(), 0U);
    EXPECT_TRUE(WriteText(*file, 0, "new"));
    EXPECT_TRUE(file->Close());
    EXPECT_EQ(BytesOf(path), Letters("new"));
}

TEST_F(FileTest, IsWrittenAtAnyOffsetAndReadBack)
{
    auto file = File::Replace(Utf16(path));
    ASSERT_TRUE(file);
    EXPECT_TRUE(WriteText(*file, 0, "abcdef"));
    EXPECT_TRUE(WriteText(*file, 2, "XY"));
    EXPECT_TRUE(WriteText(*file, 8, "z"));
    EXPECT_EQ(file->Size(), 9U);
    EXPECT_EQ(ReadText(*file, 0, 20), std::string("abXYef\0\0z", 9));
}

TEST_F(FileTest, ThatIsOpenForReadingCanBeReplacedMeanwhile)
{
    WriteBytes(path, Letters("old"));
    auto reading = File::OpenForReading(Utf16(path));
    auto writing = File::Replace(Utf16(path));
    ASSERT_TRUE(reading);
    ASSERT_TRUE(writing);
    ASSERT_TRUE(WriteText(*writing, 0, "new"));
    EXPECT_EQ(ReadText(*reading, 0, 3), "old");
    EXPECT_EQ(BytesOf(path), Letters("new"));
}

TEST_F(FileTest, InAFolderThatIsMissingIsNotMade)
{
    EXPECT_FALSE(File::Replace(Utf16(folder / "missing" / "file")));
    EXPECT_FALSE(std::filesystem::exists(folder / "missing"));
}

TEST_F(FileTest, BelowAFileIsNotMade)
{
    WriteBytes(path, Letters("kept"));
    EXPECT_FALSE(File::Replace(Utf16(path / "below")));
    EXPECT_EQ(BytesOf(path), Letters("kept"));
}

TEST_F(FileTest, TakesThePlaceOfALinkAndLeavesItsTarget)
{
    const std::filesystem::path target = folder / "target";
    WriteBytes(target, Letters("kept"));
    std::filesystem::create_symlink(target, path);

    auto file = File::Replace(Utf16(path));

    ASSERT_TRUE(file);
    ASSERT_TRUE(WriteText(*file, 0, "new"));
    EXPECT_FALSE(std::filesystem::is_symlink(path));
    EXPECT_EQ(BytesOf(target), Letters("kept"));
    EXPECT_EQ(BytesOf(path), Letters("new"));
}

// ---- names -----------------------------------------------------------------------------------------------------

TEST_F(FileTest, WithAnEmptyNameIsNotOpened)
{
    EXPECT_FALSE(File::OpenForReading(u""));
    EXPECT_FALSE(File::Replace(u""));
}

TEST_F(FileTest, IsNotMeantByANameWithAnEmbeddedZero)
{
    WriteBytes(path, Letters("kept"));
    const std::u16string name = Utf16(path) + u'\0' + u"more";
    EXPECT_FALSE(File::OpenForReading(name));
    EXPECT_FALSE(File::Replace(name));
    EXPECT_EQ(BytesOf(path), Letters("kept"));
}

// As UTF-8 it would read as the replacement character, which is another name.
TEST_F(FileTest, IsNotMeantByANameWithAnUnpairedSurrogate)
{
    const std::filesystem::path other = folder / "\xEF\xBF\xBD";
    WriteBytes(other, Letters("kept"));
    const std::u16string name = Utf16(folder / "") + char16_t{0xD800};
    EXPECT_FALSE(File::OpenForReading(name));
    EXPECT_FALSE(File::Replace(name));
    EXPECT_EQ(BytesOf(other), Letters("kept"));
}

// ---- what is no regular file -------------------------------------------------------------------------------------

TEST_F(FileTest, IsNeverADirectory)
{
    std::filesystem::create_directory(path);
    EXPECT_FALSE(File::OpenForReading(Utf16(path)));
    EXPECT_FALSE(File::Replace(Utf16(path)));
    EXPECT_TRUE(std::filesystem::is_directory(path));
}

// Without a writer at its other end, opening a pipe would wait for ever.
TEST_F(FileTest, IsNeverAPipe)
{
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_FALSE(File::OpenForReading(Utf16(path)));
    EXPECT_FALSE(File::Replace(Utf16(path)));
    EXPECT_TRUE(std::filesystem::is_fifo(path));
}

TEST_F(FileTest, IsNeverASocket)
{
    const int listening = socket(AF_UNIX, SOCK_STREAM, 0);
    ASSERT_GE(listening, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    ASSERT_LT(path.string().size(), sizeof address.sun_path);
    path.string().copy(address.sun_path, sizeof address.sun_path - 1);
    ASSERT_EQ(bind(listening, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);

    EXPECT_FALSE(File::OpenForReading(Utf16(path)));
    EXPECT_FALSE(File::Replace(Utf16(path)));
    EXPECT_TRUE(std::filesystem::is_socket(path));
    close(listening);
}

TEST_F(FileTest, IsNeverADevice)
{
    // Who may make a device gets one of his own, as he could delete the system's.
    const bool own = mknod(path.c_str(), S_IFCHR | 0600, makedev(1, 3)) == 0;
    const std::filesystem::path device = own ? path : std::filesystem::path("/dev/null");

    EXPECT_FALSE(File::OpenForReading(Utf16(device)));
    EXPECT_FALSE(File::Replace(Utf16(device)));
    EXPECT_TRUE(std::filesystem::is_character_file(device));
}

TEST_F(FileTest, IsNotReadThroughALinkToADevice)
{
    std::filesystem::create_symlink("/dev/null", path);
    EXPECT_FALSE(File::OpenForReading(Utf16(path)));
}

// ---- closing -----------------------------------------------------------------------------------------------------

TEST_F(FileTest, IsClosedOnceHoweverOftenItIsAskedTo)
{
    auto file = File::Replace(Utf16(path));
    ASSERT_TRUE(file);
    EXPECT_TRUE(file->Close());
    EXPECT_TRUE(file->Close());
    EXPECT_FALSE(WriteText(*file, 0, "late"));
    EXPECT_EQ(ReadText(*file, 0, 1), "");
    EXPECT_EQ(file->Size(), 0U);
}

TEST_F(FileTest, MovesWithItsHandle)
{
    auto file = File::Replace(Utf16(path));
    ASSERT_TRUE(file);
    File moved(std::move(*file));
    EXPECT_TRUE(WriteText(moved, 0, "moved"));
    file.reset(); // must not close what was moved away
    EXPECT_TRUE(WriteText(moved, 5, "!"));
    EXPECT_TRUE(moved.Close());
    EXPECT_EQ(BytesOf(path), Letters("moved!"));
}

TEST_F(FileTest, LeavesNoHandleOpenHoweverOftenItIsOpenedOrRefused)
{
    WriteBytes(path, Letters("x"));
    std::filesystem::create_directory(folder / "directory");
    const auto handles = [] {
        return std::distance(std::filesystem::directory_iterator("/proc/self/fd"),
                             std::filesystem::directory_iterator());
    };
    const auto before = handles();
    for (int turn = 0; turn < 10; ++turn) {
        File::OpenForReading(Utf16(path));
        File::OpenForReading(Utf16(folder / "directory"));
        File::Replace(Utf16(path));
    }
    EXPECT_EQ(handles(), before);
}

} // namespace
} // namespace qor::platform
