#pragma once

#include "platform/Formats.h"

#include <memory>

namespace vantel {

/// The formats of a locale from the Unicode locale data, and translations from the message catalogue of the
/// process. Formatters are made on first use and kept. Safe to use from any thread.
class LocalizedFormats final : public Formats {
public:
    /// `locale` is a POSIX or BCP 47 name. An unknown one falls back to its language, then to English; the C
    /// locale reads like English.
    explicit LocalizedFormats(const std::string& locale);
    LocalizedFormats(const LocalizedFormats&) = delete;
    LocalizedFormats& operator=(const LocalizedFormats&) = delete;
    ~LocalizedFormats() override;

    std::string date(const CivilTime& time, DateFields fields) const override;
    std::string timeLeft(Seconds left) const override;
    std::string upperCase(std::string_view text) const override;
    std::string translated(const char* key) const override;

private:
    struct Formatters;

    std::unique_ptr<Formatters> m_formatters;
};

} // namespace vantel
