// Run-time errors with the classic numbers and texts.
//
// The model never validates its arguments; a bad index, a division by zero or a file that cannot
// be opened ends the current user action with the run time's standard error. Every such failure
// is thrown as a RuntimeError and caught by the EventGuard that runs each event handler.
#pragma once

#include <stdexcept>
#include <string>

namespace zw {

// Classic error numbers the program raises or can meet.
enum ErrorNumber : int {
    kErrInvalidCall = 5,
    kErrOverflow = 6,
    kErrOutOfMemory = 7,
    kErrSubscript = 9,
    kErrDivisionByZero = 11,
    kErrTypeMismatch = 13,
    kErrOutOfStack = 28,
    kErrInternal = 51,
    kErrBadFileName = 52,
    kErrFileNotFound = 53,
    kErrDeviceIo = 57,
    kErrDiskFull = 61,
    kErrBadRecordNumber = 63,
    kErrPathFileAccess = 75,
    kErrPathNotFound = 76,
    kErrObjectNotSet = 91,
    kErrInvalidProperty = 380,
};

class RuntimeError : public std::runtime_error {
  public:
    explicit RuntimeError(int number);
    int number() const { return number_; }
    // The standard text of the error, as the Dutch run time words it.
    const std::string& text() const { return text_; }

  private:
    int number_;
    std::string text_;
};

// The standard text of a classic error number; numbers without a text of their own get the
// run time's text for an application-defined error.
std::string standardErrorText(int number);

// The message box text the run time shows for an unhandled error.
std::string errorMessage(const RuntimeError& error);

[[noreturn]] void raise(int number);

}  // namespace zw
