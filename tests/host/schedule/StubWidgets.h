#pragma once

#include "hosting/WidgetBundle.h"
#include "platform/FatalError.h"
#include "tests/host/schedule/Gate.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace vantel::testing {

/// What a stub provider answers, and what it was asked. Shared with worker threads.
struct StubPlan {
    struct Moment {
        double seconds;
        std::string text; ///< "fatal" raises a fatal error in the view, "bug" another exception
    };

    std::mutex mutex;
    std::vector<Moment> moments = {{0, "one"}};
    double reloadDate = 1e9;
    std::string failure;      ///< of the provider itself
    std::optional<Gate> gate; ///< every request waits at it
    std::atomic<int> requests = 0;
    std::atomic<int> views = 0;
    std::atomic<int> atOnce = 0;
    std::atomic<int> mostAtOnce = 0;
};

/// The text of a view, which tells its entry, its family and its zone: "one small UTC".
std::string textOf(const WidgetView& view);

/// A kind whose provider and view follow a plan, in both sizes.
StaticConfiguration stubWidget(const std::string& kind, const std::shared_ptr<StubPlan>& plan);

/// An entry that shows a text.
TimelineEntry stubEntry(Instant date, const std::string& text, const std::shared_ptr<StubPlan>& plan);

} // namespace vantel::testing
