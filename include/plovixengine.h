/*
 * libplovixengine: keeps a fixed-size box on the object the user touched in a camera preview, so
 * that autofocus and metering can follow it. docs/integration.md shows how to wire it into a
 * camera pipeline.
 *
 * Calls, in this order:
 *   create_plovix_handle()          once
 *   init_plovix(handle)             before the first frame (and again after deinit_plovix)
 *   process_plovix(handle, &rec)    once per preview frame, on the camera thread
 *   deinit_plovix(handle)           when the preview stops
 *   destroy_plovix_handle(handle)   once
 *
 * Threading: one call at a time per engine. process_plovix must never overlap another call on the
 * same handle; init_plovix, deinit_plovix and destroy_plovix_handle may come from another thread,
 * but only between frames. All tracking state (the selected object's model, templates and tracker)
 * is process-wide: one process has one tracking context, and two handles share it, so use one
 * engine per process.
 *
 * Coordinates: touch requests and result boxes are in focus-area units, -1000 at the left/top edge
 * of the full frame and +1000 at its right/bottom edge, in the orientation of the frame buffers
 * (the sensor's, as Android's Camera.Area uses). Column x of a W-pixel-wide frame lies at
 * x / W * 2000 - 1000 (truncated toward zero), and likewise for rows.
 *
 * Log: every message has the tag "PlovixPlugin" and priority 4 (info: progress) or 6 (error:
 * refusals, warnings and some routine notices). On Android they go to logcat, elsewhere to stderr
 * as "I/PlovixPlugin: text" lines, unless plovix_set_log_callback installed a callback.
 *
 * Time: the reported velocities divide by the time of day (gettimeofday) elapsed between two
 * results, not by frame time stamps; nothing else in the library reads a clock.
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
  PLOVIX_STATE_NOT_TRACKING = 1, /* no object: none selected, the selection failed, or the object
                                    was lost for good (more than 101 frames in a row) */
  PLOVIX_STATE_TRACKING = 2,     /* the boxes are on the object */
  PLOVIX_STATE_TEMP_LOST = 3     /* the object is hidden or missing; the engine keeps searching and
                                    the boxes hold its last good position */
};

/*
 * The per-frame record, shared with the host as a binary layout (64-bit, natural alignment, 120
 * bytes). "host" fields are set by the host before each call and only read by the engine; "engine"
 * fields are written by process_plovix on accepted frames and never read by it. The engine reads
 * and writes nothing beyond fZoomRatio and keeps no pointer into the record or the planes after the
 * call returns. One record may be reused for every frame; zero it once before the first.
 *
 * Box fields are written only with states 2 and 3 (and zeroed when a selection fails or tracking
 * ends); a frame reported with state 1 otherwise leaves them as they were, so read them only while
 * the state is 2 or 3.
 */
typedef struct PlovixStruct {
  uint8_t* pY;          /* host: luma plane, nWidth x nHeight bytes, rows nWidth bytes apart;
                           must not be null */
  uint8_t* pUV;         /* host: interleaved chroma plane at half resolution, nHeight/2 rows of
                           nWidth bytes (nWidth/2 byte pairs); the pairs are used in the order they
                           come (V,U for NV21, U,V for NV12), never swapped; must not be null */
  int32_t nFormat;      /* host: pixel format; 2, 3 and 7 (the layouts the log calls "nv21,
                           nv12_venus, nv12") are accepted and processed alike; any other value
                           makes process_plovix return -1 */
  int32_t nWidth;       /* host: frame width in pixels, 0 or more */
  int32_t nHeight;      /* host: frame height in pixels, 0 or more; a change of either size
                           rebuilds the engine's working image (see nSensorType) */
  int32_t nStride;      /* host: announced row pitch in bytes; never used for addressing: rows are
                           always read nWidth bytes apart, and a value below nWidth is logged at
                           error priority on every frame. Padded rows must be packed by the host. */
  uint8_t bTrackRequest; /* host sets it non-zero to select the object under (nRequestX, nRequestY)
                            in this frame, replacing any tracked object; the engine sets it back to
                            0 when it takes the request (a refused frame leaves it set) */
  /* 3 bytes padding */
  int32_t nRequestX;    /* host: touch x in focus units; -1000..999 covers the frame, and a touch
                           clearly off the frame selects nothing */
  int32_t nRequestY;    /* host: touch y in focus units, likewise */
  int32_t nTrackState;  /* engine: PLOVIX_STATE_*: 1 not tracking, 2 tracking, 3 temporarily lost;
                           written on every accepted frame */
  int32_t nLeft;        /* engine: measured box, focus units, in the order left, right, top, bottom
                           (not Android's Rect order). The box is a square of 2 * (nHeight * 5 / 27
                           / 2) pixels (200 at 1080 lines, 132 at 720) centred on the object, moved
                           inside the frame where it would cross an edge; it does not follow the
                           object's size. */
  int32_t nRight;       /* engine: measured box, right edge */
  int32_t nTop;         /* engine: measured box, top edge */
  int32_t nBottom;      /* engine: measured box, bottom edge */
  int32_t nWeight;      /* engine: 100 whenever the boxes are written */
  int32_t nPredictState; /* engine: always equal to nTrackState */
  int32_t nPredictLeft; /* engine: predicted box, focus units, same size as the measured box: its
                           centre is moved five average frame steps ahead along the last (up to
                           ten) steps; equal to the measured box for the first four tracked frames
                           after tracking starts or after a temporary loss */
  int32_t nPredictRight;  /* engine: predicted box, right edge */
  int32_t nPredictTop;    /* engine: predicted box, top edge */
  int32_t nPredictBottom; /* engine: predicted box, bottom edge */
  int32_t nPredictWeight; /* engine: 100 whenever the boxes are written */
  int32_t nOffsetX;     /* engine: measured box centre x minus predicted box centre x, pixels of
                           the input frame */
  int32_t nOffsetY;     /* engine: same for y */
  int32_t nVelocityX;   /* engine: speed of the predicted centre, input pixels per second, over the
                           time of day between this result and the previous one; 0 on the first
                           result after init_plovix, a temporary loss or the end of tracking */
  int32_t nVelocityY;   /* engine: same for y (positive is downward) */
  int32_t nSensorType;  /* host: shape of the sensor's full field of view: 1 a 16:9 sensor, -1
                           unknown, any other value a 4:3 sensor. When the preview size changes
                           while an object is tracked, the engine carries the object's position
                           across the two previews through this field of view; -1 skips that. */
  float fZoomRatio;     /* host: current zoom ratio, 1.0 to 10.0. When it changes while an object
                           is tracked, the engine rescales its search area about the frame centre.
                           A value outside 1.0..10.0 (such as the 0 of a zeroed record) rescales
                           nothing, and neither does the next change away from it. */
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

/* Creates an engine and returns its opaque handle. Out of memory is not handled. */
PLOVIX_API void* create_plovix_handle(void);

/* Starts a preview session: logs "PlovixPlugin init called ver v0.964_POSVNDK+NV12" (the engine's
 * own version string), stops any tracking and releases the working image, so that the next frame
 * rebuilds it. A second call without deinit_plovix is logged at error priority and changes
 * nothing. Always returns 0; a null handle is logged and ignored. Call it only between frames. */
PLOVIX_API int init_plovix(void* handle);

/* Processes one preview frame: takes a pending touch request, tracks the object and writes the
 * engine fields of rec. Returns 0 for every accepted frame, whatever the tracking outcome (read
 * nTrackState for that), and -1 for a refused frame, logged at error priority:
 *   - a null handle or rec,
 *   - nFormat other than 2, 3 or 7,
 *   - a negative nWidth or nHeight, or a frame of more than INT32_MAX bytes (nWidth x nHeight x 3/2),
 *   - a null pY or pUV,
 *   - while tracking, a frame under 11 lines (the box would be empty).
 * The first four leave rec exactly as it was (bTrackRequest included). The last one comes after
 * the request was taken and the zoom ratio noted, and writes no result. Never call it concurrently
 * with another call on the same handle. */
PLOVIX_API int process_plovix(void* handle, PlovixStruct* rec);

/* Ends the preview session: stops tracking, releases the working image and the object templates.
 * Called without init_plovix it logs that at error priority and cleans up all the same. Always
 * returns 0; a null handle is logged and ignored. Call it only between frames. */
PLOVIX_API int deinit_plovix(void* handle);

/* Destroys the engine; the handle is invalid afterwards. Call deinit_plovix first: the object
 * templates are process-wide, and without it they stay allocated until the next deinit_plovix.
 * A null handle is ignored. */
PLOVIX_API void destroy_plovix_handle(void* handle);

/* Receives every engine message instead of the platform log while it is set: priority 4 (info) or
 * 6 (error), the tag "PlovixPlugin" and the formatted text (at most 1023 bytes, truncated beyond),
 * both valid only during the call. cb runs synchronously on the thread that made the engine call,
 * for every handle in the process. Null restores the platform log (liblog on Android,
 * "I/PlovixPlugin: text" lines on stderr elsewhere). Set it while no other engine call runs. */
typedef void (*PlovixLogCallback)(int priority, const char* tag, const char* text, void* user);
PLOVIX_API void plovix_set_log_callback(PlovixLogCallback cb, void* user);

#ifdef __cplusplus
}
#endif

#endif /* PLOVIXENGINE_H */
