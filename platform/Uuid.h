#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vantel {

/// A universally unique identifier, as 16 bytes.
struct Uuid {
    std::array<std::uint8_t, 16> bytes;

    auto operator<=>(const Uuid&) const = default;
};

/// The canonical form in upper case: "E621E1F8-C36C-495A-93FC-0C247A3E6E5F".
std::string text(const Uuid& uuid);

/// Reads the canonical form, in either case.
std::optional<Uuid> parseUuid(std::string_view text);

/// A random (version 4) identifier from the system's random source.
Uuid randomUuid();

/// Where fresh identifiers come from.
class UuidSource {
public:
    virtual ~UuidSource() = default;
    virtual Uuid next() = 0;
};

/// Random identifiers.
class SystemUuidSource final : public UuidSource {
public:
    Uuid next() override { return randomUuid(); }
};

} // namespace vantel
