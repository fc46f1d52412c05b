#pragma once

namespace vantel::torture {

/// Writes snapshot documents into the current folder: of the sample day with every text hostile, and of the
/// sample day as it is, "harmless.json".
int writeHostileDays();

} // namespace vantel::torture
