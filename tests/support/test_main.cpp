// The test binary's entry point. Like every host of the library, it takes its character
// type from the environment, and insists on UTF-8: the driver manager converts the
// text of ANSI drivers (SQLite3) through it, and anything beyond ASCII is lost in "C".
#include <gtest/gtest.h>

#include <langinfo.h>

#include <clocale>
#include <cstdio>
#include <cstring>
#include <strings.h>

namespace {

bool isUtf8CharacterType() {
    const char *codeset = nl_langinfo(CODESET);
    return codeset && (strcasecmp(codeset, "UTF-8") == 0 || strcasecmp(codeset, "utf8") == 0);
}

void useUtf8CharacterType() {
    std::setlocale(LC_CTYPE, "");
    if (isUtf8CharacterType()) return;
    if (std::setlocale(LC_CTYPE, "C.UTF-8") && isUtf8CharacterType()) return;
    std::fprintf(stderr, "warning: no UTF-8 character type; non-ASCII text through ANSI drivers will be lost\n");
}

} // namespace

int main(int argc, char **argv) {
    useUtf8CharacterType();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
