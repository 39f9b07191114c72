// KX_API marks what the shared library exports; everything else in it stays hidden.
// KX_CONSTROI is defined while the library is built, KX_ESTATICA by whoever links it statically.
#pragma once

// The only way to end a compilation with one line on every compiler: a file that is not there.
#if (defined(_MSVC_LANG) ? _MSVC_LANG : __cplusplus) < 202002L
#include "kxldadoscm: these headers are C++20: compile with -std=c++20 or /std:c++20"
#endif

// KX_LOCAL takes back from the export what an exported class has for the library's own sources: its
// template members, which the compiler would export or not as it pleases.
#if defined(KX_ESTATICA)
#define KX_API
#elif defined(_WIN32) && defined(KX_CONSTROI)
#define KX_API __declspec(dllexport)
#elif defined(_WIN32)
#define KX_API __declspec(dllimport)
#else
#define KX_API __attribute__((visibility("default")))
#endif

#if defined(_WIN32)
#define KX_LOCAL
#else
#define KX_LOCAL __attribute__((visibility("hidden")))
#endif

// KX_API_MODELO is for class templates that any program may instantiate. Windows would look for all
// instances in the library, so there each module makes its own; elsewhere they are merged.
#if defined(_WIN32)
#define KX_API_MODELO
#else
#define KX_API_MODELO KX_API
#endif
