/* A host program that never calls setlocale: it writes a name with characters beyond
 * ASCII into a table through the library and reads it back, on the data source named
 * by its argument (the test's SQLite data source: an ANSI driver, so the driver manager
 * converts the text through the process's character type). It prints what it saw:
 *
 *   character type: <LC_CTYPE as the library left it>
 *   inserted: <1 or 2>
 *   read: <the value read back, UTF-16 code units in hexadecimal>
 *   refused: <the number of times message 1660 was shown>
 *
 * Messages are answered by the scripted driver (no display needed). */
#include <tabra.h>
#include <tabra_script.h>

#include <locale.h>
#include <stdio.h>
#include <string.h>

enum { kTextNotCarried = 1660, kBufferCapacity = 200 };

/* Under AddressSanitizer: the SQLite3 driver loses the data source attributes it reads
 * at SQLConnect (reproduced with raw ODBC: SQLConnect, SQLDisconnect, SQLFreeConnect)
 * through a module it unloads again, so only full stacks name the driver. Both hooks
 * are plain functions the sanitizer runtime looks for; without it they are unused. */
#define TABRA_SANITIZER_HOOK __attribute__((visibility("default"), used))
TABRA_SANITIZER_HOOK const char *__asan_default_options(void) { return "fast_unwind_on_malloc=0"; }
TABRA_SANITIZER_HOOK const char *__lsan_default_suppressions(void) { return "leak:libsqlite3odbc.so\n"; }

int main(int argc, char **argv) {
    if (argc != 2) return 2;
    TabraScript_Begin();
    DataSourceInfo source;
    memset(&source, 0, sizeof source);
    if (Ostrel_Utf8ToUtf16(argv[1], source.DataSourceName, 100) < 1) return 2;
    SQLHENV environment = NULL;
    SQLHDBC connection = NULL;
    if (Tabra_ConnectDataSource(&source, &environment, &connection) != 0) return 3;

    OdbcEh_PerformSqlStatement(0, connection, u"CREATE TABLE locale_names (name VARCHAR(40))", NULL);
    int32_t inserted = OdbcEh_PerformSqlStatement(0, connection, u"INSERT INTO locale_names VALUES ('M\u00fcller \u03a9')", NULL);
    char16_t value[kBufferCapacity] = {0};
    OdbcEh_SelectRowSetToBuffer(0, connection, u"SELECT name FROM locale_names", NULL, NULL, value, kBufferCapacity,
                                NULL, 0);
    Tabra_DisconnectDataSource(&environment, &connection);

    int refused = 0;
    for (int32_t at = TabraScript_FindRecord(TABRA_RECORD_MESSAGE, kTextNotCarried, 0); at >= 0;
         at = TabraScript_FindRecord(TABRA_RECORD_MESSAGE, kTextNotCarried, at + 1))
        ++refused;
    printf("character type: %s\n", setlocale(LC_CTYPE, NULL));
    printf("inserted: %d\n", (int)inserted);
    printf("read:");
    for (const char16_t *c = value; *c != 0; ++c) printf(" %04x", (unsigned)*c);
    printf("\nrefused: %d\n", refused);
    TabraScript_End();
    return 0;
}
