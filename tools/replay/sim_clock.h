// The replay clock. The engine reads the time of day through gettimeofday to turn movement into
// velocities; replaying faster or slower than the camera ran would scale them. The tool therefore
// defines gettimeofday itself (the engine library resolves it to the executable's definition)
// and answers with the clip's own time while a simulated time is set.
#pragma once

#include <cstdint>

extern "C" {
// From now on gettimeofday answers ms milliseconds since the epoch.
void plovix_replay_clock_set_ms(int64_t ms);
// From now on gettimeofday answers the real time of day.
void plovix_replay_clock_use_real(void);
}
