#include "tests/core/JsonCases.h"

namespace vantel::testing {

std::vector<JsonCase> literalCases() {
    std::vector<JsonCase> cases = {valid("true", JsonValue::boolean), valid("false", JsonValue::boolean),
                                   valid("null", JsonValue::null),
                                   valid(" \t\r\n true \t\r\n ", JsonValue::boolean)};
    for (const char* near :
         {"",      " ",     "True",      "TRUE",   "tru",    "truee", "true1",      "t",         "f",
          "n",     "fals",  "falsee",    "False",  "nul",    "nulll", "Null",       "NULL",      "nul l",
          "nil",   "None",  "undefined", "yes",    "on",     "a",     "tr\\u0075e", "truefalse", "true false",
          "true,", ",true", "true;",     "(true)", "<true>", "=true", "!true",      "*",         "&true",
          "@",     "$",     "~",         "#",      "\\",     "/",     "new Date()", "{{}}",      "<null>",
          "[true", "true]", "true}",     "}"})
        cases.push_back(invalid(near));
    return cases;
}

const std::vector<JsonCase>& everyJsonCase() {
    static const std::vector<JsonCase> cases = [] {
        std::vector<JsonCase> joined;
        for (const auto& group :
             {numberCases(), literalCases(), textCases(), encodingCases(), structureCases(), nestingCases()})
            joined.insert(joined.end(), group.begin(), group.end());
        return joined;
    }();
    return cases;
}

} // namespace vantel::testing
