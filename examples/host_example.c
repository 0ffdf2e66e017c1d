/* A camera host in miniature: feeds synthetic NV21 frames with a red square moving right, touches it
 * on the first frame, prints what the engine reports for a few frames and exits 0 only when the
 * engine kept its box on the square in every frame. Plain C99 (plus POSIX nanosleep), public header
 * only. */
#define _POSIX_C_SOURCE 199309L

#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <time.h>

#include "plovixengine.h"

enum {
  kWidth = 1280,
  kHeight = 720,
  kFrames = 30,
  kPrintEvery = 5,
  kSide = 120,
  kStartLeft = 300,
  kTop = 300,
  kStepX = 6,
  kFrameIntervalNs = 33333333 /* 30 frames per second */
};

static int square_left(int frame) { return kStartLeft + kStepX * frame; }

static void draw_frame(uint8_t* y, uint8_t* uv, int frame) {
  const int left = square_left(frame);
  int r, c;
  memset(y, 110, (size_t)kWidth * kHeight);
  memset(uv, 128, (size_t)kWidth * (kHeight / 2));
  for (r = kTop; r < kTop + kSide; ++r) {
    for (c = left; c < left + kSide; ++c) {
      y[(size_t)r * kWidth + c] = 82;
      uv[(size_t)(r / 2) * kWidth + (c & ~1)] = 240;    /* V: NV21 stores V first */
      uv[(size_t)(r / 2) * kWidth + (c & ~1) + 1] = 90; /* U */
    }
  }
}

/* Focus units run from -1000 at the left/top edge of the frame to +1000 at the right/bottom edge. */
static int pixels_to_focus(int px, int size) { return px * 2000 / size - 1000; }
static int focus_to_pixels(int focus, int size) { return (focus + 1000) * size / 2000; }

static const char* state_name(int state) {
  switch (state) {
    case PLOVIX_STATE_NOT_TRACKING: return "not tracking";
    case PLOVIX_STATE_TRACKING: return "tracking";
    case PLOVIX_STATE_TEMP_LOST: return "lost for now";
    default: return "?";
  }
}

/* The engine's progress messages are routine; a host would send them to its own log. Errors are
 * worth seeing here. */
static void on_engine_message(int priority, const char* tag, const char* text, void* user) {
  (void)user;
  if (priority >= 6) fprintf(stderr, "%s: %s\n", tag, text);
}

/* The engine times velocities by the time of day, so frames must come at a camera's pace. */
static void wait_for_next_frame(void) {
  struct timespec interval;
  interval.tv_sec = 0;
  interval.tv_nsec = kFrameIntervalNs;
  nanosleep(&interval, NULL);
}

static int box_on_square(const PlovixStruct* rec, int frame) {
  const int cx = focus_to_pixels((rec->nLeft + rec->nRight) / 2, kWidth);
  const int cy = focus_to_pixels((rec->nTop + rec->nBottom) / 2, kHeight);
  const int left = square_left(frame);
  return cx >= left && cx < left + kSide && cy >= kTop && cy < kTop + kSide;
}

int main(void) {
  uint8_t* y = malloc((size_t)kWidth * kHeight);
  uint8_t* uv = malloc((size_t)kWidth * (kHeight / 2));
  PlovixStruct rec;
  void* engine;
  int frame, on_square = 0;
  if (!y || !uv) return 1;

  plovix_set_log_callback(on_engine_message, NULL);
  engine = create_plovix_handle();
  init_plovix(engine);

  memset(&rec, 0, sizeof(rec)); /* one record for every frame */
  rec.nFormat = 2;              /* NV21 */
  rec.nWidth = kWidth;
  rec.nHeight = kHeight;
  rec.nStride = kWidth;
  rec.nSensorType = -1;
  rec.fZoomRatio = 1.0f;
  rec.pY = y;
  rec.pUV = uv;

  for (frame = 0; frame < kFrames; ++frame) {
    draw_frame(y, uv, frame);
    if (frame == 0) {
      rec.bTrackRequest = 1; /* the user touched the square's centre */
      rec.nRequestX = pixels_to_focus(square_left(0) + kSide / 2, kWidth);
      rec.nRequestY = pixels_to_focus(kTop + kSide / 2, kHeight);
    }
    if (process_plovix(engine, &rec) != 0) {
      fprintf(stderr, "frame %d was refused\n", frame);
      break;
    }
    if (rec.nTrackState == PLOVIX_STATE_TRACKING && box_on_square(&rec, frame)) ++on_square;
    if (frame % kPrintEvery == 0 || frame == kFrames - 1) {
      printf("frame %2d: state %d (%s), box x %d..%d y %d..%d, predicted x %d..%d, velocity %d,%d px/s\n",
             frame, rec.nTrackState, state_name(rec.nTrackState), rec.nLeft, rec.nRight, rec.nTop,
             rec.nBottom, rec.nPredictLeft, rec.nPredictRight, rec.nVelocityX, rec.nVelocityY);
    }
    wait_for_next_frame();
  }

  deinit_plovix(engine);
  destroy_plovix_handle(engine);
  plovix_set_log_callback(NULL, NULL);
  free(y);
  free(uv);
  printf("box on the square in %d of %d frames\n", on_square, kFrames);
  return on_square == kFrames ? 0 : 1;
}
