#include "host/doctor/Finding.h"

#include <algorithm>
#include <cstdlib>

namespace vantel {

namespace {

const char* columnOf(Verdict verdict) {
    switch (verdict) {
    case Verdict::ok:
        return "ok    ";
    case Verdict::warn:
        return "warn  ";
    case Verdict::fail:
        return "fail  ";
    }
    return "";
}

} // namespace

std::string printed(const Findings& findings) {
    std::string text;
    for (const Finding& finding : findings)
        text += columnOf(finding.verdict) + finding.words + "\n";
    return text;
}

int exitStatus(const Findings& findings) {
    const bool isInTheWay = std::ranges::find(findings, Verdict::fail, &Finding::verdict) != findings.end();
    return isInTheWay ? EXIT_FAILURE : EXIT_SUCCESS;
}

} // namespace vantel
