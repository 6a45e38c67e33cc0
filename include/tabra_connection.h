/* Tabra: the module and its connections.
 *
 * Module queries. When the library is loaded it records its own module handle,
 * loads its resource library for the user-interface language (see ostrel_lts.h;
 * the language comes from ZUL_LANGUAGE, else from LC_ALL / LC_MESSAGES / LANG) and
 * sets its module-wide values; when it is unloaded it frees the resource library.
 * If no resource library is found, the user is told once (a message box naming the
 * path in the "en" folder, also written to stderr) and the library works on without
 * texts and dialogs. */
#ifndef TABRA_CONNECTION_H
#define TABRA_CONNECTION_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

/* The library's own module handle (stands for libtabra.so itself). */
TABRA_API HMODULE Tabra_GetInstance(void);

/* Copies the library's translation module name "TABRADLL" into destination with
 * OstrelCopyString(destination, name, size) and returns that call's result. */
TABRA_API int32_t Tabra_GetLtsModuleName(char16_t *destination, int32_t size);

/* The library's version as text ("0.1.0"):
 * Ostrel_GetResourceFileVersion(Tabra_GetInstance(), 1, destination, size, 0). */
TABRA_API int32_t Tabra_GetVersion(char16_t *destination, int32_t size);

TABRA_END_DECLS

#endif
