/* A host program that exports a table of an ODBC data source to a text file through the
 * row-set call, as any host would use the library: connect with a data source record,
 * build the SELECT with the table name quoted for that database, write the rows with a
 * header record in one call, disconnect.
 *
 *   export-table DATA_SOURCE TABLE FOLDER [USER [PASSWORD]]
 *
 * writes FOLDER/TABLE.txt (UTF-16LE, fields separated by tabs, records by line feeds)
 * and prints the number of records written. It shows no window of its own; the
 * library's error display shows ODBC failures on screen when there is a display, and
 * cancels them quietly without one, so the program says itself what went wrong. */
#include <tabra.h>

#include <locale.h>
#include <stdio.h>
#include <string.h>
#include <uchar.h>

enum { kNameCapacity = 100, kPathCapacity = 4096, kStatementCapacity = 1000 };

/* Command-line text (in the process's character type, UTF-8) as UTF-16; 0 when it does
 * not fit or is not valid. */
static int toUtf16(const char *text, char16_t *out, size_t capacity) {
    mbstate_t state;
    memset(&state, 0, sizeof state);
    size_t left = strlen(text) + 1; /* the terminator too */
    for (size_t used = 0; used < capacity; ++used) {
        size_t taken = mbrtoc16(&out[used], text, left, &state);
        if (taken == (size_t)-1 || taken == (size_t)-2) return 0;
        if (taken == 0) return 1; /* the terminator is written */
        if (taken != (size_t)-3) { /* -3: the second half of a surrogate pair, from the same bytes */
            text += taken;
            left -= taken;
        }
    }
    return 0;
}

int main(int argc, char **argv) {
    if (argc < 4 || argc > 6) {
        fprintf(stderr, "usage: export-table DATA_SOURCE TABLE FOLDER [USER [PASSWORD]]\n");
        return 2;
    }
    /* The driver manager converts text through the character type: it must be UTF-8. */
    if (!setlocale(LC_ALL, "") || !strstr(setlocale(LC_CTYPE, NULL), "UTF-8")) setlocale(LC_CTYPE, "C.UTF-8");

    DataSourceInfo source;
    memset(&source, 0, sizeof source);
    char path[kPathCapacity];
    char16_t table[kNameCapacity], file[kPathCapacity];
    int written = snprintf(path, sizeof path, "%s/%s.txt", argv[3], argv[2]);
    if (!toUtf16(argv[1], source.DataSourceName, kNameCapacity) || !toUtf16(argv[2], table, kNameCapacity) ||
        written < 0 || (size_t)written >= sizeof path || !toUtf16(path, file, kPathCapacity) ||
        (argc > 4 && !toUtf16(argv[4], source.UserId, sizeof source.UserId / sizeof source.UserId[0])) ||
        (argc > 5 && !toUtf16(argv[5], source.Password, sizeof source.Password / sizeof source.Password[0]))) {
        fprintf(stderr, "export-table: an argument is too long or not valid text\n");
        return 2;
    }

    SQLHENV environment = NULL;
    SQLHDBC connection = NULL;
    if (Tabra_ConnectDataSource(&source, &environment, &connection) != 0) {
        fprintf(stderr, "export-table: cannot connect to the data source %s\n", argv[1]);
        return 1;
    }
    char16_t statement[kStatementCapacity];
    Tabra_SprintfSqlStatement(connection, statement, kStatementCapacity, u"SELECT * FROM %t", table, NULL, NULL, NULL,
                              NULL, NULL, NULL, NULL);
    int32_t records = 0; /* no progress window: nothing is expected */
    int32_t result = OdbcEh_SelectRowSetToFile(0, connection, statement, NULL, NULL, file, &records, NULL,
                                               TABRA_ROWSET_HEADER);
    Tabra_DisconnectDataSource(&environment, &connection);
    if (result != 1) {
        fprintf(stderr, "export-table: the table %s could not be exported\n", argv[2]);
        return 1;
    }
    printf("%d records written to %s (the header included)\n", (int)records, path);
    return 0;
}
