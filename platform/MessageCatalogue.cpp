#include "platform/MessageCatalogue.h"

#include "platform/InformationDictionary.h"
#include "platform/MessageDomain.h"

#include <clocale>

#include <libintl.h>

namespace vantel {

void useMessageCatalogue() {
    std::setlocale(LC_CTYPE, "");
    std::setlocale(LC_MESSAGES, "");
    const FileURL catalogues = mainExecutable().parent_path().parent_path() / "share" / "locale";
    ::bindtextdomain(messageDomain, catalogues.c_str());
    ::bind_textdomain_codeset(messageDomain, "UTF-8");
}

} // namespace vantel
