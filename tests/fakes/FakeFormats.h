#pragma once

#include "platform/Formats.h"

namespace vantel::testing {

/// English without any locale data: fields as plain numbers, so that a test reads what was asked for.
class PlainFormats final : public Formats {
public:
    std::string date(const CivilTime& time, DateFields fields) const override;
    std::string timeLeft(Seconds left) const override;
    std::string upperCase(std::string_view text) const override;
    std::string translated(const char* key) const override { return key; }
};

} // namespace vantel::testing
