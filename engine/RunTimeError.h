#pragma once

#include <stdexcept>
#include <string>

namespace quillon {

/// The numbers of the run-time errors that the lab knows by name.
enum class ErrorNumber : int {
    Overflow = 6,
    SubscriptOutOfRange = 9,
    DivisionByZero = 11,
    TypeMismatch = 13,
    FileNotFound = 53,
    DeviceIoError = 57,
    DiskFull = 61,
    InputPastEndOfFile = 62,
    PermissionDenied = 70,
    PathFileAccessError = 75,
    PathNotFound = 76,
    ObjectNotSet = 91,
    InvalidPropertyValue = 380,
    InvalidPicture = 481,
    PrinterError = 482,
    DialogCancelled = 32755,
};

/// The one exception type of the lab: a number and its description in plain
/// English, as a user reads it in a message ("Overflow").
class RunTimeError : public std::runtime_error {
public:
    explicit RunTimeError(ErrorNumber number);
    /// An error whose description also names what failed.
    RunTimeError(ErrorNumber number, const std::string& description);

    ErrorNumber number() const noexcept { return number_; }
    std::string description() const { return what(); }

private:
    ErrorNumber number_;
};

/// The plain description of an error ("Subscript out of range").
std::string describe(ErrorNumber number);

}  // namespace quillon
