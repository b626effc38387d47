#include "platform/files.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <utility>
#include <vector>

#include "platform/record_file.h"
#include "test_support.h"

namespace zw {
namespace {

void touch(const std::string& path) {
    std::ofstream(nativePath(path)) << "12345";
}

TEST(NativePath, BackslashesAndDoubledSeparatorsBecomeOne) {
    EXPECT_EQ(nativePath("/opt/zw\\\\undoredo\\\\3.zwl"), "/opt/zw/undoredo/3.zwl");
    EXPECT_EQ(nativePath("a//b\\c"), "a/b/c");
}

TEST(FileExists, FilesOnlyWithListingWildcards) {
    TestDir dir;
    touch(dir.file("a.3.4"));
    makeDirectory(dir.file("sub.zwl"));
    const std::pair<std::string, bool> cases[] = {
        {dir.file("a.3.4"), true},     {dir.file("a.?.4"), true},
        {dir.file("*.4"), true},       {"", false},
        {dir.file("a.3.5"), false},    {dir.path() + "/", false},
        {dir.file("sub.zwl"), false},  {dir.file("*.zwl"), false},  // only a directory matches
        {dir.file("no/a.3.4"), false},
    };
    for (const auto& [name, exists] : cases) {
        EXPECT_EQ(FileExists(name), exists) << name;
    }
}

TEST(Files, DirectoriesAndDeletionWithTheirErrors) {
    TestDir dir;
    const std::string undo = dir.path() + "\\undoredo";
    EXPECT_FALSE(directoryExists(undo));
    makeDirectory(undo);
    EXPECT_TRUE(directoryExists(undo + "\\."));
    EXPECT_EQ(errorOf([&] { makeDirectory(undo); }), kErrPathFileAccess);
    EXPECT_EQ(errorOf([&] { makeDirectory(dir.file("no/such")); }), kErrPathNotFound);
    touch(dir.file("f"));
    EXPECT_FALSE(directoryExists(dir.file("f")));
    EXPECT_EQ(fileLength(dir.file("f")), 5);
    deleteFile(dir.file("f"));
    EXPECT_EQ(errorOf([&] { deleteFile(dir.file("f")); }), kErrFileNotFound);
    EXPECT_EQ(errorOf([&] { deleteFile(dir.path()); }), kErrPathFileAccess);
}

TEST(Files, ExecutableDirectoryHoldsThisTest) {
    const std::string exeDir = executableDirectory();
    EXPECT_NE(exeDir.back(), '/');
    EXPECT_TRUE(FileExists(exeDir + "/model_tests"));
}

std::vector<unsigned char> bytesOf(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

TEST(RecordFile, LittleEndianRecordsCountedFromOne) {
    TestDir dir;
    {
        RecordFile file(dir.file("f"));  // created when missing
        EXPECT_EQ(file.getLong(1), 0);
        file.putLong(1, 0x01020304);
        file.putSingle(2, 1.0f);  // 0x3F800000
        file.putLong(3, -2);
    }
    const std::vector<unsigned char> expected = {4,    3,    2,    1,    0,    0,
                                                 0x80, 0x3F, 0xFE, 0xFF, 0xFF, 0xFF};
    EXPECT_EQ(bytesOf(dir.file("f")), expected);
    RecordFile file(dir.file("f"));
    EXPECT_EQ(file.getSingle(2), 1.0f);
    EXPECT_EQ(file.getLong(2.5), 0x3F800000);  // record numbers round halves to even: 2.5 -> 2
    EXPECT_EQ(file.getLong(3.5), 0);           // 3.5 -> 4, past the end
}

TEST(RecordFile, PastTheEndReadsZeroAndWritingExtends) {
    TestDir dir;
    std::ofstream(dir.file("f"), std::ios::binary).write("\x01\x02\x03\x04\x05", 5);
    RecordFile file(dir.file("f"));
    EXPECT_EQ(file.getLong(2), 5);  // a partial record: its bytes, then zeros
    file.putSingle(5, 2.5f);
    EXPECT_EQ(file.length(), 20);
    EXPECT_EQ(file.getSingle(4), 0.0f);
    EXPECT_EQ(file.getSingle(5), 2.5f);
    EXPECT_EQ(file.getSingle(1e9), 0.0f);
}

TEST(RecordFile, Errors) {
    TestDir dir;
    EXPECT_EQ(errorOf([] { RecordFile(""); }), kErrBadFileName);
    EXPECT_EQ(errorOf([&] { RecordFile(dir.file("no/such/f")); }), kErrPathNotFound);
    EXPECT_EQ(errorOf([&] { RecordFile(dir.path()); }), kErrPathFileAccess);
    RecordFile file(dir.file("f"));
    EXPECT_EQ(errorOf([&] { file.getLong(0); }), kErrBadRecordNumber);
    EXPECT_EQ(errorOf([&] { file.putLong(-3, 1); }), kErrBadRecordNumber);
    EXPECT_EQ(errorOf([&] { file.getLong(1e12); }), kErrOverflow);
    EXPECT_EQ(errorOf([&] { file.putLong(kMaxRecordNumber + 1, 1); }), kErrOutOfMemory);
    EXPECT_EQ(file.length(), 0);
}

}  // namespace
}  // namespace zw
