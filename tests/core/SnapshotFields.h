#pragma once

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace vantel::testing {

/// What a field of a document may hold.
enum class FieldType { text, integer, number, boolean, url, kind, array, object };

enum class Presence { required, optional };

struct Field {
    std::string key;
    FieldType type;
    Presence presence;
};

/// One record, its fields in the order of their declaration, and where it stands in a document.
struct Record {
    std::string name;
    std::string path;
    std::vector<Field> fields;

    friend void PrintTo(const Record& record, std::ostream* stream) { *stream << record.name; }
};

/// The snapshot, task, event, chip, horizon item and recap.
extern const Record snapshotRecord;
const std::vector<Record>& everyRecord();

std::string goodValue(FieldType type);

/// Exchanges for a record's values, by key; an empty one leaves the key out.
using Exchanges = std::vector<std::pair<std::string, std::string>>;

enum class Order { declared, reversed };

std::string objectOf(const Record& record, const Exchanges& exchanges, Order order = Order::declared);

/// A document with that one record in its place.
std::string documentWith(const Record& record, const std::string& object);

} // namespace vantel::testing
