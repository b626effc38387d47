// The file system as the classic program sees it: paths written with "\" separators (doubled
// separators count as one), FileExists by directory listing, MkDir, Kill, and the directory
// that holds the program.
#pragma once

#include <cstdint>
#include <string>

namespace zw {

// The program writes paths the classic way, program directory + "\undoredo\" + "3" + ".zwl";
// here every "\" becomes "/" and runs of separators collapse into one.
std::string nativePath(const std::string& classicPath);

// True when a listing of the name with normal attributes finds a file: false for "" (without
// touching the file system), for directories, for a name that ends in a separator and for
// names that match nothing. "*" and "?" in the last component match as in a listing.
bool FileExists(const std::string& fileName);

// True when the path names an existing directory.
bool directoryExists(const std::string& path);

// MkDir: error 75 when the directory cannot be made (it exists already, no permission), 76 when
// its parent does not exist.
void makeDirectory(const std::string& path);

// Kill: error 53 when the file does not exist, 75 when it cannot be removed (a directory, no
// permission).
void deleteFile(const std::string& fileName);

// Moves `from` over `to` in one step (the old `to` is gone only when the new one is in place);
// error 75 when that cannot be done.
void replaceFile(const std::string& from, const std::string& to);
// FileLen: the length in bytes; error 53 when the file does not exist.
std::int64_t fileLength(const std::string& fileName);

// The directory that holds the running executable, without a trailing separator.
std::string executableDirectory();

// The user's home directory; the root directory when there is none.
std::string homeDirectory();

// The directory part of a path the file dialogs returned: what lies before its last separator.
std::string directoryOf(const std::string& path);

}  // namespace zw
