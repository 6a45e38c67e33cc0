/* The registry: per-user and machine settings as a locked, atomically written file
 * store. Key paths use "\" between keys, as "Software\Ostrel Software\Tabra".
 *
 * Stores (readable UTF-8 text, "[key]" sections with "name"="text" and "name"=dword:hex
 * lines): HKEY_CURRENT_USER in $XDG_CONFIG_HOME/tabra/registry/current-user.reg
 * (XDG_CONFIG_HOME defaults to ~/.config; mode 0600), HKEY_USERS beside it in
 * users.reg, HKEY_LOCAL_MACHINE in /etc/tabra/registry/local-machine.reg (writable by
 * the administrator only; others read it). TABRA_REGISTRY_ROOT = a directory holds all
 * three files instead.
 *
 * Key and value names compare without regard to case and keep their first spelling;
 * empty key names (doubled or outer "\") are ignored. A key name must not hold control
 * characters. A null or empty value name is the key's default value. Values may hold
 * any text (line breaks, quotes, backslashes, any Unicode).
 *
 * Every write locks the store, re-reads it, applies the change and replaces the file
 * atomically: concurrent writers (also in other processes) lose nothing, a crash never
 * leaves a torn store. A damaged store reads as empty (defaults); the first write
 * after the damage moves it aside as "<store>.damaged-YYYYMMDD-HHMMSS" and starts a
 * fresh store. Reads never fail: any problem gives the default.
 *
 * The flags arguments are reserved (pass 0). */
#ifndef OSTREL_REGISTRY_H
#define OSTREL_REGISTRY_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

/* Reads root\keyPath\subKey:valueName into output (capacity characters, at most
 * maxLength characters of the value; maxLength below 1 means no limit but the
 * capacity). A missing value, a missing or damaged store gives the default (null
 * default: empty); a number value gives its decimal text. Returns the length written;
 * -1 for a null output or a capacity below 1, and -1 (after writing the default) for a
 * null keyPath, an unknown root or an unusable key name. subKey may be null or empty. */
TABRA_API int32_t Ostrel_ReadStringFromRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                                const char16_t *subKey, const char16_t *valueName,
                                                const char16_t *defaultValue, char16_t *output,
                                                int32_t capacity, int32_t maxLength);
/* Writes a string value (null: the empty text), creating its key; 1 on success, 0 on
 * failure (bad arguments, store not writable). */
TABRA_API int32_t Ostrel_WriteStringToRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                               const char16_t *subKey, const char16_t *valueName,
                                               const char16_t *value);
/* Reads a number (DWORD) value; a string value that is a whole decimal number counts
 * too. Anything else, a missing value or store, or bad arguments give the default. */
TABRA_API int32_t Ostrel_ReadLongFromRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                              const char16_t *subKey, const char16_t *valueName,
                                              int32_t defaultValue);
/* Writes a number (DWORD) value; 1 on success, 0 on failure. Negative values read back. */
TABRA_API int32_t Ostrel_WriteLongToRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                             const char16_t *subKey, const char16_t *valueName, int32_t value);
/* Looks under HKEY_CURRENT_USER first, then HKEY_LOCAL_MACHINE, then the default;
 * results as Ostrel_ReadStringFromRegistry. */
TABRA_API int32_t Ostrel_ReadStringFromHKCUorHKLM(const char16_t *keyPath, const char16_t *subKey,
                                                  const char16_t *valueName, const char16_t *defaultValue,
                                                  char16_t *output, int32_t capacity, int32_t maxLength);
/* HKEY_CURRENT_USER shorthands (no sub-key). */
TABRA_API int32_t Ostrel_ReadLongFromHKCU(const char16_t *keyPath, const char16_t *valueName, int32_t defaultValue);
TABRA_API int32_t Ostrel_WriteLongToHKCU(const char16_t *keyPath, const char16_t *valueName, int32_t value);
/* Deletes one value (an empty valueName: the default value), or with a null valueName
 * the key root\keyPath with every key below it. 1 when something was deleted, 0
 * otherwise (also for a null or empty keyPath with a null valueName: the whole root is
 * never deleted). */
TABRA_API int32_t Ostrel_DeleteRegistryKey(HKEY root, const char16_t *keyPath, const char16_t *valueName);

TABRA_END_DECLS

#endif
