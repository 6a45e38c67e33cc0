/* The registry: per-user and machine settings as a locked, atomically written file
 * store. Key paths use "\" between keys, as "Software\Ostrel Software\Tabra". */
#ifndef OSTREL_REGISTRY_H
#define OSTREL_REGISTRY_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

/* Reads root\keyPath\subKey:valueName into output (capacity characters, at most
 * maxLength characters of the value). A missing value, a missing or damaged store
 * gives the default (null default: empty). Returns the length written, -1 on bad
 * arguments. subKey may be null or empty. */
TABRA_API int32_t Ostrel_ReadStringFromRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                                const char16_t *subKey, const char16_t *valueName,
                                                const char16_t *defaultValue, char16_t *output,
                                                int32_t capacity, int32_t maxLength);
/* Writes a string value; 1 on success, 0 on failure (bad arguments, store not writable). */
TABRA_API int32_t Ostrel_WriteStringToRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                               const char16_t *subKey, const char16_t *valueName,
                                               const char16_t *value);
TABRA_API int32_t Ostrel_ReadLongFromRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                              const char16_t *subKey, const char16_t *valueName,
                                              int32_t defaultValue);
TABRA_API int32_t Ostrel_WriteLongToRegistry(HKEY root, const char16_t *keyPath, uint32_t flags,
                                             const char16_t *subKey, const char16_t *valueName, int32_t value);
/* Looks under HKEY_CURRENT_USER first, then HKEY_LOCAL_MACHINE, then the default. */
TABRA_API int32_t Ostrel_ReadStringFromHKCUorHKLM(const char16_t *keyPath, const char16_t *subKey,
                                                  const char16_t *valueName, const char16_t *defaultValue,
                                                  char16_t *output, int32_t capacity, int32_t maxLength);
/* HKEY_CURRENT_USER shorthands (no sub-key). */
TABRA_API int32_t Ostrel_ReadLongFromHKCU(const char16_t *keyPath, const char16_t *valueName, int32_t defaultValue);
TABRA_API int32_t Ostrel_WriteLongToHKCU(const char16_t *keyPath, const char16_t *valueName, int32_t value);
/* Deletes one value, or with a null valueName the whole key tree below root\keyPath.
 * 1 when something was deleted, 0 otherwise. */
TABRA_API int32_t Ostrel_DeleteRegistryKey(HKEY root, const char16_t *keyPath, const char16_t *valueName);

TABRA_END_DECLS

#endif
