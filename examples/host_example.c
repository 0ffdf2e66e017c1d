/* A camera host in miniature: feeds synthetic NV21 frames with a red square moving right, touches it
 * on the first frame and prints what the engine reports. Plain C99, only the public header. */
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "plovixengine.h"

enum { kWidth = 1280, kHeight = 720, kFrames = 30, kSide = 120 };

static void draw_frame(uint8_t* y, uint8_t* uv, int frame) {
  const int left = 300 + 6 * frame, top = 300;
  memset(y, 110, (size_t)kWidth * kHeight);
  memset(uv, 128, (size_t)kWidth * (kHeight / 2));
  for (int r = top; r < top + kSide; ++r) {
    for (int c = left; c < left + kSide; ++c) {
      y[(size_t)r * kWidth + c] = 82;
      uv[(size_t)(r / 2) * kWidth + (c & ~1)] = 240;     /* V: NV21 stores V first */
      uv[(size_t)(r / 2) * kWidth + (c & ~1) + 1] = 90;  /* U */
    }
  }
}

int main(void) {
  uint8_t* y = malloc((size_t)kWidth * kHeight);
  uint8_t* uv = malloc((size_t)kWidth * (kHeight / 2));
  if (!y || !uv) return 1;

  void* engine = create_plovix_handle();
  init_plovix(engine);

  PlovixStruct rec;
  memset(&rec, 0, sizeof(rec));
  rec.nFormat = 2; /* NV21 */
  rec.nWidth = kWidth;
  rec.nHeight = kHeight;
  rec.nStride = kWidth;
  rec.nSensorType = -1;
  rec.fZoomRatio = 1.0f;

  for (int i = 0; i < kFrames; ++i) {
    draw_frame(y, uv, i);
    rec.pY = y;
    rec.pUV = uv;
    if (i == 0) {
      /* Touch the square's centre, converted to focus units (-1000..1000). */
      rec.bTrackRequest = 1;
      rec.nRequestX = (300 + kSide / 2) * 2000 / kWidth - 1000;
      rec.nRequestY = (300 + kSide / 2) * 2000 / kHeight - 1000;
    }
    int ret = process_plovix(engine, &rec);
    printf("frame %2d ret=%d state=%d box=(%d,%d)-(%d,%d) predicted=(%d,%d)-(%d,%d) v=(%d,%d)\n", i, ret,
           rec.nTrackState, rec.nLeft, rec.nTop, rec.nRight, rec.nBottom, rec.nPredictLeft, rec.nPredictTop,
           rec.nPredictRight, rec.nPredictBottom, rec.nVelocityX, rec.nVelocityY);
  }

  deinit_plovix(engine);
  destroy_plovix_handle(engine);
  free(y);
  free(uv);
  return 0;
}
