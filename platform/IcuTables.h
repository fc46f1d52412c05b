#pragma once

namespace vantel {

/// Gives back the memory in which the Unicode library's tables were read. Making one format reads through
/// more than a megabyte of them, and what was made never asks them again; whoever does finds them in the
/// cache of files. Safe at any time, from any thread; a library that was built in keeps its tables.
void giveBackIcuTables();

} // namespace vantel
