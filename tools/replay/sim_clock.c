#include <stdint.h>
#include <sys/time.h>
#include <time.h>

static int g_simulated = 0;
static int64_t g_now_ms = 0;

void plovix_replay_clock_set_ms(int64_t ms) {
  g_simulated = 1;
  g_now_ms = ms;
}

void plovix_replay_clock_use_real(void) { g_simulated = 0; }

int gettimeofday(struct timeval* tv, void* tz) {
  (void)tz;
  if (g_simulated) {
    tv->tv_sec = (time_t)(g_now_ms / 1000);
    tv->tv_usec = (suseconds_t)(g_now_ms % 1000 * 1000);
    return 0;
  }
  struct timespec ts;
  clock_gettime(CLOCK_REALTIME, &ts);
  tv->tv_sec = ts.tv_sec;
  tv->tv_usec = (suseconds_t)(ts.tv_nsec / 1000);
  return 0;
}
