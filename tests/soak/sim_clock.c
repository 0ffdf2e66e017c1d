#include <stdint.h>
#include <sys/time.h>

static int64_t g_now_ms = 0;

void soak_clock_set_ms(int64_t ms) { g_now_ms = ms; }

int gettimeofday(struct timeval* tv, void* tz) {
  (void)tz;
  tv->tv_sec = (time_t)(g_now_ms / 1000);
  tv->tv_usec = (suseconds_t)(g_now_ms % 1000 * 1000);
  return 0;
}
