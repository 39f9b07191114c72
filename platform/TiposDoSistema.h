// The types of the system that have names in common with this library's.
#pragma once

// Windows' headers know money too, as a union that cannot be compared. With these marks set they
// take the library's type, of the same size and with the same member, int64, for theirs.
#if defined(_WIN32)
#if defined(_tagCY_DEFINED)
#error "kxldadoscm: include its headers before windows.h and whatever includes that"
#endif
#define _tagCY_DEFINED
#define _CY_DEFINED
#endif
