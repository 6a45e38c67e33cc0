/* Bounded wide-text primitives. Capacities count characters including the terminator. */
#ifndef OSTREL_TEXT_H
#define OSTREL_TEXT_H

#include "tabra_base.h"

TABRA_BEGIN_DECLS

/* Copies source into destination, cut silently to capacity - 1 characters and always
 * terminated when capacity >= 1. A null source copies the empty text. Returns the
 * length written, or -1 for a null destination or a capacity below 1. */
TABRA_API int32_t OstrelCopyString(char16_t *destination, const char16_t *source, int32_t capacity);

/* Appends source to the text in destination with the same bound and result (the
 * length of the whole text). A destination that holds no terminator within its
 * capacity is terminated at capacity - 1 first. */
TABRA_API int32_t OstrelAppendString(char16_t *destination, const char16_t *source, int32_t capacity);

/* Replaces every occurrence of find in text by replace, left to right, never
 * re-scanning replaced text, within capacity (text that no longer fits is cut).
 * Returns the number of replacements, or -1 on bad arguments or an empty find. */
TABRA_API int32_t Ostrel_Replace(char16_t *text, int32_t capacity, const char16_t *find,
                                 const char16_t *replace, int32_t flags);

/* 1 when text is null, empty or holds only characters with codes up to 32; else 0. */
TABRA_API int32_t Ostrel_IsBlankString(const char16_t *text);

/* The bounded token reader of separated lists. Reads the token that starts at
 * *position of list up to the next separator (or the end) into token, cut to
 * capacity - 1 characters, and moves *position past the separator. Returns 1 when a
 * token was read, 0 at the end of the list (an empty list has no token; a separator
 * at the very end adds no empty token). */
TABRA_API int32_t Ostrel_ReadToken(const char16_t *list, int32_t *position, char16_t separator,
                                   char16_t *token, int32_t capacity);

/* A reversible encoding that keeps any text on one line and is stable (equal texts
 * give equal encodings). Encode writes into output (capacity characters, terminated)
 * and returns its length, or -1 when the encoding does not fit or on bad arguments.
 * Decode turns an encoded text back in place and returns its length (-1 on bad
 * arguments). Mode 0 is the general form; mode 2 is the form row-set files use. */
TABRA_API int32_t Ostrel_EncodeString(const char16_t *text, char16_t *output, int32_t capacity, int32_t mode);
TABRA_API int32_t Ostrel_DecodeString(char16_t *text);

/* UTF-16 <-> UTF-8 for file names and the operating system. Return the length
 * written (terminated, cut at a whole character), or -1 on bad arguments. Unpaired
 * surrogates and invalid UTF-8 become U+FFFD. */
TABRA_API int32_t Ostrel_Utf16ToUtf8(const char16_t *text, char *output, int32_t capacity);
TABRA_API int32_t Ostrel_Utf8ToUtf16(const char *text, char16_t *output, int32_t capacity);

TABRA_END_DECLS

#endif
