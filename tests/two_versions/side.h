// One side of a program that holds two versions of the library: one source, built with the headers of each.
#pragma once

#include <string>

#define NOLSCHED_SIDE(name)                                                  \
    namespace name {                                                         \
    void Begin();       /* installs services, and holds a record */          \
    void End();         /* lets go of both */                                \
    std::string Tell(); /* what the side sees of its library, in one line */ \
    }

NOLSCHED_SIDE(first)
NOLSCHED_SIDE(second)
