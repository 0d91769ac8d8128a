#include "engine/RunTimeError.h"

namespace quillon {

std::string describe(ErrorNumber number) {
    switch (number) {
        case ErrorNumber::Overflow:
            return "Overflow";
        case ErrorNumber::SubscriptOutOfRange:
            return "Subscript out of range";
        case ErrorNumber::DivisionByZero:
            return "Division by zero";
        case ErrorNumber::TypeMismatch:
            return "Type mismatch";
        case ErrorNumber::FileNotFound:
            return "File not found";
        case ErrorNumber::DeviceIoError:
            return "Device I/O error";
        case ErrorNumber::DiskFull:
            return "Disk full";
        case ErrorNumber::InputPastEndOfFile:
            return "Input past end of file";
        case ErrorNumber::PermissionDenied:
            return "Permission denied";
        case ErrorNumber::PathFileAccessError:
            return "Path/File access error";
        case ErrorNumber::PathNotFound:
            return "Path not found";
        case ErrorNumber::ObjectNotSet:
            return "Object variable not set";
        case ErrorNumber::InvalidPropertyValue:
            return "Invalid property value";
        case ErrorNumber::InvalidPicture:
            return "Invalid picture";
        case ErrorNumber::PrinterError:
            return "Printer error";
        case ErrorNumber::DialogCancelled:
            return "Cancel was selected";
    }
    return "Application-defined error";
}

RunTimeError::RunTimeError(ErrorNumber number) : RunTimeError(number, describe(number)) {}

RunTimeError::RunTimeError(ErrorNumber number, const std::string& description)
    : std::runtime_error(description), number_(number) {}

}  // namespace quillon
