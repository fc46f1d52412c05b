#include "tests/fakes/FaultPlan.h"

#include <algorithm>
#include <array>

namespace vantel::testing {

const char* name(FileOperation operation) {
    constexpr std::array names = {"createDirectories",
                                  "names",
                                  "open",
                                  "close",
                                  "lock",
                                  "unlock",
                                  "status",
                                  "isNamed",
                                  "read",
                                  "readAt",
                                  "write",
                                  "seekToEnd",
                                  "seek",
                                  "truncate",
                                  "sync",
                                  "syncData",
                                  "changeMode",
                                  "rename",
                                  "remove",
                                  "linkTarget"};
    return names.at(static_cast<std::size_t>(operation));
}

void FaultPlan::fail(int nth, int number, Lasting lasting) {
    m_faults.push_back({std::nullopt, nth, lasting, {.number = number}});
}

void FaultPlan::fail(FileOperation operation, int nth, int number, Lasting lasting) {
    m_faults.push_back({operation, nth, lasting, {.number = number}});
}

void FaultPlan::shorten(FileOperation operation, int nth, std::size_t length, Lasting lasting) {
    m_faults.push_back({operation, nth, lasting, {.length = length}});
}

FaultPlan::Outcome FaultPlan::enter(FileOperation operation) {
    m_calls.push_back(operation);
    Outcome outcome;
    for (Fault& fault : m_faults) {
        if (!fault.strikes(operation))
            continue;
        outcome.number = std::max(outcome.number, fault.outcome.number);
        outcome.length = std::min(outcome.length, fault.outcome.length);
    }
    return outcome;
}

bool FaultPlan::Fault::strikes(FileOperation called) {
    if (operation && *operation != called)
        return false;
    --callsToGo;
    return callsToGo == 0 || (callsToGo < 0 && lasting == Lasting::fromThenOn);
}

} // namespace vantel::testing
