#include "core/SnapshotDocument.h"
#include "fuzz/Promise.h"

namespace vantel {
namespace {

void judge(const WidgetSnapshot& snapshot) {
    const auto written = encodeSnapshot(snapshot);
    promise(written.has_value(), "what was decoded can be written");
    const auto again = decodeSnapshot(*written);
    promise(again.has_value(), "what was written decodes");
    promise(*again == snapshot, "it reads back equal");
    promise(encodeSnapshot(*again) == written, "it is written the same again");
}

} // namespace
} // namespace vantel

/// Any bytes are no snapshot, or one that reads back equal.
extern "C" int LLVMFuzzerTestOneInput(const char* data, std::size_t size) {
    if (const auto snapshot = vantel::decodeSnapshot({data, size}))
        vantel::judge(*snapshot);
    return 0;
}
