#pragma once

/// @file
/// KESTOVA_EXPORT marks what leaves the library; nothing else is visible in the shared object.

/// Stands before every class that a host uses: exports it while the library is built, imports it
/// everywhere else. KESTOVA_STATIC is for programs that link the library's objects themselves.
#if defined(_WIN32) && defined(KESTOVA_STATIC)
#define KESTOVA_EXPORT
#elif defined(_WIN32)
#if defined(KESTOVA_BUILDING)
#define KESTOVA_EXPORT __declspec(dllexport)
#else
#define KESTOVA_EXPORT __declspec(dllimport)
#endif
#else
#define KESTOVA_EXPORT __attribute__((visibility("default")))
#endif

/// A pointer-sized handle, as <windows.h> declares it; repeating the declaration is legal, so a
/// host may include that header before or after this one.
typedef void* HANDLE;
