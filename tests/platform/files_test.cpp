#include "platform/files.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>
#include <utility>

#include "platform/record_file.h"
#include "test_support.h"

namespace zw {
namespace {

void touch(const std::string& path) {
    std::ofstream(nativePath(path)) << "12345";
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

TEST(Files, PathsDirectoriesAndDeletionWithTheirErrors) {
    EXPECT_EQ(nativePath("/opt/zw\\\\undoredo\\\\3.zwl"), "/opt/zw/undoredo/3.zwl");
    EXPECT_EQ(nativePath("a//b\\c"), "a/b/c");
    const std::string exe = executableDirectory();
    EXPECT_TRUE(exe.back() != '/' && FileExists(exe + "/model_tests"));
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

// Little-endian records counted from 1, created when missing; past the end a partial record reads
// its bytes, then zeros, and writing extends the file. Record numbers round halves to even.
TEST(RecordFile, LittleEndianRecordsCountedFromOneAndTheirErrors) {
    TestDir dir;
    {
        RecordFile file(dir.file("f"));
        EXPECT_EQ(file.getLong(1), 0);
        file.putLong(1, 0x01020304);
        file.putSingle(2, 1.0f);  // 0x3F800000
        file.putLong(3, -2);
        std::ofstream(dir.file("g"), std::ios::binary).write("\x01\x02\x03\x04\x05", 5);
    }
    std::ifstream in(dir.file("f"), std::ios::binary);
    EXPECT_EQ(std::string(std::istreambuf_iterator<char>(in), {}),
              std::string("\x04\x03\x02\x01\x00\x00\x80\x3F\xFE\xFF\xFF\xFF", 12));
    RecordFile file(dir.file("f"));
    EXPECT_EQ(file.getSingle(2), 1.0f);
    EXPECT_EQ(file.getLong(2.5), 0x3F800000);  // 2.5 -> 2
    EXPECT_EQ(file.getLong(3.5), 0);           // 3.5 -> 4, past the end
    RecordFile partial(dir.file("g"));
    EXPECT_EQ(partial.getLong(2), 5);
    partial.putSingle(5, 2.5f);
    EXPECT_EQ(partial.length(), 20);
    EXPECT_EQ(partial.getSingle(4), 0.0f);
    EXPECT_EQ(partial.getSingle(5), 2.5f);
    EXPECT_EQ(partial.getSingle(1e9), 0.0f);

    EXPECT_EQ(errorOf([] { RecordFile(""); }), kErrBadFileName);
    EXPECT_EQ(errorOf([&] { RecordFile(dir.file("no/such/f")); }), kErrPathNotFound);
    EXPECT_EQ(errorOf([&] { RecordFile(dir.path()); }), kErrPathFileAccess);
    RecordFile empty(dir.file("e"));
    EXPECT_EQ(errorOf([&] { empty.getLong(0); }), kErrBadRecordNumber);
    EXPECT_EQ(errorOf([&] { empty.putLong(-3, 1); }), kErrBadRecordNumber);
    EXPECT_EQ(errorOf([&] { empty.getLong(1e12); }), kErrOverflow);
    EXPECT_EQ(errorOf([&] { empty.putLong(kMaxRecordNumber + 1, 1); }), kErrOutOfMemory);
    EXPECT_EQ(empty.length(), 0);
}

}  // namespace
}  // namespace zw
