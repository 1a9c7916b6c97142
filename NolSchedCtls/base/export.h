// What the shared library shows to its hosts; everything else stays inside.
#pragma once

#define NOLSCHED_API __attribute__((visibility("default")))
