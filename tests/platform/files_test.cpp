#include "platform/files.h"

#include <gtest/gtest.h>

#include <fstream>
#include <utility>

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

}  // namespace
}  // namespace zw
