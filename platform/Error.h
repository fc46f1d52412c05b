#pragma once

#include <expected>
#include <map>
#include <string>
#include <variant>

namespace vantel {

/// The file errors that callers tell apart by code. The user-info dictionary is always empty.
struct CocoaError {
    enum class Code { fileReadUnknown = 256, fileWriteUnknown = 512 };

    Code code;
    std::map<std::string, std::string> userInfo{};

    bool operator==(const CocoaError&) const = default;
};

/// A document that does not decode: where (`tasks[3].priorityScore`, empty for the whole) and why
/// (`missing`).
struct DecodingError {
    std::string keyPath;
    std::string reason;

    bool operator==(const DecodingError&) const = default;
};

/// A record that has no JSON form: where and why.
struct EncodingError {
    std::string keyPath;
    std::string reason;

    bool operator==(const EncodingError&) const = default;
};

/// A refusal of the operating system: the call, what it was about, and the error number.
struct SystemError {
    std::string operation;
    std::string path;
    int number;

    bool operator==(const SystemError&) const = default;
};

/// Every failure that passes between rooms. It is handed up unchanged.
using Error = std::variant<CocoaError, DecodingError, EncodingError, SystemError>;

template <typename T>
using Result = std::expected<T, Error>;

inline Error fileWriteUnknown() {
    return CocoaError{CocoaError::Code::fileWriteUnknown};
}

inline Error fileReadUnknown() {
    return CocoaError{CocoaError::Code::fileReadUnknown};
}

/// One line for people, without a full stop: "tasks[3].priorityScore: missing".
std::string message(const Error& error);

} // namespace vantel
