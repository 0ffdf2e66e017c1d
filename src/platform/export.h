// Symbol visibility: the library is built with hidden visibility; the operations other code may
// link against by name are marked PLOVIX_EXPORT.
#pragma once

#define PLOVIX_EXPORT __attribute__((visibility("default")))
