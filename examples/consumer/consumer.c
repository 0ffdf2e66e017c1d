/* Checks the installed library's C face: every entry point links, the log callback receives the
 * engine's messages, a refused frame is left alone and an accepted one is answered. Exits 0 when
 * all of that holds. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <plovixengine.h>

enum { kWidth = 64, kHeight = 48, kUntouched = 99 };

struct LogSeen {
  int count;
  int priority;
  char tag[32];
  char text[128];
};

static void remember_first(int priority, const char* tag, const char* text, void* user) {
  struct LogSeen* seen = (struct LogSeen*)user;
  if (seen->count++ > 0) return;
  seen->priority = priority;
  snprintf(seen->tag, sizeof(seen->tag), "%s", tag);
  snprintf(seen->text, sizeof(seen->text), "%s", text);
}

static int fail(const char* what) {
  fprintf(stderr, "consumer: %s\n", what);
  return 1;
}

int main(void) {
  static uint8_t y[kWidth * kHeight], uv[kWidth * kHeight / 2];
  struct LogSeen seen;
  PlovixStruct rec;
  void* engine;

  memset(&seen, 0, sizeof(seen));
  plovix_set_log_callback(remember_first, &seen);
  engine = create_plovix_handle();
  if (engine == NULL) return fail("create_plovix_handle returned null");
  if (init_plovix(engine) != 0) return fail("init_plovix did not return 0");
  if (seen.count != 1 || seen.priority != 4 || strcmp(seen.tag, "PlovixPlugin") != 0 ||
      strcmp(seen.text, "PlovixPlugin init called ver v0.964_POSVNDK+NV12") != 0)
    return fail("the init message did not reach the log callback");

  memset(y, 128, sizeof(y));
  memset(uv, 128, sizeof(uv));
  memset(&rec, 0, sizeof(rec));
  rec.pY = y;
  rec.pUV = uv;
  rec.nWidth = kWidth;
  rec.nHeight = kHeight;
  rec.nStride = kWidth;
  rec.nSensorType = -1;
  rec.fZoomRatio = 1.0f;
  rec.nTrackState = kUntouched;

  rec.nFormat = 1;
  if (process_plovix(engine, &rec) != -1 || rec.nTrackState != kUntouched)
    return fail("an unsupported format was not refused untouched");
  rec.nFormat = 7;
  if (process_plovix(engine, &rec) != 0 || rec.nTrackState != 1 || rec.nPredictState != 1)
    return fail("an NV12 frame without a request did not report state 1");

  if (deinit_plovix(engine) != 0) return fail("deinit_plovix did not return 0");
  destroy_plovix_handle(engine);
  destroy_plovix_handle(NULL);
  plovix_set_log_callback(NULL, NULL);
  printf("consumer: ok (%d engine messages)\n", seen.count);
  return 0;
}
