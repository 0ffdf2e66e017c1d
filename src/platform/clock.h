// Time of day in milliseconds. Read through gettimeofday only, so a host can simulate time.
#pragma once

#include <cstdint>

// seconds * 1000 + microseconds / 1000 of gettimeofday.
int64_t CurrentTimeMs();
