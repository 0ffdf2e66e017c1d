// A tiny mode of plovix-bench for counting instructions under callgrind: tracks the moving disc
// at 1080p for a fixed number of frames inside one function, plovix_bench_tracked_frames, so
// that callgrind --toggle-collect on that function counts exactly those frames.
#pragma once

namespace plovix_bench {

// Renders the frames, starts tracking, runs the frames; 0 on success, 1 when the engine did not
// report tracking on every frame.
int RunCallgrindFrames(int frames);

}  // namespace plovix_bench
