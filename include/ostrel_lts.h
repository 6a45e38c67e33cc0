/* Resource libraries, their strings and the translation layer (LTS).
 *
 * A resource library holds the dialog templates, menus and string tables of one
 * language. On disk it is a resource script, a UTF-8 text file "tabraRes.rc" in a
 * language folder ("de", "en-US", "en", ...) beside libtabra.so; resources/README
 * in the source tree describes the format. The library loads its own resource
 * library when it is loaded (see Tabra_GetInstance in tabra_connection.h).
 *
 * The translation layer may replace loaded texts by others. Each module that uses it
 * has a name ("TABRADLL" for this library); its optional translation table is the
 * file "<name>.lts" in the folder its resource library came from: UTF-8 lines
 * "original" = "replacement", with // comments. A table that does not read cleanly
 * is reported on stderr and not used; without a table every text stays as it is. */
#ifndef OSTREL_LTS_H
#define OSTREL_LTS_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

/* Loads the resource script at path (UTF-16) as a resource library. Returns its
 * handle, or null when the file is missing or faulty (the fault, with file and line,
 * is written to stderr). */
TABRA_API HMODULE Ostrel_LoadResourceLibrary(const char16_t *path);

/* Frees a resource library made by Ostrel_LoadResourceLibrary. 1 when it was freed,
 * 0 for a null or unknown handle. */
TABRA_API int32_t Ostrel_FreeResourceLibrary(HMODULE module);

/* Copies string stringId of the resource library into buffer, cut to size - 1
 * characters (never between the halves of a surrogate pair) and terminated. Returns
 * the number of characters copied; 0 when the module or the string does not exist
 * (the buffer then holds the empty text), when buffer is null or size is below 1. */
TABRA_API int32_t LoadStringW(HMODULE module, uint32_t stringId, char16_t *buffer, int32_t size);

/* The version of a module as text: which 1 is the file version, 2 the product
 * version; for the library's own module (Tabra_GetInstance) both are the version it
 * was built as, such as "0.1.0". flags are reserved (0). Returns what
 * OstrelCopyString returns for the text (-1 for a null buffer or a size below 1);
 * another module or another which gives the empty text. */
TABRA_API int32_t Ostrel_GetResourceFileVersion(HMODULE module, int32_t which, char16_t *buffer, int32_t size,
                                                uint32_t flags);

/* The name of the settings profile: the user's login name ($USER, else the password
 * entry), or "Default". Unlike the other calls, size counts BYTES (the classic call
 * takes the size of a wide buffer in bytes): at most size / 2 - 1 characters are
 * written. Returns the number of characters written, -1 for a null buffer or a size
 * below 2. module is the caller's own module and is not read. */
TABRA_API int32_t Ostrel_GetProfileName(HMODULE module, char16_t *buffer, int32_t size);

/* Replaces text, in place, by its translation for the named module when the
 * module's translation table has one for exactly this text (cut to size - 1
 * characters). flags are reserved (0). Returns the length of the text in the buffer
 * afterwards; -1 for a null text or a size below 1. A null or unknown module name
 * leaves the text as it is. */
TABRA_API int32_t LTS_TranslateString(const char16_t *moduleName, uint32_t flags, char16_t *text, int32_t size);

/* Translates a dialog in place: its caption and the text of each child window are
 * replaced where the module's translation table knows them. flags are reserved (0).
 * Returns the number of texts replaced, or -1 when dialog is not a window. */
TABRA_API int32_t LTS_TranslateDialog(HWND dialog, const char16_t *moduleName, uint32_t flags);

TABRA_END_DECLS

#endif
