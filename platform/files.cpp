#include "platform/files.h"

#include <fnmatch.h>

#include <QDir>

#include <filesystem>
#include <system_error>

#include "platform/runtime_error.h"

namespace fs = std::filesystem;

namespace zw {

std::string nativePath(const std::string& classicPath) {
    std::string path;
    path.reserve(classicPath.size());
    for (char c : classicPath) {
        const char sep = c == '\\' ? '/' : c;
        if (sep == '/' && !path.empty() && path.back() == '/') {
            continue;
        }
        path.push_back(sep);
    }
    return path;
}

namespace {

// One stat: a listing with normal attributes shows anything that exists and is no directory.
bool isListedFile(const fs::path& path) {
    std::error_code ec;
    const fs::file_status status = fs::status(path, ec);
    return fs::exists(status) && !fs::is_directory(status);
}

bool hasWildcard(const std::string& name) {
    return name.find_first_of("*?") != std::string::npos;
}

bool anyFileMatches(const fs::path& directory, const std::string& pattern) {
    std::error_code ec;
    fs::directory_iterator it(directory.empty() ? fs::path(".") : directory, ec);
    for (; !ec && it != fs::directory_iterator(); it.increment(ec)) {
        const std::string name = it->path().filename().string();
        if (fnmatch(pattern.c_str(), name.c_str(), 0) == 0 && isListedFile(it->path())) {
            return true;
        }
    }
    return false;
}

}  // namespace

bool FileExists(const std::string& fileName) {
    if (fileName.empty()) {
        return false;
    }
    const fs::path path(nativePath(fileName));
    const std::string last = path.filename().string();
    if (last.empty()) {
        return false;
    }
    if (hasWildcard(last)) {
        return anyFileMatches(path.parent_path(), last);
    }
    return isListedFile(path);
}

bool directoryExists(const std::string& path) {
    if (path.empty()) {
        return false;
    }
    std::error_code ec;
    return fs::is_directory(fs::path(nativePath(path)), ec);
}

void makeDirectory(const std::string& path) {
    std::string trimmed = nativePath(path);
    while (trimmed.size() > 1 && trimmed.back() == '/') {
        trimmed.pop_back();
    }
    if (trimmed.empty()) {
        raise(kErrPathFileAccess);
    }
    const fs::path native(trimmed);
    std::error_code ec;
    if (native.has_parent_path() && !fs::is_directory(native.parent_path(), ec)) {
        raise(kErrPathNotFound);
    }
    if (!fs::create_directory(native, ec) || ec) {
        raise(kErrPathFileAccess);
    }
}

void deleteFile(const std::string& fileName) {
    const fs::path native(nativePath(fileName));
    std::error_code ec;
    if (fileName.empty() || !fs::exists(native, ec)) {
        raise(kErrFileNotFound);
    }
    if (fs::is_directory(native, ec) || !fs::remove(native, ec) || ec) {
        raise(kErrPathFileAccess);
    }
}

void replaceFile(const std::string& from, const std::string& to) {
    std::error_code ec;
    fs::rename(fs::path(nativePath(from)), fs::path(nativePath(to)), ec);
    if (ec) {
        raise(kErrPathFileAccess);
    }
}

std::int64_t fileLength(const std::string& fileName) {
    const fs::path native(nativePath(fileName));
    std::error_code ec;
    if (fileName.empty() || !isListedFile(native)) {
        raise(kErrFileNotFound);
    }
    const auto size = fs::file_size(native, ec);
    if (ec) {
        raise(kErrPathFileAccess);
    }
    return static_cast<std::int64_t>(size);
}

std::string homeDirectory() {
    return QDir::homePath().toStdString();
}

std::string directoryOf(const std::string& path) {
    return fs::path(nativePath(path)).parent_path().string();
}

std::string executableDirectory() {
    std::error_code ec;
    const fs::path exe = fs::read_symlink("/proc/self/exe", ec);
    if (ec || !exe.has_parent_path()) {
        return fs::current_path(ec).string();
    }
    return exe.parent_path().string();
}

}  // namespace zw
