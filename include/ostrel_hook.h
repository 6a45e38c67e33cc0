/* The statement hook and the diagnostic switch. Every statement the library runs is
 * handed to Ostrel_DumpSqlStatement first. */
#ifndef OSTREL_HOOK_H
#define OSTREL_HOOK_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

/* Diagnostic switch bits. */
#define OSTREL_DUMP_SHOW_STATEMENTS 1 /* show each statement to the user (OK runs it, Cancel cancels) */
#define OSTREL_DUMP_SHOW_INFO 2       /* show informational ODBC diagnostics too */

/* Hands a statement over before it runs: first to the installed callback (if any),
 * then, when the switch has OSTREL_DUMP_SHOW_STATEMENTS, to the user with OK/Cancel.
 * Returns 1 to let the statement run; 2 when the callback or the user cancelled it or
 * the statement is null. capacity bounds the read of the statement's buffer; 0 (or
 * less) means the statement is terminated. Callers run the statement only on 1. */
TABRA_API int32_t Ostrel_DumpSqlStatement(const char16_t *statement, int32_t capacity);
/* The switch bits: a value set with Ostrel_SetDumpState wins; else the environment
 * variable TABRA_DUMP_STATE (a decimal number; anything else is ignored); else the
 * DWORD value "DumpState" of HKEY_CURRENT_USER\Software\Ostrel Software\Tabra; else 0.
 * The environment and the registry are read on every call. reserved: pass 0. */
TABRA_API int32_t Ostrel_GetDumpState(int32_t reserved);
/* Sets the switch for this process; a negative value returns to environment/registry. */
TABRA_API void Ostrel_SetDumpState(int32_t state);

/* A host (and every test) may install a callback that sees each statement before it
 * runs; it answers 1 to let it run, anything else cancels. Null removes it. One
 * callback for the whole process; it is called on the caller's thread. */
typedef int32_t (*OstrelStatementHook)(const char16_t *statement, void *context);
TABRA_API void Ostrel_SetStatementHook(OstrelStatementHook hook, void *context);

TABRA_END_DECLS

#endif
