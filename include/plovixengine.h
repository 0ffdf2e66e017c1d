/*
 * libplovixengine: keeps a fixed-size box on the object the user touched in a camera preview.
 *
 * A camera host calls, in this order:
 *   create_plovix_handle()          once
 *   init_plovix(handle)             before the first frame (and again after deinit_plovix)
 *   process_plovix(handle, &rec)    once per preview frame, on the camera thread
 *   deinit_plovix(handle)           when the preview stops
 *   destroy_plovix_handle(handle)   once
 *
 * Threading: never run process_plovix concurrently with any other call on the same handle. Init,
 * deinit and destroy may come from another thread between frames. All tracking state is
 * process-wide: two handles in one process share one tracking context.
 *
 * Coordinates: requests and result boxes are focus-area units, -1000 at the left/top edge of the
 * full frame and +1000 at the right/bottom edge (Android's Camera.Area convention).
 */
#ifndef PLOVIXENGINE_H
#define PLOVIXENGINE_H

#include <stddef.h>
#include <stdint.h>

#if defined(_WIN32)
#define PLOVIX_API
#else
#define PLOVIX_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* Track states reported in nTrackState and nPredictState. */
enum {
  PLOVIX_STATE_NOT_TRACKING = 1, /* no object selected, selection failed, or object finally lost */
  PLOVIX_STATE_TRACKING = 2,     /* boxes are on the object */
  PLOVIX_STATE_TEMP_LOST = 3     /* object hidden or missing: boxes hold the last good position */
};

/*
 * The per-frame record, shared with the host as a binary layout (64-bit, natural alignment).
 * "host" fields are read by the engine, "engine" fields are written by it. The engine reads and
 * writes nothing beyond fZoomRatio. The host may reuse one record for every frame.
 */
typedef struct PlovixStruct {
  uint8_t* pY;          /* host: full-resolution luma plane, rows nWidth bytes apart */
  uint8_t* pUV;         /* host: interleaved chroma plane, nHeight/2 rows of nWidth bytes */
  int32_t nFormat;      /* host: pixel format; 2, 3 and 7 (nv21, nv12_venus, nv12) are accepted,
                           all processed alike; anything else makes process_plovix return -1 */
  int32_t nWidth;       /* host: frame width in pixels */
  int32_t nHeight;      /* host: frame height in pixels */
  int32_t nStride;      /* host: announced row pitch; a value below nWidth is logged, rows are
                           always read nWidth bytes apart */
  uint8_t bTrackRequest; /* host sets to non-zero to select the object at (nRequestX, nRequestY);
                            the engine clears it when it takes the request */
  /* 3 bytes padding */
  int32_t nRequestX;    /* host: touch x, focus units */
  int32_t nRequestY;    /* host: touch y, focus units */
  int32_t nTrackState;  /* engine: 1 not tracking, 2 tracking, 3 temporarily lost */
  int32_t nLeft;        /* engine: measured box, focus units (x pair, then y pair) */
  int32_t nRight;
  int32_t nTop;
  int32_t nBottom;
  int32_t nWeight;      /* engine: 100 whenever a result is written */
  int32_t nPredictState; /* engine: always equal to nTrackState */
  int32_t nPredictLeft; /* engine: box extrapolated a few frames ahead, focus units */
  int32_t nPredictRight;
  int32_t nPredictTop;
  int32_t nPredictBottom;
  int32_t nPredictWeight; /* engine: 100 whenever a result is written */
  int32_t nOffsetX;     /* engine: measured centre x minus predicted centre x, input pixels */
  int32_t nOffsetY;     /* engine: same for y */
  int32_t nVelocityX;   /* engine: predicted centre speed, input pixels per second */
  int32_t nVelocityY;   /* engine: same for y */
  int32_t nSensorType;  /* host: -1 unknown, 1 a 16:9 sensor, anything else a 4:3 sensor; used to
                           keep the object after a preview size change */
  float fZoomRatio;     /* host: current zoom ratio, 1.0 to 10.0; other values are ignored */
} PlovixStruct;

#ifdef __cplusplus
#define PLOVIX_STATIC_ASSERT static_assert
#else
#define PLOVIX_STATIC_ASSERT _Static_assert
#endif
PLOVIX_STATIC_ASSERT(sizeof(void*) == 8, "PlovixStruct is laid out for 64-bit targets");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, pY) == 0, "pY");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, pUV) == 8, "pUV");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nFormat) == 16, "nFormat");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nWidth) == 20, "nWidth");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nHeight) == 24, "nHeight");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nStride) == 28, "nStride");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, bTrackRequest) == 32, "bTrackRequest");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nRequestX) == 36, "nRequestX");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nRequestY) == 40, "nRequestY");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nTrackState) == 44, "nTrackState");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nLeft) == 48, "nLeft");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nRight) == 52, "nRight");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nTop) == 56, "nTop");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nBottom) == 60, "nBottom");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nWeight) == 64, "nWeight");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nPredictState) == 68, "nPredictState");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nPredictLeft) == 72, "nPredictLeft");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nPredictRight) == 76, "nPredictRight");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nPredictTop) == 80, "nPredictTop");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nPredictBottom) == 84, "nPredictBottom");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nPredictWeight) == 88, "nPredictWeight");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nOffsetX) == 92, "nOffsetX");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nOffsetY) == 96, "nOffsetY");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nVelocityX) == 100, "nVelocityX");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nVelocityY) == 104, "nVelocityY");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, nSensorType) == 108, "nSensorType");
PLOVIX_STATIC_ASSERT(offsetof(PlovixStruct, fZoomRatio) == 112, "fZoomRatio");
PLOVIX_STATIC_ASSERT(sizeof(PlovixStruct) == 120, "PlovixStruct size");

/* Creates an engine. Returns an opaque handle. */
PLOVIX_API void* create_plovix_handle(void);

/* Prepares the engine for a preview session; logs the version. Calling it twice without
 * deinit_plovix is logged and ignored. Always returns 0 (a null handle is logged and ignored). */
PLOVIX_API int init_plovix(void* handle);

/* Processes one preview frame and writes the result fields of rec. Returns 0 for every processed
 * frame (whatever the tracking outcome) and -1 for a refused frame: a null handle or record, an
 * unsupported nFormat, a null pY or pUV, a negative size or one whose bytes (nWidth x nHeight x 3/2)
 * exceed INT32_MAX, or a degenerate box for a tiny frame. A refused frame is logged at error
 * priority and leaves the record as it was (a degenerate box only after the request was taken). */
PLOVIX_API int process_plovix(void* handle, PlovixStruct* rec);

/* Ends the preview session: stops tracking and releases the working buffers. Always returns 0 (a
 * null handle is logged and ignored). */
PLOVIX_API int deinit_plovix(void* handle);

/* Destroys the engine. A null handle is ignored. */
PLOVIX_API void destroy_plovix_handle(void* handle);

/* Every engine message goes to cb (priority 4 info or 6 error, tag "PlovixPlugin", the formatted
 * text) instead of the platform log while it is set. Null restores the platform log (liblog on
 * Android, "I/PlovixPlugin: text" lines on stderr elsewhere). */
typedef void (*PlovixLogCallback)(int priority, const char* tag, const char* text, void* user);
PLOVIX_API void plovix_set_log_callback(PlovixLogCallback cb, void* user);

#ifdef __cplusplus
}
#endif

#endif /* PLOVIXENGINE_H */
