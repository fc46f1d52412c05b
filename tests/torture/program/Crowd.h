#pragma once

namespace vantel::torture {

/// Kills one of four writers, a drainer, a completer and two readers at random, again and again, and all of
/// them at once from time to time. Gives the exit status.
int killAtRandom(int kills);

/// Lets eight processes do so many operations in all, mixed, undisturbed, and prints the longest wait.
int load(long operations);

} // namespace vantel::torture
