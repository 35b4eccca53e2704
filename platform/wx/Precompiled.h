// The toolkit's headers, compiled once for all folders that use them: they take most of the time of their sources. A
// source still includes what it uses; clang-tidy reads it without this file.
#include <wx/wx.h>

#include <wx/grid.h>

#ifdef _WIN32
// The system's headers define names of ours as macros.
#undef GetUserName
#endif
