#include "platform/files.h"

#include <gtest/gtest.h>

#include <fstream>

#include "platform/runtime_error.h"
#include "test_dir.h"

namespace zw {
namespace {

template <typename F>
int errorOf(F&& action) {
    try {
        action();
    } catch (const RuntimeError& e) {
        return e.number();
    }
    return 0;
}

void touch(const std::string& path, const std::string& content = "x") {
    std::ofstream(nativePath(path)) << content;
}

TEST(NativePath, BackslashesAndDoubledSeparatorsBecomeOne) {
    EXPECT_EQ(nativePath("/opt/zw\\\\undoredo\\\\3.zwl"), "/opt/zw/undoredo/3.zwl");
    EXPECT_EQ(nativePath("/opt/zw\\zwierlijn"), "/opt/zw/zwierlijn");
    EXPECT_EQ(nativePath("a//b"), "a/b");
    EXPECT_EQ(nativePath(""), "");
}

TEST(FileExists, FilesOnly) {
    TestDir dir;
    touch(dir.file("curve.zwl"));
    EXPECT_TRUE(FileExists(dir.file("curve.zwl")));
    EXPECT_TRUE(FileExists(dir.path() + "\\\\curve.zwl"));
    EXPECT_FALSE(FileExists(""));
    EXPECT_FALSE(FileExists(dir.file("other.zwl")));
    EXPECT_FALSE(FileExists(dir.path()));
    EXPECT_FALSE(FileExists(dir.path() + "/"));
    EXPECT_FALSE(FileExists(dir.file("missing/curve.zwl")));
}

TEST(FileExists, WildcardsMatchAsAListingDoes) {
    TestDir dir;
    touch(dir.file("a.3.4"));
    makeDirectory(dir.file("sub.zwl"));
    EXPECT_TRUE(FileExists(dir.file("a.?.4")));
    EXPECT_TRUE(FileExists(dir.file("*.4")));
    EXPECT_FALSE(FileExists(dir.file("*.5")));
    EXPECT_FALSE(FileExists(dir.file("*.zwl")));  // only a directory matches
}

TEST(Directories, MakeExistsAndTheirErrors) {
    TestDir dir;
    const std::string undo = dir.path() + "\\undoredo";
    EXPECT_FALSE(directoryExists(undo));
    makeDirectory(undo);
    EXPECT_TRUE(directoryExists(undo));
    EXPECT_TRUE(directoryExists(undo + "\\."));
    EXPECT_EQ(errorOf([&] { makeDirectory(undo); }), kErrPathFileAccess);
    EXPECT_EQ(errorOf([&] { makeDirectory(dir.file("no/such/dir")); }), kErrPathNotFound);
    touch(dir.file("plain"));
    EXPECT_FALSE(directoryExists(dir.file("plain")));
    EXPECT_FALSE(directoryExists(""));
}

TEST(Files, DeleteAndLength) {
    TestDir dir;
    touch(dir.file("f"), "12345");
    EXPECT_EQ(fileLength(dir.file("f")), 5);
    deleteFile(dir.file("f"));
    EXPECT_FALSE(FileExists(dir.file("f")));
    EXPECT_EQ(errorOf([&] { deleteFile(dir.file("f")); }), kErrFileNotFound);
    EXPECT_EQ(errorOf([&] { fileLength(dir.file("f")); }), kErrFileNotFound);
    EXPECT_EQ(errorOf([&] { deleteFile(dir.path()); }), kErrPathFileAccess);
}

TEST(Files, ExecutableDirectoryHoldsThisTest) {
    const std::string exeDir = executableDirectory();
    EXPECT_TRUE(directoryExists(exeDir));
    EXPECT_NE(exeDir.back(), '/');
    EXPECT_TRUE(FileExists(exeDir + "/model_tests"));
}

}  // namespace
}  // namespace zw
