#include "core/SnapshotDocument.h"
#include "tests/core/SnapshotFields.h"

#include <fstream>

#include <gtest/gtest.h>

namespace vantel {
namespace {

using namespace testing;

/// A row of the table in docs/decoder.md.
struct Row {
    std::string key;
    std::string value;
    std::string verdict;
};

/// What stands between bars; a bar after a backslash is text.
std::vector<std::string> cells(const std::string& line) {
    std::vector<std::string> result(1);
    for (std::size_t i = 1; i < line.size(); ++i) {
        if (line[i] == '|')
            result.emplace_back();
        else if (line[i] == '\\' && i + 1 < line.size() && line[i + 1] == '|')
            result.back() += line[++i];
        else
            result.back() += line[i];
    }
    return result;
}

std::string between(const std::string& text, char mark) {
    const std::size_t first = text.find(mark);
    const std::size_t last = text.rfind(mark);
    return first == last ? "" : text.substr(first + 1, last - first - 1);
}

std::string trimmed(const std::string& text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool isHexDigit(char c) {
    return std::string_view("0123456789ABCDEF").contains(c);
}

/// The value with the bytes that the table names.
std::string withBytes(const std::string& value) {
    std::string result;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool isByte = i + 3 < value.size() && value[i] == '<' && isHexDigit(value[i + 1]) &&
                            isHexDigit(value[i + 2]) && value[i + 3] == '>';
        result += isByte ? static_cast<char>(std::stoi(value.substr(i + 1, 2), nullptr, 16)) : value[i];
        i += isByte ? 3 : 0;
    }
    return result;
}

std::vector<Row> rowsOfTheTable() {
    std::ifstream file(VANTEL_DOCS "/decoder.md");
    std::vector<Row> rows;
    for (std::string line; std::getline(file, line);)
        if (line.starts_with("| ") && line.contains('`')) {
            const std::vector<std::string> row = cells(line);
            rows.push_back({between(row.at(0), '`'), withBytes(between(row.at(1), '`')), trimmed(row.at(2))});
        }
    return rows;
}

std::string documentWithValue(const Row& row) {
    for (const Record& record : everyRecord())
        for (const Field& field : record.fields)
            if (field.key == row.key)
                return documentWith(record, objectOf(record, {{row.key, row.value}}));
    return objectOf(snapshotRecord, {}).insert(1, "\"unknown\":" + row.value + ",");
}

TEST(DecoderTable, EveryRowIsTrue) {
    const std::vector<Row> rows = rowsOfTheTable();
    ASSERT_GT(rows.size(), 50U);
    for (const Row& row : rows) {
        ASSERT_FALSE(row.value.empty()) << row.key;
        const std::string passing = row.key.empty() ? "ignored" : "taken";
        const bool decodes = decodeSnapshot(documentWithValue(row)).has_value();
        EXPECT_EQ(row.verdict, decodes ? passing : "refused") << row.key << " " << row.value;
    }
}

} // namespace
} // namespace vantel
