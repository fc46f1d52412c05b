#include "core/RedoCopy.h"

#include "core/JournalLines.h"
#include "platform/DataFile.h"
#include "platform/JsonDocument.h"
#include "platform/JsonWriter.h"

#include <algorithm>

namespace vantel::RedoCopy {

namespace {

Result<std::string> encode(const Plan& plan) {
    JsonWriter json;
    json.beginObject();
    json.key("removed");
    json.beginArray();
    for (const Uuid& id : plan.removed) {
        json.beginObject();
        json.field("id", text(id));
        json.endObject();
    }
    json.endArray();
    json.endObject();
    auto head = json.finish();
    if (head)
        head->append("\n").append(plan.contents);
    return head;
}

/// Absent for what is no head, such as the first line of a journal.
std::optional<std::set<Uuid>> decodeHead(std::string_view line) {
    JsonDocument document;
    auto object = document.parseObject(line);
    if (!object)
        return std::nullopt;
    const auto ids = object->objects(
        "removed", [](JsonObjectReader& item) { return item.parsedText("id", parseUuid, "not a UUID"); });
    if (object->failure())
        return std::nullopt;
    return std::set<Uuid>(ids.begin(), ids.end());
}

Plan decode(std::string_view bytes) {
    const std::size_t headLength = bytes.find('\n');
    const auto removed = decodeHead(bytes.substr(0, headLength));
    if (removed)
        bytes.remove_prefix(std::min(headLength, bytes.size() - 1) + 1);
    Plan plan{std::string(bytes), removed.value_or(std::set<Uuid>())};
    if (!plan.contents.empty() && !plan.contents.ends_with('\n'))
        plan.contents += '\n';
    return plan;
}

std::set<Uuid> idsNamedBy(const Plan& plan) {
    std::set<Uuid> ids = plan.removed;
    for (const WidgetJournalEntry& entry : decodeJournal(plan.contents))
        ids.insert(entry.id);
    return ids;
}

/// What a killed process wrote of the plan's own lines, or a disk made of what was to be written.
bool isTorn(std::string_view line, std::size_t offset, std::string_view contents) {
    const bool isBegun = offset < contents.size() && contents.substr(offset).starts_with(line);
    return isBegun || line.find_first_not_of('\0') == std::string_view::npos;
}

} // namespace

FileURL copyURL(const FileURL& journal) {
    return FileURL(journal).replace_extension(".redo");
}

Result<std::optional<Plan>> unfinished(const FileURL& journal, FileSystem& files) {
    const auto status = statusIfPresent(copyURL(journal), files);
    if (!status)
        return std::unexpected(status.error());
    if (!*status || (*status)->kind != FileStatus::Kind::regular)
        return std::nullopt;
    const auto bytes = readFile(copyURL(journal), files);
    if (!bytes)
        return std::unexpected(bytes.error());
    return decode(*bytes);
}

Plan withLinesBeyond(const Plan& plan, std::string_view journal) {
    const std::set<Uuid> named = idsNamedBy(plan);
    Plan next = plan;
    for (const std::string_view line : journalLines(journal)) {
        const auto entry = decodeJournalEntry(line);
        const auto offset = static_cast<std::size_t>(line.data() - journal.data());
        if (entry ? !named.contains(entry->id) : !isTorn(line, offset, plan.contents))
            next.contents.append(line).append("\n");
    }
    return next;
}

Result<void> make(const Plan& plan, const FileURL& journal, FileSystem& files) {
    const auto bytes = encode(plan);
    if (!bytes)
        return std::unexpected(bytes.error());
    const FileURL copy = copyURL(journal);
    sweepTemporaries(copy, files);
    return writeFileDurably(copy, *bytes, journal, files);
}

Result<void> remove(const FileURL& journal, FileSystem& files) {
    if (auto removed = files.remove(copyURL(journal)); !removed)
        return removed;
    std::ignore = syncDirectory(journal.parent_path(), files);
    return {};
}

} // namespace vantel::RedoCopy
