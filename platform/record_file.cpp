#include "platform/record_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <vector>

#include "platform/files.h"
#include "platform/numeric.h"
#include "platform/runtime_error.h"
#include "platform/werk.h"

namespace zw {

namespace {

std::int64_t offsetOf(double record) {
    const std::int64_t r = toLong(record);
    if (r < 1) {
        raise(kErrBadRecordNumber);
    }
    return (r - 1) * 4;
}

int openOrCreate(const std::string& fileName) {
    if (fileName.empty()) {
        raise(kErrBadFileName);
    }
    const std::filesystem::path native(nativePath(fileName));
    std::error_code ec;
    if (native.has_parent_path() && !std::filesystem::is_directory(native.parent_path(), ec)) {
        raise(kErrPathNotFound);
    }
    const int fd = ::open(native.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
    if (fd < 0) {
        raise(kErrPathFileAccess);
    }
    struct stat info {};
    if (::fstat(fd, &info) != 0 || S_ISDIR(info.st_mode)) {
        ::close(fd);
        raise(kErrPathFileAccess);
    }
    return fd;
}

}  // namespace

RecordFile::RecordFile(const std::string& fileName) : fd_(openOrCreate(fileName)) {}

RecordFile::~RecordFile() {
    close();
}

void RecordFile::close() {
    if (fd_ >= 0) {
        ::close(fd_);
        fd_ = -1;
    }
}

// Files of the program are small and read record after record: the first read takes the whole
// file into memory (up to a limit), later reads come from there until the next write.
bool RecordFile::loadCache() const {
    if (cached_) {
        return true;
    }
    struct stat info {};
    if (::fstat(fd_, &info) != 0 || info.st_size > kMaxCachedBytes) {
        return false;
    }
    std::vector<unsigned char> bytes(static_cast<std::size_t>(info.st_size));
    std::size_t got = 0;
    while (got < bytes.size()) {
        const ssize_t n = ::pread(fd_, bytes.data() + got, bytes.size() - got,
                                  static_cast<off_t>(got));
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            return false;
        }
        got += static_cast<std::size_t>(n);
    }
    cache_.swap(bytes);
    cached_ = true;
    return true;
}

std::uint32_t RecordFile::getRaw(double record) const {
    werk(kWerkLezen);
    const std::int64_t offset = offsetOf(record);
    if (fd_ < 0) {
        raise(kErrBadFileName);
    }
    unsigned char bytes[4] = {0, 0, 0, 0};
    if (loadCache()) {
        for (std::size_t i = 0; i < sizeof bytes; ++i) {
            const auto at = static_cast<std::uint64_t>(offset) + i;
            bytes[i] = at < cache_.size() ? cache_[at] : 0;
        }
        return std::uint32_t{bytes[0]} | std::uint32_t{bytes[1]} << 8 |
               std::uint32_t{bytes[2]} << 16 | std::uint32_t{bytes[3]} << 24;
    }
    std::size_t got = 0;
    while (got < sizeof bytes) {
        const ssize_t n = ::pread(fd_, bytes + got, sizeof bytes - got, offset + got);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n < 0) {
            raise(kErrDeviceIo);
        }
        if (n == 0) {
            break;  // past the end: the rest of the record reads as zero
        }
        got += static_cast<std::size_t>(n);
    }
    return std::uint32_t{bytes[0]} | std::uint32_t{bytes[1]} << 8 | std::uint32_t{bytes[2]} << 16 |
           std::uint32_t{bytes[3]} << 24;
}

void RecordFile::putRaw(double record, std::uint32_t bits) {
    werk(kWerkSchrijven);
    const std::int64_t offset = offsetOf(record);
    if (fd_ < 0) {
        raise(kErrBadFileName);
    }
    if (offset / 4 + 1 > kMaxRecordNumber) {
        raise(kErrOutOfMemory);
    }
    cached_ = false;
    cache_.clear();
    const unsigned char bytes[4] = {
        static_cast<unsigned char>(bits), static_cast<unsigned char>(bits >> 8),
        static_cast<unsigned char>(bits >> 16), static_cast<unsigned char>(bits >> 24)};
    std::size_t put = 0;
    while (put < sizeof bytes) {
        const ssize_t n = ::pwrite(fd_, bytes + put, sizeof bytes - put, offset + put);
        if (n < 0 && errno == EINTR) {
            continue;
        }
        if (n <= 0) {
            raise(errno == ENOSPC ? kErrDiskFull : kErrDeviceIo);
        }
        put += static_cast<std::size_t>(n);
    }
}

float RecordFile::getSingle(double record) const {
    const std::uint32_t bits = getRaw(record);
    float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

std::int32_t RecordFile::getLong(double record) const {
    const std::uint32_t bits = getRaw(record);
    std::int32_t value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

void RecordFile::putSingle(double record, float value) {
    std::uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    putRaw(record, bits);
}

void RecordFile::putLong(double record, std::int32_t value) {
    std::uint32_t bits;
    std::memcpy(&bits, &value, sizeof bits);
    putRaw(record, bits);
}

std::int64_t RecordFile::length() const {
    struct stat info {};
    if (fd_ < 0 || ::fstat(fd_, &info) != 0) {
        raise(kErrBadFileName);
    }
    return static_cast<std::int64_t>(info.st_size);
}

}  // namespace zw
