#pragma once

#include "core/WidgetTask.h"
#include "hosting/WidgetView.h"

namespace vantel {

/// One line of the task column: complete it, or open it in the companion application.
struct TaskRow {
    const WidgetTask& task;
    const std::string& accountID;
    Instant entryDate;
    bool isOverdue;
};

Element element(const TaskRow& row, const ViewContext& context);

} // namespace vantel
