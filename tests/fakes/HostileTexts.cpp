#include "tests/fakes/HostileTexts.h"

#include "platform/Utf8.h"
#include "tests/fakes/Repeated.h"

namespace vantel::testing {

namespace {

std::string utf8(char32_t character) {
    const auto byte = [](char32_t bits, unsigned mark) { return static_cast<char>(bits | mark); };
    if (character < 0x80)
        return {byte(character, 0)};
    if (character < 0x800)
        return {byte(character >> 6U, 0xC0), byte(character & 0x3FU, 0x80)};
    if (character < 0x10000)
        return {byte(character >> 12U, 0xE0), byte(character >> 6U & 0x3FU, 0x80),
                byte(character & 0x3FU, 0x80)};
    return {byte(character >> 18U, 0xF0), byte(character >> 12U & 0x3FU, 0x80),
            byte(character >> 6U & 0x3FU, 0x80), byte(character & 0x3FU, 0x80)};
}

void add(std::vector<HostileText>& texts, const std::string& attempt, const std::vector<std::string>& added) {
    for (const std::string& text : added)
        texts.push_back({attempt, text});
}

/// Each character between letters, alone, and many times.
void addCharacters(std::vector<HostileText>& texts, const std::string& attempt, char32_t first,
                   char32_t last) {
    for (char32_t character = first; character <= last; ++character)
        texts.push_back({attempt, "a" + utf8(character) + "b " + repeated(utf8(character), 50)});
}

void addControls(std::vector<HostileText>& texts) {
    addCharacters(texts, "control character", 0x00, 0x1F);
    addCharacters(texts, "control character beyond ASCII", 0x7F, 0x9F);
    add(texts, "terminal sequence",
        {"\x1B[2J\x1B[1;1H",
         "\x1B[31mred",
         "\x1B]0;title\x07",
         "\x1B]8;;http://127.0.0.1/\x1B\\link\x1B]8;;\x1B\\",
         "\x1B]52;c;cm0gLXJmIH4=\x07",
         "\x1B[6n",
         "\x1B[c",
         "\x1BP$q\"p\x1B\\",
         "\x1B_G\x1B\\",
         "\x1B[200~paste\x1B[201~",
         "\x1B[?1049h",
         "\x1B"
         "c",
         "\x1B#8",
         utf8(0x9B) + "31m",
         utf8(0x9D) + "0;title" + utf8(0x9C),
         utf8(0x90) + "q",
         "\x0E\x0F",
         "100%\r0%",
         "name\b\b\b\beman",
         "one\nvantelctl: two",
         "\x1B[3;99999999999m",
         "\x1B["});
}

void addDirections(std::vector<HostileText>& texts) {
    for (const char32_t mark : {0x061C, 0x200E, 0x200F, 0x202A, 0x202B, 0x202C, 0x202D, 0x202E, 0x2066,
                                0x2067, 0x2068, 0x2069, 0x206A, 0x206F, 0xFFF9, 0xFFFB})
        add(texts, "direction", {"invoice" + utf8(mark) + "gpj.exe", repeated(utf8(mark), 300) + "x"});
    add(texts, "direction",
        {"\u05E9\u05DC\u05D5\u05DD abc 123 \u05E2\u05D5\u05DC\u05DD", "\u0645\u0631\u062D\u0628\u0627 (1)",
         "\uFDFD", "\uFDFA", "\u202Btest\u202B", "\u2066test\u2067"});
}

void addMarks(std::vector<HostileText>& texts) {
    add(texts, "combining marks",
        {"a" + repeated("\u0301", 10'000), repeated("\u0301", 10'000), "a" + repeated("\u20DD", 1'000),
         "a" + repeated("\u0300\u0316\u0338\u20E3", 2'500),
         repeated("Z\u0351\u036B\u0343\u036A\u0302\u036B\u033D", 300), "a" + repeated("\u0E49", 10'000),
         repeated("\u0488", 100), "\u0915" + repeated("\u094D\u0937", 500),
         repeated("\u1100\u1161\u11A8", 300), repeated("\u1100", 1'000), "a\u0345\u0345\u0345"});
}

void addInvisible(std::vector<HostileText>& texts) {
    for (const char32_t invisible :
         {0x00AD, 0x034F, 0x115F, 0x1160, 0x17B4, 0x180B, 0x180E, 0x200B,  0x200C,  0x200D,  0x2060, 0x2061,
          0x2064, 0x3164, 0xFE00, 0xFE0F, 0xFEFF, 0xFFA0, 0xFFFC, 0xE0001, 0xE0020, 0xE007F, 0xE0100})
        add(texts, "invisible",
            {utf8(invisible), "a" + utf8(invisible) + "b", repeated(utf8(invisible), 500)});
    for (const char32_t blank :
         {0x00A0, 0x1680, 0x2000, 0x2003, 0x200A, 0x2028, 0x2029, 0x202F, 0x205F, 0x2800, 0x3000})
        add(texts, "blank", {utf8(blank), "a" + utf8(blank) + "b", repeated(utf8(blank), 200)});
    add(texts, "blank", {"", " ", repeated(" ", 1'000), "\t\t", repeated("\u200B", 10'000)});
}

void addMarkup(std::vector<HostileText>& texts) {
    const std::string there = "http://127.0.0.1:9/vantel";
    add(texts, "markup",
        {"<img src=\"" + there + ".png\">",
         "<img src=" + there + " onerror=alert(1)>",
         "<b>bold</b><br><hr>",
         "<a href=\"" + there + "\">here</a>",
         "<script>alert(1)</script>",
         "<qt><img src='" + there + "'></qt>",
         "<style>@import url(" + there + ")</style>",
         "<link rel=stylesheet href=" + there + ">",
         "<object data=\"file:///etc/passwd\"></object>",
         "<img src=\"file:///etc/passwd\">",
         "<img src=\":/qrc\">",
         "<svg xmlns=\"http://www.w3.org/2000/svg\"><image href=\"" + there + "\"/></svg>",
         "<!DOCTYPE a [<!ENTITY b SYSTEM \"" + there + "\">]><a>&b;</a>",
         "![x](" + there + ")",
         "&lt;b&gt; &amp; &#0; &#x1F;",
         "<table><tr><td width=99999999>x",
         repeated("<b>", 2'000),
         "]]>",
         "<!--",
         "<span font='999999'>x</span>",
         "&Mnemonic && &x",
         "<html><body background=\"" + there + "\">",
         "qrc:/x",
         "data:text/html,<script>"});
}

void addFormatsAndPaths(std::vector<HostileText>& texts) {
    add(texts, "format",
        {"%s%s%s%s%s%n", "%lld %s %x %p", "%99999999d", "%1 %2 %L1 %99", "{0} {} {:>999999}", "%%", "%",
         "$1 \\1 \\0", "${HOME}", "#{1+1}", "{{7*7}}", "%20%00%0A", "\\u0041 \\x41 \\n"});
    add(texts, "path",
        {"../../../../etc/passwd", "/dev/zero", "/dev/tcp/127.0.0.1/9", "file:///etc/passwd", "~root/.ssh",
         "C:\\CON\\NUL", "\\\\127.0.0.1\\share", ".", "..", "/", "a/b", std::string("a\0b", 3),
         "/proc/self/mem", "-", "--", "--help", "-rf"});
    add(texts, "command",
        {"; rm -rf ~",
         "| nc 127.0.0.1 9",
         "&& reboot",
         "$(reboot)",
         "`reboot`",
         "$IFS",
         "'; DROP TABLE t; --",
         "\" onclick=\"x",
         "=cmd|' /C calc'!A0",
         "@SUM(1)",
         "{\"id\":1}\n{\"id\":2}",
         "\"}",
         "\\",
         "\\\\",
         "'",
         "\"",
         "*",
         "?",
         "[a-z]",
         "!!",
         "#",
         "\n--\n",
         "() { :; }; reboot"});
    add(texts, "word",
        {"null", "undefined", "NaN", "true", "None", "0", "-0", "1e999", "Infinity", "(null)", "nil",
         "[object Object]"});
}

void addUnicode(std::vector<HostileText>& texts) {
    add(texts, "emoji",
        {"\U0001F468\u200D\U0001F469\u200D\U0001F467\u200D\U0001F466", "\U0001F44D\U0001F3FD",
         "\U0001F1E9\U0001F1EA", repeated("\U0001F1E9", 101), "1\uFE0F\u20E3", "\u2764\uFE0F\u200D\U0001F525",
         "\U0001F3F4\U000E0067\U000E0062\U000E0065\U000E006E\U000E0067\U000E007F",
         repeated("\U0001F468\u200D", 1'000), "\u200D\U0001F468", "\U0001F3FD\U0001F3FD",
         repeated("\U0001F600", 1'000), "\u2B1B\uFE0E"});
    for (const char32_t odd : {0xE000, 0xF8FF, 0xFDD0, 0xFFFD, 0xFFFE, 0xFFFF, 0x1FFFE, 0x2FA1D, 0xEFFFF,
                               0xF0000, 0x10FFFD, 0x10FFFF, 0x12031, 0x1D15E, 0x110BD})
        add(texts, "rare character", {utf8(odd), repeated(utf8(odd), 300)});
    add(texts, "letters",
        {repeated("\u00DF", 1'000), repeated("\u0390", 500), "\u0130\u0131iI", "\u0149", "\uFB03\uFB05",
         "\u1E9E", "\U00010400", repeated("\u01C6", 300), "\u65E5\u672C\u8A9E\u6F22\u5B57",
         repeated("\u6F22", 2'000), "\u0E01\u0E33\u0E25\u0E31\u0E07", "\u0928\u092E\u0938\u094D\u0924\u0947",
         "\u1019\u103C\u1014\u103A\u1019\u102C", "\u1820\u1821", repeated("W", 5'000),
         repeated("word ", 2'000), "\uFF21\uFF22", "\U0001D4D0\U0001D4D1"});
}

bool isObeyed(char32_t c) {
    const bool isControl = (c < 0x20 && c != '\n') || (c >= 0x7F && c <= 0x9F);
    const bool turnsAround = c == 0x061C || (c >= 0x200E && c <= 0x200F) || (c >= 0x2028 && c <= 0x202E) ||
                             (c >= 0x2066 && c <= 0x206F) || (c >= 0xFFF9 && c <= 0xFFFB);
    return isControl || turnsAround;
}

} // namespace

std::optional<char32_t> firstThatATerminalObeys(std::string_view output) {
    while (!output.empty()) {
        const CodePoint character = firstCodePoint(output);
        if (isObeyed(character.value))
            return character.value;
        output.remove_prefix(character.length);
    }
    return std::nullopt;
}

std::vector<HostileText> hostileTexts() {
    std::vector<HostileText> texts;
    addControls(texts);
    addDirections(texts);
    addMarks(texts);
    addInvisible(texts);
    addMarkup(texts);
    addFormatsAndPaths(texts);
    addUnicode(texts);
    return texts;
}

std::vector<HostileText> hugeTexts() {
    constexpr std::size_t megabytes = 4'000'000;
    std::vector<HostileText> texts;
    for (const std::string piece : {"a", "word ", "\u0301", "\x1B[2J"})
        texts.push_back({"four megabytes of " + piece, repeated(piece, megabytes / piece.size())});
    return texts;
}

} // namespace vantel::testing
