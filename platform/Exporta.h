// KX_API marks what the shared library exports; everything else in it stays hidden.
// KX_CONSTROI is defined while the library is built, KX_ESTATICA by whoever links it statically.
#pragma once

#if defined(KX_ESTATICA)
#define KX_API
#elif defined(_WIN32) && defined(KX_CONSTROI)
#define KX_API __declspec(dllexport)
#elif defined(_WIN32)
#define KX_API __declspec(dllimport)
#else
#define KX_API __attribute__((visibility("default")))
#endif
