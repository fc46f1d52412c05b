#include "tests/core/JsonCases.h"
#include "tests/fakes/Repeated.h"

namespace vantel::testing {

namespace {

struct Nesting {
    std::string open;
    std::string innermost;
    std::string close;
    std::size_t levels; ///< of one opening
    JsonValue value;

    std::string nested(std::size_t count) const {
        return repeated(open, count) + innermost + repeated(close, count);
    }
};

const std::vector<Nesting>& nestings() {
    static const std::vector<Nesting> all = {
        {"[", "", "]", 1, JsonValue::array},          {"[", "1", "]", 1, JsonValue::array},
        {"[1,", "2", "]", 1, JsonValue::array},       {R"({"a":)", "1", "}", 1, JsonValue::object},
        {R"({"":)", "{}", "}", 1, JsonValue::object}, {R"([{"a":)", "1", "}]", 2, JsonValue::array}};
    return all;
}

/// Where exactly the limit of 1,024 levels lies depends on what is innermost; nobody needs to know.
JsonCase nestingCase(const Nesting& nesting, std::size_t levels) {
    constexpr std::size_t deepest = 1'000;
    const std::string bytes = nesting.nested(levels / nesting.levels);
    const std::string name = nesting.open + " to " + std::to_string(levels) + " levels";
    return {name, bytes, Standing::leftOpen, levels <= deepest ? std::optional(nesting.value) : std::nullopt};
}

void addArrays(std::vector<JsonCase>& cases) {
    for (const char* empty : {"[]", "[ ]", "[\n]", " []"})
        cases.push_back(valid(empty, JsonValue::emptyArray));
    for (const std::string& array :
         {std::string("[[]]"), std::string("[1,[2,{\"a\":[]}],null]"), std::string("[ 1 , 2 ]"),
          std::string("[\"\",{},[],true,1e5]"), "[" + repeated("0,", 9'999) + "0]"})
        cases.push_back(valid(array, JsonValue::array));
    for (const char* near : {"[",      "]",     "[,]",          "[1,]",  "[,1]", "[1,,2]",    "[1 2]",
                             "[1;2]",  "[1:2]", "[1",           "1]",    "[[]",  "[]]",       "[1}",
                             "[1)",    "(1)",   "[\"a\"",       "[\"a]", "[1,",  "[1,\n",     "[1]x",
                             "[1][2]", "[1],",  "[true false]", "[...]", "[*]",  "[\"a\":1]", "[[1,],2]"})
        cases.push_back(invalid(near));
}

void addObjects(std::vector<JsonCase>& cases) {
    for (const char* object :
         {"{}", "{ }", R"({"a":1})", R"({"":0})", R"({"a":1,"b":{}})", R"({"a":1,"a":2})",
          R"({"a":1,"\u0061":2})", R"({"a":1,"a":1})", R"({"\u0000":1})", R"({"a\"b":1})", "{\t\"a\"\r:\n1 }",
          R"({"version":2,"tasks":null})"})
        cases.push_back(valid(object, JsonValue::object));
    for (const char* near : {"{",
                             "}",
                             R"({"a")",
                             R"({"a":)",
                             R"({"a":1)",
                             R"({"a":1,})",
                             R"({,"a":1})",
                             "{,}",
                             R"({"a"})",
                             R"({"a":})",
                             R"({:1})",
                             R"({"a" 1})",
                             "{a:1}",
                             R"({'a':1})",
                             "{1:1}",
                             "{null:1}",
                             "{[]:1}",
                             "{{}:1}",
                             R"({"a"::1})",
                             R"({"a":1])",
                             R"("a":1})",
                             R"({"a","b"})",
                             R"({"a"=1})",
                             R"({"a":1 "b":2})",
                             R"({"a":1,,"b":2})",
                             R"({"a":1;"b":2})",
                             R"({"a":1}{"b":2})",
                             R"({"a":1}x)",
                             R"({"a":b})",
                             R"({"a":1},)",
                             R"({"a":"b)",
                             R"({"a:1})",
                             "{true}",
                             R"({"a":1,"b"})",
                             R"({"a":1,"b":})",
                             R"({...{}})"})
        cases.push_back(invalid(near));
}

void addComments(std::vector<JsonCase>& cases) {
    for (const char* commented : {"/**/1",
                                  "1/**/",
                                  "1/* a */",
                                  "// a\n1",
                                  "1// a\n",
                                  "1//",
                                  "1/",
                                  "#1\n1",
                                  "1#",
                                  "[1/*a*/]",
                                  "[/**/]",
                                  R"({"a":/*x*/1})",
                                  R"({/**/"a":1})",
                                  R"({"a"/**/:1})",
                                  "1/*",
                                  "/*1",
                                  "<!-- -->1",
                                  "--1\n",
                                  "%1\n1",
                                  ";1\n1"})
        cases.push_back(invalid(commented));
}

void addUnclosed(std::vector<JsonCase>& cases) {
    constexpr std::size_t many = 100'000;
    for (const char* open :
         {"[", "{\"a\":", "[{\"\":", "{", "[[],", "]", "}", "\"a\",", "-", "[1,", "/*", "\\"}) {
        JsonCase unclosed = invalid(repeated(open, many));
        unclosed.name = std::string(open) + " without an end";
        cases.push_back(unclosed);
    }
}

} // namespace

std::vector<JsonCase> structureCases() {
    std::vector<JsonCase> cases;
    addArrays(cases);
    addObjects(cases);
    addComments(cases);
    addUnclosed(cases);
    return cases;
}

std::vector<JsonCase> nestingCases() {
    std::vector<JsonCase> cases;
    for (const Nesting& nesting : nestings())
        for (const std::size_t levels : {2U, 100U, 1'000U, 1'100U, 2'000U, 100'000U})
            cases.push_back(nestingCase(nesting, levels));
    return cases;
}

} // namespace vantel::testing
