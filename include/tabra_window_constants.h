/* Window, message and control constants, with the classic Win32 values so that
 * templates, dialog procedures and hosts speak one language. */
#ifndef TABRA_WINDOW_CONSTANTS_H
#define TABRA_WINDOW_CONSTANTS_H

/* Dialog results and button identifiers. */
#define IDOK 1
#define IDCANCEL 2
#define IDABORT 3
#define IDRETRY 4
#define IDIGNORE 5
#define IDYES 6
#define IDNO 7
#define IDHELP 9

/* Message box styles. */
#define MB_OK 0x00000000u
#define MB_OKCANCEL 0x00000001u
#define MB_ABORTRETRYIGNORE 0x00000002u
#define MB_YESNOCANCEL 0x00000003u
#define MB_YESNO 0x00000004u
#define MB_RETRYCANCEL 0x00000005u
#define MB_TYPEMASK 0x0000000Fu
#define MB_ICONERROR 0x00000010u
#define MB_ICONQUESTION 0x00000020u
#define MB_ICONWARNING 0x00000030u
#define MB_ICONINFORMATION 0x00000040u
#define MB_ICONMASK 0x000000F0u
#define MB_DEFBUTTON2 0x00000100u
#define MB_DEFBUTTON3 0x00000200u

/* Window styles. */
#define WS_CHILD 0x40000000u
#define WS_VISIBLE 0x10000000u
#define WS_DISABLED 0x08000000u
#define WS_BORDER 0x00800000u
#define WS_VSCROLL 0x00200000u
#define WS_HSCROLL 0x00100000u
#define WS_GROUP 0x00020000u
#define WS_TABSTOP 0x00010000u

/* Button styles. */
#define BS_PUSHBUTTON 0x0u
#define BS_DEFPUSHBUTTON 0x1u
#define BS_CHECKBOX 0x2u
#define BS_AUTOCHECKBOX 0x3u
#define BS_RADIOBUTTON 0x4u
#define BS_3STATE 0x5u
#define BS_AUTO3STATE 0x6u
#define BS_GROUPBOX 0x7u
#define BS_AUTORADIOBUTTON 0x9u
#define BS_TYPEMASK 0xFu

/* Edit styles. */
#define ES_LEFT 0x0u
#define ES_MULTILINE 0x4u
#define ES_UPPERCASE 0x8u
#define ES_PASSWORD 0x20u
#define ES_AUTOVSCROLL 0x40u
#define ES_AUTOHSCROLL 0x80u
#define ES_READONLY 0x800u
#define ES_WANTRETURN 0x1000u
#define ES_NUMBER 0x2000u

/* List box styles. */
#define LBS_NOTIFY 0x1u
#define LBS_SORT 0x2u
#define LBS_MULTIPLESEL 0x8u
#define LBS_EXTENDEDSEL 0x800u

/* Combo box styles. */
#define CBS_SIMPLE 0x1u
#define CBS_DROPDOWN 0x2u
#define CBS_DROPDOWNLIST 0x3u
#define CBS_SORT 0x100u

/* List view styles and extended styles. */
#define LVS_REPORT 0x1u
#define LVS_SINGLESEL 0x4u
#define LVS_SHOWSELALWAYS 0x8u
#define LVS_EX_GRIDLINES 0x1u
#define LVS_EX_CHECKBOXES 0x4u
#define LVS_EX_FULLROWSELECT 0x20u

/* Static styles. */
#define SS_LEFT 0x0u
#define SS_CENTER 0x1u
#define SS_RIGHT 0x2u
#define SS_ICON 0x3u
#define SS_BITMAP 0xEu
#define SS_ETCHEDHORZ 0x10u
#define SS_SUNKEN 0x1000u

/* Show commands. */
#define SW_HIDE 0
#define SW_SHOW 5

/* Window messages. */
#define WM_DESTROY 0x0002u
#define WM_SETTEXT 0x000Cu
#define WM_GETTEXT 0x000Du
#define WM_GETTEXTLENGTH 0x000Eu
#define WM_CLOSE 0x0010u
#define WM_NOTIFY 0x004Eu        /* 78 */
#define WM_CHAR 0x0102u
#define WM_INITDIALOG 0x0110u    /* 272 */
#define WM_COMMAND 0x0111u       /* 273 */
#define WM_TIMER 0x0113u
#define WM_CONTEXTMENU 0x007Bu
#define WM_USER 0x0400u          /* 1024; the library uses 1025 and 1026 */

/* Notification codes carried in WM_COMMAND. */
#define BN_CLICKED 0
#define LBN_SELCHANGE 1
#define LBN_DBLCLK 2
#define CBN_SELCHANGE 1
#define CBN_DBLCLK 2
#define CBN_EDITCHANGE 5
#define EN_CHANGE 0x0300         /* 768 */

/* WM_NOTIFY codes. */
#define NM_CLICK (-2)
#define NM_DBLCLK (-3)
#define NM_RCLICK (-5)
#define LVN_ITEMCHANGED (-101)
#define TCN_SELCHANGE (-551)
#define TCN_SELCHANGING (-552)

/* Button messages. */
#define BM_GETCHECK 0x00F0u
#define BM_SETCHECK 0x00F1u
#define BM_CLICK 0x00F5u
#define BST_UNCHECKED 0
#define BST_CHECKED 1
#define BST_INDETERMINATE 2

/* Edit messages. */
#define EM_GETSEL 0x00B0u
#define EM_SETSEL 0x00B1u
#define EM_REPLACESEL 0x00C2u
#define EM_LIMITTEXT 0x00C5u
#define EM_SETLIMITTEXT EM_LIMITTEXT
#define EM_SETREADONLY 0x00CFu

/* List box messages. */
#define LB_ERR (-1)
#define LB_ADDSTRING 0x0180u
#define LB_INSERTSTRING 0x0181u
#define LB_DELETESTRING 0x0182u
#define LB_RESETCONTENT 0x0184u
#define LB_SETSEL 0x0185u
#define LB_SETCURSEL 0x0186u
#define LB_GETSEL 0x0187u
#define LB_GETCURSEL 0x0188u
#define LB_GETTEXT 0x0189u
#define LB_GETTEXTLEN 0x018Au
#define LB_GETCOUNT 0x018Bu
#define LB_SELECTSTRING 0x018Cu
#define LB_FINDSTRING 0x018Fu
#define LB_GETSELCOUNT 0x0190u
#define LB_GETSELITEMS 0x0191u
#define LB_GETITEMDATA 0x0199u
#define LB_SETITEMDATA 0x019Au
#define LB_FINDSTRINGEXACT 0x01A2u

/* Combo box messages. */
#define CB_ERR (-1)
#define CB_LIMITTEXT 0x0141u
#define CB_ADDSTRING 0x0143u
#define CB_DELETESTRING 0x0144u
#define CB_GETCOUNT 0x0146u
#define CB_GETCURSEL 0x0147u
#define CB_GETLBTEXT 0x0148u
#define CB_GETLBTEXTLEN 0x0149u
#define CB_INSERTSTRING 0x014Au
#define CB_RESETCONTENT 0x014Bu
#define CB_FINDSTRING 0x014Cu
#define CB_SELECTSTRING 0x014Du
#define CB_SETCURSEL 0x014Eu
#define CB_GETITEMDATA 0x0150u
#define CB_SETITEMDATA 0x0151u
#define CB_FINDSTRINGEXACT 0x0158u

/* Progress bar messages. */
#define PBM_SETRANGE32 0x0406u
#define PBM_SETPOS 0x0402u
#define PBM_GETPOS 0x0408u

/* List view messages (wide forms). */
#define LVM_FIRST 0x1000u
#define LVM_GETITEMCOUNT (LVM_FIRST + 4)
#define LVM_DELETEITEM (LVM_FIRST + 8)
#define LVM_DELETEALLITEMS (LVM_FIRST + 9)
#define LVM_GETNEXTITEM (LVM_FIRST + 12)
#define LVM_DELETECOLUMN (LVM_FIRST + 28)
#define LVM_SETITEMSTATE (LVM_FIRST + 43)
#define LVM_GETITEMSTATE (LVM_FIRST + 44)
#define LVM_GETSELECTEDCOUNT (LVM_FIRST + 50)
#define LVM_SETEXTENDEDLISTVIEWSTYLE (LVM_FIRST + 54)
#define LVM_GETEXTENDEDLISTVIEWSTYLE (LVM_FIRST + 55)
#define LVM_GETITEMW (LVM_FIRST + 75)
#define LVM_SETITEMW (LVM_FIRST + 76)
#define LVM_INSERTITEMW (LVM_FIRST + 77)
#define LVM_FINDITEMW (LVM_FIRST + 83)
#define LVM_INSERTCOLUMNW (LVM_FIRST + 97)
#define LVM_GETITEMTEXTW (LVM_FIRST + 115)
#define LVM_SETITEMTEXTW (LVM_FIRST + 116)
#define LVM_GETCOLUMNW (LVM_FIRST + 95)

#define LVIF_TEXT 0x1u
#define LVIF_PARAM 0x4u
#define LVIF_STATE 0x8u
#define LVIS_FOCUSED 0x1u
#define LVIS_SELECTED 0x2u
#define LVNI_ALL 0x0
#define LVNI_FOCUSED 0x1
#define LVNI_SELECTED 0x2
#define LVCF_FMT 0x1u
#define LVCF_WIDTH 0x2u
#define LVCF_TEXT 0x4u
#define LVCF_SUBITEM 0x8u
#define LVFI_PARAM 0x1u
#define LVFI_STRING 0x2u

/* Tab control messages (wide forms). */
#define TCM_FIRST 0x1300u
#define TCM_GETITEMCOUNT (TCM_FIRST + 4)
#define TCM_DELETEALLITEMS (TCM_FIRST + 9)
#define TCM_GETCURSEL (TCM_FIRST + 11)
#define TCM_SETCURSEL (TCM_FIRST + 12)
#define TCM_INSERTITEMW (TCM_FIRST + 62)
#define TCM_GETITEMW (TCM_FIRST + 60)
#define TCIF_TEXT 0x1u
#define TCIF_PARAM 0x8u

/* Standard cursors. */
#define IDC_ARROW 32512
#define IDC_WAIT 32514

/* ---- Further classic values used by the dialog engine ---- */
#define MB_ICONHAND MB_ICONERROR
#define MB_ICONSTOP MB_ICONERROR
#define MB_ICONEXCLAMATION MB_ICONWARNING
#define MB_ICONASTERISK MB_ICONINFORMATION
#define MB_DEFBUTTON1 0x00000000u
#define MB_DEFMASK 0x00000F00u
#define MB_APPLMODAL 0x00000000u
#define MB_SYSTEMMODAL 0x00001000u
#define MB_TASKMODAL 0x00002000u

#define WM_SETFOCUS 0x0007u
#define WM_KILLFOCUS 0x0008u
#define WM_ENABLE 0x000Au

#define BN_DOUBLECLICKED 5
#define LBN_SETFOCUS 4
#define LBN_KILLFOCUS 5
#define CBN_SETFOCUS 3
#define CBN_KILLFOCUS 4
#define CBN_EDITUPDATE 6
#define CBN_DROPDOWN 7
#define CBN_CLOSEUP 8
#define EN_SETFOCUS 0x0100
#define EN_KILLFOCUS 0x0200
#define EN_UPDATE 0x0400
#define EN_MAXTEXT 0x0501

#define BM_GETSTATE 0x00F2u
#define BM_SETSTYLE 0x00F4u

#define EM_GETLINECOUNT 0x00BAu
#define EM_GETLIMITTEXT 0x00D5u

#define LB_GETTOPINDEX 0x018Eu
#define LB_SETTOPINDEX 0x0197u
#define LB_SETCARETINDEX 0x019Eu
#define LB_GETCARETINDEX 0x019Fu

#define CB_GETEDITSEL 0x0140u
#define CB_SETEDITSEL 0x0142u
#define CB_SHOWDROPDOWN 0x014Fu
#define CB_GETDROPPEDSTATE 0x0157u

#define PBM_SETRANGE 0x0401u
#define PBM_DELTAPOS 0x0403u
#define PBM_SETSTEP 0x0404u
#define PBM_STEPIT 0x0405u
#define PBM_GETRANGE 0x0407u

#define LVM_ENSUREVISIBLE (LVM_FIRST + 19)
#define LVM_REDRAWITEMS (LVM_FIRST + 21)
#define LVM_GETCOLUMNWIDTH (LVM_FIRST + 29)
#define LVM_SETCOLUMNWIDTH (LVM_FIRST + 30)
#define LVM_UPDATE (LVM_FIRST + 42)
#define LVM_SETCOLUMNW (LVM_FIRST + 96)
#define LVFI_PARTIAL 0x8u
#define LVN_ITEMCHANGING (-100)
#define LVN_INSERTITEM (-102)
#define LVN_DELETEITEM (-103)
#define LVN_DELETEALLITEMS (-104)

#define TCM_DELETEITEM (TCM_FIRST + 8)
#define TCM_SETITEMW (TCM_FIRST + 61)

/* Focus notifications: edits, list boxes and combo boxes always send theirs; buttons
 * only with BS_NOTIFY; list views and tab controls as WM_NOTIFY. */
#define BS_NOTIFY 0x4000u
#define BN_SETFOCUS 6
#define BN_KILLFOCUS 7
#define NM_SETFOCUS (-7)
#define NM_KILLFOCUS (-8)

/* List view state images: with LVS_EX_CHECKBOXES image 1 is an unchecked box, 2 a
 * checked one (ListView_GetCheckState / ListView_SetCheckState in tabra_window.h). */
#define LVIS_STATEIMAGEMASK 0xF000u
#define INDEXTOSTATEIMAGEMASK(index) ((uint32_t)(index) << 12)

#endif
