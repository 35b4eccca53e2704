#pragma once

/// Headers that hosts include beside the published one. Some of their names are macros, and some are types of COM as
/// well.
#ifdef _WIN32
#include <windows.h>
// After windows.h.
#include <sql.h>
#include <sqlext.h>
#else
#include <X11/Xlib.h>
#include <gtk/gtk.h>
#include <sql.h>
#include <sqlext.h>
#endif
