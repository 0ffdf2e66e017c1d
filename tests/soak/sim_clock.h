// The soak's clock. The engine reads the time of day through gettimeofday for its velocities; the
// soak runs far faster than a camera, so it defines gettimeofday itself (the engine library
// resolves the symbol to the executable's definition) and answers with the clip's time.
#pragma once

#include <cstdint>

extern "C" {
// From now on gettimeofday answers ms milliseconds since the epoch.
void soak_clock_set_ms(int64_t ms);
}
