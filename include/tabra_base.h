/*
 * Tabra: the conventions every public header shares.
 *
 * Wide text is UTF-16 (char16_t), capacities count characters. 32-bit values are
 * int32_t/uint32_t, byte flags uint8_t. ODBC handles are those of <sql.h>. Window,
 * module and registry-root handles are opaque pointers of the platform layer.
 * Every header compiles as C (C11) and as C++.
 */
#ifndef TABRA_BASE_H
#define TABRA_BASE_H

#include <stddef.h>
#include <stdint.h>
#include <sql.h>
#include <sqlext.h>

#ifdef __cplusplus
#define TABRA_BEGIN_DECLS extern "C" {
#define TABRA_END_DECLS }
#else
#include <uchar.h>
#define TABRA_BEGIN_DECLS
#define TABRA_END_DECLS
#endif

/* One export macro: the library is built with hidden visibility and exports exactly
 * the functions declared with TABRA_API. */
#if defined(TABRA_BUILDING_LIBRARY)
#define TABRA_API __attribute__((visibility("default")))
#else
#define TABRA_API
#endif

/* <sqltypes.h> already declares HWND and HINSTANCE as void pointers. */
typedef void *HMODULE;
typedef void *HKEY;
typedef void *HMENU;
typedef void *HCURSOR;

#define HKEY_CURRENT_USER ((HKEY)(uintptr_t)0x80000001u)
#define HKEY_LOCAL_MACHINE ((HKEY)(uintptr_t)0x80000002u)
#define HKEY_USERS ((HKEY)(uintptr_t)0x80000003u)

typedef intptr_t LRESULT;
typedef intptr_t LPARAM;
typedef uintptr_t WPARAM;
typedef intptr_t INT_PTR;
typedef intptr_t LONG_PTR;

/* Dialog procedure: answers nonzero when it handled the message. */
typedef INT_PTR (*DLGPROC)(HWND dialog, uint32_t message, WPARAM wParam, LPARAM lParam);

#endif
