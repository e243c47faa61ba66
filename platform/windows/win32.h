#pragma once

/// The system's headers. What they define as macros under a name of the seam goes, so that the
/// name means the seam's own function or constant.

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#undef NOMINMAX
#define NOMINMAX 1

#include <windows.h>
// The others need what this one defines.
#include <commctrl.h>
#include <commdlg.h>
#include <mmsystem.h>
#include <ole2.h>
#include <shellapi.h>
#include <shlobj.h>

#undef BROWSEINFO
#undef COLOR_BTNFACE
#undef COLOR_BTNTEXT
#undef COLOR_WINDOW
#undef COLOR_WINDOWTEXT
#undef NIM_ADD
#undef NIM_DELETE
#undef NIM_MODIFY
#undef OFN_ALLOWMULTISELECT
#undef OFN_EXPLORER
#undef RGN_OR
#undef SHBrowseForFolder
#undef SHGetPathFromIDList
#undef SPI_GETWORKAREA
