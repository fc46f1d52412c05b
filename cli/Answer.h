#pragma once

#include "cli/Command.h"
#include "cli/TerminalJson.h"
#include "platform/JsonWriter.h"

namespace vantel {

/// The answer in the asked form: one JSON value made by `writeJson` and a line feed, or `text` as it stands.
template <typename WriteJson>
CommandResult answer(OutputForm form, std::string text, WriteJson writeJson) {
    if (form == OutputForm::text)
        return text;
    JsonWriter json;
    writeJson(json);
    auto document = json.finish();
    if (!document)
        return failed("answer", document.error());
    return terminalJson(*document) + "\n";
}

/// The answer of a command that only does something: `{}`.
inline CommandResult done(OutputForm form, std::string text) {
    return form == OutputForm::json ? CommandResult("{}\n") : CommandResult(std::move(text));
}

/// An answer that is a JSON document in either form.
inline CommandResult documentAnswer(const Result<std::string>& document) {
    if (!document)
        return failed("answer", document.error());
    return terminalJson(*document) + "\n";
}

} // namespace vantel
