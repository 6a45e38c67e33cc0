/* A host program that runs the update records wizard on a table of an ODBC data source
 * without a user: the wizard's pages are answered by a script of user actions through
 * the library's scripted driver (tabra_script.h). It connects with a data source record,
 * hands the wizard the table as its object record, watches the statement the wizard runs
 * through the statement hook, and disconnects.
 *
 *   update-records DATA_SOURCE TABLE FOLDER [USER [PASSWORD]]
 *
 * plays update-records.script from the program's own folder (as argv[0] names it; the
 * script fits the Orders table of the demo database), prints the script's report (the
 * pages shown, the actions taken, the counts the pages showed) and writes the wizard's
 * result and the statement it ran to FOLDER/TABLE.txt (UTF-8). Exit status 0 only when
 * the wizard was finished and the script went as written, with no action left over. */
#include <tabra.h>

#include <locale.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

enum { kNameCapacity = 100, kPathCapacity = 4096, kStatementCapacity = 500 };

/* The last statement that changes data, as the hook saw it. */
static char16_t changeStatement[kStatementCapacity];

static int32_t watchStatement(const char16_t *statement, void *context) {
    (void)context;
    if (statement[0] != u'S') OstrelCopyString(changeStatement, statement, kStatementCapacity);
    return 1; /* let it run */
}

/* FOLDER/NAME with a suffix, or 0 when it does not fit. */
static int joinPath(char *out, const char *folder, const char *name, const char *suffix) {
    int written = snprintf(out, kPathCapacity, "%s/%s%s", folder, name, suffix);
    return written >= 0 && written < kPathCapacity;
}

/* The script beside the program: argv[0]'s folder, or the current one. */
static int scriptPath(char *out, const char *program) {
    const char *slash = strrchr(program, '/');
    if (!slash) return joinPath(out, ".", "update-records", ".script");
    char folder[kPathCapacity];
    size_t length = (size_t)(slash - program);
    if (length >= sizeof folder) return 0;
    memcpy(folder, program, length);
    folder[length] = '\0';
    return joinPath(out, folder, "update-records", ".script");
}

static void printReport(void) {
    int32_t length = TabraScript_ReportUtf8(NULL, 0);
    char *report = malloc((size_t)length + 1);
    if (!report) return;
    TabraScript_ReportUtf8(report, length + 1);
    printf("%s\n", report);
    free(report);
}

int main(int argc, char **argv) {
    if (argc < 4 || argc > 6) {
        fprintf(stderr, "usage: update-records DATA_SOURCE TABLE FOLDER [USER [PASSWORD]]\n");
        return 2;
    }
    /* The driver manager converts text through the character type: it must be UTF-8. */
    if (!setlocale(LC_ALL, "") || !strstr(setlocale(LC_CTYPE, NULL), "UTF-8")) setlocale(LC_CTYPE, "C.UTF-8");

    DataSourceInfo source;
    DbObjectInfo object;
    memset(&source, 0, sizeof source);
    memset(&object, 0, sizeof object);
    object.DbObjectType = TABRA_OBJECT_TABLE;
    char script[kPathCapacity], output[kPathCapacity];
    if (Ostrel_Utf8ToUtf16(argv[1], source.DataSourceName, kNameCapacity) < 0 ||
        Ostrel_Utf8ToUtf16(argv[2], object.DbObjectName, sizeof object.DbObjectName / sizeof(char16_t)) < 0 ||
        (argc > 4 && Ostrel_Utf8ToUtf16(argv[4], source.UserId, sizeof source.UserId / sizeof(char16_t)) < 0) ||
        (argc > 5 && Ostrel_Utf8ToUtf16(argv[5], source.Password, sizeof source.Password / sizeof(char16_t)) < 0) ||
        !scriptPath(script, argv[0]) || !joinPath(output, argv[3], argv[2], ".txt")) {
        fprintf(stderr, "update-records: an argument is too long\n");
        return 2;
    }

    TabraScript_Begin(); /* from here on the library's dialogs are answered by the script */
    if (TabraScript_LoadFile(script) < 0) {
        char error[512];
        TabraScript_LastError(error, sizeof error);
        fprintf(stderr, "update-records: %s\n", error);
        return 2;
    }
    SQLHENV environment = NULL;
    SQLHDBC connection = NULL;
    if (Tabra_ConnectDataSource(&source, &environment, &connection) != 0) {
        fprintf(stderr, "update-records: cannot connect to the data source %s\n", argv[1]);
        return 1;
    }
    Ostrel_SetStatementHook(watchStatement, NULL);
    int32_t result = Tabra_UpdateRecordsWizzard(connection, &object, 0);
    Ostrel_SetStatementHook(NULL, NULL);
    Tabra_DisconnectDataSource(&environment, &connection);

    printReport();
    char statement[3 * kStatementCapacity];
    Ostrel_Utf16ToUtf8(changeStatement, statement, (int32_t)sizeof statement);
    printf("The wizard answered %d; it ran: %s\n", (int)result, statement[0] ? statement : "(nothing)");
    FILE *file = fopen(output, "w");
    int written = file && fprintf(file, "result %d\n%s\n", (int)result, statement) >= 0;
    if ((file && fclose(file) != 0) || !written) {
        fprintf(stderr, "update-records: %s could not be written\n", output);
        return 1;
    }
    if (result != 1 || TabraScript_Failed() || TabraScript_PendingCount() != 0) {
        fprintf(stderr, "update-records: the wizard did not run as the script says\n");
        return 1;
    }
    return 0;
}
