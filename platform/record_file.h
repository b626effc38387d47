// Files of fixed 4-byte records opened for random access, as the spline, undo and settings files
// are kept: record r (counted from 1) lies at byte 4 (r - 1), little-endian, and holds a Single
// or a Long. Reading past the end gives 0; writing past the end extends the file with zeros.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zw {

// Puts beyond this record (a 256 MiB file) raise error 7: no curve or settings file comes near
// it, and a damaged count must not fill the disk.
constexpr std::int64_t kMaxRecordNumber = std::int64_t{1} << 26;

class RecordFile {
  public:
    // Opens for reading and writing, creating an empty file when the name does not exist.
    // Errors: 52 for an empty name, 76 when the directory does not exist, 75 when the file
    // cannot be opened (a directory, no permission).
    explicit RecordFile(const std::string& fileName);
    ~RecordFile();
    RecordFile(const RecordFile&) = delete;
    RecordFile& operator=(const RecordFile&) = delete;

    // Record numbers are rounded halves to even; below 1 they raise error 63.
    float getSingle(double record) const;
    std::int32_t getLong(double record) const;
    void putSingle(double record, float value);
    void putLong(double record, std::int32_t value);

    // LOF: the length in bytes.
    std::int64_t length() const;
    void close();

  private:
    static constexpr std::int64_t kMaxCachedBytes = std::int64_t{1} << 20;

    bool loadCache() const;
    std::uint32_t getRaw(double record) const;
    void putRaw(double record, std::uint32_t bits);

    int fd_ = -1;
    mutable std::vector<unsigned char> cache_;
    mutable bool cached_ = false;
};

}  // namespace zw
