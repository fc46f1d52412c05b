#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantel::torture {

/// What lies in the shared container. Nothing lies in a container that is not there.
struct Contents {
    bool hasContainer = true;
    std::optional<std::string> journal{};
    std::optional<std::string> redoCopy{};
    std::optional<std::string> snapshot{};
};

/// What programs see of it.
struct View {
    std::vector<std::string> entries; ///< the ids of the pending ones
    std::optional<std::string> snapshot{};

    bool operator==(const View&) const = default;
};

enum class Outcome {
    failed = 1, ///< or says that it did nothing, or that there is nothing
    happened = 2,
    wrong = 3 ///< reports success with what is not so
};

/// One thing that a program does to the container.
struct Operation {
    std::string name;
    Contents before;
    std::function<Outcome()> run;
    /// Whether what is said to have failed may be finished later, where nothing can be written any more.
    bool mayFinishLater = false;
};

/// Every operation of the journal and of the snapshot's store, in each state that matters to it.
std::vector<Operation> allOperations();

/// Does it as a host would, which contains what is fatal to one widget.
Outcome runContained(const Operation& operation);

/// Makes the container's contents these and nothing else.
void put(const Contents& contents);

/// The names of the files in the container.
std::vector<std::string> fileNames();

/// As a program that starts now sees it, with all that a start mends.
View look();

/// Whether both locks could be taken at once.
bool areLocksFree();

/// Writes and removes once, as any later use would, and gives the names that are then left beside the three
/// files of the container.
std::vector<std::string> leftAfterUse();

} // namespace vantel::torture
