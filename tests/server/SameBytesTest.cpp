// SPDX-License-Identifier: MIT
// Copyright (c) 2026 The QOR_File authors
//
// What the registered library writes, reads and computes, held against the numbers that the native build meets too;
// and file names and the mouse pointer as the system has them.
#include "server/ComClient.h"
#include "windows/SameEverywhere.h"

#include <atomic>
#include <thread>
#include <xmmintrin.h>

using namespace qor::test;

namespace {

class SameBytes : public ::testing::Test
{
protected:
    std::u16string Path(const std::filesystem::path& name) const { return (folder / name).u16string(); }
    std::uint64_t Bits(const std::filesystem::path& name) const { return ChecksumOf(folder / name); }

    Apartment apartment;
    Folder folder{u"QOR_File same bytes "};
    ComClient::File file;
};

TEST_F(SameBytes, StandInFilesOfAllKinds)
{
    FillDataBlock<ComClient>(file);
    FillShapeTable<ComClient>(file);
    FillStructure<ComClient>(file);

    EXPECT_EQ(file.OutputDataBlockFile(Path("block.blk")), Success);
    EXPECT_EQ(file.OutputShapeTableFile(Path("modes.shp")), Success);
    EXPECT_EQ(file.OutputStructureFile(Path("body.str")), Success);

    EXPECT_EQ(Bits("block.blk"), DataBlockFileBits);
    EXPECT_EQ(Bits("modes.shp"), ShapeTableFileBits);
    EXPECT_EQ(Bits("body.str"), StructureFileBits);
}

TEST_F(SameBytes, AreReadOfFiles)
{
    FillDataBlock<ComClient>(file);
    FillStructure<ComClient>(file);
    file.OutputDataBlockFile(Path("block.blk"));
    file.OutputStructureFile(Path("body.str"));

    ComClient::File reader; // which empties the documents
    EXPECT_EQ(reader.InputDataBlockFile(Path("block.blk")), Success);
    EXPECT_EQ(reader.InputStructureFile(Path("body.str")), Success);

    EXPECT_EQ(BitsOfDataBlock<ComClient>(reader), ReadDataBlockBits);
    EXPECT_EQ(BitsOfStructure<ComClient>(reader), ReadStructureBits);
}

TEST_F(SameBytes, ComeOfConversions)
{
    EXPECT_EQ(BitsOfRealAndImaginary(file), RealAndImaginaryBits);
    EXPECT_EQ(BitsOfMagnitudeAndPhase(file), MagnitudeAndPhaseBits);
}

// Calls with a client's own settings of the processor, which results must not suffer from, nor the client lose.
class OtherSettings
{
public:
    explicit OtherSettings(const ComClient::File& file) : file_(file) {}
    float GetRealValueFrom(float magnitude, float phase) const
    {
        return Called([&] { return file_.GetRealValueFrom(magnitude, phase); });
    }
    float GetImaginaryValueFrom(float magnitude, float phase) const
    {
        return Called([&] { return file_.GetImaginaryValueFrom(magnitude, phase); });
    }

private:
    static constexpr unsigned TowardZero = 0x6000;
    static constexpr unsigned FlushedSmallNumbers = 0x8000;

    template <class Call>
    static float Called(Call&& call)
    {
        const unsigned own = _mm_getcsr();
        _mm_setcsr(own | TowardZero | FlushedSmallNumbers);
        const float result = call();
        const unsigned after = _mm_getcsr();
        _mm_setcsr(own);
        EXPECT_EQ(after & 0xE000U, TowardZero | FlushedSmallNumbers);
        return result;
    }

    const ComClient::File& file_;
};

TEST_F(SameBytes, ComeOfConversionsWhateverTheClientsRounding)
{
    EXPECT_EQ(BitsOfRealAndImaginary(OtherSettings(file)), RealAndImaginaryBits);
}

// ---- file names ----------------------------------------------------------------------------------------------

TEST_F(SameBytes, StandInFilesOfAnyName)
{
    for (const char16_t* name : {u"\u0418\u0437\u043C\u0435\u0440\u0435\u043D\u0438\u0435.blk", u"\u6E2C\u5B9A.blk",
                                 u"sound \U0001F50A.blk"}) {
        FillDataBlock<ComClient>(file);
        EXPECT_EQ(file.OutputDataBlockFile(Path(name)), Success);
        EXPECT_EQ(Bits(name), DataBlockFileBits);

        ComClient::File reader;
        EXPECT_EQ(reader.InputDataBlockFile(Path(name)), Success);
        EXPECT_EQ(BitsOfDataBlock<ComClient>(reader), ReadDataBlockBits);
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / ""), {}), 3);
}

class PathNames : public SameBytes
{
protected:
    std::u16string ShortForm(std::u16string_view path) const
    {
        Text short_;
        EXPECT_HRESULT_SUCCEEDED(file.Get()->GetDOS_FilePathName(Text(path).Get(), short_.Out()));
        return short_.Content();
    }
    bool Equal(std::u16string_view one, std::u16string_view other) const
    {
        VARIANT_BOOL equal = 7;
        EXPECT_HRESULT_SUCCEEDED(file.Get()->PathNamesEqual(Text(one).Get(), Text(other).Get(), &equal));
        EXPECT_TRUE(equal == VARIANT_TRUE || equal == VARIANT_FALSE);
        return equal != VARIANT_FALSE;
    }
};

TEST_F(PathNames, HaveAShortFormThatNamesTheSameFile)
{
    std::ofstream(folder / "A rather long name.measured").put('1');
    const std::u16string path = Path("A rather long name.measured");
    char expected[MAX_PATH] = {};
    ASSERT_NE(GetShortPathNameA(std::filesystem::path(path).string().c_str(), expected, MAX_PATH), 0U);

    const std::u16string shortForm = ShortForm(path);

    EXPECT_EQ(shortForm, std::u16string(expected, expected + std::char_traits<char>::length(expected)));
    EXPECT_TRUE(std::filesystem::equivalent(shortForm, path));
    EXPECT_TRUE(Equal(path, shortForm));
    EXPECT_EQ(ShortForm(Path("none") + u"\\of.blk"), u"");
}

TEST_F(PathNames, AreEqualWhateverTheirCase)
{
    EXPECT_TRUE(Equal(u"C:\\Any\\Block.blk", u"c:\\aNY\\bLOCK.BLK"));
    EXPECT_TRUE(Equal(u"\u0416.blk", u"\u0436.blk"));
    EXPECT_FALSE(Equal(Path("one.blk"), Path("other.blk")));
    EXPECT_FALSE(Equal(u" ", u" "));
    EXPECT_FALSE(Equal({}, {}));
}

// ---- the mouse pointer ---------------------------------------------------------------------------------------

class Pointer : public SameBytes
{
protected:
    static HCURSOR Cross() { return LoadCursor(nullptr, IDC_CROSS); }
};

TEST_F(Pointer, IsWhatItWasAfterASave)
{
    FillDataBlock<ComClient>(file);
    SetCursor(Cross());
    ASSERT_EQ(GetCursor(), Cross());

    EXPECT_EQ(file.OutputDataBlockFile(Path("block.blk")), Success);
    EXPECT_EQ(GetCursor(), Cross());
    EXPECT_EQ(file.OutputDataBlockFile(Path("none") + u"\\of.blk"), Failure);
    EXPECT_EQ(GetCursor(), Cross());
    EXPECT_EQ(file.OutputDataBlockFile(u""), Failure);
    EXPECT_EQ(GetCursor(), Cross());
}

// Another thread that shares the input state sees what this one shows.
TEST_F(Pointer, IsTheHourglassDuringASave)
{
    FillDataBlock<ComClient>(file);
    file.DataBlock_NumberOfSamples(1'000'000);
    SetCursor(Cross());
    const DWORD saving = GetCurrentThreadId();
    std::atomic<bool> attached = false;
    std::atomic<bool> seen = false;
    std::atomic<bool> done = false;
    std::thread watcher([&] {
        MSG message;
        PeekMessage(&message, nullptr, 0, 0, PM_NOREMOVE); // makes this thread's own input state
        attached = AttachThreadInput(GetCurrentThreadId(), saving, TRUE) != FALSE;
        while (!done) {
            if (GetCursor() == LoadCursor(nullptr, IDC_WAIT)) seen = true;
            std::this_thread::yield();
        }
    });
    for (int save = 0; save < 20 && !seen; ++save) file.OutputDataBlockFile(Path("block.blk"));
    done = true;
    watcher.join();

    EXPECT_TRUE(attached);
    EXPECT_TRUE(seen);
    EXPECT_EQ(GetCursor(), Cross());
}

} // namespace
