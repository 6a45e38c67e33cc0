/* Bounded wide-text primitives. Capacities count characters including the terminator.
 * Every writer cuts silently, never writes past its capacity and never cuts between
 * the two halves of a surrogate pair (the pair is dropped whole). */
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
 * capacity is terminated at capacity - 1 first. A null source appends nothing. */
TABRA_API int32_t OstrelAppendString(char16_t *destination, const char16_t *source, int32_t capacity);

/* Flags of Ostrel_Replace. */
#define OSTREL_REPLACE_IGNORE_CASE 1 /* find matches without regard to case */

/* Replaces every occurrence of find in text by replace (null: the empty text), left
 * to right, never re-scanning replaced text, within capacity (text that no longer
 * fits is cut). Returns the number of occurrences replaced (counted before the cut),
 * or -1 for a null text, a capacity below 1 or a null or empty find. */
TABRA_API int32_t Ostrel_Replace(char16_t *text, int32_t capacity, const char16_t *find,
                                 const char16_t *replace, int32_t flags);

/* 1 when text is null, empty or holds only characters with codes up to 32; else 0. */
TABRA_API int32_t Ostrel_IsBlankString(const char16_t *text);

/* The bounded token reader of separated lists. Reads the token that starts at
 * *position of list up to the next separator (or the end) into token, cut to
 * capacity - 1 characters, and moves *position past the separator (a cut token is
 * still passed over whole). Returns 1 when a token was read, 0 at the end of the list:
 * an empty list has no token, a separator at the very end adds no empty token, two
 * separators in a row enclose an empty one. Separator 0 reads the rest as one token.
 * Bad arguments (null list, position or token, a negative position, capacity below 1)
 * answer 0, so that a reading loop ends. Start with *position = 0. */
TABRA_API int32_t Ostrel_ReadToken(const char16_t *list, int32_t *position, char16_t separator,
                                   char16_t *token, int32_t capacity);

/* Modes of Ostrel_EncodeString. */
#define OSTREL_ENCODE_GENERAL 0    /* control characters and the backslash escaped */
#define OSTREL_ENCODE_QUOTE_SAFE 2 /* the form row-set files use: quotes escaped too */

/* A reversible backslash encoding that keeps any text on one line and is stable (equal
 * texts give equal encodings). The output holds no character below 32, no DEL, no C1
 * control, no line or paragraph separator and no unpaired surrogate; mode 2 also
 * holds no quotation mark or apostrophe. Escapes: \\ \t \n \r, \q (") and \Q (') in
 * mode 2, \xHH for the other control characters, \uHHHH for U+2028, U+2029 and
 * unpaired surrogates (in mode 0 also for both halves of every surrogate pair, so its
 * output stays within the Basic Multilingual Plane, which ANSI drivers pass);
 * everything else is copied. Any mode other than 2 is mode 0.
 * Encode writes into output (capacity characters, terminated) and returns its length;
 * when the encoding does not fit it writes the empty text and returns -1 (-1 too for a
 * null output or a capacity below 1; a null text encodes as the empty text).
 * Decode turns an encoded text of either mode back in place and returns its length
 * (-1 for a null text); a backslash that starts no complete escape is kept as it is. */
TABRA_API int32_t Ostrel_EncodeString(const char16_t *text, char16_t *output, int32_t capacity, int32_t mode);
TABRA_API int32_t Ostrel_DecodeString(char16_t *text);

/* UTF-16 <-> UTF-8 for file names and the operating system. Capacity counts bytes for
 * the UTF-8 output and UTF-16 code units for the UTF-16 output, terminator included.
 * Return the length written (terminated, cut at a whole character), or -1 for a null
 * output or a capacity below 1; a null text converts as the empty text. Unpaired
 * surrogates and invalid UTF-8 (each maximal ill-formed subpart) become U+FFFD. */
TABRA_API int32_t Ostrel_Utf16ToUtf8(const char16_t *text, char *output, int32_t capacity);
TABRA_API int32_t Ostrel_Utf8ToUtf16(const char *text, char16_t *output, int32_t capacity);

TABRA_END_DECLS

#endif
