#pragma once

namespace vantel::torture {

/// Runs every operation where no file may grow beyond some bytes, for more and more bytes until it succeeds.
/// Gives the exit status.
int useLimitedFiles();

} // namespace vantel::torture
