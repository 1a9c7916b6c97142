// What the shared library shows to its hosts; everything else stays inside.
#pragma once

#if !defined(_WIN32)
#define NOLSCHED_API __attribute__((visibility("default")))
#elif defined(NOLSCHED_BUILDS_SHARED)
#define NOLSCHED_API __declspec(dllexport)
#elif defined(NOLSCHED_USES_SHARED)  // NolSchedCtls::shared sets it
#define NOLSCHED_API __declspec(dllimport)
#else
#define NOLSCHED_API
#endif
