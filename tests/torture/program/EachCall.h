#pragma once

namespace vantel::torture {

enum class Form { brief, full };

/// Refuses each system call of each operation, with each error that a machine in trouble gives, once and from
/// then on. The calls are those of a run that nothing disturbs. Gives the exit status.
int failEachCall(Form form);

/// Kills each operation at each system call, and within each write.
int killAtEachCall();

} // namespace vantel::torture
