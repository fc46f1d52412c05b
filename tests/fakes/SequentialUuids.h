#pragma once

#include "platform/Uuid.h"

namespace vantel::testing {

/// Identifiers that count up from one: 00000000-0000-4000-8000-000000000001 and so on.
class SequentialUuids final : public UuidSource {
public:
    Uuid next() override {
        Uuid uuid{};
        uuid.bytes[6] = 0x40;
        uuid.bytes[8] = 0x80;
        uuid.bytes[15] = ++m_last;
        return uuid;
    }

private:
    std::uint8_t m_last = 0;
};

} // namespace vantel::testing
