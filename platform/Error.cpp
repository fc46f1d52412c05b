#include "platform/Error.h"

#include <system_error>

namespace vantel {

namespace {

std::string located(const std::string& keyPath, const std::string& reason) {
    return keyPath.empty() ? reason : keyPath + ": " + reason;
}

struct Message {
    std::string operator()(const CocoaError& error) const {
        if (error.code == CocoaError::Code::fileReadUnknown)
            return "the shared container cannot be read";
        return "the shared container cannot be written";
    }
    std::string operator()(const DecodingError& error) const { return located(error.keyPath, error.reason); }
    std::string operator()(const EncodingError& error) const { return located(error.keyPath, error.reason); }
    std::string operator()(const SystemError& error) const {
        return error.operation + " " + error.path + ": " + std::generic_category().message(error.number);
    }
};

} // namespace

std::string message(const Error& error) {
    return std::visit(Message{}, error);
}

} // namespace vantel
