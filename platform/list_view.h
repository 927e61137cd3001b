// The list view control; part of controls.h.
#pragma once

#include "platform/types.h"
#include "platform/window_messages.h"

#ifdef _WIN32

#include <commctrl.h>

#else

inline constexpr DWORD LVS_ICON = 0x0000;
inline constexpr DWORD LVS_REPORT = 0x0001;
inline constexpr DWORD LVS_SMALLICON = 0x0002;
inline constexpr DWORD LVS_LIST = 0x0003;
inline constexpr DWORD LVS_TYPEMASK = 0x0003;
inline constexpr DWORD LVS_SINGLESEL = 0x0004;
inline constexpr DWORD LVS_SHOWSELALWAYS = 0x0008;
inline constexpr DWORD LVS_SORTASCENDING = 0x0010;
inline constexpr DWORD LVS_SORTDESCENDING = 0x0020;
inline constexpr DWORD LVS_SHAREIMAGELISTS = 0x0040;
inline constexpr DWORD LVS_NOLABELWRAP = 0x0080;
inline constexpr DWORD LVS_AUTOARRANGE = 0x0100;
inline constexpr DWORD LVS_EDITLABELS = 0x0200;
inline constexpr DWORD LVS_NOSCROLL = 0x2000;
inline constexpr DWORD LVS_ALIGNTOP = 0x0000;
inline constexpr DWORD LVS_ALIGNLEFT = 0x0800;
inline constexpr DWORD LVS_NOCOLUMNHEADER = 0x4000;
inline constexpr DWORD LVS_NOSORTHEADER = 0x8000;

inline constexpr DWORD LVS_EX_GRIDLINES = 0x0001;
inline constexpr DWORD LVS_EX_CHECKBOXES = 0x0004;
inline constexpr DWORD LVS_EX_TRACKSELECT = 0x0008;
inline constexpr DWORD LVS_EX_FULLROWSELECT = 0x0020;
inline constexpr DWORD LVS_EX_INFOTIP = 0x0400;
inline constexpr DWORD LVS_EX_LABELTIP = 0x4000;
inline constexpr DWORD LVS_EX_DOUBLEBUFFER = 0x00010000;

inline constexpr UINT LVM_FIRST = 0x1000;
inline constexpr UINT LVM_GETIMAGELIST = LVM_FIRST + 2;
inline constexpr UINT LVM_SETIMAGELIST = LVM_FIRST + 3;
inline constexpr UINT LVM_GETITEMCOUNT = LVM_FIRST + 4;
inline constexpr UINT LVM_DELETEITEM = LVM_FIRST + 8;
inline constexpr UINT LVM_DELETEALLITEMS = LVM_FIRST + 9;
inline constexpr UINT LVM_GETNEXTITEM = LVM_FIRST + 12;
inline constexpr UINT LVM_GETITEMRECT = LVM_FIRST + 14;
inline constexpr UINT LVM_HITTEST = LVM_FIRST + 18;
inline constexpr UINT LVM_ENSUREVISIBLE = LVM_FIRST + 19;
inline constexpr UINT LVM_REDRAWITEMS = LVM_FIRST + 21;
inline constexpr UINT LVM_ARRANGE = LVM_FIRST + 22;
inline constexpr UINT LVM_DELETECOLUMN = LVM_FIRST + 28;
inline constexpr UINT LVM_GETCOLUMNWIDTH = LVM_FIRST + 29;
inline constexpr UINT LVM_SETCOLUMNWIDTH = LVM_FIRST + 30;
inline constexpr UINT LVM_GETTOPINDEX = LVM_FIRST + 39;
inline constexpr UINT LVM_GETCOUNTPERPAGE = LVM_FIRST + 40;
inline constexpr UINT LVM_UPDATE = LVM_FIRST + 42;
inline constexpr UINT LVM_SETITEMSTATE = LVM_FIRST + 43;
inline constexpr UINT LVM_GETITEMSTATE = LVM_FIRST + 44;
inline constexpr UINT LVM_SETITEMCOUNT = LVM_FIRST + 47;
inline constexpr UINT LVM_GETSELECTEDCOUNT = LVM_FIRST + 50;
inline constexpr UINT LVM_GETITEMSPACING = LVM_FIRST + 51;
inline constexpr UINT LVM_SETICONSPACING = LVM_FIRST + 53;
inline constexpr UINT LVM_SETEXTENDEDLISTVIEWSTYLE = LVM_FIRST + 54;
inline constexpr UINT LVM_GETEXTENDEDLISTVIEWSTYLE = LVM_FIRST + 55;
inline constexpr UINT LVM_GETSUBITEMRECT = LVM_FIRST + 56;
inline constexpr UINT LVM_GETSELECTIONMARK = LVM_FIRST + 66;
inline constexpr UINT LVM_SETSELECTIONMARK = LVM_FIRST + 67;
inline constexpr UINT LVM_GETITEMW = LVM_FIRST + 75;
inline constexpr UINT LVM_SETITEMW = LVM_FIRST + 76;
inline constexpr UINT LVM_INSERTITEMW = LVM_FIRST + 77;
inline constexpr UINT LVM_FINDITEMW = LVM_FIRST + 83;
inline constexpr UINT LVM_GETSTRINGWIDTHW = LVM_FIRST + 87;
inline constexpr UINT LVM_GETCOLUMNW = LVM_FIRST + 95;
inline constexpr UINT LVM_SETCOLUMNW = LVM_FIRST + 96;
inline constexpr UINT LVM_INSERTCOLUMNW = LVM_FIRST + 97;
inline constexpr UINT LVM_GETITEMTEXTW = LVM_FIRST + 115;
inline constexpr UINT LVM_SETITEMTEXTW = LVM_FIRST + 116;

inline constexpr UINT LVN_FIRST = 0U - 100U;
inline constexpr UINT LVN_ITEMCHANGING = LVN_FIRST - 0;
inline constexpr UINT LVN_ITEMCHANGED = LVN_FIRST - 1;
inline constexpr UINT LVN_INSERTITEM = LVN_FIRST - 2;
inline constexpr UINT LVN_DELETEITEM = LVN_FIRST - 3;
inline constexpr UINT LVN_DELETEALLITEMS = LVN_FIRST - 4;
inline constexpr UINT LVN_COLUMNCLICK = LVN_FIRST - 8;
inline constexpr UINT LVN_ITEMACTIVATE = LVN_FIRST - 14;
inline constexpr UINT LVN_KEYDOWN = LVN_FIRST - 55;

inline constexpr UINT LVIF_TEXT = 0x0001;
inline constexpr UINT LVIF_IMAGE = 0x0002;
inline constexpr UINT LVIF_PARAM = 0x0004;
inline constexpr UINT LVIF_STATE = 0x0008;
inline constexpr UINT LVIF_INDENT = 0x0010;

inline constexpr UINT LVIS_FOCUSED = 0x0001;
inline constexpr UINT LVIS_SELECTED = 0x0002;
inline constexpr UINT LVIS_CUT = 0x0004;
inline constexpr UINT LVIS_DROPHILITED = 0x0008;
inline constexpr UINT LVIS_OVERLAYMASK = 0x0F00;
inline constexpr UINT LVIS_STATEIMAGEMASK = 0xF000;

inline constexpr UINT LVCF_FMT = 0x0001;
inline constexpr UINT LVCF_WIDTH = 0x0002;
inline constexpr UINT LVCF_TEXT = 0x0004;
inline constexpr UINT LVCF_SUBITEM = 0x0008;
inline constexpr int LVCFMT_LEFT = 0x0000;
inline constexpr int LVCFMT_RIGHT = 0x0001;
inline constexpr int LVCFMT_CENTER = 0x0002;
inline constexpr int LVSCW_AUTOSIZE = -1;
inline constexpr int LVSCW_AUTOSIZE_USEHEADER = -2;

inline constexpr WPARAM LVNI_ALL = 0x0000;
inline constexpr WPARAM LVNI_FOCUSED = 0x0001;
inline constexpr WPARAM LVNI_SELECTED = 0x0002;
inline constexpr UINT LVNI_STATEMASK = 0x000F;
inline constexpr UINT LVFI_PARAM = 0x0001;
inline constexpr UINT LVFI_STRING = 0x0002;
inline constexpr UINT LVFI_PARTIAL = 0x0008;
inline constexpr UINT LVFI_WRAP = 0x0020;
inline constexpr WPARAM LVSIL_NORMAL = 0;
inline constexpr WPARAM LVSIL_SMALL = 1;
inline constexpr WPARAM LVSIL_STATE = 2;
inline constexpr int LVIR_BOUNDS = 0;
inline constexpr int LVIR_ICON = 1;
inline constexpr int LVIR_LABEL = 2;
inline constexpr int LVIR_SELECTBOUNDS = 3;
inline constexpr UINT LVHT_NOWHERE = 0x0001;
inline constexpr UINT LVHT_ONITEMICON = 0x0002;
inline constexpr UINT LVHT_ONITEMLABEL = 0x0004;
inline constexpr UINT LVHT_ONITEMSTATEICON = 0x0008;
inline constexpr UINT LVHT_ONITEM = LVHT_ONITEMICON | LVHT_ONITEMLABEL | LVHT_ONITEMSTATEICON;

// The state picture of a row, counted from 1; with LVS_EX_CHECKBOXES 1 is clear and 2 is set.
constexpr UINT INDEXTOSTATEIMAGEMASK(UINT index) noexcept { return index << 12U; }

struct LVITEMW {
    UINT mask;
    int iItem;
    int iSubItem;
    UINT state;
    UINT stateMask;
    LPWSTR pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
    int iIndent;
    int iGroupId;
    UINT cColumns;
    UINT* puColumns;
    int* piColFmt;
    int iGroup;
};
using LPLVITEMW = LVITEMW*;
static_assert(sizeof(void*) != 8 || sizeof(LVITEMW) == 88);

struct LVCOLUMNW {
    UINT mask;
    int fmt;
    int cx;
    LPWSTR pszText;
    int cchTextMax;
    int iSubItem;
    int iImage;
    int iOrder;
    int cxMin;
    int cxDefault;
    int cxIdeal;
};
using LPLVCOLUMNW = LVCOLUMNW*;
static_assert(sizeof(void*) != 8 || sizeof(LVCOLUMNW) == 56);

struct LVFINDINFOW {
    UINT flags;
    LPCWSTR psz;
    LPARAM lParam;
    POINT pt;
    UINT vkDirection;
};
using LPLVFINDINFOW = LVFINDINFOW*;
static_assert(sizeof(void*) != 8 || sizeof(LVFINDINFOW) == 40);

struct LVHITTESTINFO {
    POINT pt;
    UINT flags;
    int iItem;
    int iSubItem;
    int iGroup;
};
static_assert(sizeof(LVHITTESTINFO) == 24);

struct NMLISTVIEW {
    NMHDR hdr;
    int iItem;
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged;
    POINT ptAction;
    LPARAM lParam;
};
using LPNMLISTVIEW = NMLISTVIEW*;
static_assert(sizeof(void*) != 8 || sizeof(NMLISTVIEW) == 64);

struct NMITEMACTIVATE {
    NMHDR hdr;
    int iItem;
    int iSubItem;
    UINT uNewState;
    UINT uOldState;
    UINT uChanged;
    POINT ptAction;
    LPARAM lParam;
    UINT uKeyFlags;
};
using LPNMITEMACTIVATE = NMITEMACTIVATE*;
static_assert(sizeof(void*) != 8 || sizeof(NMITEMACTIVATE) == 72);

#pragma pack(push, 1)
struct NMLVKEYDOWN {
    NMHDR hdr;
    WORD wVKey;
    UINT flags;
};
#pragma pack(pop)
static_assert(sizeof(void*) != 8 || sizeof(NMLVKEYDOWN) == 30);

#endif
