#pragma once

#include "core/WidgetSnapshot.h"

#include <optional>

#include <fuzzer/FuzzedDataProvider.h>

namespace vantel {

/// Any finite instant, more often one of our days.
Instant anyInstant(FuzzedDataProvider& input);

/// Any snapshot that a document can hold, most of its dates near `now`; absent when the input makes none.
std::optional<WidgetSnapshot> anySnapshot(FuzzedDataProvider& input, Instant now);

} // namespace vantel
