#pragma once

namespace vantel::torture {

/// Uses a container on a disk that is full, then on one that is made read-only meanwhile. Mounts a small disk
/// of its own, which nobody else sees. Gives the exit status, 77 where that is not allowed.
int useBadDisks();

/// Fills the folder at $XDG_DATA_HOME, which has a quota, waits for a byte of input once it is full, and goes
/// on with the larger quota that it has then. Gives the exit status.
int useQuota();

} // namespace vantel::torture
