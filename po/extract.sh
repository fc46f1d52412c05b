#!/usr/bin/env bash
# Prints the translation template: a fixed head, then every text that the sources hand to translated() or mark with
# textKey(). No dates and no line numbers, so that it changes only when a text does.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
export LC_ALL=C.UTF-8

sources() {
    find . \( -path ./build -o -path ./tests -o -path ./bench \) -prune -o \( -name '*.cpp' -o -name '*.h' \) -print |
        sed 's|^\./||' | sort
}

messages() {
    sources | xgettext --files-from=- --output=- --language=C++ --from-code=UTF-8 --add-location=file \
        --keyword --keyword=translated --keyword=textKey --add-comments=Translators --sort-by-file
}

cat po/head.pot
# The head that xgettext writes holds the date. Its only complaint here is that keys may go beyond ASCII; they may.
messages 2>/dev/null | sed '1,/^$/d'
