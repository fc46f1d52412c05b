#pragma once

namespace vantel::torture {

/// Uses a container on a disk that is full, then on one that is made read-only meanwhile. Mounts a small disk
/// of its own, which nobody else sees. Gives the exit status, 77 where that is not allowed.
int useBadDisks();

} // namespace vantel::torture
