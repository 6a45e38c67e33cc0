/* The statement hook and the diagnostic switch. Every statement the library runs is
 * handed to Ostrel_DumpSqlStatement first. */
#ifndef OSTREL_HOOK_H
#define OSTREL_HOOK_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

/* Diagnostic switch bits. */
#define OSTREL_DUMP_SHOW_STATEMENTS 1 /* show each statement to the user (OK runs it, Cancel cancels) */
#define OSTREL_DUMP_SHOW_INFO 2       /* show informational ODBC diagnostics too */

/* Returns 1 to let the statement run, anything else cancels it. */
TABRA_API int32_t Ostrel_DumpSqlStatement(const char16_t *statement, int32_t capacity);
/* The switch bits: from the environment variable TABRA_DUMP_STATE (decimal), else
 * the registry value "DumpState" below the module's root, else 0; a value set with
 * Ostrel_SetDumpState wins over both. */
TABRA_API int32_t Ostrel_GetDumpState(int32_t reserved);
/* Sets the switch for this process; a negative value returns to environment/registry. */
TABRA_API void Ostrel_SetDumpState(int32_t state);

/* A host (and every test) may install a callback that sees each statement before it
 * runs; it answers 1 to let it run, anything else cancels. Null removes it. */
typedef int32_t (*OstrelStatementHook)(const char16_t *statement, void *context);
TABRA_API void Ostrel_SetStatementHook(OstrelStatementHook hook, void *context);

TABRA_END_DECLS

#endif
